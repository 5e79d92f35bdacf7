// The windows of arrangements when their image goes a step back or forth, and the database.
#include <algorithm>
#include <string>
#include <vector>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/database.h"
#include "arrangement/db_format.h"
#include "arrangement/file_list_window.h"
#include "arrangement/frmArrU.h"
#include "arrangement/frmEditDBArr.h"
#include "arrangement/windows.h"
#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/undo.h"
#include "core/window_image.h"
#include "files/api.h"
#include "style/api.h"

namespace zentaline {

namespace {

constexpr std::size_t kRecordsEnd = ArrRecordPosition(kArrRecordCount);
constexpr std::size_t kStylesStart = kArrImageLength + 1;

// The first record that the step is about, -1 for none.
int FirstRecord(const EditAction& action, const EditTarget& image) {
  int first = -1;
  for (const EditChange& change : action.changes) {
    if (change.target != image || change.position < kArrImageRecordsPosition || change.position >= kRecordsEnd)
      continue;
    const int index = static_cast<int>((change.position - kArrImageRecordsPosition) / kArrRecordLength);
    if (first < 0 || index < first) first = index;
  }
  return first;
}

}  // namespace

// --- Windows of arrangements ---

void ArrListWindow::ShowStep(const EditStep& step) {
  const EditTarget image = ImageOf(*this);
  const bool records = ChangesWithin(step.action, image, kArrImageFilePosition, kArrImageRowTablePosition);
  const bool styles = ChangesWithin(step.action, image, kStylesStart, std::string::npos);
  if (styles) {
    ShowItems({.styles = true});
  } else {
    RecordsChanged();
  }
  const int row = FirstRecord(step.action, image);
  if (row >= 0 && step.action.changes.front().target == image) {
    List1.ShowRow(row);
    RowShown(row);
  }
  if (records) TakeOverArrRecord(app(), *this, step);
  ForgetSent(records, styles);
}

// What stands in the instrument is another one now: the next click sends it anew.
void ArrFileListWindow::ForgetSent(bool records, bool styles) {
  std::string& sent = app().arrangement.ArrInInstrument;
  if (records && sent == NameForInstrument()) {
    sent.clear();
    if (app().main != nullptr) app().main->LabelArr.SetCaption({});
  }
  if (styles) ForgetStylesSent(app(), NameForInstrument());
}

// As a click shows it, but nothing is heard, and no editor goes over to it.
void ArrFileListWindow::RowShown(int row) {
  const ScopedValue last(app().core.settings.LastListIndex, app().core.settings.LastListIndex);
  if (IsEmptyRow(row)) {
    ShowNothing();
  } else {
    ShowSelected(row);
  }
}

void frmArrU::RowShown(int row) {
  ArrFileListWindow::RowShown(row);
  if (!app().arrangement.EditorOpen) EditorClosed();
}

// --- The database ---

bool DatabaseFits(Application& app) {
  Bytes file;
  const DiskResult result = app.disk.Read(app.core.DatabaseDir, file, kLargestDataFile);
  return result == DiskResult::kOk && DBImageOf(std::move(file)) == app.arrangement.DBImage;
}

bool WriteDatabaseStep(Application& app) {
  SetDatabaseTitle(app);
  const DiskResult result = app.disk.Write(app.core.DatabaseDir, app.arrangement.DBImage);
  if (result != DiskResult::kOk) FileErrorMessage(app, result);
  return result == DiskResult::kOk;
}

void ShowDatabaseStep(Application& app) {
  for (ChildWindow* window : app.arr_windows) {
    if (window != nullptr) static_cast<frmArrU*>(window)->ShowIdAgain();
  }
  if (auto* window = static_cast<frmEditDBArr*>(app.toolkit.FindForm("frmEditDBArr"))) {
    app.toolkit.Activate(*window);
    window->ShowStepRows();
  }
}

// The number that the file has now, behind it the row's label as before.
void frmArrU::ShowIdAgain() {
  if (number_ == kInstrumentWindow) return;
  int& id = app().arrangement.WindowFileId[static_cast<std::size_t>(number_)];
  id = DBLookup(app().arrangement.DBImage, FileDirectory(Path()), FileBaseName(Path()));
  const int row = List1.Row();
  ShowId(row < 0 || IsEmptyRow(row) ? std::string() : RowLabel(row));
}

// The rows, and among them the first one that is another now.
void frmEditDBArr::ShowStepRows() {
  std::vector<std::string> before;
  for (int row = 0; row < List1.rows(); ++row) before.push_back(List1.RowText(row));
  ShowRows(false);
  for (int row = 0; row < kBankRows && row < static_cast<int>(before.size()); ++row) {
    List1.SetRowText(row, before[static_cast<std::size_t>(row)]);
  }
  for (int row = 0; row < List1.rows(); ++row) {
    if (row < static_cast<int>(before.size()) && before[static_cast<std::size_t>(row)] == List1.RowText(row)) continue;
    List1.ShowRow(row);
    break;
  }
  ShowButtons();
}

}  // namespace zentaline
