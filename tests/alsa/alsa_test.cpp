// The ALSA service against the kernel's sequencer: what a port's reader gets is what was sent.
#include <alsa/asoundlib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <set>

#include "base/bytes.h"
#include "midi/alsa/alsa_midi.h"
#include "tests/alsa/raw_port.h"
#include "tests/midi/long_message.h"

namespace zentaline {
namespace {

using std::chrono::milliseconds;
using ::testing::HasSubstr;
using ::testing::Not;
using Clock = std::chrono::steady_clock;

std::string Of(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text += static_cast<char>(byte);
  return text;
}

// Another program on the sequencer, with one port that can be written and read.
class Neighbour {
 public:
  explicit Neighbour(const char* name = "Neighbour") {
    EXPECT_GE(snd_seq_open(&sequencer_, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK), 0);
    snd_seq_set_client_name(sequencer_, name);
    port_ = snd_seq_create_simple_port(
        sequencer_, "Synth",
        SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ | SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE,
        SND_SEQ_PORT_TYPE_MIDI_GENERIC);
  }
  ~Neighbour() { snd_seq_close(sequencer_); }
  void RemovePort() { snd_seq_delete_simple_port(sequencer_, port_); }
  int Client() const { return snd_seq_client_id(sequencer_); }

  // Takes the virtual raw port's sequencer port for itself alone.
  int SubscribeAlone(int client) {
    snd_seq_port_subscribe_t* subscription = nullptr;
    snd_seq_port_subscribe_alloca(&subscription);
    const snd_seq_addr_t from{static_cast<unsigned char>(Client()), static_cast<unsigned char>(port_)};
    const snd_seq_addr_t to{static_cast<unsigned char>(client), 0};
    snd_seq_port_subscribe_set_sender(subscription, &from);
    snd_seq_port_subscribe_set_dest(subscription, &to);
    snd_seq_port_subscribe_set_exclusive(subscription, 1);
    return snd_seq_subscribe_port(sequencer_, subscription);
  }

  // The event types that have come, as numbers.
  std::vector<int> Events() {
    std::vector<int> types;
    snd_seq_event_t* event = nullptr;
    while (snd_seq_event_input(sequencer_, &event) >= 0) types.push_back(event->type);
    return types;
  }

 private:
  snd_seq_t* sequencer_ = nullptr;
  int port_ = -1;
};

// The ports that a client's port 0 sends to, as "client:port".
std::set<std::string> ReadersOf(int client) {
  std::set<std::string> readers;
  snd_seq_t* sequencer = nullptr;
  if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_OUTPUT, 0) < 0) return readers;
  snd_seq_query_subscribe_t* query = nullptr;
  snd_seq_query_subscribe_alloca(&query);
  const snd_seq_addr_t root{static_cast<unsigned char>(client), 0};
  snd_seq_query_subscribe_set_root(query, &root);
  snd_seq_query_subscribe_set_type(query, SND_SEQ_QUERY_SUBS_READ);
  for (int i = 0;; ++i) {
    snd_seq_query_subscribe_set_index(query, i);
    if (snd_seq_query_port_subscribers(sequencer, query) < 0) break;
    const snd_seq_addr_t* address = snd_seq_query_subscribe_get_addr(query);
    readers.insert(std::to_string(address->client) + ":" + std::to_string(address->port));
  }
  snd_seq_close(sequencer);
  return readers;
}

constexpr int kFirstRawClient = 16;  // of the four virtual raw ports of the first card

class Alsa : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!AlsaMidi::Available()) GTEST_SKIP() << "this machine has no ALSA sequencer";
    midi = std::make_unique<AlsaMidi>();
    if (OutNamed(*midi, RawPortName(3)) < 0) GTEST_SKIP() << "this machine has no virtual raw MIDI ports";
  }
  MidiHandle OpenOut(const std::string& name) {
    MidiHandle handle = 0;
    EXPECT_EQ(midi->midiOutOpen(handle, OutNamed(*midi, name), 0, 0, 0), kMidiOk) << name;
    return handle;
  }
  MidiHandle OpenIn(const std::string& name) {
    MidiHandle handle = 0;
    EXPECT_EQ(midi->midiInOpen(handle, InNamed(*midi, name), 0, 0, 0), kMidiOk) << name;
    return handle;
  }

  std::unique_ptr<AlsaMidi> midi;
};

