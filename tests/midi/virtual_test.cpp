// Each message of the catalogue, built here by hand, into the virtual instrument; and malformed ones.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "midi/virtual/unpack.h"
#include "midi/virtual/virtual_midi.h"
#include "tests/midi/long_message.h"

namespace zentaline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

std::string Of(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text += static_cast<char>(byte);
  return text;
}

// Seven bytes into eight, bit by bit.
std::string Pack(const std::string& data) {
  std::string packed;
  for (std::size_t at = 0; at < data.size(); at += 7) {
    const std::string group = data.substr(at, 7);
    int top = 0;
    for (std::size_t k = 0; k < group.size(); ++k) top += (group[k] & 0x80) != 0 ? 1 << k : 0;
    packed += static_cast<char>(top);
    for (const char byte : group) packed += static_cast<char>(byte & 0x7F);
  }
  return packed;
}

std::string Frame(int function, const std::string& data, int channel = 0) {
  return Of({0xF0, 0x42, 0x30 + channel, 0x4D, function}) + data + Of({0xF7});
}

std::string Padded16(std::string name) {
  return name + std::string(16 - name.size(), ' ');
}

std::string Style(const std::string& name, std::size_t size) {
  return Padded16(name) + std::string(size - 16, '\xA5');
}

std::string StyleDump(int group, const std::vector<std::string>& styles) {
  std::string descriptors;
  std::string data;
  std::size_t offset = 24;
  for (const std::string& style : styles) {
    descriptors += Of({static_cast<int>(offset % 256), 0, static_cast<int>(offset / 256 % 256), 0x80 + group,
                       static_cast<int>(style.size() % 256), static_cast<int>(style.size() / 256)});
    data += style;
    offset += style.size();
  }
  return descriptors + data;
}

const std::string kZeros(20, '\0');

class Virtual : public ::testing::Test {
 protected:
  std::string TextOf(const std::string& name) {
    for (const HeldValue& value : instrument.Holdings()) {
      if (value.name == name) return value.is_number ? std::to_string(value.number) : "\"" + value.text + "\"";
    }
    return "nothing";
  }
  void Select(int channel, int bank, int number) {
    instrument.Short(Of({0xB0 + channel, 0, 0}));
    instrument.Short(Of({0xB0 + channel, 32, bank}));
    instrument.Short(Of({0xC0 + channel, number}));
  }
  // What the instrument says of one long message.
  std::string ComplaintOf(const std::string& message) {
    VirtualInstrument other;
    other.Long(message);
    return other.Complaints().empty() ? "" : other.Complaints().front();
  }

  VirtualInstrument instrument;
};

TEST_F(Virtual, HasOneOutputAndOneInputAndGivesTheInstrumentWhatIsSent) {
  VirtualMidi midi;
  MidiCaps caps;
  ASSERT_EQ(midi.midiOutGetNumDevs(), 1);
  ASSERT_EQ(midi.midiInGetNumDevs(), 1);
  EXPECT_EQ(midi.midiOutGetDevCapsA(0, caps, kMidiCapsSize), kMidiOk);
  EXPECT_EQ(caps.product_name, "Virtual Instrument");
  EXPECT_EQ(midi.midiInGetDevCapsA(0, caps, kMidiCapsSize), kMidiOk);
  EXPECT_EQ(caps.product_name, "Virtual Keyboard");
  MidiHandle out = 0;
  ASSERT_EQ(midi.midiOutOpen(out, 0, 0, 0, 0), kMidiOk);
  EXPECT_EQ(SendLongMessage(midi, out, Frame(0x4E, Of({0x02}))), kMidiOk);
  EXPECT_EQ(midi.midiOutShortMsg(out, 0x643C90), kMidiOk);
  EXPECT_EQ(midi.Instrument().Mode(), 4);
  EXPECT_EQ(midi.Instrument().ChannelState(0).SoundingNotes(), 1);
}

