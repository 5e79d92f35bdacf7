#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>
#include <fstream>

#include "base/posix_disk.h"
#include "tests/support/scratch_folder.h"

namespace zentaline {
namespace {

using test::ScratchFolder;

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}

// The result as a child's exit status.
int Number(DiskResult result) {
  return static_cast<int>(result);
}

TEST(DiskWrite, MakesAFileWithTheModeOfTheMaskAndLeavesNothingElse) {
  const ScratchFolder folder;
  const int result = test::InChild([&] {
    umask(0027);
    PosixDisk disk;
    return Number(disk.Write(folder.Path("new"), std::string("a\0b", 3)));
  });
  EXPECT_EQ(result, Number(DiskResult::kOk));
  EXPECT_EQ(folder.Get("new"), std::string("a\0b", 3));
  EXPECT_EQ(ModeOf(folder.Path("new")), 0640u);
  EXPECT_EQ(folder.Count(), 1);
}

TEST(DiskWrite, ReplacesLongerShorterAndEmptyContent) {
  const ScratchFolder folder;
  PosixDisk disk;
  for (const std::size_t length : {std::size_t{10}, std::size_t{3000000}, std::size_t{5}, std::size_t{0}}) {
    EXPECT_EQ(disk.Write(folder.Path("file"), std::string(length, 'c')), DiskResult::kOk);
    EXPECT_EQ(folder.Get("file"), std::string(length, 'c'));
  }
  EXPECT_EQ(folder.Count(), 1);
}

TEST(DiskWrite, KeepsTheModeToTheBit) {
  const ScratchFolder folder;
  PosixDisk disk;
  for (const mode_t mode : {0600u, 0666u, 0640u, 0777u, 0200u}) {
    folder.Put("file", "old");
    ASSERT_EQ(chmod(folder.Path("file").c_str(), mode), 0);
    EXPECT_EQ(disk.Write(folder.Path("file"), "new"), DiskResult::kOk);
    EXPECT_EQ(ModeOf(folder.Path("file")), mode);
    ASSERT_EQ(unlink(folder.Path("file").c_str()), 0);
  }
}

TEST(DiskWrite, KeepsTheOwnerWhereTheSystemLetsIt) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a file to somebody else";
  const ScratchFolder folder;
  folder.Put("file", "old");
  ASSERT_EQ(chown(folder.Path("file").c_str(), 12345, 23456), 0);
  PosixDisk disk;
  EXPECT_EQ(disk.Write(folder.Path("file"), "new"), DiskResult::kOk);
  struct stat info {};
  ASSERT_EQ(stat(folder.Path("file").c_str(), &info), 0);
  EXPECT_EQ(info.st_uid, 12345u);
  EXPECT_EQ(info.st_gid, 23456u);
}

TEST(DiskWrite, AForeignOwnerThatCanNotBeKeptIsNoFailure) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make a file of somebody else";
  const ScratchFolder folder;
  folder.Put("file", "old");
  ASSERT_EQ(chmod(folder.Path("file").c_str(), 0666), 0);
  const int result = test::AsOrdinaryUser([&] {
    PosixDisk disk;
    return Number(disk.Write(folder.Path("file"), "new"));
  });
  EXPECT_EQ(result, Number(DiskResult::kOk));
  EXPECT_EQ(folder.Get("file"), "new");
  EXPECT_EQ(ModeOf(folder.Path("file")), 0666u);
}

TEST(DiskWrite, FollowsLinksToTheFileAndKeepsThem) {
  const ScratchFolder folder;
  ASSERT_EQ(mkdir(folder.Path("below").c_str(), 0777), 0);
  folder.Put("below/file", "old");
  ASSERT_EQ(symlink("file", folder.Path("below/inner").c_str()), 0);
  ASSERT_EQ(symlink("below/inner", folder.Path("outer").c_str()), 0);
  PosixDisk disk;
  EXPECT_EQ(disk.Write(folder.Path("outer"), "new"), DiskResult::kOk);
  EXPECT_EQ(folder.Get("below/file"), "new");
  struct stat info {};
  ASSERT_EQ(lstat(folder.Path("outer").c_str(), &info), 0);
  EXPECT_TRUE(S_ISLNK(info.st_mode));
  ASSERT_EQ(lstat(folder.Path("below/inner").c_str(), &info), 0);
  EXPECT_TRUE(S_ISLNK(info.st_mode));
}

