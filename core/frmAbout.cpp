#include "core/frmAbout.h"

#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "data/texts.h"

namespace zentaline {

frmAbout::frmAbout(Application& app) : Form(app.toolkit, ui::FormKind::kModal, "frmAbout"), app_(app) {
  layout = ui::Column({ui::Item(Label1), ui::Item(Label2), ui::Space(), ui::Row({ui::Space(), ui::Item(cmdOK)})});
  Label1.wraps = Label2.wraps = true;
  default_button = cancel_button = &cmdOK;
  cmdOK.on_click = [this] { Close(); };
}

void frmAbout::Load() {
  SetCaption(GetText(app_, kTextAbout) + "Zentaline");
  Label1.SetCaption(GetText(app_, kTextProgram));
  Label2.SetCaption(GetText(app_, kTextVersion));
  DressForm(app_, *this);
}

}  // namespace zentaline
