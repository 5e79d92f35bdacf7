// Global data and back sequences, as the rest of the program uses them.
#pragma once

#include <string>

namespace zentaline {

struct Application;
class ChildWindow;

// Reads the .bsq at `path`, which has its extension, into BsqBuffer. 0 good, 1 a wrong file or the file system's error
// (both shown), 3 absent or empty.
int ReadBackSeqFile(Application& app, const std::string& path);

// Shows what BsqBuffer holds; `path` is without extension. There is one such window at a time.
ChildWindow& OpenBackSeqWindow(Application& app, const std::string& path, bool read_only);

}  // namespace zentaline