TEST_F(Virtual, HoldsNothingAtFirst) {
  const auto number = [](const char* name) { return HeldValue{name, true, 0, ""}; };
  const auto text = [](const char* name) { return HeldValue{name, false, 0, ""}; };
  EXPECT_THAT(instrument.Holdings(),
              ElementsAre(text("mode"), number("channel"), number("arrangements"), text("currentArrangement"),
                          number("programs"), number("styleGroups"), number("styles"), number("globalData"),
                          number("backSequences"), number("arrangementEdits"), number("programEdits"),
                          number("longMessages"), number("shortMessages"), number("bytes"), number("complaints")));
}

TEST_F(Virtual, FollowsTheFiveModes) {
  const std::pair<int, const char*> modes[] = {{0x0A, "\"ARR PLAY\""},
                                               {0x06, "\"SONG PLAY\""},
                                               {0x04, "\"GLOBAL\""},
                                               {0x0B, "\"BACK.SEQ.\""},
                                               {0x02, "\"PROGRAM\""}};
  int index = 0;
  for (const auto& [byte, text] : modes) {
    instrument.Long(Frame(0x4E, Of({byte}), 15));
    EXPECT_EQ(instrument.Mode(), index++);
    EXPECT_EQ(TextOf("mode"), text);
  }
  EXPECT_EQ(instrument.SysExChannel(), 15);
  EXPECT_EQ(TextOf("channel"), "16");
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
}

TEST_F(Virtual, KeepsAnArrangementDumpAndItsNames) {
  std::string bank(10496, '\0');
  bank.replace(0, 16, Padded16("First"));
  bank.replace(17 * 164, 16, Padded16("Slow Rock 1"));
  bank.replace(63 * 164, 16, Padded16("Caff\xE8"));
  instrument.Long(Frame(0x64, Pack(bank)));
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
  EXPECT_EQ(instrument.Arrangements(), bank);
  EXPECT_EQ(TextOf("arrangements"), "3");
  EXPECT_EQ(TextOf("arrangement(11)"), "\"First\"");
  EXPECT_EQ(TextOf("arrangement(32)"), "\"Slow Rock 1\"");
  EXPECT_EQ(TextOf("arrangement(88)"), "\"Caff\u00e8\"");
  EXPECT_EQ(TextOf("arrangement(12)"), "nothing");
}

TEST_F(Virtual, KeepsAProgramDumpWithTheSecondBlock) {
  std::string bank(13112, '\0');
  bank.replace(172, 16, Padded16("Piano"));
  bank.back() = '\xFF';
  instrument.Long(Frame(0x4C, Pack(bank)));
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
  EXPECT_EQ(instrument.Programs(), bank);
  EXPECT_EQ(TextOf("programs"), "1");
  EXPECT_EQ(TextOf("program(12)"), "\"Piano\"");
}

TEST_F(Virtual, KeepsStyleGroupsWithEachStylesNameAndSize) {
  instrument.Long(Frame(0x65, Pack(StyleDump(2, {Style("Waltz", 1176), Style("- empty -", 1176), Style("Bossa", 40000),
                                                 Style("March", 17)}))));
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
  EXPECT_EQ(TextOf("styleGroups"), "1");
  EXPECT_EQ(TextOf("styles"), "3");
  EXPECT_EQ(TextOf("style(21)"), "\"Waltz\"");
  EXPECT_EQ(TextOf("styleSize(21)"), "1176");
  EXPECT_EQ(TextOf("style(22)"), "\"- empty -\"");
  EXPECT_EQ(TextOf("styleSize(23)"), "40000");
  EXPECT_EQ(TextOf("style(24)"), "\"March\"");
  EXPECT_EQ(TextOf("style(11)"), "nothing");
  EXPECT_EQ(instrument.Style(10), Style("Bossa", 40000));
}

