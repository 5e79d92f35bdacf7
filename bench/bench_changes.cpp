// How soon a change of each kind of control in each editor is handed to the service, beside the bare sending of the
// same bytes; what the drag of a handle takes beside the moves of its two bars; and how long showing a record takes,
// beside giving the same values to controls that nobody listens to.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
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
#include "global/api.h"
#include "global/gbl_format.h"
#include "midi/api.h"
#include "midi/messages.h"
#include "midi/recorder/recorder.h"
#include "program/api.h"
#include "program/prg_format.h"
#include "record/arrangement_fields.h"
#include "record/global_fields.h"
#include "record/program_fields.h"
#include "tests/support/scratch_folder.h"
#include "ui/controls.h"
#include "ui/picture.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr int kRounds = 31;
constexpr int kChanges = 400;
constexpr int kFills = 100;
constexpr int kWindows = 24;
constexpr double kLimit = 3;

// Takes the time when the last message of a change is handed over, and keeps what it is given when it is asked to.
class TimedRecorder : public RecorderMidi {
 public:
  std::size_t awaited = 0;
  Clock::time_point last;
  std::vector<Bytes>* kept = nullptr;

 protected:
  int TakeLong(MidiHandle handle, std::string_view bytes) override {
    if (awaited > 0 && --awaited == 0) last = Clock::now();
    if (kept != nullptr) kept->emplace_back(bytes);
    return RecorderMidi::TakeLong(handle, bytes);
  }
};

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "bench_changes: %s\n", what.c_str());
  std::exit(EXIT_FAILURE);
}

// All values of a record at the one end of their ranges or at the other.
void PutValues(Bytes& bytes, std::size_t start, std::span<const FieldBlock> blocks, bool high) {
  for (const FieldBlock& block : blocks) {
    for (int n = 0; n < block.count(); ++n) {
      for (const Field& field : block.fields) {
        if (field.coding == FieldCoding::kText) continue;
        StoreAt(field, bytes, start + block.StartOf(n), high ? field.range.high : field.range.low);
      }
    }
  }
}

Bytes ArrFile() {
  Bytes file = NewArrFile();
  PutBytes(file, kArrHeaderLength + 1, Padded("Song", kArrNameLength));
  return file;
}

// Two programs that differ in all values; the first one has both effects, so that their bars can be moved.
Bytes PrgFile() {
  constexpr std::string_view kSignature("KORG\x4D\0\0\x01", 8);
  Bytes file = Bytes(kSignature) + Bytes(kPrgFileLength - kSignature.size(), '\0');
  for (int i = 0; i < 2; ++i) {
    const std::size_t start = kPrgHeaderLength + kPrgRecordLength * static_cast<std::size_t>(i) + 1;
    PutValues(file, start, kProgramFields, i == 1);
    PutBytes(file, start, Padded(i == 0 ? "First" : "Second", kArrNameLength));
  }
  StoreAt(FieldOf(program_fields::kCommon, "fx1"), file, kPrgHeaderLength + 1, 1);
  return file;
}

Bytes GblFile(bool high) {
  constexpr std::string_view kSignature("KORG\x4D\0\x06\x01", 8);
  Bytes file = Bytes(kSignature) + Bytes(kGlobalFileLength - kSignature.size(), '\0');
  PutValues(file, 1, kGlobalFields, high);
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
  }

  ui::Form& Arrangement() {
    app.arrangement.ArrFileImage = ArrFile();
    OpenArrEditor(app, OpenArrWindow(app, 1, folder_.Path("Song"), false), 0);
    return *toolkit.active_child();
  }
  ChildWindow& Bank() {
    app.program.ProgramFileBuffer = PrgFile();
    return OpenPrgWindow(app, 1, folder_.Path("Bank"), false);
  }
  ui::Form& Program() {
    OpenProgramEditor(app, Bank(), 0);
    return *toolkit.active_child();
  }
  ui::Form& Performance() {
    ChildWindow& bank = Bank();
    bank.ItemList()->UserSelect({0});
    OpenPerfEditor(app, bank);
    return *toolkit.active_child();
  }
  ui::Form& Global() {
    app.global.GblBuffer = GblFile(false);
    OpenGlobalWindow(app, folder_.Path("Global"), false);
    return *toolkit.active_child();
  }

  // Other windows behind this one, up to `kWindows` in all.
  void Surround(ui::Form& form) {
    while (app.core.OpenChildCount < kWindows) {
      toolkit.Open(std::make_unique<PlainWindow>(app, "frmPlain", std::to_string(app.core.OpenChildCount)));
    }
    toolkit.Activate(form);
  }

 private:
  test::ScratchFolder folder_;
  PosixDisk disk_;

 public:
  StartingToolkit toolkit;
  TimedRecorder midi;
  Application app;
};