TEST(DiskWrite, ALinkThatLeadsNowhereMakesTheFileItNames) {
  const ScratchFolder folder;
  ASSERT_EQ(mkdir(folder.Path("below").c_str(), 0777), 0);
  ASSERT_EQ(symlink("../made", folder.Path("below/inner").c_str()), 0);
  ASSERT_EQ(symlink("below/inner", folder.Path("outer").c_str()), 0);
  ASSERT_EQ(symlink("missing/made", folder.Path("lost").c_str()), 0);
  PosixDisk disk;
  EXPECT_EQ(disk.Write(folder.Path("outer"), "new"), DiskResult::kOk);
  EXPECT_EQ(folder.Get("made"), "new");
  EXPECT_EQ(disk.Write(folder.Path("lost"), "new"), DiskResult::kPathAbsent);
}

TEST(DiskWrite, RefusesLinksInACircle) {
  const ScratchFolder folder;
  ASSERT_EQ(symlink("b", folder.Path("a").c_str()), 0);
  ASSERT_EQ(symlink("a", folder.Path("b").c_str()), 0);
  PosixDisk disk;
  EXPECT_EQ(disk.Write(folder.Path("a"), "new"), DiskResult::kOther);
  EXPECT_EQ(folder.Count(), 2);
}

TEST(DiskWrite, RefusesFoldersPipesAndDevices) {
  const ScratchFolder folder;
  ASSERT_EQ(mkdir(folder.Path("below").c_str(), 0777), 0);
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
  PosixDisk disk;
  EXPECT_EQ(disk.Write(folder.Path("below"), "new"), DiskResult::kIsFolder);
  EXPECT_EQ(disk.Write(folder.Path("below/"), "new"), DiskResult::kIsFolder);
  EXPECT_EQ(disk.Write(folder.Path("below/."), "new"), DiskResult::kIsFolder);
  EXPECT_EQ(disk.Write(folder.Path("pipe"), "new"), DiskResult::kOther);
  EXPECT_EQ(disk.Write("/dev/null", "new"), DiskResult::kOther);
  EXPECT_EQ(folder.Count(), 2);
}

TEST(DiskWrite, SaysWhenTheFolderIsMissing) {
  const ScratchFolder folder;
  folder.Put("file", "x");
  PosixDisk disk;
  EXPECT_EQ(disk.Write(folder.Path("missing/new"), "new"), DiskResult::kPathAbsent);
  EXPECT_EQ(disk.Write(folder.Path("missing/"), "new"), DiskResult::kPathAbsent);
  EXPECT_EQ(disk.Write(folder.Path("file/new"), "new"), DiskResult::kPathAbsent);
  EXPECT_EQ(disk.Write("", "new"), DiskResult::kPathAbsent);
  EXPECT_EQ(folder.Get("file"), "x");
}

TEST(DiskWrite, RefusesAReadOnlyFileThoughItsFolderWouldLetItBeReplaced) {
  const ScratchFolder folder;
  folder.Put("file", "old");
  ASSERT_EQ(chmod(folder.Path("file").c_str(), 0444), 0);
  const int result = test::AsOrdinaryUser([&] {
    PosixDisk disk;
    return Number(disk.Write(folder.Path("file"), "new"));
  });
  EXPECT_EQ(result, Number(DiskResult::kNoAccess));
  EXPECT_EQ(folder.Get("file"), "old");
  EXPECT_EQ(folder.Count(), 1);
}

