// Style files of the earlier instruments on the disk.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "style/api.h"
#include "style/sty_format.h"
#include "tests/style/style_desk.h"

namespace zentaline::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string EarlierHeader() {
  return "KORG" + Hand({0x49, 5, 4, 0}) + Zeros(216);
}

class EarlierStyles : public ::testing::Test {
 protected:
  int Import(const std::string& name) { return StyImportI30(desk_.program.app, desk_.folder.Path(name)); }
  std::vector<ShownBox> Boxes() { return desk_.program.Boxes(); }

  StyDesk desk_;
};

TEST_F(EarlierStyles, ThreeFilesStandBesideTheSourceWithANumberBehindItsName) {
  std::string file = EarlierHeader();
  // The entries 0, 16 and 47 of the 48.
  Set(file, 25, 8);
  Set(file, 25 + 4 * 16, 4);
  Set(file, 25 + 4 * 47, 12);
  desk_.Put("Song.sty", file + "abcdefgh" + "ijkl" + "mnopqrstuvwx");
  desk_.Put("Song-2.sty", "what stood there before");
  EXPECT_EQ(Import("Song.sty"), kStyGood);
  EXPECT_THAT(Boxes(), IsEmpty());
  const auto output = [](int entry, int size, const std::string& data) {
    std::string bytes = "KORG" + Hand({0x4D, 0, 4, 1}) + Zeros(12) + Hand({0, 0x1E}) + Zeros(202);
    Set(bytes, static_cast<std::size_t>(25 + 4 * entry), size);
    return bytes + data;
  };
  EXPECT_EQ(desk_.folder.Get("Song-1.sty"), output(0, 8, "abcdefgh"));
  EXPECT_EQ(desk_.folder.Get("Song-2.sty"), output(0, 4, "ijkl"));
  EXPECT_EQ(desk_.folder.Get("Song-3.sty"), output(15, 12, "mnopqrstuvwx"));
}

TEST_F(EarlierStyles, AnotherHeaderIsToldAndNothingIsWritten) {
  desk_.Put("Song.sty", StyBytes(1));
  EXPECT_EQ(Import("Song.sty"), kStyWrong);
  EXPECT_THAT(Boxes(), ElementsAre(ShownBox{48, "Opening Song.sty", "Error reading Song.sty"}));
  EXPECT_FALSE(desk_.program.disk.Exists(desk_.folder.Path("Song-1.sty")));
}

TEST_F(EarlierStyles, AnEmptyFileGoesWithoutAWord) {
  desk_.Put("Song.sty", "");
  EXPECT_EQ(Import("Song.sty"), kStyAbsent);
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_FALSE(desk_.program.disk.Exists(desk_.folder.Path("Song.sty")));
}

}  // namespace
}  // namespace zentaline::test
