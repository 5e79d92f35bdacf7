// How soon a click on a row reaches the instrument, beside the building of the same window's list; and how long it
// takes to open an arrangement with its styles and programs as a window, beside the plain reading of the three files.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "arrangement/arr_format.h"
#include "base/panel_numbers.h"
#include "base/posix_disk.h"
#include "bench/measure.h"
#include "bench/program.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "midi/api.h"
#include "midi/recorder/recorder.h"
#include "tests/support/scratch_folder.h"
#include "ui/console/console_toolkit.h"
#include "ui/controls.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr std::size_t kStyLength = 289800;
constexpr int kRounds = 15;

// Notes when it has taken the program change that ends a selection.
class TimedRecorder : public RecorderMidi {
 public:
  Clock::time_point last;
  long taken = 0;

 protected:
  int TakeShort(MidiHandle handle, std::uint32_t word) override {
    const int result = RecorderMidi::TakeShort(handle, word);
    if ((word & 0xF0U) == 0xC0U) {
      last = Clock::now();
      ++taken;
    }
    return result;
  }
};

// Answers every dialog with one file.
class AnsweringToolkit : public StartingToolkit {
 public:
  std::string file;

  ui::FileDialogAnswer FileDialog(const ui::FileDialogRequest& request) override {
    return {false, file, request.filter, false};
  }
};

Bytes Arrangements() {
  Bytes file = NewArrFile();
  for (int i = 0; i < kArrRecordCount; ++i) {
    const std::size_t place = kArrHeaderLength + kArrRecordLength * static_cast<std::size_t>(i);
    file.replace(place, kArrNameLength, Padded("Arrangement " + std::to_string(i), kArrNameLength));
    file[place + arr_record::kStyleNumber] = static_cast<char>(2 * i);
  }
  return file;
}

Bytes Styles() {
  Bytes file = Bytes("KORG\x4D\x00\x04\x01", 8) + Bytes(216, '\0');
  const std::size_t each = (kStyLength - 224) / 16;
  for (std::size_t e = 0; e < 16; ++e) {
    const std::size_t size = e < 15 ? each : kStyLength - file.size();
    file[24 + 4 * e] = static_cast<char>(size % 256);
    file[25 + 4 * e] = static_cast<char>(size / 256);
    file += Padded("Style " + std::to_string(e), 16) + Bytes(size - 16, static_cast<char>(e));
  }
  return file;
}

Bytes Programs() {
  Bytes file = Bytes("KORG\x4D\x00\x00\x01", 8) + Bytes(30472, '\0');
  for (std::size_t n = 0; n < 64; ++n) file.replace(48 + 172 * n, 16, Padded("Program " + std::to_string(n), 16));
  return file;
}

class Desk {
 public:
  Desk() : app(toolkit, midi, disk_, folder.Path()) {
    folder.Put("Song.arr", Arrangements());
    folder.Put("Song.sty", Styles());
    folder.Put("Song.prg", Programs());
    midi.SetOuts({"Out"});
    midi.SetIns({"In"});
    app.Start();
    toolkit.RunChain([this] { return app.Starting(); });
    ChooseMidiOut(app, 0);
  }

  ChildWindow& Open(const std::string& name) {
    toolkit.file = folder.Path(name);
    OpenFile(app, kKindArr);
    return static_cast<ChildWindow&>(*toolkit.active_child());
  }

  test::ScratchFolder folder;

 private:
  PosixDisk disk_;

 public:
  AnsweringToolkit toolkit;
  TimedRecorder midi;
  Application app;
};

// From the handler of the click to the last byte that the recorder took; rows in turn.
double ClickTime(Desk& desk, ui::ListBox& list) {
  constexpr int kClicks = 64;
  double sum = 0;
  for (int row = 0; row < kClicks; ++row) {
    desk.app.core.ListBusy = true;
    list.SetRow(row);
    desk.app.core.ListBusy = false;
    const long before = desk.midi.taken;
    const Clock::time_point begin = Clock::now();
    list.Click();
    if (desk.midi.taken != before + 1) return -1;  // the click did not play: there is nothing to measure
    sum += Nanoseconds(desk.midi.last - begin);
  }
  return sum / kClicks;
}

// The texts of the window's 64 rows, put into a list as opening does.
double ListTime(const ChildWindow& window, ui::ListBox& list) {
  const Bytes& image = window.window_image();
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
  return Nanoseconds(Clock::now() - begin);
}

// All three files into one buffer.
double ReadTime(const Desk& desk, std::vector<char>& buffer) {
  const Clock::time_point begin = Clock::now();
  for (const char* name : {"Song.arr", "Song.sty", "Song.prg"}) {
    std::FILE* file = std::fopen(desk.folder.Path(name).c_str(), "rb");
    if (file == nullptr || std::fread(buffer.data(), 1, buffer.size(), file) == 0) return -1;
    std::fclose(file);
  }
  return Nanoseconds(Clock::now() - begin);
}

double OpenTime(Desk& desk) {
  const Clock::time_point begin = Clock::now();
  ChildWindow& window = desk.Open("Song.arr");
  const double time = Nanoseconds(Clock::now() - begin);
  window.CloseWithoutAsking();
  return time;
}

void MeasureOpening(Desk& desk) {
  std::vector<char> buffer(std::size_t{1} << 20);
  const double read = Median(kRounds, [&] { return ReadTime(desk, buffer); });
  const double open = Median(kRounds, [&] { return OpenTime(desk); });
  std::printf("reading %.0f ns, opening %.0f ns\n", read, open);
  PrintRatio("open_set", open / read, "<=", 10, "opening .arr, .sty and .prg as a window, of reading them");
}

void MeasureClicks(Desk& desk) {
  ChildWindow& window = desk.Open("Song.arr");
  auto& list = *static_cast<ui::ListBox*>(window.Find("List1"));
  PlainWindow other(desk.app, "frmPlain", "0");
  ui::ListBox built(other, "List1");
  const double build = Median(kRounds, [&] { return ListTime(window, built); });
  const double alone = Median(kRounds, [&] { return ClickTime(desk, list); });
  // Eight files at most, and other windows up to 24 in all.
  for (int i = 2; i <= kFileWindows; ++i) {
    const std::string name = "Song" + std::to_string(i) + ".arr";
    desk.folder.Put(name, Arrangements());
    desk.Open(name);
  }
  for (int i = kFileWindows + 1; i <= 24; ++i) {
    desk.toolkit.Open(std::make_unique<PlainWindow>(desk.app, "frmPlain", std::to_string(i)));
  }
  desk.toolkit.Activate(window);
  const double among = Median(kRounds, [&] { return ClickTime(desk, list); });
  std::printf("list %.0f ns, click %.0f ns, click among %d windows %.0f ns\n", build, alone,
              desk.app.core.OpenChildCount, among);
  PrintRatio("click_1", alone / build, "<=", 0.1, "a click up to its last byte, of building the list");
  PrintRatio("click_24", among / build, "<=", 0.1, "the same with 24 windows open");
}

}  // namespace
}  // namespace zentaline

int main() {
  zentaline::Desk desk;
  zentaline::MeasureOpening(desk);
  zentaline::MeasureClicks(desk);
}
