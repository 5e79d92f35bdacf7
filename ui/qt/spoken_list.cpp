#include "ui/qt/spoken_list.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>

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

QAccessibleInterface* Make(const QString& class_name, QObject* object) {
  if (class_name != QStringLiteral("QComboBox")) return nullptr;
  return new SpokenList(static_cast<QComboBox*>(object));
}

}  // namespace

void SpeakOfListsByName() {
  static const bool installed = (QAccessible::installFactory(Make), true);
  static_cast<void>(installed);
}

}  // namespace zentaline::ui::qt
