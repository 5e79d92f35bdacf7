// A file of arrangements with as many styles as there can be, and a toolkit that names the files to open.
#pragma once

#include <cstddef>
#include <string>

#include "arrangement/arr_format.h"
#include "bench/program.h"
#include "core/window_image.h"
#include "style/sty_format.h"

namespace zentaline::bench {

inline constexpr std::size_t kStyleLength = 18000;  // four of them fit in a group

class AnsweringToolkit : public StartingToolkit {
 public:
  std::string file;

  ui::FileDialogAnswer FileDialog(const ui::FileDialogRequest& request) override {
    return {false, file, request.filter, false};
  }
};

inline Bytes Arrangements(int count) {
  Bytes file = NewArrFile();
  for (int i = 0; i < count; ++i) {
    const std::size_t place = kArrHeaderLength + kArrRecordLength * static_cast<std::size_t>(i);
    file.replace(place, kArrNameLength, Padded("Arrangement " + std::to_string(i), kArrNameLength));
    file[place + arr_record::kStyleNumber] = static_cast<char>(i % kStyEntryCount);
    file[place + arr_record::kStyleLocation] = kUserStyleLocation;
  }
  return file;
}

inline Bytes Styles() {
  Bytes file = Bytes("KORG\x4D\x00\x04\x01", 8) + Bytes(216, '\0');
  for (int e = 0; e < kStyEntryCount; ++e) {
    const std::size_t place = kStySizeOffset + 4 * static_cast<std::size_t>(e);
    file[place] = static_cast<char>(kStyleLength % 256);
    file[place + 1] = static_cast<char>(kStyleLength / 256);
    file += Padded("Style " + std::to_string(e), kStyNameLength) +
            Bytes(kStyleLength - kStyNameLength, static_cast<char>(e));
  }
  return file;
}

inline Bytes Template() {
  Bytes file = Bytes("KORG\x4D\x00\x04\x01", 8) + Bytes(kStyTemplateLength - 8, '\0');
  for (std::size_t e = 0; e < kStyGroupEntries; ++e) {
    file[kStySizeOffset + 4 * e] = static_cast<char>(kStyTemplateEntryLength % 256);
    file[kStySizeOffset + 4 * e + 1] = static_cast<char>(kStyTemplateEntryLength / 256);
    const std::size_t name = kStyHeaderLength + kStyTemplateEntryLength * e;
    file.replace(name, kStyNameLength, Padded("- empty -", kStyNameLength));
  }
  return file;
}

}  // namespace zentaline::bench
