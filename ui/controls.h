// The kinds of control. A value that a handler changes by one of the Set functions raises the same event as the user's
// hand: a list box put on a row always raises one click; combo boxes, scroll bars, check boxes, tabs and texts raise
// their event only when the value really changes. The User functions are what widgets and scripts call; they refuse
// (false) what a user could not do. Rows and pages count from 0. Texts are UTF-8.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ui/control.h"

namespace zentaline::ui {

class ScrollBar;

// Something with a caption: "&" stands before the letter that is its mnemonic, "&&" for the sign itself.
class Captioned : public Control {
 public:
  using Control::Control;
  const std::string& caption() const { return caption_; }
  void SetCaption(std::string caption);
  bool literal = false;  // its caption is data, as the name of a file: without mnemonic, each sign stands for itself

 private:
  std::string caption_;
};

class Button : public Captioned {
 public:
  Button(Form& form, std::string name, int index = -1)
      : Captioned(form, ControlKind::kButton, std::move(name), index) {}
  Handler on_click;
  // Of one that switches something: whether that is on. Nothing for others.
  std::optional<bool> on() const { return on_; }
  void SetOn(bool on);
  void Press();  // by another handler: asks nothing
  bool UserPress();
  void DefaultKey(const Key& key) override;

 private:
  std::optional<bool> on_;
};

class Label : public Captioned {
 public:
  Label(Form& form, std::string name, int index = -1) : Captioned(form, ControlKind::kLabel, std::move(name), index) {}
  bool right_aligned = false;
  bool sunken = false;  // shown as a field of its own, as in a status strip
  bool wraps = false;
  ScrollBar* bar = nullptr;  // that it stands for: a double click on it is one on the bar's handle
};

class Frame : public Captioned {
 public:
  Frame(Form& form, std::string name, int index = -1) : Captioned(form, ControlKind::kFrame, std::move(name), index) {}
};

// A plain area that holds other controls.
class PictureBox : public Captioned {
 public:
  PictureBox(Form& form, std::string name, int index = -1)
      : Captioned(form, ControlKind::kPictureBox, std::move(name), index) {}
};

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, int index = -1)
      : Control(form, ControlKind::kTextBox, std::move(name), index) {}
  const std::string& text() const { return text_; }
  void SetText(std::string text);
  void ShowText(std::string text);  // raises nothing
  bool multi_line = false;
  bool keeps_line_ends = false;  // a text whose lines end in CR LF has them where the user types too
  bool read_only = false;
  std::size_t max_length = 0;  // in characters; 0 is without limit
  bool right_aligned = false;
  bool flat = false;        // without a frame of its own, filling its place in a column of others
  bool bytes_only = false;  // takes only characters that Windows-1252 holds
  bool of_record = false;   // part of what the program can take back: it takes nothing back by itself
  Handler on_change;
  // Replaces the whole text. Refused when read-only, too long, or with a character that can't be taken.
  bool UserType(const std::string& text);
  bool Takes(const std::string& text) const;

  // The line, from 0, that the view of a multi-line text begins with.
  int top_line() const { return top_line_; }
  void SetTopLine(int line);
  // The user has scrolled it there.
  void UserScroll(int line) { top_line_ = line; }

 private:
  std::string text_;
  int top_line_ = 0;
};

class ListBox : public Control {
 public:
  ListBox(Form& form, std::string name, int index = -1)
      : Control(form, ControlKind::kListBox, std::move(name), index) {}
  bool multi_select = false;
  int group_rows = 0;    // shown in groups of so many rows, 0 for none
  bool numbered = true;  // a number at a row's beginning is none of its name's
  // All rows share the height of the list in equal parts; other controls can stand beside them.
  bool fills_height = false;
  Handler on_click;
  Handler on_double_click;

  int rows() const { return static_cast<int>(rows_.size()); }
  // The text of a row; an empty one outside the list.
  const std::string& RowText(int row) const;
  void SetRows(std::vector<std::string> rows);  // no row is selected afterwards, and no click is raised
  void AddRow(std::string text);
  void SetRowText(int row, std::string text);
  void RemoveRow(int row);
  void Clear() { SetRows({}); }

