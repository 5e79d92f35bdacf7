#include "program/bank_window.h"

#include <utility>
#include <vector>

#include "base/panel_numbers.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "midi/api.h"
#include "program/api.h"

namespace zentaline {

namespace {

constexpr std::size_t kNameLength = 16;

// The image: control bytes, a cell with the title, a cell for each row, and blanks.
constexpr std::size_t kCellLength = 30;
constexpr std::size_t kBlanks = 1344;

Bytes BankRow(std::string_view names, int row) {
  return PanelNumberText(row) + "  " + Bytes(names.substr(kNameLength * static_cast<std::size_t>(row), kNameLength));
}

int BankRows(std::string_view names) {
  return static_cast<int>(names.size() / kNameLength);
}

Bytes BankImage(int kind, int channel, std::string_view title, std::string_view names) {
  Bytes image(kControlLength, '\0');
  PutByte(image, kKindPosition, kind);
  PutByte(image, kBankChannelPosition, channel);
  image += Padded(title, kCellLength);
  for (int row = 0; row < BankRows(names); ++row) image += Padded(BankRow(names, row), kCellLength);
  return image + Bytes(kBlanks, ' ');
}

FormState& PlaceOf(Application& app, int kind) {
  return app.core.FormStates[static_cast<std::size_t>(kind)];
}

}  // namespace

BankWindow::BankWindow(Application& app, std::string name, int kind, std::string_view title, std::size_t title_length,
                       std::string_view names)
    : ProgramListWindow(app, std::move(name), std::to_string(kind),
                        BankImage(kind, PlaceOf(app, kind).second, title, names)),
      kind_(kind),
      title_length_(title_length) {
  std::vector<std::string> rows;
  rows.reserve(static_cast<std::size_t>(BankRows(names)));
  for (int row = 0; row < BankRows(names); ++row) rows.push_back(Utf8FromBytes(BankRow(names, row)));
  List1.SetRows(std::move(rows));
  layout = ui::Row({ui::Item(List1, 1), ui::Column({ui::Row({ui::Item(Label1), ui::Item(Combo1)}), ui::Space(),
                                                    ui::Row({ui::Space(), ui::Item(CommClose)})})});
}

void BankWindow::Load() {
  ChildWindow::Load();
  ShowChannel();
  ShowName();
  if (app().main != nullptr) app().main->Menu(ProgramBankEntry(kind_)).SetEnabled(false);
}

void BankWindow::Unload() {
  ChildWindow::Unload();
  if (app().main != nullptr) app().main->Menu(ProgramBankEntry(kind_)).SetEnabled(true);
}

void BankWindow::ShowName() {
  SetCaption(std::string(TrimRight(Slice(window_image(), kPathPosition, title_length_))) + ChannelSuffix());
}

FormState* BankWindow::FormPlace() {
  return &PlaceOf(app(), kind_);
}

void BankWindow::KeepChannel(int channel) {
  app().edits.SetAside(*this, kBankChannelPosition, channel);
  PlaceOf(app(), kind_).second = channel;
}

void BankWindow::ClickRow() {
  const int row = ClickedRow();
  if (row < 0) return;
  if (app().arrangement.ArrPartArmed) {
    AssignRow(row);
    if (app().midi.OutputOpen) SelectProgram(app(), window_image(), row);
    return;
  }
  HearRow(row);
  ShowWait(app(), 0);
}

}  // namespace zentaline
