// The journal of changes, as bytes: what it holds of windows that were changed, and of what became of them, so that
// the changes can be brought back after a crash. It knows bytes alone.
//
// The file is a row of records: the length of what follows the head (32 bits, low byte first), its CRC-32, and that
// many bytes, the first of which says what the record is. Reading ends at the first record that isn't whole or isn't
// right: what stands before it counts.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "base/disk.h"

namespace zentaline {

// What changes can be made to.
enum class JournalThing : unsigned char { kWindow = 0, kArrRecord = 1, kPrgRecord = 2 };

struct JournalPlace {
  JournalThing thing = JournalThing::kWindow;
  std::uint32_t window = 0;  // its number in the journal; 0 for a record under edit

  auto operator<=>(const JournalPlace&) const = default;
};

// Bytes that took the place of others; they may be more or fewer.
template <class Text>
struct JournalPieceOf {
  JournalPlace place;
  std::size_t position = 1;  // counts from 1
  Text before;
  Text after;

  bool operator==(const JournalPieceOf&) const = default;
};
using JournalPiece = JournalPieceOf<Bytes>;

// A control byte of an image, or the flag of a record.
struct JournalMark {
  JournalPlace place;
  std::size_t position = 0;
  int before = 0;
  int after = 0;

  bool operator==(const JournalMark&) const = default;
};

// What one action did, in the order in which it is to be done again.
template <class Text>
struct JournalActionOf {
  std::int64_t number = 0;
  Text what, of, name;  // its words
  std::vector<JournalPieceOf<Text>> pieces;
  std::vector<JournalMark> marks;

  bool operator==(const JournalActionOf&) const = default;
};
using JournalAction = JournalActionOf<Bytes>;
// The same, of texts that lie elsewhere.
using JournalActionView = JournalActionOf<std::string_view>;

// A file of a window's image, as it was when the image began or was saved.
struct JournalFile {
  std::string extension;  // without the point
  FileMark mark;

  bool operator==(const JournalFile&) const = default;
};

// A window, its image before its first change or after a save.
struct JournalWindow {
  std::uint32_t window = 0;
  int kind = 0;
  int number = 0;  // of the window, 1 to 9
  bool read_only = false;
  bool has_file = false;  // else it never had one of its own
  bool whole = false;     // nothing of it is in any file
  std::string path;       // without extension
  std::vector<JournalFile> files;
  Bytes image;

  bool operator==(const JournalWindow&) const = default;
};

// A record is taken up for editing.
struct JournalRecord {
  JournalThing thing = JournalThing::kArrRecord;
  std::uint32_t window = 0;  // whose it is; 0 for one whose window isn't known
  bool changed = false;
  Bytes bytes;

  bool operator==(const JournalRecord&) const = default;
};

// --- Writing: each gives a whole record ---

Bytes JournalHead();
Bytes JournalBytes(const JournalWindow& window);
Bytes JournalBytes(const JournalRecord& record);
enum class JournalStep : char { kDone = 'A', kTakenBack = 'B', kBroughtForth = 'F' };
// An action that is told again with its number takes the place of what was told of it before, as long as nothing of its
// places came between. One that is taken back holds its pieces and marks the other way round, the last first.
Bytes JournalBytes(JournalStep step, const JournalAction& action);
Bytes JournalBytes(JournalStep step, const JournalActionView& action);
Bytes JournalClosed(std::uint32_t window);
// The last record of all: nobody wants what the journal holds.
Bytes JournalDeclined();

// --- Reading ---

// A window as the journal leaves it.
struct JournalLeft {
  JournalWindow base;  // as it began, or was saved last
  Bytes image;         // as it was at the end
  // What leads from the one to the other, action by action; nothing when `as_one`, since what was done before the last
  // save has been taken back.
  std::vector<JournalAction> actions;
  bool as_one = false;

  bool Changed() const;
};

struct JournalRecordLeft {
  JournalRecord base;
  Bytes bytes;
  bool changed = false;
};

struct JournalContent {
  std::map<std::uint32_t, JournalLeft> windows;  // that were open at the end
  std::map<JournalThing, JournalRecordLeft> records;
  std::size_t read = 0;  // so many bytes of the file are good
};

// None for what is no journal, or one of another version.
std::optional<JournalContent> ReadJournal(std::string_view file);

// The same content as one action for each window, in as few bytes as that takes.
Bytes RewriteJournal(const JournalContent& content);

// The piece that makes the one of the other; none when they are the same.
std::optional<JournalPiece> JournalDifference(JournalPlace place, std::string_view before, std::string_view after);

// All that leads from the window's beginning to its end, as one action.
JournalAction NetAction(const JournalLeft& left, std::int64_t number);

// Puts the pieces of a place into its bytes; false where they don't fit, and then only those before are put.
bool PutPieces(const JournalAction& action, JournalPlace place, Bytes& bytes);

}  // namespace zentaline
