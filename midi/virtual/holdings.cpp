// What the virtual instrument tells of itself.
#include "base/panel_numbers.h"
#include "midi/virtual/instrument.h"

namespace zentaline {

namespace {

constexpr std::array<const char*, 5> kModeTexts = {"ARR PLAY", "SONG PLAY", "GLOBAL", "BACK.SEQ.", "PROGRAM"};

class Table {
 public:
  void Number(const std::string& name, int number) { values_.push_back({name, true, number, {}}); }
  void Text(const std::string& name, const std::string& text) { values_.push_back({name, false, 0, text}); }
  // Single bytes of a file, as they came.
  void Name(const std::string& name, std::string_view bytes) { Text(name, Utf8FromBytes(bytes)); }
  std::vector<HeldValue> Take() { return std::move(values_); }

 private:
  std::vector<HeldValue> values_;
};

std::string At(const char* name, const std::string& index) {
  return std::string(name) + "(" + index + ")";
}

// The letter and place of one of two banks of 64 that share a bank number.
std::string PlaceInPair(const char* first, const char* second, int number) {
  return std::string(number < 64 ? first : second) + " " + PanelNumberText(number % 64);
}

std::string WithName(const std::string& place, const Bytes& name) {
  return name.empty() ? place : place + " " + Utf8FromBytes(name);
}

std::string ProgramText(const VirtualInstrument& instrument, const VirtualInstrument::Channel& channel) {
  const int number = channel.program;
  switch (channel.program_bank_low) {
    case 0:
      return PlaceInPair("A", "B", number);
    case 1:
      return PlaceInPair("C", "D", number);
    case 2:
      return number < 64 ? "E " + PanelNumberText(number) : "bank 2 program " + std::to_string(number);
    case 3:
      return number < 64 ? WithName("F/User " + PanelNumberText(number), instrument.ProgramName(number))
                         : "bank 3 program " + std::to_string(number);
    case 4:
      return "Drum " + std::to_string(number);
    case -1:
      return "program " + std::to_string(number);
    default:
      return "bank " + std::to_string(channel.program_bank_low) + " program " + std::to_string(number);
  }
}

std::string ArrangementText(const VirtualInstrument& instrument,
                            const VirtualInstrument::ArrangementSelection& selection) {
  if (selection.bank == 0) return PlaceInPair("A", "B", selection.number);
  if (selection.number >= VirtualInstrument::kArrangements) return "User " + std::to_string(selection.number);
  return WithName("User " + PanelNumberText(selection.number), instrument.ArrangementName(selection.number));
}

// The count of the bank's places that have a name, and their names.
template <typename NameOf>
void TellBank(Table& table, const char* count_name, const char* name, int places, NameOf name_of) {
  int filled = 0;
  for (int i = 0; i < places; ++i) filled += name_of(i).empty() ? 0 : 1;
  table.Number(count_name, filled);
  for (int i = 0; i < places; ++i) {
    if (const Bytes text = name_of(i); !text.empty()) table.Name(At(name, PanelNumberText(i)), text);
  }
}

void TellStyles(Table& table, const VirtualInstrument& instrument) {
  int groups = 0;
  int styles = 0;
  for (int i = 0; i < VirtualInstrument::kStyles; ++i) {
    const bool held = !instrument.Style(i).empty();
    const Bytes name = instrument.StyleName(i);
    groups += held && i % 4 == 0 ? 1 : 0;
    styles += held && !name.empty() && name != "- empty -" ? 1 : 0;
  }
  table.Number("styleGroups", groups);
  table.Number("styles", styles);
  for (int i = 0; i < VirtualInstrument::kStyles; ++i) {
    const Bytes& style = instrument.Style(i);
    if (style.empty()) continue;
    table.Name(At("style", PanelNumberText(i)), instrument.StyleName(i));
    table.Number(At("styleSize", PanelNumberText(i)), static_cast<int>(style.size()));
  }
}

void TellChannels(Table& table, const VirtualInstrument& instrument) {
  const auto each = [&](auto tell) {
    for (int c = 0; c < VirtualInstrument::kChannels; ++c) tell(std::to_string(c + 1), instrument.ChannelState(c));
  };
  each([&](const std::string& number, const VirtualInstrument::Channel& channel) {
    if (channel.program >= 0) table.Text(At("selection", number), ProgramText(instrument, channel));
  });
  each([&](const std::string& number, const VirtualInstrument::Channel& channel) {
    for (std::size_t k = 0; k < channel.controllers.size(); ++k) {
      const int value = channel.controllers[k];
      if (value >= 0) table.Number(At("controller", number + "," + std::to_string(k)), value);
    }
  });
  each([&](const std::string& number, const VirtualInstrument::Channel& channel) {
    if (channel.bend >= 0) table.Number(At("bend", number), channel.bend);
  });
  each([&](const std::string& number, const VirtualInstrument::Channel& channel) {
    if (const int notes = channel.SoundingNotes()) table.Number(At("notes", number), notes);
  });
}

}  // namespace

std::vector<HeldValue> VirtualInstrument::Holdings() const {
  Table table;
  table.Text("mode", mode_ < 0 ? "" : kModeTexts[static_cast<std::size_t>(mode_)]);
  table.Number("channel", sysex_channel_ + 1);
  TellBank(table, "arrangements", "arrangement", kArrangements, [&](int i) { return ArrangementName(i); });
  table.Text("currentArrangement", current_arrangement_ ? ArrangementText(*this, *current_arrangement_) : "");
  TellBank(table, "programs", "program", kPrograms, [&](int i) { return ProgramName(i); });
  TellStyles(table, *this);
  table.Number("globalData", static_cast<int>(global_data_.size()));
  table.Number("backSequences", back_sequences_.empty() ? 0 : kBackSequences);
  for (int i = 0; i < kBackSequences; ++i) {
    if (const Bytes name = BackSequenceName(i); !name.empty()) {
      table.Name(At("backSequence", std::to_string(i + 1)), name);
    }
  }
  table.Number("arrangementEdits", arrangement_edits_);
  if (arrangement_edits_ > 0) {
    table.Text("lastArrangementEdit", "id " + std::to_string(last_arrangement_edit_.id) + " value " +
                                          std::to_string(last_arrangement_edit_.value));
  }
  table.Number("programEdits", program_edits_);
  if (program_edits_ > 0) {
    table.Text("lastProgramEdit", "a " + std::to_string(last_program_edit_.a) + " b " +
                                      std::to_string(last_program_edit_.b) + " value " +
                                      std::to_string(last_program_edit_.value));
  }
  TellChannels(table, *this);
  table.Number("longMessages", long_messages_);
  table.Number("shortMessages", short_messages_);
  table.Number("bytes", bytes_);
  table.Number("complaints", complaint_count_);
  for (std::size_t i = 0; i < complaints_.size(); ++i) {
    table.Text(At("complaint", std::to_string(i + 1)), complaints_[i]);
  }
  return table.Take();
}

}  // namespace zentaline
