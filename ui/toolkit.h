// What the program asks of a desktop. Behind it stand the desktop's widgets, the console, and tests.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/form.h"
#include "ui/timers.h"
#include "ui/types.h"

namespace zentaline::ui {

// The action of the user that something happens by: its number in the order of this run, from 1.
using Cause = std::int64_t;
inline constexpr Cause kNoCause = 0;

// Moves of one control that follow each other within so many milliseconds are one action.
inline constexpr std::int64_t kLongestPauseInMove = 2000;

class Toolkit {
 public:
  static constexpr int kTwipsOfAPixel = 15;

  Toolkit() = default;
  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;
  virtual ~Toolkit();

  // Loads the form, shows it and brings it to the front. The toolkit owns it until it is closed.
  Form& Open(std::unique_ptr<Form> form);
  // The same, and returns when the form has been closed; it is still alive while the event lasts.
  Form& OpenModal(std::unique_ptr<Form> form);
  // Brings the child window to the front, a minimised one at its size; BringForward leaves it minimised.
  void Activate(Form& form);
  void BringForward(Form& form);

  // The open forms in the order of opening, and the child window in front (null when there is none).
  std::vector<Form*> forms() const;
  Form* active_child() const { return activation_order_.empty() ? nullptr : activation_order_.back(); }
  // The open child windows, from the back to the one in front.
  const std::vector<Form*>& stacked_children() const { return activation_order_; }
  // The modal form on top, null when there is none.
  Form* modal() const { return modals_.empty() ? nullptr : modals_.back(); }
  // Null when no open form has this full name, as in frmArrU(3).
  Form* FindForm(const std::string& full_name) const;

  // Answers of message boxes: OK, or the button of the style.
  virtual BoxAnswer MessageBox(BoxStyle style, const std::string& title, const std::string& text) = 0;
  virtual FileDialogAnswer FileDialog(const FileDialogRequest& request) = 0;
  // Shows the entry's menu at the pointer, and holds nothing up.
  virtual void PopupMenu(MenuEntry& menu) = 0;
  // The wait text has changed: with a text the pointer is an hourglass, with none the default.
  virtual void ShowWait(const std::string& text) = 0;

  virtual Size ScreenSize() = 0;
  // In pixels.
  virtual int TextWidth(const Font& font, const std::string& text) = 0;
  // From one line of text to the next. Without a screen a character is twice as high as it is wide.
  virtual int LineHeight(const Font& font) { return 2 * TextWidth(font, "0"); }
  // The date in the system's short form.
  virtual std::string ShortDate() = 0;

  // Prints on the default printer at a place in twips; false when it fails. EndPrint ends the document.
  virtual bool PrintText(int left, int top, const Font& font, const std::string& text) = 0;
  virtual bool EndPrint() = 0;
  // Of a text on the printer, and from one of its lines to the next, in twips. Without a printer a pixel is 15 twips.
  virtual int PrintWidth(const Font& font, const std::string& text) { return kTwipsOfAPixel * TextWidth(font, text); }
  virtual int PrintLineHeight(const Font& font) { return kTwipsOfAPixel * LineHeight(font); }

  // The clock of the timers: milliseconds since the program began.
  virtual std::int64_t Now() = 0;
  TimerQueue& timers() { return timers_; }
  // The queue's next due time may have changed.
  virtual void TimersChanged() {}
  // Fires the next timer that is due; false when none is. No timer fires while a box or dialog holds the program up:
  // the toolkit then doesn't call this.
  bool FireDueTimer();

  // What the user did that runs now: the outermost event, or the one that started the timer that runs. The moves of one
  // scroll bar, and the typing in one text box, are one action while nothing else is done and no pause is longer than
  // kLongestPauseInMove. kNoCause while nothing runs.
  Cause cause() {
    if (event_depth_ > 0 && cause_ == kNoCause) cause_ = ++last_cause_;
    return cause_;
  }
  // Called when the outermost event, or the handler of a timer outside of any, has ended.
  Handler on_event_end;
  // The hand takes hold of something in a control, as a handle of a picture: until it lets go, all moves of the control
  // are one action, however long it takes.
  void HandTakes(const Control& control);
  void HandLetsGo() { move_ = {}; }
  bool HandHolds() const { return move_.held; }
  std::int64_t takings() const { return takings_; }  // how often it has taken hold so far

  // Called when the outermost event has ended.
  Handler on_settled;
  // True once after windows have opened, closed, come to the front or got another caption.
  bool TakeWindowsChanged() { return std::exchange(windows_changed_, false); }

  // The main window has closed: the program ends.
  virtual void MainClosed() = 0;

 protected:
  friend class Form;
  friend class Control;
  friend class UserEvent;
  friend class Timer;

  // Shows the form's window, which is loaded; its view is made here.
  virtual void ShowForm(Form& form) = 0;
  // Takes the window of a form away. The form's view is gone afterwards.
  virtual void HideForm(Form& form) = 0;
  // Puts the window in front and gives it the focus.
  virtual void RaiseForm(Form& form) = 0;
  // Runs until the modal form is closed.
  virtual void RunModal(Form& form) = 0;
  // Closes all forms without asking; for a toolkit that ends.
  void DropForms();
  // Runs the handler of a timer that was taken off the queue.
  void RunTimer(const Timer& timer);

 private:
  // What the user moves, now or lately.
  struct Move {
    const Control* control = nullptr;
    std::int64_t time = 0;
    Cause cause = kNoCause;
    bool held = false;  // the mouse button is down
  };

  void EnterEvent() { ++event_depth_; }
  void LeaveEvent();
  // The user does something to a control (null: to something else), or moves its value. A press of the mouse or of a
  // key on the control that is moved is no pause in its moves.
  void NoteUser(const Control* control) {
    if (cause_ == kNoCause && !move_.held && (control == nullptr || control != move_.control)) move_ = {};
  }
  void NoteMove(const Control& control);
  // Out of the order of activation, with its timers stopped, while it does its last work.
  void TakeOut(Form& form);
  void Closed(Form& form);

  std::vector<std::unique_ptr<Form>> forms_;
  std::vector<std::unique_ptr<Form>> closed_;
  std::vector<Form*> modals_;            // the one on top last
  std::vector<Form*> activation_order_;  // child windows, the one in front last
  TimerQueue timers_;
  bool windows_changed_ = false;
  int event_depth_ = 0;
  std::int64_t takings_ = 0;
  Cause cause_ = kNoCause;  // of the event that runs, once it is known
  Cause last_cause_ = kNoCause;
  Move move_;
};

}  // namespace zentaline::ui