// --- Changes ---

// Something that the user does over and over, 0 and 1 in turn, each time another change.
struct Change {
  std::string kind;
  std::function<bool(int)> make;
};

std::vector<Bytes> Messages(Desk& desk, const std::function<void()>& act) {
  std::vector<Bytes> messages;
  desk.midi.kept = &messages;
  act();
  desk.midi.kept = nullptr;
  return messages;
}

// Sends a message by the operation of the catalogue that it is of. The pause belongs to the parameter before it.
void Send(Application& app, const Bytes& message) {
  constexpr std::size_t kFunction = 5;
  const auto value = [&message](std::size_t low) {
    const bool negative = ByteAt(message, low + 1) == 0x7F;
    return ByteAt(message, low) + 128 * (negative ? -1 : ByteAt(message, low + 1));
  };
  switch (ByteAt(message, kFunction)) {
    case kFunctionArrParam: {
      const bool negative = ByteAt(message, 8) == 0x7F;
      return SendArrParam(app, 0, ByteAt(message, 6), ByteAt(message, 7) + (negative ? 0 : 128 * ByteAt(message, 8)),
                          negative ? 1 : 0);
    }
    case kFunctionPrgParam:
      return SendPrgParam(app, ByteAt(message, 6), ByteAt(message, 7), value(8));
    case kFunctionGlobalDump:
      return SendGlobalDump(app, app.gbl_window->window_image());
    default:
      if (message != PrgParamPause()) Fail("an unknown message " + HexText(message));
  }
}

// From the beginning of each to its last message, without what looking at the clock takes.
double TimeOf(Desk& desk, std::size_t messages, double looking, const std::function<void(int)>& act) {
  double sum = 0;
  for (int i = 0; i < kChanges; ++i) {
    desk.midi.awaited = messages;
    const Clock::time_point begin = Clock::now();
    act(i % 2);
    if (desk.midi.awaited != 0) Fail("a change gave fewer messages than before");
    sum += Nanoseconds(desk.midi.last - begin);
  }
  return sum / kChanges - looking;
}

// The ratio of a change to the bare sending of its bytes, measured in turns.
double RatioOf(Desk& desk, const std::string& editor, const Change& change) {
  const auto make = [&](int i) {
    if (!change.make(i)) Fail(editor + ", " + change.kind + ": can't be changed");
  };
  make(0);
  make(1);
  std::vector<Bytes> sent[2];
  for (int i = 0; i < 2; ++i) {
    sent[i] = Messages(desk, [&] { make(i); });
    const auto bare = Messages(desk, [&] {
      for (const Bytes& message : sent[i]) Send(desk.app, message);
    });
    // A global dump is that of the window as it is now.
    if (sent[i].empty() || bare != sent[i]) Fail(editor + ", " + change.kind + ": other bytes than the bare sending");
  }
  if (sent[0].size() != sent[1].size()) Fail(editor + ", " + change.kind + ": not the same messages each time");
  const auto send = [&](int i) {
    for (const Bytes& message : sent[i]) Send(desk.app, message);
  };
  const double looking = Median(kRounds, [] { return LookingTime(kChanges); });
  std::vector<double> changes;
  std::vector<double> sends;
  for (int round = 0; round < kRounds; ++round) {
    changes.push_back(TimeOf(desk, sent[0].size(), looking, make));
    sends.push_back(TimeOf(desk, sent[0].size(), looking, send));
  }
  const double ratio = Median(changes) / Median(sends);
  std::printf("%s, %s: %zu messages, sent bare %.0f ns, by a change %.0f ns: %.2f\n", editor.c_str(),
              change.kind.c_str(), sent[0].size(), Median(sends), Median(changes), ratio);
  return ratio;
}

template <class Control>
Control& The(const ui::Form& form, const char* name, int index) {
  ui::Control* found = form.Find(name, index);
  if (found == nullptr) Fail(std::string("no ") + name);
  return static_cast<Control&>(*found);
}

