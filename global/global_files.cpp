// Reading the files of global data and of back sequences.
#include <utility>

#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/file_set.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "global/api.h"
#include "global/bsq_format.h"
#include "global/gbl_format.h"

namespace zentaline {

int ReadGlobalFile(Application& app, const std::string& path) {
  Bytes file;
  const FileReadResult result = ReadDataFile(app, path, kGlobalFileLength, file);
  if (result == kFileFailed || result == kFileAbsent) return result;
  if (result == kFileRead && CheckGlobalFile(file) == kGlobalGood) {
    app.global.GblBuffer = std::move(file);
    return kGlobalGood;
  }
  ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, ShownPath(FileBaseName(path)));
  return kGlobalWrong;
}

void TakeGlobalFile(Application& app, Bytes file) {
  app.global.GblBuffer = std::move(file);
}

void PutGblFiles(const Application&, Bytes& image, FileSet& set) {
  set.Write(std::string(WindowPath(image)) + ".gbl", GlobalFileBytes(image));
}

void GblFilesSaved(Bytes& image, bool whole) {
  if (whole) PutByte(image, kChangedPosition, 0);
}

int ReadBackSeqFile(Application& app, const std::string& path) {
  Bytes file;
  const FileReadResult result = ReadDataFile(app, path, kLargestDataFile, file, kTextReading);
  if (result == kFileFailed || result == kFileAbsent) return result;
  if (result == kFileRead && TakeBackSeqFile(file)) {
    app.global.BsqBuffer = std::move(file);
    return kFileRead;
  }
  const std::string name = ShownPath(FileBaseName(path));
  ShowWait(app, kWaitOpening, name);
  ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, name);
  ShowWait(app, 0);
  return kFileFailed;
}

}  // namespace zentaline
