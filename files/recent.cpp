// The list of recent files.
#include <algorithm>

#include "core/application.h"
#include "core/main_window.h"
#include "files/api.h"
#include "files/paths.h"

namespace zentaline {

void AddRecentFile(Application& app, const std::string& path, bool read_only) {
  auto& records = app.core.RecentFiles;
  const RecentFile recent{WithoutExtension(path), FileType(path), read_only};
  if (recent.type == 0) return;
  // One that is there already stays where it is.
  const auto same = [&](const RecentFile& other) { return other.path == recent.path && other.type == recent.type; };
  if (std::any_of(records.begin(), records.end(), same)) return;
  const auto free =
      std::find_if(records.begin(), records.end(), [](const RecentFile& other) { return other.type == 0; });
  if (free != records.end()) {
    *free = recent;
  } else {
    std::rotate(records.begin(), records.end() - 1, records.end());
    records.front() = recent;
  }
  if (app.main != nullptr) app.main->ShowRecentFiles();
}

std::string RecentCaption(const Application& app, int i) {
  const RecentFile& recent = app.core.RecentFiles[static_cast<std::size_t>(i)];
  if (recent.type == 0) return {};
  return ShortenedPath(recent.path + "." + std::string(ExtensionOf(recent.type)));
}

}  // namespace zentaline
