// The programs that make the factory files: the same bytes each time, and mistakes told with file and line.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

class FactoryTool : public testing::Test {
 protected:
  FactoryTool() {
    directory_ = fs::path(testing::TempDir()) /
                 ("zentaline-factory-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(directory_);
    fs::create_directories(directory_);
    fs::copy(FACTORY_SOURCES, directory_ / "sources", fs::copy_options::recursive);
  }
  ~FactoryTool() override { fs::remove_all(directory_); }

  int Run(const std::string& command) {
    const int status = std::system((command + " 2>'" + (directory_ / "errors").string() + "'").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  int Make(const std::string& out) {
    return Run(std::string(FACTORY_PROGRAM) + " '" + (directory_ / out).string() + "' '" +
               (directory_ / "sources").string() + "'");
  }
  static std::string Read(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  std::string Errors() const { return Read(directory_ / "errors"); }

  // Replaces the one place where a table says `from`.
  void Change(const std::string& file, const std::string& from, const std::string& to) {
    const fs::path path = directory_ / "sources" / file;
    std::string text = Read(path);
    const std::size_t place = text.find(from);
    ASSERT_NE(place, std::string::npos);
    std::ofstream(path, std::ios::binary) << text.replace(place, from.size(), to);
  }
  void ExpectRefused(const std::string& where, const std::string& why) {
    EXPECT_EQ(Make("out"), 1);
    EXPECT_NE(Errors().find(where), std::string::npos) << Errors();
    EXPECT_NE(Errors().find(why), std::string::npos) << Errors();
    EXPECT_FALSE(fs::exists(directory_ / "out"));
  }

  fs::path directory_;
};

TEST_F(FactoryTool, MakesTheSameBytesEachTime) {
  ASSERT_EQ(Make("one"), 0) << Errors();
  ASSERT_EQ(Make("two"), 0) << Errors();
  int files = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory_ / "one")) {
    if (!entry.is_regular_file()) continue;
    const fs::path name = fs::relative(entry.path(), directory_ / "one");
    EXPECT_TRUE(Read(entry.path()) == Read(directory_ / "two" / name)) << name;
    EXPECT_TRUE(Read(entry.path()) == Read(fs::path(FACTORY_DIRECTORY) / name)) << name;
    ++files;
  }
  EXPECT_EQ(files, 12);
}

TEST_F(FactoryTool, RefusesASoundThatIsNotThere) {
  Change("arrangements-a.txt", "Fingered Bs.", "Fingered Bass");
  ExpectRefused("arrangements-a.txt:6: ", "no sound is called \"Fingered Bass\"");
}

TEST_F(FactoryTool, RefusesANameThatTwoSoundsBear) {
  Change("arrangements-a.txt", "| A:Strings ", "| Strings ");
  ExpectRefused("arrangements-a.txt:6: ", "more than one sound is called \"Strings\"");
}

TEST_F(FactoryTool, RefusesAnotherNameThanTheStyles) {
  Change("arrangements-b.txt", "I. Waltz", "A Waltz ");
  ExpectRefused("arrangements-b.txt:6: ", "the style has another name");
}

TEST_F(FactoryTool, RefusesValuesOutOfTheirRange) {
  Change("arrangements-a.txt", "| 96 ", "| 241");
  ExpectRefused("arrangements-a.txt:6: ", "tempo 241");
  Change("arrangements-a.txt", "| 241", "| 96 ");
  Change("templates.txt", "split C4", "split C8");
  ExpectRefused("templates.txt:", "split C8");
}

TEST_F(FactoryTool, RefusesAStyleThatTheExampleDoesNotHave) {
  Change("examples/arrangements.txt", "style U11; tempo 92", "style U18; tempo 92");
  ExpectRefused("examples/arrangements.txt:5: ", "none at U18");
}

TEST_F(FactoryTool, RefusesAProgramSettingThatIsNotKnown) {
  Change("programs.txt", "vdf.cutoff 80; vdf.eg 20", "vdf.cutof 80; vdf.eg 20");
  ExpectRefused("programs.txt:", "vdf.cutof 80");
}

TEST_F(FactoryTool, RefusesALongLineInTheGuide) {
  Change("guide-en.txt", "Enjoy your playing!", std::string(79, 'x'));
  ExpectRefused("guide-en.txt:", "longer than 78 characters");
}

TEST_F(FactoryTool, RefusesAPlaceThatIsTaken) {
  Change("arrangements-a.txt", "  12    | 8 Beat 2", "  11    | 8 Beat 1");
  ExpectRefused("arrangements-a.txt:7: ", "taken already");
}

TEST_F(FactoryTool, TellsWhenThereAreNoTables) {
  fs::remove(directory_ / "sources" / "styles.txt");
  ExpectRefused("styles.txt: ", "cannot be read");
}

TEST_F(FactoryTool, WantsAFolder) {
  EXPECT_EQ(Run(FACTORY_PROGRAM), 2);
}

TEST_F(FactoryTool, TheListOfMultisamplesTakesTheNamesOfAnyInstrument) {
  std::string list = "# my own\r\nGrand\r\n\r\n";
  for (int n = 2; n < 519; ++n) list += "Name" + std::to_string(n) + "\r\n";
  std::ofstream(directory_ / "list", std::ios::binary) << list;
  const std::string out = (directory_ / "made").string();
  ASSERT_EQ(Run(std::string(MULTISAMPLE_PROGRAM) + " '" + (directory_ / "list").string() + "' '" + out + "'"), 0);
  const std::string made = Read(out);
  const std::string shipped = Read(fs::path(FACTORY_DIRECTORY) / "i40Multisample");
  ASSERT_EQ(made.size(), 7785u);
  // The same scrambling lies over every record, so that the difference from a record of known text tells the other.
  const auto plain = [&made, &shipped](std::size_t n, std::string known) {
    for (std::size_t i = 0; i < 15; ++i)
      known[i] = static_cast<char>(known[i] ^ shipped[15 * n + i] ^ made[15 * n + i]);
    return known;
  };
  EXPECT_EQ(plain(0, "000  Sound 000 "), "000  Grand     ");
  EXPECT_EQ(plain(1, "001  Sound 001 "), "001            ");
  EXPECT_EQ(plain(518, "518  Sound 518 "), "518  Name518   ");
}

TEST_F(FactoryTool, TheListOfMultisamplesMustBeWhole) {
  std::ofstream(directory_ / "list") << "One\nTwo\nElevenLetters\n";
  const std::string out = (directory_ / "made").string();
  EXPECT_EQ(Run(std::string(MULTISAMPLE_PROGRAM) + " '" + (directory_ / "list").string() + "' '" + out + "'"), 1);
  EXPECT_NE(Errors().find("list:3: "), std::string::npos);
  EXPECT_NE(Errors().find("3 names, and 519 are needed"), std::string::npos);
  EXPECT_FALSE(fs::exists(out));
}

TEST_F(FactoryTool, AFolderInPlaceOfATableIsToldAndNothingIsMade) {
  fs::remove(directory_ / "sources" / "multisamples.txt");
  fs::create_directories(directory_ / "sources" / "multisamples.txt");
  ExpectRefused("multisamples.txt: ", "cannot be read");
}

TEST_F(FactoryTool, AListOfMultisamplesThatAnEditorMarkedIsRead) {
  const fs::path list = directory_ / "sources" / "multisamples.txt";
  const std::string text = Read(list);
  std::ofstream(list, std::ios::binary) << "\xEF\xBB\xBF" << text;
  const std::string out = (directory_ / "made").string();
  EXPECT_EQ(Run(std::string(MULTISAMPLE_PROGRAM) + " '" + list.string() + "' '" + out + "'"), 0) << Errors();
  EXPECT_TRUE(Read(out) == Read(fs::path(FACTORY_DIRECTORY) / "i40Multisample"));
}

TEST_F(FactoryTool, AListThatCannotBeWrittenWholeLeavesTheOldFile) {
  const std::string out = (directory_ / "made").string();
  std::ofstream(out, std::ios::binary) << "the old file";
  // 4 blocks of 512 bytes, and a file of 7785.
  EXPECT_EQ(Run("trap '' XFSZ; ulimit -f 4; " + std::string(MULTISAMPLE_PROGRAM) + " '" + FACTORY_SOURCES +
                "/multisamples.txt' '" + out + "'"),
            1);
  EXPECT_EQ(Errors(), out + ": cannot be written\n");
  EXPECT_EQ(Read(out), "the old file");
}

}  // namespace
