#include "core/edits.h"

#include <algorithm>
#include <cstring>

#include "core/application.h"
#include "core/child_window.h"
#include "core/edit_listener.h"
#include "core/window_image.h"
#include "files/api.h"
#include "record/arrangement_places.h"

namespace zentaline {

namespace {

using Thing = EditTarget::Thing;

// Differences that are no further apart are one piece. Records of a file that are put in one after the other differ at
// least in their names: together they are one.
constexpr std::size_t kGap = kArrRecordLength;
constexpr std::size_t kBlock = 64;
constexpr std::size_t kWord = 8;

// Of the newest pieces of an action, for one that is written again.
constexpr std::size_t kSearched = 8;

// The control bytes that change with what the user does; the others say which file it is.
constexpr std::size_t kMarks[] = {kChangedPosition,  kPrgAttachedPosition, kPrgChangedPosition,
                                  kStyStatePosition, kStyChangedPosition,  kPggPosition};

bool SameBlock(std::string_view a, std::string_view b, std::size_t at) {
  return std::memcmp(a.data() + at, b.data() + at, kBlock) == 0;
}

// Behind the last block that is the same in both. What comes after it was replaced as a whole.
std::size_t EndOfSame(std::string_view a, std::string_view b) {
  std::size_t end = std::min(a.size(), b.size()) / kBlock * kBlock;
  while (end > 0 && !SameBlock(a, b, end - kBlock)) end -= kBlock;
  return end;
}

std::size_t SameTail(std::string_view a, std::string_view b) {
  const auto [in_a, in_b] = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
  return static_cast<std::size_t>(in_a - a.rbegin());
}

bool Overlap(const EditChange& change, std::size_t position, std::size_t length) {
  return change.position < position + length && position < change.position + change.after.size();
}

// From `at` on, `end` when there is none; what is the same is passed over in words.
std::size_t NextDifference(std::string_view a, std::string_view b, std::size_t at, std::size_t end) {
  while (at + kWord <= end && std::memcmp(a.data() + at, b.data() + at, kWord) == 0) at += kWord;
  while (at < end && a[at] == b[at]) ++at;
  return at;
}

// Most changes are of one byte, which takes no call.
bool Same(std::string_view a, std::string_view b) {
  return a.size() == 1 && b.size() == 1 ? a[0] == b[0] : a == b;
}
void CopyTo(char* place, std::string_view bytes) {
  if (bytes.size() == 1) {
    *place = bytes[0];
  } else {
    std::copy(bytes.begin(), bytes.end(), place);
  }
}

// Only what the change made another: what lies between may have been set aside since, as a bank's channel. Another
// length is of bytes that were replaced.
void Replace(Bytes& bytes, std::size_t position, std::string_view old, std::string_view by) {
  if (position - 1 > bytes.size()) return;
  if (old.size() != by.size() || by.size() > bytes.size() - (position - 1)) {
    bytes.replace(position - 1, old.size(), by);
    return;
  }
  char* const place = bytes.data() + (position - 1);
  for (std::size_t i = 0; i < by.size(); ++i) {
    if (old[i] != by[i]) place[i] = by[i];
  }
}

// Whether taking it back or bringing it forth would change nothing.
bool SaysNothing(const EditAction& action) {
  return action.kind == EditAction::Kind::kUser && action.changes.empty() &&
         std::all_of(action.marks.begin(), action.marks.end(),
                     [](const auto& each) { return each.before == each.after; });
}

bool Touches(const EditAction& action, const std::vector<EditTarget>& targets) {
  return std::any_of(targets.begin(), targets.end(), [&](const EditTarget& target) {
    return (action.window != nullptr && target == ImageOf(*action.window)) ||
           std::any_of(action.changes.begin(), action.changes.end(),
                       [&](const EditChange& change) { return change.target == target; });
  });
}

std::size_t SizeOf(const EditAction& action) {
  std::size_t size = 0;
  for (const EditChange& change : action.changes) size += change.before.size() + change.after.size();
  return size;
}

}  // namespace

EditChange::EditChange(const EditTarget& of, std::size_t at, std::string_view old_bytes, std::string_view new_bytes)
    : target(of), position(at), before(old_bytes), after(new_bytes), changes_bytes(!Same(old_bytes, new_bytes)) {}

void EditChange::TakeNew(std::string_view bytes) {
  CopyTo(after.data(), bytes);
  changes_bytes = !Same(before, after);
}

bool EditAction::ChangesBytes() const {
  return std::any_of(changes.begin(), changes.end(), [](const auto& change) { return change.changes_bytes; });
}

// Its memory stays for the next one.
void EditAction::Clear() {
  kind = Kind::kUser;
  window = nullptr;
  words.what = words.of = {};
  words.name.clear();
  changes.clear();
  marks.clear();
  shown.clear();
  texts.clear();
  counted = false;
}

Bytes& Edits::BytesOf(const EditTarget& target) {
  switch (target.thing) {
    case Thing::kImage:
      return target.window->window_image_;
    case Thing::kArrEditRecord:
      return app_.arrangement.ArrEditRecord.value_;
    case Thing::kEditRecord:
      return app_.program.EditRecord.value_;
    case Thing::kDatabase:
      break;
  }
  return app_.arrangement.DBImage.value_;
}

bool& Edits::FlagOf(const EditTarget& record) {
  return record.thing == Thing::kEditRecord ? app_.program.ProgramChanged.value_
                                            : app_.arrangement.EditorChanged.value_;
}

void Edits::SetMark(const EditMark& mark, int value) {
  if (mark.target.thing == Thing::kImage) {
    zentaline::PutByte(BytesOf(mark.target), mark.position, value);
  } else {
    FlagOf(mark.target) = value != 0;
  }
}

// --- What the user does ---

void Edits::PutByte(const EditTarget& target, std::size_t position, int value, const EditWords& words) {
  Bytes& all = BytesOf(target);
  if (position < 1 || position > all.size()) return;
  char& place = all[position - 1];
  const char byte = static_cast<char>(value);
  if (place == byte) return;
  NoteSoon(target, position, {&place, 1}, {&byte, 1}, words);
  place = byte;
}

void Edits::Put(const EditTarget& target, std::size_t position, std::string_view bytes, const EditWords& words) {
  Bytes& all = BytesOf(target);
  if (position < 1 || position > all.size()) return;
  bytes = bytes.substr(0, all.size() - (position - 1));
  char* const place = all.data() + (position - 1);
  const std::string_view before(place, bytes.size());
  if (Same(before, bytes)) return;
  NoteSoon(target, position, before, bytes, words);
  CopyTo(place, bytes);
}

void Edits::Mark(ChildWindow& window, std::size_t position, int value) {
  const EditMark mark{ImageOf(window), position};
  NoteMark(mark, ByteAt(window.window_image_, position), value & 0xFF);
  SetMark(mark, value);
  NoteSet(mark, value != 0);
}

void Edits::Mark(const EditTarget& record, bool changed) {
  bool& flag = FlagOf(record);
  // As most often: it is set already, by bytes that have changed now too.
  if (flag && changed && bytes_changed_) return;
  NoteMark({record}, flag ? 1 : 0, changed ? 1 : 0);
  flag = changed;
  NoteSet({record}, changed);
}

// A mark that is taken away stands for what it is about as it is now.
void Edits::NoteSet(const EditMark& mark, bool set) {
  if (set) {
    if (!bytes_changed_ && std::find(set_.begin(), set_.end(), mark) == set_.end()) set_.push_back(mark);
  } else if (EditTally* tally = TallyOf(mark.target, mark.position)) {
    tally->Save(0);
    std::erase(set_, mark);
  }
}

// --- What is no action ---

void Edits::TakeImage(ChildWindow& window, Bytes image) {
  window.window_image_ = std::move(image);
  window.tallies_ = {};
  if (std::find(opened_.begin(), opened_.end(), &window) == opened_.end()) opened_.push_back(&window);
}

void Edits::TakeRecord(const EditTarget& record, Bytes bytes) {
  ForgetRecord(record);
  BytesOf(record) = std::move(bytes);
  if (listener_ != nullptr) listener_->Taken(record);
}

void Edits::ForgetRecord(const EditTarget& record) {
  Drop(record);
  TallyOf(record, 0)->Save(FlagOf(record) ? 1 : 0);
}

void Edits::TakeOver(const EditTarget& record, Bytes bytes) {
  BytesOf(record) = std::move(bytes);
  if (listener_ != nullptr) listener_->Taken(record);
}

void Edits::ForgetDatabase() {
  Drop(kDatabaseImage);
}

// Actions fit only as long as they find what they left.
void Edits::TakeDatabase(Bytes image) {
  Bytes& known = BytesOf(kDatabaseImage);
  if (known != image) Drop(kDatabaseImage);
  known = std::move(image);
}

void Edits::TakeGlobal(Bytes block) {
  app_.global.GlobalRecord.value_ = std::move(block);
}

void Edits::SetAside(ChildWindow& window, std::size_t position, int value) {
  zentaline::PutByte(window.window_image_, position, value);
}

void Edits::SetPath(ChildWindow& window, std::string_view path) {
  PutWindowPath(window.window_image_, path);
}

void Edits::SetAside(ChildWindow& window, std::size_t position, std::string_view bytes) {
  PutBytes(window.window_image_, position, bytes);
}

void Edits::TakeSaved(ChildWindow& window, Bytes image, bool whole) {
  const ui::UserEvent event(app_.toolkit);
  NoteWaiting();
  const Bytes before = std::exchange(window.window_image_, std::move(image));
  Add(whole ? EditAction::Kind::kSave : EditAction::Kind::kFailedSave, app_.toolkit.cause()).window = &window;
  NoteDifference(ImageOf(window), before, {});
  growing_ = nullptr;
  untold_ = false;
  const bool styles_written =
      ByteAt(before, kStyChangedPosition) == 1 && ByteAt(window.window_image_, kStyChangedPosition) == 0;
  TallySaved(window);
  // Another window with these styles is away from the file from now on, wherever steps lead it, until it is saved.
  ChildWindow* same = styles_written ? SameStyles(app_, window) : nullptr;
  if (same != nullptr && ByteAt(same->window_image_, kStyChangedPosition) == 1) {
    StayMarked({ImageOf(*same), kStyChangedPosition});
  }
  if (listener_ != nullptr) listener_->Saved(window, whole);
}

void Edits::Closed(ChildWindow& window) {
  Tell();
  std::erase(opened_, &window);
  std::erase_if(set_, [&](const EditMark& mark) { return mark.target == ImageOf(window); });
  for (const auto& action : actions_) {
    const auto gone = [&](const auto& shown) { return &shown.control->form() == &window; };
    std::erase_if(action->shown, gone);
    std::erase_if(action->texts, gone);
  }
  if (listener_ != nullptr) listener_->Closed(window);
  Drop(ImageOf(window));
}

// --- Noting ---

Edits::Difference::Difference(Edits& edits, const EditTarget& target, const EditWords& words)
    : edits_(edits), target_(target), words_(words), before_(edits.BytesOf(target)) {}

Edits::Difference::~Difference() {
  edits_.NoteDifference(target_, before_, words_);
}

EditAction& Edits::Current(ui::Cause cause) {
  if (growing_ != nullptr && cause != ui::kNoCause && growing_->cause == cause) return *growing_;
  return Add(EditAction::Kind::kUser, cause);
}

EditAction& Edits::Add(EditAction::Kind kind, ui::Cause cause) {
  Settle();
  if (standing_ > 0 && SaysNothing(*actions_[standing_ - 1])) {
    actions_.erase(actions_.begin() + static_cast<std::ptrdiff_t>(standing_ - 1));
    --standing_;
  }
  growing_ = &MakeRoom();
  ++standing_;
  growing_->number = ++last_number_;
  growing_->cause = cause;
  growing_->kind = kind;
  return *growing_;
}

void Edits::NoteSoon(const EditTarget& target, std::size_t position, std::string_view before, std::string_view after,
                     const EditWords& words) {
  const ui::Cause cause = app_.toolkit.cause();
  if (after.size() > Waiting::kMost || cause == ui::kNoCause || !words.name.empty() || most_actions_ == 0) {
    return NotePiece(target, position, before, after, words);
  }
  NoteWaiting();
  waiting_.length = after.size();
  waiting_.target = target;
  waiting_.position = position;
  CopyTo(waiting_.before.data(), before);
  CopyTo(waiting_.after.data(), after);
  waiting_.what = words.what;
  waiting_.of = words.of;
  waiting_.cause = cause;
  bytes_changed_ = true;
}

void Edits::NoteNow() {
  const std::string_view before(waiting_.before.data(), waiting_.length);
  const std::string_view after(waiting_.after.data(), waiting_.length);
  waiting_.length = 0;
  EditAction& action = Current(waiting_.cause);
  if (action.words.what.empty()) {
    action.words.what = waiting_.what;
    action.words.of = waiting_.of;
  }
  NotePiece(action, waiting_.target, waiting_.position, before, after);
}

void Edits::NotePiece(const EditTarget& target, std::size_t position, std::string_view before, std::string_view after,
                      const EditWords& words) {
  if (most_actions_ == 0) return;
  NoteWaiting();
  EditAction& action = Current(app_.toolkit.cause());
  if (action.words.what.empty()) action.words = words;
  NotePiece(action, target, position, before, after);
}

void Edits::NotePiece(EditAction& action, const EditTarget& target, std::size_t position, std::string_view before,
                      std::string_view after) {
  if (action.changes.empty()) DropTakenBack();
  bytes_changed_ = untold_ = true;
  ++changes_;
  // A bar that goes on moving writes the same bytes again.
  std::size_t searched = 0;
  for (auto change = action.changes.rbegin(); change != action.changes.rend() && searched < kSearched; ++change) {
    ++searched;
    if (change->target != target) continue;
    const bool same = change->position == position && change->after.size() == before.size();
    if (same && before.size() == after.size()) return change->TakeNew(after);
    if (change->before.size() != change->after.size() || Overlap(*change, position, before.size())) break;
  }
  action.changes.emplace_back(target, position, before, after);
  size_ += before.size() + after.size();
}

void Edits::NoteMark(const EditMark& mark, int before, int after) {
  if (before == after || most_actions_ == 0) return;
  NoteWaiting();
  EditAction& action = Current(app_.toolkit.cause());
  untold_ = true;
  for (EditMarkChange& noted : action.marks) {
    if (noted.mark != mark) continue;
    noted.after = after;
    return;
  }
  action.marks.push_back({mark, before, after});
}

void Edits::NoteDifference(const EditTarget& target, std::string_view before, const EditWords& words) {
  // Outside of any event the pieces of one change are one action all the same.
  const ui::UserEvent event(app_.toolkit);
  std::string_view now = BytesOf(target);
  std::size_t from = 0;
  if (target.thing == Thing::kImage) {
    NoteMarks(*target.window, before);
    from = std::min({kWindowPrefixLength, before.size(), now.size()});
    before.remove_prefix(from);
    now.remove_prefix(from);
  }
  const std::size_t same = before.size() == now.size() ? now.size() : EndOfSame(before, now);
  NoteRuns(target, from, before.substr(0, same), now.substr(0, same), words);
  before.remove_prefix(same);
  now.remove_prefix(same);
  if (before.size() == now.size()) return;
  const std::size_t tail = SameTail(before, now);
  before.remove_suffix(tail);
  now.remove_suffix(tail);
  NotePiece(target, from + same + 1, before, now, words);
}

void Edits::NoteMarks(ChildWindow& window, std::string_view before) {
  for (const std::size_t position : kMarks) {
    NoteMark({ImageOf(window), position}, ByteAt(before, position), ByteAt(window.window_image_, position));
  }
}

// Both are of one length.
void Edits::NoteRuns(const EditTarget& target, std::size_t from, std::string_view before, std::string_view after,
                     const EditWords& words) {
  for (std::size_t at = 0;;) {
    const std::size_t begin = NextDifference(before, after, at, after.size());
    if (begin == after.size()) return;
    std::size_t end = begin + 1;
    for (;;) {
      while (end < after.size() && before[end] != after[end]) ++end;
      const std::size_t gap_end = std::min(end + kGap, after.size());
      const std::size_t next = NextDifference(before, after, end, gap_end);
      if (next == gap_end) break;
      end = next + 1;
    }
    NotePiece(target, from + begin + 1, before.substr(begin, end - begin), after.substr(begin, end - begin), words);
    at = end;
  }
}

// --- The list ---

const EditAction* Edits::StepBack() {
  Settle();
  if (standing_ == 0) return nullptr;
  const EditAction& action = *actions_[--standing_];
  ++changes_;
  if (action.IsStep()) Count(action, -1);
  for (auto change = action.changes.rbegin(); change != action.changes.rend(); ++change) {
    Replace(BytesOf(change->target), change->position, change->after, change->before);
  }
  for (const EditMarkChange& each : action.marks) SetMark(each.mark, each.before);
  if (listener_ != nullptr) listener_->TakenBack(action);
  return &action;
}

const EditAction* Edits::StepForward() {
  Settle();
  if (standing_ == actions_.size()) return nullptr;
  const EditAction& action = *actions_[standing_++];
  ++changes_;
  if (action.IsStep()) Count(action, 1);
  for (const EditChange& change : action.changes) {
    Replace(BytesOf(change.target), change.position, change.before, change.after);
  }
  for (const EditMarkChange& each : action.marks) SetMark(each.mark, each.after);
  if (listener_ != nullptr) listener_->BroughtForth(action);
  return &action;
}

// An action that goes takes along what was done before it to its other targets, and what could be brought back after
// it, since they would find other bytes than they left.
void Edits::Drop(const EditTarget& target) {
  NoteWaiting();
  std::vector<bool> goes(actions_.size(), false);
  const auto look = [&](std::size_t i, std::vector<EditTarget>& lost) {
    EditAction& action = *actions_[i];
    goes[i] = Touches(action, lost);
    if (goes[i]) {
      for (const EditChange& change : action.changes) lost.push_back(change.target);
    } else if (std::erase_if(action.marks, [&](const auto& each) { return each.mark.target == target; }) > 0) {
      goes[i] = SaysNothing(action);
    }
  };
  std::vector<EditTarget> lost = {target};
  for (std::size_t i = standing_; i-- > 0;) look(i, lost);
  lost = {target};
  for (std::size_t i = standing_; i < actions_.size(); ++i) look(i, lost);

  if (std::find(goes.begin(), goes.end(), true) == goes.end()) return;
  ++changes_;
  std::deque<std::unique_ptr<EditAction>> kept;
  std::vector<std::unique_ptr<EditAction>> unreached;
  std::size_t standing = 0;
  for (std::size_t i = 0; i < actions_.size(); ++i) {
    std::unique_ptr<EditAction>& action = actions_[i];
    if (goes[i]) {
      if (action.get() == growing_) {
        growing_ = nullptr;
        untold_ = false;
      }
      size_ -= SizeOf(*action);
      if (!action->counted && action->IsStep()) Count(*action, 1);
      if (listener_ != nullptr) listener_->Left(*action);
      if (i >= standing_) unreached.push_back(std::move(action));
      continue;
    }
    kept.push_back(std::move(action));
    if (i < standing_) ++standing;
  }
  actions_ = std::move(kept);
  standing_ = standing;
  for (const auto& gone : unreached) LoseUnreached(*gone);
}

void Edits::DropTakenBack() {
  if (standing_ == actions_.size()) return;
  LoseForward();
  for (; actions_.size() > standing_; actions_.pop_back()) {
    size_ -= SizeOf(*actions_.back());
    if (listener_ != nullptr) listener_->Left(*actions_.back());
  }
}

void Edits::OldestLeaves() {
  size_ -= SizeOf(*actions_.front());
  if (listener_ != nullptr) listener_->Left(*actions_.front());
  --standing_;
}

// An empty entry behind those that stand. It has the memory of the last one that went.
EditAction& Edits::MakeRoom() {
  std::unique_ptr<EditAction> room;
  while (standing_ > 0 && (actions_.size() >= most_actions_ || size_ > most_bytes_)) {
    OldestLeaves();
    room = std::move(actions_.front());
    actions_.pop_front();
  }
  if (room == nullptr) {
    room = std::make_unique<EditAction>();
  } else {
    room->Clear();
  }
  if (standing_ == actions_.size()) return *actions_.emplace_back(std::move(room));
  return **actions_.insert(actions_.begin() + static_cast<std::ptrdiff_t>(standing_), std::move(room));
}

}  // namespace zentaline
