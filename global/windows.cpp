// How the windows of global data and of back sequences open.
#include <memory>
#include <utility>

#include "core/application.h"
#include "core/window_image.h"
#include "files/api.h"
#include "global/api.h"
#include "global/bsq_format.h"
#include "global/frmBsq.h"
#include "global/frmGbl.h"
#include "global/gbl_format.h"

namespace zentaline {

namespace {

// There is one window of each kind, so its number is always the same.
constexpr int kOnlyWindow = 1;

// The path of the block that the instrument holds, which is no file.
constexpr char kNameWithoutFile[] = "Global Parameters";

void PutControlBytes(Bytes& image, int kind, const WindowRecord& record, bool read_only) {
  PutByte(image, kKindPosition, kind);
  PutByte(image, kReadOnlyPosition, read_only ? 1 : 0);
  PutByte(image, kWindowNumberPosition, kOnlyWindow);
  PutByte(image, kSlotStatePosition, record.state);
  PutWindowPath(image, record.path);
}

ChildWindow& ShowGlobal(Application& app, const Bytes& block, int kind, bool read_only) {
  Bytes image = BuildGlobalImage(block);
  PutControlBytes(image, kind, app.core.GblWindows[kOnlyWindow], read_only);
  return static_cast<ChildWindow&>(app.toolkit.Open(std::make_unique<frmGbl>(app, std::move(image))));
}

}  // namespace

ChildWindow& OpenGlobalWindow(Application& app, const std::string& path, bool read_only) {
  WindowRecord& record = app.core.GblWindows[kOnlyWindow];
  record.path = path;
  return ShowGlobal(app, app.global.GblBuffer, kKindGbl, read_only);
}

void FillGlobalWindow(Application& app) {
  if (app.gbl_window != nullptr) static_cast<frmGbl*>(app.gbl_window)->FillGlobalWindow();
}

void ShowGlobalParameters(Application& app) {
  if (app.gbl_window != nullptr) return app.toolkit.Activate(*app.gbl_window);
  WindowRecord& record = app.core.GblWindows[kOnlyWindow];
  record.path = kNameWithoutFile;
  ShowGlobal(app, app.global.GlobalRecord, kKindGlobal, false);
  record.state = 1;
  RefreshOpenEntries(app);
}

ChildWindow& OpenBackSeqWindow(Application& app, const std::string& path, bool read_only) {
  WindowRecord& record = app.core.BsqWindows[kOnlyWindow];
  record.path = path;
  Bytes image = BuildBackSeqImage(app.global.BsqBuffer);
  PutControlBytes(image, kKindBsq, record, read_only);
  return static_cast<ChildWindow&>(app.toolkit.Open(std::make_unique<frmBsq>(app, std::move(image))));
}

}  // namespace zentaline
