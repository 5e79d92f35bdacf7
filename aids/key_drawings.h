// How the keys of the keyboard on the screen look, where they stand, and what their notes are called. Lengths are
// twips.
#pragma once

#include <memory>
#include <string>

#include "ui/layout.h"
#include "ui/picture.h"

namespace zentaline {

inline constexpr int kKeyCount = 61;  // five octaves from a C to a C
inline constexpr int kNotesOfOctave = 12;

inline constexpr ui::Size kWhiteKey = {200, 1400};
inline constexpr ui::Size kBlackKey = {120, 960};
inline constexpr int kWhiteKeys = 36;
inline constexpr int kWhiteKeysOfOctave = 7;
// A pointer that has passed this line is off the key.
inline constexpr int kWhiteKeyEnd = 1368;
inline constexpr int kBlackKeyEnd = 936;

// The first key is a C, wherever the keyboard begins.
bool IsBlackKey(int key);
int KeyEnd(int key);
// Where the key stands among the others.
ui::Place PlaceOfKey(int key);

// A mark is a black dot on a white key, a green one on a black key.
struct KeyDrawings {
  KeyDrawings();
  const std::shared_ptr<const ui::Drawing>& Of(int key, bool marked) const;

 private:
  std::shared_ptr<const ui::Drawing> white_[2];  // without and with the mark
  std::shared_ptr<const ui::Drawing> black_[2];
};

// "C/Do (60)"
std::string SoundedNoteName(int note);
// " C#4"; 60 is " C4".
std::string SplitPointName(int note);
// "C4" for the octave that begins with this C.
std::string OctaveName(int note);

}  // namespace zentaline
