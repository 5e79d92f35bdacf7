// The widget of one control: shows the model and reports what the user does to it.
#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "ui/control.h"
#include "ui/form.h"
#include "ui/qt/gate.h"

namespace zentaline::ui::qt {

// Presses the form's default button on Enter, its cancel button on Escape; false when there is none.
bool PressByKey(Form& form, const Key& key);

// Whether a view shows its control by the widget itself.
bool ShowsControl(const QWidget& widget);

// Lives as long as its widget, whose child it is. After Detach it has no control any more and does nothing.
class View : public QObject, public ControlView {
 public:
  View(Control& control, Gate& gate, QWidget* widget);
  ~View() override;

  void Show(Change change) final;
  void ShowAll();
  // A text in place of the control's own, until there is none.
  virtual void ShowForNow(const std::optional<std::string>& text) { (void)text; }
  // The control is about to go; the widget may live on for a while.
  virtual void Detach();
  // The letter that reaches the control from the keyboard, 0 for none.
  void SetLetter(char letter) { letter_ = letter; }
  // What a screen reader calls it, unless the control says so itself.
  virtual void SetSpoken(const std::string& name);
  QWidget* widget() const { return widget_; }
  Control* control() const { return control_; }

 protected:
  // Shows what only controls of this kind have.
  virtual void Refresh(Change change) = 0;
  // What the key does in a control of this kind where the widget has no such way, or another one; true when it is done.
  virtual bool KeyDoes(const Key& key, const QKeyEvent& event);
  // The widget that takes the focus and the colours.
  virtual QWidget* field() const { return widget_; }
  virtual void ShowColours();
  // What the key does at once while the program is held up and all else waits; true when it is done.
  virtual bool KeyMoves(const Key& key) {
    (void)key;
    return false;
  }
  // Where the mouse is, as the control counts.
  virtual QPoint PlaceOfMouse(const QPointF& pixel) const { return pixel.toPoint(); }
  // A right click is about to open the menu.
  virtual void ContextAsked(const QWidget& part, const QPoint& place) {
    (void)part;
    (void)place;
  }
  // Where a menu opens that a key asks for.
  virtual QPoint PlaceOfPopup() const { return widget_->mapToGlobal(QPoint(0, widget_->height())); }
  // The room that `least_characters` asks for.
  virtual void ShowLeastSize();

  // The caption with the letter that the control has in its window, and with no other.
  QString WithMnemonic(const std::string& caption, bool literal = false) const;

  bool MenuBarHas(char letter) const;

  // Has a part of the widget watched for focus, keys and mouse too.
  void Watch(QWidget* part);
  // Reports a doing of the user, and shows the model again afterwards: it may have been refused.
  void User(const std::function<void()>& act) { gate_.User(this, Reported(act)); }
  std::function<void()> Reported(const std::function<void()>& act);
  bool eventFilter(QObject* watched, QEvent* event) override;
  Gate& gate() const { return gate_; }

 private:
  bool OnKey(const QKeyEvent& event);
  bool OnWindowKey(const QKeyEvent& event);
  void OpenContext();
  bool OnMouse(const QWidget& part, const QMouseEvent& event);
  bool HasContext() const { return control_->on_context || control_->form().on_context; }
  void ShowCommon(Change change);

  Control* control_;
  Gate& gate_;
  QWidget* widget_;
  char letter_ = 0;
};

}  // namespace zentaline::ui::qt
