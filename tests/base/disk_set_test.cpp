// Files that are saved as one, files that are set aside, and what crashes leave.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/time.h>

#include <filesystem>

#include "base/faulty_disk.h"
#include "base/posix_disk.h"
#include "tests/support/scratch_folder.h"

namespace zentaline::test {
namespace {

namespace fs = std::filesystem;

class DiskSet : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder.Path(name); }
  bool There(const std::string& name) const { return fs::exists(fs::symlink_status(Path(name))); }

  ScratchFolder folder;
  PosixDisk disk;
  const Bytes sty = "styles", arr = "arrangements";
};

TEST_F(DiskSet, AllFilesAreWrittenAndThenOthersRemoved) {
  folder.Put("a.sty", "old");
  folder.Put("a.pgg", "goes");
  const FileToWrite writes[] = {{Path("a.sty"), &sty}, {Path("a.arr"), &arr}};
  const FileToRemove removals[] = {{Path("a.pgg")}, {Path("absent")}};
  const SetResult result = disk.WriteSet(writes, removals);
  EXPECT_EQ(result.result, DiskResult::kOk);
  EXPECT_TRUE(result.written);
  EXPECT_EQ(folder.Get("a.sty"), "styles");
  EXPECT_EQ(folder.Get("a.arr"), "arrangements");
  EXPECT_EQ(folder.Count(), 2);
}

TEST_F(DiskSet, AnErrorBeforeTheFirstRenameLeavesAllOldFiles) {
  folder.Put("a.sty", "old");
  folder.Put("a.pgg", "stays");
  fs::create_directory(Path("a.arr"));
  const FileToWrite writes[] = {{Path("a.sty"), &sty}, {Path("a.arr"), &arr}};
  const FileToRemove removals[] = {{Path("a.pgg")}};
  const SetResult result = disk.WriteSet(writes, removals);
  EXPECT_EQ(result.result, DiskResult::kIsFolder);
  EXPECT_EQ(result.file, 1u);
  EXPECT_FALSE(result.written);
  EXPECT_EQ(folder.Get("a.sty"), "old");
  EXPECT_EQ(folder.Get("a.pgg"), "stays");
  EXPECT_EQ(folder.Count(), 3);
}

TEST_F(DiskSet, FilesOfTwoFoldersAreOneSet) {
  fs::create_directory(Path("below"));
  const FileToWrite writes[] = {{Path("below/a"), &sty}, {Path("b"), &arr}, {Path("missing/c"), &arr}};
  EXPECT_EQ(disk.WriteSet(std::span(writes).first(2), {}).result, DiskResult::kOk);
  EXPECT_EQ(folder.Get("below/a"), "styles");
  const SetResult result = disk.WriteSet(writes, {});
  EXPECT_EQ(result.result, DiskResult::kPathAbsent);
  EXPECT_EQ(result.file, 2u);
}

TEST_F(DiskSet, ARemovalThatFailsIsToldByItsPlaceWhenAllIsWritten) {
  fs::create_directory(Path("folder"));
  folder.Put("last", "stays");
  const FileToWrite writes[] = {{Path("a"), &arr}};
  const FileToRemove removals[] = {{Path("folder")}, {Path("last")}};
  const SetResult result = disk.WriteSet(writes, removals);
  EXPECT_EQ(result.result, DiskResult::kIsFolder);
  EXPECT_EQ(result.file, 1u);
  EXPECT_TRUE(result.written);
  EXPECT_EQ(folder.Get("a"), "arrangements");
  EXPECT_TRUE(There("last"));
}

TEST_F(DiskSet, ALinkIsReplacedItselfWhereItIsNotToBeFollowed) {
  folder.Put("common", "of many");
  fs::create_symlink(Path("common"), Path("a.sty"));
  fs::create_symlink(Path("nowhere"), Path("b.sty"));
  for (const char* name : {"a.sty", "b.sty"}) {
    const FileToWrite file{Path(name), &sty, false};
    EXPECT_EQ(disk.WriteSet({&file, 1}, {}).result, DiskResult::kOk);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(Path(name))));
    EXPECT_EQ(folder.Get(name), "styles");
  }
  EXPECT_EQ(folder.Get("common"), "of many");
  EXPECT_FALSE(There("nowhere"));
  // Not even one that leads to a folder is in the way.
  fs::create_directory(Path("below"));
  fs::create_symlink(Path("below"), Path("c.sty"));
  const FileToWrite file{Path("c.sty"), &sty, false};
  EXPECT_EQ(disk.WriteSet({&file, 1}, {}).result, DiskResult::kOk);
  EXPECT_TRUE(disk.IsLink(Path("a.sty")) == false && fs::is_empty(Path("below")));
}

