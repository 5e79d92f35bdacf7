// What the list of changes costs, and how soon a step back is heard: a change with the list beside the same without it,
// the step back of a move up to its message beside the bare sending, the step back of a paste beside the paste, and the
// last of two thousand actions beside the first.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "base/memory.h"
#include "base/posix_disk.h"
#include "bench/clipboard_files.h"
#include "bench/measure.h"
#include "bench/program.h"
#include "core/application.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "global/api.h"
#include "global/gbl_format.h"
#include "midi/api.h"
#include "midi/recorder/recorder.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "style/sty_format.h"
#include "tests/support/scratch_folder.h"
#include "ui/controls.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr int kRounds = 31;
constexpr int kChanges = 400;

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "bench_undo: %s\n", what.c_str());
  std::exit(EXIT_FAILURE);
}

// Takes the time of the last long message.
class TimedRecorder : public RecorderMidi {
 public:
  Clock::time_point last;
  Bytes message;

 protected:
  int TakeLong(MidiHandle handle, std::string_view bytes) override {
    last = Clock::now();
    message = bytes;
    return RecorderMidi::TakeLong(handle, bytes);
  }
};

Bytes PrgFile() {
  Bytes file = Bytes("KORG\x4D\0\0\x01", 8) + Bytes(kPrgFileLength - 8, '\0');
  PutBytes(file, kPrgHeaderLength + 1, Padded("First", kArrNameLength));
  return file;
}

class Desk {
 public:
  Desk() : app(toolkit, midi, disk_, folder_.Path()) {
    folder_.Put("i40Sty", Template());
    folder_.Put("Full.arr", Arrangements(kArrRecordCount));
    folder_.Put("Full.sty", Styles());
    folder_.Put("Empty.arr", Arrangements(0));
    midi.SetOuts({"Out"});
    app.Start();
    toolkit.RunChain([this] { return app.Starting(); });
    ChooseMidiOut(app, 0);
  }

  ui::Form& Arrangement() {
    app.arrangement.ArrFileImage = Arrangements(1);
    OpenArrEditor(app, OpenArrWindow(app, 1, folder_.Path("Song"), false), 0);
    return *toolkit.active_child();
  }
  ui::Form& Program() {
    app.program.ProgramFileBuffer = PrgFile();
    OpenProgramEditor(app, OpenPrgWindow(app, 1, folder_.Path("Bank"), false), 0);
    return *toolkit.active_child();
  }
  ui::Form& Global() {
    app.global.GblBuffer = Bytes("KORG\x4D\0\x06\x01", 8) + Bytes(kGlobalFileLength - 8, '\0');
    OpenGlobalWindow(app, folder_.Path("Global"), false);
    return *toolkit.active_child();
  }
  ChildWindow& OpenFileWindow(const std::string& name) {
    toolkit.file = folder_.Path(name);
    OpenFile(app, kKindArr);
    return static_cast<ChildWindow&>(*toolkit.active_child());
  }
  bool Press(MenuId entry) { return app.main->Menu(entry).UserPress(); }

 private:
  test::ScratchFolder folder_;
  PosixDisk disk_;

 public:
  AnsweringToolkit toolkit;
  TimedRecorder midi;
  Application app;
};

template <class Control>
Control& The(const ui::Form& form, const char* name, int index) {
  ui::Control* found = form.Find(name, index);
  if (found == nullptr) Fail(std::string("no ") + name);
  return static_cast<Control&>(*found);
}

double TimeOf(const std::function<void(int)>& act) {
  const Clock::time_point begin = Clock::now();
  for (int i = 0; i < kChanges; ++i) act(i);
  return Nanoseconds(Clock::now() - begin) / kChanges;
}

// --- The list ---

// Two bars in turn, so that each move is an action of its own.
std::function<void(int)> Moves(const ui::Form& form, const char* name, int first, int second) {
  auto& one = The<ui::ScrollBar>(form, name, first);
  auto& other = The<ui::ScrollBar>(form, name, second);
  return [&one, &other](int i) {
    if (!(i % 2 == 0 ? one : other).UserSet(i / 2 % 2 == 0 ? 20 : 30)) Fail("a bar can't be moved");
  };
}
std::function<void(int)> Choices(const ui::Form& form, const char* name, int index) {
  auto& list = The<ui::ComboBox>(form, name, index);
  return [&list](int i) {
    if (!list.UserSelect(i % 2)) Fail("a list can't be changed");
  };
}

double WithTheList(Desk& desk, const std::function<void(int)>& change) {
  std::vector<double> with;
  std::vector<double> without;
  for (int round = 0; round < kRounds; ++round) {
    desk.app.edits.SetLimits(2000, std::size_t{64} << 20);
    with.push_back(TimeOf(change));
    desk.app.edits.SetLimits(0, 0);
    without.push_back(TimeOf(change));
  }
  desk.app.edits.SetLimits(2000, std::size_t{64} << 20);
  std::printf("a change without the list %.0f ns, with it %.0f ns\n", Median(without), Median(with));
  return Median(with) / Median(without);
}