Change Bar(const ui::Form& form, const char* name, int index, int first, int second, const char* kind) {
  auto& bar = The<ui::ScrollBar>(form, name, index);
  return {kind, [&bar, first, second](int i) { return bar.UserSet(i == 0 ? first : second); }};
}
Change List(const ui::Form& form, const char* name, int index, const char* kind) {
  auto& list = The<ui::ComboBox>(form, name, index);
  return {kind, [&list](int i) { return list.UserSelect(i); }};
}
Change Switch(const ui::Form& form, const char* name, int index, const char* kind) {
  auto& box = The<ui::CheckBox>(form, name, index);
  return {kind, [&box](int i) { return box.UserSet(i != 0); }};
}
Change Options(const ui::Form& form, const char* name, const char* kind) {
  auto& first = The<ui::OptionButton>(form, name, 0);
  auto& second = The<ui::OptionButton>(form, name, 1);
  return {kind, [&first, &second](int i) { return (i == 0 ? first : second).UserPress(); }};
}
Change Buttons(const ui::Form& form, const char* first_name, const char* second_name, int index, const char* kind) {
  auto& first = The<ui::Button>(form, first_name, index);
  auto& second = The<ui::Button>(form, second_name, index);
  return {kind, [&first, &second](int i) { return (i == 0 ? first : second).UserPress(); }};
}

// A line for the slowest kind, alone and among other windows.
void MeasureEditor(Desk& desk, const std::string& name, ui::Form& editor, const std::vector<Change>& changes) {
  for (const bool among : {false, true}) {
    if (among) desk.Surround(editor);
    double worst = 0;
    std::string kind;
    for (const Change& change : changes) {
      const double ratio = RatioOf(desk, name, change);
      if (ratio > worst) kind = change.kind;
      worst = std::max(worst, ratio);
    }
    const std::string line = "change_" + name + (among ? "_24" : "_1");
    const std::string text = among ? "the same with 24 windows open (" + kind + ")"
                                   : "a change in the " + name +
                                         " editor up to its last message, of sending the same "
                                         "bytes (the slowest kind: " +
                                         kind + ")";
    PrintRatio(line.c_str(), worst, "<=", kLimit, text.c_str());
  }
}

void MeasureArrangement() {
  Desk desk;
  ui::Form& editor = desk.Arrangement();
  MeasureEditor(desk, "arrangement", editor,
                {Bar(editor, "VScroll1", 3, 27, 101, "a part's bar"), Bar(editor, "VScroll1", 0, 60, 190, "the tempo"),
                 Bar(editor, "HScroll1", 0, 50, 75, "the split point"), List(editor, "Combo2", 6, "a part's list"),
                 List(editor, "Combo1", 1, "a list"), Switch(editor, "Check1", 2, "a switch"),
                 List(editor, "EffCombo", 0, "an effect"), Buttons(editor, "CommM", "CommM", 3, "a mute")});
}

void MeasureProgram() {
  Desk desk;
  ui::Form& editor = desk.Program();
  MeasureEditor(
      desk, "program", editor,
      {Bar(editor, "BasHScroll", 0, -10, 10, "a bar"), Bar(editor, "BasHScroll", 11, 10, 90, "a bar of an envelope"),
       List(editor, "BasCombo", 3, "a list"), List(editor, "BasCombo", 0, "an octave"),
       Switch(editor, "BasCheck", 0, "a switch"), Bar(editor, "BasVScroll", 1, 100, 400, "a sound"),
       Options(editor, "BasOption", "the oscillator"), Bar(editor, "OscHScroll", 9, 10, 90, "an oscillator's bar"),
       Bar(editor, "OscHScroll", 58, 10, 90, "an oscillator's bar of an envelope"),
       List(editor, "OscCombo", 1, "an oscillator's list"), List(editor, "OscCombo", 5, "an oscillator's sign"),
       Switch(editor, "OscCheck", 0, "an oscillator's switch"), Bar(editor, "EffHScroll", 0, 10, 90, "an effect's bar"),
       List(editor, "EffCombo", 0, "an effect"), Switch(editor, "EffCheck", 0, "an effect's switch"),
       List(editor, "EffCombo", 4, "the placement")});
}

// The moves are taken back one by one, so that no limit is reached.
void MeasurePerformance() {
  Desk desk;
  ui::Form& editor = desk.Performance();
  MeasureEditor(desk, "performance", editor,
                {Buttons(editor, "CommUp", "CommDown", 3, "a step"),
                 Buttons(editor, "CommUp", "CommDown", 4, "a step of two parameters"),
                 Buttons(editor, "CommUp", "CommDown", 7, "a step of the effects"),
                 Buttons(editor, "CommReset", "CommReset", 3, "a reset")});
}

