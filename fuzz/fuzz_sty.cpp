// Style files: readers, the i30 split, positions, pastes and cuts, trimming and writing.
#include "fuzz/fuzz_input.h"
#include "style/sty_format.h"

using namespace zentaline;
using zentaline::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const int entry = input.Byte();
  const int source_entry = input.Byte();
  int destination = input.Byte() - 8;
  int mode = input.Byte() & 1;
  const int kind = input.Byte();
  const Bytes source(input.Take(static_cast<std::size_t>(input.Word() % 2048)));
  const std::string_view file = input.Rest();

  Bytes image;
  if (StyReadImage(file, image) == kStyGood) Require(image.size() == file.size());
  if (StyReadTemplate(file, image) == kStyGood) Require(image.size() == file.size());
  std::array<Bytes, 3> outputs;
  if (StySplitI30(file, outputs) == kStyGood) {
    for (const Bytes& output : outputs) Require(StyReadImage(output, image) == kStyGood);
  }

  image.assign(file);
  StyEntryName(entry, image);
  StyEntryPos(entry, image);
  Require(StyGroupSize(entry, image) <= 4 * 65535);
  const Bytes before = image;
  const StyPutResult result = StyPutEntry(mode, source_entry, source, destination, image, source);
  if (result != kStyPutDone) Require(image == before);
  if (result == kStyPutDone) {
    Require(destination >= 0 && destination < 16);
    Require(image.size() <= before.size() + 65535);
    Require(image.size() + 65535 >= before.size());
  }

  Bytes window = fuzz::Spread("", kind % 2 == 0 ? kStyWindowBase - 1 : kArrStyleBase - 1);
  PutByte(window, 1, kind % 2 == 0 ? 23 : 19);
  PutByte(window, 9, kind / 2 % 3);
  window += image;
  const std::size_t length = window.size();
  const Bytes written = StyFileBytes(window);
  Require(window.size() <= length);
  Require(written.size() % 4 == 0 && written.size() >= 224 && written.size() <= 224 + 16 * 65535 + 3);
  Require(StyTotalSize(window) <= written.size());
  return 0;
}
