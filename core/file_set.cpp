#include "core/file_set.h"

#include <algorithm>
#include <iterator>

#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/more_texts.h"
#include "data/texts.h"

namespace zentaline {

void FileSet::Write(const std::string& path, Bytes content) {
  writes_.push_back({PathOnDisk(disk_, path), path, std::move(content)});
}

void FileSet::WriteOwn(const std::string& path, Bytes content) {
  writes_.push_back({path, path, std::move(content), true, false});
}

void FileSet::WriteBeside(const std::string& path, Bytes content) {
  const auto main = std::find_if(writes_.begin(), writes_.end(), [](const File& file) { return file.main; });
  writes_.insert(main, {PathOnDisk(disk_, path), path, std::move(content), false, !replaces_links_});
}

void FileSet::Remove(const std::string& path) {
  removals_.push_back({PathOnDisk(disk_, path)});
}

void FileSet::SetAside(const std::string& path) {
  const std::string there = PathOnDisk(disk_, path);
  if (disk_.Exists(there)) removals_.push_back({there, true});
}

std::string FileSet::PathOf(std::size_t file) const {
  if (file >= writes_.size()) return removals_[file - writes_.size()].path;
  return std::next(writes_.begin(), static_cast<std::ptrdiff_t>(file))->path;
}

void FileSet::Fail(Application& app, const std::string& path, DiskResult result) const {
  app.core.OperationTitle = GetText(app, kTextOpening) + ShownPath(FileBaseName(path));
  FileErrorMessage(app, result);
}

bool FileSet::KeepOther(Application& app, const std::string& path, bool unknown) {
  const auto known = app.core.KnownFiles.find(path);
  const bool is_known = known != app.core.KnownFiles.end();
  FileMark now;
  if ((!is_known && !unknown) || disk_.Look(path, now) != DiskResult::kOk) return true;
  if (!now.there || now.length == 0 || (is_known && now == known->second)) return true;
  std::string kept;
  const DiskResult result = disk_.KeepAside(path, kept);
  if (result == DiskResult::kOk) {
    ShowNotice(app, TwoNames(MoreTextOf(MoreText::kChangedElsewhere, app.Language()), ShownPath(FileBaseName(path)),
                             ShownPath(FileBaseName(kept))));
    app.core.KnownFiles[path] = now;
  } else if (result != DiskResult::kAbsent) {
    Fail(app, path, result);
    return false;
  }
  return true;
}

bool FileSet::KeepOthers(Application& app) {
  for (const File& file : writes_) {
    if (!KeepOther(app, file.path, false)) return false;
  }
  // What goes unasked is kept also where the program has never looked into it.
  for (const FileToRemove& file : removals_) {
    if (!file.set_aside && !KeepOther(app, file.path, !replaces_links_)) return false;
  }
  return true;
}

FileSet::Saved FileSet::Save(Application& app) {
  if (!KeepOthers(app)) return {};
  std::vector<FileToWrite> writes;
  for (const File& file : writes_) writes.push_back({file.path, &file.content, file.through_links});
  SetResult result = disk_.WriteSet(writes, removals_);
  // A folder in the place of what should go is none of ours.
  const bool folder = result.file >= writes.size() && result.result == DiskResult::kIsFolder;
  if (folder) result.result = DiskResult::kOk;
  if (result.written) {
    for (const File& file : writes_) app.core.KnownFiles[file.path] = MarkOf(file.content);
  }
  if (result.result == DiskResult::kOk) {
    for (const FileToRemove& file : removals_) app.core.KnownFiles[file.path] = {};
    // Readers and writers of the program leave the same title behind them.
    if (!writes_.empty())
      app.core.OperationTitle = GetText(app, kTextOpening) + ShownPath(FileBaseName(writes_.back().path));
    return {true, true, true};
  }
  Fail(app, PathOf(result.file), result.result);
  // They get their names in their order.
  return {result.written, false, result.written || (writes_.size() > 1 && HoldsNew(writes_.front()))};
}

bool FileSet::HoldsNew(const File& file) const {
  FileMark mark;
  return disk_.Look(file.path, mark) == DiskResult::kOk && mark == MarkOf(file.content);
}

bool FileSet::Stands() const {
  return std::all_of(writes_.begin(), writes_.end(), [this](const File& file) { return HoldsNew(file); });
}

std::vector<std::string> FileSet::Touched() const {
  std::vector<std::string> names;
  const auto add = [&](const std::string& path) {
    if (disk_.Exists(path) || disk_.IsLink(path)) names.emplace_back(FileBaseName(path));
  };
  for (const File& file : writes_) {
    if (!file.main || file.path != file.asked || disk_.IsLink(file.path)) add(file.path);
  }
  for (const FileToRemove& file : removals_) add(file.path);
  return names;
}

}  // namespace zentaline
