// A file that grows: held by a lock, for one user, on the disk soon, replaced whole.
#include "base/growing_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>

#include "base/faulty_disk.h"
#include "base/posix_disk.h"
#include "tests/support/scratch_folder.h"

namespace zentaline::test {
namespace {

namespace fs = std::filesystem;

class Growing : public testing::Test {
 protected:
  std::unique_ptr<GrowingFile> Make(const std::string& name = "a.journal") {
    std::unique_ptr<GrowingFile> file;
    EXPECT_EQ(disk.MakeGrowing(folder.Path(), name, file), DiskResult::kOk);
    return file;
  }
  DiskResult Take(const std::string& name, std::size_t largest = 1000) {
    return disk.TakeGrowing(folder.Path(name), content, largest, taken);
  }

  ScratchFolder folder;
  PosixDisk disk;
  Bytes content;
  std::unique_ptr<GrowingFile> taken;
};

TEST_F(Growing, TakesAllThatIsAppendedAndIsForItsUserAlone) {
  const auto file = Make();
  EXPECT_EQ(file->Append("one"), DiskResult::kOk);
  EXPECT_EQ(file->Append(" two"), DiskResult::kOk);
  EXPECT_EQ(file->Flush(), DiskResult::kOk);
  EXPECT_EQ(folder.Get("a.journal"), "one two");
  EXPECT_EQ(fs::status(folder.Path("a.journal")).permissions(), fs::perms(0600));
  EXPECT_EQ(file->Content(content), DiskResult::kOk);
  EXPECT_EQ(content, "one two");
  EXPECT_EQ(file->Append("!"), DiskResult::kOk);
  EXPECT_EQ(folder.Get("a.journal"), "one two!");
}

TEST_F(Growing, ANameThatIsTakenGetsANumber) {
  folder.Put("a.journal", "old");
  fs::create_symlink("nowhere", folder.Path("a-2.journal"));
  const auto file = Make();
  EXPECT_EQ(file->path(), folder.Path("a-3.journal"));
  EXPECT_FALSE(fs::exists(folder.Path("nowhere")));
  EXPECT_EQ(folder.Get("a.journal"), "old");
}

TEST_F(Growing, IsReplacedWholeAndGoesOnAgainAndAgain) {
  const auto file = Make();
  file->Append("a lot");
  for (const char* whole : {"net", "less"}) {
    EXPECT_EQ(file->Replace(whole), DiskResult::kOk);
    EXPECT_EQ(file->Append("+"), DiskResult::kOk);
    EXPECT_EQ(file->Content(content), DiskResult::kOk);
    EXPECT_EQ(content, std::string(whole) + "+");
  }
  EXPECT_EQ(folder.Get("a.journal"), "less+");
  EXPECT_EQ(folder.Count(), 1);
  // It is held as the one before was.
  EXPECT_EQ(Take("a.journal"), DiskResult::kNoAccess);
}

TEST_F(Growing, IsTakenOnlyWhenNobodyHoldsIt) {
  auto file = Make();
  file->Append("content");
  EXPECT_EQ(Take("a.journal"), DiskResult::kNoAccess);
  file.reset();
  EXPECT_EQ(Take("a.journal"), DiskResult::kOk);
  EXPECT_EQ(content, "content");
  EXPECT_EQ(InChild([&] { return Take("a.journal") == DiskResult::kNoAccess ? 0 : 1; }), 0);
}

TEST_F(Growing, OnlyARegularFileOfThisUserIsTaken) {
  folder.Put("real", "x");
  fs::create_symlink("real", folder.Path("link"));
  fs::create_directory(folder.Path("folder"));
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(Take("link"), DiskResult::kNoAccess);
  EXPECT_NE(Take("folder"), DiskResult::kOk);
  EXPECT_NE(Take("pipe"), DiskResult::kOk);
  EXPECT_EQ(Take("absent"), DiskResult::kAbsent);
  EXPECT_EQ(Take("real", 0), DiskResult::kTooLarge);
  EXPECT_EQ(taken, nullptr);
}

TEST_F(Growing, IsPutAwayUnderTheFirstNameThatNobodyHas) {
  folder.Put("a.journal.old", "older");
  const auto file = Make();
  file->Append("x");
  std::string kept;
  EXPECT_EQ(file->PutAway(kept), DiskResult::kOk);
  EXPECT_EQ(kept, folder.Path("a.journal.old2"));
  EXPECT_EQ(folder.Get("a.journal.old"), "older");
  EXPECT_EQ(folder.Get("a.journal.old2"), "x");
  EXPECT_FALSE(fs::exists(folder.Path("a.journal")));
}

TEST_F(Growing, IsDiscarded) {
  const auto file = Make();
  file->Append("x");
  EXPECT_EQ(file->Discard(), DiskResult::kOk);
  EXPECT_EQ(folder.Count(), 0);
}

TEST_F(Growing, FailsOnDemandWithoutATrace) {
  FaultyDisk faulty(disk);
  std::unique_ptr<GrowingFile> file;
  ASSERT_EQ(faulty.MakeGrowing(folder.Path(), "a.journal", file), DiskResult::kOk);
  ASSERT_TRUE(faulty.Fail("journal", "ENOSPC", 1, 1));
  EXPECT_EQ(file->Append("one"), DiskResult::kOk);
  EXPECT_EQ(file->Append("two"), DiskResult::kFull);
  EXPECT_EQ(file->Append("three"), DiskResult::kOk);
  EXPECT_EQ(folder.Get("a.journal"), "onethree");
}

TEST_F(Growing, HalfOfWhatDoesNotFitIsTakenAwayAgain) {
  EXPECT_EQ(InChild([&] {
              signal(SIGXFSZ, SIG_IGN);
              const rlimit limit = {100, 100};
              if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
              const auto file = Make();
              if (file->Append(Bytes(60, 'a')) != DiskResult::kOk) return 2;
              if (file->Append(Bytes(60, 'b')) != DiskResult::kFull) return 3;
              return file->Append(Bytes(10, 'c')) == DiskResult::kOk ? 0 : 4;
            }),
            0);
  EXPECT_EQ(folder.Get("a.journal"), Bytes(60, 'a') + Bytes(10, 'c'));
}

}  // namespace
}  // namespace zentaline::test
