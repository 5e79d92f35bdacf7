// The list of multisample names as the program reads it.
#pragma once

#include <string>

#include "tools/factory/source.h"

namespace zentaline::factory {

// `path` names one multisample a line, 519 of them from number 0 on, each of at most ten characters. Blank lines count
// as names without letters, lines that begin with "#" are left out.
Bytes MultisampleFile(const std::string& path, Problems& problems);

}  // namespace zentaline::factory
