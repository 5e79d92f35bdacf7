#include "ui/qt/text_sizes.h"

#include <QFontMetrics>
#include <algorithm>

namespace zentaline::ui::qt {

namespace {

// More than the windows of a session have; what somebody types all day doesn't pile up.
constexpr qsizetype kMostTexts = 4000;
constexpr std::size_t kMostFonts = 12;

constexpr int kAdvance = -3;
constexpr int kLines = -4;

}  // namespace

QHash<TextSizes::Text, QSize>& TextSizes::KnownFor(const QWidget& widget) {
  const QFont& font = widget.font();
  const double dots_per_inch = widget.fontMetrics().fontDpi();
  const auto found = std::find_if(fonts_.begin(), fonts_.end(), [&](const Known& known) {
    return known.dots_per_inch == dots_per_inch && (known.font.isCopyOf(font) || known.font == font);
  });
  if (found != fonts_.end()) {
    if (found->sizes.size() > kMostTexts) found->sizes.clear();
    return found->sizes;
  }
  if (fonts_.size() == kMostFonts) fonts_.clear();
  fonts_.push_back({font, dots_per_inch, {}});
  return fonts_.back().sizes;
}

int TextSizes::WidthOf(const QWidget& widget, const QString& text) {
  QHash<Text, QSize>& sizes = KnownFor(widget);
  const auto found = sizes.constFind({text, kAdvance});
  if (found != sizes.cend()) return found->width();
  const int width = widget.fontMetrics().horizontalAdvance(text);
  sizes.insert({text, kAdvance}, {width, 0});
  return width;
}

QSize TextSizes::SizeOf(const QWidget& widget, const QString& text) {
  QHash<Text, QSize>& sizes = KnownFor(widget);
  const auto found = sizes.constFind({text, kLines});
  return found != sizes.cend() ? *found : *sizes.insert({text, kLines}, widget.fontMetrics().size(0, text));
}

QSize TextSizes::BrokenSizeOf(const QWidget& widget, const QString& text, int width,
                              const std::function<QSize()>& measure) {
  const auto& sizes = KnownFor(widget);
  const auto found = sizes.constFind({text, width});
  if (found != sizes.cend()) return *found;
  const QSize size = measure();
  return *KnownFor(widget).insert({text, width}, size);
}

}  // namespace zentaline::ui::qt
