// Names and pacing, without a sequencer.
#include <gtest/gtest.h>

#include "midi/alsa/pace.h"
#include "midi/alsa/port_names.h"
#include "midi/device_service.h"

namespace zentaline {
namespace {

using std::chrono::milliseconds;

std::size_t Characters(const std::string& text) {
  std::size_t count = 0;
  for (const char c : text) count += (c & 0xC0) != 0x80 ? 1 : 0;
  return count;
}

TEST(PortNames, DoNotDoubleTheClient) {
  EXPECT_EQ(PortName("USB MIDI Interface", "USB MIDI Interface MIDI 1"), "USB MIDI Interface MIDI 1");
  EXPECT_EQ(PortName("Midi Through", "Midi Through Port-0"), "Midi Through Port-0");
  EXPECT_EQ(PortName("VMPK Output", "VMPK Output"), "VMPK Output");
}

TEST(PortNames, PutTheClientBeforeAPortOfItsOwnName) {
  EXPECT_EQ(PortName("nanoKEY2", "MIDI 1"), "nanoKEY2 MIDI 1");
  EXPECT_EQ(PortName("Virtual Raw MIDI 0-0", "VirMIDI 0-0     "), "Virtual Raw MIDI 0-0 VirMIDI 0-0");
  EXPECT_EQ(PortName("Client", ""), "Client");
  EXPECT_EQ(PortName("", "Port"), "Port");
}

TEST(PortNames, KeepTheEndOfAPortWhenTheyAreTooLong) {
  EXPECT_EQ(PortName("A very long name of a program", "synth input 3"), "A very long name o synth input 3");
  EXPECT_EQ(PortName("Client", "Some synthesizer's input port 31"), "Some synthesizer's input port 31");
  EXPECT_EQ(PortName("Some Audio Interface Pro 18x20 mk2", "Some Audio Interface Pro 18x20 mk2 MIDI 4"),
            "Some Audio Interface\u2026 mk2 MIDI 4");
  EXPECT_EQ(Characters(PortName("x", std::string(90, 'y'))), 32U);
  std::string accents;
  for (int i = 0; i < 40; ++i) accents += "\u00e8";
  EXPECT_EQ(Characters(PortName(accents, "1")), 32U);
  EXPECT_EQ(Characters(PortName("1", accents)), 32U);
}

TEST(PortNames, AreToldApart) {
  std::vector<std::string> names = {"USB MIDI 1",        "Keys", "USB MIDI 1", "USB MIDI 1", std::string(32, 'z'),
                                    std::string(32, 'z')};
  MakeDistinct(names);
  EXPECT_EQ(names[0], "USB MIDI 1");
  EXPECT_EQ(names[2], "USB MIDI 1 (2)");
  EXPECT_EQ(names[3], "USB MIDI 1 (3)");
  EXPECT_EQ(names[5], std::string(28, 'z') + " (2)");
}

TEST(Pacing, GivesEachByteItsTimeOnTheCable) {
  Pace pace;
  const Pace::Clock::time_point start{milliseconds(1000)};
  EXPECT_EQ(pace.TimeFor(3125), milliseconds(1000));
  pace.Give(start, 256);
  EXPECT_EQ(pace.Free() - start, std::chrono::microseconds(81920));
  pace.Give(start + milliseconds(10), 3125);
  EXPECT_EQ(pace.Free() - start, std::chrono::microseconds(1081920)) << "what is given early waits for its turn";
  pace.Give(start + milliseconds(5000), 3125);
  EXPECT_EQ(pace.Free() - start, milliseconds(6000)) << "an idle line saves nothing up";
}

TEST(Pacing, MakesGoodASmallDelayAndNoLargeOne) {
  Pace pace;
  const Pace::Clock::time_point start{milliseconds(1000)};
  pace.Give(start, 3125);
  pace.GiveNext(start + milliseconds(1030), 3125);
  EXPECT_EQ(pace.Free() - start, milliseconds(2000));
  pace.GiveNext(start + milliseconds(2540), 3125);
  EXPECT_EQ(pace.Free() - start, milliseconds(3500));
}

TEST(Pacing, TakesNoTimeAtSpeedZero) {
  Pace pace(0);
  const Pace::Clock::time_point start{milliseconds(1000)};
  pace.Give(start, 65000);
  EXPECT_EQ(pace.Free(), start);
}

}  // namespace
}  // namespace zentaline
