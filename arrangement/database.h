// i40DBArr on the disk, for this folder alone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "core/edits.h"
#include "files/api.h"

namespace zentaline {

struct Application;
class frmArrU;

inline constexpr char kDatabaseName[] = "i40DBArr";
inline constexpr char kDatabaseWindowTitle[] = "Edit i40DBArr";

enum class DatabaseFound { kGood, kBad, kAbsent, kFailed };

// The file into DBImage, which stays as it is when the database window shows it and the file is no database. An empty
// file counts as absent and is removed. A failure of the file system is shown only where `shows` is set.
DatabaseFound ReadDatabase(Application& app, bool shows);
// The same for whoever can't go on without one: its box tells when there is none, or a bad one. While the database
// window is open DBImage is current already.
bool HaveDatabase(Application& app, const std::string& title);
// OperationTitle of what is done with it.
void SetDatabaseTitle(Application& app);
// Writes the image, which then is DBImage. False when that failed, which was shown; DBImage is what it was. Without
// words it is no action of the user's.
bool StoreDatabase(Application& app, Bytes image, const std::optional<EditWords>& words);
// Enters all files of these names, which have their extension, that lie in the database's folder and are arrangement
// files. A bad database is left alone.
void DBAddAll(Application& app, const std::vector<std::string>& names);

// The open window of an arrangement file, 1 to 9; null when there is none. `base` is without extension.
frmArrU* ArrWindowOfFile(const Application& app, const std::string& base);
// Shows a file of the database in a free window; without one nothing happens. That it has gone is told under `title`.
ChooseResult OpenArrByPath(Application& app, const std::string& base, const std::string& title);

// What the database window shows has changed: after an addition, and after a purge, which reloads it a little later.
void DatabaseGrew(Application& app);
void DatabasePurged(Application& app);

}  // namespace zentaline
