#include "core/journal_format.h"

#include <zlib.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

#include "base/crc.h"
#include "core/window_image.h"

namespace zentaline {

namespace {

constexpr std::string_view kMagic = "Zentaline journal";
constexpr char kVersion = 1;

constexpr std::size_t kHeadLength = 8;     // of a record: its length and its check sum
constexpr std::size_t kUsualLength = 256;  // most are shorter

// Of a record; nothing that the program keeps is near it.
constexpr std::size_t kLongest = std::size_t{1} << 28;

constexpr char kHead = 'H';
constexpr char kWindow = 'W';
constexpr char kRecord = 'R';
constexpr char kClosed = 'X';
constexpr char kDeclined = 'N';

constexpr int kQuickly = 1;  // zlib's level

class Out {
 public:
  explicit Out(char type) : bytes_(kHeadLength, '\0') {
    bytes_.reserve(kUsualLength);
    bytes_ += type;
  }

  void Byte(int value) { bytes_ += static_cast<char>(value); }
  void Number(std::uint64_t value, int length) {
    char low_first[sizeof value];
    if constexpr (std::endian::native == std::endian::little) {
      std::memcpy(low_first, &value, sizeof value);
    } else {
      for (std::size_t i = 0; i < sizeof value; ++i) low_first[i] = static_cast<char>(value >> (8 * i) & 0xFF);
    }
    bytes_.append(low_first, static_cast<std::size_t>(length));
  }
  void Text(std::string_view text) {
    Number(text.size(), 4);
    bytes_ += text;
  }
  void Place(JournalPlace place) {
    Byte(static_cast<int>(place.thing));
    Number(place.window, 4);
  }
  void Packed(const Bytes& bytes) {
    uLongf length = compressBound(static_cast<uLong>(bytes.size()));
    Bytes packed(length, '\0');
    compress2(reinterpret_cast<Bytef*>(packed.data()), &length, reinterpret_cast<const Bytef*>(bytes.data()),
              static_cast<uLong>(bytes.size()), kQuickly);
    Number(bytes.size(), 4);
    Text(std::string_view(packed).substr(0, length));
  }

  Bytes Done() {
    const std::string_view content = std::string_view(bytes_).substr(kHeadLength);
    const std::uint32_t check = Crc32(content);
    for (std::size_t i = 0; i < 4; ++i) {
      bytes_[i] = static_cast<char>(content.size() >> (8 * i) & 0xFF);
      bytes_[4 + i] = static_cast<char>(check >> (8 * i) & 0xFF);
    }
    return std::move(bytes_);
  }

 private:
  Bytes bytes_;
};

// Reading behind the end gives nothing, and makes it bad.
class In {
 public:
  explicit In(std::string_view bytes) : left_(bytes) {}

  std::string_view Take(std::size_t length) {
    if (length > left_.size()) {
      good_ = false;
      left_ = {};
      return {};
    }
    const std::string_view taken = left_.substr(0, length);
    left_.remove_prefix(length);
    return taken;
  }
  std::uint64_t Number(int length) {
    const std::string_view bytes = Take(static_cast<std::size_t>(length));
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
  }
  int Byte() { return static_cast<int>(Number(1)); }
  bool Flag() { return Byte() == 1; }
  std::string Text() { return std::string(Take(static_cast<std::size_t>(Number(4)))); }
  JournalPlace Place() {
    const int thing = Byte();
    if (thing > static_cast<int>(JournalThing::kPrgRecord)) good_ = false;
    return {static_cast<JournalThing>(thing), static_cast<std::uint32_t>(Number(4))};
  }
  // A count that can't be, since each of them has at least a byte.
  std::size_t Count() {
    const auto count = static_cast<std::size_t>(Number(4));
    if (count <= left_.size()) return count;
    good_ = false;
    return 0;
  }
  Bytes Packed() {
    auto length = static_cast<uLongf>(Number(4));
    const std::string_view packed = Take(static_cast<std::size_t>(Number(4)));
    // No byte of zlib's stands for more than some thousand.
    if (!good_ || length > kLongest || length / 1100 > packed.size()) {
      good_ = false;
      return {};
    }
    Bytes bytes(length, '\0');
    const uLongf wanted = length;
    const int result = uncompress(reinterpret_cast<Bytef*>(bytes.data()), &length,
                                  reinterpret_cast<const Bytef*>(packed.data()), static_cast<uLong>(packed.size()));
    if (result != Z_OK || length != wanted) good_ = false;
    return good_ ? bytes : Bytes();
  }
  bool Done() const { return good_ && left_.empty(); }

