// How soon a key of the keyboard on the screen is heard: from the mouse event until the service has the note, beside
// the bare sending of the same note.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "aids/api.h"
#include "base/posix_disk.h"
#include "bench/measure.h"
#include "bench/program.h"
#include "core/application.h"
#include "midi/api.h"
#include "midi/recorder/recorder.h"
#include "tests/support/scratch_folder.h"
#include "ui/form.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr int kRounds = 41;
constexpr int kNotes = 2000;
constexpr int kKeys = 61;
constexpr int kFirstNote = 36;
constexpr int kVelocity = 64;
constexpr int kWindows = 24;

// Knows when it got the last message.
class TimingRecorder : public RecorderMidi {
 public:
  long taken = 0;
  Clock::time_point last;

 protected:
  int TakeShort(MidiHandle handle, std::uint32_t word) override {
    ++taken;
    last = Clock::now();
    return RecorderMidi::TakeShort(handle, word);
  }
};

class Desk {
 public:
  Desk() : app(toolkit, midi, disk_, folder_.Path()) {
    midi.SetOuts({"Out"});
    app.Start();
    toolkit.RunChain([this] { return app.Starting(); });
    ChooseMidiOut(app, 0);
    ShowKeyboard(app);
    keyboard = toolkit.FindForm("frmTastiera");
    for (int key = 0; key < kKeys; ++key) keys.push_back(keyboard->Find("Key", key));
  }

 private:
  test::ScratchFolder folder_;
  PosixDisk disk_;

 public:
  StartingToolkit toolkit;
  TimingRecorder midi;
  Application app;
  ui::Form* keyboard = nullptr;
  std::vector<ui::Control*> keys;
};

// Of one note on, until the service has it; -1 when one went astray.
template <typename Begin, typename End>
double NoteTime(Desk& desk, Begin begin_note, End end_note) {
  const long before = desk.midi.taken;
  double time = 0;
  for (int i = 0; i < kNotes; ++i) {
    const Clock::time_point begin = Clock::now();
    begin_note(i % kKeys);
    time += Nanoseconds(desk.midi.last - begin);
    end_note(i % kKeys);
  }
  return desk.midi.taken - before == 2L * kNotes ? time / kNotes : -1;
}

double SendTime(Desk& desk) {
  return NoteTime(
      desk, [&](int key) { SendNoteOn(desk.app, 0, kFirstNote + key, kVelocity); },
      [&](int key) { SendNoteOff(desk.app, 0, kFirstNote + key, kVelocity); });
}

double KeyTime(Desk& desk) {
  const auto mouse = [&desk](ui::MouseEvent::What what) {
    return [&desk, what](int key) { desk.keys[static_cast<std::size_t>(key)]->UserMouse({what, 60, 700, false}); };
  };
  return NoteTime(desk, mouse(ui::MouseEvent::kDown), mouse(ui::MouseEvent::kUp));
}

void Main() {
  Desk desk;
  const double send = Median(kRounds, [&] { return SendTime(desk); });
  const double alone = Median(kRounds, [&] { return KeyTime(desk); });
  while (desk.app.core.OpenChildCount < kWindows) {
    const std::string number = std::to_string(desk.app.core.OpenChildCount);
    desk.toolkit.Open(std::make_unique<PlainWindow>(desk.app, "frmPlain", number));
  }
  desk.toolkit.Activate(*desk.keyboard);
  const double among = Median(kRounds, [&] { return KeyTime(desk); });
  std::printf("send %.0f ns, key %.0f ns, among %d windows %.0f ns\n", send, alone, desk.app.core.OpenChildCount,
              among);
  PrintRatio("key_1", alone / send, "<=", 3, "a key from the mouse event to its note handed over, of the bare sending");
  PrintRatio("key_24", among / send, "<=", 3, "the same with 24 windows open");
}

}  // namespace
}  // namespace zentaline

int main() {
  zentaline::Main();
}
