#include "tests/desktop/qt_driver.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <algorithm>
#include <utility>

#include "ui/qt/convert.h"
#include "ui/qt/fader.h"
#include "ui/qt/menus.h"
#include "ui/qt/rows_view.h"
#include "ui/qt/view.h"

namespace zentaline::ui::qt {

namespace {

// The widget of a control; null for one that stands in no layout, which a user could not reach.
QWidget* WidgetOf(const Control& control) {
  return control.view == nullptr ? nullptr : static_cast<View*>(control.view)->widget();
}

// A page that isn't in front is turned to by a user first. Here only the widget turns, since scripts leave that out.
class PageInFront {
 public:
  PageInFront(Gate& gate, QWidget* widget) : gate_(gate) {
    const Gate::Showing showing(gate_);
    for (QWidget* page = widget; page != nullptr && page->parentWidget() != nullptr; page = page->parentWidget()) {
      // A page stands in a stack that stands in the tabs.
      auto* tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
      if (tabs == nullptr || tabs->indexOf(page) < 0) continue;
      turned_.emplace_back(tabs, tabs->currentIndex());
      tabs->setCurrentIndex(tabs->indexOf(page));
    }
  }
  ~PageInFront() {
    const Gate::Showing showing(gate_);
    for (const auto& [tabs, page] : turned_) {
      if (tabs) tabs->setCurrentIndex(page);
    }
  }
  PageInFront(const PageInFront&) = delete;
  PageInFront& operator=(const PageInFront&) = delete;

 private:
  Gate& gate_;
  std::vector<std::pair<QPointer<QTabWidget>, int>> turned_;
};

// Option buttons and check boxes are clicked on their mark.
QPoint MarkOf(const QWidget& widget) {
  return {8, widget.height() / 2};
}

Qt::Key QtKeyOf(Key::Name name) {
  switch (name) {
    case Key::kDelete:
      return Qt::Key_Delete;
    case Key::kSpace:
      return Qt::Key_Space;
    case Key::kEnter:
      return Qt::Key_Return;
    case Key::kEscape:
      return Qt::Key_Escape;
    case Key::kUp:
      return Qt::Key_Up;
    case Key::kDown:
      return Qt::Key_Down;
    case Key::kPageUp:
      return Qt::Key_PageUp;
    case Key::kPageDown:
      return Qt::Key_PageDown;
    case Key::kHome:
      return Qt::Key_Home;
    case Key::kEnd:
      return Qt::Key_End;
    case Key::kLeft:
      return Qt::Key_Left;
    case Key::kRight:
      return Qt::Key_Right;
    case Key::kCharacter:
      break;
  }
  return Qt::Key_unknown;
}

// Opens the menus from the bar down to the entry and clicks on it.
bool PressEntry(MenuEntry& entry, QMenuBar& bar) {
  QAction* action = ActionOf(entry);
  if (action == nullptr) return false;
  if (entry.parent() == nullptr) {
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.actionGeometry(action).center());
    return true;
  }
  QMenu* menu = MenuOf(*entry.parent());
  if (menu == nullptr) return false;
  // A menu that is only ever a popup has been opened as one.
  if (!menu->isVisible() && !PressEntry(*entry.parent(), bar)) return false;
  if (!menu->isVisible()) menu->popup(bar.mapToGlobal(bar.rect().bottomLeft()));
  QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(action).center());
  return true;
}

bool ClickRow(ListBox& box, int row) {
  auto* list = static_cast<RowsView*>(WidgetOf(box));
  const QModelIndex index = list->model()->index(row, 0);
  list->scrollTo(index);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->visualRect(index).center());
  return true;
}

// The whole text at once, as from another program.
template <class Widget>
void Paste(Widget& widget, const std::string& text) {
  widget.setFocus(Qt::OtherFocusReason);
  widget.selectAll();
  if (text.empty()) {
    QTest::keyClick(&widget, Qt::Key_Backspace);
    return;
  }
  QGuiApplication::clipboard()->setText(ToQt(text));
  QTest::keyClick(&widget, Qt::Key_V, Qt::ControlModifier);
}

// The units of a drawing are scaled to its widget.
QPointF PixelOf(const QWidget& widget, const Control& control, const MouseEvent& event) {
  if (control.kind() != ControlKind::kPicture) return QPointF(event.x, event.y);
  const Point& units = static_cast<const Picture&>(control).drawing().size;
  return {event.x * widget.width() / units.x, event.y * widget.height() / units.y};
}

