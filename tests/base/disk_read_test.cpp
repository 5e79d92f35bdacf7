#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/posix_disk.h"
#include "tests/support/scratch_folder.h"

namespace zentaline {
namespace {

using test::ScratchFolder;

constexpr std::size_t kLargest = 1000;

TEST(DiskRead, GivesEveryByteOfAFile) {
  const ScratchFolder folder;
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  folder.Put("all", all + all);
  PosixDisk disk;
  Bytes content = "before";
  EXPECT_EQ(disk.Read(folder.Path("all"), content, kLargest), DiskResult::kOk);
  EXPECT_EQ(content, all + all);
}

TEST(DiskRead, TellsAbsentEmptyFolderAndMissingFolderApartAndCreatesNothing) {
  const ScratchFolder folder;
  folder.Put("empty", "");
  folder.Put("file", "x");
  PosixDisk disk;
  Bytes content = "before";
  EXPECT_EQ(disk.Read(folder.Path("absent"), content, kLargest), DiskResult::kAbsent);
  EXPECT_EQ(content, "");
  content = "before";
  EXPECT_EQ(disk.Read(folder.Path("empty"), content, kLargest), DiskResult::kOk);
  EXPECT_EQ(content, "");
  content = "before";
  EXPECT_EQ(disk.Read(folder.Path(), content, kLargest), DiskResult::kIsFolder);
  EXPECT_EQ(content, "");
  EXPECT_EQ(disk.Read(folder.Path("missing/file"), content, kLargest), DiskResult::kPathAbsent);
  EXPECT_EQ(disk.Read(folder.Path("file/file"), content, kLargest), DiskResult::kPathAbsent);
  EXPECT_EQ(disk.Read("", content, kLargest), DiskResult::kAbsent);
  EXPECT_EQ(folder.Count(), 2);
}

TEST(DiskRead, TakesUpToTheLimitAndNotOneByteMore) {
  const ScratchFolder folder;
  PosixDisk disk;
  Bytes content;
  for (const std::size_t limit : {std::size_t{0}, std::size_t{1}, std::size_t{65536}, std::size_t{65537}}) {
    folder.Put("fits", std::string(limit, 'f'));
    EXPECT_EQ(disk.Read(folder.Path("fits"), content, limit), DiskResult::kOk) << limit;
    EXPECT_EQ(content, std::string(limit, 'f'));
    folder.Put("long", std::string(limit + 1, 'l'));
    EXPECT_EQ(disk.Read(folder.Path("long"), content, limit), DiskResult::kTooLarge) << limit;
    EXPECT_EQ(content, "");
  }
}

TEST(DiskRead, RefusesAnEnormousFileWithoutReadingIt) {
  const ScratchFolder folder;
  folder.Put("enormous", "");
  ASSERT_EQ(truncate(folder.Path("enormous").c_str(), off_t{1} << 40), 0);
  PosixDisk disk;
  Bytes content;
  EXPECT_EQ(disk.Read(folder.Path("enormous"), content, kLargest), DiskResult::kTooLarge);
}

TEST(DiskRead, ReadsFilesWhoseLengthTheSystemDoesNotKnowBeforehand) {
  PosixDisk disk;
  Bytes content;
  EXPECT_EQ(disk.Read("/proc/self/status", content, 100000), DiskResult::kOk);
  EXPECT_TRUE(content.starts_with("Name:")) << content;
}

TEST(DiskRead, DoesNotHangOnPipesAndDevices) {
  const ScratchFolder folder;
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
  PosixDisk disk;
  Bytes content;
  EXPECT_EQ(disk.Read(folder.Path("pipe"), content, kLargest), DiskResult::kOther);
  EXPECT_EQ(disk.Read("/dev/zero", content, kLargest), DiskResult::kOther);
}

TEST(DiskRead, FollowsLinks) {
  const ScratchFolder folder;
  folder.Put("file", "linked");
  ASSERT_EQ(symlink("file", folder.Path("first").c_str()), 0);
  ASSERT_EQ(symlink(folder.Path("first").c_str(), folder.Path("second").c_str()), 0);
  ASSERT_EQ(symlink("nowhere", folder.Path("dangling").c_str()), 0);
  ASSERT_EQ(symlink("circle", folder.Path("circle").c_str()), 0);
  PosixDisk disk;
  Bytes content;
  EXPECT_EQ(disk.Read(folder.Path("second"), content, kLargest), DiskResult::kOk);
  EXPECT_EQ(content, "linked");
  EXPECT_EQ(disk.Read(folder.Path("dangling"), content, kLargest), DiskResult::kAbsent);
  EXPECT_EQ(disk.Read(folder.Path("circle"), content, kLargest), DiskResult::kOther);
}

TEST(DiskRead, SaysWhenTheFileMayNotBeRead) {
  const ScratchFolder folder;
  folder.Put("secret", "x");
  ASSERT_EQ(chmod(folder.Path("secret").c_str(), 0), 0);
  const int result = test::AsOrdinaryUser([&] {
    PosixDisk disk;
    Bytes content;
    return static_cast<int>(disk.Read(folder.Path("secret"), content, kLargest));
  });
  EXPECT_EQ(result, static_cast<int>(DiskResult::kNoAccess));
}

TEST(DiskRead, SaysWhenNoMoreFilesCanBeOpened) {
  const ScratchFolder folder;
  folder.Put("file", "x");
  PosixDisk disk;
  const int result = test::InChild([&] {
    Bytes content;
    // Also lets the sanitizers, which need a descriptor for it, look at the object before there are none left.
    if (disk.Read(folder.Path("file"), content, kLargest) != DiskResult::kOk) return 98;
    const rlimit none{0, 0};
    if (setrlimit(RLIMIT_NOFILE, &none) != 0) return 99;
    return static_cast<int>(disk.Read(folder.Path("file"), content, kLargest));
  });
  EXPECT_EQ(result, static_cast<int>(DiskResult::kTooManyFiles));
}

TEST(DiskRead, APathWithAZeroByteReachesNoOtherFile) {
  const ScratchFolder folder;
  folder.Put("file", "x");
  PosixDisk disk;
  const std::string path = folder.Path("file") + std::string("\0.arr", 5);
  Bytes content;
  EXPECT_EQ(disk.Read(path, content, kLargest), DiskResult::kOther);
  EXPECT_EQ(disk.Write(path, "new"), DiskResult::kOther);
  EXPECT_EQ(disk.Remove(path), DiskResult::kOther);
  EXPECT_EQ(disk.Rename(path, folder.Path("other")), DiskResult::kOther);
  EXPECT_FALSE(disk.Exists(path));
  EXPECT_EQ(folder.Get("file"), "x");
}

TEST(DiskExists, HoldsForFilesAndNotForFoldersOrWhatIsNotThere) {
  const ScratchFolder folder;
  folder.Put("file", "");
  ASSERT_EQ(symlink("file", folder.Path("link").c_str()), 0);
  ASSERT_EQ(symlink("nowhere", folder.Path("dangling").c_str()), 0);
  PosixDisk disk;
  EXPECT_TRUE(disk.Exists(folder.Path("file")));
  EXPECT_TRUE(disk.Exists(folder.Path("link")));
  EXPECT_FALSE(disk.Exists(folder.Path()));
  EXPECT_FALSE(disk.Exists(folder.Path("dangling")));
  EXPECT_FALSE(disk.Exists(folder.Path("absent")));
  EXPECT_FALSE(disk.Exists(""));
}

TEST(DiskList, GivesTheFilesOfAnEndingSortedWithoutRegardToItsCase) {
  const ScratchFolder folder;
  for (const char* name : {"b.arr", "A.ARR", "c.Arr", "c.arr.bak", "arr", "x.sty"}) folder.Put(name, "");
  ASSERT_EQ(mkdir(folder.Path("folder.arr").c_str(), 0777), 0);
  ASSERT_EQ(mkfifo(folder.Path("pipe.arr").c_str(), 0666), 0);
  ASSERT_EQ(symlink("b.arr", folder.Path("link.arr").c_str()), 0);
  ASSERT_EQ(symlink("nowhere", folder.Path("dangling.arr").c_str()), 0);
  PosixDisk disk;
  std::vector<std::string> names = {"before"};
  EXPECT_EQ(disk.List(folder.Path(), ".aRr", names), DiskResult::kOk);
  EXPECT_EQ(names, (std::vector<std::string>{"A.ARR", "b.arr", "c.Arr", "link.arr"}));
}

TEST(DiskList, SaysWhyAFolderCanNotBeListed) {
  const ScratchFolder folder;
  folder.Put("file", "");
  ASSERT_EQ(mkdir(folder.Path("closed").c_str(), 0), 0);
  PosixDisk disk;
  std::vector<std::string> names = {"before"};
  EXPECT_EQ(disk.List(folder.Path("missing"), ".arr", names), DiskResult::kPathAbsent);
  EXPECT_TRUE(names.empty());
  EXPECT_EQ(disk.List(folder.Path("file"), ".arr", names), DiskResult::kPathAbsent);
  const int closed =
      test::AsOrdinaryUser([&] { return static_cast<int>(disk.List(folder.Path("closed"), ".arr", names)); });
  EXPECT_EQ(closed, static_cast<int>(DiskResult::kNoAccess));
}

TEST(DiskList, ALongFolderIsListedWhole) {
  const ScratchFolder folder;
  for (int i = 0; i < 1500; ++i) folder.Put(std::to_string(i) + ".arr", "");
  PosixDisk disk;
  std::vector<std::string> names;
  EXPECT_EQ(disk.List(folder.Path(), ".arr", names), DiskResult::kOk);
  EXPECT_EQ(names.size(), 1500u);
}

}  // namespace
}  // namespace zentaline
