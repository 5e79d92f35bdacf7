// Every message, out of any image: frames of seven-bit bytes, and packed data of the right length.
#include "fuzz/fuzz_input.h"
#include "midi/messages.h"
#include "midi/pack7.h"

using namespace zentaline;
using zentaline::fuzz::Require;

namespace {

void RequireFrame(const Bytes& message) {
  Require(message.size() >= 6 && message.starts_with('\xF0') && message.ends_with('\xF7'));
  for (std::size_t i = 1; i + 1 < message.size(); ++i) Require((message[i] & 0x80) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const int channel = input.Byte();
  const int bank = input.Byte();
  const int a = input.Byte();
  const int b = input.Byte();
  const int value = input.Signed();
  const int group = input.Byte() % 6 - 1;
  const int where = input.Byte();
  const std::string_view rest = input.Rest();

  const Bytes packed = Pack7(rest);
  Require(packed.size() == rest.size() + (rest.size() + 6) / 7);
  for (std::size_t i = 0; i < rest.size(); ++i) {
    const int top = packed[i / 7 * 8] >> i % 7 & 1;
    const int low = packed[i / 7 * 8 + 1 + i % 7];
    Require(static_cast<unsigned char>(rest[i]) == low + 128 * top);
  }

  RequireFrame(BuildArrParam(channel, bank, a, value, b % 2));
  RequireFrame(BuildPrgParam(channel, a, b, value));

  // The input as a whole image, or laid where an image keeps its tables.
  Bytes image(rest);
  if (where % 4 == 1) image = Bytes(669, '\x17') + image;
  if (where % 4 == 2) image = Bytes(42622, '\x13') + image;
  if (where % 4 == 3) image = Bytes(318, '\x15') + image;
  RequireFrame(BuildArrDump(channel, image));
  RequireFrame(BuildPrgBankDump(channel, image));
  RequireFrame(BuildGlobalDump(channel, image));
  RequireFrame(BuildBackSeqDump(channel, image));
  Bytes message;
  if (BuildStyleDump(channel, image, group, message) == 0) RequireFrame(message);

  ProgramSelectionState state;
  const Selection program = BuildProgramSelection(channel, image, value, state);
  int number = value;
  const Selection arrangement = BuildArrSelection(channel, number, bank);
  for (const Selection& selection : {program, arrangement}) {
    Require(selection.bytes.size() == 8);
    for (const std::uint32_t word : selection.words) Require((word & 0xFF808000U) == 0 && (word & 0x80U) != 0);
  }
  Require(BankChannel(image) >= 0);
  return 0;
}
