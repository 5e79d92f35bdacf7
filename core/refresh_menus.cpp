// Which menu entries the window in front can serve.
#include "core/application.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"

namespace zentaline {

namespace {

using enum MenuId;

// What RefreshMenus turns off first.
constexpr MenuId kChildEntries[] = {
    mnuIngrandisci, mnuTaglia,        mnuIncolla,  mnuCopia,    mnuSalva,    mnuSalvaAs,   mnuStampa,
    mnuStampaLista, mnuStampaTabella, mnuLoadArr,  mnuLoadSty,  mnuLoadAll,  mnuShowSty,   mnuLoadPrg,
    mnuShowPrg,     mnuEdit,          mnuEditPerf, mnui40DBArr, mnuCancella, mnuDBArrApri, mnuAddAll,
};

bool Grows(int kind) {
  return kind == kKindArr || kind == kKindNewArr;
}

}  // namespace

void MainWindow::RefreshMenus() {
  if (app_.core.Closing) return;
  for (const MenuId id : kChildEntries) Menu(id).SetEnabled(false);
  const bool any = app_.core.OpenChildCount > 0;
  Menu(mnuWindow).SetEnabled(any);
  Menu(mnuChiudi).SetEnabled(any);
  if (ChildWindow* child = ActiveChild(); any && child != nullptr) EnableForKind(*child);
}

void MainWindow::EnableForKind(ChildWindow& child) {
  const bool saves = child.CanSave();
  Menu(mnuSalva).SetEnabled(saves && !child.ReadOnly() && !app_.core.settings.RdOnly);
  Menu(mnuSalvaAs).SetEnabled(saves);
  Menu(mnuIngrandisci).SetEnabled(Grows(child.Kind()));
  Menu(mnuStampaLista).SetEnabled(PrintsList(child.Kind()));
  Menu(mnuStampaTabella).SetEnabled(PrintsTable(child.Kind()));
  Menu(mnuStampa).SetEnabled(PrintsTable(child.Kind()));
  const ItemEntries items = UsableItemEntries(app_, child);
  Menu(mnuTaglia).SetEnabled(items.cut);
  Menu(mnuCopia).SetEnabled(items.copy);
  Menu(mnuIncolla).SetEnabled(items.paste);
  for (const ActiveEntry& row : kActiveEntries) {
    Menu(row.entry).SetEnabled(child.Offers(row.function));
  }
}

}  // namespace zentaline
