// i40DBArr on the disk: each operation reads the file afresh, unless the database window shows it, and writes it whole.
#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/db_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/paths.h"

namespace zentaline {

namespace {

constexpr char kName[] = "i40DBArr";
constexpr char kWindowTitle[] = "Edit i40DBArr";

enum class Found { kGood, kBad, kAbsent, kFailed };

// The file into DBImage. An empty file counts as absent and is removed. A failure is shown only where `shows` is set.
Found ReadDatabase(Application& app, bool shows) {
  Bytes file;
  const DiskResult result = app.disk.Read(app.core.DatabaseDir, file, kLargestDataFile);
  if (result == DiskResult::kAbsent) return Found::kAbsent;
  if (result != DiskResult::kOk && result != DiskResult::kTooLarge) {
    if (shows) FileErrorMessage(app, result);
    return Found::kFailed;
  }
  if (result == DiskResult::kOk && file.empty()) {
    app.disk.Remove(app.core.DatabaseDir);
    return Found::kAbsent;
  }
  app.edits.TakeDatabase(DBImageOf(file));
  return DBIsDatabase(app.arrangement.DBImage) ? Found::kGood : Found::kBad;
}

void SetTitle(Application& app) {
  app.core.OperationTitle = GetText(app, kTextReading) + kName;
}

bool WriteDatabase(Application& app) {
  const DiskResult result = app.disk.Write(app.core.DatabaseDir, app.arrangement.DBImage);
  if (result != DiskResult::kOk) FileErrorMessage(app, result);
  return result == DiskResult::kOk;
}

DBAddition Enter(Application& app, const std::string& name, DBEntryBy by) {
  if (by == DBEntryBy::kUser) {
    return app.edits.Change(kDatabaseImage, {"Entry", {}, ShownPath(name)},
                            [&](Bytes& image) { return DBAddEntry(image, name); });
  }
  Bytes image = app.arrangement.DBImage;
  const DBAddition addition = DBAddEntry(image, name);
  app.edits.TakeDatabase(std::move(image));
  return addition;
}

// The first file added settles the directory.
void MakeDatabase(Application& app, int kind) {
  if (AskYesNo(app, kAskDirectory, {}, kWindowTitle) != ui::BoxAnswer::kYes) return;
  Bytes image = NewDatabase();
  int id = 0;
  if (kind == kKindArr) id = DBAddEntry(image, app.files.CurrentFileName).id;
  PutDBDirectory(image, app.files.CurrentFileDir);
  app.edits.TakeDatabase(std::move(image));
  if (!WriteDatabase(app)) return;
  app.arrangement.ArrFileId = id;
  if (app.main != nullptr) app.main->EnableDatabaseEntries(true);
}

}  // namespace

int DBLookupId(Application& app, const std::string& path) {
  ArrangementState& state = app.arrangement;
  state.ArrFileId = 0;
  if (!state.DBWindowOpen && ReadDatabase(app, false) != Found::kGood) return 0;
  state.ArrFileId = DBLookup(state.DBImage, FileDirectory(path), FileBaseName(path));
  return state.ArrFileId;
}

void DBAddFile(Application& app, int kind, DBEntryBy by) {
  ArrangementState& state = app.arrangement;
  state.ArrFileId = 0;
  SetTitle(app);
  switch (ReadDatabase(app, true)) {
    case Found::kFailed:
      return;
    case Found::kBad:
      return ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, kName);
    case Found::kAbsent:
      return MakeDatabase(app, kind);
    case Found::kGood:
      break;
  }
  if (!DBIsOfDirectory(state.DBImage, app.files.CurrentFileDir)) return;
  const DBAddition addition = Enter(app, app.files.CurrentFileName, by);
  if (addition.result == kDbAdded && !WriteDatabase(app)) return;
  state.ArrFileId = addition.id;
}

void DBPurge(Application& app) {
  SetTitle(app);
  switch (ReadDatabase(app, true)) {
    case Found::kFailed:
      return;
    case Found::kAbsent:
      return ShowMessage(app, kMessageFileNotFound, app.core.OperationTitle, {});
    case Found::kBad:
      return ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, kName);
    case Found::kGood:
      break;
  }
  const std::string directory(DBDirectoryOf(app.arrangement.DBImage));
  const auto stays = [&](std::string_view name) {
    const std::string path = PathOnDisk(app.disk, JoinPath(directory, name) + ".arr");
    Bytes file;
    const DiskResult result = app.disk.Read(path, file, kLargestDataFile);
    // What can't be read for a reason of its own isn't gone.
    if (result != DiskResult::kOk && result != DiskResult::kAbsent && result != DiskResult::kPathAbsent) return true;
    if (result == DiskResult::kOk && file.empty()) app.disk.Remove(path);
    return DBPurgeKeeps(file);
  };
  app.edits.Change(kDatabaseImage, {"Update", {}, kName}, [&](Bytes& image) { return DBPurgeEntries(image, stays); });
  WriteDatabase(app);
}

int DBCheck(Application& app) {
  SetTitle(app);
  const bool silent = app.arrangement.SilentStart;
  const Found found = ReadDatabase(app, !silent);
  if (found == Found::kAbsent || found == Found::kFailed) {
    if (!silent && found == Found::kAbsent) ShowMessage(app, kMessageNoDatabase, kWindowTitle, {});
    return 1;
  }
  if (found == Found::kBad && !silent) ShowMessage(app, kMessageBadDatabase, kWindowTitle, {});
  return 0;
}

}  // namespace zentaline
