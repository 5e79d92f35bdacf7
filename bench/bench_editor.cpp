// How soon a change of the arrangement editor's controls is heard, beside the bare sending of the same parameter; and
// how long showing a record takes, beside giving the same values to controls that nobody listens to.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "base/posix_disk.h"
#include "bench/measure.h"
#include "bench/plain_form.h"
#include "bench/program.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/window_image.h"
#include "midi/api.h"
#include "midi/recorder/recorder.h"
#include "tests/support/scratch_folder.h"
#include "ui/console/console_toolkit.h"
#include "ui/controls.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr int kRounds = 41;
constexpr int kChanges = 2000;
constexpr int kFills = 200;
constexpr int kWindows = 24;

// Counts the long messages that it has taken, and takes the time of the last.
class CountingRecorder : public RecorderMidi {
 public:
  long taken = 0;
  Clock::time_point last;

 protected:
  int TakeLong(MidiHandle handle, std::string_view bytes) override {
    last = Clock::now();
    ++taken;
    return RecorderMidi::TakeLong(handle, bytes);
  }
};

// Two records that differ in every control.
Bytes TwoRecords() {
  Bytes file = NewArrFile();
  for (int i = 0; i < 2; ++i) {
    Bytes record(kArrRecordLength, '\0');
    PutBytes(record, 1, Padded(i == 0 ? "First" : "Second", kArrNameLength));
    const auto put = [&record, i](std::size_t offset, int first, int second) {
      PutByte(record, offset + 1, i == 0 ? first : second);
    };
    put(arr_record::kStyleNumber, 3, 90);
    put(arr_record::kInitialVariation, 0, 3);
    put(arr_record::kTempo, 60, 190);
    put(arr_record::kKeyboardAssign, 0, 9);
    put(arr_record::kSplitPoint, 50, 75);
    put(arr_record::kEnsemble, 0x01, 0x88);
    put(arr_record::kTranspose, 3, 250);
    put(arr_record::kManualDrumKit, 1, 6);
    put(arr_record::kSwitches1, 0x05, 0x0A);
    put(arr_record::kSwitches2, 0x15, 0x0A);
    put(arr_record::kDrumMap, 2, 7);
    put(arr_record::kKick, 0, 3);
    put(arr_record::kSnare, 1, 2);
    put(arr_record::kFill1, 0, 12);
    put(arr_record::kFill2, 11, 4);
    put(arr_record::kEffect1, 5, 40);
    put(arr_record::kEffect2, 30, 8);
    for (int part = 0; part < kArrPartCount; ++part) {
      const std::size_t block = PartOffset(part);
      put(block + part_block::kProgram, 10 + part, 70 + part);
      put(block + part_block::kBankCode, 0, 1);
      put(block + part_block::kVolume, 100, 64);
      put(block + part_block::kPan, 15, 30);
      put(block + part_block::kSends, 0x35, 0x91);
      put(block + part_block::kOctave, 0, 255);
      put(block + part_block::kStatus, 1, 6);
      put(block + part_block::kWrapAround, 255, 4);
    }
    PutBytes(file, kArrHeaderLength + 1 + kArrRecordLength * static_cast<std::size_t>(i), record);
  }
  return file;
}

class Desk {
 public:
  Desk() : app(toolkit, midi, disk_, folder_.Path()) {
    midi.SetOuts({"Out"});
    midi.SetIns({"In"});
    app.Start();
    toolkit.RunChain([this] { return app.Starting(); });
    ChooseMidiOut(app, 0);
    app.arrangement.ArrFileImage = TwoRecords();
    source = &OpenArrWindow(app, 1, folder_.Path("Song"), false);
    for (int i = 0; i < 2; ++i) {
      OpenArrEditor(app, *source, i);
      records[i] = app.arrangement.ArrEditRecord;
    }
    editor = toolkit.active_child();
  }

 private:
  test::ScratchFolder folder_;
  PosixDisk disk_;

