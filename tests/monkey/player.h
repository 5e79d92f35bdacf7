// Plays lines that were given before, also where some of them have been taken out: what a question needs is answered,
// and what can't be done is left out.
#pragma once

#include <string>
#include <vector>

#include "tests/monkey/host.h"

namespace zentaline::monkey {

class Player : public Lines {
 public:
  explicit Player(const std::vector<std::string>& lines) : lines_(lines) {}
  std::optional<std::string> Next(Host& host) override;

 private:
  const std::vector<std::string>& lines_;
  std::size_t next_ = 0;
};

}  // namespace zentaline::monkey
