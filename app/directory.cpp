#include "app/directory.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace zentaline {

std::string EnterDirectory(const std::string& name) {
  std::error_code error;
  std::string directory = std::filesystem::absolute(name.empty() ? "." : name, error).lexically_normal().string();
  if (error || ::chdir(directory.c_str()) != 0) return {};
  while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
  return directory;
}

}  // namespace zentaline
