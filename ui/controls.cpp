#include "ui/controls.h"

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

#include "base/bytes.h"
#include "base/utf8.h"
#include "ui/form.h"
#include "ui/rows.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

namespace {

constexpr std::size_t kLongestTypedValue = 6;

void Call(const Handler& handler) {
  if (handler) handler();
}

}  // namespace

void Captioned::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  Changed(Change::kText);
}

void Button::SetOn(bool on) {
  if (on_ == on) return;
  on_ = on;
  Changed(Change::kChecked);
}

void Button::Press() {
  Call(on_click);
}

bool Button::UserPress() {
  if (!Usable()) return false;
  const UserEvent event(form());
  SetFocus();
  Press();
  return true;
}

void Button::DefaultKey(const Key& key) {
  if (key.name == Key::kSpace || key.name == Key::kEnter) UserPress();
}

void TextBox::SetText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  Changed(Change::kText);
  Call(on_change);
}

void TextBox::ShowText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  Changed(Change::kText);
}

void TextBox::SetTopLine(int line) {
  if (line == top_line_) return;
  top_line_ = line;
  Changed(Change::kTopLine);
}

bool TextBox::Takes(const std::string& text) const {
  if (max_length > 0 && CountCharacters(text) > max_length) return false;
  Bytes bytes;
  return !bytes_only || BytesFromUtf8(text, bytes);
}

bool TextBox::UserType(const std::string& text) {
  if (!Usable() || read_only || !Takes(text)) return false;
  const UserEvent event(*this, UserEvent::kMoves);
  SetFocus();
  SetText(text);
  return true;
}

const std::string& ComboBox::RowText(int row) const {
  return TextOfRow(rows_, row);
}

void ComboBox::SetRows(std::vector<std::string> rows) {
  rows_ = std::move(rows);
  row_ = -1;
  other_text_.clear();
  before_typing_.reset();
  Changed(Change::kRows);
}

void ComboBox::AddRow(std::string text) {
  rows_.push_back(std::move(text));
  Changed(Change::kRows);
}

void ComboBox::SetRow(int row) {
  if (row < -1 || row >= rows() || row == row_) return;
  before_typing_.reset();
  TakeRow(row);
  Call(on_click);
}

void ComboBox::ShowRow(int row) {
  if (row < -1 || row >= rows()) return;
  before_typing_.reset();
  if (row != row_) TakeRow(row);
}

void ComboBox::TakeRow(int row) {
  row_ = row;
  other_text_.clear();
  Changed(Change::kRow);
}

void ComboBox::ShowText(std::string text) {
  before_typing_.reset();
  TakeText(std::move(text));
}

void ComboBox::TakeText(std::string text) {
  const auto found = std::find(rows_.begin(), rows_.end(), text);
  if (found != rows_.end()) return TakeRow(static_cast<int>(found - rows_.begin()));
  row_ = -1;
  other_text_ = std::move(text);
  Changed(Change::kRow);
}

bool ComboBox::UserSelect(int row) {
  if (!Usable() || row < 0 || row >= rows()) return false;
  const UserEvent event(form());
  SetFocus();
  SetRow(row);
  return true;
}

bool ComboBox::UserType(const std::string& text) {
  if (!Usable() || !editable) return false;
  const UserEvent event(form());
  SetFocus();
  if (text == this->text()) return true;
  if (row_ >= 0 || !before_typing_) before_typing_ = Shown{row_, this->text()};
  TakeText(text);
  Call(on_change);
  return true;
}

void ComboBox::FocusLeft() {
  const std::optional<Shown> before = std::exchange(before_typing_, std::nullopt);
  if (!before || row_ >= 0) return;
  row_ = before->row;
  other_text_ = row_ >= 0 ? std::string() : before->text;
  Changed(Change::kRow);
}

void ComboBox::DefaultKey(const Key& key) {
  if (rows() == 0) return;
  const int row = RowByKey(key, row_, rows());
  if (row != row_) UserSelect(row);
}

