#include "core/frmAvviso1.h"

#include <utility>

#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "data/texts.h"

namespace zentaline {

namespace {

constexpr int kAnswerYes = 0;
constexpr int kAnswerNo = 1;
constexpr int kAnswerCancel = 2;
constexpr ui::Size kSize = {360, 140};

}  // namespace

frmAvviso1::frmAvviso1(Application& app, std::string title, const std::string& line1, const std::string& line2)
    : Form(app.toolkit, ui::FormKind::kModal, "frmAvviso1"), app_(app) {
  SetCaption(std::move(title));
  Label1[0].SetCaption(line1);
  Label1[1].SetCaption(line2);
  layout = ui::Column({ui::Item(Label1[0]), ui::Item(Label1[1]), ui::Space(),
                       ui::Row({ui::Space(), ui::Item(CommSI), ui::Item(CommNO), ui::Item(CommAnnulla)})});
  default_button = &CommSI;
  cancel_button = &CommAnnulla;
  CommSI.on_click = [this] { Answer(kAnswerYes); };
  CommNO.on_click = [this] { Answer(kAnswerNo); };
  CommAnnulla.on_click = [this] { Answer(kAnswerCancel); };
}

void frmAvviso1::Load() {
  app_.core.WarningAnswer = kAnswerNo;
  CommAnnulla.SetCaption(GetText(app_, kTextCancel));
  DressForm(app_, *this);
  if (app_.main == nullptr) return;
  const ui::Placement& main = app_.main->placement();
  SetPlacement({main.left + (main.width - kSize.width) / 2, main.top + (main.height - kSize.height) / 2, kSize.width,
                kSize.height, ui::WindowState::kNormal});
}

void frmAvviso1::Answer(int answer) {
  app_.core.WarningAnswer = answer;
  Close();
}

}  // namespace zentaline
