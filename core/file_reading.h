// How every reader of a data file begins.
#pragma once

#include <string>

#include "base/bytes.h"
#include "base/disk.h"
#include "data/texts.h"

namespace zentaline {

struct Application;

// For readers that look at files of other lengths too: nothing that comes from the instrument is near it.
inline constexpr std::size_t kLargestDataFile = std::size_t{1} << 24;

enum FileReadResult : int { kFileRead = 0, kFileFailed = 1, kFileTooLarge = 2, kFileAbsent = 3 };

// Reads a file of at most `largest` bytes whole. OperationTitle becomes the text, "Opening " for most, and the file's
// name. An empty file counts as absent and is removed, but for those of
// the last run's windows. A failure of the file system is shown.
FileReadResult ReadDataFile(Application& app, const std::string& path, std::size_t largest, Bytes& content,
                            int title_text = kTextOpening);

// The path itself or, where nothing has it, the same with its extension in capitals, as disks of the instrument's time
// have it, or with a capital; the path itself where there is none of them.
std::string PathOnDisk(Disk& disk, const std::string& path);

// Writes a file whole, with the same title; false when it failed, which is shown.
bool WriteDataFile(Application& app, const std::string& path, const Bytes& content);
// The same for a text of the program's own, which is never written through a link.
bool WriteOwnText(Application& app, const std::string& path, const Bytes& content);

// The file alone, in the same way.
DiskResult WriteOwnFile(Application& app, const std::string& path, const Bytes& content);

}  // namespace zentaline
