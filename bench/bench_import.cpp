// How long the import of an i30 style file takes, beside reading that file and writing its three parts whole and safe.
#include <array>
#include <cstdio>
#include <string>

#include "base/posix_disk.h"
#include "bench/measure.h"
#include "bench/program.h"
#include "core/application.h"
#include "midi/recorder/recorder.h"
#include "style/api.h"
#include "style/sty_format.h"
#include "tests/support/scratch_folder.h"

namespace zentaline {
namespace {

using namespace bench;

constexpr int kRounds = 21;
constexpr double kMost = 5;
constexpr int kStyles = 48;
constexpr int kStyleLength = 6000;  // bytes, of a common style

Bytes I30File() {
  Bytes file("KORG\x49\x05\x04\x00", 8);
  file.resize(kStyHeaderLength, '\0');
  for (int e = 0; e < kStyles; ++e) {
    PutWordLowFirst(file, kStySizeOffset + 4 * static_cast<std::size_t>(e) + 1, kStyleLength);
    file += Padded("Style " + std::to_string(e), kStyNameLength);
    file.append(kStyleLength - kStyNameLength, static_cast<char>('a' + e % 26));
  }
  return file;
}

int Run() {
  const test::ScratchFolder folder;
  folder.Put("Song.sty", I30File());
  const std::string source = folder.Path("Song.sty");
  PosixDisk disk;
  StartingToolkit toolkit;
  RecorderMidi midi;
  Application app(toolkit, midi, disk, folder.Path());
  app.Start();

  const double import = Median(kRounds, [&] {
    const Clock::time_point begin = Clock::now();
    const bool done = StyImportI30(app, source) == kStyGood;
    return done ? Nanoseconds(Clock::now() - begin) : -1;
  });
  std::array<Bytes, 3> parts;
  if (import < 0 || StySplitI30(I30File(), parts) != kStyGood) return 1;
  const double plain = Median(kRounds, [&] {
    Bytes file;
    const Clock::time_point begin = Clock::now();
    bool done = disk.Read(source, file, std::size_t{1} << 24) == DiskResult::kOk;
    for (std::size_t i = 0; i < parts.size(); ++i) {
      done = disk.Write(folder.Path("Plain-" + std::to_string(i) + ".sty"), parts[i]) == DiskResult::kOk && done;
    }
    return done ? Nanoseconds(Clock::now() - begin) : -1;
  });
  if (plain < 0) return 1;
  PrintRatio("import_i30_styles", import / plain, "<=", kMost,
             "importing an i30 style file beside reading it and writing its three parts");
  return 0;
}

}  // namespace
}  // namespace zentaline

int main() {
  return zentaline::Run();
}
