// Files of the earlier instruments, right and wrong: whatever they hold, files of this one come of it.
#include "arrangement/arr_format.h"
#include "files/import_format.h"
#include "fuzz/fuzz_input.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

using namespace zentaline;
using zentaline::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::size_t lengths[] = {kI30ArrFileLength, kPrgFileLength, kOldArrFileLength, kOldPrgLeastLength, 0};
  const std::size_t length = lengths[static_cast<std::size_t>(input.Byte()) % 5];
  const std::string_view rest = input.Rest();
  const Bytes file = length == 0 ? Bytes(rest) : fuzz::Spread(rest, length);

  if (IsI30ArrFile(file)) Require(file.size() == kI30ArrFileLength);
  if (IsOldArrFile(file)) Require(!IsI30ArrFile(file));
  if (IsOldPrgFile(file)) Require(file.size() >= kOldPrgLeastLength);

  const std::vector<Bytes> arrangements = ArrFilesOfI30(file);
  Require(arrangements.size() == 2);
  for (const Bytes& each : arrangements) Require(CheckArrFile(each) == kArrGood);
  Require(CheckArrFile(ArrFileOfOld(file)) == kArrGood);
  const std::vector<Bytes> programs = PrgFilesOfI30(file);
  Require(programs.size() == 2);
  for (const Bytes& each : programs) Require(CheckProgramFile(each) == kPrgGood);
  Require(CheckProgramFile(PrgFileOfOld(file, rest)) == kPrgGood);
  Require(ArrRecordOfOld(rest).size() == kArrRecordLength);
  Require(PrgRecordOfOld(rest).size() == kPrgRecordLength);

  std::array<Bytes, 3> styles;
  if (StySplitI30(file, styles) == kStyGood) {
    for (const Bytes& each : styles) Require(each.size() >= kStyHeaderLength);
  }
  return 0;
}
