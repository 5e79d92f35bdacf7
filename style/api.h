// Style files, as the rest of the program uses them.
#pragma once

#include <string>

#include "base/bytes.h"

namespace zentaline {

struct Application;
class ChildWindow;
class FileSet;

// Reads the .sty at `path`, which has its extension, into StyleImage; a path that ends in i40Sty, into EmptyStyleImage.
// 0 done, 1 a wrong header or the file system's error (both shown), 2 absent or empty.
int StyFileRead(Application& app, const std::string& path);
// The same with the styles that a window shows, in place of what lies on the disk; `base` is without extension.
void TakeStyleFile(Application& app, const std::string& base, std::string_view styles);
// The style part of a window's image for saving; the image itself stays untrimmed. And what becomes of it when the file
// is written.
void PutStyFiles(const Application& app, Bytes& image, FileSet& set);
void StyFilesSaved(Bytes& image, bool whole);
// The path of part 0 to 2 of an i30 file, without extension; `path` is the i30 file's, with its own.
std::string StylePartOfI30(const std::string& path, int part);
// Splits an i30 file, `path` with its extension, into three .sty beside it: 0 done, 1 and 2 as StyFileRead.
int StyImportI30(Application& app, const std::string& path);

// Styles of this base name, as it is kept of a file that was sent, have changed: what the instrument holds counts as
// unknown.
void ForgetStylesSent(Application& app, const std::string& name);
// Which styles the instrument holds is no longer known.
void ForgetStyInInstrument(Application& app);

// Shows StyleImage in window 1 to 8, whose slot is marked open already; `path` is without extension.
ChildWindow& OpenStyWindow(Application& app, int number, const std::string& path, bool read_only);
// The whole of mnuNuovoSty: a new file of four empty styles, which has no name yet.
void NewStyFile(Application& app);
// Shows the bank of kind 17 or 18, or brings its window to the front.
void OpenStyBank(Application& app, int kind);

}  // namespace zentaline