void MeasureGlobal() {
  Desk desk;
  ui::Form& editor = desk.Global();
  MeasureEditor(desk, "global", editor,
                {Bar(editor, "GblHScroll1", 0, -10, 10, "a bar"), List(editor, "GblCombo1", 6, "a list"),
                 Switch(editor, "GblCheck1", 0, "a switch"), Options(editor, "GblOption1", "the damper"),
                 Bar(editor, "VScroll2", 5, -20, 20, "a note of a scale"),
                 Buttons(editor, "CommResetUS", "CommResetUS", 1, "a reset")});
}

// --- The drag of a handle ---

void MeasureDrag() {
  constexpr int kPicture = 1;  // the filter of oscillator 1
  constexpr int kHandle = 1;   // its break point
  Desk desk;
  ui::Form& editor = desk.Program();
  auto& picture = The<ui::Picture>(editor, "EGPicture", kPicture);
  auto& time = The<ui::ScrollBar>(editor, "OscHScroll", 18);
  auto& level = The<ui::ScrollBar>(editor, "OscHScroll", 19);
  const auto move = [&](int i) {
    time.UserSet(i == 0 ? 20 : 70);
    level.UserSet(i == 0 ? -30 : 60);
  };
  ui::Handle places[2];
  for (int i = 0; i < 2; ++i) {
    move(i);
    places[i] = picture.drawing().handles[kHandle];
  }
  const auto drag = [&](int i) { picture.UserDrag(kHandle, places[i].x, places[i].y); };
  const auto time_of = [](const std::function<void(int)>& act) {
    const Clock::time_point begin = Clock::now();
    for (int i = 0; i < kChanges; ++i) act(i % 2);
    return Nanoseconds(Clock::now() - begin) / kChanges;
  };
  for (int i = 0; i < 2; ++i) {
    const auto moved = Messages(desk, [&] { move(i); });
    move(1 - i);
    if (moved.empty() || Messages(desk, [&] { drag(i); }) != moved) Fail("a drag sends other bytes than its bars");
  }
  std::vector<double> drags;
  std::vector<double> moves;
  for (int round = 0; round < kRounds; ++round) {
    move(1);
    moves.push_back(time_of(move));
    picture.UserTake(kHandle);
    drags.push_back(time_of(drag));
    picture.UserLetGo();
  }
  std::printf("two bars moved %.0f ns, a handle dragged %.0f ns\n", Median(moves), Median(drags));
  PrintRatio("drag_handle", Median(drags) / Median(moves), "<=", kLimit,
             "the drag of a handle, of moving its two bars");
}

// --- Showing a record ---

void MeasureFill(Desk& desk, const ui::Form& editor, const char* name, const std::function<void(int)>& show) {
  PlainForm plain(desk.app);
  for (int i = 0; i < 2; ++i) {
    show(i);
    plain.Keep(editor, i);
  }
  const auto time_of = [](const std::function<void(int)>& act) {
    const Clock::time_point begin = Clock::now();
    for (int i = 0; i < kFills; ++i) act(i % 2);
    return Nanoseconds(Clock::now() - begin) / kFills;
  };
  std::vector<double> fills;
  std::vector<double> assigns;
  for (int round = 0; round < kRounds; ++round) {
    fills.push_back(time_of(show));
    assigns.push_back(time_of([&plain](int i) { plain.Assign(i); }));
  }
  std::printf("%s: assigning %.0f ns, showing %.0f ns\n", name, Median(assigns), Median(fills));
  PrintRatio(name, Median(fills) / Median(assigns), "<=", kLimit,
             "showing a record, of giving the values to plain controls");
}

void MeasureFills() {
  {
    Desk desk;
    const ui::Form& editor = desk.Program();
    const Bytes& image = desk.app.prg_windows[1]->window_image();
    const Bytes records[2] = {MakeEditRecord(image, 0), MakeEditRecord(image, 1)};
    MeasureFill(desk, editor, "fill_program", [&](int i) {
      desk.app.edits.TakeRecord(kPrgRecordUnderEdit, records[i]);
      FillProgramEditor(desk.app);
    });
  }
  Desk desk;
  const ui::Form& editor = desk.Global();
  ChildWindow& window = *desk.app.gbl_window;
  const Bytes blocks[2] = {GblFile(false), GblFile(true)};
  MeasureFill(desk, editor, "fill_global", [&](int i) {
    desk.app.edits.Prepare(window, [&](Bytes& image) { PutBytes(image, kWindowFilePosition, blocks[i]); });
    FillGlobalWindow(desk.app);
  });
}

void Main() {
  MeasureArrangement();
  MeasureProgram();
  MeasurePerformance();
  MeasureGlobal();
  MeasureDrag();
  MeasureFills();
}

}  // namespace
}  // namespace zentaline

int main() {
  zentaline::Main();
}
