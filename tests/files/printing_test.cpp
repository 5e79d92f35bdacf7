// Printed lists and tables, line by line. What the lines have to be is written out here, column by column.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/names.h"
#include "tests/program/prg_desk.h"
#include "tests/style/style_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct Printed {
  int left = 0;
  int top = 0;
  std::string text;

  bool operator==(const Printed&) const = default;
};

void PrintTo(const Printed& printed, std::ostream* out) {
  *out << printed.left << " " << printed.top << " \"" << printed.text << "\"";
}

// A line of 84 characters with these texts at these columns.
std::string Columns(const std::vector<std::pair<std::size_t, std::string>>& texts) {
  std::string line(84, ' ');
  for (const auto& [column, text] : texts) line.replace(column - 1, text.size(), text);
  return line;
}

// The number on the panel of place 0 to 63.
std::string Place(int i) {
  return std::to_string(11 + i / 8 * 10 + i % 8);
}

class Printing : public ::testing::Test {
 protected:
  // What has been printed since the last call.
  std::vector<Printed> Paper() {
    std::vector<Printed> paper;
    for (const std::string& line : desk_.Log()) {
      if (!line.starts_with("print 0 ") || line == "print 0 end") continue;
      const std::size_t left = 8;
      const std::size_t top = line.find(' ', left) + 1;
      const std::size_t text = line.find('"') + 1;
      paper.push_back(
          {std::stoi(line.substr(left)), std::stoi(line.substr(top)), line.substr(text, line.size() - text - 1)});
    }
    return paper;
  }
  std::vector<Printed> List() {
    EXPECT_TRUE(desk_.Press("mnuStampaLista"));
    return Paper();
  }
  std::vector<Printed> Table() {
    EXPECT_TRUE(desk_.Press("mnuStampaTabella"));
    return Paper();
  }
  // The line of a record in the list of the window in front.
  std::string Line(std::size_t record) { return List().at(2 + record).text; }
  void Open(const std::vector<Arr>& arrangements, const std::string& name = "Song.arr") {
    desk_.Put(name, ArrBytes(arrangements));
    desk_.Open(name);
    desk_.Log();
  }
  bool Can(const std::string& entry) { return desk_.Find<ui::MenuEntry>(entry)->Usable(); }

  PrgDesk desk_;
};

// Sounds for the parts from Drum to Upper 2; only the last two are printed.
std::vector<std::pair<int, int>> Uppers(std::pair<int, int> upper1, std::pair<int, int> upper2) {
  return {{9, 4}, {0, 4}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, upper1, upper2, {5, 0}};
}

TEST_F(Printing, TheListHasItsTitleItsHeaderAndALineForEachRecordInGroupsOfEight) {
  Open({{.name = "Waltz"}});
  const std::vector<Printed> paper = List();
  ASSERT_THAT(paper, SizeIs(66));
  EXPECT_EQ(paper[0],
            (Printed{453, 283, Columns({{1, "Zentaline Console v 4.0"}, {39, "Song.ARR"}, {64, "11/03/2004"}})}));
  EXPECT_EQ(
      paper[1],
      (Printed{453, 523, Columns({{1, "No  Arrangement      Style                Upper2               Upper1"}})}));
  int top = 763;
  for (std::size_t i = 0; i < 64; ++i) {
    EXPECT_EQ(paper[2 + i].left, 453);
    EXPECT_EQ(paper[2 + i].top, top) << i;
    EXPECT_EQ(paper[2 + i].text.substr(0, 3), "U" + Place(static_cast<int>(i)));
    EXPECT_EQ(paper[2 + i].text.size(), 84u);
    // Three lines down behind each eighth, the last one's below the page.
    top += i % 8 == 7 ? 720 : 240;
  }
  EXPECT_EQ(desk_.program.toolkit.print_ends, 1);
}

TEST_F(Printing, ARecordThatWasNeverWrittenPrintsItsNumberAlone) {
  Open({});
  EXPECT_EQ(Line(63), Columns({{1, "U88"}}));
}

TEST_F(Printing, ARecordHasMarkNameStyleAndItsTwoUpperSounds) {
  Open({{.name = "Sixteen letters!", .style = 64, .parts = Uppers({65, 1}, {3, 0})}});
  const std::string style(StyleName(64));
  const std::string upper1(ProgramName(3, 1));
  const std::string upper2(ProgramName(0, 3));
  // Fifteen of a name's sixteen characters.
  EXPECT_EQ(Line(0),
            Columns({{1, "U11"}, {5, "Sixteen letters"}, {22, style}, {43, "A   " + upper2}, {64, "D   " + upper1}}));
}

TEST_F(Printing, AZeroByteInANameIsABlank) {
  std::string file = ArrBytes({{.name = "Wa tz"}});
  file[34] = '\0';
  desk_.Put("Song.arr", file);
  desk_.Open("Song.arr");
  EXPECT_EQ(Line(0).substr(4, 6), "Wa tz ");
}