TEST_F(Virtual, KeepsGlobalData) {
  std::string data(415, '\x81');
  instrument.Long(Frame(0x51, Pack(data)));
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
  EXPECT_EQ(instrument.GlobalData(), data);
  EXPECT_EQ(TextOf("globalData"), "415");
}

TEST_F(Virtual, KeepsBackSequencesAndChecksTheirCount) {
  std::string data(2322 + 16 * 300, '\0');
  data.replace(0, 10, "Ballad    ");
  data.replace(198 * 9, 10, "Encore    ");
  instrument.Long(Frame(0x66, Of({300 % 128, 300 / 128}) + Pack(data)));
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
  EXPECT_EQ(instrument.BackSequences(), data);
  EXPECT_EQ(TextOf("backSequence(1)"), "\"Ballad\"");
  EXPECT_EQ(TextOf("backSequence(10)"), "\"Encore\"");
  EXPECT_EQ(TextOf("backSequence(2)"), "nothing");
  EXPECT_THAT(ComplaintOf(Frame(0x66, Of({1, 2}) + Pack(data))), HasSubstr("says 257 blocks of events and holds 300"));
}

TEST_F(Virtual, CountsArrangementEditsAndKeepsTheLast) {
  instrument.Long(Frame(0x41, Of({0x46, 0x45, 0x02})));
  EXPECT_EQ(TextOf("lastArrangementEdit"), "\"id 70 value 325\"");
  instrument.Long(Frame(0x41, Of({0x10, 0x7B, 0x7F})));
  EXPECT_EQ(TextOf("lastArrangementEdit"), "\"id 16 value -5\"");
  EXPECT_EQ(TextOf("arrangementEdits"), "2");
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
}

TEST_F(Virtual, TakesTwentyZeroBytesAfterAProgramEdit) {
  instrument.Long(Frame(0x60, Of({13, 4, 0x7F, 0x7F})));
  instrument.Long(kZeros);
  instrument.Long(Frame(0x60, Of({13, 5, 0x00, 0x01})));
  instrument.Long(kZeros);
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
  EXPECT_EQ(TextOf("programEdits"), "2");
  EXPECT_EQ(TextOf("lastProgramEdit"), "\"a 13 b 5 value 128\"");
}

TEST_F(Virtual, MissesTheZeroBytesAfterAProgramEdit) {
  instrument.Long(Frame(0x60, Of({13, 4, 1, 0})));
  instrument.Long(Frame(0x4E, Of({0x02})));
  instrument.Long(Frame(0x60, Of({13, 4, 1, 0})));
  instrument.Short(Of({0x90, 60, 100}));
  EXPECT_THAT(instrument.Complaints(),
              ElementsAre("Long message 2: the 20 zero bytes after a program edit are missing before it.",
                          "Short message 1: the 20 zero bytes after a program edit are missing before it."));
  EXPECT_EQ(instrument.Mode(), 4);
}

TEST_F(Virtual, ComplainsOfZeroBytesFromNowhere) {
  EXPECT_EQ(ComplaintOf(kZeros), "Long message 1: zero bytes without a program edit before them.");
  EXPECT_THAT(ComplaintOf(std::string(19, '\0')), HasSubstr("begins with 00, not with F0"));
}

TEST_F(Virtual, CallsUpArrangementsOnTheArrangementChannel) {
  std::string bank(10496, '\0');
  bank.replace(33 * 164, 16, Padded16("Samba"));
  instrument.Long(Frame(0x64, Pack(bank)));
  Select(0, 1, 33);
  EXPECT_EQ(TextOf("currentArrangement"), "\"User 52 Samba\"");
  Select(0, 0, 5);
  EXPECT_EQ(TextOf("currentArrangement"), "\"A 16\"");
  Select(0, 0, 69);
  EXPECT_EQ(TextOf("currentArrangement"), "\"B 16\"");
  instrument.SetArrangementChannel(9);
  Select(9, 1, 0);
  EXPECT_EQ(TextOf("currentArrangement"), "\"User 11\"");
  ASSERT_TRUE(instrument.CurrentArrangement());
  EXPECT_EQ(instrument.CurrentArrangement()->bank, 1);
  EXPECT_EQ(instrument.CurrentArrangement()->number, 0);
  EXPECT_EQ(TextOf("selection(1)"), "nothing");
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
}

