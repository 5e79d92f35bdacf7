// Style files, as the rest of the program uses them.
#pragma once

#include <string>

#include "core/bytes.h"

namespace zentaline {

struct Application;

// Reads the .sty at `path`, which has its extension, into StyleImage; a path that ends in i40Sty, into EmptyStyleImage.
// 0 done, 1 a wrong header or the file system's error (both shown), 2 absent or empty.
int StyFileRead(Application& app, const std::string& path);
// Writes the style part of a window's image to its path with ".sty": true when it is done, else the error was shown.
bool StyFileWrite(Application& app, Bytes& image);
// The same for a style window, of which the image itself stays untrimmed.
bool SaveStyFile(Application& app, Bytes& image);
// Removes that file; one that is not there is no failure.
bool StyFileDelete(Application& app, const Bytes& image);
// Splits an i30 file, `path` with its extension, into three .sty beside it: 0 done, 1 and 2 as StyFileRead.
int StyImportI30(Application& app, const std::string& path);

}  // namespace zentaline
