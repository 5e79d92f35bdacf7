#include "ui/qt/view.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollArea>
#include <algorithm>
#include <utility>

#include "ui/controls.h"
#include "ui/letters.h"
#include "ui/qt/convert.h"
#include "ui/strips.h"
#include "ui/toolkit.h"

namespace zentaline::ui::qt {

namespace {

// The property of a top window whose focus has left a widget that was no longer to be seen.
constexpr char kFocusFled[] = "focus_fled";
constexpr int kRoomAround = 8;  // pixels, of a widget that is brought into view

// Menus that open meanwhile open there.
class ScopedPlace {
 public:
  ScopedPlace(Gate& gate, QPoint place) : gate_(gate), before_(std::exchange(gate.popup_place, place)) {}
  ~ScopedPlace() { gate_.popup_place = before_; }
  ScopedPlace(const ScopedPlace&) = delete;
  ScopedPlace& operator=(const ScopedPlace&) = delete;

 private:
  Gate& gate_;
  std::optional<QPoint> before_;
};

// On a page that scrolls: the whole of it, not only where its cursor stands; of what is too large the beginning.
void BringIntoView(const QWidget& widget) {
  for (QWidget* around = widget.parentWidget(); around != nullptr; around = around->parentWidget()) {
    auto* page = qobject_cast<QScrollArea*>(around);
    if (page == nullptr || page->widget() == nullptr) continue;
    const QRect place(widget.mapTo(page->widget(), QPoint()), widget.size());
    page->ensureVisible(place.right(), place.bottom(), kRoomAround, kRoomAround);
    page->ensureVisible(place.left(), place.top(), kRoomAround, kRoomAround);
  }
}

}  // namespace

bool PressByKey(Form& form, const Key& key) {
  Button* button = key.name == Key::kEnter    ? form.default_button
                   : key.name == Key::kEscape ? form.cancel_button
                                              : nullptr;
  return button != nullptr && button->UserPress();
}

bool ShowsControl(const QWidget& widget) {
  const QObjectList& parts = widget.children();
  return std::any_of(parts.begin(), parts.end(),
                     [](const QObject* part) { return dynamic_cast<const View*>(part) != nullptr; });
}

View::View(Control& control, Gate& gate, QWidget* widget)
    : QObject(widget), control_(&control), gate_(gate), widget_(widget) {
  control.view = this;
  widget->setObjectName(ToQt(control.FullName()));
  Watch(widget);
}

View::~View() {
  View::Detach();
}

void View::Detach() {
  if (control_ != nullptr && control_->view == this) control_->view = nullptr;
  control_ = nullptr;
}

// Another caption than the one that the letter was found for may lack it, and name one of its own. Of two that ask for
// the same key neither is done: what the menu bar has is no control's.
QString View::WithMnemonic(const std::string& caption, bool literal) const {
  const char named = literal ? '\0' : NamedLetter(caption);
  char letter = HasLetter(caption, letter_) || named == 0 ? letter_ : named;
  if (letter != letter_ && MenuBarHas(letter)) letter = 0;
  return ToQt(WithLetter(caption, letter, literal));
}

bool View::MenuBarHas(char letter) const {
  const std::vector<Form*> forms = control_->form().toolkit().forms();
  return std::any_of(forms.begin(), forms.end(), [letter](const Form* form) {
    return form->kind() == FormKind::kMain && LettersOfBar(*form).contains(letter);
  });
}

void View::Show(Change change) {
  if (control_ == nullptr) return;
  const Gate::Showing showing(gate_);
  ShowCommon(change);
  Refresh(change);
}

// A widget that is new needs only what isn't as with any other.
void View::ShowAll() {
  const Gate::Showing showing(gate_);
  if (control_->font() != Font{}) Show(Change::kFont);
  if (control_->back_colour() || control_->fore_colour()) Show(Change::kColours);
  if (!control_->tool_tip().empty()) Show(Change::kToolTip);
  for (const Change change :
       {Change::kText, Change::kRows, Change::kRow, Change::kRange, Change::kValue, Change::kChecked}) {
    Refresh(change);
  }
  if (!control_->enabled()) Show(Change::kEnabled);
  ShowLeastSize();
  if (!control_->visible()) widget_->setVisible(false);
}

void View::SetSpoken(const std::string& name) {
  widget_->setAccessibleName(ToQt(name));
}

void View::ShowCommon(Change change) {
  switch (change) {
    case Change::kEnabled:
      widget_->setEnabled(control_->enabled());
      break;
    case Change::kVisible:
      widget_->setVisible(control_->visible());
      break;
    case Change::kColours:
      ShowColours();
      break;
    case Change::kFont:
      if (control_->font() != Font{}) field()->setFont(ToQt(control_->font()));
      break;
    case Change::kToolTip:
      widget_->setToolTip(ToToolTip(control_->tool_tip()));
      break;
    case Change::kSaid:
      SetSpoken(control_->said());
      break;
    case Change::kFocus:
      if (!control_->HasFocus() || field()->hasFocus()) break;
      // Not where a hand has put the focus: the page would go away from under the pointer.
      BringIntoView(*widget_);
      field()->setFocus(Qt::OtherFocusReason);
      // A mnemonic or the program took the focus there, and no eye on a pointer follows it: it is drawn.
      field()->window()->setAttribute(Qt::WA_KeyboardFocusChange);
      break;
    case Change::kInSight:
      BringIntoView(*widget_);
      break;
    default:
      break;
  }
}

void View::ShowColours() {
  // The window's own colour, asked for by its number, is the desktop's, whatever that looks like.
  std::optional<Colour> back = control_->back_colour();
  if (back == kWindowColour) back.reset();
  const std::optional<Colour> fore = control_->fore_colour();
  QPalette palette;
  if (back) {
    const QColor colour = ToQt(*back);
    palette.setColor(QPalette::Base, colour);
    palette.setColor(QPalette::Window, colour);
    palette.setColor(QPalette::Button, colour);
  }
  if (fore || back) {
    const QColor colour = fore ? ToQt(*fore) : ReadableOn(ToQt(*back));
    palette.setColor(QPalette::Text, colour);
    palette.setColor(QPalette::WindowText, colour);
    palette.setColor(QPalette::ButtonText, colour);
  }
  field()->setPalette(palette);
}

void View::ShowLeastSize() {
  const Size least = control_->least_characters;
  if (least.width <= 0 && least.height <= 1) return;
  const QFontMetrics metrics(field()->font());
  const int border = 2 * metrics.averageCharWidth();
  if (least.width > 0) widget_->setMinimumWidth(least.width * metrics.horizontalAdvance(u'0') + border);
  if (least.height > 1) widget_->setMinimumHeight(least.height * metrics.lineSpacing() + border);
}

bool View::KeyDoes(const Key& key, const QKeyEvent& event) {
  (void)key;
  (void)event;
  return false;
}

void View::Watch(QWidget* part) {
  part->installEventFilter(this);
}

std::function<void()> View::Reported(const std::function<void()>& act) {
  return [this, act] {
    const QPointer<View> alive(this);
    if (control_ != nullptr) act();
    if (!alive || control_ == nullptr) return;
    const Gate::Showing showing(gate_);
    Refresh(Change::kText);
    Refresh(Change::kRow);
    Refresh(Change::kValue);
  };
}

bool View::eventFilter(QObject* watched, QEvent* event) {
  if (control_ == nullptr) return false;
  QWidget* part = static_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::FocusOut:
      part->window()->setProperty(kFocusFled, !part->isVisible());
      return false;
    case QEvent::FocusIn: {
      // From a window that is hidden for a moment, as one that is restored, nobody has taken it.
      if (part->window()->property(kFocusFled).toBool()) return false;
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
          reason == Qt::ShortcutFocusReason) {
        gate_.User(this, [this] {
          if (control_ != nullptr) control_->UserFocus();
        });
      }
      return false;
    }
    case QEvent::KeyPress:
      // Not those that a control inside has left over.
      return part->window()->focusWidget() == part &&
             (OnWindowKey(*static_cast<QKeyEvent*>(event)) || OnKey(*static_cast<QKeyEvent*>(event)));
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
      return OnMouse(*part, *static_cast<QMouseEvent*>(event));
    case QEvent::ContextMenu:
      if (!HasContext()) return false;
      // The mouse's opens on release.
      if (static_cast<QContextMenuEvent*>(event)->reason() != QContextMenuEvent::Mouse) OpenContext();
      return true;
    default:
      return false;
  }
}