TEST(DiskWrite, SaysWhenTheFolderTakesNoFiles) {
  const ScratchFolder folder;
  folder.Put("file", "old");
  ASSERT_EQ(chmod(folder.Path("file").c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
  for (const char* name : {"file", "new"}) {
    const int result = test::AsOrdinaryUser([&] {
      PosixDisk disk;
      return Number(disk.Write(folder.Path(name), "new"));
    });
    EXPECT_EQ(result, Number(DiskResult::kNoAccess)) << name;
  }
  ASSERT_EQ(chmod(folder.Path().c_str(), 0777), 0);
  EXPECT_EQ(folder.Get("file"), "old");
  EXPECT_EQ(folder.Count(), 1);
}

TEST(DiskWrite, TakesTheLongestNameThatTheFileSystemTakes) {
  const ScratchFolder folder;
  PosixDisk disk;
  EXPECT_EQ(disk.Write(folder.Path(std::string(255, 'n')), "new"), DiskResult::kOk);
  EXPECT_EQ(folder.Get(std::string(255, 'n')), "new");
  EXPECT_EQ(disk.Write(folder.Path(std::string(256, 'n')), "new"), DiskResult::kOther);
  EXPECT_EQ(folder.Count(), 1);
}

TEST(DiskWrite, AFileThatOutgrowsItsLimitLeavesTheOldOneWholeAndNothingElse) {
  const ScratchFolder folder;
  folder.Put("file", "old");
  const int result = test::InChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100000, 100000};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 99;
    PosixDisk disk;
    if (disk.Write(folder.Path("new"), std::string(100001, 'n')) != DiskResult::kFull) return 98;
    return Number(disk.Write(folder.Path("file"), std::string(150000, 'n')));
  });
  EXPECT_EQ(result, Number(DiskResult::kFull));
  EXPECT_EQ(folder.Get("file"), "old");
  EXPECT_EQ(folder.Count(), 1);
}

bool PutLine(const char* path, const std::string& line) {
  std::ofstream file(path);
  file << line << std::flush;
  return file.good();
}

// Takes a name space of its own, where an ordinary user may mount too once somebody is root in it.
bool MayMount() {
  const std::string user = "0 " + std::to_string(geteuid()) + " 1";
  const std::string group = "0 " + std::to_string(getegid()) + " 1";
  if (geteuid() == 0) return unshare(CLONE_NEWNS) == 0;
  return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && PutLine("/proc/self/setgroups", "deny") &&
         PutLine("/proc/self/uid_map", user) && PutLine("/proc/self/gid_map", group);
}

// Mounts a disk of 64 KiB on `folder` that only this process sees. False where the system forbids it.
bool MountSmallDisk(const std::string& folder) {
  return MayMount() && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("small", folder.c_str(), "tmpfs", 0, "size=64k") == 0;
}

TEST(DiskWrite, AFullDiskLeavesTheOldFileWholeAndNothingElse) {
  const ScratchFolder folder;
  const int result = test::InChild([&] {
    if (!MountSmallDisk(folder.Path())) return 99;
    PosixDisk disk;
    const std::string old(40000, 'o');
    if (disk.Write(folder.Path("file"), old) != DiskResult::kOk) return 1;
    if (disk.Write(folder.Path("file"), std::string(40000, 'n')) != DiskResult::kFull) return 2;
    if (disk.Write(folder.Path("new"), std::string(40000, 'n')) != DiskResult::kFull) return 3;
    if (folder.Get("file") != old) return 4;
    if (folder.Count() != 1) return 5;
    return disk.Write(folder.Path("file"), std::string(20000, 's')) == DiskResult::kOk ? 0 : 6;
  });
  if (result == 99) GTEST_SKIP() << "no small disk can be mounted here";
  EXPECT_EQ(result, 0);
}

TEST(DiskWrite, AReadOnlyDiskGivesNoAccess) {
  const ScratchFolder folder;
  const int result = test::InChild([&] {
    if (!MountSmallDisk(folder.Path())) return 99;
    folder.Put("file", "old");
    if (mount("small", folder.Path().c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) != 0) return 99;
    PosixDisk disk;
    if (disk.Write(folder.Path("file"), "new") != DiskResult::kNoAccess) return 1;
    if (disk.Write(folder.Path("new"), "new") != DiskResult::kNoAccess) return 2;
    if (disk.Remove(folder.Path("file")) != DiskResult::kNoAccess) return 3;
    if (disk.Rename(folder.Path("file"), folder.Path("other")) != DiskResult::kNoAccess) return 4;
    return folder.Get("file") == "old" ? 0 : 5;
  });
  if (result == 99) GTEST_SKIP() << "no small disk can be mounted here";
  EXPECT_EQ(result, 0);
}

