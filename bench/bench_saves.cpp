// What saving a set as one takes beside writing and flushing its files one by one; what a change takes with the journal
// beside the change and a bare append of as many bytes; and bringing 100,000 actions back beside reading them.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "base/posix_disk.h"
#include "bench/measure.h"
#include "bench/program.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/journal.h"
#include "core/journal_format.h"
#include "core/window_image.h"
#include "files/api.h"
#include "midi/recorder/recorder.h"
#include "style/sty_format.h"
#include "tests/support/scratch_folder.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr int kRounds = 21;
constexpr int kChanges = 1000;
constexpr int kActions = 100000;

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "bench_saves: %s\n", what.c_str());
  std::exit(EXIT_FAILURE);
}

Bytes StyleFile() {
  Bytes file("KORG\x4D\x00\x04\x01", 8);
  file.resize(4928, '\0');
  for (std::size_t entry = 0; entry < 4; ++entry) {
    file[24 + 4 * entry] = '\x98';
    file[25 + 4 * entry] = '\x04';
    file.replace(224 + 1176 * entry, 16, "Style           ");
  }
  return file;
}

class YesToolkit : public StartingToolkit {
 public:
  ui::BoxAnswer MessageBox(ui::BoxStyle style, const std::string&, const std::string&) override {
    return style == ui::BoxStyle::kOk ? ui::BoxAnswer::kOk : ui::BoxAnswer::kYes;
  }
};

class Desk {
 public:
  explicit Desk(const test::ScratchFolder& folder, bool journal = false)
      : folder_(folder), app(toolkit, midi_, disk_, folder.Path()) {
    if (journal) app.KeepJournal();
  }
  void Start() {
    app.Start();
    toolkit.RunChain([this] { return app.Starting(); });
  }
  ChildWindow& Song() {
    OpenPath(app, folder_.Path("Song.arr"));
    if (app.arr_windows[1] == nullptr) Fail("the file did not open");
    return *app.arr_windows[1];
  }
  void Change(ChildWindow& window, int i) {
    const ui::UserEvent event(toolkit);
    app.edits.PutByte(ImageOf(window), kWindowFilePosition + 40 + static_cast<std::size_t>(i) % 100, i % 251 + 1,
                      {"Byte"});
    app.edits.Mark(window, kChangedPosition, 1);
  }

 private:
  const test::ScratchFolder& folder_;
  PosixDisk disk_;
  RecorderMidi midi_;

 public:
  YesToolkit toolkit;
  Application app;
};

void PutSong(const test::ScratchFolder& folder) {
  folder.Put("Song.arr", NewArrFile());
  folder.Put("Song.sty", StyleFile());
  folder.Put("i40Sty", StyleFile());
}

// As anyone would who wants each file whole and on the disk.
void WriteOne(const std::string& path, const Bytes& content) {
  const std::string beside = path + ".beside";
  const int file = open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (write(file, content.data(), content.size()) != static_cast<ssize_t>(content.size())) Fail("a plain write failed");
  if (fsync(file) != 0 || close(file) != 0 || rename(beside.c_str(), path.c_str()) != 0) Fail("a plain write failed");
  const int folder = open(path.substr(0, path.rfind('/')).c_str(), O_RDONLY | O_DIRECTORY);
  if (fsync(folder) != 0) Fail("a folder was not flushed");
  close(folder);
}

void Saving() {
  const test::ScratchFolder folder;
  PutSong(folder);
  Desk desk(folder);
  desk.Start();
  ChildWindow& song = desk.Song();
  std::vector<double> ratios;
  for (int i = 0; i < kRounds; ++i) {
    {
      const ui::UserEvent event(desk.toolkit);
      desk.app.edits.PutByte(ImageOf(song), kArrStyleBase + 224, 'A' + i, {"Name"});
      desk.app.edits.Mark(song, kStyChangedPosition, 1);
    }
    desk.Change(song, i);
    const auto begin = Clock::now();
    if (!SaveFile(desk.app, song)) Fail("the set was not saved");
    const auto between = Clock::now();
    WriteOne(folder.Path("Plain.sty"), folder.Get("Song.sty"));
    WriteOne(folder.Path("Plain.arr"), folder.Get("Song.arr"));
    const auto end = Clock::now();
    ratios.push_back(Nanoseconds(between - begin) / Nanoseconds(end - between));
  }
  PrintRatio("saves.set", Median(ratios), "<=", 1.3,
             "saving arrangements with styles as one, beside writing and flushing both files one by one");
}

double Changes(Desk& desk, ChildWindow& song, int round) {
  const auto begin = Clock::now();
  for (int i = 0; i < kChanges; ++i) desk.Change(song, round * kChanges + i);
  return Nanoseconds(Clock::now() - begin);
}

void Journaling() {
  const test::ScratchFolder with_folder, without_folder;
  PutSong(with_folder);
  PutSong(without_folder);
  Desk with(with_folder, true), without(without_folder);
  with.Start();
  without.Start();
  ChildWindow& with_song = with.Song();
  ChildWindow& without_song = without.Song();
  with.Change(with_song, 1);
  // As many bytes as the journal takes for such a change.
  JournalAction action;
  action.what = "Byte";
  action.pieces = {{{JournalThing::kWindow, 1}, 311, "a", "b"}};
  const Bytes record = JournalBytes(JournalStep::kDone, action);
  const int plain = open(without_folder.Path("plain").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  std::vector<double> ratios;
  for (int round = 0; round < kRounds; ++round) {
    const double journal = Changes(with, with_song, round);
    const double bare = Changes(without, without_song, round);
    const auto begin = Clock::now();
    for (int i = 0; i < kChanges; ++i) {
      if (write(plain, record.data(), record.size()) < 0) Fail("a plain append failed");
    }
    ratios.push_back(journal / (bare + Nanoseconds(Clock::now() - begin)));
  }
  close(plain);
  if (!with.app.journal->Flush()) Fail("the journal was turned off");
  PrintRatio("saves.journal", Median(ratios), "<=", 1.5,
             "a change with the journal, beside the change and a bare append of as many bytes");
}

void Recovering() {
  std::vector<double> ratios;
  for (int round = 0; round < 5; ++round) {
    const test::ScratchFolder folder;
    PutSong(folder);
    {
      Desk desk(folder, true);
      desk.Start();
      ChildWindow& song = desk.Song();
      desk.app.journal->SetLimit(std::size_t{1} << 30);
      for (int i = 0; i < kActions; ++i) desk.Change(song, i);
    }
    const std::string name = "Zentaline-" + std::to_string(getpid()) + ".journal";
    const auto begin = Clock::now();
    const auto content = ReadJournal(folder.Get(name));
    const auto between = Clock::now();
    if (!content || content->windows.size() != 1 || content->windows.begin()->second.actions.size() != kActions) {
      Fail("the journal does not hold all actions");
    }
    Desk next(folder, true);
    const auto start = Clock::now();
    next.Start();
    const auto end = Clock::now();
    if (next.app.arr_windows[1] == nullptr || next.app.edits.BackCount() < 1900) Fail("not all came back");
    ratios.push_back(Nanoseconds(end - start) / Nanoseconds(between - begin));
  }
  PrintRatio("saves.recovery", Median(ratios), "<=", 5,
             "a start that brings 100,000 actions back, beside reading their journal");
}

}  // namespace
}  // namespace zentaline

int main() {
  zentaline::Saving();
  zentaline::Journaling();
  zentaline::Recovering();
}
