#include "arrangement/db_format.h"

#include <algorithm>

#include "base/panel_numbers.h"

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

void CopyEntry(Bytes& image, int to, int from) {
  PutBytes(image, DBEntryPosition(to), Slice(image, DBEntryPosition(from), kDbEntryLength));
}

}  // namespace

Bytes DBImageOf(Bytes file) {
  file.resize(kDbLength, '\0');
  return file;
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
  if (id < 0) return 0;
  const char bytes[] = {static_cast<char>(id & 0xFF), static_cast<char>(id >> 8 & 0xFF)};
  for (int index = kDbFirstIndex; index <= kDbLastIndex && id <= 0xFFFF; ++index) {
    const std::size_t at = DBEntryPosition(index) - 1;
    if (at + kDbEntryLength > image.size() || image[at] == '\0') break;
    if (image[at + kDbEntryIdOffset] == bytes[0] && image[at + kDbEntryIdOffset + 1] == bytes[1]) return index;
  }
  return 0;
}

int DBLookup(std::string_view image, std::string_view directory, std::string_view base_name) {
  if (!DBIsDatabase(image) || !DBIsOfDirectory(image, directory)) return 0;
  return DBEntryId(image, DBFindName(image, base_name));
}

DBAddition DBAddEntry(Bytes& image, std::string_view base_name) {
  return DBAdding(image).Add(base_name);
}

DBAdding::DBAdding(Bytes& image) : image_(image), next_id_(kDbFirstId) {
  for (int index = kDbFirstIndex; DBEntryUsed(image, index); ++index) keys_.push_back(Key(DBEntryName(image, index)));
  sorted_ = std::is_sorted(keys_.begin(), keys_.end());
}

DBAddition DBAdding::Add(std::string_view base_name) {
  const Bytes key = Key(base_name);
  const auto known =
      sorted_ ? std::lower_bound(keys_.begin(), keys_.end(), key) : std::find(keys_.begin(), keys_.end(), key);
  if (known != keys_.end() && *known == key) {
    return {kDbKnown, DBEntryId(image_, kDbFirstIndex + static_cast<int>(known - keys_.begin()))};
  }
  const int id = FreeId();
  if (!IsIndex(kDbFirstIndex + static_cast<int>(keys_.size())) || id == 0) return {};

  const std::size_t place = PlaceFor(key);
  const int index = kDbFirstIndex + static_cast<int>(place);
  const Bytes behind = Slice(image_, DBEntryPosition(index), kDbEntryLength * (keys_.size() - place));
  PutBytes(image_, DBEntryPosition(index + 1), behind);
  keys_.insert(keys_.begin() + static_cast<std::ptrdiff_t>(place), key);
  PutBytes(image_, DBEntryPosition(index), Padded(base_name, kDbNameLength));
  PutWordLowFirst(image_, DBEntryPosition(index) + kDbEntryIdOffset, id);
  PutByte(image_, IdMapPosition(id), 1);
  return {kDbAdded, id};
}

// The lowest free id; 0 when the map is full. Additions only take ids.
int DBAdding::FreeId() {
  while (next_id_ <= kDbLastIndex && ByteAt(image_, IdMapPosition(next_id_)) != 0) ++next_id_;
  return next_id_ <= kDbLastIndex ? next_id_ : 0;
}

// Behind all entries when the name is above the last one's, else in front of the first one above it.
std::size_t DBAdding::PlaceFor(const Bytes& key) const {
  if (keys_.empty() || key > keys_.back()) return keys_.size();
  const auto place = sorted_
                         ? std::upper_bound(keys_.begin(), keys_.end(), key)
                         : std::find_if(keys_.begin(), keys_.end(), [&](const Bytes& other) { return other > key; });
  return static_cast<std::size_t>(place - keys_.begin());
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

std::optional<ArrangementId> ReadArrangementId(std::string_view text) {
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  if (text.size() < 3 || !std::all_of(text.begin(), text.end(), is_digit)) return std::nullopt;
  ArrangementId id;
  id.row = PanelPlace(10 * (text[text.size() - 2] - '0') + (text.back() - '0'));
  if (id.row < 0) return std::nullopt;
  for (const char c : text.substr(0, text.size() - 2)) id.file = std::min(10 * id.file + (c - '0'), kUnknownFileId);
  return id;
}

}  // namespace zentaline
