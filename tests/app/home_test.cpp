// Where a musician works who names no folder, and what it gets.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "app/home.h"
#include "tests/support/scratch_folder.h"

namespace zentaline {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string HomeWith(const std::map<std::string, std::string>& variables) {
  return HomeDirectory([&](const char* name) -> const char* {
    const auto found = variables.find(name);
    return found == variables.end() ? nullptr : found->second.c_str();
  });
}

TEST(Home, TheVariablesAreAskedInTheirOrder) {
  EXPECT_EQ(HomeWith({{"ZENTALINE_HOME", "/a"}, {"XDG_DATA_HOME", "/b"}, {"HOME", "/c"}}), "/a");
  EXPECT_EQ(HomeWith({{"XDG_DATA_HOME", "/b"}, {"HOME", "/c"}}), "/b/zentaline");
  EXPECT_EQ(HomeWith({{"ZENTALINE_HOME", ""}, {"XDG_DATA_HOME", ""}, {"HOME", "/c"}}), "/c/.local/share/zentaline");
  EXPECT_EQ(HomeWith({}), "");
}

class CopyLackingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Put("from/i40Sty", "styles");
    Put("from/examples/First Steps.arr", "songs");
  }
  void Put(const std::string& name, const std::string& content) const {
    fs::create_directories(fs::path(folder_.Path(name)).parent_path());
    folder_.Put(name, content);
  }
  std::vector<std::string> Names(const std::string& name) const {
    std::vector<std::string> names;
    for (const auto& each : fs::directory_iterator(folder_.Path(name)))
      names.push_back(each.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  std::string Copy() const { return CopyLacking(folder_.Path("from"), folder_.Path("home/music")); }

  test::ScratchFolder folder_;
};

TEST_F(CopyLackingTest, AFolderThatIsNotThereIsMadeAndGetsAll) {
  EXPECT_EQ(Copy(), "");
  // No part of a file is left behind.
  EXPECT_THAT(Names("home/music"), ElementsAre("examples", "i40Sty"));
  EXPECT_THAT(Names("home/music/examples"), ElementsAre("First Steps.arr"));
  EXPECT_EQ(folder_.Get("home/music/i40Sty"), "styles");
  EXPECT_EQ(folder_.Get("home/music/examples/First Steps.arr"), "songs");
}

TEST_F(CopyLackingTest, WhatIsThereStays) {
  Put("home/music/i40Sty", "my own");
  EXPECT_EQ(Copy(), "");
  EXPECT_EQ(folder_.Get("home/music/i40Sty"), "my own");
  EXPECT_EQ(folder_.Get("home/music/examples/First Steps.arr"), "songs");
}

TEST_F(CopyLackingTest, ALinkThatLeadsNowhereStays) {
  fs::create_directories(folder_.Path("home/music"));
  fs::create_symlink("elsewhere", folder_.Path("home/music/i40Sty"));
  EXPECT_EQ(Copy(), "");
  EXPECT_TRUE(fs::is_symlink(folder_.Path("home/music/i40Sty")));
  EXPECT_FALSE(fs::exists(folder_.Path("home/music/elsewhere")));
}

TEST_F(CopyLackingTest, AFileWhereAFolderMustBeIsToldAndStays) {
  Put("home/music", "a file");
  EXPECT_THAT(Copy(), HasSubstr("home/music"));
  EXPECT_EQ(folder_.Get("home/music"), "a file");
}

TEST_F(CopyLackingTest, FactoryFilesThatAreNotThereAreTold) {
  EXPECT_THAT(CopyLacking(folder_.Path("nowhere"), folder_.Path("home")), HasSubstr("nowhere"));
}

}  // namespace
}  // namespace zentaline
