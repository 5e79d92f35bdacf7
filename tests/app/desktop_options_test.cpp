#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/desktop_options.h"

namespace zentaline {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Midi = DesktopOptions::Midi;

TEST(DesktopOptions, WithoutArgumentsTheCurrentDirectoryAndTheMachinesServiceAreTaken) {
  const DesktopOptions options = ReadDesktopOptions({});
  EXPECT_EQ(options.directory, "");
  EXPECT_FALSE(options.home);
  EXPECT_EQ(options.midi, Midi::kDefault);
  EXPECT_THAT(options.files, IsEmpty());
  EXPECT_EQ(options.error, "");
}

TEST(DesktopOptions, DirectoryServiceAndFilesAreRead) {
  const DesktopOptions options = ReadDesktopOptions({"a.arr", "--dir", "/songs", "--midi", "virtual", "--", "-b.arr"});
  EXPECT_EQ(options.directory, "/songs");
  EXPECT_EQ(options.midi, Midi::kVirtual);
  EXPECT_THAT(options.files, ElementsAre("a.arr", "-b.arr"));
  EXPECT_EQ(options.error, "");
}

TEST(DesktopOptions, AValueCanStandBehindASign) {
  const DesktopOptions options = ReadDesktopOptions({"--dir=/my songs=new", "--midi=none"});
  EXPECT_EQ(options.directory, "/my songs=new");
  EXPECT_EQ(options.midi, Midi::kNone);
  EXPECT_EQ(ReadDesktopOptions({"--dir="}).error, "--dir needs a value");
  EXPECT_EQ(ReadDesktopOptions({"--midi=loud"}).error, "there is no MIDI service loud");
}

TEST(DesktopOptions, TheUsersOwnFolderAndANamedOneAreTwo) {
  EXPECT_TRUE(ReadDesktopOptions({"--home", "a.arr"}).home);
  EXPECT_EQ(ReadDesktopOptions({"--home"}).error, "");
  EXPECT_EQ(ReadDesktopOptions({"--home", "--dir", "."}).error, "--home and --dir name two working directories");
  EXPECT_EQ(ReadDesktopOptions({"--dir=/songs", "--home"}).error, "--home and --dir name two working directories");
}

TEST(DesktopOptions, EveryServiceHasItsName) {
  EXPECT_EQ(ReadDesktopOptions({"--midi", "alsa"}).midi, Midi::kAlsa);
  EXPECT_EQ(ReadDesktopOptions({"--midi", "none"}).midi, Midi::kNone);
}

TEST(DesktopOptions, WrongUsageIsTold) {
  EXPECT_EQ(ReadDesktopOptions({"--midi", "recorder"}).error, "there is no MIDI service recorder");
  EXPECT_EQ(ReadDesktopOptions({"--midi"}).error, "--midi needs a value");
  EXPECT_EQ(ReadDesktopOptions({"--dir"}).error, "--dir needs a value");
  EXPECT_EQ(ReadDesktopOptions({"--dir", ""}).error, "--dir needs a value");
  EXPECT_EQ(ReadDesktopOptions({"--fast"}).error, "there is no option --fast");
  EXPECT_EQ(ReadDesktopOptions({""}).error, "a file has no name");
}

TEST(DesktopOptions, HelpIsAskedForByEitherName) {
  EXPECT_TRUE(ReadDesktopOptions({"--help"}).help);
  EXPECT_TRUE(ReadDesktopOptions({"-h"}).help);
}

}  // namespace
}  // namespace zentaline
