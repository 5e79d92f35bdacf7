// The user's guide as it ships.
#pragma once

#include <string>

#include "tools/factory/source.h"

namespace zentaline::factory {

// The text of a UTF-8 file with a line feed at each end of line, in Windows-1252 with carriage return and line feed.
// Lines are at most 78 characters, the whole below `limit` bytes.
Bytes GuideFile(const std::string& path, std::size_t limit, Problems& problems);

}  // namespace zentaline::factory
