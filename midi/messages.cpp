#include "midi/messages.h"

#include <algorithm>

#include "arrangement/arr_format.h"
#include "core/window_image.h"
#include "midi/pack7.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

namespace zentaline {
namespace {

constexpr int kSevenBits = 0x7F;
constexpr int kBankSelectLow = 0x20;  // controller 32

constexpr std::size_t kStyleDescriptorsLength = 24;
constexpr std::size_t kLinkWipeLength = 20;

constexpr std::array<int, 16> kDrumKitPrograms = {0, 1, 8, 16, 24, 25, 26, 32, 40, 48, 64, 65, 66, 56, 72, 73};

void Append(Bytes& message, int byte) {
  message.push_back(static_cast<char>(byte));
}

Bytes Begin(int channel, int function) {
  Bytes message = SysExHeader(channel);
  Append(message, function);
  return message;
}

void AppendData(Bytes& message, int byte) {
  Append(message, byte & kSevenBits);
}

void AppendValue(Bytes& message, int value, bool negative) {
  AppendData(message, value);
  AppendData(message, negative ? kSevenBits : value / 128);
}

Bytes BuildDump(int channel, int function, std::string_view payload) {
  Bytes message = Begin(channel, function);
  message += Pack7(payload);
  Append(message, kSysExEnd);
  return message;
}

}  // namespace

Bytes SysExHeader(int channel) {
  Bytes header;
  Append(header, kSysExStart);
  Append(header, 0x42);
  Append(header, 0x30 | (channel & 15));
  Append(header, 0x4D);
  return header;
}

int ModeByte(int mode) {
  constexpr std::array<int, 5> kBytes = {0x0A, 0x06, 0x04, 0x0B, 0x02};
  return mode >= 0 && mode < static_cast<int>(kBytes.size()) ? kBytes[static_cast<std::size_t>(mode)] : -1;
}

Bytes BuildModeChange(int channel, int mode) {
  if (ModeByte(mode) < 0) return {};
  Bytes message = Begin(channel, kFunctionMode);
  AppendData(message, ModeByte(mode));
  Append(message, kSysExEnd);
  return message;
}

int ArrParamOffset(int bank) {
  const ProgramSource* source = ProgramSourceOf(bank);
  return source == nullptr ? 0 : source->run;
}

Bytes BuildArrParam(int channel, int bank, int id, int value, int sign) {
  if (id == kProgramNumberParam) value += ArrParamOffset(bank);
  Bytes message = Begin(channel, kFunctionArrParam);
  AppendData(message, id);
  AppendValue(message, value, sign == 1);
  Append(message, kSysExEnd);
  return message;
}

Bytes BuildPrgParam(int channel, int a, int b, int value) {
  Bytes message = Begin(channel, kFunctionPrgParam);
  AppendData(message, a);
  AppendData(message, b);
  AppendValue(message, value, value < 0);
  Append(message, kSysExEnd);
  return message;
}

Bytes PrgParamPause() {
  return Bytes(kPrgParamPauseLength, '\0');
}

Bytes BuildArrDump(int channel, std::string_view image) {
  return BuildDump(channel, kFunctionArrDump, Slice(image, kArrImageRecordsPosition, kArrRecordsLength));
}

Bytes BuildPrgBankDump(int channel, std::string_view image) {
  Bytes payload = Slice(image, kPrgImageRecordsPosition, kPrgRecordsLength);
  if (ByteAt(image, kPggPosition) == 1) {
    for (std::size_t record = 1; record <= kPrgRecordsLength; record += kPrgRecordLength) {
      if (ByteAt(payload, record) == 1) PutBytes(payload, record, Bytes(kLinkWipeLength, '\0'));
    }
  }
  payload += Slice(image, kPrgImageSecondPosition, kPrgSecondLength);
  return BuildDump(channel, kFunctionPrgBankDump, payload);
}

Bytes BuildGlobalDump(int channel, std::string_view image) {
  return BuildDump(channel, kFunctionGlobalDump, Slice(image, kGlobalDumpPosition, kGlobalDumpLength));
}

Bytes BuildBackSeqDump(int channel, std::string_view image) {
  const std::string_view payload = image.substr(std::min(image.size(), kBackSeqDumpPosition - 1));
  const std::size_t events =
      payload.size() < kBackSeqFixedLength ? 0 : (payload.size() - kBackSeqFixedLength) / kBackSeqBlockLength;
  const int low = static_cast<int>(events & 0x7F);
  int high = static_cast<int>(events / 128 & 0x7F);
  high = (events & 0x80) != 0 ? high | 1 : high & 0x3E;

  Bytes message = Begin(channel, kFunctionBackSeqDump);
  Append(message, low);
  Append(message, high);
  message += Pack7(payload);
  Append(message, kSysExEnd);
  return message;
}

int BuildStyleDump(int channel, std::string_view image, int group, Bytes& message) {
  if (group < 0 || group >= kStyGroupCount) return 1;
  const std::string_view part = StylePart(image);
  const int first = group * kStyGroupEntries;
  for (int e = first; e < first + kStyGroupEntries; ++e) {
    if (StyEntrySize(e, part) == 0) return 1;
  }

  Bytes payload;
  int offset = static_cast<int>(kStyleDescriptorsLength);
  for (int e = first; e < first + kStyGroupEntries; ++e) {
    const int size = StyEntrySize(e, part);
    // Low byte, zero, high byte: the instrument wants the offset in this order.
    Append(payload, offset & 0xFF);
    Append(payload, 0);
    Append(payload, offset / 256);
    Append(payload, 0x80 | group);
    Append(payload, size & 0xFF);
    Append(payload, size / 256);
    offset += size;
  }
  std::size_t data_position = kStyHeaderLength + 1;
  for (int e = 0; e < first; ++e) data_position += static_cast<std::size_t>(StyEntrySize(e, part));
  payload += Slice(part, data_position, static_cast<std::size_t>(StyGroupSize(first, part)));
  message = BuildDump(channel, kFunctionStyleDump, payload);
  return 0;
}

Selection BuildSelection(int channel, int controller32, int number) {
  Selection selection;
  selection.words = {ControllerWord(channel, 0, 0), ControllerWord(channel, kBankSelectLow, controller32),
                     ProgramChangeWord(channel, number)};
  for (const std::uint32_t word : selection.words) selection.bytes += ShortMessageBytes(word);
  return selection;
}

Selection BuildArrSelection(int channel, int& number, int bank) {
  if (bank == kKindArrB) number += 64;
  const bool user = bank == kKindArr || bank == kKindNewArr;
  return BuildSelection(channel, user ? 1 : 0, number);
}

Selection BuildProgramSelection(int channel, std::string_view image, int index, ProgramSelectionState& state) {
  const int kind = ByteAt(image, kKindPosition);
  const ProgramSource* source = ProgramSourceOf(kind == kKindPcg ? kKindPrg : kind);
  if (source == nullptr) return BuildSelection(channel, state.controller32, state.number);
  if (source->bank_code == kUserBankCode && IsProgramLink(image, index)) {
    state = {ByteAt(image, ProgramPosition(index) + program_link::kBankCode - 1),
             ByteAt(image, ProgramPosition(index) + program_link::kNumber - 1)};
  } else if (source->bank_code != kDrumBankCode) {
    state = {source->bank_code, source->first + index};
  } else if (DrumKitProgram(index) >= 0) {
    state = {kDrumBankCode, DrumKitProgram(index)};
  }
  return BuildSelection(channel, state.controller32, state.number);
}

int BankChannel(std::string_view image) {
  const int kind = ByteAt(image, kKindPosition);
  const bool file = kind == kKindPrg || kind == kKindPcg;
  return ByteAt(image, file ? kPrgImageChannelPosition : kBankChannelPosition);
}

int ArmedPart(const std::array<int, 19>& slots) {
  for (int i = 0; i < static_cast<int>(slots.size()); ++i) {
    if (slots[static_cast<std::size_t>(i)] != 1) continue;
    return i >= 2 && i % 2 == 0 ? i / 2 - 1 : -1;
  }
  return -1;
}

int DrumKitProgram(int index) {
  return index >= 0 && index < static_cast<int>(kDrumKitPrograms.size())
             ? kDrumKitPrograms[static_cast<std::size_t>(index)]
             : -1;
}

}  // namespace zentaline