void ScrollBar::SetRange(int at_start, int at_end, int step, int page) {
  min_ = at_start;
  max_ = at_end;
  step_ = step;
  page_ = page;
  Changed(Change::kRange);
  SetValue(value_);
}

void ScrollBar::ShowRange(int at_start, int at_end) {
  min_ = at_start;
  max_ = at_end;
  Changed(Change::kRange);
  ShowValue(value_);
}

void ScrollBar::ShowValue(int value) {
  value = std::clamp(value, std::min(min_, max_), std::max(min_, max_));
  if (std::exchange(value_, value) != value) Changed(Change::kValue);
}

void ScrollBar::SetValue(int value) {
  TakeValue(std::clamp(value, std::min(min_, max_), std::max(min_, max_)));
}

void ScrollBar::TakeValue(int value) {
  if (std::exchange(value_, value) == value) return;
  Changed(Change::kValue);
  Call(on_change);
}

bool ScrollBar::UserSet(int value) {
  if (!Usable() || value < std::min(min_, max_) || value > std::max(min_, max_)) return false;
  const UserEvent event(*this, UserEvent::kMoves);
  SetFocus();
  if (!typed_.empty()) ShowTyped({});
  TakeValue(value);
  return true;
}

bool ScrollBar::UserReset() {
  const std::optional<int> kept = kept_value && Usable() ? kept_value() : std::nullopt;
  return kept && UserSet(std::clamp(*kept, std::min(min_, max_), std::max(min_, max_)));
}

void ScrollBar::ShowTyped(std::string typed) {
  if (typed == typed_) return;
  typed_ = std::move(typed);
  Changed(Change::kTyped);
}

void ScrollBar::TypeKey(const std::string& character) {
  const bool sign = character == "-" && typed_.empty();
  if (character.size() != 1 || (!sign && (character[0] < '0' || character[0] > '9'))) return ShowTyped({});
  if (typed_.size() < kLongestTypedValue) ShowTyped(typed_ + character);
}

// The value that is shown by this number; where values aren't shown as numbers, the number itself.
std::optional<int> ScrollBar::ValueOf(const std::string& typed) const {
  int number = 0;
  const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  if (error != std::errc() || end != typed.data() + typed.size()) return std::nullopt;
  const auto [low, high] = std::minmax(min_, max_);
  for (int value = low; shown && value <= high; ++value) {
    const std::string text = shown(value);
    int beside = 0;
    const char* const first = text.data() + (text.starts_with('+') ? 1 : 0);
    const auto [behind, failed] = std::from_chars(first, text.data() + text.size(), beside);
    if (failed == std::errc() && behind == text.data() + text.size() && beside == number) return value;
  }
  return number >= low && number <= high ? std::optional(number) : std::nullopt;
}

void ScrollBar::DefaultKey(const Key& key) {
  if (key.name == Key::kCharacter) return TypeKey(key.character);
  const std::string typed = typed_;
  ShowTyped({});
  if (key.name == Key::kEnter) {
    if (const std::optional<int> value = ValueOf(typed)) UserSet(*value);
    return;
  }
  const int forward = max_ >= min_ ? 1 : -1;
  int value = value_;
  switch (key.name) {
    case Key::kUp:
    case Key::kLeft:
      value -= forward * step_;
      break;
    case Key::kDown:
    case Key::kRight:
      value += forward * step_;
      break;
    case Key::kPageUp:
      value -= forward * page_;
      break;
    case Key::kPageDown:
      value += forward * page_;
      break;
    case Key::kHome:
      value = min_;
      break;
    case Key::kEnd:
      value = max_;
      break;
    default:
      return;
  }
  UserSet(std::clamp(value, std::min(min_, max_), std::max(min_, max_)));
}

void CheckBox::ShowValue(bool value) {
  if (std::exchange(value_, value) != value) Changed(Change::kValue);
}

void CheckBox::SetValue(bool value) {
  if (std::exchange(value_, value) == value) return;
  Changed(Change::kValue);
  Call(on_click);
}

bool CheckBox::UserSet(bool value) {
  if (!Usable()) return false;
  const UserEvent event(form());
  SetFocus();
  SetValue(value);
  return true;
}

