#include "core/frmLingua.h"

#include "core/application.h"
#include "core/child_window.h"

namespace zentaline {

frmLingua::frmLingua(Application& app) : Form(app.toolkit, ui::FormKind::kModal, "frmLingua"), app_(app) {
  layout = ui::Column({ui::Item(Option1[0]), ui::Item(Option1[1]), ui::Row({ui::Space(), ui::Item(CommOK)})});
  default_button = &CommOK;
  for (int i = 0; i < 2; ++i) {
    Option1[i].on_click = [this, i] { app_.core.LanguageCode = i + 1; };
  }
  CommOK.on_click = [this] {
    // Only once a language is chosen.
    if (!Option1[0].value() && !Option1[1].value()) return;
    chosen_ = true;
    Close();
  };
}

void frmLingua::Load() {
  DressForm(app_, *this);
}

}  // namespace zentaline
