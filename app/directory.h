// The working directory.
#pragma once

#include <string>

namespace zentaline {

// Makes it the current one; an empty name is that of the current one. Its name is absolute and without a separator at
// its end; empty when it is no directory that can be entered.
std::string EnterDirectory(const std::string& name);

}  // namespace zentaline
