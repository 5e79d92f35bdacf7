// The module-wide state of the texts: the guide and the notebook, as their files' bytes.
#pragma once

#include "base/bytes.h"

namespace zentaline {

inline constexpr std::size_t kGuideLength = 35400;  // a longer guide isn't shown
inline constexpr std::size_t kNoteLength = 32000;

struct AidsState {
  Bytes GuideText;      // kGuideLength bytes once a guide was read, zero bytes behind its end
  int GuideLength = 0;  // of the file
  Bytes NoteText;       // kNoteLength bytes once the notebook was open, padded with blanks
  Bytes NoteFile;       // the notebook's file as it lies on the disk; it may be longer than the text
};

}  // namespace zentaline
