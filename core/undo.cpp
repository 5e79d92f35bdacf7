#include "core/undo.h"

#include <algorithm>

#include "arrangement/api.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "files/api.h"
#include "program/api.h"

namespace zentaline {

namespace {

using enum MenuId;
using Thing = EditTarget::Thing;

bool Changes(const EditAction& action, const EditTarget& target) {
  return std::any_of(action.changes.begin(), action.changes.end(),
                     [&](const EditChange& change) { return change.target == target; });
}

bool TakesFocus(const ui::Control& control) {
  switch (control.kind()) {
    case ui::ControlKind::kScrollBar:
    case ui::ControlKind::kComboBox:
    case ui::ControlKind::kCheckBox:
    case ui::ControlKind::kTextBox:
      return true;
    default:
      return false;
  }
}

}  // namespace

Undo::Hold::Hold(Application& app) : undo_(app.undo) {
  ++undo_.holds_;
  undo_.ShowEntries();
}

Undo::Hold::~Hold() {
  --undo_.holds_;
  undo_.ShowEntries();
}

bool Undo::Off() const {
  return holds_ > 0 || app_.main == nullptr || app_.Starting() || app_.core.Closing;
}

void Undo::EventEnded() {
  app_.edits.EventEnded();
  if (shown_changes_ == app_.edits.changes()) return;
  shown_changes_ = app_.edits.changes();
  // Most often there is one action more, where there were some.
  const bool more = shows_back_alone_ && app_.edits.NewestIsStep();
  if (!more) ShowEntries();
}

void Undo::ShowEntries() {
  if (app_.main == nullptr) return;
  const auto show = [this](MenuId id, const EditAction* action) {
    ui::MenuEntry& entry = app_.main->Menu(id);
    entry.SetEnabled(action != nullptr && !Off());
  };
  const EditAction* back = app_.edits.NextBack();
  const EditAction* forward = app_.edits.NextForward();
  show(mnuAnnulla, back);
  show(mnuRipeti, forward);
  shows_back_alone_ = back != nullptr && forward == nullptr && !Off();
}

// Only when somebody looks: a hand makes many changes in between.
void Undo::MakeCaptions(ui::MenuEntry& back, ui::MenuEntry& forward) {
  back.before_look = [this, &back] { back.SetCaption(UndoCaption(app_, true, app_.edits.NextBack())); };
  forward.before_look = [this, &forward] { forward.SetCaption(UndoCaption(app_, false, app_.edits.NextForward())); };
}

// --- A step ---

void Undo::Step(bool back) {
  if (Off()) return;
  Edits& edits = app_.edits;
  const EditAction* const next = back ? edits.NextBack() : edits.NextForward();
  if (next == nullptr) return;
  const bool of_database = Changes(*next, kDatabaseImage);
  if (of_database && !DatabaseFits(app_)) return edits.ForgetDatabase();

  record_.clear();
  for (const EditTarget& target : {kArrRecordUnderEdit, kPrgRecordUnderEdit}) {
    if (Changes(*next, target)) record_ = edits.Read(target);
  }
  const std::size_t before = edits.standing();
  Move(*next, back);
  if (of_database && !WriteDatabaseStep(app_)) return Move(*next, !back);
  const std::size_t first = std::min(before, edits.standing());
  const std::size_t last = std::max(before, edits.standing());
  for (std::size_t i = first; i < last; ++i) edits.SetTrueMarks(edits.actions()[i]);
  for (ChildWindow* window : followed_) ShowFollowed(app_, *window);
  // What saves did by themselves, as with styles that nobody used.
  for (std::size_t i = first; i < last; ++i) {
    const EditAction& crossed = edits.actions()[i];
    if (crossed.kind != EditAction::Kind::kUser && !crossed.changes.empty()) Show({crossed, back});
  }
  Show({*next, back, record_});
}

// Back over the step itself, forth over what follows it up to the next one: a save stands behind what was saved.
void Undo::Move(const EditAction& step, bool back) {
  Edits& edits = app_.edits;
  while (const EditAction* passed = back ? edits.StepBack() : edits.StepForward()) {
    if (passed == &step) break;
  }
  // Before what later saves did to the window that goes along.
  followed_.clear();
  for (const EditChange& change : step.changes) {
    if (change.target.thing != Thing::kImage) continue;
    if (ChildWindow* window = FollowStyles(app_, *change.target.window, step)) followed_.push_back(window);
  }
  if (back) return;
  const EditAction* const next = edits.NextForward();
  while (edits.standing() < edits.actions().size() && &edits.actions()[edits.standing()] != next) edits.StepForward();
}

void Undo::Show(const EditStep& step) {
  const std::vector<EditChange>& changes = step.action.changes;
  const bool of_image = changes.front().target.thing == Thing::kImage;
  if (of_image) app_.toolkit.Activate(*changes.front().target.window);
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const EditTarget& target = changes[i].target;
    const auto here = changes.begin() + static_cast<std::ptrdiff_t>(i);
    if (std::any_of(changes.begin(), here, [&](const EditChange& each) { return each.target == target; })) continue;
    switch (target.thing) {
      case Thing::kImage:
        target.window->ShowStep(step);
        break;
      case Thing::kArrEditRecord:
        ShowArrEditorStep(app_, step);
        break;
      case Thing::kEditRecord:
        ShowProgramStep(app_, step);
        break;
      case Thing::kDatabase:
        ShowDatabaseStep(app_);
        break;
    }
  }
  if (of_image && app_.main != nullptr) app_.main->RefreshMenus();
}

