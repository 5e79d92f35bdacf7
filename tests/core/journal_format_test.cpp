// The journal's bytes: what is written is read, and of what is torn or damaged all that stands before it.
#include "core/journal_format.h"

#include <gtest/gtest.h>

#include <random>

namespace zentaline {
namespace {

constexpr JournalPlace kFirst{JournalThing::kWindow, 1};
constexpr JournalPlace kSecond{JournalThing::kWindow, 2};

JournalWindow Window(std::uint32_t id, char filling = 'i') {
  JournalWindow window;
  window.window = id;
  window.kind = 19;
  window.number = static_cast<int>(id);
  window.has_file = true;
  window.path = "songs/song" + std::to_string(id);
  window.files = {{"arr", {true, 10528, 0x12345678}}, {"sty", {}}};
  window.image = Bytes(270, '\0') + Bytes(100, filling);
  return window;
}

JournalAction Action(std::int64_t number, JournalPlace place, std::size_t position, const Bytes& before,
                     const Bytes& after) {
  JournalAction action;
  action.number = number;
  action.what = "Volume";
  action.of = "UPPER1";
  action.name = "Night Train";
  action.pieces = {{place, position, before, after}};
  return action;
}

Bytes Done(const JournalAction& action) {
  return JournalBytes(JournalStep::kDone, action);
}

// As the list takes an action back.
Bytes Back(const JournalAction& action) {
  JournalAction back = action;
  back.pieces.clear();
  for (auto piece = action.pieces.rbegin(); piece != action.pieces.rend(); ++piece) {
    back.pieces.push_back({piece->place, piece->position, piece->after, piece->before});
  }
  return JournalBytes(JournalStep::kTakenBack, back);
}

JournalContent Read(const Bytes& file) {
  const auto content = ReadJournal(file);
  EXPECT_TRUE(content.has_value());
  return content.value_or(JournalContent());
}

std::string Tail(const Bytes& image, std::size_t length) {
  return image.substr(270, length);
}

TEST(JournalFormat, ARecordHasItsLengthAndItsCheckSum) {
  // "123456789" has the check sum CBF43926; here it is that of the record's five bytes.
  const Bytes record = JournalClosed(0x01020304);
  ASSERT_EQ(record.size(), 13u);
  EXPECT_EQ(record.substr(0, 4), Bytes("\x05\0\0\0", 4));
  EXPECT_EQ(record.substr(8), Bytes("X\x04\x03\x02\x01", 5));
  // Worked out bit by bit.
  std::uint32_t check = 0xFFFFFFFF;
  for (const char c : record.substr(8)) {
    check ^= static_cast<unsigned char>(c);
    for (int i = 0; i < 8; ++i) check = check >> 1 ^ ((check & 1) != 0 ? 0xEDB88320U : 0U);
  }
  check = ~check;
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(static_cast<unsigned char>(record[4 + i]), check >> 8 * i & 0xFF);
}

TEST(JournalFormat, AWindowComesBackWithAllThatIsKnownOfIt) {
  const JournalWindow window = Window(7);
  const JournalContent content = Read(JournalHead() + JournalBytes(window));
  ASSERT_EQ(content.windows.size(), 1u);
  EXPECT_EQ(content.windows.at(7).base, window);
  EXPECT_EQ(content.windows.at(7).image, window.image);
  EXPECT_FALSE(content.windows.at(7).Changed());
}

TEST(JournalFormat, AnImageIsPacked) {
  JournalWindow window = Window(1);
  window.image = Bytes(100000, 'x');
  EXPECT_LT(JournalBytes(window).size(), 2000u);
}

TEST(JournalFormat, ActionsChangeTheImageAndStandOneByOne) {
  const JournalAction one = Action(1, kFirst, 271, "ii", "AB");
  const JournalAction two = Action(2, kFirst, 272, "B", "long");
  const JournalContent content = Read(JournalHead() + JournalBytes(Window(1)) + Done(one) + Done(two));
  const JournalLeft& left = content.windows.at(1);
  EXPECT_EQ(Tail(left.image, 7), "Alongii");
  EXPECT_EQ(left.image.size(), 373u);
  EXPECT_EQ(left.actions, (std::vector<JournalAction>{one, two}));
  EXPECT_TRUE(left.Changed());
}

// The byte between was set aside, of which the journal is told nothing.
TEST(JournalFormat, WhatAPieceLeavesAsItWasNeedNotBeThere) {
  const JournalAction action = Action(1, kFirst, 271, "i9i", "A9B");
  const JournalContent content = Read(JournalHead() + JournalBytes(Window(1)) + Done(action) + Done(action));
  EXPECT_EQ(Tail(content.windows.at(1).image, 3), "AiB");
  // What it changes must be as it was.
  const Bytes wrong = JournalHead() + JournalBytes(Window(1));
  EXPECT_EQ(Read(wrong + Done(Action(1, kFirst, 271, "i9j", "A9B"))).read, wrong.size());
}

TEST(JournalFormat, MarksAreSetWithTheirActions) {
  JournalAction action = Action(1, kFirst, 271, "i", "A");
  action.marks = {{kFirst, 4, 0, 1}};
  const JournalContent content = Read(JournalHead() + JournalBytes(Window(1)) + Done(action));
  EXPECT_EQ(content.windows.at(1).image[3], 1);
}

// Neither is any part of what the user does, nor would it be kept when the journal is rewritten.
TEST(JournalFormat, AnActionOnThePathEndsTheReading) {
  const Bytes before = JournalHead() + JournalBytes(Window(1));
  EXPECT_EQ(Read(before + Done(Action(1, kFirst, 260, "i", "A"))).read, before.size());
  JournalAction action = Action(1, kFirst, 271, "i", "A");
  action.marks = {{kFirst, 260, 0, 1}};
  EXPECT_EQ(Read(before + Done(action)).read, before.size());
  action.marks = {{kFirst, 21, 0, 1}};
  EXPECT_EQ(Read(before + Done(action)).read, before.size());
}

TEST(JournalFormat, AnActionThatGrowsTakesThePlaceOfWhatItWas) {
  const JournalContent content =
      Read(JournalHead() + JournalBytes(Window(1)) + Done(Action(5, kFirst, 271, "i", "A")) +
           Done(Action(5, kFirst, 271, "i", "B")) + JournalBytes(Window(2)) + Done(Action(5, kFirst, 271, "i", "C")));
  EXPECT_EQ(Tail(content.windows.at(1).image, 2), "Ci");
  EXPECT_EQ(content.windows.at(1).actions.size(), 1u);
}

TEST(JournalFormat, WhatIsTakenBackIsGoneAndWhatIsBroughtForthIsThere) {
  const JournalAction one = Action(1, kFirst, 271, "i", "A");
  const JournalAction two = Action(2, kFirst, 272, "i", "B");
  Bytes file = JournalHead() + JournalBytes(Window(1)) + Done(one) + Done(two) + Back(two) + Back(one);
  EXPECT_FALSE(Read(file).windows.at(1).Changed());
  EXPECT_EQ(Tail(Read(file).windows.at(1).image, 2), "ii");
  file += JournalBytes(JournalStep::kBroughtForth, one);
  EXPECT_EQ(Tail(Read(file).windows.at(1).image, 2), "Ai");
  EXPECT_EQ(Read(file).windows.at(1).actions, std::vector<JournalAction>{one});
}

TEST(JournalFormat, AnActionOfBeforeTheSaveThatIsTakenBackMakesOneOfAll) {
  const JournalAction one = Action(1, kFirst, 271, "i", "A");
  JournalWindow saved = Window(1);
  saved.image[270] = 'A';
  Bytes file = JournalHead() + JournalBytes(Window(1)) + Done(one) + JournalBytes(saved);
  EXPECT_FALSE(Read(file).windows.at(1).Changed());
  file += Back(one);
  const JournalContent content = Read(file);
  EXPECT_TRUE(content.windows.at(1).Changed());
  EXPECT_TRUE(content.windows.at(1).as_one);
  EXPECT_EQ(Tail(content.windows.at(1).image, 1), "i");
  // Brought forth again it is what was saved.
  EXPECT_FALSE(Read(file + JournalBytes(JournalStep::kBroughtForth, one)).windows.at(1).Changed());
}

TEST(JournalFormat, AWindowThatWasClosedIsForgotten) {
  const JournalContent content = Read(JournalHead() + JournalBytes(Window(1)) + JournalBytes(Window(2)) +
                                      Done(Action(1, kFirst, 271, "i", "A")) + JournalClosed(1));
  EXPECT_FALSE(content.windows.contains(1));
  EXPECT_TRUE(content.windows.contains(2));
}

TEST(JournalFormat, AnActionOfTwoWindowsBelongsToBoth) {
  JournalAction action = Action(1, kFirst, 271, "i", "A");
  action.pieces.push_back({kSecond, 280, "i", ""});
  const JournalContent content = Read(JournalHead() + JournalBytes(Window(1)) + JournalBytes(Window(2)) + Done(action));
  EXPECT_TRUE(content.windows.at(1).Changed());
  EXPECT_TRUE(content.windows.at(2).Changed());
  EXPECT_EQ(content.windows.at(2).image.size(), 369u);
}

TEST(JournalFormat, ARecordUnderEditHasItsBytesAndItsFlag) {
  JournalRecord record{JournalThing::kPrgRecord, 3, false, "program"};
  JournalAction action = Action(1, {JournalThing::kPrgRecord, 0}, 1, "p", "P");
  action.marks = {{{JournalThing::kPrgRecord, 0}, 0, 0, 1}};
  const JournalContent content = Read(JournalHead() + JournalBytes(record) + Done(action));
  const JournalRecordLeft& left = content.records.at(JournalThing::kPrgRecord);
  EXPECT_EQ(left.bytes, "Program");
  EXPECT_TRUE(left.changed);
  EXPECT_EQ(left.base, record);
}

TEST(JournalFormat, WhatDoesNotFitEndsTheReadingAndChangesNothing) {
  const JournalAction good = Action(1, kFirst, 271, "i", "A");
  JournalAction half = Action(2, kFirst, 272, "i", "B");
  half.pieces.push_back({kFirst, 273, "other bytes", ""});
  const Bytes start = JournalHead() + JournalBytes(Window(1)) + Done(good);
  for (const Bytes& bad : {Done(half), Done(Action(2, kSecond, 271, "i", "B")), Done(Action(2, kFirst, 0, "", "B")),
                           Done(Action(2, kFirst, 5000, "", "B"))}) {
    const JournalContent content = Read(start + bad + Done(Action(3, kFirst, 271, "A", "C")));
    EXPECT_EQ(content.read, start.size());
    EXPECT_EQ(Tail(content.windows.at(1).image, 3), "Aii");
    EXPECT_EQ(content.windows.at(1).actions.size(), 1u);
  }
  // One that grows into what doesn't fit stays as it was.
  const JournalContent content = Read(start + Done(Action(1, kFirst, 272, "x", "B")));
  EXPECT_EQ(Tail(content.windows.at(1).image, 3), "Aii");
  EXPECT_EQ(content.windows.at(1).actions.size(), 1u);
}

TEST(JournalFormat, GarbageAndOtherVersionsAreNoJournal) {
  EXPECT_FALSE(ReadJournal("").has_value());
  EXPECT_FALSE(ReadJournal("Zentaline journal").has_value());
  EXPECT_FALSE(ReadJournal(Bytes(1000, '\0')).has_value());
  Bytes head = JournalHead();
  head.back() = 2;
  EXPECT_FALSE(ReadJournal(head + JournalBytes(Window(1))).has_value());
}

// A journal with every kind of record, and where each of them ends.
struct Whole {
  Bytes file;
  std::vector<std::size_t> ends;

