#include "files/recovery.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/file_set.h"
#include "core/journal.h"
#include "core/journal_format.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/more_texts.h"
#include "files/api.h"
#include "files/bring_back.h"
#include "files/dialogs.h"
#include "files/paths.h"
#include "global/api.h"
#include "global/gbl_format.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/api.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

constexpr char kProgramName[] = "Zentaline";
constexpr std::string_view kJournalStart = "Zentaline-";
constexpr char kJournalEnd[] = ".journal";
constexpr std::string_view kPutAway = ".journal.old";

constexpr std::size_t kLargestJournal = std::size_t{1} << 28;  // in bytes

// The record as its window would have kept it, also where that was read-only: it comes back in one of its own.
bool KeepRecord(JournalThing thing, const JournalRecordLeft& record, Bytes& image) {
  if (thing == JournalThing::kPrgRecord) {
    PutEditRecord(image, record.bytes);
    PutByte(image, kPrgChangedPosition, 1);
    return true;
  }
  const int read_only = ByteAt(image, kReadOnlyPosition);
  PutByte(image, kReadOnlyPosition, 0);
  const bool kept = StoreEditRecordBytes(image, record.bytes) == kArrStored;
  PutByte(image, kReadOnlyPosition, read_only);
  return kept;
}

std::vector<Lost> LostIn(const JournalContent& content) {
  std::vector<Lost> all;
  for (const auto& [id, left] : content.windows) {
    Lost lost{left, left.actions, left.image};
    if (left.Changed() && left.as_one) lost.actions = {NetAction(left, 0)};
    bool kept = false;
    for (const auto& [thing, record] : content.records) {
      if (record.base.window != id || !record.changed) continue;
      JournalLeft with = left;
      if (!KeepRecord(thing, record, with.image)) continue;
      with.base.image = lost.image;
      JournalAction action = NetAction(with, 0);
      action.what = "Kept";
      action.name = Utf8FromBytes(TrimRight(Slice(record.bytes, 1, kArrNameLength)));
      lost.image = std::move(with.image);
      lost.actions.push_back(std::move(action));
      kept = true;
    }
    if (left.Changed() || kept) all.push_back(std::move(lost));
  }
  return all;
}

// Whether the files hold all that the image does, as when the end came right after a save.
bool IsSaved(Application& app, const Lost& lost) {
  const FileKind* kind = KindOfLost(lost);
  if (kind == nullptr || !lost.left.base.has_file) return false;
  FileSet set(app.disk);
  Bytes image = lost.image;
  kind->saving->put(app, image, set);
  return set.Stands();
}

std::string RecoveredPath(const Application& app, const JournalWindow& base) {
  const std::string end(MoreTextOf(MoreText::kRecovered, app.Language()));
  if (base.path.ends_with(end)) return base.path;
  std::string path = base.path + end;
  if (CanKeep(path)) return path;
  return JoinPath(app.core.Directory, CutText(FileBaseName(base.path), kPathLength / 3) + end);
}

ChildWindow* OpenRebuilt(Application& app, const FileKind& kind, int number, const Bytes& image,
                         const std::string& path) {
  kind.slot(app, number).state = 1;
  switch (kind.kind) {
    case kKindArr:
      return &OpenImportedArr(app, number, ArrFileBytes(image), path, false);
    case kKindPrg:
      return &OpenImportedPrg(app, number, PrgFileBytes(image), path, false, kMustSaveAs);
    case kKindSty:
      TakeStyleFile(app, path, StylePart(image));
      return &OpenStyWindow(app, number, path, false);
    case kKindGbl:
      TakeGlobalFile(app, GlobalFileBytes(image));
      return &OpenGlobalWindow(app, path, false);
    default:
      return nullptr;
  }
}

std::size_t ChangedMark(int kind) {
  if (kind == kKindPrg) return kPrgChangedPosition;
  return kind == kKindSty ? kStyChangedPosition : kChangedPosition;
}

