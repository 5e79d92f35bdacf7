// The module-wide state of the keyboard on the screen, and of the texts: the guide and the notebook, as their files'
// bytes.
#pragma once

#include "base/bytes.h"

namespace zentaline {

inline constexpr std::size_t kGuideLength = 35400;  // a longer guide isn't shown
inline constexpr std::size_t kNoteLength = 32000;

inline constexpr int kLowestNote = 12;  // of those that the keyboard plays
inline constexpr int kHighestNote = 108;
inline constexpr std::size_t kPlayedNotes = kHighestNote - kLowestNote + 1;
inline constexpr int kNoNote = 200;

struct AidsState {
  int FirstNote = kLowestNote;  // of the first key
  int CurrentNote = kNoNote;    // the last one that the mouse has sounded
  int ChordState = 0;           // 1 while a held chord is in force
  // A byte for each of the notes, 1 for one that is held.
  Bytes HeldNotes = Bytes(kPlayedNotes, '\0');
  Bytes ChordNotes = Bytes(kPlayedNotes, '\0');  // those of the chord as it was taken

  Bytes GuideText;      // kGuideLength bytes once a guide was read, zero bytes behind its end
  int GuideLength = 0;  // of the file
  Bytes NoteText;       // kNoteLength bytes once the notebook was open, padded with blanks
  Bytes NoteFile;       // the notebook's file as it lies on the disk; it may be longer than the text
};

}  // namespace zentaline