 private:
  std::string_view left_;
  bool good_ = true;
};

void PutFile(Out& out, const JournalFile& file) {
  out.Text(file.extension);
  out.Byte(file.mark.there ? 1 : 0);
  out.Number(file.mark.length, 8);
  out.Number(file.mark.check, 4);
}

JournalFile TakeFile(In& in) {
  JournalFile file;
  file.extension = in.Text();
  file.mark.there = in.Flag();
  file.mark.length = static_cast<std::size_t>(in.Number(8));
  file.mark.check = static_cast<std::uint32_t>(in.Number(4));
  return file;
}

JournalWindow TakeWindow(In& in) {
  JournalWindow window;
  window.window = static_cast<std::uint32_t>(in.Number(4));
  window.kind = in.Byte();
  window.number = in.Byte();
  window.read_only = in.Flag();
  window.has_file = in.Flag();
  window.whole = in.Flag();
  window.path = in.Text();
  for (std::size_t left = in.Count(); left > 0; --left) window.files.push_back(TakeFile(in));
  window.image = in.Packed();
  return window;
}

JournalRecord TakeRecord(In& in) {
  JournalRecord record;
  record.thing =
      in.Byte() == static_cast<int>(JournalThing::kPrgRecord) ? JournalThing::kPrgRecord : JournalThing::kArrRecord;
  record.window = static_cast<std::uint32_t>(in.Number(4));
  record.changed = in.Flag();
  record.bytes = in.Packed();
  return record;
}

JournalAction TakeAction(In& in) {
  JournalAction action;
  action.number = static_cast<std::int64_t>(in.Number(8));
  action.what = in.Text();
  action.of = in.Text();
  action.name = in.Text();
  for (std::size_t left = in.Count(); left > 0; --left) {
    JournalPiece piece;
    piece.place = in.Place();
    piece.position = static_cast<std::size_t>(in.Number(4));
    piece.before = in.Text();
    piece.after = in.Text();
    action.pieces.push_back(std::move(piece));
  }
  for (std::size_t left = in.Count(); left > 0; --left) {
    JournalMark mark;
    mark.place = in.Place();
    mark.position = static_cast<std::size_t>(in.Number(4));
    mark.before = in.Byte();
    mark.after = in.Byte();
    action.marks.push_back(mark);
  }
  return action;
}

// What the piece leaves as it was needn't be there: it may have been set aside in between, as a bank's channel.
bool Fits(const JournalPiece& piece, const Bytes& bytes) {
  const std::size_t length = piece.before.size();
  if (piece.position < 1 || piece.position - 1 > bytes.size() || length > bytes.size() - (piece.position - 1)) {
    return false;
  }
  const char* const place = bytes.data() + (piece.position - 1);
  for (std::size_t i = 0; i < length; ++i) {
    const bool stays = length == piece.after.size() && piece.before[i] == piece.after[i];
    if (!stays && place[i] != piece.before[i]) return false;
  }
  return true;
}

bool PutPiece(const JournalPiece& piece, Bytes& bytes) {
  if (!Fits(piece, bytes)) return false;
  if (piece.before.size() != piece.after.size()) {
    bytes.replace(piece.position - 1, piece.before.size(), piece.after);
    return true;
  }
  for (std::size_t i = 0; i < piece.after.size(); ++i) {
    if (piece.before[i] != piece.after[i]) bytes[piece.position - 1 + i] = piece.after[i];
  }
  return true;
}

JournalPiece Reversed(JournalPiece piece) {
  std::swap(piece.before, piece.after);
  return piece;
}

JournalAction Reversed(JournalAction action) {
  std::reverse(action.pieces.begin(), action.pieces.end());
  for (JournalPiece& piece : action.pieces) std::swap(piece.before, piece.after);
  for (JournalMark& mark : action.marks) std::swap(mark.before, mark.after);
  return action;
}

// The windows that an action changed bytes of.
std::vector<std::uint32_t> WindowsOf(const JournalAction& action) {
  std::vector<std::uint32_t> windows;
  for (const JournalPiece& piece : action.pieces) {
    if (piece.place.thing == JournalThing::kWindow) windows.push_back(piece.place.window);
  }
  std::sort(windows.begin(), windows.end());
  windows.erase(std::unique(windows.begin(), windows.end()), windows.end());
  return windows;
}

// The door lets nothing else through: of a window's control bytes those that are marks, and what stands behind the
// path.
bool CanBe(const JournalAction& action) {
  return std::all_of(action.pieces.begin(), action.pieces.end(),
                     [](const JournalPiece& piece) {
                       return piece.place.thing != JournalThing::kWindow || piece.position > kWindowPrefixLength;
                     }) &&
         std::all_of(action.marks.begin(), action.marks.end(), [](const JournalMark& mark) {
           return mark.place.thing != JournalThing::kWindow || mark.position <= kControlLength;
         });
}

bool Touches(const JournalAction& action, JournalPlace place) {
  return std::any_of(action.pieces.begin(), action.pieces.end(),
                     [&](const JournalPiece& piece) { return piece.place == place; });
}

std::string_view BehindMarks(const Bytes& image) {
  return std::string_view(image).substr(std::min(image.size(), kWindowPrefixLength));
}

// What is read becomes what is left, record by record.
class Replay {
 public:
  explicit Replay(JournalContent& content) : content_(content) {}

