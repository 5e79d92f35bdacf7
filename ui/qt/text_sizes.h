// How much room texts take, measured once for each font: shaping them takes longer than all else that the size of a
// widget needs, and the same texts come again with every window.
#pragma once

#include <QFont>
#include <QHash>
#include <QSize>
#include <QString>
#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

namespace zentaline::ui::qt {

class TextSizes {
 public:
  // In the widget's font, as its metrics have them.
  int WidthOf(const QWidget& widget, const QString& text);
  // Of the lines of a text as they stand.
  QSize SizeOf(const QWidget& widget, const QString& text);

  // For a text whose lines break: the size in a width, or what its widget asks for.
  static constexpr int kHint = -1;
  static constexpr int kLeastHint = -2;
  QSize BrokenSizeOf(const QWidget& widget, const QString& text, int width, const std::function<QSize()>& measure);

 private:
  using Text = std::pair<QString, int>;  // with a width, or one of the kinds of sizes below 0
  struct Known {
    QFont font;
    double dots_per_inch;
    QHash<Text, QSize> sizes;
  };
  QHash<Text, QSize>& KnownFor(const QWidget& widget);

  std::vector<Known> fonts_;
};

}  // namespace zentaline::ui::qt
