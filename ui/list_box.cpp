// What a list of rows does by itself.
#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "base/bytes.h"
#include "base/utf8.h"
#include "ui/controls.h"
#include "ui/rows.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

namespace {

constexpr int kRowsOfAPage = 10;
const std::string kNoText;

// Keys in a list count together while no pause is longer, in milliseconds.
constexpr std::int64_t kLongestTypingPause = 1000;
constexpr std::size_t kNumberDigits = 2;  // of most rows, as the instrument's panel shows them
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kMarks = "+* ";

bool IsNumber(std::string_view text) {
  return text.find_first_not_of(kDigits) == std::string_view::npos;
}

// The digits that a row begins with, when a blank or nothing follows.
std::string_view NumberIn(std::string_view text) {
  const std::size_t end = std::min(text.find_first_not_of(kDigits), text.size());
  return end == text.size() || kBlanks.find(text[end]) != std::string_view::npos ? text.substr(0, end)
                                                                                 : std::string_view();
}

// What stands behind a row's number and its mark, which has its place also where a blank stands in it.
std::string_view NameIn(std::string_view text, bool numbered) {
  const std::size_t number = numbered ? NumberIn(text).size() : 0;
  if (number == 0) return text;
  text.remove_prefix(number);
  const bool has_mark = text.size() > 1 && text[0] == ' ' && kMarks.find(text[1]) != std::string_view::npos;
  if (has_mark) text.remove_prefix(2);
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text;
}

// Without the difference of capital and small letters.
Bytes Folded(std::string_view text) {
  Bytes bytes;
  if (!BytesFromUtf8(text, bytes)) return LowerCase(text);
  for (char& c : bytes) {
    const auto letter = static_cast<unsigned char>(c);
    if (letter >= 0xC0 && letter <= 0xDE && letter != 0xD7) c = static_cast<char>(letter + 0x20);
  }
  return LowerCase(bytes);
}

void Call(const Handler& handler) {
  if (handler) handler();
}

}  // namespace

const std::string& TextOfRow(const std::vector<std::string>& rows, int row) {
  return row >= 0 && row < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(row)] : kNoText;
}

int RowByKey(const Key& key, int row, int count) {
  switch (key.name) {
    case Key::kUp:
      return std::max(row - 1, 0);
    case Key::kDown:
      return std::min(row + 1, count - 1);
    case Key::kPageUp:
      return std::max(row - kRowsOfAPage, 0);
    case Key::kPageDown:
      return std::min(row + kRowsOfAPage, count - 1);
    case Key::kHome:
      return 0;
    case Key::kEnd:
      return count - 1;
    default:
      return row;
  }
}

const std::string& ListBox::RowText(int row) const {
  return TextOfRow(rows_, row);
}

void ListBox::SetRows(std::vector<std::string> rows) {
  rows_ = std::move(rows);
  selected_.assign(rows_.size(), false);
  focus_row_ = -1;
  Changed(Change::kRows);
}

void ListBox::AddRow(std::string text) {
  rows_.push_back(std::move(text));
  selected_.push_back(false);
  Changed(Change::kRows);
}

void ListBox::SetRowText(int row, std::string text) {
  if (row < 0 || row >= rows()) return;
  rows_[static_cast<std::size_t>(row)] = std::move(text);
  Changed(Change::kRows);
}

void ListBox::RemoveRow(int row) {
  if (row < 0 || row >= rows()) return;
  rows_.erase(rows_.begin() + row);
  selected_.erase(selected_.begin() + row);
  if (focus_row_ >= rows()) focus_row_ = rows() - 1;
  Changed(Change::kRows);
}

int ListBox::Row() const {
  if (Selected(focus_row_)) return focus_row_;
  const auto first = std::find(selected_.begin(), selected_.end(), true);
  return first == selected_.end() ? -1 : static_cast<int>(first - selected_.begin());
}

void ListBox::SetRow(int row) {
  if (row >= rows()) return;
  ShowRow(row);
  if (row >= 0) Click();
}

void ListBox::ShowRow(int row) {
  if (row >= rows()) return;
  std::fill(selected_.begin(), selected_.end(), false);
  if (row >= 0) {
    selected_[static_cast<std::size_t>(row)] = true;
    focus_row_ = row;
  }
  Changed(Change::kRow);
}

bool ListBox::Selected(int row) const {
  return row >= 0 && row < rows() && selected_[static_cast<std::size_t>(row)];
}

std::vector<int> ListBox::SelectedRows() const {
  std::vector<int> selected;
  for (int row = 0; row < rows(); ++row) {
    if (Selected(row)) selected.push_back(row);
  }
  return selected;
}

void ListBox::Click() {
  Call(on_click);
}

bool ListBox::UserSelect(const std::vector<int>& chosen) {
  if (!Usable() || (chosen.size() > 1 && !multi_select)) return false;
  if (std::any_of(chosen.begin(), chosen.end(), [this](int row) { return row < 0 || row >= rows(); })) return false;
  const UserEvent event(form());
  SetFocus();
  std::fill(selected_.begin(), selected_.end(), false);
  for (const int row : chosen) selected_[static_cast<std::size_t>(row)] = true;
  if (!chosen.empty()) focus_row_ = chosen.back();
  Changed(Change::kRow);
  Click();
  return true;
}

bool ListBox::UserDouble(int row) {
  if (!Usable() || row < 0 || row >= rows()) return false;
  const UserEvent event(form());
  if (!UserSelect({row})) return false;
  if (form().open()) Call(on_double_click);
  return true;
}

bool ListBox::UserEnter() {
  if (!on_double_click || Row() < 0 || !Usable()) return false;
  const UserEvent event(form());
  on_double_click();
  return true;
}

void ListBox::DefaultKey(const Key& key) {
  if (rows() == 0) return;
  if (key.name == Key::kCharacter) return TypeKey(key.character);
  // Within a name a blank is a letter like others.
  if (key.name == Key::kSpace && !typed_.empty() && TypedLately()) return TypeKey(" ");
  const int row = RowByKey(key, focus_row_, rows());
  if (row != focus_row_) UserSelect({row});
}

bool ListBox::TypedLately() const {
  return form().toolkit().Now() - typed_at_ <= kLongestTypingPause;
}

// Digits are a number as long as there is nothing else; it is complete when no row has a longer one.
void ListBox::TypeKey(const std::string& character) {
  if (!TypedLately()) typed_.clear();
  typed_at_ = form().toolkit().Now();
  const bool first = typed_.empty();
  typed_ += character;
  if (IsNumber(typed_)) {
    const auto size_of = [](const std::string& text) { return NumberIn(text).size(); };
    const int row = FindRow(0, [&](const std::string& text) { return NumberIn(text) == typed_; });
    const bool goes_on = FindRow(0, [&](const std::string& text) { return size_of(text) > typed_.size(); }) >= 0;
    if (typed_.size() >= kNumberDigits && !goes_on) typed_.clear();
    if (row >= 0) UserSelect({row});
    return;
  }
  const std::string wanted = Folded(typed_);
  const int row = FindRow(Row() + (first ? 1 : 0),
                          [&](const std::string& text) { return Folded(NameIn(text, numbered)).starts_with(wanted); });
  if (row >= 0) UserSelect({row});
}

// From `first` on, round at the end; -1 when there is none.
template <class Wanted>
int ListBox::FindRow(int first, Wanted wanted) const {
  for (int i = 0; i < rows(); ++i) {
    const int row = (std::max(first, 0) + i) % rows();
    if (wanted(rows_[static_cast<std::size_t>(row)])) return row;
  }
  return -1;
}

}  // namespace zentaline::ui
