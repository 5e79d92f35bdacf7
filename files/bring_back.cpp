#include "files/bring_back.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/journal.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "files/paths.h"
#include "global/gbl_format.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

constexpr int kBankRows = 64;
constexpr std::size_t kMostSteps = 1999;  // one less than the list of actions holds

struct Coming {
  const Lost* lost;
  const FileKind* kind;
  ChildWindow* window;
  std::vector<JournalAction> actions;
  std::size_t led = 0;  // which of them shows the same styles and has no steps of its own with them; itself for none

  JournalPlace Place() const { return {JournalThing::kWindow, lost->left.base.window}; }
};

// What one action did in each of the windows: which of them, and its actions there.
using Step = std::vector<std::pair<std::size_t, const JournalAction*>>;

bool FilesAreAsThen(Application& app, const JournalWindow& base) {
  return std::all_of(base.files.begin(), base.files.end(), [&](const JournalFile& file) {
    FileMark now;
    const std::string path = PathOnDisk(app.disk, base.path + "." + file.extension);
    return app.disk.Look(path, now) == DiskResult::kOk && now == file.mark;
  });
}

bool IsChanged(const ChildWindow& window) {
  constexpr std::size_t kChangedMarks[] = {kChangedPosition, kPrgChangedPosition, kStyChangedPosition};
  return std::any_of(std::begin(kChangedMarks), std::end(kChangedMarks),
                     [&](std::size_t mark) { return ByteAt(window.window_image(), mark) == 1; });
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

// The window of the file, which is opened where it isn't; null when that isn't the file of then any more.
ChildWindow* WindowFor(Application& app, const FileKind& kind, const Lost& lost) {
  const JournalWindow& base = lost.left.base;
  if (!base.has_file || base.read_only || base.whole) return nullptr;
  if (base.kind != kind.kind && base.kind != kind.new_kind) return nullptr;
  if (!FilesAreAsThen(app, base)) return nullptr;
  ChildWindow* window = WindowOf(app, kind, base.path);
  if (window == nullptr) {
    const std::string extension(ExtensionOf(kind.saving->type(base.image)));
    OpenInWindow(app, kind.kind, PathOnDisk(app.disk, base.path + "." + extension), false);
    window = WindowOf(app, kind, base.path);
  }
  return window == nullptr || window->ReadOnly() || IsChanged(*window) ? nullptr : window;
}

// Of more actions than the list holds the first are one; nothing when they don't fit what the window shows.
std::vector<JournalAction> Folded(const Lost& lost, const ChildWindow& window) {
  if (lost.actions.size() <= kMostSteps) return lost.actions;
  const JournalPlace place{JournalThing::kWindow, lost.left.base.window};
  const auto behind = lost.actions.end() - static_cast<std::ptrdiff_t>(kMostSteps);
  JournalLeft first;
  first.base.window = lost.left.base.window;
  first.base.image = window.window_image();
  first.image = window.window_image();
  std::vector<JournalMark> marks;
  for (auto action = lost.actions.begin(); action != behind; ++action) {
    if (!PutPieces(*action, place, first.image)) return {};
    marks.insert(marks.end(), action->marks.begin(), action->marks.end());
  }
  std::vector<JournalAction> actions = {NetAction(first, 0)};
  actions.front().marks = std::move(marks);
  actions.insert(actions.end(), behind, lost.actions.end());
  return actions;
}

bool ChangesStyles(const Coming& coming, const JournalAction& action) {
  const std::size_t begin = coming.kind->kind == kKindArr ? kArrImageLength + 1 : 1;
  if (coming.kind->kind != kKindArr && coming.kind->kind != kKindSty) return false;
  return std::any_of(action.pieces.begin(), action.pieces.end(), [&](const JournalPiece& piece) {
    return piece.place == coming.Place() && piece.position + std::max(piece.before.size(), piece.after.size()) > begin;
  });
}

bool HasStepsOfItsOwn(const Coming& coming, const Coming& other) {
  return std::any_of(coming.actions.begin(), coming.actions.end(), [&](const JournalAction& action) {
    if (!ChangesStyles(coming, action)) return false;
    const auto same = [&](const JournalAction& each) { return each.number == action.number; };
    return action.number == 0 || std::none_of(other.actions.begin(), other.actions.end(), same);
  });
}

void FindLed(const Application& app, std::vector<Coming>& all) {
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i].led = i;
    const ChildWindow* same = SameStyles(app, *all[i].window);
    for (std::size_t j = 0; j < all.size(); ++j) {
      if (all[j].window == same && !HasStepsOfItsOwn(all[j], all[i])) all[i].led = j;
    }
  }
}

std::vector<Step> InOrder(const std::vector<Coming>& all) {
  std::vector<std::size_t> done(all.size(), 0);
  std::vector<Step> steps;
  for (;;) {
    const JournalAction* first = nullptr;
    const auto head = [&](std::size_t i) {
      return done[i] < all[i].actions.size() ? &all[i].actions[done[i]] : nullptr;
    };
    for (std::size_t i = 0; i < all.size(); ++i) {
      const JournalAction* action = head(i);
      if (action != nullptr && (first == nullptr || action->number < first->number)) first = action;
    }
    if (first == nullptr) return steps;
    Step step;
    for (std::size_t i = 0; i < all.size(); ++i) {
      const JournalAction* action = head(i);
      if (action == nullptr) continue;
      // Without a number it is one of its window alone.
      if (action != first && (action->number != first->number || action->number == 0)) continue;
      step.emplace_back(i, action);
      ++done[i];
    }
    steps.push_back(std::move(step));
  }
}

