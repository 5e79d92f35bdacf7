#include "core/file_reading.h"

#include "core/application.h"
#include "core/boxes.h"
#include "core/window_image.h"
#include "data/texts.h"

namespace zentaline {

namespace {

constexpr std::size_t kExtensionLength = 3;

void SetTitle(Application& app, const std::string& path, int text = kTextOpening) {
  app.core.OperationTitle = GetText(app, text) + ShownPath(FileBaseName(path));
}

}  // namespace

std::string PathOnDisk(Disk& disk, const std::string& path) {
  if (path.size() < kExtensionLength || disk.Exists(path)) return path;
  const std::string base = path.substr(0, path.size() - kExtensionLength);
  const std::string capitals = UpperCase(path.substr(base.size()));
  const std::string capital = capitals.substr(0, 1) + LowerCase(capitals.substr(1));
  for (const std::string& extension : {capitals, capital}) {
    if (disk.Exists(base + extension)) return base + extension;
  }
  return path;
}

FileReadResult ReadDataFile(Application& app, const std::string& wanted, std::size_t largest, Bytes& content,
                            int title_text) {
  SetTitle(app, wanted, title_text);
  content.clear();
  const std::string path = PathOnDisk(app.disk, wanted);
  const DiskResult result = app.disk.Read(path, content, largest);
  switch (result) {
    case DiskResult::kOk:
      if (!content.empty()) return kFileRead;
      return RemoveDataFile(app, wanted) ? kFileAbsent : kFileFailed;
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
  const DiskResult result = app.disk.Write(PathOnDisk(app.disk, path), content);
  if (result == DiskResult::kOk) return true;
  FileErrorMessage(app, result);
  return false;
}

bool RemoveDataFile(Application& app, const std::string& path) {
  SetTitle(app, path);
  const DiskResult result = app.disk.Remove(PathOnDisk(app.disk, path));
  if (result == DiskResult::kOk || result == DiskResult::kAbsent || result == DiskResult::kIsFolder) return true;
  FileErrorMessage(app, result);
  return false;
}

bool SetDataFileAside(Application& app, const std::string& wanted) {
  const std::string path = PathOnDisk(app.disk, wanted);
  if (!app.disk.Exists(path)) return true;
  SetTitle(app, path);
  const DiskResult result = app.disk.Rename(path, path + ".bak");
  if (result == DiskResult::kOk) return true;
  FileErrorMessage(app, result);
  return false;
}

}  // namespace zentaline
