#include "midi/virtual/instrument.h"

#include <algorithm>

#include "midi/virtual/unpack.h"

namespace zentaline {

namespace {

// Told here once more, and not taken from the code that builds the messages: a slip there must not be understood here.
constexpr int kStart = 0xF0;
constexpr int kEnd = 0xF7;
constexpr int kKorg = 0x42;
constexpr int kModel = 0x4D;
constexpr std::size_t kHeaderLength = 5;  // up to the function code

constexpr int kFunctionArrangementEdit = 0x41;
constexpr int kFunctionPrograms = 0x4C;
constexpr int kFunctionMode = 0x4E;
constexpr int kFunctionGlobal = 0x51;
constexpr int kFunctionProgramEdit = 0x60;
constexpr int kFunctionArrangements = 0x64;
constexpr int kFunctionStyles = 0x65;
constexpr int kFunctionBackSequences = 0x66;

constexpr std::array<int, 5> kModeBytes = {0x0A, 0x06, 0x04, 0x0B, 0x02};
constexpr int kModeArrPlay = 0;

constexpr std::size_t kArrangementSize = 164;
constexpr std::size_t kProgramSize = 172;
constexpr std::size_t kProgramsSize = 13112;
constexpr std::size_t kGlobalSize = 415;
constexpr std::size_t kNameLength = 16;
constexpr std::size_t kBackSequenceEntry = 198;
constexpr std::size_t kBackSequenceName = 10;
constexpr std::size_t kBackSequencesHead = 2322;  // entries, tables and the closing word
constexpr std::size_t kEventBlock = 16;
constexpr std::size_t kDescriptorSize = 6;
constexpr std::size_t kStylesInGroup = 4;

constexpr int kControllerBankHigh = 0;
constexpr int kControllerBankLow = 32;
constexpr int kControllerAllNotesOff = 123;

std::string Hex(int byte) {
  return HexText(Bytes(1, static_cast<char>(byte)));
}

std::string Count(std::size_t count) {
  return std::to_string(count);
}

// Seven-bit halves, low first; a high half of 7F stands for a negative number above -129.
int EditValue(std::string_view data, std::size_t position) {
  const int low = ByteAt(data, position);
  const int high = ByteAt(data, position + 1);
  return high == 0x7F ? low - 128 : low + 128 * high;
}

// The name in a record of a bank; empty when the bank or the record was never written.
Bytes NameAt(const Bytes& bank, std::size_t offset, std::size_t length) {
  if (ByteAt(bank, offset + 1) == 0) return {};
  return Bytes(TrimRight(Slice(bank, offset + 1, length)));
}

}  // namespace

VirtualInstrument::Channel::Channel() {
  controllers.fill(-1);
  notes.fill(false);
}

int VirtualInstrument::Channel::SoundingNotes() const {
  return static_cast<int>(std::count(notes.begin(), notes.end(), true));
}

Bytes VirtualInstrument::ArrangementName(int number) const {
  return NameAt(arrangements_, static_cast<std::size_t>(number) * kArrangementSize, kNameLength);
}

Bytes VirtualInstrument::ProgramName(int number) const {
  return NameAt(programs_, static_cast<std::size_t>(number) * kProgramSize, kNameLength);
}

Bytes VirtualInstrument::StyleName(int style) const {
  return NameAt(Style(style), 0, kNameLength);
}

Bytes VirtualInstrument::BackSequenceName(int number) const {
  return NameAt(back_sequences_, static_cast<std::size_t>(number) * kBackSequenceEntry, kBackSequenceName);
}

void VirtualInstrument::Complain(const std::string& what) {
  ++complaint_count_;
  if (complaints_.size() < kComplaintsKept) complaints_.push_back(message_ + ": " + what + ".");
}

void VirtualInstrument::Long(std::string_view bytes) {
  message_ = "Long message " + std::to_string(++long_messages_);
  bytes_ += static_cast<int>(bytes.size());
  const bool zeros = bytes == std::string(20, '\0');
  if (zeros && !zeros_due_) Complain("zero bytes without a program edit before them");
  if (!zeros && zeros_due_) Complain("the 20 zero bytes after a program edit are missing before it");
  zeros_due_ = false;
  if (!zeros) Frame(bytes);
}

void VirtualInstrument::Frame(std::string_view bytes) {
  if (bytes.empty()) return Complain("it is empty");
  if (ByteAt(bytes, 1) != kStart) return Complain("it begins with " + Hex(ByteAt(bytes, 1)) + ", not with F0");
  if (ByteAt(bytes, bytes.size()) != kEnd) return Complain("it does not end with F7");
  if (bytes.size() < kHeaderLength + 1) return Complain("it is too short for a header and a function");
  for (std::size_t position = 2; position < bytes.size(); ++position) {
    const int byte = ByteAt(bytes, position);
    if (byte > 0x7F) return Complain("the byte at offset " + Count(position - 1) + " is " + Hex(byte) + ", above 7F");
  }
  if (ByteAt(bytes, 2) != kKorg) return Complain("the maker is " + Hex(ByteAt(bytes, 2)) + ", not 42");
  const int format = ByteAt(bytes, 3);
  if (format < 0x30 || format > 0x3F) return Complain("format and channel are " + Hex(format) + ", not 30 to 3F");
  if (ByteAt(bytes, 4) != kModel) return Complain("the model is " + Hex(ByteAt(bytes, 4)) + ", not 4D");

  const int complaints_before = complaint_count_;
  const int function = ByteAt(bytes, kHeaderLength);
  const std::string_view data = bytes.substr(kHeaderLength, bytes.size() - kHeaderLength - 1);
  message_ += ", function " + Hex(function);
  switch (function) {
    case kFunctionMode:
      Mode(data);
      break;
    case kFunctionArrangementEdit:
      EditArrangement(data);
      break;
    case kFunctionProgramEdit:
      EditProgram(data);
      break;
    case kFunctionPrograms:
      TakeDump(data, kProgramsSize, programs_);
      break;
    case kFunctionGlobal:
      TakeDump(data, kGlobalSize, global_data_);
      break;
    case kFunctionArrangements:
      TakeDump(data, kArrangements * kArrangementSize, arrangements_);
      break;
    case kFunctionStyles:
      TakeStyles(data);
      break;
    case kFunctionBackSequences:
      TakeBackSequences(data);
      break;
    default:
      Complain("there is no such function");
  }
  if (complaint_count_ == complaints_before) sysex_channel_ = format - 0x30;
}

void VirtualInstrument::Mode(std::string_view data) {
  if (data.size() != 1) return Complain("a mode is one byte, not " + Count(data.size()));
  const auto found = std::find(kModeBytes.begin(), kModeBytes.end(), ByteAt(data, 1));
  if (found == kModeBytes.end()) return Complain("there is no mode " + Hex(ByteAt(data, 1)));
  mode_ = static_cast<int>(found - kModeBytes.begin());
}

void VirtualInstrument::EditArrangement(std::string_view data) {
  if (data.size() != 3) return Complain("an arrangement edit is 3 bytes, not " + Count(data.size()));
  ++arrangement_edits_;
  last_arrangement_edit_ = {ByteAt(data, 1), EditValue(data, 2)};
}

void VirtualInstrument::EditProgram(std::string_view data) {
  if (data.size() != 4) return Complain("a program edit is 4 bytes, not " + Count(data.size()));
  ++program_edits_;
  last_program_edit_ = {ByteAt(data, 1), ByteAt(data, 2), EditValue(data, 3)};
  zeros_due_ = true;
}

bool VirtualInstrument::UnpackDump(std::string_view packed, Bytes& data) {
  Unpacked unpacked = Unpack(packed);
  if (!unpacked.fault.empty()) Complain(unpacked.fault);
  data = std::move(unpacked.data);
  return unpacked.fault.empty();
}

void VirtualInstrument::TakeDump(std::string_view packed, std::size_t length, Bytes& kept) {
  Bytes data;
  if (!UnpackDump(packed, data)) return;
  if (data.size() != length) return Complain("it holds " + Count(data.size()) + " bytes, not " + Count(length));
  kept = std::move(data);
}

void VirtualInstrument::TakeStyles(std::string_view packed) {
  Bytes data;
  if (!UnpackDump(packed, data)) return;
  std::size_t offset = kStylesInGroup * kDescriptorSize;
  if (data.size() < offset) return Complain("it is too short for the descriptors of four styles");
  const int group = ByteAt(data, 4) & 0x7F;
  if (group > 3) return Complain("there is no style group " + Count(static_cast<std::size_t>(group)));
  std::array<Bytes, kStylesInGroup> styles;
  for (std::size_t i = 0; i < kStylesInGroup; ++i) {
    const std::string style = "style " + Count(i + 1) + " of the group";
    const std::size_t descriptor = 1 + i * kDescriptorSize;
    const std::size_t size = static_cast<std::size_t>(WordLowFirst(data, descriptor + 4));
    if (ByteAt(data, descriptor) != static_cast<int>(offset & 0xFFU) || ByteAt(data, descriptor + 1) != 0 ||
        ByteAt(data, descriptor + 2) != static_cast<int>(offset >> 8 & 0xFFU)) {
      return Complain("the offset of " + style + " is not " + Count(offset));
    }
    if (ByteAt(data, descriptor + 3) != (0x80 | group)) return Complain(style + " names another group");
    if (size < kNameLength) return Complain(style + " has " + Count(size) + " bytes, too few for its name");
    if (offset + size > data.size()) return Complain("the data of " + style + " are missing or cut off");
    styles[i] = data.substr(offset, size);
    offset += size;
  }
  if (offset != data.size()) return Complain(Count(data.size() - offset) + " bytes follow the last style");
  std::move(styles.begin(), styles.end(), styles_.begin() + group * static_cast<int>(kStylesInGroup));
}

void VirtualInstrument::TakeBackSequences(std::string_view data) {
  if (data.size() < 2) return Complain("the count of events is missing");
  const std::size_t blocks = static_cast<std::size_t>(ByteAt(data, 1) + 128 * ByteAt(data, 2));
  Bytes unpacked;
  if (!UnpackDump(data.substr(2), unpacked)) return;
  if (unpacked.size() < kBackSequencesHead) return Complain("it is too short for ten back sequences");
  const std::size_t length = unpacked.size() - kBackSequencesHead;
  if (length / kEventBlock != blocks) {
    return Complain("it says " + Count(blocks) + " blocks of events and holds " + Count(length / kEventBlock));
  }
  back_sequences_ = std::move(unpacked);
}

void VirtualInstrument::Short(std::string_view bytes) {
  message_ = "Short message " + std::to_string(++short_messages_);
  bytes_ += static_cast<int>(bytes.size());
  if (zeros_due_) Complain("the 20 zero bytes after a program edit are missing before it");
  zeros_due_ = false;
  const int status = ByteAt(bytes, 1);
  if (status < 0x80 || status > 0xEF) return Complain("there is no channel message " + Hex(status));
  const std::size_t length = (status & 0xE0) == 0xC0 ? 2 : 3;
  if (bytes.size() != length) return Complain("it has " + Count(bytes.size()) + " bytes, not " + Count(length));
  const int first = ByteAt(bytes, 2);
  const int second = ByteAt(bytes, 3);
  if (first > 0x7F || second > 0x7F) return Complain("a data byte is above 7F");
  Channel& channel = channels_[static_cast<std::size_t>(status & 0x0F)];
  switch (status & 0xF0) {
    case 0x80:
      channel.notes[static_cast<std::size_t>(first)] = false;
      break;
    case 0x90:
      channel.notes[static_cast<std::size_t>(first)] = second > 0;
      break;
    case 0xB0:
      Control(channel, first, second);
      break;
    case 0xC0:
      SelectProgram(first, status & 0x0F);
      break;
    case 0xE0:
      channel.bend = first + 128 * second;
      break;
    default:
      Complain("pressure is not understood");
  }
}

void VirtualInstrument::Control(Channel& channel, int controller, int value) {
  if (controller == kControllerBankHigh) channel.bank_high = value;
  if (controller == kControllerBankLow) channel.bank_low = value;
  if (controller == kControllerAllNotesOff) channel.notes.fill(false);
  channel.controllers[static_cast<std::size_t>(controller)] = value;
}

void VirtualInstrument::SelectProgram(int number, int channel_number) {
  Channel& channel = channels_[static_cast<std::size_t>(channel_number)];
  const bool plays_arrangements = mode_ == kModeArrPlay || mode_ == -1;
  const bool arrangement_bank = channel.bank_low == 0 || channel.bank_low == 1;
  if (plays_arrangements && channel_number == arrangement_channel_ && arrangement_bank) {
    current_arrangement_ = {channel.bank_low, number};
    return;
  }
  channel.program = number;
  channel.program_bank_high = channel.bank_high;
  channel.program_bank_low = channel.bank_low;
}

}  // namespace zentaline
