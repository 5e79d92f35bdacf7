// From an arrangement's id to its row: the bank or the file that has the number, its window, and the search that goes
// on there.
#include <memory>
#include <string>

#include "arrangement/api.h"
#include "arrangement/database.h"
#include "arrangement/db_format.h"
#include "arrangement/frmArrAB.h"
#include "arrangement/frmArrU.h"
#include "arrangement/frmFindID.h"
#include "arrangement/windows.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/api.h"
#include "files/paths.h"

namespace zentaline {

namespace {

// A search that runs in a window gives way to a new one.
void DropSearches(Application& app) {
  app.arrangement.FindActive = false;
  for (ChildWindow* window : app.arr_windows) {
    if (window != nullptr) static_cast<frmArrU*>(window)->EndSearch();
  }
}

// Of a search that ends here, whatever it came to.
void EndSearch(Application& app) {
  app.arrangement.FindActive = false;
  ShowWait(app, 0);
}

void FindInBank(Application& app, int kind) {
  const bool open = ArrBankWindow(app, kind) != nullptr;
  ChildWindow* window = OpenArrBank(app, kind);
  if (window == nullptr) return EndSearch(app);
  // One that has just been opened goes to the row by itself.
  if (open) static_cast<frmArrAB*>(window)->GoToFoundRow();
  ShowWait(app, 0);
}

// A new file's window that was saved under this name plays the row as a click does.
void ClickInNewWindow(Application& app, const std::string& base) {
  for (ChildWindow* window : app.new_arr_windows) {
    if (window == nullptr || window->NeverSaved() || WindowPath(window->window_image()) != base) continue;
    app.toolkit.Activate(*window);
    static_cast<ArrListWindow*>(window)->List1.SetRow(app.arrangement.FindRow);
    return;
  }
}

void FindInFile(Application& app, const std::string& base, const std::string& title) {
  if (frmArrU* window = ArrWindowOfFile(app, base)) {
    app.toolkit.Activate(*window);
    window->BeginSearch();
    return ShowWait(app, 0);
  }
  switch (OpenArrByPath(app, base, title)) {
    case kChosen:
      if (frmArrU* window = ArrWindowOfFile(app, base); window != nullptr && !window->searching()) {
        window->BeginSearch();
      }
      return;
    case kChooseOpenAlready:
      EndSearch(app);
      return ClickInNewWindow(app, base);
    default:
      return EndSearch(app);
  }
}

}  // namespace

frmArrU* ArrWindowOfFile(const Application& app, const std::string& base) {
  for (ChildWindow* window : app.arr_windows) {
    if (window != nullptr && WindowPath(window->window_image()) == base) return static_cast<frmArrU*>(window);
  }
  return nullptr;
}

ChooseResult OpenArrByPath(Application& app, const std::string& base, const std::string& title) {
  const std::string path = PathOnDisk(app.disk, base + ".arr");
  const ChooseResult result = OpenInWindow(app, kKindArr, path, app.core.settings.RdOnly);
  if (result == kChooseEmpty) ShowMessage(app, kMessageArrAbsent, title, {});
  return result;
}

void FindArrangement(Application& app, const std::string& text, const std::string& title) {
  ArrangementState& state = app.arrangement;
  DropSearches(app);
  const auto id = ReadArrangementId(text);
  if (!id) {
    ShowMessage(app, kMessageWrong, title, "ID");
    return EndSearch(app);
  }
  state.FindRow = id->row;
  state.FindFileId = id->file;
  state.FindActive = true;
  for (const int kind : {kKindArrA, kKindArrB}) {
    if (id->file == ArrBankFileId(kind)) return FindInBank(app, kind);
  }
  if (!HaveDatabase(app, title)) return EndSearch(app);
  const int index = DBFindId(state.DBImage, id->file);
  if (index == 0) {
    ShowMessage(app, kMessageNotFound, title, "ID = " + text);
    return EndSearch(app);
  }
  FindInFile(app, JoinPath(DBDirectoryOf(state.DBImage), DBEntryName(state.DBImage, index)), title);
}

void ShowFindId(Application& app) {
  if (ui::Form* open = app.toolkit.FindForm("frmFindID")) return app.toolkit.Activate(*open);
  app.toolkit.Open(std::make_unique<frmFindID>(app));
}

}  // namespace zentaline
