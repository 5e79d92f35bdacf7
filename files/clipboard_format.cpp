#include "files/clipboard_format.h"

#include <algorithm>
#include <array>

#include "arrangement/arr_format.h"
#include "core/window_image.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

// Of a row's text: the number, and where the name begins. An arrangement with a style of its file has a mark there.
constexpr std::size_t kRowNumberLength = 2;
constexpr std::size_t kRowStyleMark = 3;
constexpr std::size_t kRowNameOffset = 4;

constexpr int kBankRows = 64;
constexpr std::size_t kProgramBankTable = 30;  // over the rows of the bank, which nobody reads there

struct KindRow {
  int first_kind;
  int last_kind;
  ItemTable table;
};

// A position of 0 stands for a table at the image's end.
constexpr KindRow kKinds[] = {
    {kKindArrA, kKindArrB, {ItemFamily::kArrangements, kArrImageRowTablePosition, kBankRows, false}},
    {kKindPrgA, kKindPrgE, {ItemFamily::kPrograms, kProgramBankTable, kBankRows, false}},
    {kKindDrum, kKindPercussion, {ItemFamily::kPrograms, 0, kBankRows, false}},
    {kKindArr, kKindNewArr, {ItemFamily::kArrangements, kArrImageRowTablePosition, kArrRecordCount, true}},
    {kKindPrg, kKindNewPrg, {ItemFamily::kPrograms, kPrgImageRowTablePosition, kPrgRecordCount, true}},
    {kKindSty, kKindNewSty, {ItemFamily::kStyles, kStyRowTablePosition, kStyRowCount, true}},
};

// What a program of the instrument's becomes: a link to its bank.
struct LinkRow {
  int kind;
  int bank_code;
  int first_number;
};
constexpr LinkRow kLinks[] = {
    {kKindPrgA, 0, 0}, {kKindPrgB, 0, 64}, {kKindPrgC, 1, 0},       {kKindPrgD, 1, 64},
    {kKindPrgE, 2, 0}, {kKindDrum, 4, 0},  {kKindPercussion, 4, 0},
};

const LinkRow* LinkOf(int kind) {
  const auto* found =
      std::find_if(std::begin(kLinks), std::end(kLinks), [kind](auto& row) { return row.kind == kind; });
  return found == std::end(kLinks) ? nullptr : found;
}

std::size_t MarkPosition(const ItemTable& table, int row) {
  return row < 0 || row >= table.rows ? 0 : table.position + kRowTableRowLength * static_cast<std::size_t>(row);
}

std::vector<int> MarkedRows(std::string_view image) {
  const ItemTable table = ItemTableOf(image);
  std::vector<int> marked;
  marked.reserve(static_cast<std::size_t>(table.rows));
  for (int row = 0; row < table.rows; ++row) {
    if (ByteAt(image, MarkPosition(table, row)) == 1) marked.push_back(row);
  }
  return marked;
}

// The table's bytes; a row of them begins at RowOffset, with its mark.
Bytes TableBytes(std::string_view image) {
  const ItemTable table = ItemTableOf(image);
  return Slice(image, table.position, kRowTableRowLength * static_cast<std::size_t>(table.rows));
}

std::size_t RowOffset(int row) {
  return kRowTableRowLength * static_cast<std::size_t>(row);
}

// Where the items of arrangements and programs go, row after row.
class TargetRows {
 public:
  explicit TargetRows(const PasteTarget& target)
      : selected_(target.selected),
        row_(selected_.empty() ? std::max(target.focus_row, 0)
                               : *std::min_element(selected_.begin(), selected_.end())) {}

  int row() const { return row_; }
  void Next() { ++row_; }
  // Behind the last row, or outside of a selection of several rows.
  bool Ended() const {
    if (row_ >= kArrRecordCount) return true;
    return selected_.size() > 1 && std::find(selected_.begin(), selected_.end(), row_) == selected_.end();
  }

 private:
  const std::vector<int>& selected_;
  int row_;
};
static_assert(kArrRecordCount == kPrgRecordCount);

// --- The style part of a target ---

// The sizes of all styles, as the table has them.
std::size_t StylesLength(std::string_view styles) {
  std::size_t length = 0;
  for (int e = 0; e < kStyEntryCount; ++e) length += static_cast<std::size_t>(StyEntrySize(e, styles));
  return length;
}

