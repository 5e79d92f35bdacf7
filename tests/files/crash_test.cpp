// The program is killed at every call by which a save, or the journal, changes the disk; and the power fails there,
// which takes away what was not flushed. Afterwards each file is the old one or the new one, whole, and with the
// journal nothing is lost. The calls of the system stand here under their own names, in front of the library's.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>

#include "core/journal.h"
#include "files/api.h"
#include "tests/files/save_desk.h"

namespace {

constexpr int kDied = 42;
constexpr int kWentThrough = 43;

// Armed in a child process alone. The journal's flushing comes from a thread of its own.
struct Fate {
  bool armed = false;
  bool power_fails = false;  // what was not flushed is gone
  int calls_left = 0;
} g_fate;

std::recursive_mutex g_mutex;

// Files that were written to, by their inodes: a descriptor, and how long they are on the disk.
struct Written {
  int file;
  off_t flushed;
};
std::map<ino_t, Written> g_written;

ino_t InodeOf(int file, off_t* length = nullptr) {
  struct stat info {};
  fstat(file, &info);
  if (length != nullptr) *length = info.st_size;
  return info.st_ino;
}

void Die() {
  if (g_fate.power_fails) {
    for (const auto& [inode, each] : g_written) syscall(SYS_ftruncate, each.file, each.flushed);
  }
  syscall(SYS_exit_group, kDied);
}

// True once the process has come to its end; half of a write may still happen then.
bool Due() {
  return g_fate.armed && g_fate.calls_left-- == 0;
}

void NoteWrite(int file) {
  if (!g_fate.armed) return;
  off_t length = 0;
  const ino_t inode = InodeOf(file, &length);
  // Its own descriptor, since the program closes its one.
  if (!g_written.contains(inode)) g_written[inode] = {dup(file), length};
}

void NoteFlush(int file) {
  off_t length = 0;
  const auto found = g_written.find(InodeOf(file, &length));
  if (found != g_written.end()) found->second.flushed = length;
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
  const std::lock_guard lock(g_mutex);
  NoteWrite(file);
  if (Due()) {
    syscall(SYS_write, file, bytes, count / 2);
    Die();
  }
  return syscall(SYS_write, file, bytes, count);
}
int fsync(int file) {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  const auto result = syscall(SYS_fsync, file);
  NoteFlush(file);
  return static_cast<int>(result);
}
int fdatasync(int file) {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  const auto result = syscall(SYS_fdatasync, file);
  NoteFlush(file);
  return static_cast<int>(result);
}
int renameat(int from_folder, const char* from, int to_folder, const char* to) noexcept {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  return static_cast<int>(syscall(SYS_renameat2, from_folder, from, to_folder, to, 0));
}
int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  return static_cast<int>(syscall(SYS_renameat2, from_folder, from, to_folder, to, flags));
}
int unlink(const char* path) noexcept {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  return static_cast<int>(syscall(SYS_unlinkat, folder, path, flags));
}
int linkat(int from_folder, const char* from, int to_folder, const char* to, int flags) noexcept {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  return static_cast<int>(syscall(SYS_linkat, from_folder, from, to_folder, to, flags));
}
int ftruncate(int file, off_t length) noexcept {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  return static_cast<int>(syscall(SYS_ftruncate, file, length));
}
int fchmod(int file, mode_t mode) noexcept {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  return static_cast<int>(syscall(SYS_fchmod, file, mode));
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
  const std::lock_guard lock(g_mutex);
  if (Due()) Die();
  return static_cast<int>(syscall(SYS_fchown, file, owner, group));
}

}  // extern "C"