bool SendMouse(QWidget& widget, const MouseEvent& event, QPointF place) {
  const Qt::MouseButton button = event.right ? Qt::RightButton : Qt::LeftButton;
  const QEvent::Type type = event.what == MouseEvent::kDown   ? QEvent::MouseButtonPress
                            : event.what == MouseEvent::kMove ? QEvent::MouseMove
                                                              : QEvent::MouseButtonRelease;
  const bool moves = type == QEvent::MouseMove;
  const Qt::MouseButtons held = type == QEvent::MouseButtonPress || (moves && event.right)
                                    ? Qt::MouseButtons(button)
                                    : Qt::MouseButtons(Qt::NoButton);
  QMouseEvent sent(type, place, widget.mapToGlobal(place), moves ? Qt::NoButton : button, held, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &sent);
  return true;
}

}  // namespace

bool QtDriver::Press(Control& control) {
  if (control.kind() == ControlKind::kMenuEntry) {
    return PressEntry(static_cast<MenuEntry&>(control), *desktop_.windows().main()->window()->menuBar());
  }
  QWidget* widget = WidgetOf(control);
  if (widget == nullptr) return false;
  const PageInFront page(desktop_.windows().gate(), widget);
  const bool marked = control.kind() == ControlKind::kOptionButton;
  QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, marked ? MarkOf(*widget) : widget->rect().center());
  return true;
}

bool QtDriver::Select(Control& control, const std::vector<int>& rows) {
  QWidget* widget = WidgetOf(control);
  if (widget == nullptr) return false;
  const PageInFront page(desktop_.windows().gate(), widget);
  if (control.kind() == ControlKind::kListBox) {
    if (rows.size() == 1) return ClickRow(static_cast<ListBox&>(control), rows[0]);
    // Several rows by several clicks would raise as many events.
    static_cast<RowsView*>(widget)->on_select(rows);
    return true;
  }
  auto* combo = static_cast<QComboBox*>(widget);
  combo->showPopup();
  combo->view()->setCurrentIndex(combo->model()->index(rows[0], 0));
  QTest::keyClick(combo->view(), Qt::Key_Return);
  return true;
}

bool QtDriver::Set(Control& control, int value) {
  QWidget* widget = WidgetOf(control);
  if (widget == nullptr) return false;
  const PageInFront page(desktop_.windows().gate(), widget);
  if (control.kind() == ControlKind::kScrollBar) {
    const auto& model = static_cast<ScrollBar&>(control);
    auto* bar = static_cast<Fader*>(widget);
    bar->setFocus(Qt::MouseFocusReason);
    bar->setSliderDown(true);
    bar->setSliderPosition(std::abs(value - model.min()));
    bar->setSliderDown(false);
  } else if (control.kind() == ControlKind::kTabs) {
    QTabBar* bar = static_cast<QTabWidget*>(widget)->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(value).center());
  } else if (static_cast<CheckBox&>(control).value() == (value != 0)) {
    widget->setFocus(Qt::MouseFocusReason);
  } else {
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, MarkOf(*widget));
  }
  return true;
}

bool QtDriver::Type(Control& control, const std::string& text) {
  QWidget* widget = WidgetOf(control);
  if (widget == nullptr) return false;
  const PageInFront page(desktop_.windows().gate(), widget);
  if (control.kind() == ControlKind::kComboBox) {
    QLineEdit* line = static_cast<QComboBox*>(widget)->lineEdit();
    if (line == nullptr) return false;
    Paste(*line, text);
    return true;
  }
  const auto& box = static_cast<TextBox&>(control);
  const bool takes = !box.read_only && box.Takes(text);
  if (box.multi_line) {
    Paste(*static_cast<QPlainTextEdit*>(widget), text);
  } else {
    Paste(*static_cast<QLineEdit*>(widget), text);
  }
  return takes;
}