TEST_F(Printing, EachBankCodeOfASoundHasItsLetters) {
  struct Sound {
    int number;
    int code;
    std::string text;
  };
  const std::vector<Sound> sounds = {
      {0, 0, "A   " + std::string(ProgramName(0, 0))},
      {63, 0, "A   " + std::string(ProgramName(0, 63))},
      {64, 0, "B   " + std::string(ProgramName(1, 0))},
      {127, 0, "B   " + std::string(ProgramName(1, 63))},
      {0, 1, "C   " + std::string(ProgramName(2, 0))},
      {63, 1, "C   " + std::string(ProgramName(2, 63))},
      {64, 1, "D   " + std::string(ProgramName(3, 0))},
      {127, 1, "D   " + std::string(ProgramName(3, 63))},
      {0, 2, "E   " + std::string(ProgramName(4, 0))},
      {63, 2, "E   " + std::string(ProgramName(4, 63))},
      {64, 2, "E   "},
      {5, 3, "F   Prg User"},
      {5, 4, ""},
      {5, 5, ""},
      {5, 255, ""},
  };
  std::vector<Arr> arrangements;
  for (const Sound& sound : sounds) {
    arrangements.push_back({.name = "x", .parts = Uppers({sound.number, sound.code}, {sound.number, sound.code})});
  }
  Open(arrangements);
  const std::vector<Printed> paper = List();
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    EXPECT_EQ(paper.at(2 + i).text.substr(42, 21), Field(sounds[i].text, 21)) << i;
    EXPECT_EQ(paper.at(2 + i).text.substr(63, 21), Field(sounds[i].text, 21)) << i;
  }
}

TEST_F(Printing, UserSoundsHaveTheNamesOfTheAttachedProgramFile) {
  std::string programs = Bank();
  // The third place links to program 5 of bank A.
  programs.replace(48 + 172 * 2, 19, Hand({1, 0, 5}) + Field("Linked name", 16));
  desk_.Put("Song.prg", programs);
  Open({{.name = "x", .parts = Uppers({7, 3}, {2, 3})}, {.name = "y", .parts = Uppers({63, 3}, {64, 3})}});
  EXPECT_EQ(Line(0).substr(42), Field("F   Linked name", 21) + Field("F   Prog 7", 21));
  // There is no place 64.
  EXPECT_EQ(Line(1).substr(42), Field("F   Prg User", 21) + Field("F   Prog 63", 21));
}

TEST_F(Printing, UserStylesHaveTheNamesOfTheAttachedFileOrTheirNumbers) {
  desk_.Put("Song.sty", StyBytes(3));
  Open({{.name = "x", .style = 0, .user = true}, {.name = "y", .style = 11, .user = true}});
  EXPECT_EQ(Line(0).substr(3, 34), Field("+x", 18) + Field("Style 0", 16));
  EXPECT_EQ(Line(1).substr(3, 34), Field("+y", 18) + Field("Style 11", 16));
  Open({{.name = "x", .style = 9, .user = true}}, "Plain.arr");
  EXPECT_EQ(Line(0).substr(3, 34), Field("+x", 18) + Field("Sty User 9", 16));
}

TEST_F(Printing, AStyleWithoutANameHasItsNumber) {
  std::string styles = StyBytes(1);
  styles.replace(224, 16, Blanks(16));
  desk_.Put("Song.sty", styles);
  Open({{.name = "x", .style = 0, .user = true}});
  EXPECT_EQ(Line(0).substr(21, 16), Field("Sty User 0", 16));
}

TEST_F(Printing, AFactoryStyleThatThereIsNoneOfIsBlank) {
  Open({{.name = "x", .style = 128}, {.name = "y", .style = 127}});
  EXPECT_EQ(Line(0).substr(21, 16), Blanks(16));
  EXPECT_EQ(Line(1).substr(21, 16), std::string(StyleName(127)));
}

// In the middle between the program's name and the date; a long one keeps its beginning.
TEST_F(Printing, TheFilesNameStandsInTheMiddleWithinColumns26To62) {
  const auto title = [&](const std::string& name) {
    Open({}, name + ".arr");
    const std::string line = List().at(0).text;
    desk_.Press("mnuChiudi");
    return line;
  };
  EXPECT_EQ(title("S").substr(25, 37), Columns({{16, "S.ARR"}}).substr(0, 37));
  EXPECT_EQ(title(std::string(30, 'n')).substr(25, 37), Field(std::string(30, 'n') + ".ARR", 37));
  EXPECT_EQ(title(std::string(33, 'n')).substr(25, 37), std::string(33, 'n') + ".ARR");
  EXPECT_EQ(title(std::string(40, 'n')).substr(23, 41), "  " + std::string(37, 'n') + " 1");
}

TEST_F(Printing, ANameInUtf8CountsByCharacters) {
  Open({}, "Caf\xC3\xA9.arr");
  EXPECT_EQ(List().at(0).text.substr(37, 12), " Caf\xC3\xA9.ARR  ");
}

