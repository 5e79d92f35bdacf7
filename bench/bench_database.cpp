// How long "Add All" takes over a full folder, beside the plain reading of its files; and how soon a search by id comes
// to the reading of its file, beside the building of that file's window.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/db_format.h"
#include "base/posix_disk.h"
#include "bench/measure.h"
#include "bench/program.h"
#include "core/application.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/api.h"
#include "midi/recorder/recorder.h"
#include "tests/support/scratch_folder.h"
#include "ui/controls.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr int kFiles = 999;
constexpr int kRounds = 15;
constexpr char kDatabase[] = "i40DBArr";

// Notes when the reader of a file is called, and counts what is written.
class TimedDisk : public PosixDisk {
 public:
  Clock::time_point arr_read;
  int writes = 0;

  DiskResult Read(const std::string& path, Bytes& content, std::size_t largest) override {
    if (path.ends_with(".arr")) arr_read = Clock::now();
    return PosixDisk::Read(path, content, largest);
  }
  SetResult WriteSet(std::span<const FileToWrite> files, std::span<const FileToRemove> removals) override {
    ++writes;
    return PosixDisk::WriteSet(files, removals);
  }
};

std::string NameOf(int i) {
  std::string digits = std::to_string(1000 + i);
  return "Song " + digits + ".arr";
}

class Desk {
 public:
  Desk() : app(toolkit, midi_, disk, folder.Path()) {
    const Bytes file = NewArrFile();
    for (int i = 0; i < kFiles; ++i) folder.Put(NameOf(i), file);
    PutDatabase();
    app.Start();
    toolkit.RunChain([this] { return app.Starting(); });
  }

  // One without entries.
  void PutDatabase() {
    Bytes image = NewDatabase();
    PutDBDirectory(image, folder.Path());
    folder.Put(kDatabase, image);
  }

  test::ScratchFolder folder;
  TimedDisk disk;
  StartingToolkit toolkit;

 private:
  RecorderMidi midi_;

 public:
  Application app;
};

double ReadTime(const Desk& desk, std::vector<char>& buffer) {
  const Clock::time_point begin = Clock::now();
  for (int i = 0; i < kFiles; ++i) {
    std::FILE* file = std::fopen(desk.folder.Path(NameOf(i)).c_str(), "rb");
    if (file == nullptr || std::fread(buffer.data(), 1, buffer.size(), file) != kArrFileLength) return -1;
    std::fclose(file);
  }
  return Nanoseconds(Clock::now() - begin);
}

// The work behind the wait text, to the filled list.
double AddAllTime(Desk& desk) {
  desk.PutDatabase();
  auto* add_all = static_cast<ui::Button*>(desk.toolkit.FindForm("frmEditDBArr")->Find("CommAddAll"));
  add_all->Press();
  desk.disk.writes = 0;
  const Clock::time_point begin = Clock::now();
  add_all->Press();
  const double time = Nanoseconds(Clock::now() - begin);
  const bool full = DBEntryCount(desk.app.arrangement.DBImage.value()) == kDbLastIndex - kDbFirstIndex + 1;
  return full && desk.disk.writes == 1 ? time : -1;
}

void MeasureAddAll(Desk& desk) {
  ShowDatabase(desk.app);
  std::vector<char> buffer(1 << 16);
  const double read = Median(kRounds, [&] { return ReadTime(desk, buffer); });
  const double add = Median(kRounds, [&] { return AddAllTime(desk); });
  std::printf("reading %.0f ns, adding %.0f ns\n", read, add);
  PrintRatio("add_all", add < 0 || read < 0 ? 1e9 : add / read, "<=", 2,
             "Add All over 999 files, of reading them with fread");
  desk.toolkit.FindForm("frmEditDBArr")->CloseWithoutAsking();
}

// The window of a file that has been read.
double WindowTime(Desk& desk) {
  const Clock::time_point begin = Clock::now();
  ChildWindow& window = OpenArrWindow(desk.app, kFileWindows, desk.folder.Path("Song 1500"), false);
  const double time = Nanoseconds(Clock::now() - begin);
  window.CloseWithoutAsking();
  return time;
}

// Up to the reader's call; the file opens in the last free window, which goes again.
double SearchTime(Desk& desk, const std::string& id) {
  const Clock::time_point before = desk.disk.arr_read;
  const Clock::time_point begin = Clock::now();
  FindArrangement(desk.app, id, "");
  if (desk.disk.arr_read == before) return -1;
  const double time = Nanoseconds(desk.disk.arr_read - begin);
  desk.app.arr_windows[kFileWindows]->CloseWithoutAsking();
  return time;
}

void MeasureSearch(Desk& desk) {
  for (int i = 1; i < kFileWindows; ++i) OpenPath(desk.app, desk.folder.Path(NameOf(i)));
  // Another window beside them, so that eight are open when the search runs.
  NewArrWindow(desk.app);
  const Bytes& image = desk.app.arrangement.DBImage.value();
  const std::string id = std::to_string(DBEntryId(image, kDbLastIndex)) + "11";
  const double window = Median(kRounds, [&] { return WindowTime(desk); });
  const double search = Median(kRounds, [&] { return SearchTime(desk, id); });
  std::printf("window %.0f ns, search %.0f ns\n", window, search);
  PrintRatio("find_id", search < 0 ? 1e9 : search / window, "<=", 0.05,
             "a search by id up to the reading of its file, of building a list window");
}

}  // namespace
}  // namespace zentaline

int main() {
  // In memory where that can be had: how long a disk takes to flush the one file says nothing of the program.
  constexpr char kMemory[] = "/dev/shm";
  if (::access(kMemory, W_OK) == 0) ::setenv("TMPDIR", kMemory, 1);
  zentaline::Desk desk;
  zentaline::MeasureAddAll(desk);
  zentaline::MeasureSearch(desk);
}