void MeasureList() {
  double worst = 0;
  {
    Desk desk;
    const ui::Form& editor = desk.Arrangement();
    worst = std::max(worst, WithTheList(desk, Moves(editor, "VScroll1", 3, 5)));
    worst = std::max(worst, WithTheList(desk, Choices(editor, "Combo2", 6)));
  }
  {
    Desk desk;
    const ui::Form& editor = desk.Program();
    worst = std::max(worst, WithTheList(desk, Moves(editor, "BasHScroll", 0, 1)));
    worst = std::max(worst, WithTheList(desk, Moves(editor, "OscHScroll", 9, 12)));
    worst = std::max(worst, WithTheList(desk, Choices(editor, "BasCombo", 3)));
  }
  {
    Desk desk;
    worst = std::max(worst, WithTheList(desk, Moves(desk.Global(), "VScroll2", 5, 6)));
  }
  PrintRatio("list_change", worst, "<=", 1.3, "a change in an editor with the list of changes, of the same without");
}

// --- A step back up to its message ---

double StepBack(Desk& desk, const std::function<void(int)>& change, const std::function<void()>& send) {
  std::vector<double> steps;
  std::vector<double> sends;
  for (int round = 0; round < kRounds; ++round) {
    for (int i = 0; i < kChanges; ++i) change(i);
    double sum = 0;
    for (int i = 0; i < kChanges; ++i) {
      const Clock::time_point begin = Clock::now();
      if (!desk.Press(MenuId::mnuAnnulla)) Fail("nothing to take back");
      sum += Nanoseconds(desk.midi.last - begin);
    }
    steps.push_back(sum / kChanges);
    sum = 0;
    for (int i = 0; i < kChanges; ++i) {
      const Clock::time_point begin = Clock::now();
      send();
      sum += Nanoseconds(desk.midi.last - begin);
    }
    sends.push_back(sum / kChanges);
  }
  std::printf("sent bare %.0f ns, by a step back %.0f ns\n", Median(sends), Median(steps));
  return Median(steps) / Median(sends);
}

void MeasureStep() {
  double worst = 0;
  {
    Desk desk;
    const auto moves = Moves(desk.Arrangement(), "VScroll1", 3, 5);
    worst = std::max(worst, StepBack(desk, moves, [&] { SendArrParam(desk.app, 0, 0x0B, 20, 0); }));
  }
  {
    Desk desk;
    const auto moves = Moves(desk.Program(), "BasHScroll", 0, 1);
    worst = std::max(worst, StepBack(desk, moves, [&] { SendPrgParam(desk.app, 1, 4, 20); }));
  }
  {
    Desk desk;
    const auto moves = Moves(desk.Global(), "VScroll2", 5, 6);
    worst =
        std::max(worst, StepBack(desk, moves, [&] { SendGlobalDump(desk.app, desk.app.gbl_window->window_image()); }));
  }
  PrintRatio("step_back", worst, "<=", 3, "the step back of a bar's move up to its message, of sending the same bytes");
}

// --- A paste ---

void MeasurePaste() {
  Desk desk;
  ChildWindow& full = desk.OpenFileWindow("Full.arr");
  std::vector<int> rows(kArrRecordCount);
  std::iota(rows.begin(), rows.end(), 0);
  full.ItemList()->UserSelect(rows);
  CopySelected(desk.app, full);
  const auto press = [&desk](MenuId entry) {
    const Clock::time_point begin = Clock::now();
    if (!desk.Press(entry)) Fail("an entry is off");
    return Nanoseconds(Clock::now() - begin);
  };
  std::vector<double> pastes;
  std::vector<double> backs;
  for (int round = 0; round < kRounds; ++round) {
    ChildWindow& window = desk.OpenFileWindow("Empty.arr");
    const std::size_t before = window.window_image().size();
    pastes.push_back(press(MenuId::mnuIncolla));
    if (window.window_image().size() < kStyEntryCount * kStyleLength) Fail("not all was pasted");
    backs.push_back(press(MenuId::mnuAnnulla));
    if (window.window_image().size() != before) Fail("not all was taken back");
    window.CloseWithoutAsking();
  }
  std::printf("pasting %.0f ns, taking it back %.0f ns\n", Median(pastes), Median(backs));
  PrintRatio("step_back_paste", Median(backs) / Median(pastes), "<=", 2,
             "the step back of a paste of 64 arrangements with 16 styles, of the paste");
}

// --- A long list ---

void MeasureLength() {
  constexpr int kActions = 2000;
  constexpr int kAtEnd = 100;
  std::vector<double> first;
  std::vector<double> last;
  for (int round = 0; round < kRounds; ++round) {
    Desk desk;
    const auto moves = Moves(desk.Program(), "OscHScroll", 9, 12);
    std::vector<double> times;
    for (int i = 0; i < kActions + kAtEnd; ++i) {
      const Clock::time_point begin = Clock::now();
      moves(i);
      times.push_back(Nanoseconds(Clock::now() - begin));
    }
    // The very first ones find nothing in the processor's caches.
    first.push_back(Median({times.begin() + kAtEnd, times.begin() + 2 * kAtEnd}));
    last.push_back(Median({times.begin() + kActions - kAtEnd, times.begin() + kActions}));
  }
  std::printf("among the first actions %.0f ns, among the last of %d %.0f ns\n", Median(first), kActions, Median(last));
  PrintRatio("list_length", Median(last) / Median(first), "<=", 1.2,
             "the last of 2000 changes in a list, of the first ones");
}

}  // namespace
}  // namespace zentaline

int main() {
  zentaline::KeepFreedMemory();  // as the program does
  zentaline::MeasureList();
  zentaline::MeasureStep();
  zentaline::MeasurePaste();
  zentaline::MeasureLength();
}
