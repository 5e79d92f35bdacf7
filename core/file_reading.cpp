#include "core/file_reading.h"

#include "core/application.h"
#include "core/boxes.h"
#include "core/file_set.h"
#include "core/window_image.h"
#include "data/texts.h"

namespace zentaline {

namespace {

constexpr std::size_t kExtensionLength = 3;

// The reopening of windows never removes anything.
DiskResult RemoveEmptyFile(Application& app, const std::string& path) {
  return app.Starting() ? DiskResult::kOk : app.disk.RemoveEmpty(path);
}

// What a save finds otherwise was changed by somebody else.
void NoteContent(Application& app, const std::string& path, DiskResult result, const Bytes& content) {
  if (result == DiskResult::kOk) {
    app.core.KnownFiles[path] = MarkOf(content);
  } else if (result == DiskResult::kAbsent) {
    app.core.KnownFiles[path] = {};
  } else {
    app.core.KnownFiles.erase(path);
  }
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
  app.core.OperationTitle = GetText(app, title_text) + ShownPath(FileBaseName(wanted));
  content.clear();
  const std::string path = PathOnDisk(app.disk, wanted);
  DiskResult result = app.disk.Read(path, content, largest);
  if (result == DiskResult::kOk && content.empty()) {
    result = RemoveEmptyFile(app, path);
    if (result == DiskResult::kOk || result == DiskResult::kIsFolder) result = DiskResult::kAbsent;
  }
  NoteContent(app, path, result, content);
  switch (result) {
    case DiskResult::kOk:
      return kFileRead;
    case DiskResult::kAbsent:
      return kFileAbsent;
    case DiskResult::kTooLarge:
      return kFileTooLarge;
    default:
      // Nothing is full by reading.
      FileErrorMessage(app, result == DiskResult::kFull ? DiskResult::kOther : result);
      return kFileFailed;
  }
}

bool WriteDataFile(Application& app, const std::string& path, const Bytes& content) {
  FileSet set(app.disk);
  set.Write(path, content);
  return set.Save(app).whole;
}

bool WriteOwnText(Application& app, const std::string& path, const Bytes& content) {
  FileSet set(app.disk);
  set.WriteOwn(path, content);
  return set.Save(app).whole;
}

DiskResult WriteOwnFile(Application& app, const std::string& path, const Bytes& content) {
  const FileToWrite file{path, &content, false};
  return app.disk.WriteSet({&file, 1}, {}).result;
}

}  // namespace zentaline
