// Taking back what the user did, and doing it again: mnuAnnulla and mnuRipeti. The list of changes (core/edits.h) goes
// back and forth over bytes and marks; here the windows show what they showed at each step, and the instrument follows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/edits.h"
#include "ui/controls.h"

namespace zentaline {

struct Application;
class ChildWindow;

// A step that has just been made: the bytes stand as they stood before the action, or after it.
struct EditStep {
  const EditAction& action;
  bool back;
  // The record under edit as it was before the step; empty where the action didn't change it.
  std::string_view record_before = {};

  int Shown(const EditShown& shown) const { return back ? shown.before : shown.after; }
  const std::string& Shown(const EditTextShown& shown) const { return back ? shown.before : shown.after; }
};

class Undo {
 public:
  explicit Undo(Application& app) : app_(app) {}
  Undo(const Undo&) = delete;
  Undo& operator=(const Undo&) = delete;

  // One step back, or forth again. Nothing happens while there is none, and where the entries are off.
  void TakeBack() { Step(true); }
  void BringForth() { Step(false); }

  // Of the two entries, what they would do.
  void MakeCaptions(ui::MenuEntry& back, ui::MenuEntry& forward);

  // While one of these lives a box, a dialog or a long send holds the program up, and the entries are off.
  class Hold {
   public:
    explicit Hold(Application& app);
    ~Hold();
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    Undo& undo_;
  };

  // The user's event has ended: the entries follow the list.
  void EventEnded();

 private:
  void Step(bool back);
  // Steps over what isn't the user's as well.
  void Move(const EditAction& step, bool back);
  void Show(const EditStep& step);
  bool Off() const;
  void ShowEntries();

  Application& app_;
  int holds_ = 0;
  std::int64_t shown_changes_ = 0;
  bool shows_back_alone_ = false;
  Bytes record_;                        // under edit, as it was before the step
  std::vector<ChildWindow*> followed_;  // other windows that went along with it
};

// "&Undo: Volume of UPPER1", or without an action the bare word, in the language of this run.
std::string UndoCaption(const Application& app, bool back, const EditAction* action);

// Whether the action changed bytes of the target from one position up to, not with, another.
bool ChangesWithin(const EditAction& action, const EditTarget& target, std::size_t begin, std::size_t end);

// Turns to the page that a control stands on, brings it into sight, and gives it the focus.
void ShowPlace(ui::Control& control);
// The same for the first control that the step was about, of those that take a focus.
void ShowPlace(const ChildWindow& window, const EditStep& step);

// Shows in a control, without raising anything, what it showed.
void ShowAgain(ui::Control& control, int value);
void ShowAgain(ui::Control& control, const std::string& text, int row);

}  // namespace zentaline
