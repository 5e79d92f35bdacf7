#include "tests/desktop/walk/look.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <cmath>
#include <map>

#include "ui/qt/fader.h"
#include "ui/qt/places.h"
#include "ui/qt/view.h"

namespace zentaline::ui::qt {

namespace {

constexpr double kLeastContrast = 4.5;  // of a text, to one

class Looker {
 public:
  explicit Looker(QWidget& window) : window_(window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      if (widget->isVisibleTo(&window) && !IsOfFrame(*widget)) widgets_.push_back(widget);
    }
  }

  std::vector<std::string> Findings() {
    for (QWidget* widget : widgets_) {
      Clipped(*widget);
      Contrast(*widget);
    }
    Overlaps();
    Focus();
    Names();
    return std::move(findings_);
  }

 private:
  // The title and the buttons of a window's frame are the style's.
  bool IsOfFrame(const QWidget& widget) const {
    const QByteArray name = widget.metaObject()->className();
    return name.startsWith("QMdi::") || name == "QSizeGrip" || name == "QScrollBar" ||
           widget.objectName() == QStringLiteral("qt_scrollarea_hcontainer") ||
           widget.objectName() == QStringLiteral("qt_scrollarea_vcontainer");
  }
  static bool IsControl(const QWidget& widget) { return ShowsControl(widget); }
  // Something that the user can do something with.
  static bool IsUsed(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr || dynamic_cast<const Fader*>(&widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
           (IsControl(widget) && widget.focusPolicy() != Qt::NoFocus);
  }

  std::string NameOf(const QWidget& widget) const {
    std::string name = widget.objectName().toStdString();
    if (name.empty()) name = widget.metaObject()->className();
    return name;
  }
  void Found(const QWidget& widget, const std::string& what) { findings_.push_back(NameOf(widget) + ": " + what); }

  static int WidthOf(const QWidget& widget, const QString& text) {
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
  }
  void Cut(const QWidget& widget, const QString& text, int room) {
    if (WidthOf(widget, text) <= room) return;
    Found(widget, "\"" + text.toStdString() + "\" is cut off: " + std::to_string(WidthOf(widget, text)) +
                      " pixels in " + std::to_string(room));
  }

  void Clipped(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
      // Fields of a strip are as wide as their share, whatever they hold.
      const bool shares = label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
      if (shares && label->text().size() < std::min<qsizetype>(label->accessibleName().size(), 3)) {
        Found(*label, "shows nothing of \"" + label->accessibleName().toStdString() + "\"");
      }
      if (!label->wordWrap() && !shares) Cut(*label, label->text(), label->contentsRect().width());
      if (label->height() < std::min(label->minimumSizeHint().height(), label->fontMetrics().height())) {
        Found(*label, "is too low for its text");
      }
    } else if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
      Cut(*button, button->text(), button->contentsRect().width());
    } else if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
      for (int i = 0; i < tabs->count(); ++i) Cut(*tabs, tabs->tabText(i), tabs->tabRect(i).width());
    } else if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
      Cut(*group, group->title(), group->width());
    } else if (qobject_cast<const QCheckBox*>(&widget) != nullptr ||
               qobject_cast<const QRadioButton*>(&widget) != nullptr) {
      const auto& box = static_cast<const QAbstractButton&>(widget);
      const int indicator = box.sizeHint().width() - WidthOf(box, box.text());
      Cut(box, box.text(), box.width() - indicator);
    } else if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
      QStyleOptionComboBox option;
      option.initFrom(list);
      option.editable = list->isEditable();
      const QRect field =
          list->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, list);
      Cut(*list, list->currentText(), field.width());
    }
  }

  static double Part(double part) { return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }
  static double Luminance(const QColor& colour) {
    return 0.2126 * Part(colour.redF()) + 0.7152 * Part(colour.greenF()) + 0.0722 * Part(colour.blueF());
  }
  void Contrast(const QWidget& widget) {
    const bool shows_text = qobject_cast<const QLabel*>(&widget) != nullptr || IsUsed(widget);
    if (!shows_text || !widget.isEnabled()) return;
    const QPalette& palette = widget.palette();
    const bool is_field = qobject_cast<const QLineEdit*>(&widget) != nullptr ||
                          qobject_cast<const QAbstractItemView*>(&widget) != nullptr;
    const bool is_button = qobject_cast<const QPushButton*>(&widget) != nullptr;
    const QColor text = palette.color(is_field    ? QPalette::Text
                                      : is_button ? QPalette::ButtonText
                                                  : QPalette::WindowText);
    const QColor ground = palette.color(is_field ? QPalette::Base : is_button ? QPalette::Button : QPalette::Window);
    const double lighter = std::max(Luminance(text), Luminance(ground));
    const double darker = std::min(Luminance(text), Luminance(ground));
    const double contrast = (lighter + 0.05) / (darker + 0.05);
    if (contrast < kLeastContrast) Found(widget, "its text stands out by " + std::to_string(contrast) + " to 1 alone");
  }

  void Overlaps() {
    for (std::size_t i = 0; i < widgets_.size(); ++i) {
      for (std::size_t j = i + 1; j < widgets_.size(); ++j) {
        const QWidget& a = *widgets_[i];
        const QWidget& b = *widgets_[j];
        if (a.parentWidget() != b.parentWidget() || !IsControl(a) || !IsControl(b)) continue;
        // The keys of a keyboard lie over each other as they do on any.
        if (dynamic_cast<const PlacesWidget*>(a.parentWidget()) != nullptr) continue;
        if (a.geometry().intersects(b.geometry())) Found(a, "lies over " + NameOf(b));
      }
    }
  }

  QRect PlaceOf(const QWidget& widget) const { return {widget.mapTo(&window_, QPoint(0, 0)), widget.size()}; }

  // A widget that stands for another in the focus chain, as a list's line of text does.
  static const QWidget* Outer(const QWidget* widget) {
    while (widget != nullptr && !IsUsed(*widget) && qobject_cast<const QTabBar*>(widget) == nullptr) {
      widget = widget->parentWidget();
    }
    return widget;
  }

  void Focus() {
    std::vector<const QWidget*> chain;
    const QWidget* first = window_.window();
    for (const QWidget* next = first->nextInFocusChain(); next != first; next = next->nextInFocusChain()) {
      if (!window_.isAncestorOf(next) || !next->isVisibleTo(&window_) || !next->isEnabled()) continue;
      if ((next->focusPolicy() & Qt::TabFocus) == 0) continue;
      const QWidget* outer = Outer(next);
      if (outer == nullptr || IsOfFrame(*outer)) outer = next;
      if (chain.empty() || chain.back() != outer) chain.push_back(outer);
    }
    for (const QWidget* widget : widgets_) {
      if (!IsControl(*widget) || !widget->isEnabled() || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
      // Of option buttons that exclude each other the tab key reaches one.
      if (qobject_cast<const QRadioButton*>(widget) != nullptr) continue;
      const QWidget* reached = Outer(widget);
      if (std::find(chain.begin(), chain.end(), reached) == chain.end()) Found(*widget, "the tab key doesn't reach it");
    }
    // Within what stands together it goes right or down, or to the next column.
    for (std::size_t i = 1; i < chain.size(); ++i) {
      if (chain[i]->parentWidget() != chain[i - 1]->parentWidget()) continue;
      const QRect before = PlaceOf(*chain[i - 1]);
      const QRect after = PlaceOf(*chain[i]);
      const bool back = after.bottom() < before.top() && after.left() < before.right();
      const bool left = after.right() < before.left() && after.top() < before.bottom();
      if (back || left) Found(*chain[i], "the tab key comes here from " + NameOf(*chain[i - 1]) + ", against reading");
    }
  }

  void Names() {
    std::map<std::string, const QWidget*> known;
    for (QWidget* widget : widgets_) {
      if (!IsUsed(*widget)) continue;
      // Parts of another widget speak as that one.
      if (!IsControl(*widget) && Outer(widget->parentWidget()) != nullptr) continue;
      QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
      const std::string name = spoken == nullptr ? std::string() : spoken->text(QAccessible::Name).toStdString();
      if (name.empty()) {
        Found(*widget, "a screen reader has no name for it");
        continue;
      }
      const auto [place, is_new] = known.emplace(name, widget);
      if (!is_new) Found(*widget, "a screen reader calls it \"" + name + "\", as " + NameOf(*place->second));
    }
  }

  QWidget& window_;
  std::vector<QWidget*> widgets_;
  std::vector<std::string> findings_;
};

}  // namespace

std::vector<std::string> Look(QWidget& window) {
  return Looker(window).Findings();
}

}  // namespace zentaline::ui::qt