  // False for a record that makes no sense: nothing behind it would fit.
  bool Do(std::string_view record) {
    In in(record.substr(1));
    switch (record.front()) {
      case kWindow: {
        JournalWindow window = TakeWindow(in);
        return TakeUp(std::move(window), in.Done());
      }
      case kRecord: {
        JournalRecord taken = TakeRecord(in);
        return TakeUp(std::move(taken), in.Done());
      }
      case kClosed: {
        const auto window = static_cast<std::uint32_t>(in.Number(4));
        if (in.Done()) content_.windows.erase(window);
        return in.Done();
      }
      case kDeclined:
        return in.Done();
      case static_cast<char>(JournalStep::kDone):
      case static_cast<char>(JournalStep::kTakenBack):
      case static_cast<char>(JournalStep::kBroughtForth): {
        const JournalAction action = TakeAction(in);
        return in.Done() && CanBe(action) && Step(static_cast<JournalStep>(record.front()), action);
      }
      default:
        return false;
    }
  }

 private:
  bool TakeUp(JournalWindow window, bool good) {
    if (!good) return false;
    JournalLeft& left = content_.windows[window.window];
    left = {};
    if (last_ && Touches(*last_, {JournalThing::kWindow, window.window})) last_.reset();
    left.image = window.image;
    left.base = std::move(window);
    return true;
  }

  bool TakeUp(JournalRecord record, bool good) {
    if (!good) return false;
    JournalRecordLeft& left = content_.records[record.thing];
    if (last_ && Touches(*last_, {record.thing, 0})) last_.reset();
    left.bytes = record.bytes;
    left.changed = record.changed;
    left.base = std::move(record);
    return true;
  }

  Bytes* BytesOf(JournalPlace place) {
    if (place.thing != JournalThing::kWindow) {
      const auto found = content_.records.find(place.thing);
      return found == content_.records.end() ? nullptr : &found->second.bytes;
    }
    const auto found = content_.windows.find(place.window);
    return found == content_.windows.end() ? nullptr : &found->second.image;
  }

