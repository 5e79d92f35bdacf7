#include <gtest/gtest.h>

#include <cerrno>

#include "base/faulty_disk.h"
#include "base/posix_disk.h"
#include "tests/support/scratch_folder.h"

namespace zentaline {
namespace {

using test::ScratchFolder;

TEST(DiskErrors, EachSystemErrorHasItsResult) {
  EXPECT_EQ(DiskResultFromErrno(0), DiskResult::kOk);
  EXPECT_EQ(DiskResultFromErrno(ENOENT), DiskResult::kAbsent);
  EXPECT_EQ(DiskResultFromErrno(ENOTDIR), DiskResult::kPathAbsent);
  EXPECT_EQ(DiskResultFromErrno(EACCES), DiskResult::kNoAccess);
  EXPECT_EQ(DiskResultFromErrno(EPERM), DiskResult::kNoAccess);
  EXPECT_EQ(DiskResultFromErrno(EROFS), DiskResult::kNoAccess);
  EXPECT_EQ(DiskResultFromErrno(EISDIR), DiskResult::kIsFolder);
  EXPECT_EQ(DiskResultFromErrno(ENOSPC), DiskResult::kFull);
  EXPECT_EQ(DiskResultFromErrno(EDQUOT), DiskResult::kFull);
  EXPECT_EQ(DiskResultFromErrno(ENOMEDIUM), DiskResult::kNotReady);
  EXPECT_EQ(DiskResultFromErrno(EIO), DiskResult::kInputOutput);
  EXPECT_EQ(DiskResultFromErrno(EMFILE), DiskResult::kTooManyFiles);
  EXPECT_EQ(DiskResultFromErrno(ENFILE), DiskResult::kTooManyFiles);
  EXPECT_EQ(DiskResultFromErrno(ELOOP), DiskResult::kOther);
  EXPECT_EQ(DiskResultFromErrno(ENAMETOOLONG), DiskResult::kOther);
}

TEST(FaultyDisk, PassesEverythingOnWhileNothingIsToFail) {
  const ScratchFolder folder;
  PosixDisk real;
  FaultyDisk disk(real);
  Bytes content;
  std::vector<std::string> names;
  EXPECT_EQ(disk.Write(folder.Path("a.arr"), "new"), DiskResult::kOk);
  EXPECT_EQ(disk.Rename(folder.Path("a.arr"), folder.Path("b.arr")), DiskResult::kOk);
  EXPECT_EQ(disk.Read(folder.Path("b.arr"), content, 10), DiskResult::kOk);
  EXPECT_EQ(content, "new");
  EXPECT_EQ(disk.List(folder.Path(), ".arr", names), DiskResult::kOk);
  EXPECT_EQ(names, std::vector<std::string>{"b.arr"});
  EXPECT_TRUE(disk.Exists(folder.Path("b.arr")));
  EXPECT_EQ(disk.Remove(folder.Path("b.arr")), DiskResult::kOk);
  EXPECT_EQ(folder.Count(), 0);
}

TEST(FaultyDisk, AFailingOperationLeavesItsResultEmptyAndTheFilesAlone) {
  const ScratchFolder folder;
  folder.Put("a.arr", "old");
  PosixDisk real;
  FaultyDisk disk(real);
  for (const char* operation : {"read", "write", "remove", "rename", "list"}) {
    ASSERT_TRUE(disk.Fail(operation, "EIO")) << operation;
  }
  Bytes content = "before";
  std::vector<std::string> names = {"before"};
  EXPECT_EQ(disk.Read(folder.Path("a.arr"), content, 10), DiskResult::kInputOutput);
  EXPECT_EQ(content, "");
  EXPECT_EQ(disk.Write(folder.Path("a.arr"), "new"), DiskResult::kInputOutput);
  EXPECT_EQ(disk.Remove(folder.Path("a.arr")), DiskResult::kInputOutput);
  EXPECT_EQ(disk.Rename(folder.Path("a.arr"), folder.Path("b.arr")), DiskResult::kInputOutput);
  EXPECT_EQ(disk.List(folder.Path(), ".arr", names), DiskResult::kInputOutput);
  EXPECT_TRUE(names.empty());
  EXPECT_EQ(folder.Get("a.arr"), "old");
  EXPECT_EQ(disk.Read(folder.Path("a.arr"), content, 10), DiskResult::kOk);
  EXPECT_EQ(content, "old");
}

TEST(FaultyDisk, FailsAsOftenAsToldAndOnlyThatOperation) {
  const ScratchFolder folder;
  PosixDisk real;
  FaultyDisk disk(real);
  ASSERT_TRUE(disk.Fail("write", "ENOSPC", 2));
  EXPECT_EQ(disk.Remove(folder.Path("f")), DiskResult::kOk);
  EXPECT_EQ(disk.Write(folder.Path("f"), "x"), DiskResult::kFull);
  EXPECT_EQ(disk.Write(folder.Path("f"), "x"), DiskResult::kFull);
  EXPECT_EQ(disk.Write(folder.Path("f"), "x"), DiskResult::kOk);
}

TEST(FaultyDisk, FailsUntilItIsEndedWhenTheNumberIsZero) {
  const ScratchFolder folder;
  PosixDisk real;
  FaultyDisk disk(real);
  ASSERT_TRUE(disk.Fail("write", "EROFS", 0));
  for (int i = 0; i < 100; ++i) EXPECT_EQ(disk.Write(folder.Path("f"), "x"), DiskResult::kNoAccess);
  ASSERT_TRUE(disk.Fail("write", "0"));
  EXPECT_EQ(disk.Write(folder.Path("f"), "x"), DiskResult::kOk);
}

TEST(FaultyDisk, AMissingEntryIsTheFolderWhereAFileIsMadeOrAFolderRead) {
  PosixDisk real;
  FaultyDisk disk(real);
  Bytes content;
  std::vector<std::string> names;
  for (const char* operation : {"read", "write", "list"}) ASSERT_TRUE(disk.Fail(operation, "ENOENT"));
  EXPECT_EQ(disk.Read("f", content, 10), DiskResult::kAbsent);
  EXPECT_EQ(disk.Write("f", "x"), DiskResult::kPathAbsent);
  EXPECT_EQ(disk.List(".", ".arr", names), DiskResult::kPathAbsent);
}

TEST(FaultyDisk, RefusesWordsItDoesNotKnowAndKeepsWhatWasSet) {
  const ScratchFolder folder;
  PosixDisk real;
  FaultyDisk disk(real);
  ASSERT_TRUE(disk.Fail("write", "EIO"));
  EXPECT_FALSE(disk.Fail("write", "EWHATEVER"));
  EXPECT_FALSE(disk.Fail("write", "eio"));
  EXPECT_FALSE(disk.Fail("write", ""));
  EXPECT_FALSE(disk.Fail("write", "0", -1));
  EXPECT_FALSE(disk.Fail("writes", "0"));
  EXPECT_FALSE(disk.Fail("", "0"));
  EXPECT_EQ(disk.Write(folder.Path("f"), "x"), DiskResult::kInputOutput);
}

TEST(FaultyDisk, AFaultCanComeBehindOperationsThatGoWell) {
  const ScratchFolder folder;
  PosixDisk real;
  FaultyDisk disk(real);
  ASSERT_TRUE(disk.Fail("write", "ENOSPC", 2, 1));
  EXPECT_FALSE(disk.Fail("write", "ENOSPC", 1, -1));
  EXPECT_EQ(disk.Write(folder.Path("a"), "1"), DiskResult::kOk);
  EXPECT_EQ(disk.Write(folder.Path("b"), "2"), DiskResult::kFull);
  EXPECT_EQ(disk.Write(folder.Path("b"), "2"), DiskResult::kFull);
  EXPECT_EQ(disk.Write(folder.Path("b"), "2"), DiskResult::kOk);
  EXPECT_EQ(folder.Count(), 2);
}

}  // namespace
}  // namespace zentaline