// --- Devices ---------------------------------------------------------------------------------------------------------

TEST_F(Alsa, ListsPortsByNamesAMusicianKnowsWithoutItsOwnAndTheSystems) {
  OpenOut(RawPortName(0));
  AlsaMidi other;
  for (AlsaMidi* service : {midi.get(), &other}) {
    EXPECT_GE(OutNamed(*service, "Midi Through Port-0"), 0);
    EXPECT_GE(InNamed(*service, "Midi Through Port-0"), 0);
    for (int i = 0; i < 4; ++i) EXPECT_GE(InNamed(*service, RawPortName(i)), 0);
    MidiCaps caps;
    for (int i = 0; i < service->midiInGetNumDevs(); ++i) {
      ASSERT_EQ(service->midiInGetDevCapsA(i, caps, kMidiCapsSize), kMidiOk);
      EXPECT_THAT(caps.product_name, Not(HasSubstr("System")));
      EXPECT_THAT(caps.product_name, Not(HasSubstr("Announce")));
      EXPECT_THAT(caps.product_name, Not(HasSubstr("Zentaline")));
    }
  }
}

TEST_F(Alsa, FindsAPortThatComesLaterAndKeepsTheIndexOfAnOpenOne) {
  const int index = OutNamed(*midi, RawPortName(2));
  const MidiHandle out = OpenOut(RawPortName(2));
  Neighbour neighbour;
  EXPECT_GE(OutNamed(*midi, "Neighbour Synth"), 0);
  EXPECT_EQ(OutNamed(*midi, RawPortName(2)), index);
  EXPECT_EQ(midi->midiOutClose(out), kMidiOk);
}

TEST_F(Alsa, TellsTwoPortsOfOneNameApart) {
  Neighbour first;
  Neighbour second;
  const int one = OutNamed(*midi, "Neighbour Synth");
  const int two = OutNamed(*midi, "Neighbour Synth (2)");
  EXPECT_GE(one, 0);
  EXPECT_GT(two, one);
}

