#include "aids/key_drawings.h"

#include <array>

namespace zentaline {

namespace {

using ui::Ink;

constexpr std::array<bool, kNotesOfOctave> kBlack = {false, true,  false, true,  false, false,
                                                     true,  false, true,  false, true,  false};
constexpr std::array<const char*, kNotesOfOctave> kNames = {"C",  "C#", "D",  "D#", "E",  "F",
                                                            "F#", "G",  "G#", "A",  "A#", "B"};
constexpr std::array<const char*, kNotesOfOctave> kSungNames = {"Do",  "Do#", "Re",   "Re#", "Mi",  "Fa",
                                                                "Fa#", "Sol", "Sol#", "La",  "La#", "Si"};

struct Mark {
  ui::Point centre;
  double radius;
  Ink ink;
};
constexpr Mark kWhiteMark = {{100, 1175}, 66, Ink::kBlackKey};
constexpr Mark kBlackMark = {{60, 711}, 62, Ink::kKeyMark};

std::size_t InOctave(int note) {
  return static_cast<std::size_t>(note % kNotesOfOctave);
}

int OctaveOf(int note) {
  return note / kNotesOfOctave - 1;
}

std::shared_ptr<const ui::Drawing> Drawn(ui::Size size, Ink ink, const Mark* mark) {
  ui::Drawing drawing;
  drawing.size = {static_cast<double>(size.width), static_cast<double>(size.height)};
  drawing.shapes.push_back(ui::Box({0, 0}, drawing.size, ink));
  drawing.shapes.push_back(ui::Line({{0, 0}, {0, drawing.size.y}}, Ink::kKeyEdge));
  drawing.shapes.push_back(ui::Line({{0, drawing.size.y}, drawing.size}, Ink::kKeyEdge, 3));
  if (mark != nullptr) drawing.shapes.push_back(ui::Disc(mark->centre, mark->radius, mark->ink));
  return std::make_shared<const ui::Drawing>(std::move(drawing));
}

}  // namespace

bool IsBlackKey(int key) {
  return kBlack[InOctave(key)];
}

int KeyEnd(int key) {
  return IsBlackKey(key) ? kBlackKeyEnd : kWhiteKeyEnd;
}

ui::Place PlaceOfKey(int key) {
  int whites = 0;  // before it
  for (int i = 0; i < key; ++i) whites += IsBlackKey(i) ? 0 : 1;
  const int left = whites * kWhiteKey.width;
  if (!IsBlackKey(key)) return {left, 0, kWhiteKey.width, kWhiteKey.height};
  // Half over each of its neighbours.
  return {left - kBlackKey.width / 2, 0, kBlackKey.width, kBlackKey.height};
}

KeyDrawings::KeyDrawings()
    : white_{Drawn(kWhiteKey, Ink::kWhiteKey, nullptr), Drawn(kWhiteKey, Ink::kWhiteKey, &kWhiteMark)},
      black_{Drawn(kBlackKey, Ink::kBlackKey, nullptr), Drawn(kBlackKey, Ink::kBlackKey, &kBlackMark)} {}

const std::shared_ptr<const ui::Drawing>& KeyDrawings::Of(int key, bool marked) const {
  return (IsBlackKey(key) ? black_ : white_)[marked ? 1 : 0];
}

std::string SoundedNoteName(int note) {
  return std::string(kNames[InOctave(note)]) + "/" + kSungNames[InOctave(note)] + " (" + std::to_string(note) + ")";
}

std::string SplitPointName(int note) {
  return std::string(" ") + kNames[InOctave(note)] + std::to_string(OctaveOf(note));
}

std::string OctaveName(int note) {
  return "C" + std::to_string(OctaveOf(note));
}

}  // namespace zentaline
