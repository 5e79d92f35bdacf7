#include "files/recovery.h"

#include <algorithm>
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
constexpr int kBankRows = 64;
constexpr std::size_t kMostSteps = 1999;  // one less than the list of actions holds

// A window with changes, and the record of it that was under edit.
struct Lost {
  JournalLeft left;
  std::vector<JournalAction> actions;  // one by one; one of all where they don't lead from what is on the disk
  Bytes image;                         // as it is to be, with the record kept
};

const FileKind* KindFor(int kind) {
  // A new bank becomes an ordinary one.
  return FileKindOf(kind == kKindNewPrg ? kKindPrg : kind);
}

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
  const FileKind* kind = KindFor(lost.left.base.kind);
  if (kind == nullptr || kind->saving == nullptr || !lost.left.base.has_file) return false;
  FileSet set(app.disk);
  Bytes image = lost.image;
  kind->saving->put(app, image, set);
  return set.Stands();
}

bool FilesAreAsThen(Application& app, const JournalWindow& base) {
  return std::all_of(base.files.begin(), base.files.end(), [&](const JournalFile& file) {
    FileMark now;
    const std::string path = PathOnDisk(app.disk, base.path + "." + file.extension);
    return app.disk.Look(path, now) == DiskResult::kOk && now == file.mark;
  });
}

void ShowAll(Application& app, ChildWindow& window) {
  ItemsShown shown;
  for (int row = 0; row < kBankRows; ++row) shown.rows.push_back(row);
  shown.styles = true;
  window.ShowItems(shown);
  if (app.main != nullptr) app.main->RefreshMenus();
}

// One action of the list for one of the journal.
void DoAgain(Application& app, ChildWindow& window, const Lost& lost, const JournalAction& action) {
  const JournalPlace place{JournalThing::kWindow, lost.left.base.window};
  const EditWords words{app.journal->Word(action.what), app.journal->Word(action.of), action.name};
  const EditTarget target = ImageOf(window);
  app.edits.EndAction();
  // Most actions leave all bytes in their places.
  const bool in_place = std::all_of(action.pieces.begin(), action.pieces.end(),
                                    [](const auto& piece) { return piece.before.size() == piece.after.size(); });
  if (in_place) {
    for (const JournalPiece& piece : action.pieces) {
      if (piece.place == place) app.edits.Put(target, piece.position, piece.after, words);
    }
  } else {
    app.edits.Change(target, words, [&](Bytes& image) { PutPieces(action, place, image); });
  }
  for (const JournalMark& mark : action.marks) {
    if (mark.place == place && mark.position <= kControlLength) app.edits.Mark(window, mark.position, mark.after);
  }
  app.edits.EndAction();
  // A mark may have stood before the action, set by what changed no byte; here nothing has set it yet.
  if (app.edits.standing() > 0) app.edits.SetTrueMarks(app.edits.actions()[app.edits.standing() - 1]);
}

bool IsChanged(const ChildWindow& window) {
  constexpr std::size_t kChangedMarks[] = {kChangedPosition, kPrgChangedPosition, kStyChangedPosition};
  return std::any_of(std::begin(kChangedMarks), std::end(kChangedMarks),
                     [&](std::size_t mark) { return ByteAt(window.window_image(), mark) == 1; });
}

// Of more actions than the list holds the first are one. `image` is what the window shows, and then what it will show;
// false where they don't fit.
bool Fold(const Lost& lost, Bytes& image, std::vector<JournalAction>& actions) {
  const JournalPlace place{JournalThing::kWindow, lost.left.base.window};
  const std::size_t folded = lost.actions.size() > kMostSteps ? lost.actions.size() - kMostSteps : 0;
  JournalLeft first;
  first.base.window = lost.left.base.window;
  if (folded > 0) first.base.image = image;
  for (std::size_t i = 0; i < lost.actions.size(); ++i) {
    if (!PutPieces(lost.actions[i], place, image)) return false;
    if (i + 1 < folded) continue;
    if (i + 1 > folded) {
      actions.push_back(lost.actions[i]);
      continue;
    }
    first.image = image;
    JournalAction one = NetAction(first, 0);
    for (std::size_t j = 0; j <= i; ++j) {
      one.marks.insert(one.marks.end(), lost.actions[j].marks.begin(), lost.actions[j].marks.end());
    }
    actions.push_back(std::move(one));
  }
  return true;
}

// Whether two images hold the same files. A bank's channel is no part of what was done, nor are the programs that
// stand by arrangements, unless they were changed.
bool HoldSameFiles(int kind, const Bytes& one, const Bytes& other) {
  const auto without_channel = [](const Bytes& image) {
    Bytes file = PrgFileBytes(image);
    PutByte(file, kPrgFileChannelPosition, 0);
    return file;
  };
  const auto programs = [](const Bytes& image) { return Slice(image, kArrImageProgramPosition, kPrgFileLength); };
  switch (kind) {
    case kKindArr:
      return ArrFileBytes(one) == ArrFileBytes(other) && StylePart(one) == StylePart(other) &&
             (ByteAt(other, kPrgChangedPosition) != 1 || programs(one) == programs(other));
    case kKindPrg:
      return without_channel(one) == without_channel(other);
    case kKindSty:
      return StylePart(one) == StylePart(other);
    default:
      return GlobalFileBytes(one) == GlobalFileBytes(other);
  }
}