  void Add(const Bytes& record) {
    file += record;
    ends.push_back(file.size());
  }
};

Whole EveryKind() {
  Whole whole;
  const JournalAction one = Action(1, kFirst, 271, "i", "A");
  for (const Bytes& record :
       {JournalHead(), JournalBytes(Window(1)), JournalBytes(Window(2)), Done(one),
        JournalBytes(JournalRecord{JournalThing::kArrRecord, 1, true, "record"}),
        Done(Action(2, {JournalThing::kArrRecord, 0}, 1, "r", "R")),
        Back(Action(2, {JournalThing::kArrRecord, 0}, 1, "r", "R")), Done(Action(3, kSecond, 300, "iii", "")),
        JournalClosed(2), Back(one), JournalBytes(JournalStep::kBroughtForth, one)}) {
    whole.Add(record);
  }
  return whole;
}

TEST(JournalFormat, ATornTailIsIgnoredAtEveryLength) {
  const Whole whole = EveryKind();
  for (std::size_t length = whole.ends.front(); length <= whole.file.size(); ++length) {
    std::size_t good = 0;
    for (const std::size_t end : whole.ends) good = end <= length ? end : good;
    const auto content = ReadJournal(std::string_view(whole.file).substr(0, length));
    ASSERT_TRUE(content.has_value()) << length;
    ASSERT_EQ(content->read, good) << length;
  }
  for (std::size_t length = 0; length < whole.ends.front(); ++length) {
    ASSERT_FALSE(ReadJournal(std::string_view(whole.file).substr(0, length)).has_value()) << length;
  }
}

TEST(JournalFormat, ADamagedByteEndsTheReadingBeforeItsRecord) {
  const Whole whole = EveryKind();
  for (std::size_t place = 0; place < whole.file.size(); ++place) {
    for (const int flip : {0x01, 0x80, 0xFF}) {
      Bytes damaged = whole.file;
      damaged[place] = static_cast<char>(damaged[place] ^ flip);
      std::size_t good = 0;
      for (const std::size_t end : whole.ends) good = end <= place ? end : good;
      const auto content = ReadJournal(damaged);
      ASSERT_EQ(content.has_value(), good > 0) << place;
      if (!content) continue;
      ASSERT_EQ(content->read, good) << place;
    }
  }
}

TEST(JournalFormat, AnImageThatPretendsToBeHugeIsRefused) {
  // The length of the image stands in front of what it was packed to.
  Bytes record = JournalBytes(Window(1));
  Bytes content = record.substr(8);
  const std::size_t packed = content.find("\x78\x01");
  ASSERT_NE(packed, Bytes::npos);
  content.replace(packed - 8, 4, "\xFF\xFF\xFF\x0F");
  const FileMark mark = MarkOf(content);
  Bytes file = JournalHead();
  for (std::size_t i = 0; i < 4; ++i) file += static_cast<char>(content.size() >> 8 * i & 0xFF);
  for (std::size_t i = 0; i < 4; ++i) file += static_cast<char>(mark.check >> 8 * i & 0xFF);
  EXPECT_EQ(Read(file + content).read, JournalHead().size());
}

TEST(JournalFormat, RewrittenItHoldsTheSameInFewerBytes) {
  std::mt19937 random(20260311);
  Bytes file = JournalHead() + JournalBytes(Window(1)) + JournalBytes(Window(2)) +
               JournalBytes(JournalRecord{JournalThing::kArrRecord, 1, false, Bytes(50, 'r')});
  std::map<JournalPlace, Bytes> now = {
      {kFirst, Window(1).image}, {kSecond, Window(2).image}, {{JournalThing::kArrRecord, 0}, Bytes(50, 'r')}};
  for (int number = 1; number <= 3000; ++number) {
    auto target = now.begin();
    std::advance(target, random() % 3);
    Bytes& bytes = target->second;
    const std::size_t from = target->first.thing == JournalThing::kWindow ? 270 : 0;
    if (bytes.size() < from + 20) continue;
    const std::size_t at = from + random() % (bytes.size() - from);
    const std::size_t length = std::min<std::size_t>(random() % 4, bytes.size() - at);
    const Bytes after(random() % 4, static_cast<char>('a' + random() % 26));
    JournalAction action = Action(number, target->first, at + 1, bytes.substr(at, length), after);
    action.marks = {{kFirst, 4, 0, number % 2}};
    bytes.replace(at, length, after);
    now.at(kFirst)[3] = static_cast<char>(number % 2);
    file += Done(action);
  }
  const JournalContent content = Read(file);
  ASSERT_EQ(content.read, file.size());
  const Bytes rewritten = RewriteJournal(content);
  EXPECT_LT(rewritten.size(), file.size() / 50);
  const JournalContent net = Read(rewritten);
  EXPECT_EQ(net.read, rewritten.size());
  EXPECT_EQ(net.windows.at(1).image, now.at(kFirst));
  EXPECT_EQ(net.windows.at(2).image, now.at(kSecond));
  EXPECT_EQ(net.records.at(JournalThing::kArrRecord).bytes, now.at({JournalThing::kArrRecord, 0}));
  EXPECT_EQ(net.windows.at(1).actions.size(), 1u);
  EXPECT_EQ(net.windows.at(1).base, Window(1));
}

}  // namespace
}  // namespace zentaline
