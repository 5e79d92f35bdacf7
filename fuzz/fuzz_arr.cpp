// Arrangement files: the check, images of windows, the record under edit and its way back.
#include "arrangement/arr_format.h"
#include "core/window_image.h"
#include "fuzz/fuzz_input.h"

using namespace zentaline;
using zentaline::fuzz::Require;

namespace {

std::string_view Name(int n) {
  Require(n >= 0 && n < 128);
  return "sixteen bytes...";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const int kind = input.Byte();
  const int index = input.Word() - 1;
  const int state = input.Byte();
  const bool spread = input.Byte() % 2 == 0;
  const std::string_view path = input.Take(static_cast<std::size_t>(input.Byte()) * 2);
  const std::string_view styles = input.Take(static_cast<std::size_t>(input.Word() % 4096));
  const std::string_view rest = input.Rest();

  const Bytes file = spread ? fuzz::Spread(rest, kArrFileLength) : Bytes(rest);
  if (CheckArrFile(file) == kArrGood) Require(file.size() == kArrFileLength);

  Bytes image = BuildArrImage(kind, file, path, {.in_memory = state % 2 == 0, .window_number = state});
  Require(image.size() == (kind == 2 || kind == 3 ? kArrBankImageLength : kArrImageLength));
  Require(ArrFileBytes(image) == Slice(file, 1, kArrFileLength));
  if (state % 4 == 1) AttachPrograms(image, rest, state % 8 == 1);
  AttachStyles(image, styles, state % 3);

  const Bytes record = PrepareEditRecord(image, index, Name);
  Require(record.size() == arr_edit::kLength);
  Bytes back = image;
  const ArrStoreResult result = StoreEditRecordBytes(back, record);
  Require(back.size() == image.size());
  if (result != kArrStored) Require(back == image);
  if (result == kArrStored && index >= 0 && index < kArrRecordCount) {
    PutByte(back, kChangedPosition, ByteAt(image, kChangedPosition));
    Require(back == image);
  }

  Bytes raw(rest);
  Require(PrepareEditRecord(raw, index, Name).size() == arr_edit::kLength);
  StoreEditRecordBytes(raw, styles);
  Require(raw.size() == rest.size());
  BuildNewArrImage(rest, styles, path, state);
  return 0;
}