namespace zentaline::test {
namespace {

using enum MenuId;
namespace fs = std::filesystem;

// What a file may hold afterwards; the empty one stands for a file that isn't there.
using Allowed = std::map<std::string, std::set<Bytes>>;

Bytes Bank(char filling) {
  Bytes bank("KORG\x4D\x00\x00", 7);
  bank.resize(30480, filling);
  return bank;
}

Bytes GlobalFile(char filling) {
  Bytes file("KORG\x4D\x00\x06\x01", 8);
  file.resize(448, filling);
  return file;
}

struct Kind {
  const char* name;
  Allowed allowed;                     // the files there are at first hold the first of these
  std::map<std::string, Bytes> first;  // what lies in the folder
  std::function<void(TestProgram&, const ScratchFolder&)> before;  // up to the save
  std::function<void(TestProgram&)> save;
};

void Change(TestProgram& program, ChildWindow& window, std::size_t position, char byte, std::size_t mark) {
  {
    const ui::UserEvent event(program.toolkit);
    program.app.edits.PutByte(ImageOf(window), position, byte, {"Byte"});
    program.app.edits.Mark(window, mark, 1);
  }
  program.app.main->RefreshMenus();
}

void Open(TestProgram& program, MenuId entry, const std::string& path, int filter) {
  program.toolkit.files.push_back({false, path, filter, false});
  program.Press(entry);
}

Bytes With(Bytes bytes, std::size_t offset, char byte) {
  bytes[offset] = byte;
  return bytes;
}

std::vector<Kind> Kinds() {
  const Bytes arr = ArrFile(), sty = Styles("Mine"), bank = Bank('\x11'), gbl = GlobalFile('\x01');
  const Bytes new_arr = With(arr, 32, 'Z'), new_sty = With(sty, 224, 'Y');
  // Programs go by a link when one of them is one; 0x11 is none.
  const Bytes new_bank = With(bank, 60, 'Z'), new_gbl = With(gbl, 100, 'Z');
  const auto change_both = [](TestProgram& program, const ScratchFolder& folder) {
    program.OpenArr(folder.Path("song.arr"));
    Change(program, *program.Arr(1), 303, 'Z', kChangedPosition);
    Change(program, *program.Arr(1), 42623 + 224, 'Y', kStyChangedPosition);
  };
  const auto press_save = [](TestProgram& program) { program.Press(mnuSalva); };
  return {
      {"arrangements with styles",
       {{"song.arr", {arr, new_arr}}, {"song.sty", {sty, new_sty}}},
       {{"song.arr", arr}, {"song.sty", sty}},
       change_both,
       press_save},
      {"arrangements whose styles others have changed",
       {{"song.arr", {arr, new_arr}},
        {"song.sty", {Styles("Theirs"), new_sty}},
        {"song.sty.bak", {"", Styles("Theirs")}}},
       {{"song.arr", arr}, {"song.sty", sty}},
       [change_both](TestProgram& program, const ScratchFolder& folder) {
         change_both(program, folder);
         folder.Put("song.sty", Styles("Theirs"));
       },
       press_save},
      {"arrangements that lose their styles",
       {{"song.arr", {arr, new_arr}}, {"song.sty", {"", "damaged"}}, {"song.sty.bak", {"", "damaged"}}},
       {{"song.arr", arr}},
       [](TestProgram& program, const ScratchFolder& folder) {
         program.OpenArr(folder.Path("song.arr"));
         Change(program, *program.Arr(1), 303, 'Z', kChangedPosition);
         folder.Put("song.sty", "damaged");
       },
       press_save},
      {"Save As with styles and programs",
       {{"song.arr", {arr}},
        {"song.sty", {sty}},
        {"song.prg", {bank}},
        {"new.arr", {"", new_arr}},
        {"new.sty", {"old", new_sty}},
        {"new.prg", {"", bank}}},
       {{"song.arr", arr}, {"song.sty", sty}, {"song.prg", bank}, {"new.sty", "old"}},
       change_both,
       [](TestProgram& program) {
         program.toolkit.files.push_back({false, program.app.core.Directory + "/new.arr", 1, false});
         program.Press(mnuSalvaAs);
       }},
      {"programs",
       {{"bank.prg", {bank, new_bank}}, {"bank.pgg", {"", "other"}}, {"bank.pgg.bak", {"", "other"}}},
       {{"bank.prg", bank}, {"bank.pgg", "other"}},
       [](TestProgram& program, const ScratchFolder& folder) {
         Open(program, mnuApriPrg, folder.Path("bank.prg"), 3);
         Change(program, *program.app.prg_windows[1], 271 + 60, 'Z', kPrgChangedPosition);
       },
       press_save},
      {"styles",
       {{"song.sty", {sty, new_sty}}},
       {{"song.sty", sty}},
       [](TestProgram& program, const ScratchFolder& folder) {
         Open(program, mnuApriSty, folder.Path("song.sty"), 2);
         Change(program, *program.app.sty_windows[1], 670 + 224, 'Y', kStyChangedPosition);
       },
       press_save},
      {"global data",
       {{"song.gbl", {gbl, new_gbl}}},
       {{"song.gbl", gbl}},
       [](TestProgram& program, const ScratchFolder& folder) {
         Open(program, mnuApriGbl, folder.Path("song.gbl"), 4);
         Change(program, *program.app.gbl_window, 271 + 100, 'Z', kChangedPosition);
       },
       press_save},
      {"the configuration",
       {{"Zentaline.ini", {}}},
       {},
       [](TestProgram& program, const ScratchFolder&) { program.Press(mnuVisBarraStato); },
       [](TestProgram& program) { program.Quit(); }},
  };
}

class Crash : public ::testing::TestWithParam<bool> {
 protected:
  static void Fill(const ScratchFolder& folder, const Kind& kind) {
    for (const auto& entry : fs::directory_iterator(folder.Path())) fs::remove_all(entry.path());
    folder.Put("Zentaline.ini", ConfigFile::English().bytes);
    folder.Put("i40Sty", Template());
    for (const auto& [name, content] : kind.first) folder.Put(name, content);
  }

