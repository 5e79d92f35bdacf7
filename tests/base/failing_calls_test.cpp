// Each call of the system that saving, keeping aside and the journal's file make fails once, with each of several
// errors: what a file holds afterwards is old or new and whole, what is told is true, and no temporary file stays.
// A program of its own, since these calls have other bodies in it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "base/posix_disk.h"
#include "tests/support/scratch_folder.h"

namespace {

struct Plan {
  bool armed = false;
  int calls_left = 0;
  int error = 0;
  bool has_links = true;         // else the file system knows no second names
  const char* failed = nullptr;  // the call that it was
} g_plan;

// True for the call that is to fail.
bool Due(const char* call) {
  if (!g_plan.armed) return false;
  if (std::string_view(call) == "linkat" && !g_plan.has_links) {
    errno = EPERM;
    return true;
  }
  if (g_plan.calls_left-- != 0) return false;
  g_plan.failed = call;
  errno = g_plan.error;
  return true;
}

}  // namespace

extern "C" {

int openat(int folder, const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  return Due("openat") ? -1 : static_cast<int>(syscall(SYS_openat, folder, name, flags, mode));
}
ssize_t write(int file, const void* bytes, size_t count) {
  return Due("write") ? -1 : syscall(SYS_write, file, bytes, count);
}
int fsync(int file) {
  return Due("fsync") ? -1 : static_cast<int>(syscall(SYS_fsync, file));
}
int renameat(int from_folder, const char* from, int to_folder, const char* to) noexcept {
  return Due("renameat") ? -1 : static_cast<int>(syscall(SYS_renameat2, from_folder, from, to_folder, to, 0));
}
int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept {
  return Due("renameat2") ? -1 : static_cast<int>(syscall(SYS_renameat2, from_folder, from, to_folder, to, flags));
}
int linkat(int from_folder, const char* from, int to_folder, const char* to, int flags) noexcept {
  return Due("linkat") ? -1 : static_cast<int>(syscall(SYS_linkat, from_folder, from, to_folder, to, flags));
}
int fchmod(int file, mode_t mode) noexcept {
  return Due("fchmod") ? -1 : static_cast<int>(syscall(SYS_fchmod, file, mode));
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
  return Due("fchown") ? -1 : static_cast<int>(syscall(SYS_fchown, file, owner, group));
}
int ftruncate(int file, off_t length) noexcept {
  return Due("ftruncate") ? -1 : static_cast<int>(syscall(SYS_ftruncate, file, length));
}
int flock(int file, int operation) noexcept {
  return Due("flock") ? -1 : static_cast<int>(syscall(SYS_flock, file, operation));
}

}  // extern "C"

namespace zentaline::test {
namespace {

namespace fs = std::filesystem;

constexpr int kErrors[] = {EIO, ENOSPC, EINVAL, EXDEV, EACCES};

class FailingCalls : public ::testing::Test {
 protected:
  // Plays `act` with its call number 0, 1, 2... failing, until none is left that could; `check` looks at what came of
  // each, and is told whether one failed.
  void EachCall(const std::function<void(const ScratchFolder&)>& prepare,
                const std::function<void(const ScratchFolder&)>& act,
                const std::function<void(const ScratchFolder&, bool failed)>& check) {
    for (const int error : kErrors) {
      for (int call = 0; call < 100; ++call) {
        const ScratchFolder folder;
        prepare(folder);
        g_plan = {true, call, error, has_links_};
        act(folder);
        g_plan.armed = false;
        const bool failed = g_plan.failed != nullptr;
        SCOPED_TRACE(std::string(failed ? g_plan.failed : "no call") + ", number " + std::to_string(call) + ", with " +
                     std::to_string(error));
        check(folder, failed);
        ExpectNoTemporary(folder);
        if (failed) calls_.insert(g_plan.failed);
        if (!failed) break;
        ++points_;
      }
    }
    RecordProperty("points", points_);
  }
  static void ExpectNoTemporary(const ScratchFolder& folder) {
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
      EXPECT_FALSE(entry.path().filename().string().starts_with(".zentaline-")) << entry.path() << " stayed";
    }
  }
  static bool There(const ScratchFolder& folder, const std::string& name) { return fs::exists(folder.Path(name)); }

