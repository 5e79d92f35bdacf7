#include "core/child_window.h"

#include <algorithm>
#include <utility>

#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/captions.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "data/tooltips.h"
#include "files/api.h"
#include "program/api.h"

namespace zentaline {

ui::Toolkit& ChildWindow::app_toolkit(Application& app) {
  return app.toolkit;
}

int ChildWindow::Kind() const {
  return ByteAt(window_image_, kKindPosition);
}

bool ChildWindow::ReadOnly() const {
  return ByteAt(window_image_, kReadOnlyPosition) == 1;
}

int ChildWindow::WindowNumber() const {
  return ByteAt(window_image_, kWindowNumberPosition);
}

bool ChildWindow::NeverSaved() const {
  return ByteAt(window_image_, kNeverSavedPosition) == 1 || ByteAt(window_image_, kNoFilePosition) == kMustSaveAs;
}

bool ChildWindow::HasOwnPath() const {
  return !NeverSaved() && ByteAt(window_image_, kNoFilePosition) == 0;
}

std::string ChildWindow::BaseName() const {
  return std::string(WindowBaseName(window_image_));
}

void ChildWindow::RefreshMenus() {
  if (app_.main != nullptr) app_.main->RefreshMenus();
}

void ChildWindow::Activated() {
  if (app_.main != nullptr) app_.main->RefreshMenus();
  ProgramEditorLeft(app_, *this);
}

void ChildWindow::Load() {
  ++app_.core.OpenChildCount;
  if (app_.main != nullptr) app_.main->ChildrenChanged();
  DressForm(app_, *this);
  if (WindowRecord* record = Record(); record != nullptr && record->width > 0) {
    SetPlacement(PlacementOf(app_, *record));
  }
  if (FormState* state = FormPlace()) {
    if (state->width > 0) SetPlacement(PlacementOf(app_, *state));
    state->state = placement().state == ui::WindowState::kMaximised ? 2 : 1;
  }
}

void ChildWindow::Unload() {
  --app_.core.OpenChildCount;
  app_.edits.Closed(*this);
  KeepPlace();
  if (FormState* state = FormPlace(); state != nullptr && !app_.core.Closing) state->state = 0;
  if (app_.main != nullptr) {
    app_.main->RefreshMenus();
    app_.main->ChildrenChanged();
  }
}

void ChildWindow::SizeAtFirst(const ui::Font& font, ui::Size characters) {
  const FormState* state = FormPlace();
  if (state != nullptr && state->width == 0) first_room_ = FirstRoom{font, characters};
}

void ChildWindow::Resized() {
  if (first_room_ && inner_size().width > 0) TakeFirstSize();
  KeepPlace();
}

// So many characters and lines inside the frame that the window has by now.
void ChildWindow::TakeFirstSize() {
  const FirstRoom wanted = *std::exchange(first_room_, std::nullopt);
  ui::Placement place = placement();
  place.width += wanted.characters.width * toolkit().TextWidth(wanted.font, "0") - inner_size().width;
  place.height += wanted.characters.height * toolkit().LineHeight(wanted.font) - inner_size().height;
  // Where it was put before it had its size it may reach beyond the main window.
  if (app_.main != nullptr) {
    const ui::Size room = app_.main->inner_size();
    place.width = std::min(place.width, room.width);
    place.height = std::min(place.height, room.height);
    place.left = std::clamp(place.left, 0, std::max(room.width - place.width, 0));
    place.top = std::clamp(place.top, 0, std::max(room.height - place.height, 0));
  }
  SetPlacement(place);
}

void ChildWindow::KeepPlace() {
  if (WindowRecord* record = Record()) {
    KeepPlacement(*record, placement());
    // What has no file of its own can't come back at the next start.
    if (app_.core.Closing && ByteAt(window_image_, kNoFilePosition) != 0) record->state = 0;
  }
  if (FormState* state = FormPlace()) KeepPlacement(*state, placement());
}

void ChildWindow::PopupEditMenu() {
  if (app_.main != nullptr) toolkit().PopupMenu(app_.main->Menu(MenuId::mnuModifica));
}

bool ChildWindow::RefusesChanges() {
  if (ReadOnly()) ShowMessage(app_, kMessageReadOnlyFile, ShownPath(BaseName()), {});
  return ReadOnly();
}

void ChildWindow::Serve(std::vector<Served> functions) {
  served_ = std::move(functions);
  for (const Served& row : served_) {
    if (!row.timer.on_timer) row.timer.on_timer = [&button = row.button] { button.Press(); };
  }
}

ui::Button* ChildWindow::ButtonOf(WindowFunction function) {
  for (const Served& row : served_) {
    if (row.function == function) return &row.button;
  }
  return nullptr;
}

ui::Timer* ChildWindow::TimerOf(WindowFunction function) {
  for (const Served& row : served_) {
    if (row.function == function) return &row.timer;
  }
  return nullptr;
}

void ChildWindow::UnloadFile(ChildWindow*& slot, bool sending, const std::string& path) {
  if (sending) ShowWait(app_, 0);
  slot = nullptr;
  const bool instruments = WindowNumber() == kInstrumentWindow;
  const bool has_file = !path.empty() && ByteAt(window_image_, kNoFilePosition) == 0;
  ChildWindow::Unload();
  if (!instruments && !app_.core.Closing) {
    if (WindowRecord* record = Record()) record->state = 0;
    if (has_file) AddRecentFile(app_, path, ReadOnly());
  }
  RefreshOpenEntries(app_);
}

bool ChildWindow::Offers(WindowFunction function) {
  const ui::Button* button = ButtonOf(function);
  return button != nullptr && button->enabled() && button->visible();
}

void ChildWindow::TakePath(const std::string& base) {
  app_.edits.SetPath(*this, base);
  if (WindowRecord* record = Record()) record->path = base;
  ShowName();
}

void ChildWindow::MakeModeButton(ui::Button& button, void (*send)(Application&), ui::ListBox& list) {
  button.on_click = [this, send, &list] {
    send(app_);
    list.SetFocus();
  };
}

void ChildWindow::ToggleSize(ui::Size size) {
  const bool back = size_before_.width > 0;
  const ui::Size wanted = back ? size_before_ : size;
  size_before_ = back ? ui::Size() : ui::Size{placement().width, placement().height};
  ui::Placement placed = placement();
  placed.width = wanted.width;
  placed.height = wanted.height;
  placed.state = ui::WindowState::kNormal;
  SetPlacement(placed);
  Resized();
}

void ChildWindow::FilesDropped(const std::vector<std::string>& paths) {
  if (app_.main != nullptr) app_.main->FilesDropped(paths);
}

void DressForm(const Application& app, ui::Form& form) {
  const int language = app.Language();
  if (form.caption().empty()) form.SetCaption(std::string(Caption(form.name(), form.name(), language)));
  for (ui::Control* control : form.controls()) {
    // Of the many entries of windows most are never seen: they are dressed when they are.
    if (control->kind() == ui::ControlKind::kMenuEntry && static_cast<ui::MenuEntry*>(control)->numbered) continue;
    const std::string name = control->FullName();
    control->SetToolTip(std::string(ToolTip(form.name(), name, language)));
    auto* captioned = dynamic_cast<ui::Captioned*>(control);
    if (captioned == nullptr || !captioned->caption().empty()) continue;
    captioned->SetCaption(std::string(Caption(form.name(), name, language)));
  }
}

ui::Placement OnScreen(const Application& app, ui::Placement placement) {
  const ui::Size screen = app.toolkit.ScreenSize();
  const bool beyond = placement.left + placement.width <= 0 || placement.left >= screen.width ||
                      placement.top + placement.height <= 0 || placement.top >= screen.height;
  if (beyond) placement.left = placement.top = 0;
  return placement;
}

ui::Placement PlacementOf(const Application& app, const WindowRecord& record) {
  return OnScreen(
      app, {record.left, record.top, record.width, record.height, static_cast<ui::WindowState>(record.window_state)});
}

void KeepPlacement(WindowRecord& record, const ui::Placement& placement) {
  record.window_state = static_cast<int>(placement.state);
  if (record.state != 0) record.state = placement.state == ui::WindowState::kMaximised ? 2 : 1;
  KeepNormalPlace(record, placement);
}

ui::Placement PlacementOf(const Application& app, const FormState& state) {
  const ui::WindowState shown = state.state == 2 ? ui::WindowState::kMaximised : ui::WindowState::kNormal;
  return OnScreen(app, {state.left, state.top, state.width, state.height, shown});
}

void KeepPlacement(FormState& state, const ui::Placement& placement) {
  if (state.state != 0) state.state = placement.state == ui::WindowState::kMaximised ? 2 : 1;
  KeepNormalPlace(state, placement);
}

std::string ReadOnlySuffix(const Application& app, bool read_only) {
  return read_only ? " - " + GetText(app, kTextReadOnly) : std::string();
}

}  // namespace zentaline
