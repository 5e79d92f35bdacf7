// What fuzz programs begin with: the data files, each wrapped as the program of its name takes it.
#pragma once

#include <map>
#include <string>

#include "base/bytes.h"

namespace zentaline::factory {

// By the fuzz program's name without "fuzz_" and a name of the seed's own: "sty/First Steps.sty". `made` are the files
// that the tool makes, by their names.
std::map<std::string, Bytes> SeedFiles(const std::map<std::string, Bytes>& made);

}  // namespace zentaline::factory