  PosixDisk disk_;
  bool has_links_ = true;
  int points_ = 0;
  std::set<std::string> calls_;  // that failed in turn
};

TEST_F(FailingCalls, ASetIsOldOrNewAndWhatIsToldIsTrue) {
  const Bytes sty = "new styles", arr = "new arrangements";
  SetResult result;
  EachCall(
      [](const ScratchFolder& folder) {
        folder.Put("a.sty", "old");
        folder.Put("a.bad", "aside");
        folder.Put("a.pgg", "goes");
      },
      [&](const ScratchFolder& folder) {
        const FileToWrite writes[] = {{folder.Path("a.sty"), &sty}, {folder.Path("a.arr"), &arr}};
        const FileToRemove removals[] = {{folder.Path("a.bad"), true}, {folder.Path("a.pgg")}};
        result = disk_.WriteSet(writes, removals);
      },
      [&](const ScratchFolder& folder, bool failed) {
        const Bytes is_sty = folder.Get("a.sty"), is_arr = There(folder, "a.arr") ? folder.Get("a.arr") : "none";
        EXPECT_TRUE(is_sty == "old" || is_sty == sty) << is_sty;
        EXPECT_TRUE(is_arr == "none" || is_arr == arr) << is_arr;
        EXPECT_TRUE(is_arr == "none" || is_sty == sty) << "in their order";
        EXPECT_EQ(result.written, is_sty == sty && is_arr == arr);
        const bool aside = !There(folder, "a.bad");
        EXPECT_EQ(folder.Get(aside ? "a.bad.bak" : "a.bad"), "aside") << "nobody loses it";
        if (result.result == DiskResult::kOk) {
          EXPECT_TRUE(result.written && aside && !There(folder, "a.pgg"));
        }
        EXPECT_TRUE(failed || result.result == DiskResult::kOk);
      });
  // One of each kind has failed, and some of them are gone around.
  for (const char* call : {"openat", "write", "fsync", "renameat", "renameat2", "fchmod", "fchown"}) {
    EXPECT_TRUE(calls_.contains(call)) << call;
  }
  EXPECT_GT(points_, 50);
}

TEST_F(FailingCalls, WhatIsKeptAsideIsThereUnderBothNamesOrStaysAsItWas) {
  DiskResult result{};
  std::string kept;
  EachCall([](const ScratchFolder& folder) { folder.Put("a", "theirs"); },
           [&](const ScratchFolder& folder) { result = disk_.KeepAside(folder.Path("a"), kept); },
           [&](const ScratchFolder& folder, bool failed) {
             EXPECT_EQ(folder.Get("a"), "theirs");
             if (result == DiskResult::kOk) {
               EXPECT_EQ(kept, folder.Path("a.bak"));
               EXPECT_EQ(folder.Get("a.bak"), "theirs");
             }
             EXPECT_TRUE(failed || result == DiskResult::kOk);
           });
  EXPECT_TRUE(calls_.contains("linkat"));
}

// It is copied then, and each call of that can fail too.
TEST_F(FailingCalls, WhereThereAreNoSecondNamesACopyIsWholeOrNotThere) {
  has_links_ = false;
  DiskResult result{};
  std::string kept;
  EachCall([](const ScratchFolder& folder) { folder.Put("a", "theirs"); },
           [&](const ScratchFolder& folder) { result = disk_.KeepAside(folder.Path("a"), kept); },
           [&](const ScratchFolder& folder, bool failed) {
             EXPECT_EQ(folder.Get("a"), "theirs");
             EXPECT_TRUE(failed || result == DiskResult::kOk);
             EXPECT_TRUE(There(folder, "a.bak") || result != DiskResult::kOk);
             if (There(folder, "a.bak")) {
               EXPECT_EQ(folder.Get("a.bak"), "theirs");
             }
           });
  for (const char* call : {"openat", "write", "fsync", "renameat2"}) EXPECT_TRUE(calls_.contains(call)) << call;
}

TEST_F(FailingCalls, AJournalsFileIsMadeTakenReplacedAndPutAwayOrNothingHappens) {
  DiskResult made{}, appended{}, replaced{}, flushed{}, put_away{};
  std::string kept;
  EachCall([](const ScratchFolder&) {},
           [&](const ScratchFolder& folder) {
             std::unique_ptr<GrowingFile> file;
             made = disk_.MakeGrowing(folder.Path(), "Zentaline-1.journal", file);
             if (made != DiskResult::kOk) return;
             appended = file->Append("first");
             replaced = file->Replace("second, and longer");
             flushed = file->Flush();
             put_away = file->PutAway(kept);
           },
           [&](const ScratchFolder& folder, bool failed) {
             EXPECT_TRUE(failed || put_away == DiskResult::kOk);
             if (made != DiskResult::kOk) return;
             const std::string name = put_away == DiskResult::kOk ? kept : folder.Path("Zentaline-1.journal");
             const Bytes content = folder.Get(fs::path(name).filename());
             if (replaced == DiskResult::kOk) {
               EXPECT_EQ(content, "second, and longer");
             } else if (appended == DiskResult::kOk) {
               EXPECT_TRUE(content == "first" || content == "second, and longer") << content;
             } else {
               EXPECT_EQ(content, "") << "half of what doesn't fit is taken away again";
             }
           });
  EXPECT_GT(points_, 10);
}

}  // namespace
}  // namespace zentaline::test