TEST_F(Printing, TheTableOfArrangementsHasFourToALineAndABlankLineAfterEachGroupOfEight) {
  Open({{.name = "First"}, {.name = "Second"}, {.name = ""}, {.name = "Fourth"}, {.name = "Fifth"}});
  const std::vector<Printed> paper = Table();
  ASSERT_THAT(paper, SizeIs(1 + 16));
  EXPECT_EQ(paper[0], (Printed{5953 - 60 * 8, 283, "Song.ARR"}));
  EXPECT_EQ(paper[1],
            (Printed{453, 763, Columns({{1, "11 First"}, {22, "12 Second"}, {43, "13"}, {64, "14 Fourth"}})}));
  EXPECT_EQ(paper[2], (Printed{453, 1003, Columns({{1, "15 Fifth"}, {22, "16"}, {43, "17"}, {64, "18"}})}));
  EXPECT_EQ(paper[3].top, 1483);
  EXPECT_EQ(paper[16], (Printed{453, 763 + 22 * 240, Columns({{1, "85"}, {22, "86"}, {43, "87"}, {64, "88"}})}));
}

TEST_F(Printing, TheTableOfAProgramFileCallsItPrgAlsoWhenItIsAPgg) {
  std::string bank = Bank();
  bank.replace(0, 4, "KPGG");
  bank.replace(48, 19, Hand({1, 0, 5}) + Field("Linked name", 16));
  desk_.Put("Band.pgg", bank);
  desk_.OpenPrg("Band.pgg");
  desk_.Log();
  const std::vector<Printed> paper = Table();
  EXPECT_EQ(paper.at(0).text, "Band.PRG");
  EXPECT_EQ(paper.at(1).text,
            Columns({{1, "11 Linked name"}, {22, "12 Prog 1"}, {43, "13 Prog 2"}, {64, "14 Prog 3"}}));
  EXPECT_FALSE(Can("mnuStampaLista"));
}

TEST_F(Printing, ABankOfTheInstrumentHasItsTable) {
  desk_.Press("mnuWProgB");
  desk_.Log();
  EXPECT_FALSE(Can("mnuStampaLista"));
  std::vector<Printed> paper = Table();
  EXPECT_EQ(paper.at(0), (Printed{5953 - 60 * 13, 283, "i40 Program B"}));
  EXPECT_EQ(paper.at(16).text.substr(63), "88 " + std::string(ProgramName(1, 63)) + "  ");
  desk_.Press("mnuStyB");
  desk_.Log();
  paper = Table();
  EXPECT_EQ(paper.at(0).text, "i40 Style B");
  EXPECT_EQ(paper.at(1).text.substr(0, 19), "11 " + std::string(StyleName(64)));
  desk_.Press("mnuDrum");
  EXPECT_FALSE(Can("mnuStampa"));
}

TEST_F(Printing, AStyleFileHasNameAndSizeInFourGroupsOfFour) {
  desk_.Put("Band.sty", StyBytes(1));
  desk_.program.toolkit.files.push_back({false, desk_.folder.Path("Band.sty"), 2, false});
  desk_.Press("mnuApriSty");
  desk_.Log();
  const std::vector<Printed> paper = Table();
  ASSERT_THAT(paper, SizeIs(1 + 16));
  EXPECT_EQ(paper[0].text, "Band.STY");
  EXPECT_EQ(paper[1].text, Columns({{1, "11 Style 0"}, {24, "40"}}));
  EXPECT_EQ(paper[4].text, Columns({{1, "14 Style 3"}, {23, "100"}}));
  EXPECT_EQ(paper[5], (Printed{453, 763 + 5 * 240, Columns({{1, "15"}})}));
}

TEST_F(Printing, WindowsWithoutAListOrTableOfferNone) {
  EXPECT_FALSE(Can("mnuStampaLista"));
  desk_.Press("mnuMsgEx");
  for (const char* entry : {"mnuStampa", "mnuStampaLista", "mnuStampaTabella"}) EXPECT_FALSE(Can(entry)) << entry;
  Open({});
  for (const char* entry : {"mnuStampa", "mnuStampaLista", "mnuStampaTabella"}) EXPECT_TRUE(Can(entry)) << entry;
}

TEST_F(Printing, APrinterThatFailsAtAnyLineEndsTheWorkInSilenceAndTheDocument) {
  Open({{.name = "Waltz"}});
  const Bytes image = desk_.program.Arr(1)->window_image();
  for (int lines = 0; lines < 66; ++lines) {
    desk_.program.toolkit.prints_left = lines;
    desk_.program.toolkit.print_ends = 0;
    EXPECT_EQ(List().size(), static_cast<std::size_t>(lines));
    EXPECT_EQ(desk_.program.toolkit.print_ends, 1) << lines;
    if (lines >= 17) continue;
    desk_.program.toolkit.prints_left = lines;
    EXPECT_EQ(Table().size(), static_cast<std::size_t>(lines));
    EXPECT_EQ(desk_.program.toolkit.print_ends, 2) << lines;
  }
  EXPECT_THAT(desk_.program.Boxes(), IsEmpty());
  EXPECT_EQ(desk_.program.Arr(1)->window_image(), image);
}

}  // namespace
}  // namespace zentaline::test
