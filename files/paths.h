// The parts of a path. Nothing here looks at the disk.
#pragma once

#include <string>
#include <string_view>

namespace zentaline {

// The types that have windows.
inline constexpr int kTypeArr = 1;
inline constexpr int kTypeSty = 2;
inline constexpr int kTypePrg = 3;
inline constexpr int kTypePgg = 4;
inline constexpr int kTypeGbl = 5;
inline constexpr int kTypeBsq = 6;

// The type of a file by its extension: 1 arr, 2 sty, 3 prg, 4 pgg, 5 gbl, 6 bsq; 0 for any other. A name has a type
// only if its last dot stands exactly three characters from the end; case doesn't count.
int FileType(std::string_view path);
// "arr" to "bsq" for the types 1 to 6, else empty.
std::string_view ExtensionOf(int type);

// The path without its last four characters.
std::string WithoutExtension(std::string_view path);

// The path as a menu shows it: up to 35 characters as they are, a longer one cut in the middle.
std::string ShortenedPath(std::string_view path);

// A directory and a name with one separator between them.
std::string JoinPath(std::string_view directory, std::string_view name);

}  // namespace zentaline
