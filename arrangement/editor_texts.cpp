#include "arrangement/editor_texts.h"

#include <array>
#include <string_view>

#include "arrangement/arr_format.h"

namespace zentaline {

namespace {

constexpr int kNotesOfAnOctave = 12;
constexpr int kLowestNote = 36;
constexpr int kLowestOctave = 2;
constexpr std::array<std::string_view, kNotesOfAnOctave> kNotes = {"C", "C", "D", "D", "E", "F",
                                                                   "F", "G", "G", "A", "A", "B"};
constexpr std::array<bool, kNotesOfAnOctave> kSharps = {false, true,  false, true,  false, false,
                                                        true,  false, true,  false, true,  false};

constexpr std::array<std::string_view, kArrPartCount> kParts = {"Drum", "Percussion", "Bass",   "ACC1", "ACC2",
                                                                "ACC3", "UPPER1",     "UPPER2", "LOWER"};

// Values of the pan's bar.
constexpr int kPanOff = 1;
constexpr int kPanCentre = 17;
constexpr int kPanOfProgram = 33;

constexpr int kUserStylesInADecade = 8;
constexpr int kFirstUserStyle = 11;
constexpr int kFirstUserStyleAbove = 13;

}  // namespace

std::string_view PartName(int part) {
  return part >= 0 && part < kArrPartCount ? kParts[static_cast<std::size_t>(part)] : std::string_view();
}

std::string SplitNoteName(int note) {
  const int above = note < kLowestNote ? 0 : note - kLowestNote;
  const auto step = static_cast<std::size_t>(above % kNotesOfAnOctave);
  return std::string(kNotes[step]) + std::to_string(above / kNotesOfAnOctave + kLowestOctave) +
         (kSharps[step] ? "#" : "");
}

std::string PanText(int value) {
  if (value == kPanOff) return "OFF";
  if (value == kPanCentre) return "CNT";
  if (value == kPanOfProgram) return "PRG";
  return value < kPanCentre ? "L" + std::to_string(kPanCentre - value) : "R" + std::to_string(value - kPanCentre);
}

std::string EffectText(int effect, int type) {
  return "Effect " + std::to_string(effect + 1) + " (" + (type == 0 ? "Off" : std::to_string(type)) + ")";
}

std::string StyleText(int number, int location) {
  if (location == kUserStyleLocation) {
    const int first = number < kUserStylesInADecade ? kFirstUserStyle : kFirstUserStyleAbove;
    return "Style (U" + std::to_string(number + first) + ")";
  }
  return "Style (" + StyleLabel(number) + ")";
}

}  // namespace zentaline
