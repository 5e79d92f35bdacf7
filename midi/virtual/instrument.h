// An instrument that exists only here: it takes what a real one would be sent, keeps it, and complains of every message
// that a real one could not understand. A message that is complained of changes nothing.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace zentaline {

// One thing that the instrument holds, for people to read. Text is UTF-8.
struct HeldValue {
  std::string name;
  bool is_number = false;
  int number = 0;
  std::string text;

  bool operator==(const HeldValue&) const = default;
};

class VirtualInstrument {
 public:
  static constexpr int kArrangements = 64;
  static constexpr int kPrograms = 64;
  static constexpr int kStyles = 16;
  static constexpr int kBackSequences = 10;
  static constexpr int kChannels = 16;
  static constexpr std::size_t kComplaintsKept = 100;

  // What a channel message left behind on a channel. -1 where nothing came yet.
  struct Channel {
    int bank_high = -1;  // controller 0
    int bank_low = -1;   // controller 32
    std::array<int, 128> controllers;
    int bend = -1;                // 0 to 16383
    std::array<bool, 128> notes;  // the keys that sound
    // The last program change, with the banks as they stood when it came.
    int program = -1, program_bank_high = -1, program_bank_low = -1;

    Channel();
    int SoundingNotes() const;
  };

  // `bank` 0: the factory banks, `number` 0 to 127; 1: the user bank, `number` 0 to 63 (larger ones come as they are).
  struct ArrangementSelection {
    int bank = 0, number = 0;
  };

  // One long message, one short message (the bytes of the wire).
  void Long(std::string_view bytes);
  void Short(std::string_view bytes);

  // Program changes on this channel (0 to 15, 0 at first) call up arrangements while the mode is ARR PLAY.
  void SetArrangementChannel(int channel) { arrangement_channel_ = channel; }

  // What is held, in this order; rows in brackets only where they are filled. Places of arrangements, programs and
  // styles are the two digits of the instrument's panel (11 to 88), channels 1 to 16, the rest counts from 1.
  //
  //   mode channel
  //   arrangements arrangement(P)... currentArrangement
  //   programs program(P)...
  //   styleGroups styles style(P) styleSize(P)...
  //   globalData backSequences backSequence(N)...
  //   arrangementEdits lastArrangementEdit programEdits lastProgramEdit
  //   selection(C)... controller(C,K)... bend(C)... notes(C)...
  //   longMessages shortMessages bytes complaints complaint(N)...
  std::vector<HeldValue> Holdings() const;

  int Mode() const { return mode_; }                   // 0 to 4; -1 before the first mode change
  int SysExChannel() const { return sysex_channel_; }  // of the last message, 0 to 15; -1 before the first
  // Whole payloads, empty before the first: 64 records of 164 bytes; 64 of 172 and 2104 bytes more; 415 bytes; the
  // back sequences without the file's header.
  const Bytes& Arrangements() const { return arrangements_; }
  const Bytes& Programs() const { return programs_; }
  const Bytes& GlobalData() const { return global_data_; }
  const Bytes& BackSequences() const { return back_sequences_; }
  // The name and data of a style, 0 to 15; empty when its group was never sent.
  const Bytes& Style(int style) const { return styles_[static_cast<std::size_t>(style)]; }
  // Names without the blanks at their end, as the file's bytes; empty for what is not there.
  Bytes ArrangementName(int number) const;
  Bytes ProgramName(int number) const;
  Bytes StyleName(int style) const;
  Bytes BackSequenceName(int number) const;
  const std::optional<ArrangementSelection>& CurrentArrangement() const { return current_arrangement_; }
  const Channel& ChannelState(int channel) const { return channels_[static_cast<std::size_t>(channel)]; }
  // The first kComplaintsKept of them, as sentences, and how many there were.
  const std::vector<std::string>& Complaints() const { return complaints_; }
  int ComplaintCount() const { return complaint_count_; }

 private:
  struct ArrangementEdit {
    int id = 0, value = 0;
  };
  struct ProgramEdit {
    int a = 0, b = 0, value = 0;
  };

  void Complain(const std::string& what);
  void Frame(std::string_view bytes);
  void Mode(std::string_view data);
  void EditArrangement(std::string_view data);
  void EditProgram(std::string_view data);
  void TakeDump(std::string_view packed, std::size_t length, Bytes& kept);
  void TakeStyles(std::string_view packed);
  void TakeBackSequences(std::string_view data);
  bool UnpackDump(std::string_view packed, Bytes& data);
  void Control(Channel& channel, int controller, int value);
  void SelectProgram(int number, int channel_number);

  int mode_ = -1;
  int sysex_channel_ = -1;
  int arrangement_channel_ = 0;
  Bytes arrangements_;
  Bytes programs_;
  Bytes global_data_;
  Bytes back_sequences_;
  std::array<Bytes, kStyles> styles_;
  std::array<Channel, kChannels> channels_;
  std::optional<ArrangementSelection> current_arrangement_;
  int arrangement_edits_ = 0;
  int program_edits_ = 0;
  ArrangementEdit last_arrangement_edit_;
  ProgramEdit last_program_edit_;
  bool zeros_due_ = false;  // the last message was a program edit
  std::string message_;     // "Long message 3", for complaints
  int long_messages_ = 0;
  int short_messages_ = 0;
  int bytes_ = 0;
  std::vector<std::string> complaints_;
  int complaint_count_ = 0;
};

}  // namespace zentaline