  // The row that has the focus, -1 for none; it need not be selected.
  int focus_row() const { return focus_row_; }
  // The selected row: the one with the focus if it is selected, else the first; -1 for none.
  int Row() const;
  // Selects this row alone and raises a click, also when it was selected already. -1 takes the selection away,
  // silently.
  void SetRow(int row);
  void ShowRow(int row);  // raises nothing
  bool Selected(int row) const;
  // All selected rows, ascending.
  std::vector<int> SelectedRows() const;
  void Click();  // by another handler

  // The last of the rows gets the focus. More than one only in a multiple selection; none takes the selection away.
  bool UserSelect(const std::vector<int>& rows);
  // A click on the row, then the double click.
  bool UserDouble(int row);
  // The double click alone, on the row that is selected; false when there is none, or nothing that it does.
  bool UserEnter();
  // Letters go to the next row whose name begins with them, two digits to the row of that number.
  void DefaultKey(const Key& key) override;

 private:
  bool TypedLately() const;
  void TypeKey(const std::string& character);
  template <class Wanted>
  int FindRow(int first, Wanted wanted) const;

  std::vector<std::string> rows_;
  std::vector<bool> selected_;
  int focus_row_ = -1;
  std::string typed_;          // of the keys that count together
  std::int64_t typed_at_ = 0;  // when the last of them came
};

class ComboBox : public Control {
 public:
  ComboBox(Form& form, std::string name, int index = -1)
      : Control(form, ControlKind::kComboBox, std::move(name), index) {}
  bool editable = false;  // the user may type a text that is no row
  Handler on_click;       // another row
  Handler on_change;      // another text, typed

  int rows() const { return static_cast<int>(rows_.size()); }
  const std::string& RowText(int row) const;
  void SetRows(std::vector<std::string> rows);
  void AddRow(std::string text);
  void Clear() { SetRows({}); }
  int row() const { return row_; }
  void SetRow(int row);   // -1 leaves no text
  void ShowRow(int row);  // raises nothing
  const std::string& text() const { return row_ >= 0 ? rows_[static_cast<std::size_t>(row_)] : other_text_; }
  // Shows a text, which need not be one of the rows; raises nothing.
  void ShowText(std::string text);
  bool UserSelect(int row);
  bool UserType(const std::string& text);
  void DefaultKey(const Key& key) override;
  // A typed text that is none of the rows goes back to what stood there before; nothing is raised.
  void FocusLeft() override;

 private:
  struct Shown {
    int row;
    std::string text;
  };
  void TakeText(std::string text);
  void TakeRow(int row);

  std::vector<std::string> rows_;
  int row_ = -1;
  std::string other_text_;  // that is none of the rows, shown where `row_` is -1
  std::optional<Shown> before_typing_;
};

class ScrollBar : public Control {
 public:
  ScrollBar(Form& form, std::string name, int index = -1)
      : Control(form, ControlKind::kScrollBar, std::move(name), index) {}
  bool vertical = false;
  // `at_start` is the value at the top or left, `at_end` at the other end; either may be the greater one.
  void SetRange(int at_start, int at_end, int step = 1, int page = 10);
  void ShowRange(int at_start, int at_end);  // raises nothing, also where it moves the value
  int min() const { return min_; }
  int max() const { return max_; }
  int step() const { return step_; }
  int page() const { return page_; }
  int value() const { return value_; }
  void SetValue(int value);   // limited to the range
  void ShowValue(int value);  // raises nothing
  Handler on_change;
  // How a value is shown, and where: a label that follows the hand also while the program is held up and is told of the
  // move only afterwards.
  std::function<std::string(int)> shown;
  Label* value_label = nullptr;
  bool UserSet(int value);  // refused outside the range
  // The value of the record when it was last filled or kept. A bar without it stands for no record; none: the record
  // has no value for it.
  std::function<std::optional<int>()> kept_value;
  // Goes back to it, as far as the range reaches; refused without one.
  bool UserReset();
  // Digits are a value, as the bar shows it, which Enter takes.
  void DefaultKey(const Key& key) override;
  // What has been typed and not been taken yet.
  const std::string& typed() const { return typed_; }
  void FocusLeft() override { ShowTyped({}); }