// Into the window of the file, which is opened where it isn't. False when that isn't the file of then any more.
bool BringBackInto(Application& app, const FileKind& kind, const Lost& lost) {
  const JournalWindow& base = lost.left.base;
  if (!base.has_file || base.read_only || base.whole || FileKindOf(base.kind)->kind != kind.kind) return false;
  if (base.kind != kind.kind && base.kind != kind.new_kind) return false;
  if (!FilesAreAsThen(app, base)) return false;
  ChildWindow* window = WindowOf(app, kind, base.path);
  if (window == nullptr) {
    const std::string extension(ExtensionOf(kind.saving->type(base.image)));
    OpenInWindow(app, kind.kind, PathOnDisk(app.disk, base.path + "." + extension), false);
    window = WindowOf(app, kind, base.path);
  }
  if (window == nullptr || window->ReadOnly() || IsChanged(*window)) return false;
  Bytes reached = window->window_image();
  std::vector<JournalAction> actions;
  // Another window may have saved the file after this one had read it.
  if (!Fold(lost, reached, actions) || !HoldSameFiles(kind.kind, reached, lost.image)) return false;
  for (const JournalAction& action : actions) DoAgain(app, *window, lost, action);
  ShowAll(app, *window);
  return true;
}

std::string RecoveredPath(const Application& app, const JournalWindow& base) {
  const std::string end(MoreTextOf(MoreText::kRecovered, app.Language()));
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

// The content of then in a window of its own, which saves under a name that is asked for.
bool Rebuild(Application& app, const FileKind& kind, const Lost& lost) {
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
  ShowAll(app, *window);
  window->FileSaved();
  RefreshOpenEntries(app);
  app.journal->Adopt(*window);
  return true;
}

bool BringBack(Application& app, const Lost& lost) {
  const FileKind* kind = KindFor(lost.left.base.kind);
  if (kind == nullptr || kind->saving == nullptr) return true;
  return BringBackInto(app, *kind, lost) || Rebuild(app, *kind, lost);
}

// Of styles that two windows show the one may have come back alone.
void LeadWindowsWithSameStyles(Application& app) {
  for (const EditAction& action : app.edits.actions()) {
    for (const EditChange& change : action.changes) {
      if (change.target.thing == EditTarget::Thing::kImage) FollowStyles(app, *change.target.window, action);
    }
  }
  if (app.main != nullptr) app.main->RefreshMenus();
}

void PutAway(Application& app, GrowingFile& file, bool tells) {
  std::string kept;
  if (file.PutAway(kept) != DiskResult::kOk) kept = file.path();
  if (!tells) return;
  const std::string text(MoreTextOf(MoreText::kNotAllRecovered, app.Language()));
  ShowMessage(app, kMessageText, kProgramName, WithName(text, ShownPath(FileBaseName(kept))));
}

void Offer(Application& app, GrowingFile& file, const JournalContent& content) {
  std::vector<Lost> all = LostIn(content);
  std::erase_if(all, [&](const Lost& lost) { return IsSaved(app, lost); });
  if (all.empty()) {
    file.Discard();
    return;
  }
  std::size_t changes = 0;
  for (const Lost& lost : all) changes += std::max<std::size_t>(lost.actions.size(), 1);
  const std::string question = TwoNames(MoreTextOf(MoreText::kRecoverQuestion, app.Language()), std::to_string(changes),
                                        std::to_string(all.size()));
  if (AskYesNo(app, 0, question, kProgramName) != ui::BoxAnswer::kYes) return PutAway(app, file, false);
  bool whole = true;
  for (const Lost& lost : all) whole = BringBack(app, lost) && whole;
  LeadWindowsWithSameStyles(app);
  // What this run holds on the disk isn't needed twice.
  if (whole && app.journal->Flush()) {
    file.Discard();
  } else {
    PutAway(app, file, !whole);
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
    if (name.find(kPutAway) != std::string::npos) app.journal->NoteOld(JoinPath(app.core.Directory, name));
  }
  for (const std::string& name : Names(app, kJournalEnd)) {
    Bytes bytes;
    std::unique_ptr<GrowingFile> file;
    const std::string path = JoinPath(app.core.Directory, name);
    if (app.disk.TakeGrowing(path, bytes, kLargestJournal, file) != DiskResult::kOk) continue;
    if (const std::optional<JournalContent> content = ReadJournal(bytes)) Offer(app, *file, *content);
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
