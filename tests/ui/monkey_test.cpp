// The whole program in the hands of someone who does things at random, on a disk and with a MIDI service that fail now
// and then. ZENTALINE_MONKEY_STEPS in the environment makes it longer, ZENTALINE_MONKEY_SEED another one.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/faulty_disk.h"
#include "core/application.h"
#include "midi/listening.h"
#include "midi/operations.h"
#include "midi/recorder/recorder.h"
#include "tests/support/memory_disk.h"
#include "tests/ui/monkey.h"
#include "ui/console/midi_transcript.h"

namespace zentaline {
namespace {

int FromEnvironment(const char* name, int fallback) {
  const char* const text = std::getenv(name);
  return text != nullptr ? std::atoi(text) : fallback;
}

// The factory files and the examples under /home, and some that are not what their names say.
void Fill(test::MemoryDisk& disk) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(ZENTALINE_SHARE)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    disk.files["/disk/" + entry.path().filename().string()] = {std::istreambuf_iterator<char>(file), {}};
  }
  std::mt19937 random(7);
  for (const char* const name : {"short.arr", "short.prg", "short.pgg", "short.sty", "short.gbl", "short.bsq"}) {
    disk.files[std::string("/disk/") + name] = "short";
  }
  for (const auto& [name, length] : {std::pair{"noise.arr", 10528},
                                     {"noise.prg", 30480},
                                     {"noise.pgg", 30480},
                                     {"noise.sty", 90000},
                                     {"noise.gbl", 448},
                                     {"noise.bsq", 9000},
                                     {"noise.pcg", 60000}}) {
    Bytes noise;
    for (int i = 0; i < length; ++i) noise += static_cast<char>(random());
    disk.files[std::string("/disk/") + name] = noise;
  }
  disk.files["/disk/empty.arr"] = "";
}

class RandomRun {
 public:
  RandomRun(test::MemoryDisk& memory, unsigned seed, int steps)
      : memory_(memory),
        disk_(memory),
        console_(ui::ConsoleToolkit::Clock::kVirtual, [this](const std::string& line) { Count(line); }),
        monkey_(console_, seed, [this] { return Names(); }),
        midi_transcript_(console_.transcript()),
        midi_(recorder_, midi_transcript_),
        app_(console_, midi_, disk_, "/disk") {
    console_.SetQuestions(monkey_);
    recorder_.SetOuts({"Port A", "Port B"});
    recorder_.SetIns({"Keys"});
    if (!app_.Start()) return;
    console_.RunChain([this] { return app_.Starting(); });
    for (; steps_ < steps && !console_.main_closed(); ++steps_) {
      if (monkey_.Pick(100) == 0) Break();
      monkey_.Act();
      ExpectOrder();
    }
    Quit();
  }

  int steps() const { return steps_; }

 private:
  // What fails next.
  void Break() {
    static const std::vector<std::string> kErrors = {"ENOENT", "EACCES", "ENOSPC", "EIO", "EISDIR", "EMFILE"};
    static const std::vector<std::string> kOperations = {"read", "write", "remove", "list"};
    if (monkey_.Pick(2) == 0) {
      recorder_.Fail(kMidiOperationNames[static_cast<std::size_t>(monkey_.Pick(16))],
                     monkey_.Pick(2) == 0 ? kMidiAllocated : kMidiError, 1);
    } else {
      disk_.Fail(kOperations[static_cast<std::size_t>(monkey_.Pick(4))],
                 kErrors[static_cast<std::size_t>(monkey_.Pick(6))], 1);
    }
  }

  void ExpectOrder() {
    EXPECT_EQ(console_.modal(), nullptr);
    for (const ui::Form* const form : console_.forms()) EXPECT_TRUE(form->open()) << form->FullName();
    const ui::Form* const front = console_.active_child();
    if (front != nullptr) {
      EXPECT_EQ(console_.FindForm(front->FullName()), front) << front->FullName();
    }
  }

  // Everything closes and is let go of, whatever happened.
  void Quit() {
    for (const std::string_view operation : kMidiOperationNames) recorder_.Fail(operation, 0, 1);
    for (const char* const operation : {"read", "write", "remove", "list"}) disk_.Fail(operation, "0");
    for (int i = 0; i < 100 && !console_.main_closed(); ++i) console_.forms().front()->UserClose();
    EXPECT_TRUE(console_.main_closed());
    for (const ui::Form* const form : console_.forms()) ADD_FAILURE() << form->FullName() << " is still open";
    EXPECT_EQ(opened_, closed_) << "windows";
    for (const int device : {0, 1}) {
      MidiHandle handle = 0;
      EXPECT_EQ(recorder_.midiOutOpen(handle, device, 0, 0, 0), kMidiOk) << "an output is still open";
    }
    MidiHandle handle = 0;
    EXPECT_EQ(recorder_.midiInOpen(handle, 0, 0, 0, 0), kMidiOk) << "the input is still open";
    EXPECT_EQ(memory_.files["/disk/Zentaline.ini"].size(), 12500U);
  }

  void Count(const std::string& line) {
    opened_ += line.starts_with("open ") ? 1 : 0;
    closed_ += line.starts_with("close ") ? 1 : 0;
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names = {"/disk/none.arr", "/nowhere/none.sty"};
    for (const auto& [name, content] : memory_.files) names.push_back(name);
    return names;
  }

  test::MemoryDisk& memory_;
  FaultyDisk disk_;
  RecorderMidi recorder_;
  int steps_ = 0;
  int opened_ = 0;
  int closed_ = 0;
  ui::ConsoleToolkit console_;
  ui::Monkey monkey_;
  ui::MidiTranscript midi_transcript_;
  ListeningMidi midi_;
  Application app_;
};

TEST(Monkey, NothingThatIsDoneAtRandomBringsTheProgramDown) {
  const int steps = FromEnvironment("ZENTALINE_MONKEY_STEPS", 40000);
  const int seed = FromEnvironment("ZENTALINE_MONKEY_SEED", 20040311);
  test::MemoryDisk disk;
  Fill(disk);
  // The same disk all along: what one run leaves the next one finds.
  for (int run = 0, left = steps; left > 0 && !HasFailure(); ++run) {
    SCOPED_TRACE("run " + std::to_string(run) + " of seed " + std::to_string(seed));
    left -= 1 + RandomRun(disk, static_cast<unsigned>(seed + run), std::min(left, 1000)).steps();
  }
}

}  // namespace
}  // namespace zentaline