TEST_F(Alsa, HasNoDevicesWithoutAccessToTheSequencer) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can become a user who has no access";
  const pid_t child = fork();
  if (child == 0) {
    if (setgid(65534) != 0 || setuid(65534) != 0) _exit(3);
    if (AlsaMidi::Available()) _exit(4);
    AlsaMidi service;
    MidiHandle handle = 0;
    _exit(service.midiOutGetNumDevs() == 0 && service.midiInGetNumDevs() == 0 &&
                  service.midiOutOpen(handle, 0, 0, 0, 0) == kMidiBadDeviceId
              ? 0
              : 5);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

// --- Messages --------------------------------------------------------------------------------------------------------

TEST_F(Alsa, SendsShortMessagesByteForByte) {
  RawPort port(0);
  const MidiHandle out = OpenOut(RawPortName(0));
  for (const std::uint32_t word : {0x643C90U, 0x403C80U, 0x0000B0U, 0x0120B0U, 0x21C0U, 0x007BB5U, 0x407FEFU}) {
    EXPECT_EQ(midi->midiOutShortMsg(out, word), kMidiOk);
  }
  const std::string sent = Of({0x90, 0x3C, 0x64, 0x80, 0x3C, 0x40, 0xB0, 0x00, 0x00, 0xB0,
                               0x20, 0x01, 0xC0, 0x21, 0xB5, 0x7B, 0x00, 0xEF, 0x7F, 0x40});
  port.Bytes(sent.size());
  EXPECT_EQ(HexText(port.AllBytes()), HexText(sent));
}

TEST_F(Alsa, RefusesAShortMessageThatIsNone) {
  const MidiHandle out = OpenOut(RawPortName(0));
  for (const std::uint32_t word : {0x000000U, 0x643C45U, 0x0000F0U, 0x80FF90U, 0x0000FEU}) {
    EXPECT_EQ(midi->midiOutShortMsg(out, word), kMidiInvalidParameter) << std::hex << word;
  }
}

TEST_F(Alsa, SendsLongAndShortMessagesInTurnByteForByte) {
  RawPort port(0);
  const MidiHandle out = OpenOut(RawPortName(0));
  const std::string edit = Of({0xF0, 0x42, 0x30, 0x4D, 0x60, 0x0D, 0x04, 0x7F, 0x7F, 0xF7});
  const std::string zeros(20, '\0');
  EXPECT_EQ(midi->midiOutShortMsg(out, 0x643C90), kMidiOk);
  EXPECT_EQ(SendLongMessage(*midi, out, edit), kMidiOk);
  EXPECT_EQ(SendLongMessage(*midi, out, zeros), kMidiOk);
  EXPECT_EQ(midi->midiOutShortMsg(out, 0x643C90), kMidiOk);
  EXPECT_EQ(SendLongMessage(*midi, out, edit), kMidiOk);
  EXPECT_EQ(midi->midiOutShortMsg(out, 0x003C90), kMidiOk);
  const std::string note = Of({0x90, 0x3C, 0x64});
  const std::string sent = note + edit + zeros + note + edit + Of({0x90, 0x3C, 0x00});
  port.Bytes(sent.size());
  EXPECT_EQ(HexText(port.AllBytes()), HexText(sent));
}

TEST_F(Alsa, SendsEveryLengthAroundAPieceWhole) {
  midi->SetBytesPerSecond(0);
  for (const std::size_t length : {2U, 255U, 256U, 257U, 511U, 512U, 513U, 1500U}) {
    RawPort port(1);
    const MidiHandle out = OpenOut(RawPortName(1));
    const std::string message = LongMessage(length);
    EXPECT_EQ(SendLongMessage(*midi, out, message), kMidiOk);
    port.Bytes(length);
    EXPECT_EQ(HexText(port.AllBytes()), HexText(message)) << length;
    EXPECT_EQ(midi->midiOutClose(out), kMidiOk);
  }
}

TEST_F(Alsa, CarriesALargeMessageAtTheSpeedOfACableAndLosesNothing) {
  constexpr std::size_t kLength = 65000;
  RawPort port(0);
  const MidiHandle out = OpenOut(RawPortName(0));
  const std::string message = LongMessage(kLength);
  std::vector<std::uint32_t> progress;
  midi->SetProgress([&](std::uint32_t gone, std::uint32_t total) {
    EXPECT_EQ(total, kLength);
    progress.push_back(gone);
  });
  const auto start = Clock::now();
  EXPECT_EQ(SendLongMessage(*midi, out, message), kMidiOk);
  const std::chrono::duration<double> took = Clock::now() - start;
  EXPECT_TRUE(port.Bytes(kLength) == message) << port.Bytes(kLength).size() << " bytes came";
  const double use = static_cast<double>(kLength) / took.count() / 3125;
  EXPECT_GE(use, 0.97);
  EXPECT_LE(use, 1.0);
  EXPECT_LE(MostInOneSecond(port.Arrivals()), 3125U + 256U);
  ASSERT_FALSE(progress.empty());
  EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
  EXPECT_EQ(progress.front(), 0U);
  EXPECT_EQ(progress.back(), kLength);
  EXPECT_EQ(progress.size(), kLength / 256 + 2);
}

TEST_F(Alsa, ReturnsWhenAMessageIsDueToHaveLeft) {
  RawPort port(0);
  const MidiHandle out = OpenOut(RawPortName(0));
  int told = 0;
  midi->SetProgress([&](std::uint32_t, std::uint32_t) { ++told; });
  const auto start = Clock::now();
  EXPECT_EQ(SendLongMessage(*midi, out, LongMessage(250)), kMidiOk);
  EXPECT_GE(Clock::now() - start, milliseconds(80));
  EXPECT_EQ(told, 0) << "a message of one piece has no progress";
}

TEST_F(Alsa, KeepsToTheSpeedOfACableWithShortMessagesToo) {
  RawPort port(0);
  const MidiHandle out = OpenOut(RawPortName(0));
  const auto start = Clock::now();
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(midi->midiOutShortMsg(out, 0x643C90), kMidiOk);
  // 3000 bytes but for the one piece that may be on its way.
  EXPECT_GE(Clock::now() - start, milliseconds(875));
  EXPECT_EQ(port.Bytes(3000).size(), 3000U);
}

TEST_F(Alsa, GivesOtherProgramsRealEvents) {
  Neighbour neighbour;
  const MidiHandle out = OpenOut("Neighbour Synth");
  EXPECT_EQ(midi->midiOutShortMsg(out, 0x643C90), kMidiOk);
  EXPECT_EQ(midi->midiOutShortMsg(out, 0x21C0), kMidiOk);
  EXPECT_EQ(SendLongMessage(*midi, out, LongMessage(300)), kMidiOk);
  EXPECT_THAT(neighbour.Events(),
              ::testing::ElementsAre(SND_SEQ_EVENT_PORT_SUBSCRIBED, SND_SEQ_EVENT_NOTEON, SND_SEQ_EVENT_PGMCHANGE,
                                     SND_SEQ_EVENT_SYSEX, SND_SEQ_EVENT_SYSEX));
}

// --- Thru ------------------------------------------------------------------------------------------------------------

TEST_F(Alsa, JoinsAnInputToAnOutputInsideTheKernelUntilTheyAreParted) {
  RawPort keys(0);
  RawPort synth(1);
  const MidiHandle in = OpenIn(RawPortName(0));
  const MidiHandle out = OpenOut(RawPortName(1));
  const std::string note = Of({0x90, 0x3C, 0x64});
  ASSERT_TRUE(keys.Write(note));
  EXPECT_EQ(synth.AllBytes(), "");
  EXPECT_EQ(midi->midiConnect(in, out, 0), kMidiOk);
  EXPECT_EQ(midi->midiInStart(in), kMidiOk);
  EXPECT_EQ(ReadersOf(kFirstRawClient), std::set<std::string>{"17:0"}) << "no reading end of the program's own";
  ASSERT_TRUE(keys.Write(note));
  EXPECT_EQ(HexText(synth.Bytes(3)), HexText(note));
  EXPECT_EQ(midi->midiDisconnect(in, out, 0), kMidiOk);
  ASSERT_TRUE(keys.Write(note));
  EXPECT_EQ(HexText(synth.AllBytes()), HexText(note));
}

TEST_F(Alsa, PartsWhatItJoinedWhenEitherSideClosesOrTheServiceEnds) {
  const auto join = [&](MidiHandle& in, MidiHandle& out) {
    in = OpenIn(RawPortName(0));
    out = OpenOut(RawPortName(1));
    EXPECT_EQ(midi->midiConnect(in, out, 0), kMidiOk);
    EXPECT_EQ(ReadersOf(kFirstRawClient).size(), 1U);
  };
  MidiHandle in = 0;
  MidiHandle out = 0;
  join(in, out);
  EXPECT_EQ(midi->midiOutClose(out), kMidiOk);
  EXPECT_TRUE(ReadersOf(kFirstRawClient).empty());
  EXPECT_EQ(midi->midiInClose(in), kMidiOk);
  join(in, out);
  EXPECT_EQ(midi->midiInClose(in), kMidiOk);
  EXPECT_TRUE(ReadersOf(kFirstRawClient).empty());
  EXPECT_EQ(midi->midiOutClose(out), kMidiOk);
  join(in, out);
  midi.reset();
  EXPECT_TRUE(ReadersOf(kFirstRawClient).empty());
}

TEST_F(Alsa, PartsWhatItJoinedEvenWhenTheProgramIsKilled) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    AlsaMidi service;
    MidiHandle in = 0;
    MidiHandle out = 0;
    service.midiInOpen(in, InNamed(service, RawPortName(0)), 0, 0, 0);
    service.midiOutOpen(out, OutNamed(service, RawPortName(1)), 0, 0, 0);
    const char result = static_cast<char>('0' + service.midiConnect(in, out, 0));
    if (write(ready[1], &result, 1) != 1) _exit(1);
    while (true) pause();
  }
  char result = 0;
  ASSERT_EQ(read(ready[0], &result, 1), 1);
  close(ready[0]);
  close(ready[1]);
  EXPECT_EQ(result, '0');
  EXPECT_EQ(ReadersOf(kFirstRawClient).size(), 1U);
  kill(child, SIGKILL);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  const auto last = Clock::now() + std::chrono::seconds(5);
  while (!ReadersOf(kFirstRawClient).empty() && Clock::now() < last) std::this_thread::sleep_for(milliseconds(10));
  EXPECT_TRUE(ReadersOf(kFirstRawClient).empty());
}