TEST_F(Virtual, CallsUpProgramsByChannel) {
  std::string bank(13112, '\0');
  bank.replace(63 * 172, 16, Padded16("Strings"));
  instrument.Long(Frame(0x4C, Pack(bank)));
  const std::pair<std::pair<int, int>, const char*> selections[] = {{{0, 0}, "\"A 11\""},
                                                                    {{0, 64}, "\"B 11\""},
                                                                    {{1, 63}, "\"C 88\""},
                                                                    {{1, 127}, "\"D 88\""},
                                                                    {{2, 10}, "\"E 23\""},
                                                                    {{4, 56}, "\"Drum 56\""},
                                                                    {{3, 63}, "\"F/User 88 Strings\""},
                                                                    {{3, 1}, "\"F/User 12\""}};
  for (const auto& [selection, text] : selections) {
    Select(4, selection.first, selection.second);
    EXPECT_EQ(TextOf("selection(5)"), text);
  }
  instrument.Long(Frame(0x4E, Of({0x02})));
  Select(0, 1, 2);
  EXPECT_EQ(TextOf("selection(1)"), "\"C 13\"") << "in PROGRAM mode the arrangement channel selects programs too";
  EXPECT_EQ(TextOf("currentArrangement"), "\"\"");
}

TEST_F(Virtual, PlaysNotesAndFollowsControllers) {
  instrument.Short(Of({0x93, 60, 100}));
  instrument.Short(Of({0x93, 64, 100}));
  instrument.Short(Of({0x93, 67, 100}));
  instrument.Short(Of({0x83, 60, 0}));
  instrument.Short(Of({0x93, 64, 0}));
  instrument.Short(Of({0xB3, 7, 90}));
  instrument.Short(Of({0xE3, 0x7F, 0x40}));
  EXPECT_EQ(TextOf("notes(4)"), "1");
  EXPECT_EQ(TextOf("controller(4,7)"), "90");
  EXPECT_EQ(TextOf("bend(4)"), "8319");
  instrument.Short(Of({0xB3, 0x7B, 0}));
  EXPECT_EQ(TextOf("notes(4)"), "nothing");
  EXPECT_EQ(TextOf("shortMessages"), "8");
  EXPECT_EQ(TextOf("bytes"), "24");
  EXPECT_THAT(instrument.Complaints(), IsEmpty());
}

TEST_F(Virtual, ComplainsOfEveryFaultOfAFrame) {
  EXPECT_EQ(ComplaintOf(""), "Long message 1: it is empty.");
  EXPECT_THAT(ComplaintOf(Of({0x42, 0x30, 0xF7})), HasSubstr("begins with 42, not with F0"));
  EXPECT_THAT(ComplaintOf(Of({0xF0, 0x42, 0x30, 0x4D, 0x4E, 0x02})), HasSubstr("does not end with F7"));
  EXPECT_THAT(ComplaintOf(Of({0xF0})), HasSubstr("does not end with F7"));
  EXPECT_THAT(ComplaintOf(Of({0xF0, 0x42, 0x30, 0x4D, 0xF7})), HasSubstr("too short"));
  EXPECT_THAT(ComplaintOf(Of({0xF0, 0x42, 0x30, 0x4D, 0x4E, 0x82, 0xF7})), HasSubstr("offset 5 is 82, above 7F"));
  EXPECT_THAT(ComplaintOf(Of({0xF0, 0x43, 0x30, 0x4D, 0x4E, 0x02, 0xF7})), HasSubstr("maker is 43"));
  EXPECT_THAT(ComplaintOf(Of({0xF0, 0x42, 0x40, 0x4D, 0x4E, 0x02, 0xF7})), HasSubstr("channel are 40"));
  EXPECT_THAT(ComplaintOf(Of({0xF0, 0x42, 0x30, 0x4E, 0x4E, 0x02, 0xF7})), HasSubstr("model is 4E"));
  EXPECT_THAT(ComplaintOf(Frame(0x50, "")), HasSubstr("function 50: there is no such function"));
  EXPECT_THAT(ComplaintOf(Frame(0x4E, "")), HasSubstr("a mode is one byte, not 0"));
  EXPECT_THAT(ComplaintOf(Frame(0x4E, Of({0x03}))), HasSubstr("no mode 03"));
  EXPECT_THAT(ComplaintOf(Frame(0x41, Of({1, 2}))), HasSubstr("3 bytes, not 2"));
  EXPECT_THAT(ComplaintOf(Frame(0x60, Of({1, 2, 3}))), HasSubstr("4 bytes, not 3"));
}

