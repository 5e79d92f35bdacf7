// i40DBArr on the disk: each operation reads the file afresh, unless the database window shows it, and writes it whole.
#include "arrangement/database.h"

#include <utility>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/db_format.h"
#include "base/scoped_value.h"
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

// The first file added settles the directory.
void MakeDatabase(Application& app, int kind) {
  if (AskYesNo(app, kAskDirectory, {}, kDatabaseWindowTitle) != ui::BoxAnswer::kYes) return;
  Bytes image = NewDatabase();
  int id = 0;
  if (kind == kKindArr) id = DBAddEntry(image, app.files.CurrentFileName).id;
  PutDBDirectory(image, app.files.CurrentFileDir);
  if (!StoreDatabase(app, std::move(image), std::nullopt)) return;
  app.arrangement.ArrFileId = id;
  if (app.main != nullptr) app.main->EnableDatabaseEntries(true);
  DatabaseGrew(app);
}

// The file as it is before the first entry of this run goes.
DiskResult KeepBeforeRemoval(Application& app, const Bytes& image) {
  ArrangementState& state = app.arrangement;
  if (state.DatabaseKept || DBEntryCount(image) >= DBEntryCount(state.DBImage)) return DiskResult::kOk;
  const DiskResult result = app.disk.KeepAs(app.core.DatabaseDir, app.core.DatabaseDir + ".bak");
  // There is nothing to lose in one that has gone.
  if (result != DiskResult::kOk && result != DiskResult::kAbsent) return result;
  state.DatabaseKept = true;
  return DiskResult::kOk;
}

}  // namespace

DatabaseFound ReadDatabase(Application& app, bool shows) {
  const ArrangementState& state = app.arrangement;
  Bytes file;
  const DiskResult result = app.disk.Read(app.core.DatabaseDir, file, kLargestDataFile);
  if (result == DiskResult::kAbsent) return DatabaseFound::kAbsent;
  if (result != DiskResult::kOk && result != DiskResult::kTooLarge) {
    if (shows) FileErrorMessage(app, result);
    return DatabaseFound::kFailed;
  }
  if (result == DiskResult::kOk && file.empty()) {
    // As for any file, but not for the windows of the last run.
    if (!app.Starting()) app.disk.RemoveEmpty(app.core.DatabaseDir);
    return DatabaseFound::kAbsent;
  }
  Bytes image = DBImageOf(std::move(file));
  const bool good = DBIsDatabase(image);
  if (good || !state.DBWindowOpen) app.edits.TakeDatabase(std::move(image));
  return good ? DatabaseFound::kGood : DatabaseFound::kBad;
}

bool HaveDatabase(Application& app, const std::string& title) {
  SetDatabaseTitle(app);
  if (app.arrangement.DBWindowOpen) return true;
  switch (ReadDatabase(app, true)) {
    case DatabaseFound::kGood:
      return true;
    case DatabaseFound::kAbsent:
      ShowMessage(app, kMessageNoDatabase, title, {});
      return false;
    case DatabaseFound::kBad:
      ShowMessage(app, kMessageBadDatabase, title, {});
      return false;
    case DatabaseFound::kFailed:
      break;
  }
  return false;
}

void SetDatabaseTitle(Application& app) {
  app.core.OperationTitle = GetText(app, kTextReading) + kDatabaseName;
}

bool StoreDatabase(Application& app, Bytes image, const std::optional<EditWords>& words) {
  DiskResult result = KeepBeforeRemoval(app, image);
  if (result == DiskResult::kOk) result = WriteOwnFile(app, app.core.DatabaseDir, image);
  if (result != DiskResult::kOk) {
    FileErrorMessage(app, result);
    return false;
  }
  if (words) {
    app.edits.Change(kDatabaseImage, *words, [&](Bytes& bytes) { bytes = std::move(image); });
  } else {
    app.edits.TakeDatabase(std::move(image));
  }
  return true;
}

int DBLookupId(Application& app, const std::string& path) {
  ArrangementState& state = app.arrangement;
  state.ArrFileId = 0;
  if (!state.DBWindowOpen && ReadDatabase(app, false) != DatabaseFound::kGood) return 0;
  state.ArrFileId = DBLookup(state.DBImage, FileDirectory(path), FileBaseName(path));
  return state.ArrFileId;
}

