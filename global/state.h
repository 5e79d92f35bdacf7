// The module-wide state of the global data and of the back sequences.
#pragma once

#include "base/bytes.h"
#include "core/edited.h"

namespace zentaline {

inline constexpr std::size_t kGlobalRecordLength = 448;

struct GlobalState {
  EditedBytes GlobalRecord;  // the 448 bytes of the set in the instrument; empty when there is none
  Bytes GblBuffer;           // the file of global data that was read last
  Bytes BsqBuffer;           // the back sequence file that was read last
};

}  // namespace zentaline