// The first window that the steps don't lead to what it was; nothing when there is none.
std::optional<std::size_t> Misled(const std::vector<Coming>& all, const std::vector<Step>& steps) {
  std::vector<Bytes> images;
  images.reserve(all.size());
  for (const Coming& coming : all) images.push_back(coming.window->window_image());
  for (const Step& step : steps) {
    for (const auto& [i, action] : step) {
      if (!PutPieces(*action, all[i].Place(), images[i])) return i;
    }
    for (const auto& [i, action] : step) {
      if (all[i].led != i && ChangesStyles(all[i], *action)) PutStylePart(images[all[i].led], StylePart(images[i]));
    }
  }
  for (std::size_t i = 0; i < all.size(); ++i) {
    // Another window may have saved the file after this one had read it.
    if (!HoldSameFiles(all[i].kind->kind, images[i], all[i].lost->image)) return i;
  }
  return std::nullopt;
}

void PutAgain(Application& app, const Coming& coming, const JournalAction& action, const EditWords& words) {
  const EditTarget target = ImageOf(*coming.window);
  // Most actions leave all bytes in their places.
  const bool in_place = std::all_of(action.pieces.begin(), action.pieces.end(),
                                    [](const auto& piece) { return piece.before.size() == piece.after.size(); });
  if (in_place) {
    for (const JournalPiece& piece : action.pieces) {
      if (piece.place == coming.Place()) app.edits.Put(target, piece.position, piece.after, words);
    }
  } else {
    app.edits.Change(target, words, [&](Bytes& image) { PutPieces(action, coming.Place(), image); });
  }
  for (const JournalMark& mark : action.marks) {
    if (mark.place == coming.Place() && mark.position <= kControlLength) {
      app.edits.Mark(*coming.window, mark.position, mark.after);
    }
  }
}

// One action of the list for one of the journal.
void DoAgain(Application& app, const std::vector<Coming>& all, const Step& step) {
  const JournalAction& said = *step.front().second;
  const EditWords words{app.journal->Word(said.what), app.journal->Word(said.of), said.name};
  app.edits.EndAction();
  for (const auto& [i, action] : step) PutAgain(app, all[i], *action, words);
  for (const auto& [i, action] : step) {
    if (!ChangesStyles(all[i], *action)) continue;
    ChildWindow* same = SameStyles(app, *all[i].window);
    const auto comes = [same](const Coming& each) { return each.window == same; };
    if (same == nullptr || (all[i].led == i && std::any_of(all.begin(), all.end(), comes))) continue;
    KeepInStep(app, *all[i].window, *same, words);
  }
  app.edits.EndAction();
  // A mark may have stood before the action, set by what changed no byte; here nothing has set it yet.
  if (app.edits.standing() > 0) app.edits.SetTrueMarks(app.edits.actions()[app.edits.standing() - 1]);
}

}  // namespace

const FileKind* KindOfLost(const Lost& lost) {
  const int kind = lost.left.base.kind;
  // A new bank becomes an ordinary one.
  const FileKind* found = FileKindOf(kind == kKindNewPrg ? kKindPrg : kind);
  return found == nullptr || found->saving == nullptr ? nullptr : found;
}

bool BringBack(Application& app, const std::vector<Lost>& all, const std::function<bool(const Lost&)>& rebuild) {
  bool whole = true;
  std::vector<Coming> coming;
  for (const Lost& lost : all) {
    const FileKind* kind = KindOfLost(lost);
    ChildWindow* window = kind == nullptr ? nullptr : WindowFor(app, *kind, lost);
    // The instrument's window may have shown the same file; a window takes the changes of one.
    if (std::any_of(coming.begin(), coming.end(), [&](const Coming& each) { return each.window == window; })) {
      window = nullptr;
    }
    std::vector<JournalAction> actions;
    if (window != nullptr) actions = Folded(lost, *window);
    if (actions.empty()) {
      whole = rebuild(lost) && whole;
    } else {
      coming.push_back({&lost, kind, window, std::move(actions)});
    }
  }
  for (;;) {
    FindLed(app, coming);
    const std::vector<Step> steps = InOrder(coming);
    if (const std::optional<std::size_t> misled = Misled(coming, steps)) {
      whole = rebuild(*coming[*misled].lost) && whole;
      coming.erase(coming.begin() + static_cast<std::ptrdiff_t>(*misled));
      continue;
    }
    for (const Step& step : steps) DoAgain(app, coming, step);
    break;
  }
  for (const Coming& each : coming) ShowAllItems(app, *each.window);
  return whole;
}

void ShowAllItems(Application& app, ChildWindow& window) {
  ItemsShown shown;
  for (int row = 0; row < kBankRows; ++row) shown.rows.push_back(row);
  shown.styles = true;
  window.ShowItems(shown);
  if (app.main != nullptr) app.main->RefreshMenus();
}

}  // namespace zentaline
