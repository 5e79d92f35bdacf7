// The tests' own way to what the program changes through app.edits alone: to put an image, a record or a flag as a test
// needs it, without an action.
#pragma once

#include "core/child_window.h"
#include "core/edited.h"

namespace zentaline::test {

inline Bytes& ImageFor(ChildWindow& window) {
  return const_cast<Bytes&>(window.window_image());
}
inline Bytes& BytesFor(EditedBytes& bytes) {
  return const_cast<Bytes&>(bytes.value());
}
inline bool& FlagFor(EditedFlag& flag) {
  return const_cast<bool&>(flag.value());
}

}  // namespace zentaline::test