bool QtDriver::PressKey(Control& control, const Key& key) {
  QWidget* widget = WidgetOf(control);
  if (widget == nullptr) return false;
  const PageInFront page(desktop_.windows().gate(), widget);
  if (control.kind() == ControlKind::kTabs) widget = static_cast<QTabWidget*>(widget)->tabBar();
  widget->setFocus(Qt::OtherFocusReason);
  if (control.kind() == ControlKind::kTextBox) {
    // What is typed goes to the end.
    if (auto* line = qobject_cast<QLineEdit*>(widget)) line->end(false);
    if (auto* text = qobject_cast<QPlainTextEdit*>(widget)) text->moveCursor(QTextCursor::End);
  }
  if (key.name == Key::kCharacter) {
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, ToQt(key.character), Qt::NoModifier);
  } else {
    QTest::keyClick(widget, QtKeyOf(key.name));
  }
  return true;
}

bool QtDriver::DoubleClick(Control& control, int row) {
  if (WidgetOf(control) == nullptr) return false;
  const PageInFront page(desktop_.windows().gate(), WidgetOf(control));
  auto* list = static_cast<RowsView*>(WidgetOf(control));
  const QPointer<QWidget> alive(list);
  ClickRow(static_cast<ListBox&>(control), row);
  // The first click may have closed the window.
  if (!alive || !control.form().open()) return true;
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                     list->visualRect(list->model()->index(row, 0)).center());
  return true;
}

// By the events of a mouse on its handle.
bool QtDriver::DoubleClick(ScrollBar& bar) {
  QWidget* widget = WidgetOf(bar);
  if (widget == nullptr || !bar.kept_value) return false;
  const PageInFront page(desktop_.windows().gate(), widget);
  QTest::mouseDClick(widget, Qt::LeftButton, Qt::NoModifier, static_cast<Fader*>(widget)->HandlePlace().center());
  return true;
}

// Press, one move, release. Where several handles stand in one place a user would first turn to this one by its key.
bool QtDriver::Drag(Picture& picture, int handle, int x, int y) {
  QWidget* widget = WidgetOf(picture);
  if (widget == nullptr) return false;
  const PageInFront page(desktop_.windows().gate(), widget);
  picture.SelectHandle(handle);
  const Handle from = picture.drawing().handles[static_cast<std::size_t>(handle)];
  const QPointer<QWidget> alive(widget);
  const auto send = [&](QEvent::Type type, int at_x, int at_y) {
    if (!alive) return;
    const QPointF place(at_x * widget->width() / 1000.0, at_y * widget->height() / 1000.0);
    const bool moves = type == QEvent::MouseMove;
    const bool releases = type == QEvent::MouseButtonRelease;
    QMouseEvent sent(type, place, widget->mapToGlobal(place), moves ? Qt::NoButton : Qt::LeftButton,
                     releases ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &sent);
  };
  send(QEvent::MouseButtonPress, from.x, from.y);
  send(QEvent::MouseMove, x, y);
  send(QEvent::MouseButtonRelease, x, y);
  return true;
}

bool QtDriver::Mouse(Control& control, const MouseEvent& event) {
  QWidget* widget = WidgetOf(control);
  return widget != nullptr && SendMouse(*widget, event, PixelOf(*widget, control, event));
}

bool QtDriver::Mouse(Form& form, const MouseEvent& event) {
  FormWindow* window = desktop_.windows().Of(form);
  return window != nullptr && SendMouse(*window->body(), event, QPointF(event.x, event.y));
}

bool QtDriver::Context(Control& control) {
  QWidget* widget = WidgetOf(control);
  if (widget == nullptr) return false;
  const PageInFront page(desktop_.windows().gate(), widget);
  QTest::mouseClick(widget, Qt::RightButton);
  return true;
}

bool QtDriver::Context(Form& form) {
  // Where the free room of the real window lies is no matter of scripts.
  return form.UserContext();
}

void QtDriver::Activate(Form& form) {
  FormWindow* window = desktop_.windows().Of(form);
  if (window == nullptr || form.kind() != FormKind::kChild) return;
  desktop_.windows().main()->area()->setActiveSubWindow(static_cast<QMdiSubWindow*>(window->frame()));
  QCoreApplication::processEvents();
}

void QtDriver::Close(Form& form) {
  if (FormWindow* window = desktop_.windows().Of(form)) window->frame()->close();
}

bool QtDriver::Place(Form& form, const Placement& placement) {
  if (!form.Reachable()) return false;
  desktop_.UserPlaces(form, placement);
  FormWindow* window = desktop_.windows().Of(form);
  if (window != nullptr && form.open()) window->ShowPlacement();
  return true;
}

}  // namespace zentaline::ui::qt
