#include "core/file_reading.h"

#include "core/application.h"
#include "core/boxes.h"
#include "core/window_image.h"

namespace zentaline {

namespace {

constexpr int kTextOpening = 111;

void SetTitle(Application& app, const std::string& path) {
  app.core.OperationTitle = GetText(app, kTextOpening) + ShownPath(FileBaseName(path));
}

}  // namespace

FileReadResult ReadDataFile(Application& app, const std::string& path, std::size_t largest, Bytes& content) {
  SetTitle(app, path);
  content.clear();
  const DiskResult result = app.disk.Read(path, content, largest);
  switch (result) {
    case DiskResult::kOk:
      if (!content.empty()) return kFileRead;
      app.disk.Remove(path);
      return kFileAbsent;
    case DiskResult::kAbsent:
      return kFileAbsent;
    case DiskResult::kTooLarge:
      return kFileTooLarge;
    default:
      FileErrorMessage(app, result);
      return kFileFailed;
  }
}

bool WriteDataFile(Application& app, const std::string& path, const Bytes& content) {
  SetTitle(app, path);
  const DiskResult result = app.disk.Write(path, content);
  if (result == DiskResult::kOk) return true;
  FileErrorMessage(app, result);
  return false;
}

}  // namespace zentaline
