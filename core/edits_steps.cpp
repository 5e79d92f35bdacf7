// What the list of changes knows beyond bytes: which entries are steps, how far each window is away from what was
// saved, what the controls showed, and who is told.
#include <algorithm>
#include <array>
#include <utility>

#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/edit_listener.h"
#include "core/edits.h"
#include "core/window_image.h"

namespace zentaline {

namespace {

using Thing = EditTarget::Thing;

// The marks that say that something isn't saved, in the order of a window's tallies.
constexpr std::array<std::size_t, 3> kTallied = {kChangedPosition, kPrgChangedPosition, kStyChangedPosition};

// No action changes parts of more than two windows and a record.
constexpr std::size_t kMostParts = 8;

std::size_t MarkOfImage(const EditChange& change) {
  switch (change.target.window->Kind()) {
    case kKindSty:
    case kKindNewSty:
      return kStyChangedPosition;
    case kKindPrg:
    case kKindNewPrg:
    case kKindPcg:
      return kPrgChangedPosition;
    case kKindArr:
    case kKindNewArr:
      return change.position > kArrImageLength ? kStyChangedPosition : kChangedPosition;
    default:
      return kChangedPosition;
  }
}

EditMark MarkOf(const EditChange& change) {
  return {change.target, change.target.thing == Thing::kImage ? MarkOfImage(change) : 0};
}

// Once for each mark that tells of what the entry has changed, or that it has set where no byte has.
template <typename Function>
void ForEachPart(const EditAction& action, Function&& function) {
  if (action.changes.size() == 1 && action.marks.empty()) {
    const EditChange& change = action.changes.front();
    if (change.target.thing != Thing::kDatabase && change.changes_bytes) function(MarkOf(change));
    return;
  }
  std::array<EditMark, kMostParts> seen;
  std::size_t count = 0;
  const auto see = [&](const EditMark& mark) {
    const auto end = seen.begin() + static_cast<std::ptrdiff_t>(count);
    if (std::find(seen.begin(), end, mark) != end || count == kMostParts) return;
    seen[count++] = mark;
    function(mark);
  };
  for (const EditChange& change : action.changes) {
    if (change.target.thing != Thing::kDatabase && change.changes_bytes) see(MarkOf(change));
  }
  for (const EditMarkChange& each : action.marks) {
    if (each.after != 0 && action.IsStep()) see(each.mark);
  }
}

bool Touches(const EditAction& action, const EditMark& mark) {
  bool found = false;
  ForEachPart(action, [&](const EditMark& each) { found |= each == mark; });
  return found;
}

}  // namespace

EditTally* Edits::TallyOf(const EditTarget& target, std::size_t position) {
  switch (target.thing) {
    case Thing::kArrEditRecord:
      return &app_.arrangement.EditorChanged.tally_;
    case Thing::kEditRecord:
      return &app_.program.ProgramChanged.tally_;
    case Thing::kImage: {
      const auto place = std::find(kTallied.begin(), kTallied.end(), position);
      if (place == kTallied.end()) return nullptr;
      return &target.window->tallies_[static_cast<std::size_t>(place - kTallied.begin())];
    }
    case Thing::kDatabase:
      break;
  }
  return nullptr;
}

void Edits::Count(const EditAction& action, int one) {
  ForEachPart(action, [&](const EditMark& part) {
    EditTally* tally = TallyOf(part.target, part.position);
    if (tally == nullptr) return;
    if (!std::exchange(tally->known, true)) {
      const auto noted = std::find_if(action.marks.begin(), action.marks.end(),
                                      [&](const EditMarkChange& each) { return each.mark == part; });
      tally->mark = noted != action.marks.end() ? noted->before : MarkValue(part);
    }
    tally->standing += one;
  });
}

int Edits::MarkValue(const EditMark& mark) {
  if (mark.target.thing == Thing::kImage) return ByteAt(BytesOf(mark.target), mark.position);
  return FlagOf(mark.target) ? 1 : 0;
}

void Edits::Settle() {
  NoteWaiting();
  Tell();
  EditAction* const action = std::exchange(growing_, nullptr);
  if (action == nullptr || std::exchange(action->counted, true) || action->kind != EditAction::Kind::kUser) return;
  if (action->ChangesBytes()) return Count(*action, 1);
  // No byte is another one, but it has set marks.
  for (const EditMarkChange& each : action->marks) {
    if (each.after != 0) StayMarked(each.mark);
  }
}

// Up to the next save.
void Edits::StayMarked(const EditMark& mark) {
  EditTally* tally = TallyOf(mark.target, mark.position);
  if (tally == nullptr) return;
  tally->mark = 1;
  tally->known = true;
}

void Edits::SetTrueMarks(const EditAction& action) {
  const auto set = [&](const EditTarget& target, std::size_t position) {
    const EditTally* tally = TallyOf(target, position);
    if (tally != nullptr && tally->known) SetMark({target, position}, tally->Value());
  };
  ForEachPart(action, [&](const EditMark& part) { set(part.target, part.position); });
  for (const EditMarkChange& each : action.marks) set(each.mark.target, each.mark.position);
  if (action.window == nullptr) return;
  for (const std::size_t position : kTallied) set(ImageOf(*action.window), position);
}

// A save, or what drops all changes.
void Edits::TallySaved(ChildWindow& window) {
  for (const std::size_t position : kTallied) {
    TallyOf(ImageOf(window), position)->Save(ByteAt(window.window_image_, position));
  }
}

void Edits::LoseForward() {
  for (std::size_t i = standing_; i < actions_.size(); ++i) {
    ForEachPart(*actions_[i], [&](const EditMark& part) {
      EditTally* tally = TallyOf(part.target, part.position);
      if (tally != nullptr && tally->saved > tally->standing) tally->saved = EditTally::kNever;
    });
  }
}

// The same after some of what could be brought forth has gone.
void Edits::LoseUnreached(const EditMark& part) {
  EditTally* tally = TallyOf(part.target, part.position);
  if (tally == nullptr || tally->saved <= tally->standing) return;
  const auto ahead = actions_.begin() + static_cast<std::ptrdiff_t>(standing_);
  const auto left =
      std::count_if(ahead, actions_.end(), [&](const auto& each) { return each->IsStep() && Touches(*each, part); });
  if (tally->saved > tally->standing + static_cast<int>(left)) tally->saved = EditTally::kNever;
}

void Edits::LoseUnreached(const EditAction& gone) {
  ForEachPart(gone, [&](const EditMark& part) { LoseUnreached(part); });
}

// --- What was shown ---

EditAction* Edits::Showing() {
  NoteWaiting();
  const bool changed = growing_ != nullptr && !growing_->changes.empty() && growing_->cause == app_.toolkit.cause();
  return changed ? growing_ : nullptr;
}

void Edits::NoteShown(ui::Control& control, int before, int after) {
  EditAction* const action = Showing();
  if (action == nullptr) return;
  for (EditShown& each : action->shown) {
    if (each.control != &control) continue;
    each.after = after;
    return;
  }
  action->shown.push_back({&control, before, after});
}

void Edits::NoteShown(ui::Control& control, const std::string& before, const std::string& after, int row) {
  EditAction* const action = Showing();
  if (action == nullptr) return;
  for (EditTextShown& each : action->texts) {
    if (each.control != &control || each.row != row) continue;
    each.after = after;
    return;
  }
  action->texts.push_back({&control, row, before, after});
}

// --- Steps ---

const EditAction* Edits::NextBack() {
  NoteWaiting();
  for (std::size_t i = standing_; i-- > 0;) {
    if (actions_[i]->IsStep()) return actions_[i].get();
  }
  return nullptr;
}

const EditAction* Edits::NextForward() {
  NoteWaiting();
  for (std::size_t i = standing_; i < actions_.size(); ++i) {
    if (actions_[i]->IsStep()) return actions_[i].get();
  }
  return nullptr;
}

int Edits::BackCount() const {
  const auto end = actions_.begin() + static_cast<std::ptrdiff_t>(standing_);
  return static_cast<int>(std::count_if(actions_.begin(), end, [](const auto& each) { return each->IsStep(); }));
}

int Edits::ForwardCount() const {
  const auto begin = actions_.begin() + static_cast<std::ptrdiff_t>(standing_);
  return static_cast<int>(std::count_if(begin, actions_.end(), [](const auto& each) { return each->IsStep(); }));
}

void Edits::SetLimits(std::size_t actions, std::size_t bytes) {
  most_actions_ = actions;
  most_bytes_ = bytes;
}

// --- Who is told ---

void Edits::Tell() {
  NoteWaiting();
  if (!std::exchange(untold_, false) || listener_ == nullptr || growing_ == nullptr) return;
  if (growing_->kind == EditAction::Kind::kUser) listener_->Noted(*growing_);
}

void Edits::EndAction() {
  Settle();
}

void Edits::EventEnded() {
  NoteWaiting();
  if (!set_.empty()) {
    if (!bytes_changed_) {
      for (const EditMark& mark : set_) StayMarked(mark);
    }
    set_.clear();
  }
  bytes_changed_ = false;
  if (!opened_.empty()) {
    for (ChildWindow* window : std::exchange(opened_, {})) {
      if (listener_ != nullptr) listener_->Opened(*window);
    }
  }
  Tell();
}

}  // namespace zentaline
