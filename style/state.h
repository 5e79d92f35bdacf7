// The module-wide state of the style files.
#pragma once

#include <string>

#include "base/bytes.h"

namespace zentaline {

struct StyleState {
  Bytes StyleImage;       // the last file read
  Bytes EmptyStyleImage;  // four empty styles; empty when there is no template
  std::string CurrentStyDir;
  std::string CurrentStyName;
  std::string StyInInstrument;  // base name of the .sty last sent, at most 24 bytes

  // The transmission of a style file: the group that goes out next, and how many there are.
  int StyleGroupIndex = 0;
  int StyleGroupCount = 0;
};

}  // namespace zentaline
