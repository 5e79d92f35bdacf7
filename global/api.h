// Global data and back sequences, as the rest of the program uses them.
#pragma once

#include <string>

#include "base/bytes.h"

namespace zentaline {

struct Application;
class ChildWindow;
class FileSet;

// Reads the .gbl at `path`, which has its extension, into GblBuffer. 0 good, 1 the file system's error, 2 a wrong file
// (both shown), 3 absent or empty.
int ReadGlobalFile(Application& app, const std::string& path);
// The same with a file that is in memory already.
void TakeGlobalFile(Application& app, Bytes file);
// The file in a window's image for saving, and what becomes of the image when it is written.
void PutGblFiles(const Application& app, Bytes& image, FileSet& set);
void GblFilesSaved(Bytes& image, bool whole);

// Shows what GblBuffer holds; `path` is without extension. There is one global window at a time.
ChildWindow& OpenGlobalWindow(Application& app, const std::string& path, bool read_only);
// Shows the block in the open global window anew; nothing is sent.
void FillGlobalWindow(Application& app);
// The whole of mnuGlobalParam: brings the global window to the front, or opens it on what the instrument holds.
void ShowGlobalParameters(Application& app);

// Reads the .bsq at `path`, which has its extension, into BsqBuffer. 0 good, 1 a wrong file or the file system's error
// (both shown), 3 absent or empty.
int ReadBackSeqFile(Application& app, const std::string& path);

// Shows what BsqBuffer holds; `path` is without extension. There is one such window at a time.
ChildWindow& OpenBackSeqWindow(Application& app, const std::string& path, bool read_only);

}  // namespace zentaline
