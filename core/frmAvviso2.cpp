#include "core/frmAvviso2.h"

#include <utility>

#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "data/texts.h"

namespace zentaline {

frmAvviso2::frmAvviso2(Application& app, std::string title, const std::string& text)
    : Form(app.toolkit, ui::FormKind::kModal, "frmAvviso2"), app_(app) {
  SetCaption(std::move(title));
  Label1.SetCaption(text);
  Label1.wraps = true;
  layout = ui::Column({ui::Item(Label1, 1), ui::Row({ui::Space(), ui::Item(CommClose)})});
  default_button = cancel_button = &CommClose;
  CommClose.on_click = [this] { Close(); };
}

void frmAvviso2::Load() {
  CommClose.SetCaption(GetText(app_, kTextClose));
  DressForm(app_, *this);
}

}  // namespace zentaline