  void SetMark(const JournalMark& mark, int value) {
    if (mark.place.thing == JournalThing::kWindow) {
      if (Bytes* bytes = BytesOf(mark.place)) PutByte(*bytes, mark.position, value);
    } else if (const auto found = content_.records.find(mark.place.thing); found != content_.records.end()) {
      found->second.changed = value != 0;
    }
  }

  // All of it or nothing.
  bool Apply(const JournalAction& action) {
    for (std::size_t i = 0; i < action.pieces.size(); ++i) {
      Bytes* bytes = BytesOf(action.pieces[i].place);
      if (bytes != nullptr && PutPiece(action.pieces[i], *bytes)) continue;
      while (i-- > 0) PutPiece(Reversed(action.pieces[i]), *BytesOf(action.pieces[i].place));
      return false;
    }
    for (const JournalMark& mark : action.marks) SetMark(mark, mark.after);
    return true;
  }

  bool Step(JournalStep step, const JournalAction& action) {
    if (step == JournalStep::kDone && last_ && last_->number == action.number) {
      // The hand has gone on: what was told of it before is part of this.
      if (!Apply(Reversed(*last_))) return false;
      if (!Apply(action)) return Apply(*last_), false;
      for (const std::uint32_t window : WindowsOf(*last_)) TakeOff(window, action.number);
    } else if (!Apply(action)) {
      return false;
    }
    last_.reset();
    for (const std::uint32_t window : WindowsOf(action)) Note(window, step, action);
    if (step == JournalStep::kDone) last_ = action;
    return true;
  }

  void Note(std::uint32_t window, JournalStep step, const JournalAction& action) {
    JournalLeft& left = content_.windows[window];
    if (left.as_one) return;
    if (step != JournalStep::kTakenBack) {
      left.actions.push_back(action);
    } else if (!TakeOff(window, action.number)) {
      // It was done before the window was saved.
      left.as_one = true;
      left.actions.clear();
    }
  }

  bool TakeOff(std::uint32_t window, std::int64_t number) {
    std::vector<JournalAction>& actions = content_.windows[window].actions;
    if (actions.empty() || actions.back().number != number) return false;
    actions.pop_back();
    return true;
  }

  JournalContent& content_;
  std::optional<JournalAction> last_;
};

std::uint32_t NumberAt(std::string_view bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[offset + i]);
  return value;
}

// The content of the record at the beginning; empty when there is none that is whole and right.
std::string_view NextRecord(std::string_view file) {
  if (file.size() <= kHeadLength) return {};
  const std::size_t length = NumberAt(file, 0);
  if (length == 0 || length > kLongest || length > file.size() - kHeadLength) return {};
  const std::string_view content = file.substr(kHeadLength, length);
  return Crc32(content) == NumberAt(file, 4) ? content : std::string_view();
}

template <class Text>
Bytes ActionBytes(JournalStep step, const JournalActionOf<Text>& action) {
  Out out(static_cast<char>(step));
  out.Number(static_cast<std::uint64_t>(action.number), 8);
  for (const Text* text : {&action.what, &action.of, &action.name}) out.Text(*text);
  out.Number(action.pieces.size(), 4);
  for (const JournalPieceOf<Text>& piece : action.pieces) {
    out.Place(piece.place);
    out.Number(piece.position, 4);
    out.Text(piece.before);
    out.Text(piece.after);
  }
  out.Number(action.marks.size(), 4);
  for (const JournalMark& mark : action.marks) {
    out.Place(mark.place);
    out.Number(mark.position, 4);
    out.Byte(mark.before);
    out.Byte(mark.after);
  }
  return out.Done();
}

}  // namespace

Bytes JournalHead() {
  Out out(kHead);
  out.Text(kMagic);
  out.Byte(kVersion);
  return out.Done();
}

Bytes JournalBytes(const JournalWindow& window) {
  Out out(kWindow);
  out.Number(window.window, 4);
  out.Byte(window.kind);
  out.Byte(window.number);
  out.Byte(window.read_only ? 1 : 0);
  out.Byte(window.has_file ? 1 : 0);
  out.Byte(window.whole ? 1 : 0);
  out.Text(window.path);
  out.Number(window.files.size(), 4);
  for (const JournalFile& file : window.files) PutFile(out, file);
  out.Packed(window.image);
  return out.Done();
}

