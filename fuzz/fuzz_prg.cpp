// Program files: signatures, the window's image, links, the working copy, the i30 halves.
#include "fuzz/fuzz_input.h"
#include "program/prg_format.h"

using namespace zentaline;
using zentaline::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const int n = input.Word() - 1;
  const int half = input.Byte();
  const bool spread = input.Byte() % 2 == 0;
  const std::string_view rest = input.Rest();
  const Bytes file = spread ? fuzz::Spread(rest, kPrgFileLength) : Bytes(rest);

  const bool right_length = file.size() == kPrgFileLength;
  if (CheckProgramFile(file) == kPrgGood) Require(right_length);
  if (CheckProgramByExtension(file, true) == kPggGood) Require(CheckProgramFile(file) == kPrgGood);
  if (CheckProgramByExtension(file, false) == kPrgGood) Require(CheckProgramFile(file) == kPrgGood);
  if (CheckI30ProgramFile(file) == kPrgGood) Require(CheckProgramFile(file) == kPrgWrong);
  Require(CheckProgramFile(I30ProgramBank(file, half)) == kPrgGood);

  Bytes image = BuildPrgWindowImage(file);
  Require(image.size() == kPrgImageLength);
  Require(PrgFileBytes(image) == Slice(file, 1, kPrgFileLength));
  DecideProgramFormat(image);
  Require((ByteAt(image, 19) == 1) == HasProgramLinks(image));
  Require(ProgramPlaceName(image, n).size() == 16);

  const Bytes record = MakeEditRecord(image, n);
  Require(record.size() == edit_record::kLength);
  Bytes other = image;
  if (n < kPrgRecordCount) {
    PutEditRecord(other, record);
    Require(n < 0 || other == image);
  }
  Bytes damaged(rest);
  PutEditRecord(damaged, record);
  DecideProgramFormat(damaged);
  Require(damaged.size() == rest.size());
  Require(MakeEditRecord(rest, n).size() == edit_record::kLength);
  ClearNewProgramBank(damaged);
  NewProgramHeader(damaged);
  Require(damaged.size() == rest.size());
  return 0;
}
