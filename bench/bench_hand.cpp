// How soon the instrument is where the hand is: a bar whose every change costs a block is dragged through a hundred
// positions in a second, on a wire of the speed of a MIDI cable. Measured from the end of the drag to the last byte.
#include <QAbstractSlider>
#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>

#include "base/bytes.h"
#include "bench/measure.h"
#include "midi/messages.h"
#include "midi/service.h"
#include "tests/support/quiet_service.h"
#include "ui/controls.h"
#include "ui/qt/long_sender.h"
#include "ui/qt/toolkit.h"
#include "ui/qt/view.h"

namespace {

using namespace zentaline;
using namespace zentaline::bench;

constexpr int kMoves = 100;
constexpr auto kDrag = std::chrono::milliseconds(1000);
constexpr int kBytesASecond = 3125;
constexpr int kRounds = 5;
constexpr double kLimit = 2.2;  // blocks
constexpr auto kLook = std::chrono::milliseconds(5);
constexpr auto kPatience = std::chrono::seconds(60);

// Takes a message as long as a cable does.
class Wire : public test::QuietService {
 public:
  int midiOutLongMsg(MidiHandle, MidiHeader& header, std::uint32_t) override {
    std::this_thread::sleep_for(std::chrono::microseconds(1000000LL * header.buffer_length / kBytesASecond));
    return kMidiOk;
  }
};

class Main : public ui::Form {
 public:
  explicit Main(ui::Toolkit& the_toolkit) : Form(the_toolkit, ui::FormKind::kMain, "frmMain") {}
};

class Window : public ui::Form {
 public:
  explicit Window(ui::Toolkit& the_toolkit) : Form(the_toolkit, ui::FormKind::kChild, "frmHand") {
    Bar.SetRange(0, kMoves);
    layout = ui::Column({ui::Item(Bar), ui::Item(Value)});
  }
  ui::ScrollBar Bar{*this, "Bar"};
  ui::Label Value{*this, "Value"};
};

struct Drag {
  double blocks = -1;  // from its end to the last byte
  int sent = 0;
};

Drag Measure(Window& window, ui::qt::LongSender& sender, const std::string& block) {
  Drag drag;
  Clock::time_point gone;
  window.Bar.SetValue(0);
  window.Bar.on_change = [&] {
    MidiHeader header;
    header.data = block.data();
    header.buffer_length = static_cast<std::uint32_t>(block.size());
    sender.midiOutLongMsg(1, header, kMidiHeaderSize);
    ++drag.sent;
    gone = Clock::now();
  };
  auto* bar = static_cast<QAbstractSlider*>(static_cast<ui::qt::View*>(window.Bar.view)->widget());
  Clock::time_point end;
  for (int move = 1; move <= kMoves; ++move) {
    QTimer::singleShot(kDrag * move / kMoves, Qt::PreciseTimer, bar, [&, move] {
      bar->setValue(move);
      if (move == kMoves) end = Clock::now();
    });
  }
  const Clock::time_point begin = Clock::now();
  const auto done = [&] { return window.Bar.value() == kMoves && gone > end && end > begin; };
  while (!done() && Clock::now() - begin < kPatience) {
    QEventLoop loop;
    QTimer::singleShot(kLook, &loop, &QEventLoop::quit);
    loop.exec();
  }
  window.Bar.on_change = nullptr;
  if (done()) {
    drag.blocks = Nanoseconds(gone - end) / (1e9 * static_cast<double>(block.size()) / kBytesASecond);
  }
  return drag;
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  Wire wire;
  ui::qt::QtToolkit toolkit;
  toolkit.Open(std::make_unique<Main>(toolkit));
  auto& window = static_cast<Window&>(toolkit.Open(std::make_unique<Window>(toolkit)));
  ui::qt::LongSender sender(toolkit, wire);
  const std::string block = BuildGlobalDump(0, std::string(kGlobalDumpPosition + kGlobalDumpLength, '\x55'));
  int sent = 0;
  bool failed = false;
  const double blocks = Median(kRounds, [&] {
    const Drag drag = Measure(window, sender, block);
    sent = drag.sent;
    failed = failed || drag.blocks < 0;
    return drag.blocks;
  });
  if (failed) {
    std::puts("the last position never left");
    return EXIT_FAILURE;
  }
  std::printf("%zu bytes a block, %d of %d moves sent\n", block.size(), sent, kMoves);
  PrintRatio("hand_last_block", blocks, "<=", kLimit,
             "end of a drag of 100 moves in a second to its last byte, in blocks of a global dump on a MIDI cable");
  return EXIT_SUCCESS;
}
