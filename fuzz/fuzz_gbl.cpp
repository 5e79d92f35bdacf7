// Files of global data and of back sequences: signatures, images, names, and counts by words that may point anywhere.
#include "fuzz/fuzz_input.h"
#include "global/bsq_format.h"
#include "global/gbl_format.h"

using namespace zentaline;
using zentaline::fuzz::Require;

namespace {

void TryGlobal(std::string_view file) {
  if (CheckGlobalFile(file) == kGlobalGood) Require(file.size() == kGlobalFileLength);
  const Bytes image = BuildGlobalImage(file);
  Require(image.size() == kGlobalImageLength);
  Require(GlobalFileBytes(image) == Slice(file, 1, kGlobalFileLength));
  Require(GlobalFileBytes(file).size() == kGlobalFileLength);
}

void TryBackSeq(Bytes file) {
  const Bytes before = file;
  if (!TakeBackSeqFile(file)) Require(file == before);
  Require(file.size() == before.size());
  Require(BackSeqFileIn(BuildBackSeqImage(file)) == file);
  for (int n = 0; n < kBackSeqCount; ++n) {
    Require(BackSeqName(file, n).size() == kBackSeqNameLength);
    TrackPosition(file, n);
    int sum = 0;
    for (int track = 1; track <= kBackSeqTracks; ++track) {
      const int count = BackSeqEvents(file, n, track);
      Require(count >= 0 && count <= 4 * 65535);
      sum += count;
    }
    Require(BackSeqEventSum(file, n) == sum);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::size_t length = static_cast<std::size_t>(input.Word()) * 2;
  const std::string_view rest = input.Rest();
  TryGlobal(rest);
  TryGlobal(fuzz::Spread(rest, kGlobalFileLength));
  TryBackSeq(Bytes(rest));
  // Short inputs reach the tables only behind a header.
  TryBackSeq(fuzz::Spread("KORG\x4D", kBackSeqTablePosition - 1) + fuzz::Spread(rest, length));
  return 0;
}