// The content of then in a window of its own, which saves under a name that is asked for; false when there is no room.
bool Rebuild(Application& app, const Lost& lost) {
  const FileKind* const found = KindOfLost(lost);
  if (found == nullptr) return true;
  const FileKind& kind = *found;
  const int number = FreeWindow(app, kind.kind);
  if (number == 0) return false;
  ChildWindow* window = OpenRebuilt(app, kind, number, lost.image, RecoveredPath(app, lost.left.base));
  if (window == nullptr) return false;
  Bytes image = lost.image;
  const Bytes& own = window->window_image();
  PutBytes(image, 1, Slice(own, 1, kWindowPrefixLength));
  for (const std::size_t mark : {kPrgAttachedPosition, kStyStatePosition, kStyChangedPosition, kPggPosition}) {
    PutByte(image, mark, ByteAt(lost.image, mark));
  }
  PutByte(image, kNoFilePosition, kMustSaveAs);
  PutByte(image, ChangedMark(kind.kind), 1);
  app.edits.TakeImage(*window, std::move(image));
  ShowAllItems(app, *window);
  window->FileSaved();
  RefreshOpenEntries(app);
  app.journal->Adopt(*window);
  return true;
}

// Nobody wants it; it is kept until the regular end of the next run all the same.
void Decline(GrowingFile& file) {
  std::string kept;
  if (file.Append(JournalDeclined()) == DiskResult::kOk) file.Flush();
  file.PutAway(kept);
}

// It stays, since it holds what is nowhere else.
void PutAway(Application& app, GrowingFile& file, bool tells) {
  std::string kept;
  if (file.PutAway(kept) != DiskResult::kOk) kept = file.path();
  if (!tells) return;
  const std::string text(MoreTextOf(MoreText::kNotAllRecovered, app.Language()));
  ShowMessage(app, kMessageText, kProgramName, WithName(text, ShownPath(FileBaseName(kept))));
}

// One that changed several windows is one.
std::size_t ChangesIn(const std::vector<Lost>& all) {
  std::set<std::int64_t> numbers;
  std::size_t others = 0;
  for (const Lost& lost : all) {
    if (lost.actions.empty()) ++others;
    for (const JournalAction& action : lost.actions) {
      if (action.number == 0) {
        ++others;
      } else {
        numbers.insert(action.number);
      }
    }
  }
  return numbers.size() + others;
}

// `whole`: nothing stands behind what could be read.
void Offer(Application& app, GrowingFile& file, const JournalContent& content, bool whole) {
  std::vector<Lost> all = LostIn(content);
  std::erase_if(all, [&](const Lost& lost) { return IsSaved(app, lost); });
  if (all.empty()) {
    if (!whole) return Decline(file);
    file.Discard();
    return;
  }
  const std::string question = TwoNames(MoreTextOf(MoreText::kRecoverQuestion, app.Language()),
                                        std::to_string(ChangesIn(all)), std::to_string(all.size()));
  if (AskYesNo(app, 0, question, kProgramName) != ui::BoxAnswer::kYes) return Decline(file);
  const bool brought = BringBack(app, all, [&app](const Lost& lost) { return Rebuild(app, lost); });
  // What this run holds on the disk isn't needed twice.
  if (brought && app.journal->Flush()) {
    file.Discard();
  } else {
    PutAway(app, file, !brought);
  }
}

std::vector<std::string> Names(Application& app, const std::string& ending) {
  std::vector<std::string> names;
  app.disk.List(app.core.Directory, ending, names);
  std::erase_if(names, [](const std::string& name) { return !name.starts_with(kJournalStart); });
  return names;
}

}  // namespace

void OfferJournals(Application& app) {
  if (app.journal == nullptr) return;
  for (std::string& name : Names(app, {})) {
    if (name.find(kPutAway) == std::string::npos) continue;
    const std::string path = JoinPath(app.core.Directory, name);
    Bytes bytes;
    const bool read = app.disk.Read(path, bytes, kLargestJournal) == DiskResult::kOk;
    if (read && bytes.ends_with(JournalDeclined())) app.journal->NoteOld(path);
  }
  for (const std::string& name : Names(app, kJournalEnd)) {
    Bytes bytes;
    std::unique_ptr<GrowingFile> file;
    const std::string path = JoinPath(app.core.Directory, name);
    if (app.disk.TakeGrowing(path, bytes, kLargestJournal, file) != DiskResult::kOk) continue;
    const std::optional<JournalContent> content = ReadJournal(bytes);
    if (content) Offer(app, *file, *content, content->read == bytes.size());
  }
}

void RemoveOldJournals(Application& app) {
  if (app.journal == nullptr) return;
  for (const std::string& path : app.journal->old()) {
    const FileToRemove removal{path};
    app.disk.WriteSet({}, {&removal, 1});
  }
}

}  // namespace zentaline