TEST_F(DiskSet, AFileThatMayNotBeWrittenIsRefusedAlsoWhereLinksAreReplaced) {
  folder.Put("a", "mine");
  chmod(Path("a").c_str(), 0444);
  EXPECT_EQ(AsOrdinaryUser([&] {
              const FileToWrite file{Path("a"), &sty, false};
              return disk.WriteSet({&file, 1}, {}).result == DiskResult::kNoAccess ? 0 : 1;
            }),
            0);
  EXPECT_EQ(folder.Get("a"), "mine");
}

TEST_F(DiskSet, WhatIsSetAsideTakesTheFirstNameThatNobodyHas) {
  for (const char* content : {"1", "2", "3"}) {
    folder.Put("a.sty", content);
    const FileToRemove removal{Path("a.sty"), true};
    EXPECT_EQ(disk.WriteSet({}, {&removal, 1}).result, DiskResult::kOk);
    EXPECT_FALSE(There("a.sty"));
  }
  EXPECT_EQ(folder.Get("a.sty.bak"), "1");
  EXPECT_EQ(folder.Get("a.sty.bak2"), "2");
  EXPECT_EQ(folder.Get("a.sty.bak3"), "3");
  // One that isn't there is no failure.
  const FileToRemove removal{Path("a.sty"), true};
  EXPECT_EQ(disk.WriteSet({}, {&removal, 1}).result, DiskResult::kOk);
  EXPECT_EQ(folder.Count(), 3);
}

TEST_F(DiskSet, WhatIsKeptAsideIsThereUnderBothNames) {
  folder.Put("a", "theirs");
  folder.Put("a.bak", "old");
  fs::create_symlink(Path("nowhere"), Path("a.bak2"));
  std::string kept;
  EXPECT_EQ(disk.KeepAside(Path("a"), kept), DiskResult::kOk);
  EXPECT_EQ(kept, Path("a.bak3"));
  EXPECT_EQ(folder.Get("a"), "theirs");
  EXPECT_EQ(disk.Write(Path("a"), "ours"), DiskResult::kOk);
  EXPECT_EQ(folder.Get("a.bak3"), "theirs");
  EXPECT_EQ(folder.Get("a.bak"), "old");
  EXPECT_EQ(disk.KeepAside(Path("absent"), kept), DiskResult::kAbsent);
  EXPECT_EQ(disk.KeepAside(Path("missing/absent"), kept), DiskResult::kPathAbsent);
}

TEST_F(DiskSet, WhatALinkLeadsToIsKeptAsideBesideTheLink) {
  folder.Put("real", "theirs");
  fs::create_symlink("real", Path("a"));
  std::string kept;
  EXPECT_EQ(disk.KeepAside(Path("a"), kept), DiskResult::kOk);
  EXPECT_EQ(kept, Path("a.bak"));
  EXPECT_EQ(disk.Write(Path("a"), "ours"), DiskResult::kOk);
  EXPECT_EQ(folder.Get("real"), "ours");
  EXPECT_EQ(folder.Get("a.bak"), "theirs");
}

TEST_F(DiskSet, WhatIsKeptUnderANameTakesThePlaceOfWhatHasIt) {
  folder.Put("base", "now");
  folder.Put("base.bak", "of another day");
  EXPECT_EQ(disk.KeepAs(Path("base"), Path("base.bak")), DiskResult::kOk);
  EXPECT_EQ(folder.Get("base.bak"), "now");
  EXPECT_EQ(folder.Get("base"), "now");
  EXPECT_EQ(disk.KeepAs(Path("absent"), Path("base.bak")), DiskResult::kAbsent);
  EXPECT_EQ(folder.Get("base.bak"), "now");
}

TEST_F(DiskSet, AMarkTellsWhetherAFileHoldsTheSame) {
  FileMark mark;
  EXPECT_EQ(disk.Look(Path("a"), mark), DiskResult::kOk);
  EXPECT_EQ(mark, FileMark());
  folder.Put("a", "123456789");
  EXPECT_EQ(disk.Look(Path("a"), mark), DiskResult::kOk);
  // The check value of CRC-32.
  EXPECT_EQ(mark, (FileMark{true, 9, 0xCBF43926}));
  EXPECT_EQ(mark, MarkOf("123456789"));
  EXPECT_EQ(disk.Look(folder.Path(), mark), DiskResult::kIsFolder);
}

