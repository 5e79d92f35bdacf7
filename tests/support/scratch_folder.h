// A folder of a test's own that goes with it, and ways to run a part of a test under other conditions.
#pragma once

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace zentaline::test {

class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "zentaline-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
    // Parts of a test run as another user.
    chmod(path_.c_str(), 0777);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string Path(const std::string& name = "") const { return name.empty() ? path_ : path_ + "/" + name; }

  // Written and read by the standard library, not by what is under test.
  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  std::string Get(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  // How many entries there are, whatever their kind.
  long Count() const { return static_cast<long>(std::distance(std::filesystem::directory_iterator(path_), {})); }

 private:
  std::string path_;
};

// Runs `part` in a process of its own and gives the number it returns (0 to 99); 100 and more when it died.
template <typename Part>
int InChild(Part part) {
  const pid_t child = fork();
  if (child == 0) _exit(part());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 100 + WTERMSIG(status);
}

// The same as a user whom permissions bind: root becomes another one for it.
template <typename Part>
int AsOrdinaryUser(Part part) {
  return InChild([&] {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && (setegid(kNobody) != 0 || seteuid(kNobody) != 0)) return 99;
    return part();
  });
}

}  // namespace zentaline::test