Bytes JournalBytes(const JournalRecord& record) {
  Out out(kRecord);
  out.Byte(static_cast<int>(record.thing));
  out.Number(record.window, 4);
  out.Byte(record.changed ? 1 : 0);
  out.Packed(record.bytes);
  return out.Done();
}

Bytes JournalBytes(JournalStep step, const JournalAction& action) {
  return ActionBytes(step, action);
}

Bytes JournalBytes(JournalStep step, const JournalActionView& action) {
  return ActionBytes(step, action);
}

Bytes JournalClosed(std::uint32_t window) {
  Out out(kClosed);
  out.Number(window, 4);
  return out.Done();
}

Bytes JournalDeclined() {
  return Out(kDeclined).Done();
}

std::optional<JournalContent> ReadJournal(std::string_view file) {
  const Bytes head = JournalHead();
  if (!file.starts_with(head)) return std::nullopt;
  JournalContent content;
  content.read = head.size();
  Replay replay(content);
  for (;;) {
    const std::string_view record = NextRecord(file.substr(content.read));
    if (record.empty()) break;
    if (!replay.Do(record)) break;
    content.read += kHeadLength + record.size();
  }
  return content;
}

std::optional<JournalPiece> JournalDifference(JournalPlace place, std::string_view before, std::string_view after) {
  if (before == after) return std::nullopt;
  const std::size_t shorter = std::min(before.size(), after.size());
  std::size_t head = 0;
  while (head < shorter && before[head] == after[head]) ++head;
  std::size_t tail = 0;
  while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
  return JournalPiece{place, head + 1, Bytes(before.substr(head, before.size() - head - tail)),
                      Bytes(after.substr(head, after.size() - head - tail))};
}

JournalAction NetAction(const JournalLeft& left, std::int64_t number) {
  JournalAction action;
  action.number = number;
  const JournalPlace place{JournalThing::kWindow, left.base.window};
  for (std::size_t position = 1; position <= kControlLength; ++position) {
    const int before = ByteAt(left.base.image, position);
    const int after = ByteAt(left.image, position);
    if (before != after) action.marks.push_back({place, position, before, after});
  }
  if (auto piece = JournalDifference(place, BehindMarks(left.base.image), BehindMarks(left.image))) {
    piece->position += kWindowPrefixLength;
    action.pieces.push_back(std::move(*piece));
  }
  return action;
}

bool JournalLeft::Changed() const {
  return base.whole || (as_one ? BehindMarks(image) != BehindMarks(base.image) : !actions.empty());
}

bool PutPieces(const JournalAction& action, JournalPlace place, Bytes& bytes) {
  return std::all_of(action.pieces.begin(), action.pieces.end(),
                     [&](const JournalPiece& piece) { return piece.place != place || PutPiece(piece, bytes); });
}

Bytes RewriteJournal(const JournalContent& content) {
  Bytes file = JournalHead();
  std::int64_t number = 0;
  for (const auto& [id, left] : content.windows) {
    file += JournalBytes(left.base);
    if (left.base.image == left.image) continue;
    const JournalAction action = NetAction(left, --number);
    file += JournalBytes(JournalStep::kDone, action);
  }
  for (const auto& [thing, left] : content.records) {
    file += JournalBytes(left.base);
    JournalAction action;
    action.number = --number;
    if (const auto piece = JournalDifference({thing, 0}, left.base.bytes, left.bytes)) action.pieces.push_back(*piece);
    if (left.changed != left.base.changed) {
      action.marks.push_back({{thing, 0}, 0, left.base.changed ? 1 : 0, left.changed ? 1 : 0});
    }
    if (!action.pieces.empty() || !action.marks.empty()) file += JournalBytes(JournalStep::kDone, action);
  }
  return file;
}

}  // namespace zentaline