bool ChangesWithin(const EditAction& action, const EditTarget& target, std::size_t begin, std::size_t end) {
  return std::any_of(action.changes.begin(), action.changes.end(), [&](const EditChange& change) {
    const std::size_t length = std::max({change.before.size(), change.after.size(), std::size_t{1}});
    return change.target == target && change.position < end && change.position + length > begin;
  });
}

void ShowPlace(ui::Control& control) {
  control.TurnPages();
  if (!control.Usable()) return;
  control.SetFocus();
  // One that has the focus already may have been scrolled away from.
  control.ComeIntoSight();
}

void ShowPlace(const ChildWindow& window, const EditStep& step) {
  const auto here = [&](const auto& shown) { return &shown.control->form() == &window && TakesFocus(*shown.control); };
  const auto& shown = step.action.shown;
  if (const auto first = std::find_if(shown.begin(), shown.end(), here); first != shown.end()) {
    return ShowPlace(*first->control);
  }
  const auto& texts = step.action.texts;
  if (const auto first = std::find_if(texts.begin(), texts.end(), here); first != texts.end()) {
    ShowPlace(*first->control);
  }
}

void ShowAgain(ui::Control& control, int value) {
  switch (control.kind()) {
    case ui::ControlKind::kScrollBar:
      return static_cast<ui::ScrollBar&>(control).ShowValue(value);
    case ui::ControlKind::kComboBox:
      return static_cast<ui::ComboBox&>(control).ShowRow(value);
    case ui::ControlKind::kCheckBox:
      return static_cast<ui::CheckBox&>(control).ShowValue(value != 0);
    case ui::ControlKind::kButton:
      return control.SetEnabled(value != 0);
    default:
      return;
  }
}

void ShowAgain(ui::Control& control, const std::string& text, int row) {
  switch (control.kind()) {
    case ui::ControlKind::kTextBox:
      return static_cast<ui::TextBox&>(control).ShowText(text);
    case ui::ControlKind::kLabel:
      return static_cast<ui::Label&>(control).SetCaption(text);
    case ui::ControlKind::kListBox:
      return static_cast<ui::ListBox&>(control).SetRowText(row, text);
    default:
      return;
  }
}

}  // namespace zentaline