void DBAddFile(Application& app, int kind, DBEntryBy by) {
  ArrangementState& state = app.arrangement;
  state.ArrFileId = 0;
  SetDatabaseTitle(app);
  switch (ReadDatabase(app, true)) {
    case DatabaseFound::kFailed:
      return;
    case DatabaseFound::kBad:
      return ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, kDatabaseName);
    case DatabaseFound::kAbsent:
      return MakeDatabase(app, kind);
    case DatabaseFound::kGood:
      break;
  }
  if (!DBIsOfDirectory(state.DBImage, app.files.CurrentFileDir)) return;
  Bytes image = state.DBImage;
  const DBAddition addition = DBAddEntry(image, app.files.CurrentFileName);
  if (addition.result == kDbAdded) {
    std::optional<EditWords> words;
    if (by == DBEntryBy::kUser) words = {"Entry", {}, ShownPath(app.files.CurrentFileName)};
    if (!StoreDatabase(app, std::move(image), words)) return;
    DatabaseGrew(app);
  }
  state.ArrFileId = addition.id;
}

void DBAddAll(Application& app, const std::vector<std::string>& names) {
  SetDatabaseTitle(app);
  Bytes image;
  const DiskResult found = app.disk.Read(app.core.DatabaseDir, image, kDbLength);
  // Of another length, or without its beginning, it is left alone; nothing is told.
  const bool short_or_long = found == DiskResult::kOk || found == DiskResult::kTooLarge || found == DiskResult::kAbsent;
  if (!short_or_long) return FileErrorMessage(app, found);
  if (found != DiskResult::kOk || image.size() != kDbLength || !DBIsDatabase(image)) return;

  const std::string directory(DBDirectoryOf(image));
  DBAdding adding(image);
  bool failed = false;
  Bytes file;
  for (const std::string& name : names) {
    const DiskResult result = app.disk.Read(JoinPath(directory, name), file, kArrFileLength);
    if (result != DiskResult::kOk) {
      // One box is enough for a disk that fails; files that have gone or are longer are none of ours.
      const bool tells = result != DiskResult::kAbsent && result != DiskResult::kTooLarge;
      if (tells && !std::exchange(failed, true)) FileErrorMessage(app, result);
      continue;
    }
    if (CheckArrFile(file) != kArrGood) continue;
    if (adding.Add(WithoutExtension(name)).result == kDbFull) {
      app.arrangement.ArrFileId = 0;
      break;
    }
  }
  StoreDatabase(app, std::move(image), EditWords{"Add All", {}, kDatabaseName});
}

void DBPurge(Application& app) {
  SetDatabaseTitle(app);
  switch (ReadDatabase(app, true)) {
    case DatabaseFound::kFailed:
      return;
    case DatabaseFound::kAbsent:
      return ShowMessage(app, kMessageFileNotFound, app.core.OperationTitle, {});
    case DatabaseFound::kBad:
      return ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, kDatabaseName);
    case DatabaseFound::kGood:
      break;
  }
  Bytes image = app.arrangement.DBImage;
  const std::string directory(DBDirectoryOf(image));
  DBPurgeEntries(image, [&](std::string_view name) {
    const std::string path = PathOnDisk(app.disk, JoinPath(directory, name) + ".arr");
    Bytes file;
    const DiskResult result = app.disk.Read(path, file, kLargestDataFile);
    // What can't be read for a reason of its own isn't gone.
    if (result != DiskResult::kOk && result != DiskResult::kAbsent && result != DiskResult::kPathAbsent) return true;
    if (result == DiskResult::kOk && file.empty()) app.disk.RemoveEmpty(path);
    return DBPurgeKeeps(file);
  });
  StoreDatabase(app, std::move(image), EditWords{"Update", {}, kDatabaseName});
  DatabasePurged(app);
}

int DBCheckSilently(Application& app) {
  const ScopedValue silent(app.arrangement.SilentStart, true);
  return DBCheck(app);
}

int DBCheck(Application& app) {
  SetDatabaseTitle(app);
  const bool silent = app.arrangement.SilentStart;
  const DatabaseFound found = ReadDatabase(app, !silent);
  if (found == DatabaseFound::kAbsent || found == DatabaseFound::kFailed) {
    if (!silent && found == DatabaseFound::kAbsent) ShowMessage(app, kMessageNoDatabase, kDatabaseWindowTitle, {});
    return 1;
  }
  if (found == DatabaseFound::kBad && !silent) ShowMessage(app, kMessageBadDatabase, kDatabaseWindowTitle, {});
  return 0;
}

}  // namespace zentaline