bool HasStyle(int entry, std::string_view styles) {
  return entry < kStyEntryCount && StyEntryPos(entry, styles) != 0 && StyEntrySize(entry, styles) != 0;
}

// The style part of an image, changed where it stands.
class TargetStyles {
 public:
  TargetStyles(Bytes& image, std::string_view empty_style)
      : image_(image), base_(StyGroupBase(image)), empty_style_(empty_style) {}

  std::string_view styles() const { return StylePart(image_); }
  bool HasTemplate() const { return empty_style_.size() >= kStyHeaderLength; }
  bool changed() const { return changed_; }

  // Makes room for `more` bytes at once, so that what is there moves once.
  void Expect(std::size_t more) { image_.reserve(image_.size() + more); }

  // Attaches the template to an image without styles; false when there is no template either.
  bool MakeReady() {
    if (styles().size() >= kStyHeaderLength) return true;
    if (!HasTemplate()) return false;
    AttachStyles(image_, empty_style_, 1);
    changed_ = true;
    return true;
  }
  StyPutResult Paste(int& mode, int source_entry, std::string_view source, int& place) {
    return Put(mode, source_entry, source, place);
  }
  StyPutResult Cut(int entry) {
    int mode = 1;
    return Put(mode, 0, {}, entry);
  }

 private:
  // What a damaged file doesn't hold of its styles is zero.
  StyPutResult Put(int& mode, int source_entry, std::string_view source, int& place) {
    const std::size_t before = image_.size();
    const std::size_t whole = base_ - 1 + kStyHeaderLength + StylesLength(styles());
    if (before >= base_ - 1 && before < whole) image_.resize(whole, '\0');
    const StyPutResult result = StyPutEntryAt(mode, source_entry, source, place, image_, base_, empty_style_);
    if (result == kStyPutDone) {
      changed_ = true;
      PutByte(image_, kStyChangedPosition, 1);
    } else {
      image_.resize(before);
    }
    return result;
  }

  Bytes& image_;
  std::size_t base_;
  std::string_view empty_style_;
  bool changed_ = false;
};

void NoteOnce(ItemsDone& done, ItemNotice notice) {
  if (std::find(done.notices.begin(), done.notices.end(), notice) == done.notices.end()) done.notices.push_back(notice);
}

// --- Arrangements ---

bool UsesStyle(std::string_view row_text) {
  return row_text.size() > kRowStyleMark && row_text[kRowStyleMark] == '+';
}

enum class Carried { kDone, kRefused, kEnds };

constexpr int kLastStyleAsked = 16;  // one more than there are; it has no size, and ends the paste by that
constexpr int kByName = 100;         // the destination that looks for a style of the same name, then for a free place

// The styles of a paste's arrangements, and where those went that were placed already.
struct Carrying {
  std::string_view clipboard;
  TargetStyles styles;
  std::array<int, kLastStyleAsked + 1> places;  // -1: not placed yet
};

// The place in the target of the record's style, found by its name or taken anew.
Carried PlaceStyle(Carrying& carrying, int entry, Bytes& image, int& place, ItemsDone& done) {
  const std::string_view source = StylePart(carrying.clipboard);
  int mode = 0;  // it answers in the mode, which is a paste's for each row anew
  place = kByName;
  switch (carrying.styles.Paste(mode, entry, source, place)) {
    case kStyPutDone:
      PutByte(image, kStyStatePosition, 2);
      return Carried::kDone;
    case kStyPutKnown:
      place = mode;
      return Carried::kDone;
    case kStyPutNoPlace:
      done.notices.push_back(ItemNotice::kNoPlace);
      return Carried::kRefused;
    default:
      done.notices.push_back(ItemNotice::kTooLong);
      return Carried::kRefused;
  }
}

