// One life of the program: a process of its own, which ends regularly, crashes on purpose, or fails.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>

#include "tests/monkey/folder.h"
#include "tests/monkey/host.h"
#include "tests/monkey/shared.h"

namespace zentaline::monkey {

// Where a run keeps what it has to tell: N.zts are the lines of life N, which zentaline-console takes as well;
// `transcript` and `errors` are those of the last life.
struct Reports {
  std::string folder;

  std::string Script(int life) const { return folder + "/" + std::to_string(life) + ".zts"; }
  std::string Transcript() const { return folder + "/transcript"; }
  std::string Errors() const { return folder + "/errors"; }
};

// Lives it, and looks at the folder afterwards: false when something failed, and Shared::failure says what.
bool Live(Shared& shared, const Folder& folder, const Reports& reports,
          const std::function<std::unique_ptr<Lines>()>& make_lines);

// The names of the windows that were opened in the last life, without numbers.
std::set<std::string> OpenedWindows(const Reports& reports);

}  // namespace zentaline::monkey