 public:
  StartingToolkit toolkit;
  CountingRecorder midi;
  Application app;
  ChildWindow* source = nullptr;
  ui::Form* editor = nullptr;
  Bytes records[2];
};

// From the beginning of each to the time when its message is handed over; -1 when not each has one.
template <typename Function>
double UpToMessage(Desk& desk, Function&& act) {
  act(1);
  double sum = 0;
  for (int i = 0; i < kChanges; ++i) {
    const long before = desk.midi.taken;
    const Clock::time_point begin = Clock::now();
    act(i % 2);
    if (desk.midi.taken != before + 1) return -1;
    sum += Nanoseconds(desk.midi.last - begin);
  }
  return sum / kChanges;
}

// The volume of a part up and down, by hand.
double ChangeTime(Desk& desk) {
  auto& volume = static_cast<ui::ScrollBar&>(*desk.editor->Find("VScroll1", 3));
  return UpToMessage(desk, [&](int i) { volume.UserSet(i == 0 ? 101 : 27); }) - LookingTime(kChanges);
}

double SendTime(Desk& desk) {
  return UpToMessage(desk, [&](int i) { SendArrParam(desk.app, 0, 0x15, i == 0 ? 101 : 27, 0); }) -
         LookingTime(kChanges);
}

void Show(Desk& desk, int which) {
  desk.app.edits.TakeRecord(kArrRecordUnderEdit, desk.records[which]);
  FillArrEditor(desk.app);
}

double FillTime(Desk& desk) {
  const Clock::time_point begin = Clock::now();
  for (int i = 0; i < kFills; ++i) Show(desk, i % 2);
  return Nanoseconds(Clock::now() - begin) / kFills;
}

double AssignTime(PlainForm& plain) {
  const Clock::time_point begin = Clock::now();
  for (int i = 0; i < kFills; ++i) plain.Assign(i % 2);
  return Nanoseconds(Clock::now() - begin) / kFills;
}

void Main() {
  Desk desk;
  PlainForm plain(desk.app);
  for (int which = 0; which < 2; ++which) {
    Show(desk, which);
    plain.Keep(*desk.editor, which);
  }
  // In turns, so that what else the machine does meets both.
  std::vector<double> sends;
  std::vector<double> changes;
  std::vector<double> assigns;
  std::vector<double> fills;
  for (int round = 0; round < kRounds; ++round) {
    sends.push_back(SendTime(desk));
    changes.push_back(ChangeTime(desk));
    assigns.push_back(AssignTime(plain));
    fills.push_back(FillTime(desk));
  }
  const double send = Median(sends);
  const double alone = Median(changes);
  const double assign = Median(assigns);
  const double fill = Median(fills);
  while (desk.app.core.OpenChildCount < kWindows) {
    const std::string number = std::to_string(desk.app.core.OpenChildCount);
    desk.toolkit.Open(std::make_unique<PlainWindow>(desk.app, "frmPlain", number));
  }
  desk.toolkit.Activate(*desk.editor);
  std::vector<double> sends_among;
  std::vector<double> changes_among;
  for (int round = 0; round < kRounds; ++round) {
    sends_among.push_back(SendTime(desk));
    changes_among.push_back(ChangeTime(desk));
  }
  const double among = Median(changes_among);
  std::printf("send %.0f ns, change %.0f ns, among %d windows %.0f ns; assign %.0f ns, fill %.0f ns\n", send, alone,
              desk.app.core.OpenChildCount, among, assign, fill);
  PrintRatio("edit_1", alone / send, "<=", 3, "a change in the editor up to its message, of the bare sending");
  PrintRatio("edit_24", among / Median(sends_among), "<=", 3, "the same with 24 windows open");
  PrintRatio("edit_fill", fill / assign, "<=", 3, "showing a record, of giving the values to plain controls");
}

}  // namespace
}  // namespace zentaline

int main() {
  zentaline::Main();
}