// The style of a record goes along, and the record names the place that it has in the target.
Carried CarryStyle(Carrying& carrying, Bytes& record, Bytes& image, ItemsDone& done) {
  const int entry = ByteAt(record, arr_record::kStyleNumber + 1);
  if (entry > kLastStyleAsked) return Carried::kEnds;
  if (ByteAt(carrying.clipboard, kStyStatePosition) == 0) {
    done.notices.push_back(ItemNotice::kStylesAbsent);
    return Carried::kEnds;
  }
  if (StyEntrySize(entry, StylePart(carrying.clipboard)) == 0) return Carried::kEnds;
  if (!carrying.styles.MakeReady()) {
    NoteOnce(done, ItemNotice::kNoTemplate);
    return Carried::kRefused;
  }
  int& kept = carrying.places[static_cast<std::size_t>(entry)];
  int place = kept;
  if (place < 0) {
    if (const Carried carried = PlaceStyle(carrying, entry, image, place, done); carried != Carried::kDone) {
      return carried;
    }
    // It is found there again by its name. An empty one stands on a free place, which the next style may take, and
    // what a damaged file shows behind its last style has no place at all.
    const std::string_view name = StyEntryName(entry, StylePart(carrying.clipboard));
    const bool stays = !name.empty() && name != kStyEmptyName && HasStyle(place, carrying.styles.styles());
    if (stays) kept = place;
  }
  PutByte(record, arr_record::kStyleNumber + 1, place);
  PutByte(record, arr_record::kStyleLocation + 1, kUserStyleLocation);
  return Carried::kDone;
}

ItemsDone PasteArrangements(std::string_view clipboard, Bytes& image, const PasteTarget& rows,
                            std::string_view empty_style) {
  ItemsDone done;
  Carrying carrying{clipboard, {image, empty_style}, {}};
  carrying.places.fill(-1);
  carrying.styles.Expect(empty_style.size() + StylePart(clipboard).size());
  TargetRows target(rows);
  for (const int row : MarkedRows(clipboard)) {
    const Bytes text = ItemRowText(clipboard, row);
    if (target.Ended() || !ShowsItem(ItemFamily::kArrangements, row, text)) break;
    Bytes record = Slice(clipboard, ArrRecordPosition(row), kArrRecordLength);
    const Carried carried = UsesStyle(text) ? CarryStyle(carrying, record, image, done) : Carried::kDone;
    if (carried == Carried::kEnds) break;
    if (carried == Carried::kRefused) continue;
    PutBytes(image, ArrRecordPosition(target.row()), record);
    done.rows.push_back(target.row());
    target.Next();
  }
  if (!done.rows.empty()) {
    PutByte(image, kArrImageMarkPosition, kArrImageMark);
    PutByte(image, kChangedPosition, 1);
  }
  done.styles_changed = carrying.styles.changed();
  done.changed = done.styles_changed || !done.rows.empty();
  return done;
}

// Whether a record that isn't this one has the same number at offset 17. Records that were never written have 0 there,
// and a factory style's number counts like a user style's: that is wanted.
bool IsStyleShared(std::string_view image, int row) {
  const auto number = [image](int r) { return ByteAt(image, ArrRecordPosition(r) + arr_record::kStyleNumber); };
  for (int other = 0; other < kArrRecordCount; ++other) {
    if (other != row && number(other) == number(row)) return true;
  }
  return false;
}

// The empty style takes the place of an entry that is there. True when it did.
bool CutStyle(TargetStyles& target, int entry, ItemsDone& done) {
  if (!HasStyle(entry, target.styles())) return false;
  if (!target.HasTemplate()) {
    NoteOnce(done, ItemNotice::kNoTemplate);
    return false;
  }
  const StyPutResult result = target.Cut(entry);
  if (result == kStyPutTooLong) done.notices.push_back(ItemNotice::kTooLong);
  return result == kStyPutDone;
}

void CutStyleOf(int row, Bytes& image, TargetStyles& target, ItemsDone& done) {
  if (IsStyleShared(image, row)) return;
  if (ByteAt(image, kStyStatePosition) == 0) {
    done.notices.push_back(ItemNotice::kStylesAbsent);
    return;
  }
  const int entry = ByteAt(image, ArrRecordPosition(row) + arr_record::kStyleNumber);
  if (CutStyle(target, entry, done)) done.cut_styles.push_back(entry);
}

bool IsStyleLeft(std::string_view image) {
  if (ByteAt(image, kStyStatePosition) == 0) return false;
  const std::string_view styles = StylePart(image);
  for (int entry = 0; entry < kStyEntryCount; ++entry) {
    if (HasStyle(entry, styles) && StyEntryName(entry, styles) != kStyEmptyName) return true;
  }
  return false;
}

ItemsDone CutArrangements(Bytes& image, std::string_view empty_style) {
  ItemsDone done;
  TargetStyles styles(image, empty_style);
  for (const int row : MarkedRows(image)) {
    if (UsesStyle(ItemRowText(image, row))) CutStyleOf(row, image, styles, done);
    PutBytes(image, ArrRecordPosition(row), Bytes(kArrRecordLength, '\0'));
    PutByte(image, kChangedPosition, 1);
    done.rows.push_back(row);
  }
  if (done.rows.empty()) return done;
  done.changed = true;
  done.styles_changed = styles.changed();
  if (!IsStyleLeft(image)) PutByte(image, kStyStatePosition, 0);
  return done;
}

