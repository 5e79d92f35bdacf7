#include "base/memory.h"

#include <malloc.h>

namespace zentaline {

void KeepFreedMemory() {
  constexpr int kKept = 64 << 20;
  constexpr int kOwnMapping = 32 << 20;  // larger pieces than these are mapped, and given back, each by itself
  mallopt(M_TRIM_THRESHOLD, kKept);
  mallopt(M_MMAP_THRESHOLD, kOwnMapping);
}

}  // namespace zentaline
