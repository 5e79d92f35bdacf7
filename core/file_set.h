// The files that one save writes and removes, as one.
#pragma once

#include <list>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "base/disk.h"

namespace zentaline {

struct Application;

class FileSet {
 public:
  // The disk is borrowed. `replaces_links` is of a set that gets a new name: what stands there as a link is another
  // file's, so that all but the main file take the place of the link itself.
  explicit FileSet(Disk& disk, bool replaces_links = false) : disk_(disk), replaces_links_(replaces_links) {}

  // In the order in which they get their names. All paths are with extension, which may
  // stand in capitals on the disk.
  void Write(const std::string& path, Bytes content);
  // A file of the program's own, which is never written through a link.
  void WriteOwn(const std::string& path, Bytes content);
  // One that goes with the main file, and before it.
  void WriteBeside(const std::string& path, Bytes content);
  // Last of all. A file that isn't there is no failure.
  void Remove(const std::string& path);
  void SetAside(const std::string& path);

  struct Saved {
    bool written = false;  // all files have their new content
    bool whole = false;    // and what was to be removed has gone
    bool touched = false;  // at least one file has its new content
  };
  // What somebody else has changed since the program knew it last is kept beside first, which the wait text tells. A
  // failure is shown, under "Opening " and the file's name.
  Saved Save(Application& app);

  // Whether the disk holds all that would be written.
  bool Stands() const;

  // The names of what is there and would be replaced or removed, but for a main file that is what was asked for: its
  // very name, and no link.
  std::vector<std::string> Touched() const;

 private:
  struct File {
    std::string path;   // as it stands on the disk
    std::string asked;  // as it was given
    Bytes content;
    bool main = true;
    bool through_links = true;
  };

  bool KeepOthers(Application& app);
  // What somebody else has put there; `unknown`: also what the program has never read or written.
  bool KeepOther(Application& app, const std::string& path, bool unknown);
  std::string PathOf(std::size_t file) const;
  bool HoldsNew(const File& file) const;
  void Fail(Application& app, const std::string& path, DiskResult result) const;

  Disk& disk_;
  bool replaces_links_;
  std::list<File> writes_;
  std::vector<FileToRemove> removals_;
};

}  // namespace zentaline
