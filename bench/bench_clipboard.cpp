// How long it takes to paste a whole file of arrangements with all their styles into a window that has none, beside
// copying the bytes that the window's image then has and building its list once.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "arrangement/arr_format.h"
#include "base/memory.h"
#include "base/panel_numbers.h"
#include "base/posix_disk.h"
#include "bench/clipboard_files.h"
#include "bench/measure.h"
#include "bench/program.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "midi/recorder/recorder.h"
#include "style/sty_format.h"
#include "tests/support/scratch_folder.h"
#include "ui/console/console_toolkit.h"
#include "ui/controls.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr int kRounds = 31;

class Desk {
 public:
  Desk() : app(toolkit, midi, disk_, folder_.Path()) {
    folder_.Put("i40Sty", Template());
    folder_.Put("Full.arr", Arrangements(kArrRecordCount));
    folder_.Put("Full.sty", Styles());
    folder_.Put("Empty.arr", Arrangements(0));
    app.Start();
    toolkit.RunChain([this] { return app.Starting(); });
  }

  ChildWindow& Open(const std::string& name) {
    toolkit.file = folder_.Path(name);
    OpenFile(app, kKindArr);
    return static_cast<ChildWindow&>(*toolkit.active_child());
  }
  void CopyAll() {
    ChildWindow& window = Open("Full.arr");
    std::vector<int> rows(kArrRecordCount);
    std::iota(rows.begin(), rows.end(), 0);
    window.ItemList()->UserSelect(rows);
    CopySelected(app, window);
  }

 private:
  test::ScratchFolder folder_;
  PosixDisk disk_;

 public:
  AnsweringToolkit toolkit;
  RecorderMidi midi;
  Application app;
};

// Each time is taken when a window has just been opened, so that all find the processor's caches alike.

// -1 when not all of it came.
double PasteTime(Desk& desk) {
  ChildWindow& window = desk.Open("Empty.arr");
  const Clock::time_point begin = Clock::now();
  desk.app.main->Menu(MenuId::mnuIncolla).UserPress();
  const double time = Nanoseconds(Clock::now() - begin);
  const bool whole = StyTotalSize(window.window_image()) == kStyHeaderLength + kStyEntryCount * kStyleLength &&
                     window.ItemList()->RowText(kArrRecordCount - 1) == "88 +Arrangement 63  ";
  window.CloseWithoutAsking();
  return whole ? time : -1;
}

double CopyTime(Desk& desk, const Bytes& image) {
  ChildWindow& window = desk.Open("Empty.arr");
  const Clock::time_point begin = Clock::now();
  const auto copy = std::make_unique<Bytes>(image);
  const double time = Nanoseconds(Clock::now() - begin);
  window.CloseWithoutAsking();
  return copy->back() == image.back() ? time : -1;
}

// The texts of the window's 64 rows, put into a list as opening does.
double ListTime(Desk& desk, const Bytes& image, ui::ListBox& list) {
  ChildWindow& window = desk.Open("Empty.arr");
  const Clock::time_point begin = Clock::now();
  std::vector<std::string> rows;
  rows.reserve(kArrRecordCount);
  for (int row = 0; row < kArrRecordCount; ++row) {
    const std::size_t record = ArrRecordPosition(row);
    std::string text = PanelNumberText(row);
    text += ByteAt(image, record + arr_record::kStyleLocation) == kUserStyleLocation ? " +" : "  ";
    rows.push_back(text + Utf8FromBytes(std::string_view(image).substr(record - 1, kArrNameLength)));
  }
  list.SetRows(std::move(rows));
  const double time = Nanoseconds(Clock::now() - begin);
  window.CloseWithoutAsking();
  return time;
}

void MeasurePaste(Desk& desk) {
  desk.CopyAll();
  const Bytes image = desk.app.files.ItemClipboard;
  PlainWindow other(desk.app, "frmPlain", "0");
  ui::ListBox built(other, "List1");
  std::vector<double> copies;
  std::vector<double> lists;
  std::vector<double> pastes;
  for (int round = 0; round < kRounds; ++round) {
    copies.push_back(CopyTime(desk, image));
    lists.push_back(ListTime(desk, image, built));
    pastes.push_back(PasteTime(desk));
  }
  const double copy = Median(copies);
  const double list = Median(lists);
  const bool whole = *std::min_element(pastes.begin(), pastes.end()) > 0;
  const double paste = whole ? Median(pastes) : 1e9;
  std::printf("image %zu bytes: copying %.0f ns, list %.0f ns, pasting %.0f ns\n", image.size(), copy, list, paste);
  PrintRatio("paste_64", paste / (copy + list), "<=", 3,
             "pasting 64 arrangements with 16 styles, of copying the image's bytes and building its list");
}

}  // namespace
}  // namespace zentaline

int main() {
  zentaline::KeepFreedMemory();  // as the program does
  zentaline::Desk desk;
  zentaline::MeasurePaste(desk);
}
