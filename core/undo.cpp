#include "core/undo.h"

#include <algorithm>

#include "arrangement/api.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "program/api.h"

namespace zentaline {

namespace {

using enum MenuId;
using Thing = EditTarget::Thing;

bool Changes(const EditAction& action, const EditTarget& target) {
  return std::any_of(action.changes.begin(), action.changes.end(),
                     [&](const EditChange& change) { return change.target == target; });
}

bool Holds(const ui::Layout& layout, const ui::Control& control) {
  if (layout.control == &control) return true;
  return std::any_of(layout.children.begin(), layout.children.end(),
                     [&](const ui::Layout& child) { return Holds(child, control); });
}

void TurnTo(const ui::Layout& layout, const ui::Control& control) {
  for (std::size_t i = 0; i < layout.children.size(); ++i) {
    if (!Holds(layout.children[i], control)) continue;
    if (layout.kind == ui::Layout::Kind::kPages) static_cast<ui::Tabs&>(*layout.control).ShowPage(static_cast<int>(i));
    return TurnTo(layout.children[i], control);
  }
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
  ShowEntries();
}

void Undo::ShowEntries() {
  if (app_.main == nullptr) return;
  const auto show = [this](MenuId id, const EditAction* action, std::int64_t& shown) {
    ui::MenuEntry& entry = app_.main->Menu(id);
    const std::int64_t number = action == nullptr ? 0 : action->number;
    if (number != shown) entry.SetCaption(UndoCaption(app_, id == mnuAnnulla, action));
    shown = number;
    entry.SetEnabled(action != nullptr && !Off());
  };
  show(mnuAnnulla, app_.edits.NextBack(), shown_back_);
  show(mnuRipeti, app_.edits.NextForward(), shown_forward_);
}

// --- A step ---

void Undo::Step(bool back) {
  if (Off()) return;
  Edits& edits = app_.edits;
  const EditAction* const next = back ? edits.NextBack() : edits.NextForward();
  if (next == nullptr) return;
  const bool of_database = Changes(*next, kDatabaseImage);
  if (of_database && !DatabaseFits(app_)) return edits.ForgetDatabase();

  Bytes record;
  for (const EditTarget& target : {kArrRecordUnderEdit, kPrgRecordUnderEdit}) {
    if (Changes(*next, target)) record = edits.Read(target);
  }
  const std::size_t before = edits.standing();
  Move(*next, back);
  if (of_database && !WriteDatabaseStep(app_)) return Move(*next, !back);
  const auto [first, last] = std::minmax(before, edits.standing());
  for (std::size_t i = first; i < last; ++i) edits.SetTrueMarks(edits.actions()[i]);
  // What saves did by themselves, as with styles that nobody used.
  for (std::size_t i = first; i < last; ++i) {
    const EditAction& crossed = edits.actions()[i];
    if (crossed.kind != EditAction::Kind::kUser && !crossed.changes.empty()) Show({crossed, back});
  }
  Show({*next, back, record});
}

// Back over the step itself, forth over what follows it up to the next one: a save stands behind what was saved.
void Undo::Move(const EditAction& step, bool back) {
  Edits& edits = app_.edits;
  while (const EditAction* passed = back ? edits.StepBack() : edits.StepForward()) {
    if (passed == &step) break;
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

void ShowPlace(ChildWindow& window, ui::Control& control) {
  TurnTo(window.layout, control);
  if (control.Usable()) control.SetFocus();
}

void ShowPlace(ChildWindow& window, const EditStep& step) {
  for (const EditShown& shown : step.action.shown) {
    if (&shown.control->form() == &window && TakesFocus(*shown.control)) return ShowPlace(window, *shown.control);
  }
}

void ShowAgain(ui::Control& control, const EditValue& value, int row) {
  switch (control.kind()) {
    case ui::ControlKind::kScrollBar:
      return static_cast<ui::ScrollBar&>(control).ShowValue(value.number);
    case ui::ControlKind::kComboBox:
      return static_cast<ui::ComboBox&>(control).ShowRow(value.number);
    case ui::ControlKind::kCheckBox:
      return static_cast<ui::CheckBox&>(control).ShowValue(value.number != 0);
    case ui::ControlKind::kButton:
      return control.SetEnabled(value.number != 0);
    case ui::ControlKind::kTextBox:
      return static_cast<ui::TextBox&>(control).ShowText(value.text);
    case ui::ControlKind::kLabel:
      return static_cast<ui::Label&>(control).SetCaption(value.text);
    case ui::ControlKind::kListBox:
      return static_cast<ui::ListBox&>(control).SetRowText(row, value.text);
    default:
      return;
  }
}

}  // namespace zentaline
