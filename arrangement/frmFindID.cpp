#include "arrangement/frmFindID.h"

#include <string>

#include "arrangement/api.h"
#include "arrangement/windows.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"

namespace zentaline {

frmFindID::frmFindID(Application& app) : ChildWindow(app, "frmFindID", {}) {
  app.edits.TakeImage(*this, {static_cast<char>(kKindFindId), '\0'});
  SetCaption(GetText(app, kTextFindId));
  Text1.least_characters = {10, 1};
  CommOK.on_click = [this] { Press(); };
  Timer.on_timer = [this] { Search(); };
  default_button = &CommOK;
  layout = ui::Column({ui::Row({ui::Item(Label1), ui::Item(Text1, 1), ui::Item(CommOK)}), ui::Space()});
}

FormState* frmFindID::FormPlace() {
  return &app().core.FormStates[kKindFindId];
}

void frmFindID::Load() {
  ChildWindow::Load();
  Text1.SetText({});
  Text1.SetFocus();
  if (app().main != nullptr) app().main->Menu(MenuId::mnuWFindID).SetEnabled(false);
}

void frmFindID::Unload() {
  if (searching_) ShowWait(app(), 0);
  ChildWindow::Unload();
  if (app().main != nullptr) app().main->Menu(MenuId::mnuWFindID).SetEnabled(true);
}

void frmFindID::Press() {
  ShowWait(app(), kWaitOpening, "ID =" + std::string(Trim(Text1.text())));
  searching_ = true;
  Timer.Start();
  // Ready for the next one.
  Text1.SetFocus();
}

void frmFindID::Search() {
  searching_ = false;
  FindArrangement(app(), std::string(Trim(Text1.text())), caption());
}

}  // namespace zentaline
