#include "arrangement/db_format.h"

namespace zentaline {
namespace {

bool IsIndex(int index) {
  return index >= kDbFirstIndex && index <= kDbLastIndex;
}

Bytes FreeEntry() {
  return '\0' + Bytes(kDbNameLength - 1, ' ') + Bytes(2, '\0');
}

// A name as it is stored and compared: 24 bytes, without the blanks at its end.
std::string_view StoredName(std::string_view name) {
  return TrimRight(name.substr(0, kDbNameLength));
}

Bytes Key(std::string_view name) {
  return UpperCase(StoredName(name));
}

// The place in the id map; 0, which is outside the image, for an id that has none.
std::size_t IdMapPosition(int id) {
  return IsIndex(id) ? kDbIdMapPosition + static_cast<std::size_t>(id - kDbFirstId) : 0;
}

// The lowest free id; 0 when the map is full.
int FreeId(std::string_view image) {
  for (int id = kDbFirstId; id <= kDbLastIndex; ++id) {
    if (ByteAt(image, IdMapPosition(id)) == 0) return id;
  }
  return 0;
}

void CopyEntry(Bytes& image, int to, int from) {
  PutBytes(image, DBEntryPosition(to), Slice(image, DBEntryPosition(from), kDbEntryLength));
}

// Where a new name goes among the entries in front of `free_index`.
int PlaceFor(std::string_view image, std::string_view key, int free_index) {
  if (free_index == kDbFirstIndex || key > Key(DBEntryName(image, free_index - 1))) return free_index;
  int place = kDbFirstIndex;
  while (place < free_index && Key(DBEntryName(image, place)) <= key) ++place;
  return place;
}

}  // namespace

Bytes DBImageOf(std::string_view file) {
  return Slice(file, 1, kDbLength);
}

bool DBIsDatabase(std::string_view image) {
  return image.starts_with(kDbMagic);
}

Bytes NewDatabase() {
  Bytes image(kDbLength, '\0');
  PutBytes(image, 1, kDbMagic);
  for (int index = kDbFirstIndex - 1; index <= kDbLastIndex; ++index) {
    PutBytes(image, DBEntryPosition(index), FreeEntry());
  }
  PutDBDirectory(image, "");
  return image;
}

std::string_view DBDirectoryOf(std::string_view image) {
  if (image.size() < kDbDirectoryPosition) return {};
  return TrimRight(image.substr(kDbDirectoryPosition - 1, kDbDirectoryLength));
}

void PutDBDirectory(Bytes& image, std::string_view directory) {
  PutBytes(image, kDbDirectoryPosition, Padded(directory, kDbDirectoryLength));
}

bool DBIsOfDirectory(std::string_view image, std::string_view directory) {
  return DBDirectoryOf(image) == TrimRight(directory.substr(0, kDbDirectoryLength));
}

bool DBEntryUsed(std::string_view image, int index) {
  return IsIndex(index) && ByteAt(image, DBEntryPosition(index)) != 0;
}

std::string_view DBEntryName(std::string_view image, int index) {
  if (!IsIndex(index) || image.size() < DBEntryPosition(index)) return {};
  return TrimRight(image.substr(DBEntryPosition(index) - 1, kDbNameLength));
}

int DBEntryId(std::string_view image, int index) {
  return IsIndex(index) ? WordLowFirst(image, DBEntryPosition(index) + kDbEntryIdOffset) : 0;
}

int DBEntryCount(std::string_view image) {
  int index = kDbFirstIndex;
  while (DBEntryUsed(image, index)) ++index;
  return index - kDbFirstIndex;
}

int DBFindName(std::string_view image, std::string_view name) {
  const Bytes key = Key(name);
  for (int index = kDbFirstIndex; DBEntryUsed(image, index); ++index) {
    if (Key(DBEntryName(image, index)) == key) return index;
  }
  return 0;
}

int DBFindId(std::string_view image, int id) {
  for (int index = kDbFirstIndex; DBEntryUsed(image, index); ++index) {
    if (DBEntryId(image, index) == id) return index;
  }
  return 0;
}

int DBLookup(std::string_view image, std::string_view directory, std::string_view base_name) {
  if (!DBIsDatabase(image) || !DBIsOfDirectory(image, directory)) return 0;
  return DBEntryId(image, DBFindName(image, base_name));
}

DBAddition DBAddEntry(Bytes& image, std::string_view base_name) {
  const int known = DBFindName(image, base_name);
  if (known != 0) return {kDbKnown, DBEntryId(image, known)};
  const int free_index = kDbFirstIndex + DBEntryCount(image);
  const int id = FreeId(image);
  if (!IsIndex(free_index) || id == 0) return {};

  const int place = PlaceFor(image, Key(base_name), free_index);
  for (int index = free_index; index > place; --index) CopyEntry(image, index, index - 1);
  PutBytes(image, DBEntryPosition(place), Padded(base_name, kDbNameLength));
  PutWordLowFirst(image, DBEntryPosition(place) + kDbEntryIdOffset, id);
  PutByte(image, IdMapPosition(id), 1);
  return {kDbAdded, id};
}

void DBRemoveEntry(Bytes& image, int index) {
  if (!IsIndex(index)) return;
  PutByte(image, IdMapPosition(DBEntryId(image, index)), 0);
  for (; DBEntryUsed(image, index + 1); ++index) CopyEntry(image, index, index + 1);
  PutBytes(image, DBEntryPosition(index), FreeEntry());
}

bool DBPurgeKeeps(std::string_view file) {
  return file.starts_with("KORG") && Slice(file, 33, 10) == Slice(file, 673, 10);
}

int DBPurgeEntries(Bytes& image, const std::function<bool(std::string_view name)>& keeps) {
  int removed = 0;
  for (int index = kDbFirstIndex; DBEntryUsed(image, index);) {
    // A copy: the name would move away under the one who is asked.
    const Bytes name(DBEntryName(image, index));
    if (keeps(name)) {
      ++index;
    } else {
      DBRemoveEntry(image, index);
      ++removed;
    }
  }
  return removed;
}

}  // namespace zentaline
