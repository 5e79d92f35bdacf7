// Programs and styles that are picked in other windows for the arrangement editor.
#include <gtest/gtest.h>

#include "arrangement/api.h"
#include "tests/arrangement/editor_desk.h"

namespace zentaline::test {
namespace {

// The first bytes of a factory bank's image.
std::string BankImage(int kind) {
  std::string image(400, '\0');
  Set(image, 1, kind);
  return image;
}

// A user bank: programs with their names, and links of bank code, number and copied name.
std::string UserImage() {
  std::string image(320 + 172 * 64, '\0');
  Set(image, 1, 21);
  const auto put = [&image](std::size_t row, const std::string& bytes) {
    image.replace(318 + 172 * row, bytes.size(), bytes);
  };
  put(0, Field("My Strings", 16));
  put(9, Field("Ten", 16));
  put(63, Field("The last program", 16));
  put(1, Hand({1, 0, 70}) + Field("copied", 16));   // B 17
  put(2, Hand({1, 1, 3}) + Field("copied", 16));    // C 14
  put(3, Hand({1, 1, 64}) + Field("copied", 16));   // D 11
  put(4, Hand({1, 2, 63}) + Field("copied", 16));   // E 88
  put(5, Hand({1, 4, 10}) + Field("copied", 16));   // drum kit 23
  put(6, Hand({1, 2, 200}) + Field("copied", 16));  // nowhere
  put(7, Hand({1, 99, 7}) + Field("copied", 16));   // nowhere
  put(8, Hand({1, 0, 255}) + Field("copied", 16));  // nowhere
  return image;
}

struct Picked {
  int number, bank;
  std::string name, place;
  bool operator==(const Picked&) const = default;
};
void PrintTo(const Picked& picked, std::ostream* out) {
  *out << picked.number << " of " << picked.bank << " " << picked.name << " / " << picked.place;
}

// What the armed part of box 2 + 2t has after a pick.
Picked Pick(EditorDesk& desk, const std::string& image, int row, int t) {
  const std::string box = std::to_string(2 + 2 * t);
  if (!desk.State().ArrPartArmed) desk.Touch("Text1(" + box + ")");
  PickProgram(desk.program.app, image, row);
  const std::size_t block = 39 + 8 * static_cast<std::size_t>(t);
  const std::string kept = desk.Edited().substr(180 + 16 * static_cast<std::size_t>(t), 16);
  EXPECT_EQ(kept, Field(desk.Reads("Text1(" + box + ")"), 16));
  return {desk.Record(block), desk.Record(block + 1), desk.Reads("Text1(" + box + ")"),
          desk.Reads("Text1(" + std::to_string(3 + 2 * t) + ")")};
}

TEST(EditorPickProgram, EachKindOfWindowHasItsBankAndLetter) {
  EditorDesk desk;
  EXPECT_EQ(Pick(desk, BankImage(4), 0, 0), (Picked{0, 0, "Piano 1", "A 11"}));
  EXPECT_EQ(Pick(desk, BankImage(5), 63, 0), (Picked{127, 0, "Gun Shot", "B 88"}));
  EXPECT_EQ(Pick(desk, BankImage(6), 9, 0), (Picked{9, 1, "Sistro", "C 22"}));
  EXPECT_EQ(Pick(desk, BankImage(7), 8, 0), (Picked{72, 1, "Synth File", "D 21"}));
  EXPECT_EQ(Pick(desk, BankImage(8), 63, 0), (Picked{63, 2, "Brass Fall", "E 88"}));
  EXPECT_EQ(Pick(desk, BankImage(9), 15, 0), (Picked{15, 4, "(User 2)", "Dr 28"}));
  EXPECT_EQ(Pick(desk, BankImage(10), 8, 0), (Picked{8, 4, "Brush Kit", "Dr 21"}));
  EXPECT_TRUE(desk.State().EditorChanged);
  EXPECT_EQ(desk.Params(), Strings());
}

TEST(EditorPickProgram, EachOfTheNinePartsTakesIt) {
  for (int t = 0; t < 9; ++t) {
    EditorDesk desk;
    std::string expected = desk.Edited();
    EXPECT_EQ(Pick(desk, BankImage(7), 1, t), (Picked{65, 1, "Folk Sax", "D 12"})) << t;
    const std::size_t part = static_cast<std::size_t>(t);
    expected.replace(39 + 8 * part, 2, Hand({65, 1}));
    expected.replace(180 + 16 * part, 16, Field("Folk Sax", 16));
    EXPECT_EQ(HexText(desk.Edited()), HexText(expected));
  }
}

TEST(EditorPickProgram, AUserBankGivesItsNamesAndFollowsItsLinks) {
  EditorDesk desk;
  const std::string image = UserImage();
  EXPECT_EQ(Pick(desk, image, 0, 4), (Picked{0, 3, "My Strings", "U 11"}));
  EXPECT_EQ(Pick(desk, image, 9, 4), (Picked{9, 3, "Ten", "U 22"}));
  EXPECT_EQ(Pick(desk, image, 63, 4), (Picked{63, 3, "The last program", "U 88"}));
  EXPECT_EQ(Pick(desk, image, 1, 4), (Picked{70, 0, "Bassoon", "B 17"}));
  EXPECT_EQ(Pick(desk, image, 2, 4), (Picked{3, 1, "M1 Piano", "C 14"}));
  EXPECT_EQ(Pick(desk, image, 3, 4), (Picked{64, 1, "AltoBreath", "D 11"}));
  EXPECT_EQ(Pick(desk, image, 4, 4), (Picked{63, 2, "Brass Fall", "E 88"}));
  EXPECT_EQ(Pick(desk, image, 5, 4), (Picked{10, 4, "Percussion Kit", "Dr 23"}));
}

TEST(EditorPickProgram, ALinkThatPointsNowhereKeepsTheNameThatWasCopiedIntoIt) {
  EditorDesk desk;
  const std::string image = UserImage();
  for (const int row : {6, 7, 8}) EXPECT_EQ(Pick(desk, image, row, 1).name, "copied") << row;
  EXPECT_EQ(Pick(desk, image, 6, 1).number, 200);
  EXPECT_EQ(Pick(desk, image, 7, 1).bank, 99);
}

TEST(EditorPickProgram, RowsBeyondTheListAndImagesThatAreCutShortChangeNothing) {
  EditorDesk desk;
  desk.Touch("Text1(2)");
  const std::string before = desk.Edited();
  PickProgram(desk.program.app, BankImage(4), 64);
  PickProgram(desk.program.app, BankImage(4), -1);
  PickProgram(desk.program.app, BankImage(9), 16);
  PickProgram(desk.program.app, BankImage(17), 0);
  PickProgram(desk.program.app, std::string(), 0);
  EXPECT_EQ(HexText(desk.Edited()), HexText(before));
  EXPECT_FALSE(desk.State().EditorChanged);
  PickProgram(desk.program.app, Hand({21}), 5);
  EXPECT_EQ(desk.Record(39), 5);
}

TEST(EditorPickProgram, NothingHappensUnarmedOrWithAnotherBoxArmed) {
  EditorDesk desk;
  const std::string before = desk.Edited();
  PickProgram(desk.program.app, BankImage(4), 5);
  desk.Touch("Text1(1)");
  PickProgram(desk.program.app, BankImage(4), 5);
  desk.Touch("Text1(0)");
  PickProgram(desk.program.app, BankImage(4), 5);
  EXPECT_EQ(desk.Edited(), before);
  desk.Close();
  PickProgram(desk.program.app, BankImage(4), 5);
  PickStyle(desk.program.app, BankImage(17), 5, "16  x");
}

struct Style {
  int number, location;
  std::string name, caption;
  bool operator==(const Style&) const = default;
};
void PrintTo(const Style& style, std::ostream* out) {
  *out << style.number << " of " << style.location << " " << style.name << " / " << style.caption;
}

Style PickIn(EditorDesk& desk, int kind, int row, const std::string& text) {
  if (!desk.State().ArrStyleArmed) desk.Touch("Text1(1)");
  PickStyle(desk.program.app, BankImage(kind), row, text);
  EXPECT_EQ(desk.Edited().substr(164, 16), Field(desk.Reads("Text1(1)"), 16));
  return {desk.Record(17), desk.Record(18), desk.Reads("Text1(1)"), desk.Reads("Label(1)")};
}

TEST(EditorPickStyle, FactoryBanksGiveTheirRowAndLetter) {
  EditorDesk desk;
  EXPECT_EQ(PickIn(desk, 17, 0, "11  8 Beat 1        "), (Style{0, 0, "8 Beat 1", "Style (A11)"}));
  EXPECT_EQ(PickIn(desk, 17, 63, "88  Disco Samba     "), (Style{63, 0, "Disco Samba", "Style (A88)"}));
  EXPECT_EQ(PickIn(desk, 18, 9, "22  March"), (Style{73, 0, "March", "Style (B22)"}));
  PickStyle(desk.program.app, BankImage(17), 61, "86  Tikytikit\xC3\xA0");
  EXPECT_EQ(desk.Reads("Text1(1)"), "Tikytikit\xC3\xA0");
  EXPECT_EQ(desk.Edited().substr(164, 11), "Tikytikit\xE0 ");
  EXPECT_TRUE(desk.State().EditorChanged);
  EXPECT_EQ(desk.Params(), Strings());
}

TEST(EditorPickStyle, AUserListsGapsDontCount) {
  EditorDesk desk;
  const std::vector<std::pair<int, int>> rows = {{0, 0}, {3, 3}, {5, 4}, {8, 7}, {10, 8}, {13, 11}, {15, 12}, {18, 15}};
  const Strings captions = {"U11", "U14", "U15", "U18", "U21", "U24", "U25", "U28"};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(PickIn(desk, 23, rows[i].first, "..  Mine"),
              (Style{rows[i].second, 1, "Mine", "Style (" + captions[i] + ")"}));
  }
}

TEST(EditorPickStyle, ABlankRowOrAnotherWindowPicksNothing) {
  EditorDesk desk;
  const std::string before = desk.Edited();
  for (const int row : {4, 9, 14, 19, -1}) PickIn(desk, 23, row, " ");
  PickIn(desk, 17, 64, "91  x");
  PickIn(desk, 24, 0, "11  x");
  PickIn(desk, 4, 0, "11  x");
  EXPECT_EQ(desk.Edited(), before);
  EXPECT_FALSE(desk.State().EditorChanged);
}

}  // namespace
}  // namespace zentaline::test
