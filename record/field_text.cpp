#include "record/field_text.h"

#include <charconv>

namespace zentaline {

namespace {

constexpr int kNotesOfAnOctave = 12;
constexpr std::array<std::string_view, kNotesOfAnOctave> kNotes = {"C",  "C#", "D",  "D#", "E",  "F",
                                                                   "F#", "G",  "G#", "A",  "A#", "B"};
constexpr int kLowestSplitNote = 36;
constexpr int kPanCentre = 16;
constexpr int kPanOfProgram = 32;  // behind R15
constexpr int kBalanceEnd = 100;
constexpr int kRatioRight = 1;
constexpr int kRatioLeft = 101;

std::string PanText(int pan) {
  if (pan == 0) return "OFF";
  if (pan == kPanCentre) return "CNT";
  if (pan == kPanOfProgram) return "PRG";
  return pan < kPanCentre ? "L" + std::to_string(kPanCentre - pan) : "R" + std::to_string(pan - kPanCentre);
}

std::string BalanceText(int value) {
  if (value == 0) return "DRY";
  return value == kBalanceEnd ? "FX" : std::to_string(value);
}

std::string RatioText(int value) {
  if (value == 0) return "OFF";
  if (value == kRatioRight) return "R";
  if (value == kRatioLeft) return "L";
  return std::to_string(value - kRatioRight) + ":" + std::to_string(kRatioLeft - value);
}

std::optional<int> WholeNumber(std::string_view text) {
  if (!text.empty() && text[0] == '+') text.remove_prefix(1);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

std::string NoteNameText(int note) {
  return std::string(kNotes[static_cast<std::size_t>(note % kNotesOfAnOctave)]) +
         std::to_string(note / kNotesOfAnOctave - 1);
}

std::string SplitNoteName(int note) {
  const int shown = std::max(note, kLowestSplitNote);
  const std::string_view name = kNotes[static_cast<std::size_t>(shown % kNotesOfAnOctave)];
  return std::string(name.substr(0, 1)) + std::to_string(shown / kNotesOfAnOctave - 1) + std::string(name.substr(1));
}

std::string FieldText(const Field& field, int shown) {
  switch (field.view) {
    case FieldView::kList:
      return std::string(field.list[static_cast<std::size_t>(shown)]);
    case FieldView::kSwitch:
      return shown == 0 ? "OFF" : "ON";
    case FieldView::kNote:
      return NoteNameText(shown);
    case FieldView::kSplitNote:
      return SplitNoteName(shown);
    case FieldView::kPan:
      return PanText(shown);
    case FieldView::kPartPan:
      return PanText(shown - 1);
    case FieldView::kBalance:
      return BalanceText(shown);
    case FieldView::kRatio:
      return RatioText(shown);
    case FieldView::kNormal:
      return shown == 0 ? "Normal" : std::to_string(shown);
    case FieldView::kNumber:
      break;
  }
  return std::to_string(shown);
}

std::optional<int> ValueOfText(const Field& field, std::string_view text) {
  const std::string_view wanted = Trim(text);
  const std::optional<int> number = WholeNumber(wanted);
  for (int shown = field.range.low; shown <= field.range.high; ++shown) {
    const std::string here = FieldText(field, shown);
    if (Trim(here) == wanted || (number && WholeNumber(Trim(here)) == number)) return shown;
  }
  return std::nullopt;
}

std::string FieldKey(const Field& field, const FieldBlock& block, int n) {
  std::string key(field.key);
  const std::size_t place = key.find('#');
  if (place != std::string::npos) key.replace(place, 1, block.tags[static_cast<std::size_t>(n)]);
  return key;
}

std::string FieldOwner(const Field& field, const FieldBlock& block, int n) {
  const std::string name(block.names[static_cast<std::size_t>(n)]);
  if (field.group.empty() || name.empty()) return std::string(field.group) + name;
  return std::string(field.group) + ", " + name;
}

}  // namespace zentaline
