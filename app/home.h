// The folder of a musician who names none, and the factory files that it starts with.
#pragma once

#include <functional>
#include <string>

namespace zentaline {

// ${ZENTALINE_HOME:-${XDG_DATA_HOME:-$HOME/.local/share}/zentaline}; empty where none of the three is set. `variable`
// is getenv, or a test's.
std::string HomeDirectory(const std::function<const char*(const char*)>& variable);

// share/zentaline beside the folder of the program that runs, where it is built as where it is installed.
std::string FactoryDirectory();

// Makes the folder `to`, and puts there what of `from` it lacks, file by file, each whole under its name or not at all;
// what has the name already stays, also a link that leads nowhere. The path that failed with the reason; empty when
// nothing did.
std::string CopyLacking(const std::string& from, const std::string& to);

}  // namespace zentaline