  // The save, killed at its call number `at`, in a process of its own.
  static int SaveAndDie(const ScratchFolder& folder, const Kind& kind, int at, bool power_fails, bool journal) {
    return InChild([&] {
      TestProgram program(folder);
      if (journal) program.app.KeepJournal();
      if (!program.Start()) return 1;
      kind.before(program, folder);
      if (journal && !program.app.journal->Flush()) return 2;
      g_fate = {true, power_fails, at};
      kind.save(program);
      g_fate.armed = false;
      _exit(kWentThrough);
      return 3;
    });
  }

  static void ExpectWhole(const ScratchFolder& folder, const Kind& kind, int at) {
    for (const auto& [name, contents] : kind.allowed) {
      if (name == "Zentaline.ini") {
        EXPECT_EQ(folder.Get(name).size(), 12500u) << kind.name << ", call " << at;
        continue;
      }
      const Bytes content = fs::exists(folder.Path(name)) ? folder.Get(name) : Bytes();
      EXPECT_TRUE(contents.contains(content)) << name << " of " << kind.name << " is torn at call " << at;
    }
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
      const std::string name = entry.path().filename();
      const bool known = kind.allowed.contains(name) || name == "Zentaline.ini" || name == "i40Sty" ||
                         name.starts_with(".zentaline-") || name.find(".journal") != std::string::npos;
      EXPECT_TRUE(known) << name << " was left by " << kind.name << " at call " << at;
    }
  }
};

TEST_P(Crash, EachFileIsTheOldOneOrTheNewOne) {
  const ScratchFolder folder;
  int points = 0;
  for (const Kind& kind : Kinds()) {
    int status = kDied;
    int at = 0;
    for (; at < 200 && status == kDied; ++at) {
      Fill(folder, kind);
      status = SaveAndDie(folder, kind, at, GetParam(), false);
      ExpectWhole(folder, kind, at);
    }
    EXPECT_EQ(status, kWentThrough) << kind.name;
    for (const auto& [name, contents] : kind.allowed) {
      if (contents.size() < 2 || !kind.first.contains(name)) continue;
      EXPECT_NE(folder.Get(name), kind.first.at(name)) << name << " of " << kind.name << " was not saved at all";
    }
    EXPECT_GT(at, 3) << kind.name << " did nothing";
    points += at - 1;
  }
  RecordProperty("points", points);
}

// What belongs together is old or new together, but between two renames; those points are counted.
TEST_P(Crash, TheFilesOfASetDifferOnlyBetweenTheirRenames) {
  const ScratchFolder folder;
  const Kind kind = Kinds().front();
  int mixed = 0;
  int status = kDied;
  for (int at = 0; at < 200 && status == kDied; ++at) {
    Fill(folder, kind);
    status = SaveAndDie(folder, kind, at, GetParam(), false);
    const bool new_arr = folder.Get("song.arr") != ArrFile();
    const bool new_sty = folder.Get("song.sty") != Styles("Mine");
    EXPECT_TRUE(new_sty || !new_arr) << "the arrangements came before their styles";
    if (new_sty && !new_arr) ++mixed;
  }
  EXPECT_EQ(mixed, 1);
}

TEST_P(Crash, WithTheJournalNothingIsLost) {
  const ScratchFolder folder;
  const Kind kind = Kinds().front();
  int status = kDied;
  for (int at = 0; at < 200 && status == kDied; ++at) {
    Fill(folder, kind);
    status = SaveAndDie(folder, kind, at, GetParam(), true);
    ExpectWhole(folder, kind, at);
    TestProgram next(folder);
    next.app.KeepJournal();
    next.toolkit.answers = {ui::BoxAnswer::kYes};
    ASSERT_TRUE(next.Start());
    // Either the disk holds it, or a window does.
    const bool on_disk = folder.Get("song.arr")[32] == 'Z' && folder.Get("song.sty")[224] == 'Y';
    const bool in_window = next.Arr(1) != nullptr && next.Arr(1)->window_image()[302] == 'Z' &&
                           next.Arr(1)->window_image()[42622 + 224] == 'Y';
    EXPECT_TRUE(on_disk || in_window) << "lost at call " << at;
    EXPECT_NE(on_disk, in_window) << "offered although it was saved, at call " << at;
  }
  EXPECT_EQ(status, kWentThrough);
}

// Killed while the journal itself is written: what was done before the last action is there.
TEST_P(Crash, TheJournalHoldsEveryActionThatHasEnded) {
  const ScratchFolder folder;
  Kind kind = Kinds().front();
  kind.before = [](TestProgram& program, const ScratchFolder& place) { program.OpenArr(place.Path("song.arr")); };
  int actions = 0;
  int status = kDied;
  for (int at = 0; at < 60 && status == kDied; ++at) {
    Fill(folder, kind);
    status = InChild([&] {
      TestProgram program(folder);
      program.app.KeepJournal();
      if (!program.Start()) return 1;
      kind.before(program, folder);
      g_fate = {true, GetParam(), at};
      for (int i = 0; i < 6; ++i) {
        Change(program, *program.Arr(1), 303 + 164 * static_cast<std::size_t>(i), 'Z', kChangedPosition);
        // Whoever waits a second has it on the disk.
        if (GetParam() && !program.app.journal->Flush()) return 2;
        g_fate.armed = false;
        folder.Put("done", std::to_string(i + 1));
        g_fate.armed = true;
      }
      _exit(kWentThrough);
      return 3;
    });
    const int done = fs::exists(folder.Path("done")) ? std::stoi(folder.Get("done")) : 0;
    TestProgram next(folder);
    next.app.KeepJournal();
    next.toolkit.answers = {ui::BoxAnswer::kYes};
    ASSERT_TRUE(next.Start());
    for (int i = 0; i < done; ++i) {
      ASSERT_NE(next.Arr(1), nullptr) << at;
      EXPECT_EQ(next.Arr(1)->window_image()[302 + 164 * static_cast<std::size_t>(i)], 'Z') << "lost at call " << at;
    }
    actions = std::max(actions, done);
  }
  EXPECT_EQ(status, kWentThrough);
  EXPECT_EQ(actions, 6);
}

INSTANTIATE_TEST_SUITE_P(At, Crash, ::testing::Bool(),
                         [](const auto& each) { return each.param ? "PowerLoss" : "Kill"; });

}  // namespace
}  // namespace zentaline::test
