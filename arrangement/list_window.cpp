#include "arrangement/list_window.h"

#include <utility>
#include <vector>

#include "arrangement/arr_format.h"
#include "base/panel_numbers.h"
#include "core/application.h"
#include "core/window_image.h"
#include "data/names.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

// Of a row's text; what is no longer than that has no name.
constexpr std::size_t kLabelLength = 2;
constexpr std::size_t kMarkLength = 2;

std::string UserStyleSuffix(int entry) {
  return " (" + UserStyleLabel(entry) + ")";
}

std::string UserStyleText(int entry, std::string_view image) {
  return Utf8FromBytes(WindowStyName(entry, image)) + UserStyleSuffix(entry);
}

std::string FactoryStyleText(int number) {
  return Utf8FromBytes(TrimRight(StyleName(number))) + " (" + StyleLabel(number) + ")";
}

}  // namespace

ArrListWindow::ArrListWindow(Application& app, std::string name, std::string number, Bytes image)
    : ChildWindow(app, std::move(name), std::move(number)) {
  app.edits.TakeImage(*this, std::move(image));
  List1.SetFont({.fixed_pitch = true});
  List1.multi_select = true;
  List1.group_rows = 8;
  List1.least_characters = {24, 17};
  Combo1.least_characters = {24, 1};
  List1.on_context = on_context = [this] { PopupEditMenu(); };
}

int ArrListWindow::record_byte(int row, std::size_t offset) const {
  return ByteAt(window_image(), ArrRecordPosition(row) + offset);
}

std::string ArrListWindow::Path() const {
  return std::string(WindowPath(window_image()));
}

bool ArrListWindow::UsesUserStyle(int row) const {
  return record_byte(row, arr_record::kStyleLocation) == kUserStyleLocation;
}

bool ArrListWindow::FillRows() {
  bool written = false;
  std::vector<std::string> rows;
  rows.reserve(kArrRecordCount);
  for (int row = 0; row < kArrRecordCount; ++row) {
    rows.push_back(RowText(row));
    if (record_byte(row, arr_record::kName) == 0) continue;
    written = true;
    if (!UsesUserStyle(row)) AddFactoryStyle(record_byte(row, arr_record::kStyleNumber));
  }
  ShowRows(std::move(rows));
  return written;
}

// One by one, where there are rows already, so that selection and focus stay.
void ArrListWindow::ShowRows(std::vector<std::string> rows) {
  if (List1.rows() != kArrRecordCount) return List1.SetRows(std::move(rows));
  for (int row = 0; row < kArrRecordCount; ++row) {
    std::string& text = rows[static_cast<std::size_t>(row)];
    if (List1.RowText(row) != text) List1.SetRowText(row, std::move(text));
  }
}

// Label, mark, name; the label alone for a record that was never written.
std::string ArrListWindow::RowText(int row) const {
  std::string text = PanelNumberText(row);
  if (record_byte(row, arr_record::kName) == 0) return text;
  text += UsesUserStyle(row) ? " +" : "  ";
  AppendUtf8(text, std::string_view(window_image()).substr(ArrRecordPosition(row) - 1, kArrNameLength));
  return text;
}

void ArrListWindow::ShowRecordName(int index) {
  std::string text = List1.RowText(index).substr(0, kLabelLength + kMarkLength);
  text.resize(kLabelLength + kMarkLength, ' ');
  const Bytes name = Slice(window_image(), ArrRecordPosition(index), kArrNameLength);
  List1.SetRowText(index, text + Utf8FromBytes(name));
}

std::vector<std::string> ArrListWindow::UserStyles() const {
  std::vector<std::string> styles;
  if (ByteAt(window_image(), kStyStatePosition) == 0) return styles;
  for (int entry = 0; entry < kStyEntryCount; ++entry) {
    if (WindowStyEntrySize(entry, window_image()) != 0) styles.push_back(UserStyleText(entry, window_image()));
  }
  return styles;
}

// A cut takes the rows of its styles away. Otherwise the user's styles come first, and then the factory ones that the
// arrangements use: at the opening it is the other way round, and that is wanted.
void ArrListWindow::ShowItems(const ItemsShown& shown) {
  const std::string shown_style = Combo1.text();
  std::vector<std::string> styles;
  if (shown.cut) {
    for (int row = 0; row < Combo1.rows(); ++row) styles.push_back(Combo1.RowText(row));
    for (const int entry : shown.cut_styles) {
      std::erase_if(styles, [label = UserStyleSuffix(entry)](const std::string& row) { return row.ends_with(label); });
    }
  } else {
    styles = UserStyles();
  }
  Combo1.SetRows(std::move(styles));
  RecordsChanged();
  const int row = List1.Row();
  if (row < 0) return Combo1.ShowText(shown_style);
  if (IsEmptyRow(row)) return Combo1.ShowText({});
  ShowStyle(row);
}

void ArrListWindow::AddFactoryStyle(int number) {
  const std::string text = FactoryStyleText(number);
  for (int row = 0; row < Combo1.rows(); ++row) {
    if (Combo1.RowText(row) == text) return;
  }
  Combo1.AddRow(text);
}

void ArrListWindow::ShowStyle(int row) {
  const int style = record_byte(row, arr_record::kStyleNumber);
  if (UsesUserStyle(row)) {
    Combo1.ShowText(UserStyleText(style, window_image()));
  } else {
    Combo1.ShowText(FactoryStyleText(style));
  }
}

bool ArrListWindow::IsEmptyRow(int row) const {
  return TrimRight(List1.RowText(row)).size() == kLabelLength;
}

std::string ArrListWindow::RowLabel(int row) const {
  return List1.RowText(row).substr(0, kLabelLength);
}

}  // namespace zentaline
