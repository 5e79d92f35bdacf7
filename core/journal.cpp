#include "core/journal.h"

#include <unistd.h>

#include <algorithm>
#include <string>
#include <utility>

#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/window_image.h"
#include "data/more_texts.h"
#include "files/api.h"
#include "files/paths.h"
#include "program/prg_format.h"

namespace zentaline {

namespace {

using Thing = EditTarget::Thing;

// Of a piece before or after a step, as the step sees it.
const Bytes& Old(const EditChange& change, JournalStep step) {
  return step == JournalStep::kTakenBack ? change.after : change.before;
}
const Bytes& New(const EditChange& change, JournalStep step) {
  return step == JournalStep::kTakenBack ? change.before : change.after;
}

// The database is on the disk already.
bool IsKept(const EditChange& change) {
  return change.target.thing != Thing::kDatabase;
}

// The changes that are kept, in the order in which the step makes them.
template <typename Function>
void ForEachChange(const EditAction& action, JournalStep step, Function&& take) {
  const std::size_t count = action.changes.size();
  for (std::size_t i = 0; i < count; ++i) {
    const EditChange& change = action.changes[step == JournalStep::kTakenBack ? count - 1 - i : i];
    if (IsKept(change)) take(change);
  }
}

JournalThing ThingOf(const EditTarget& target) {
  if (target.thing == Thing::kImage) return JournalThing::kWindow;
  return target.thing == Thing::kEditRecord ? JournalThing::kPrgRecord : JournalThing::kArrRecord;
}

EditTarget RecordOf(JournalThing thing) {
  return thing == JournalThing::kPrgRecord ? kPrgRecordUnderEdit : kArrRecordUnderEdit;
}

}  // namespace

ChildWindow* FileWindowOfRecord(Application& app, JournalThing thing) {
  const Bytes& record = app.edits.Read(RecordOf(thing));
  const bool program = thing == JournalThing::kPrgRecord;
  const int kind = ByteAt(record, program ? edit_record::kKind : arr_edit::kKind);
  const int number = ByteAt(record, program ? edit_record::kWindowNumber : arr_edit::kWindowNumber);
  if (number < 1 || number > kInstrumentWindow) return nullptr;
  const auto slot = static_cast<std::size_t>(number);
  ChildWindow* window = program ? app.prg_windows[slot] : app.arr_windows[slot];
  return window != nullptr && window->Kind() == kind ? window : nullptr;
}

// --- What the list tells ---

void Journal::Noted(const EditAction& action) {
  Write(JournalStep::kDone, action);
}

void Journal::TakenBack(const EditAction& action) {
  Write(JournalStep::kTakenBack, action);
}

void Journal::BroughtForth(const EditAction& action) {
  Write(JournalStep::kBroughtForth, action);
}

void Journal::Saved(ChildWindow& window, bool whole) {
  // A new file's window doesn't say yet that it has one.
  if (windows_.contains(&window)) Hold(window, window.window_image(), !whole, whole || window.HasOwnPath());
}

void Journal::Closed(ChildWindow& window) {
  const auto known = windows_.find(&window);
  if (known == windows_.end()) return;
  Append(JournalClosed(known->second.id));
  windows_.erase(known);
}

void Journal::Taken(const EditTarget& record) {
  const JournalThing thing = ThingOf(record);
  if (flags_.contains(thing)) HoldRecord(record, app_.edits.Read(record), RecordFlag(thing));
}

void Journal::EventEnded() {
  for (auto& [thing, flag] : flags_) {
    const bool now = RecordFlag(thing);
    if (now == flag) continue;
    JournalAction action;
    action.marks = {{{thing, 0}, 0, flag ? 1 : 0, now ? 1 : 0}};
    flag = now;
    Append(JournalBytes(JournalStep::kBroughtForth, action));
  }
  if (size_ > limit_) Rewrite();
  if (!std::exchange(untold_, false)) return;
  app_.toolkit.MessageBox(ui::BoxStyle::kOk, "Zentaline",
                          std::string(MoreTextOf(MoreText::kJournalFailed, app_.Language())));
}

void Journal::Adopt(ChildWindow& window) {
  Hold(window, window.window_image(), true, window.HasOwnPath());
}

bool Journal::Flush() {
  return !off_ && file_ != nullptr && file_->Flush() == DiskResult::kOk;
}

void Journal::Discard() {
  if (file_ != nullptr) file_->Discard();
  file_ = nullptr;
  off_ = true;
}

// --- Writing ---

Journal::Known Journal::Shape(std::uint32_t id, const Bytes& image) {
  return {id, image.size(), ByteAt(image, kStyStatePosition), ByteAt(image, kPrgAttachedPosition)};
}

void Journal::Write(JournalStep step, const EditAction& action) {
  if (off_) return;
  if (file_ == nullptr && std::none_of(action.changes.begin(), action.changes.end(), IsKept)) return;
  HoldWindows(step, action);
  HoldRecords(step, action);
  // The memory stays for the next one.
  JournalActionView& written = written_;
  written.number = action.number;
  written.what = action.words.what;
  written.of = action.words.of;
  written.name = action.words.name;
  written.pieces.clear();
  ForEachChange(action, step, [&](const EditChange& change) {
    written.pieces.push_back({PlaceOf(change.target), change.position, Old(change, step), New(change, step)});
  });
  written.marks.clear();
  for (const EditMarkChange& each : action.marks) {
    const JournalThing thing = ThingOf(each.mark.target);
    const bool held =
        thing == JournalThing::kWindow ? windows_.contains(each.mark.target.window) : flags_.contains(thing);
    if (!held) continue;
    const bool back = step == JournalStep::kTakenBack;
    written.marks.push_back({PlaceOf(each.mark.target), each.mark.position, back ? each.after : each.before,
                             back ? each.before : each.after});
    if (thing != JournalThing::kWindow) flags_[thing] = RecordFlag(thing);
  }
  if (written.pieces.empty() && written.marks.empty()) return;
  Append(JournalBytes(step, written));
  ForEachChange(action, step, [&](const EditChange& change) {
    if (change.target.thing != Thing::kImage) return;
    Known& known = windows_.at(change.target.window);
    known = Shape(known.id, change.target.window->window_image());
  });
}

// The bytes as they were before the step, which has been made.
Bytes Journal::Before(const EditTarget& target, JournalStep step, const EditAction& action) {
  Bytes bytes = app_.edits.Read(target);
  const JournalStep back = step == JournalStep::kTakenBack ? JournalStep::kBroughtForth : JournalStep::kTakenBack;
  ForEachChange(action, back, [&](const EditChange& change) {
    if (change.target != target || change.position - 1 > bytes.size()) return;
    bytes.replace(change.position - 1, New(change, step).size(), Old(change, step));
  });
  for (const EditMarkChange& each : action.marks) {
    if (each.mark.target != target || target.thing != Thing::kImage) continue;
    PutByte(bytes, each.mark.position, step == JournalStep::kTakenBack ? each.after : each.before);
  }
  return bytes;
}

void Journal::HoldWindows(JournalStep step, const EditAction& action) {
  for (const EditChange& change : action.changes) {
    if (change.target.thing != Thing::kImage) continue;
    ChildWindow& window = *change.target.window;
    const auto known = windows_.find(&window);
    if (known == windows_.end()) {
      Hold(window, Before(change.target, step, action), false, window.HasOwnPath());
      continue;
    }
    // An action that grows has been written with what it changed before.
    const Bytes& image = window.window_image();
    const Known now = Shape(0, image);
    if (now.size == known->second.size && now.styles == known->second.styles &&
        now.programs == known->second.programs) {
      continue;
    }
    const Bytes before = Before(change.target, step, action);
    const Known shape = Shape(0, before);
    const bool fits = shape.size == known->second.size && shape.styles == known->second.styles &&
                      shape.programs == known->second.programs;
    // What no action did is in no file: all of it is held.
    if (!fits && action.number != last_number_) Hold(window, before, true, window.HasOwnPath());
  }
  last_number_ = action.number;
}

void Journal::HoldRecords(JournalStep step, const EditAction& action) {
  for (const EditChange& change : action.changes) {
    if (change.target.thing != Thing::kArrEditRecord && change.target.thing != Thing::kEditRecord) continue;
    const JournalThing thing = ThingOf(change.target);
    if (flags_.contains(thing)) continue;
    HoldRecord(change.target, Before(change.target, step, action), false);
  }
}

void Journal::HoldRecord(const EditTarget& record, Bytes bytes, bool changed) {
  JournalRecord written;
  written.thing = ThingOf(record);
  written.changed = changed;
  written.bytes = std::move(bytes);
  if (ChildWindow* window = FileWindowOfRecord(app_, written.thing)) {
    if (!windows_.contains(window)) Hold(*window, window->window_image(), false, window->HasOwnPath());
    written.window = IdOf(*window);
  }
  flags_[written.thing] = changed;
  Append(JournalBytes(written));
}

void Journal::Hold(ChildWindow& window, Bytes image, bool whole, bool has_file) {
  JournalWindow written;
  written.window = IdOf(window);
  written.kind = ByteAt(image, kKindPosition);
  written.number = ByteAt(image, kWindowNumberPosition);
  written.read_only = ByteAt(image, kReadOnlyPosition) == 1;
  written.has_file = has_file;
  written.whole = whole;
  written.path = WindowPath(image);
  if (has_file) written.files = FilesOf(window, image);
  windows_[&window] = Shape(written.window, image);
  written.image = std::move(image);
  Append(JournalBytes(written));
}

std::uint32_t Journal::IdOf(ChildWindow& window) {
  const auto known = windows_.find(&window);
  return known == windows_.end() ? ++last_id_ : known->second.id;
}

JournalPlace Journal::PlaceOf(const EditTarget& target) {
  if (target.thing != Thing::kImage) return {ThingOf(target), 0};
  return {JournalThing::kWindow, IdOf(*target.window)};
}

std::vector<JournalFile> Journal::FilesOf(const ChildWindow& window, const Bytes& image) const {
  std::vector<JournalFile> files;
  const FileKind* kind = FileKindOf(window.Kind());
  if (kind == nullptr || kind->saving == nullptr) return files;
  const std::string base(WindowPath(image));
  const auto add = [&](std::string_view extension) {
    JournalFile file{std::string(extension), {}};
    const std::string path = PathOnDisk(app_.disk, base + "." + file.extension);
    const auto known = app_.core.KnownFiles.find(path);
    if (known != app_.core.KnownFiles.end()) {
      file.mark = known->second;
    } else {
      app_.disk.Look(path, file.mark);
    }
    files.push_back(std::move(file));
  };
  add(ExtensionOf(kind->saving->type(image)));
  if (!kind->saving->has_parts) return files;
  if (ByteAt(image, kStyStatePosition) == 2) add("sty");
  if (ByteAt(image, kPrgAttachedPosition) == 1) add(ByteAt(image, kPggPosition) == 1 ? "pgg" : "prg");
  return files;
}

bool Journal::RecordFlag(JournalThing thing) const {
  return thing == JournalThing::kPrgRecord ? app_.program.ProgramChanged : app_.arrangement.EditorChanged;
}

// --- The file ---

void Journal::Append(const Bytes& record) {
  if (off_) return;
  if (file_ == nullptr) {
    const std::string name = "Zentaline-" + std::to_string(getpid()) + ".journal";
    if (app_.disk.MakeGrowing(app_.core.Directory, name, file_) != DiskResult::kOk) return TurnOff();
    const Bytes head = JournalHead();
    if (file_->Append(head) != DiskResult::kOk) return TurnOff();
    size_ = head.size();
  }
  if (file_->Append(record) != DiskResult::kOk) return TurnOff();
  size_ += record.size();
}

void Journal::Rewrite() {
  if (off_ || file_ == nullptr) return;
  Bytes file;
  if (file_->Content(file) != DiskResult::kOk) return TurnOff();
  const std::optional<JournalContent> content = ReadJournal(file);
  if (!content || content->read != file.size()) return TurnOff();
  const Bytes rewritten = RewriteJournal(*content);
  if (file_->Replace(rewritten) != DiskResult::kOk) return TurnOff();
  size_ = rewritten.size();
  // Where so much remains, it isn't done again for each little step.
  limit_ = std::max(limit_, 2 * size_);
}

// What it holds by now stays until the regular end.
void Journal::TurnOff() {
  off_ = true;
  untold_ = true;
}

}  // namespace zentaline
