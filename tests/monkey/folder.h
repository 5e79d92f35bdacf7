// The working directory of a run: what lies in it at first, and whether all in it is whole.
#pragma once

#include <cstdint>
#include <set>
#include <string>

namespace zentaline::monkey {

class Folder {
 public:
  // `share` holds the factory files and the examples.
  Folder(std::string path, std::string share) : path_(std::move(path)), share_(std::move(share)) {}

  const std::string& path() const { return path_; }
  // As at the first start, and some files that are not what their names say.
  void MakeAnew();
  // What isn't whole, in words; empty when all is.
  std::string Torn() const;
  int Files() const;

 private:
  void Put(const std::string& name, const std::string& content);

  std::string path_;
  std::string share_;
  std::set<std::uint64_t> put_;  // contents that lay there at first
};

}  // namespace zentaline::monkey