TEST_F(Virtual, ComplainsOfEveryFaultOfADump) {
  EXPECT_THAT(ComplaintOf(Frame(0x64, Pack(std::string(10495, 'x')))), HasSubstr("10495 bytes, not 10496"));
  EXPECT_THAT(ComplaintOf(Frame(0x4C, Pack(std::string(13113, 'x')))), HasSubstr("13113 bytes, not 13112"));
  EXPECT_THAT(ComplaintOf(Frame(0x51, "")), HasSubstr("0 bytes, not 415"));
  EXPECT_THAT(ComplaintOf(Frame(0x66, Of({1}))), HasSubstr("count of events is missing"));
  EXPECT_THAT(ComplaintOf(Frame(0x66, Of({0, 0}) + Pack(std::string(2321, '\0')))), HasSubstr("too short"));
  // 415 bytes are 59 groups of seven and one of two: of the last top bits only the lowest two are used.
  std::string packed = Pack(std::string(415, '\0'));
  packed[59 * 8] = 0x04;
  EXPECT_THAT(ComplaintOf(Frame(0x51, packed)), HasSubstr("a top bit is set for a byte that is not there"));
  EXPECT_THAT(ComplaintOf(Frame(0x51, Pack(std::string(413, '\0')) + Of({0}))), HasSubstr("top bits and no data"));
}

TEST_F(Virtual, ComplainsOfEveryFaultOfAStyleGroup) {
  const std::vector<std::string> styles = {Style("A", 300), Style("B", 300), Style("C", 300), Style("D", 300)};
  const auto changed = [&](std::size_t offset, int byte) {
    std::string data = StyleDump(1, styles);
    data[offset] = static_cast<char>(byte);
    return ComplaintOf(Frame(0x65, Pack(data)));
  };
  const std::string good = StyleDump(1, styles);
  EXPECT_EQ(ComplaintOf(Frame(0x65, Pack(good))), "");
  EXPECT_THAT(ComplaintOf(Frame(0x65, Pack(good.substr(0, 23)))), HasSubstr("descriptors of four styles"));
  EXPECT_THAT(changed(0, 25), HasSubstr("offset of style 1 of the group is not 24"));
  EXPECT_THAT(changed(7, 1), HasSubstr("offset of style 2 of the group is not 324"));
  EXPECT_THAT(changed(14, 3), HasSubstr("offset of style 3 of the group is not 624"));
  EXPECT_THAT(changed(3, 0x84), HasSubstr("no style group 4"));
  EXPECT_THAT(changed(3, 0x01), HasSubstr("style 1 of the group names another group"));
  EXPECT_THAT(changed(21, 0x82), HasSubstr("style 4 of the group names another group"));
  // The last size 300 is 2C 01: without its high byte 44 of the 300 bytes belong to the style.
  EXPECT_THAT(changed(23, 0x00), HasSubstr("256 bytes follow the last style"));
  EXPECT_THAT(ComplaintOf(Frame(0x65, Pack(good.substr(0, good.size() - 1)))),
              HasSubstr("data of style 4 of the group are missing or cut off"));
  EXPECT_THAT(ComplaintOf(Frame(0x65, Pack(StyleDump(1, {Style("A", 20), "short", Style("C", 20), Style("D", 20)})))),
              HasSubstr("style 2 of the group has 5 bytes, too few for its name"));
}

