// How the windows of global data and of back sequences open.
#include <memory>
#include <utility>

#include "core/application.h"
#include "core/window_image.h"
#include "global/api.h"
#include "global/bsq_format.h"
#include "global/frmBsq.h"

namespace zentaline {

namespace {

// There is one window of each kind, so its number is always the same.
constexpr int kOnlyWindow = 1;

void PutControlBytes(Bytes& image, int kind, const WindowRecord& record, bool read_only) {
  PutByte(image, kKindPosition, kind);
  PutByte(image, kReadOnlyPosition, read_only ? 1 : 0);
  PutByte(image, kWindowNumberPosition, kOnlyWindow);
  PutByte(image, kSlotStatePosition, record.state);
  PutWindowPath(image, record.path);
}

}  // namespace

ChildWindow& OpenBackSeqWindow(Application& app, const std::string& path, bool read_only) {
  WindowRecord& record = app.core.BsqWindows[kOnlyWindow];
  record.path = path;
  Bytes image = BuildBackSeqImage(app.global.BsqBuffer);
  PutControlBytes(image, kKindBsq, record, read_only);
  return static_cast<ChildWindow&>(app.toolkit.Open(std::make_unique<frmBsq>(app, std::move(image))));
}

}  // namespace zentaline
