#include "ui/qt/spoken_widgets.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>
#include <algorithm>
#include <cstdlib>

#include "ui/qt/fader.h"

namespace zentaline::ui::qt {

namespace {

class SpokenList : public QAccessibleWidget {
 public:
  explicit SpokenList(QComboBox* list) : QAccessibleWidget(list, QAccessible::ComboBox) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? List()->currentText() : QAccessibleWidget::text(kind);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = IsOpen();
    state.editable = List()->isEditable();
    return state;
  }
  QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    if (action != showMenuAction()) return QAccessibleWidget::doAction(action);
    IsOpen() ? List()->hidePopup() : List()->showPopup();
  }

 private:
  QComboBox* List() const { return static_cast<QComboBox*>(widget()); }
  // Asking for its rows makes what it opens: who has none open has none.
  bool IsOpen() const {
    const auto opened = List()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* part : opened) {
      if (part->isWindow() && part->isVisible()) return true;
    }
    return false;
  }
};

class SpokenOption : public QAccessibleWidget {
 public:
  explicit SpokenOption(QRadioButton* option) : QAccessibleWidget(option, QAccessible::RadioButton) {}

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    const QString given = Option()->accessibleName();
    return given.isEmpty() ? Option()->text().remove(u'&') : given;
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = Option()->isChecked();
    return state;
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    Option()->click();
  }

 private:
  QRadioButton* Option() const { return static_cast<QRadioButton*>(widget()); }
};

class SpokenFader : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit SpokenFader(Fader* fader) : QAccessibleWidget(fader, QAccessible::Slider) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value) return Bar()->Said();
    const QString own = QAccessibleWidget::text(kind);
    // A note or a place left and right says more than its number.
    const bool says_more = Bar()->Said() != QString::number(Bar()->Meant());
    return kind == QAccessible::Description && says_more ? Bar()->Said() + QStringLiteral(": ") + own : own;
  }
  QVariant currentValue() const override { return Bar()->Meant(); }
  QVariant minimumValue() const override { return std::min(Bar()->MeantBy(0), Bar()->MeantBy(Bar()->maximum())); }
  QVariant maximumValue() const override { return std::max(Bar()->MeantBy(0), Bar()->MeantBy(Bar()->maximum())); }
  QVariant minimumStepSize() const override { return Bar()->singleStep(); }
  void setCurrentValue(const QVariant& value) override {
    const int way = std::abs(value.toInt() - Bar()->MeantBy(0));
    const bool there = Bar()->MeantBy(way) == value.toInt() && way <= Bar()->maximum();
    if (there && Bar()->isEnabled()) Bar()->setValue(way);
  }

 private:
  Fader* Bar() const { return static_cast<Fader*>(widget()); }
};

// A field that does something when it is pressed is a button to who can't see it.
class SpokenField : public QAccessibleWidget {
 public:
  explicit SpokenField(QLabel* field) : QAccessibleWidget(field, QAccessible::Button) {}

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    const QString given = widget()->accessibleName();
    return given.isEmpty() ? static_cast<QLabel*>(widget())->text() : given;
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    widget()->setFocus();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(widget(), &enter);
  }
};

QAccessibleInterface* Make(const QString& class_name, QObject* object) {
  if (class_name == QStringLiteral("QComboBox")) return new SpokenList(static_cast<QComboBox*>(object));
  if (class_name == QStringLiteral("QRadioButton")) return new SpokenOption(static_cast<QRadioButton*>(object));
  if (class_name == QStringLiteral("QLabel")) {
    auto* label = static_cast<QLabel*>(object);
    return label->focusPolicy() == Qt::NoFocus ? nullptr : new SpokenField(label);
  }
  // It has no class name of its own.
  if (class_name != QStringLiteral("QAbstractSlider")) return nullptr;
  auto* fader = dynamic_cast<Fader*>(object);
  return fader == nullptr ? nullptr : new SpokenFader(fader);
}

}  // namespace

void SpeakOfWidgets() {
  static const bool installed = (QAccessible::installFactory(Make), true);
  static_cast<void>(installed);
}

}  // namespace zentaline::ui::qt
