#include "global/pictures.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace zentaline {

namespace {

using ui::Ink;

// Of the height that each count has.
constexpr double kBarTop = 0.2;
constexpr double kBarBottom = 0.8;
constexpr double kWidth = 1000;

// The octave counts in notes to the right.
constexpr int kNotes = 12;
constexpr double kHeight = 6;
constexpr double kBlackHeight = 3.6;
constexpr double kWhiteText = 5;
constexpr double kBlackText = 2.7;
constexpr std::array<const char*, kNotes> kNoteNames = {"C",  "C#", "D",  "D#", "E",  "F",
                                                        "F#", "G",  "G#", "A",  "A#", "B"};

bool IsBlack(int note) {
  return kNoteNames[static_cast<std::size_t>(note)][1] != '\0';
}

// Where a white key begins or ends: in the middle of the black one beside it, or at the white one.
double LeftEdge(int note) {
  return note > 0 && IsBlack(note - 1) ? note - 0.5 : note;
}
double RightEdge(int note) {
  return note + 1 < kNotes && IsBlack(note + 1) ? note + 1.5 : note + 1;
}

ui::Shape NameOf(int note, double height, Ink ink) {
  return ui::Text({note + 0.5, height}, kNoteNames[static_cast<std::size_t>(note)], ink);
}

}  // namespace

ui::Drawing EventsDrawing(std::span<const int> counts) {
  ui::Drawing drawing;
  drawing.size = {kWidth, static_cast<double>(std::max<std::size_t>(counts.size(), 1))};
  const int greatest = counts.empty() ? 0 : *std::max_element(counts.begin(), counts.end());
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const double top = static_cast<double>(i);
    drawing.shapes.push_back(ui::Box({0, top + kBarTop}, {kWidth, top + kBarBottom}, Ink::kPaper));
    if (counts[i] <= 0) continue;
    drawing.shapes.push_back(
        ui::Box({0, top + kBarTop}, {kWidth * counts[i] / greatest, top + kBarBottom}, Ink::kAccent));
  }
  return drawing;
}

ui::Drawing OctaveDrawing() {
  ui::Drawing drawing;
  drawing.size = {kNotes, kHeight};
  drawing.shapes.push_back(ui::Box({0, 0}, {kNotes, kHeight}, Ink::kWhiteKey));
  for (int note = 0; note < kNotes; ++note) {
    if (IsBlack(note)) continue;
    drawing.shapes.push_back(ui::Line({{LeftEdge(note), 0},
                                       {RightEdge(note), 0},
                                       {RightEdge(note), kHeight},
                                       {LeftEdge(note), kHeight},
                                       {LeftEdge(note), 0}},
                                      Ink::kBlackKey));
    drawing.shapes.push_back(NameOf(note, kWhiteText, Ink::kBlackKey));
  }
  for (int note = 0; note < kNotes; ++note) {
    if (!IsBlack(note)) continue;
    const double left = note;
    drawing.shapes.push_back(ui::Box({left + 0.1, 0}, {left + 0.9, kBlackHeight}, Ink::kBlackKey));
    drawing.shapes.push_back(NameOf(note, kBlackText, Ink::kWhiteKey));
  }
  return drawing;
}

}  // namespace zentaline
