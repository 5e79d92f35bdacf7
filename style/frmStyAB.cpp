#include "style/frmStyAB.h"

#include <string>
#include <utility>
#include <vector>

#include "arrangement/api.h"
#include "base/panel_numbers.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/window_image.h"
#include "data/names.h"
#include "data/texts.h"
#include "midi/api.h"

namespace zentaline {

namespace {

constexpr int kRows = 64;

}  // namespace

frmStyAB::frmStyAB(Application& app, int kind) : ChildWindow(app, "frmStyAB", std::to_string(kind)) {
  Bytes image = WindowPrefix();
  PutWindowPath(image, kind == kKindStyA ? "Style A" : "Style B");
  for (const std::size_t position : {kKindPosition, kSlotStatePosition}) PutByte(image, position, kind);
  PutByte(image, kReadOnlyPosition, 1);
  app.edits.TakeImage(*this, std::move(image));

  CommArrPlay.SetCaption("&ARR PLAY");
  CommSongPlay.SetCaption("SO&NG PLAY");
  CommClose.SetCaption(GetText(app, kTextClose));
  List1.group_rows = 8;
  List1.least_characters = {22, 8};
  List1.on_click = [this] {
    if (const int row = List1.Row(); row >= 0) PickStyle(this->app(), window_image(), row, List1.RowText(row));
  };
  List1.on_context = on_context = [this] { PopupEditMenu(); };
  MakeModeButton(CommArrPlay, SendModeArrPlay, List1);
  MakeModeButton(CommSongPlay, SendModeSongPlay, List1);
  CommClose.on_click = [this] { Close(); };
  layout = ui::Row({ui::Item(List1, 1),
                    ui::Column({ui::Item(CommArrPlay), ui::Item(CommSongPlay), ui::Space(), ui::Item(CommClose)})});
}

FormState* frmStyAB::FormPlace() {
  return &app().core.FormStates[static_cast<std::size_t>(Kind())];
}

// A bank is not a file, so that nothing is told about reading only.
void frmStyAB::ShowName() {
  SetCaption(BaseName());
}

void frmStyAB::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  ChildWindow::Load();
  ShowName();
  const int first = Kind() == kKindStyA ? 0 : kRows;
  std::vector<std::string> rows;
  rows.reserve(kRows);
  for (int row = 0; row < kRows; ++row) {
    rows.push_back(PanelNumberText(row) + "  " + Utf8FromBytes(TrimRight(StyleName(first + row))));
  }
  List1.SetRows(std::move(rows));
}

}  // namespace zentaline