// --- Programs ---

// A record that refers to a program of the instrument; its name is the bank's own, which its row shows.
Bytes LinkRecord(const LinkRow& link, int row, std::string_view row_text) {
  Bytes record(kPrgRecordLength, '\0');
  PutByte(record, program_link::kMark, 1);
  PutByte(record, program_link::kBankCode, link.bank_code);
  PutByte(record, program_link::kNumber, link.first_number + row);
  PutBytes(record, program_link::kName, row_text.substr(kRowNameOffset));
  return record;
}

ItemsDone PastePrograms(std::string_view clipboard, Bytes& image, const PasteTarget& rows) {
  ItemsDone done;
  const LinkRow* link = LinkOf(ByteAt(clipboard, kKindPosition));
  TargetRows target(rows);
  for (const int row : MarkedRows(clipboard)) {
    const Bytes text = ItemRowText(clipboard, row);
    if (target.Ended() || !ShowsItem(ItemFamily::kPrograms, row, text)) break;
    PutBytes(image, ProgramPosition(target.row()),
             link != nullptr ? LinkRecord(*link, row, text) : Slice(clipboard, ProgramPosition(row), kPrgRecordLength));
    done.rows.push_back(target.row());
    target.Next();
  }
  if (done.rows.empty()) return done;
  PutByte(image, kPrgChangedPosition, 1);
  DecideProgramFormat(image);
  done.changed = true;
  return done;
}

bool IsProgramLeft(std::string_view image) {
  for (int n = 0; n < kPrgRecordCount; ++n) {
    if (ByteAt(image, ProgramPosition(n)) != 0) return true;
  }
  return false;
}

ItemsDone CutPrograms(Bytes& image) {
  ItemsDone done;
  for (const int row : MarkedRows(image)) {
    PutBytes(image, ProgramPosition(row), Bytes(kPrgRecordLength, '\0'));
    done.rows.push_back(row);
  }
  if (done.rows.empty()) return done;
  PutByte(image, kPrgChangedPosition, 1);
  if (!IsProgramLeft(image)) PutByte(image, kPrgAttachedPosition, 0);
  DecideProgramFormat(image);
  done.changed = true;
  return done;
}

// --- Styles ---

// The rows in front of the first selected one, gaps apart. A gap stands for the entry behind it.
int FirstStyleEntry(const PasteTarget& target) {
  if (target.selected.empty()) return 0;
  const int first = *std::min_element(target.selected.begin(), target.selected.end());
  int entry = 0;
  for (int row = 0; row < first; ++row) entry += StyRowEntry(row) >= 0 ? 1 : 0;
  return entry;
}

ItemsDone PasteStyles(std::string_view clipboard, Bytes& image, const PasteTarget& target) {
  ItemsDone done;
  const std::string_view source = StylePart(clipboard);
  TargetStyles styles(image, {});
  int place = FirstStyleEntry(target);
  for (const int row : MarkedRows(clipboard)) {
    const int entry = StyRowEntry(row);
    if (entry < 0) continue;
    // A style without bytes would hide all that stand behind it.
    if (place >= kStyEntryCount || StyEntrySize(entry, source) == 0) break;
    // So would a gap in front of the place: the style would be lost at saving.
    int mode = 0;
    const bool reachable = StyEntryPos(place, styles.styles()) != 0;
    switch (reachable ? styles.Paste(mode, entry, source, place) : kStyPutNoPlace) {
      case kStyPutDone:
        done.rows.push_back(StyEntryRow(place));
        break;
      case kStyPutTooLong:
        // Nothing has changed, and it counts as changed all the same; that is wanted.
        PutByte(image, kStyChangedPosition, 1);
        done.notices.push_back(ItemNotice::kTooLong);
        done.changed = true;
        break;
      default:
        done.notices.push_back(ItemNotice::kNoPlace);
        break;
    }
    ++place;
  }
  done.styles_changed = styles.changed();
  done.changed = done.changed || done.styles_changed;
  return done;
}