void CheckBox::DefaultKey(const Key& key) {
  if (key.name == Key::kSpace) UserSet(!value_);
}

OptionButton::OptionButton(Form& form, std::string name, int index)
    : Captioned(form, ControlKind::kOptionButton, std::move(name), index) {
  form.options_.push_back(this);
}

void OptionButton::ShowValue(bool value) {
  if (std::exchange(value_, value) != value) Changed(Change::kValue);
}

void OptionButton::SetValue(bool value) {
  if (std::exchange(value_, value) == value) return;
  Changed(Change::kValue);
  if (!value) return;
  for (OptionButton* option : form().options_) {
    if (option != this && option->value_ && SharesRoomWith(*option)) option->SetValue(false);
  }
  Call(on_click);
}

bool OptionButton::UserPress() {
  if (!Usable()) return false;
  const UserEvent event(form());
  SetFocus();
  SetValue(true);
  return true;
}

void OptionButton::DefaultKey(const Key& key) {
  if (key.name == Key::kSpace) UserPress();
  if (key.name == Key::kUp) PressNext(-1);
  if (key.name == Key::kDown) PressNext(1);
}

std::vector<OptionButton*> OptionButton::Group() {
  std::vector<OptionButton*> group;
  for (OptionButton* option : form().options_) {
    if (SharesRoomWith(*option)) group.push_back(option);
  }
  return group;
}

void OptionButton::PressNext(int way) {
  std::vector<OptionButton*> group = Group();
  std::erase_if(group, [this](const OptionButton* option) { return option != this && !option->Usable(); });
  const auto own = static_cast<std::size_t>(std::find(group.begin(), group.end(), this) - group.begin());
  const std::size_t next = (own + group.size() + static_cast<std::size_t>(way)) % group.size();
  if (group[next] != this) group[next]->UserPress();
}

void Tabs::SetPage(int page) {
  if (page < 0 || page >= static_cast<int>(captions.size())) return;
  if (std::exchange(page_, page) == page) return;
  Changed(Change::kValue);
  Call(on_change);
}

void Tabs::ShowPage(int page) {
  if (page < 0 || page >= static_cast<int>(captions.size())) return;
  if (std::exchange(page_, page) != page) Changed(Change::kValue);
}

bool Tabs::UserSet(int page) {
  if (!Usable() || page < 0 || page >= static_cast<int>(captions.size())) return false;
  const UserEvent event(form());
  SetPage(page);
  return true;
}

void Tabs::DefaultKey(const Key& key) {
  if (key.name == Key::kLeft) UserSet(page_ - 1);
  if (key.name == Key::kRight) UserSet(page_ + 1);
}

Timer::~Timer() {
  Stop();
}

void Timer::SetInterval(int milliseconds) {
  if (std::exchange(interval_, milliseconds) == milliseconds || !running_) return;
  Stop();
  Start();
}

void Timer::Start() {
  if (!form().open() || std::exchange(running_, true)) return;
  Toolkit& toolkit = form().toolkit();
  cause_ = toolkit.cause();
  if (interval_ > 0) toolkit.timers().Start(*this, toolkit.Now());
  toolkit.TimersChanged();
}

void Timer::Stop() {
  if (!std::exchange(running_, false)) return;
  form().toolkit().timers().Stop(*this);
}

MenuEntry::MenuEntry(Form& form, MenuEntry* parent, std::string name, int index)
    : Captioned(form, ControlKind::kMenuEntry, std::move(name), index), parent_(parent) {
  (parent == nullptr ? form.menu_bar_ : parent->entries_).push_back(this);
}

void MenuEntry::SetChecked(bool checked) {
  if (std::exchange(checked_, checked) != checked) Changed(Change::kChecked);
}

void MenuEntry::Press() {
  Call(on_click);
}

bool MenuEntry::Usable() const {
  return Control::Usable() && (parent_ == nullptr || parent_->Usable());
}

bool MenuEntry::UserPress() {
  if (!Usable()) return false;
  const UserEvent event(form());
  Press();
  return true;
}

}  // namespace zentaline::ui
