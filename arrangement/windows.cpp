// The arrangement windows' slots.
#include "arrangement/windows.h"

#include <memory>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/frmArrU.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"

namespace zentaline {

ChildWindow& OpenArrWindow(Application& app, int number, const std::string& path, bool read_only) {
  WindowRecord& record = app.core.ArrWindows[static_cast<std::size_t>(number)];
  record.path = path;
  // The second byte brings a read-only window back as one.
  record.second = read_only ? 1 : 0;
  ArrImageOptions options;
  options.read_only = read_only;
  options.window_number = number;
  options.slot_state = record.state;
  Bytes image = BuildArrImage(kKindArr, app.arrangement.ArrFileImage, path, options);
  return static_cast<ChildWindow&>(app.toolkit.Open(std::make_unique<frmArrU>(app, number, std::move(image))));
}

void SlotTakeFile(Application& app, const std::string& path) {
  InstrumentTakes(app, kKindArr, path, false);
  if (app.main != nullptr) app.main->ShowArrUEntry();
}

void ArrEditorClosed(Application& app) {
  for (ChildWindow* window : app.arr_windows) {
    if (window != nullptr) static_cast<frmArrU*>(window)->EditorClosed();
  }
}

void ShowRecordName(ChildWindow& window, int index) {
  static_cast<frmArrU&>(window).ShowRecordName(index);
}

}  // namespace zentaline