TEST_F(DiskSet, AnEmptyFileThatAnotherProcessHasOpenStays) {
  folder.Put("empty", "");
  int ready[2], done[2];
  ASSERT_EQ(pipe(ready), 0);
  ASSERT_EQ(pipe(done), 0);
  const pid_t other = fork();
  if (other == 0) {
    const int file = open(Path("empty").c_str(), O_WRONLY);
    char byte = static_cast<char>(file);
    if (write(ready[1], &byte, 1) != 1 || read(done[0], &byte, 1) != 1) _exit(1);
    _exit(0);
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  EXPECT_EQ(disk.RemoveEmpty(Path("empty")), DiskResult::kOk);
  EXPECT_TRUE(There("empty"));
  ASSERT_EQ(write(done[1], &byte, 1), 1);
  waitpid(other, nullptr, 0);
  EXPECT_EQ(disk.RemoveEmpty(Path("empty")), DiskResult::kOk);
  EXPECT_FALSE(There("empty"));
  folder.Put("full", "x");
  EXPECT_EQ(disk.RemoveEmpty(Path("full")), DiskResult::kOk);
  EXPECT_TRUE(There("full"));
}

// A process that has ended, and whose number nobody else has yet.
pid_t GoneProcess() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  return child;
}

TEST_F(DiskSet, StraysOfProcessesThatHaveGoneAreRemovedAfterADay) {
  const std::string gone = std::to_string(GoneProcess());
  const std::string here = std::to_string(getpid());
  const std::string old_stray = ".zentaline-" + gone + "-1-abc.tmp";
  const std::string young_stray = ".zentaline-" + gone + "-2-abc.tmp";
  const std::string of_the_living = ".zentaline-" + here + "-1-abc.tmp";
  const std::string of_others = ".zentaline-" + gone + "x.tmp";
  const timeval yesterday[2] = {{time(nullptr) - 90000, 0}, {time(nullptr) - 90000, 0}};
  for (const std::string& name : {old_stray, young_stray, of_the_living, of_others}) {
    folder.Put(name, "half");
    if (name == young_stray) continue;
    ASSERT_EQ(utimes(Path(name).c_str(), yesterday), 0);
  }
  EXPECT_EQ(disk.Write(Path("a"), "x"), DiskResult::kOk);
  EXPECT_FALSE(There(old_stray));
  EXPECT_TRUE(There(young_stray));
  EXPECT_TRUE(There(of_the_living));
  EXPECT_TRUE(There(of_others));
}

TEST_F(DiskSet, EachFileOfASetCountsAsOneWriteAndNoneIsWrittenWhenOneFails) {
  FaultyDisk faulty(disk);
  folder.Put("a.sty", "old");
  const FileToWrite writes[] = {{Path("a.sty"), &sty}, {Path("a.arr"), &arr}};
  ASSERT_TRUE(faulty.Fail("write", "ENOSPC", 1, 1));
  SetResult result = faulty.WriteSet(writes, {});
  EXPECT_EQ(result.result, DiskResult::kFull);
  EXPECT_EQ(result.file, 1u);
  EXPECT_FALSE(result.written);
  EXPECT_EQ(folder.Get("a.sty"), "old");
  result = faulty.WriteSet(writes, {});
  EXPECT_EQ(result.result, DiskResult::kOk);
  EXPECT_EQ(folder.Get("a.sty"), "styles");
}

TEST_F(DiskSet, ARemovalThatIsToFailLeavesWhatComesBehindIt) {
  FaultyDisk faulty(disk);
  for (const char* name : {"1", "2", "3"}) folder.Put(name, name);
  const FileToWrite writes[] = {{Path("a"), &arr}};
  const FileToRemove removals[] = {{Path("1")}, {Path("2")}, {Path("3")}};
  ASSERT_TRUE(faulty.Fail("remove", "EIO", 1, 1));
  const SetResult result = faulty.WriteSet(writes, removals);
  EXPECT_EQ(result.result, DiskResult::kInputOutput);
  EXPECT_EQ(result.file, 2u);
  EXPECT_TRUE(result.written);
  EXPECT_FALSE(There("1"));
  EXPECT_TRUE(There("2"));
  EXPECT_TRUE(There("3"));
  EXPECT_TRUE(There("a"));
}

}  // namespace
}  // namespace zentaline::test