TEST_F(Alsa, LeavesNoProcessBehind) {
  const MidiHandle in = OpenIn(RawPortName(0));
  const MidiHandle out = OpenOut(RawPortName(1));
  EXPECT_EQ(midi->midiConnect(in, out, 0), kMidiOk);
  EXPECT_EQ(midi->midiDisconnect(in, out, 0), kMidiOk);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

// --- Ports that go away or are held by others
// --------------------------------------------------------------------------

TEST_F(Alsa, GivesAResultForAPortThatWentAway) {
  auto neighbour = std::make_unique<Neighbour>();
  const MidiHandle out = OpenOut("Neighbour Synth");
  const MidiHandle in = OpenIn("Neighbour Synth");
  const MidiHandle raw = OpenOut(RawPortName(0));
  EXPECT_EQ(midi->midiConnect(in, raw, 0), kMidiOk);
  neighbour->RemovePort();
  EXPECT_EQ(midi->midiOutShortMsg(out, 0x643C90), kMidiNoDevice);
  EXPECT_EQ(SendLongMessage(*midi, out, LongMessage(600)), kMidiNoDevice);
  EXPECT_EQ(midi->midiDisconnect(in, raw, 0), kMidiNoDevice);
  neighbour.reset();
  EXPECT_EQ(midi->midiOutShortMsg(out, 0x643C90), kMidiNoDevice);
  EXPECT_EQ(midi->midiConnect(in, raw, 0), kMidiNoDevice);
  EXPECT_EQ(midi->midiOutClose(out), kMidiOk);
  EXPECT_EQ(midi->midiInClose(in), kMidiOk);
}

TEST_F(Alsa, DoesNotTakeAnotherPortOfTheSameNumberForTheOneThatWentAway) {
  auto neighbour = std::make_unique<Neighbour>();
  const int index = OutNamed(*midi, "Neighbour Synth");
  const int client = neighbour->Client();
  neighbour.reset();
  Neighbour stranger("Stranger");
  ASSERT_EQ(stranger.Client(), client);
  MidiHandle handle = 0;
  EXPECT_EQ(midi->midiOutOpen(handle, index, 0, 0, 0), kMidiNoDevice);
}

TEST_F(Alsa, EndsALongMessageWhenThePortGoesAwayInItsMiddle) {
  Neighbour neighbour;
  const MidiHandle out = OpenOut("Neighbour Synth");
  std::thread remove([&] {
    std::this_thread::sleep_for(milliseconds(500));
    neighbour.RemovePort();
  });
  const auto start = Clock::now();
  EXPECT_EQ(SendLongMessage(*midi, out, LongMessage(65000)), kMidiNoDevice);
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
  remove.join();
}

TEST_F(Alsa, NeverHangsAtAPortThatTakesNothing) {
  Neighbour neighbour;
  midi->SetBytesPerSecond(0);
  const MidiHandle out = OpenOut("Neighbour Synth");
  const auto start = Clock::now();
  EXPECT_EQ(SendLongMessage(*midi, out, LongMessage(65000)), kMidiNotReady);
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
  neighbour.Events();
  EXPECT_EQ(midi->midiOutShortMsg(out, 0x643C90), kMidiOk) << "it goes on as soon as there is room";
}

TEST_F(Alsa, GivesAllocatedForAPortThatSomeoneHoldsAlone) {
  Neighbour neighbour;
  ASSERT_GE(neighbour.SubscribeAlone(kFirstRawClient + 3), 0);
  MidiHandle handle = 0;
  EXPECT_EQ(midi->midiOutOpen(handle, OutNamed(*midi, RawPortName(3)), 0, 0, 0), kMidiAllocated);
}

TEST_F(Alsa, GivesAllocatedForAnOutputItHasOpenAlready) {
  OpenOut(RawPortName(3));
  MidiHandle handle = 0;
  EXPECT_EQ(midi->midiOutOpen(handle, OutNamed(*midi, RawPortName(3)), 0, 0, 0), kMidiAllocated);
}

}  // namespace
}  // namespace zentaline
