// i40DBArr, the database that gives the arrangement files of one directory permanent numbers: 27221 bytes, handled
// whole. Positions count from 1, entry indexes and ids run 3 to 999 (1 and 2 are the factory banks, without an entry).
// Used entries stand together from index 3 on, sorted by name in upper case; the index isn't the id. Every function
// stands a database that is damaged in any byte, or shorter: what lies outside reads as zero and isn't written.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace zentaline {

inline constexpr std::size_t kDbLength = 27221;
inline constexpr std::string_view kDbMagic = "i40DBArr";
inline constexpr std::size_t kDbEntryLength = 26;
inline constexpr std::size_t kDbNameLength = 24;        // base name without ".arr", padded; first byte 0: free
inline constexpr std::size_t kDbEntryIdOffset = 24;     // low byte first
inline constexpr std::size_t kDbIdMapPosition = 25975;  // one byte for each of the ids 3 to 999, not 0 in use
inline constexpr std::size_t kDbDirectoryPosition = 26972;
inline constexpr std::size_t kDbDirectoryLength = 250;  // padded with blanks
inline constexpr int kDbFirstIndex = 3;
inline constexpr int kDbLastIndex = 999;
inline constexpr int kDbFirstId = 3;

// Position of entry 3 to 999; the same rule places the slot of index 2, which never holds an entry.
constexpr std::size_t DBEntryPosition(int index) {
  return kDbEntryLength * static_cast<std::size_t>(index - 1) + 1;
}

// The image of a file's bytes: exactly 27221, cut or filled with zero bytes. Only its beginning tells a good one.
Bytes DBImageOf(Bytes file);
bool DBIsDatabase(std::string_view image);

// All entries free, no directory.
Bytes NewDatabase();

std::string_view DBDirectoryOf(std::string_view image);  // blanks at the end removed
void PutDBDirectory(Bytes& image, std::string_view directory);
// Whether the database is that directory's; both are compared as they would be stored.
bool DBIsOfDirectory(std::string_view image, std::string_view directory);

bool DBEntryUsed(std::string_view image, int index);              // false outside 3 to 999
std::string_view DBEntryName(std::string_view image, int index);  // blanks at the end removed
int DBEntryId(std::string_view image, int index);                 // 0 to 65535, as found

// How many entries there are up to the first free one, 0 to 997.
int DBEntryCount(std::string_view image);
// The index of a name (case doesn't count, 24 bytes do) or of an id; 0 when there is none.
int DBFindName(std::string_view image, std::string_view name);
int DBFindId(std::string_view image, int id);

// The id of a directory's file, or 0: no database, another directory, or not entered.
int DBLookup(std::string_view image, std::string_view directory, std::string_view base_name);

enum DBAddResult : int { kDbAdded, kDbKnown, kDbFull };
struct DBAddition {
  DBAddResult result = kDbFull;
  int id = 0;  // 0 when the table, or the id map, is full
};
// Enters a file with the lowest free id, or finds it. Nothing changes unless the result is kDbAdded. The directory
// isn't looked at.
DBAddition DBAddEntry(Bytes& image, std::string_view base_name);

// The same for many files: the names of the entries are looked at once.
class DBAdding {
 public:
  explicit DBAdding(Bytes& image);  // which is changed by each addition, and by nobody else meanwhile
  DBAddition Add(std::string_view base_name);

 private:
  int FreeId();
  std::size_t PlaceFor(const Bytes& key) const;

  Bytes& image_;
  std::vector<Bytes> keys_;  // of the entries, in their order
  bool sorted_;              // they always are, but in a damaged database
  int next_id_;
};

// Takes out entry `index`, frees its id and moves the entries behind it up to the first free one by one place.
void DBRemoveEntry(Bytes& image, int index);

// Whether a file with these bytes keeps its entry: it has contents, begins with "KORG", and the ten bytes at file
// offset 32 are those at offset 672. A sound file that fails this goes out as well; that is the rule.
bool DBPurgeKeeps(std::string_view file);

// Asks of each entry whether its file stays, and takes out the others. Gives the number taken out.
int DBPurgeEntries(Bytes& image, const std::function<bool(std::string_view name)>& keeps);

// The id of an arrangement, as it is noted down: the number of its file, then the two digits of its row.
struct ArrangementId {
  int file = 0;  // kUnknownFileId for a number beyond all bounds
  int row = 0;   // 0 to 63
};
inline constexpr int kUnknownFileId = 1000000;

// Nothing for a text that is none: other than digits, fewer than three, or a row label with a digit that isn't 1 to 8.
std::optional<ArrangementId> ReadArrangementId(std::string_view text);

}  // namespace zentaline