 private:
  void TakeValue(int value);
  void TypeKey(const std::string& character);
  void ShowTyped(std::string typed);
  std::optional<int> ValueOf(const std::string& typed) const;

  std::string typed_;
  int min_ = 0;
  int max_ = 100;
  int step_ = 1;
  int page_ = 10;
  int value_ = 0;
};

class CheckBox : public Captioned {
 public:
  CheckBox(Form& form, std::string name, int index = -1)
      : Captioned(form, ControlKind::kCheckBox, std::move(name), index) {}
  bool value() const { return value_; }
  void SetValue(bool value);
  void ShowValue(bool value);  // raises nothing
  Handler on_click;
  bool UserSet(bool value);
  void DefaultKey(const Key& key) override;

 private:
  bool value_ = false;
};

// Of the option buttons that stand in one frame or on one page, or in none of them, one at most is on, whatever their
// names are.
class OptionButton : public Captioned {
 public:
  OptionButton(Form& form, std::string name, int index = -1);
  bool value() const { return value_; }
  void SetValue(bool value);
  void ShowValue(bool value);  // raises nothing, and leaves the others of its group alone
  Handler on_click;
  bool UserPress();
  void DefaultKey(const Key& key) override;

 private:
  // Those that it excludes, and itself, in the order of the form.
  std::vector<OptionButton*> Group();
  // Of the usable ones of its group the one after it (1) or before it (-1), round at the ends.
  void PressNext(int way);

  bool value_ = false;
};

class Tabs : public Control {
 public:
  Tabs(Form& form, std::string name, int index = -1) : Control(form, ControlKind::kTabs, std::move(name), index) {}
  std::vector<std::string> captions;
  int page() const { return page_; }
  void SetPage(int page);
  void ShowPage(int page);  // raises nothing
  Handler on_change;
  bool UserSet(int page);
  // Left and Right turn the pages.
  void DefaultKey(const Key& key) override;

 private:
  int page_ = 0;
};

// One-shot: when it fires it is off, and then its handler runs. Enabling one that runs changes nothing, a new interval
// starts it anew, the interval 0 never fires.
class Timer : public Control {
 public:
  Timer(Form& form, std::string name, int index = -1) : Control(form, ControlKind::kTimer, std::move(name), index) {}
  ~Timer() override;
  int interval() const { return interval_; }  // milliseconds
  void SetInterval(int milliseconds);
  bool running() const { return running_; }
  void Start();
  void Stop();
  Handler on_timer;

 private:
  friend class TimerQueue;
  friend class Toolkit;
  std::int64_t cause_ = 0;  // the action of the user's that started it
  int interval_ = 10;
  bool running_ = false;
};

class MenuEntry : public Captioned {
 public:
  // Without a parent it stands in the form's menu bar.
  MenuEntry(Form& form, MenuEntry* parent, std::string name, int index = -1);
  MenuEntry* parent() const { return parent_; }
  const std::vector<MenuEntry*>& entries() const { return entries_; }
  bool checked() const { return checked_; }
  void SetChecked(bool checked);
  bool separator_before = false;
  bool numbered = false;  // of an array: the first nine can be chosen by their number
  std::string shortcut;   // as in Ctrl+Shift+S
  Handler on_click;
  // Makes its caption anew, where that is done only when somebody looks at it.
  Handler before_look;
  const std::string& ShownCaption() const {
    if (before_look) before_look();
    return caption();
  }
  void Press();
  bool UserPress();
  bool Usable() const override;

 private:
  MenuEntry* parent_;
  std::vector<MenuEntry*> entries_;
  bool checked_ = false;
};

}  // namespace zentaline::ui