ItemsDone CutStyles(Bytes& image, std::string_view empty_style) {
  ItemsDone done;
  TargetStyles styles(image, empty_style);
  for (const int row : MarkedRows(image)) {
    const int entry = StyRowEntry(row);
    if (entry >= 0 && CutStyle(styles, entry, done)) done.rows.push_back(row);
  }
  // A group that would be too long counts as changed, as in a paste.
  const bool too_long = std::find(done.notices.begin(), done.notices.end(), ItemNotice::kTooLong) != done.notices.end();
  if (too_long) PutByte(image, kStyChangedPosition, 1);
  done.styles_changed = styles.changed();
  done.changed = done.styles_changed || too_long;
  return done;
}

}  // namespace

ItemTable ItemTableOf(std::string_view image) {
  const int kind = ByteAt(image, kKindPosition);
  for (const KindRow& row : kKinds) {
    if (kind < row.first_kind || kind > row.last_kind) continue;
    ItemTable table = row.table;
    if (table.position != 0) return table;
    if (image.size() < kRowTable64Length) return {};
    table.position = image.size() - kRowTable64Length + 1;
    return table;
  }
  return {};
}

bool FitsItems(std::string_view clipboard, std::string_view target) {
  const ItemTable table = ItemTableOf(target);
  return table.takes && table.family == ItemTableOf(clipboard).family;
}

bool IsMarked(std::string_view image, int row) {
  return ByteAt(image, MarkPosition(ItemTableOf(image), row)) == 1;
}

Bytes ItemRowText(std::string_view image, int row) {
  const std::size_t mark = MarkPosition(ItemTableOf(image), row);
  return mark == 0 ? Bytes(kRowTableTextLength, ' ') : Slice(image, mark + 1, kRowTableTextLength);
}

bool ShowsItem(ItemFamily family, int row, std::string_view text) {
  text = TrimRight(text);
  if (text.size() <= kRowNumberLength) return false;
  if (family != ItemFamily::kStyles) return family != ItemFamily::kNone;
  return StyRowEntry(row) >= 0 && text.substr(std::min(kRowNameOffset, text.size())) != kStyEmptyName;
}

bool BringsStyles(std::string_view clipboard) {
  const std::vector<int> rows = MarkedRows(clipboard);
  return ItemTableOf(clipboard).family == ItemFamily::kArrangements &&
         std::any_of(rows.begin(), rows.end(), [clipboard](int row) { return UsesStyle(ItemRowText(clipboard, row)); });
}

Bytes MarkedTable(std::string_view image, const std::vector<Bytes>& texts, const std::vector<int>& selected) {
  Bytes rows = TableBytes(image);
  for (std::size_t i = 0; i < texts.size() && kRowTableRowLength * i < rows.size(); ++i) {
    const int row = static_cast<int>(i);
    const bool marked = std::find(selected.begin(), selected.end(), row) != selected.end();
    PutByte(rows, RowOffset(row) + 1, marked ? 1 : 0);
    PutBytes(rows, RowOffset(row) + 2, Padded(texts[i], kRowTableTextLength));
  }
  return rows;
}

Bytes UnmarkedTable(std::string_view image) {
  const ItemTable table = ItemTableOf(image);
  Bytes rows = TableBytes(image);
  for (int row = 0; row < table.rows; ++row) {
    if (table.family == ItemFamily::kPrograms && IsMarked(image, row)) {
      PutBytes(rows, RowOffset(row) + 2, Bytes(kRowTableTextLength, ' '));
    }
    PutByte(rows, RowOffset(row) + 1, 0);
  }
  return rows;
}

ItemsDone PasteItems(std::string_view clipboard, Bytes& image, const PasteTarget& target,
                     std::string_view empty_style) {
  if (!FitsItems(clipboard, image)) return {};
  switch (ItemTableOf(image).family) {
    case ItemFamily::kArrangements:
      return PasteArrangements(clipboard, image, target, empty_style);
    case ItemFamily::kPrograms:
      return PastePrograms(clipboard, image, target);
    case ItemFamily::kStyles:
      return PasteStyles(clipboard, image, target);
    default:
      return {};
  }
}

ItemsDone CutItems(Bytes& image, std::string_view empty_style) {
  const ItemTable table = ItemTableOf(image);
  if (!table.takes) return {};
  switch (table.family) {
    case ItemFamily::kArrangements:
      return CutArrangements(image, empty_style);
    case ItemFamily::kPrograms:
      return CutPrograms(image);
    case ItemFamily::kStyles:
      return CutStyles(image, empty_style);
    default:
      return {};
  }
}

}  // namespace zentaline
