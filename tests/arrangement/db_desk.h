// A database by its layout, and the windows over it, for tests.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {

// Builds a database, entries from index 3 on in the order given.
inline std::string DatabaseBytes(const std::vector<std::pair<std::string, int>>& entries,
                                 const std::string& directory) {
  std::string db = "i40DBArr" + Zeros(18) + Zeros(1) + Blanks(23) + Zeros(2);
  std::string map = Zeros(997);
  for (const auto& [name, id] : entries) {
    db += Field(name, 24) + Hand({id % 256, id / 256});
    if (id >= 3 && id <= 999) map[static_cast<std::size_t>(id) - 3] = 1;
  }
  for (std::size_t i = entries.size(); i < 997; ++i) db += Zeros(1) + Blanks(23) + Zeros(2);
  return db + map + Field(directory, 250);
}

}  // namespace zentaline::test
