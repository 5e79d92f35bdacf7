// How the style windows open.
#include "style/windows.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/api.h"
#include "style/api.h"
#include "style/frmStyAB.h"
#include "style/frmStyUN.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

// 0 when all places are taken.
int FreeNewWindow(const Application& app) {
  const auto& slots = app.new_sty_windows;
  const auto free = std::find(slots.begin() + 1, slots.end(), nullptr);
  return free == slots.end() ? 0 : static_cast<int>(free - slots.begin());
}

ChildWindow& Show(Application& app, int number, Bytes image) {
  return static_cast<ChildWindow&>(app.toolkit.Open(std::make_unique<frmStyUN>(app, number, std::move(image))));
}

Bytes ImageFor(int kind, int number, std::string_view styles, const std::string& path) {
  Bytes image = BuildStyWindowImage(styles);
  PutByte(image, kKindPosition, kind);
  PutByte(image, kWindowNumberPosition, number);
  PutWindowPath(image, path);
  return image;
}

}  // namespace

ChildWindow& OpenStyWindow(Application& app, int number, const std::string& path, bool read_only) {
  WindowRecord& record = app.core.StyWindows[static_cast<std::size_t>(number)];
  record.path = path;
  // The second byte brings a read-only window back as one.
  record.second = read_only ? 1 : 0;
  Bytes image = ImageFor(kKindSty, number, app.style.StyleImage, path);
  PutByte(image, kReadOnlyPosition, read_only ? 1 : 0);
  PutByte(image, kSlotStatePosition, record.state);
  // Styles that arrangements hold and the disk doesn't.
  const ChildWindow* changed = ChangedStyles(app, kKindArr, path);
  const bool unsaved = changed != nullptr && StylePart(changed->window_image()) == app.style.StyleImage;
  PutByte(image, kStyChangedPosition, unsaved ? 1 : 0);
  return Show(app, number, std::move(image));
}

void NewStyFile(Application& app) {
  const int number = FreeNewWindow(app);
  if (number == 0) return;
  const std::string& path = app.core.InternalSty;
  switch (StyFileRead(app, path)) {
    case kStyGood:
      break;
    case kStyAbsent:
      return ShowMessage(app, kMessageNotFound, app.core.OperationTitle, ShownPath(FileBaseName(path)));
    default:
      return ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, ShownPath(FileBaseName(path)));
  }
  // A name in either language's program is the same.
  Bytes image = ImageFor(kKindNewSty, number, app.style.EmptyStyleImage, "Untitled (" + std::to_string(number) + ")");
  PutByte(image, kSlotStatePosition, 1);
  PutByte(image, kNeverSavedPosition, 1);
  Show(app, number, std::move(image));
  RefreshNewStyEntry(app);
}

void RefreshNewStyEntry(Application& app) {
  if (app.main != nullptr) app.main->Menu(MenuId::mnuNuovoSty).SetEnabled(FreeNewWindow(app) != 0);
}

void OpenStyBank(Application& app, int kind) {
  if (ui::Form* open = app.toolkit.FindForm("frmStyAB(" + std::to_string(kind) + ")")) {
    return app.toolkit.Activate(*open);
  }
  app.toolkit.Open(std::make_unique<frmStyAB>(app, kind));
}

}  // namespace zentaline