TEST(DiskWrite, AProcessKilledAtAnyMomentLeavesTheOldFileOrTheNewOneWhole) {
  const ScratchFolder folder;
  const std::string path = folder.Path("file.arr");
  const std::string first(300000, 'a');
  const std::string second(200001, 'b');
  folder.Put("file.arr", first);
  PosixDisk disk;
  Bytes seen;
  int changes = 0;
  constexpr int kLastRound = 24;
  const time_t deadline = time(nullptr) + 60;
  for (int round = 0; round <= kLastRound; ++round) {
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
      PosixDisk own;
      for (;;) {
        own.Write(path, second);
        own.Write(path, first);
      }
    }
    // Also whoever looks meanwhile finds a whole file. A slow disk can hold up the writer beyond a round: the last one
    // goes on until it has been seen at work.
    for (int look = 0; look < 20 + 7 * round || (round == kLastRound && changes < 2 && time(nullptr) < deadline);
         ++look) {
      const bool was_first = seen == first;
      ASSERT_EQ(disk.Read(path, seen, 1000000), DiskResult::kOk);
      ASSERT_TRUE(seen == first || seen == second) << seen.size() << " bytes";
      changes += was_first != (seen == first) ? 1 : 0;
    }
    kill(writer, SIGKILL);
    int status = 0;
    waitpid(writer, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(disk.Read(path, seen, 1000000), DiskResult::kOk);
    ASSERT_TRUE(seen == first || seen == second) << seen.size() << " bytes";
    std::vector<std::string> names;
    ASSERT_EQ(disk.List(folder.Path(), ".arr", names), DiskResult::kOk);
    ASSERT_EQ(names, std::vector<std::string>{"file.arr"});
  }
  EXPECT_GT(changes, 1) << "the writer never wrote while it was watched";
}

TEST(DiskRemove, RemovesFilesAndLinksButNoFolders) {
  const ScratchFolder folder;
  folder.Put("file", "x");
  ASSERT_EQ(symlink("file", folder.Path("link").c_str()), 0);
  ASSERT_EQ(mkdir(folder.Path("below").c_str(), 0777), 0);
  PosixDisk disk;
  EXPECT_EQ(disk.Remove(folder.Path("link")), DiskResult::kOk);
  EXPECT_EQ(folder.Get("file"), "x");
  EXPECT_EQ(disk.Remove(folder.Path("file")), DiskResult::kOk);
  EXPECT_EQ(disk.Remove(folder.Path("file")), DiskResult::kOk);
  EXPECT_EQ(disk.Remove(folder.Path("missing/file")), DiskResult::kOk);
  EXPECT_EQ(disk.Remove(folder.Path("below")), DiskResult::kIsFolder);
  EXPECT_EQ(folder.Count(), 1);
}

TEST(DiskRename, TakesThePlaceOfWhatHasTheName) {
  const ScratchFolder folder;
  folder.Put("from", "new");
  folder.Put("to", "old");
  ASSERT_EQ(mkdir(folder.Path("below").c_str(), 0777), 0);
  PosixDisk disk;
  EXPECT_EQ(disk.Rename(folder.Path("absent"), folder.Path("to")), DiskResult::kAbsent);
  EXPECT_EQ(disk.Rename(folder.Path("from"), folder.Path("below")), DiskResult::kIsFolder);
  EXPECT_EQ(disk.Rename(folder.Path("below"), folder.Path("to")), DiskResult::kIsFolder);
  EXPECT_EQ(disk.Rename(folder.Path("from"), folder.Path("missing/to")), DiskResult::kPathAbsent);
  EXPECT_EQ(folder.Get("to"), "old");
  EXPECT_EQ(disk.Rename(folder.Path("from"), folder.Path("to")), DiskResult::kOk);
  EXPECT_EQ(folder.Get("to"), "new");
  EXPECT_EQ(folder.Count(), 2);
}

}  // namespace
}  // namespace zentaline