TEST_F(Virtual, ComplainsOfMalformedShortMessages) {
  for (const std::string& bytes : {Of({0x45, 1, 2}), Of({0xF8}), Of({0xC0}), Of({0xC0, 1, 2}), Of({0x90, 60}),
                                   Of({0x90, 0x80, 1}), Of({0xB0, 1, 0x80}), Of({0xA0, 1, 2}), Of({0xD0, 1}), Of({})}) {
    VirtualInstrument other;
    other.Short(bytes);
    EXPECT_THAT(other.Complaints(), SizeIs(1)) << HexText(bytes);
  }
}

TEST_F(Virtual, KeepsWhatItHasWhenAMessageIsMalformed) {
  instrument.Long(Frame(0x51, Pack(std::string(415, 'a'))));
  instrument.Long(Frame(0x51, Pack(std::string(414, 'b')), 3));
  EXPECT_EQ(instrument.GlobalData(), std::string(415, 'a'));
  EXPECT_EQ(instrument.SysExChannel(), 0);
  EXPECT_EQ(TextOf("complaint(1)"), "\"Long message 2, function 51: it holds 414 bytes, not 415.\"");
}

TEST_F(Virtual, KeepsTheFirstHundredComplaintsAndCountsAll) {
  for (int i = 0; i < 250; ++i) instrument.Long("x");
  EXPECT_THAT(instrument.Complaints(), SizeIs(100));
  EXPECT_EQ(instrument.ComplaintCount(), 250);
  EXPECT_EQ(TextOf("complaints"), "250");
}

TEST_F(Virtual, SurvivesRandomBytes) {
  std::mt19937 random(20040311);
  const auto byte = [&](int limit) { return static_cast<char>(random() % static_cast<unsigned>(limit)); };
  const int functions[] = {0x41, 0x4C, 0x4E, 0x51, 0x60, 0x64, 0x65, 0x66};
  for (int i = 0; i < 4000; ++i) {
    std::string bytes(random() % 3000, '\0');
    const int limit = i % 2 == 0 ? 256 : 128;
    for (char& c : bytes) c = byte(limit);
    switch (i % 4) {
      case 0:
        instrument.Long(bytes);
        break;
      case 1:
        instrument.Long(Frame(functions[random() % 8], bytes));
        break;
      case 2:
        instrument.Long(Frame(functions[random() % 8], Pack(bytes)));
        break;
      default:
        instrument.Short(bytes.substr(0, random() % 5));
    }
    EXPECT_THAT(instrument.Holdings(), Not(IsEmpty()));
  }
  EXPECT_GT(instrument.ComplaintCount(), 0);
}

TEST(Unpacking, ReversesPackingOfEveryLength) {
  std::mt19937 random(7);
  std::string data;
  for (int length = 0; length < 300; ++length) {
    const Unpacked unpacked = Unpack(Pack(data));
    EXPECT_EQ(unpacked.data, data) << length;
    EXPECT_EQ(unpacked.fault, "") << length;
    data += static_cast<char>(random() % 256);
  }
}

TEST(Unpacking, TakesBitKOfTheFirstByteForByteK) {
  EXPECT_EQ(Unpack(Of({0x04, 1, 2, 3, 4, 5, 6, 7})).data, Of({1, 2, 0x83, 4, 5, 6, 7}));
  EXPECT_EQ(Unpack(Of({0x41, 1, 2, 3, 4, 5, 6, 7, 0x01, 0x7F})).data, Of({0x81, 2, 3, 4, 5, 6, 0x87, 0xFF}));
}

}  // namespace
}  // namespace zentaline