void View::OpenContext() {
  const ScopedPlace place(gate_, PlaceOfPopup());
  gate_.UserNow([this] { control_->UserContext(); });
}

// Keys that mean the same in every window: the menu, the pages, the strip beside.
bool View::OnWindowKey(const QKeyEvent& event) {
  const bool context = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
  if (context && HasContext()) {
    OpenContext();
    return true;
  }
  const bool back = event.key() == Qt::Key_PageUp || event.key() == Qt::Key_Left || event.key() == Qt::Key_Up;
  const int way = back ? -1 : 1;
  if (event.modifiers() == Qt::ControlModifier && (event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown)) {
    bool turned = false;
    gate_.UserNow([&] { turned = TurnPage(control_->form(), way); });
    return turned;
  }
  const bool arrow = event.key() >= Qt::Key_Left && event.key() <= Qt::Key_Down;
  if (!arrow || (event.modifiers() & ~Qt::KeypadModifier) != Qt::AltModifier) return false;
  Control* const beside = InStripBeside(*control_, way);
  if (beside != nullptr) gate_.UserNow([&] { beside->UserFocus(); });
  return beside != nullptr;
}

bool View::OnKey(const QKeyEvent& event) {
  const std::optional<Key> key = ToKey(event);
  if (!key) return false;
  if (gate_.Waits() && dynamic_cast<FollowsHand*>(widget_) != nullptr) return KeyMoves(*key);
  bool taken = false;
  const QPointer<View> alive(this);
  const ScopedPlace place(gate_, PlaceOfPopup());
  gate_.UserNow([&] {
    control_->UserKey(*key, &taken);
    // The handler may have closed the window or disabled the control: then the key has done its work.
    taken = taken || !alive || control_ == nullptr || !control_->Usable() || !field()->isEnabled();
    if (!taken) taken = KeyDoes(*key, event);
    if (!taken && alive && control_ != nullptr) taken = PressByKey(control_->form(), *key);
  });
  return taken;
}

bool View::OnMouse(const QWidget& part, const QMouseEvent& event) {
  if (event.type() != QEvent::MouseMove) gate_.NoteButton(event, widget_);
  const bool right = event.button() == Qt::RightButton || (event.buttons() & Qt::RightButton) != 0;
  const QPoint place = part.mapTo(widget_, event.position().toPoint());
  const QPointer<View> alive(this);
  if (control_->on_mouse) {
    const MouseEvent::What what = event.type() == QEvent::MouseMove            ? MouseEvent::kMove
                                  : event.type() == QEvent::MouseButtonRelease ? MouseEvent::kUp
                                                                               : MouseEvent::kDown;
    const QPoint there = PlaceOfMouse(part.mapTo(widget_, event.position()));
    gate_.UserNow([&] { control_->UserMouse({what, there.x(), there.y(), right}); });
    if (!alive || control_ == nullptr) return true;
  }
  if (event.button() != Qt::RightButton || !HasContext()) return false;
  if (event.type() == QEvent::MouseButtonRelease && widget_->rect().contains(place)) {
    ContextAsked(part, event.position().toPoint());
    if (alive && control_ != nullptr) gate_.UserNow([this] { control_->UserContext(); });
  }
  return true;
}

}  // namespace zentaline::ui::qt
