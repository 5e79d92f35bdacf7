// zentaline-multisample LIST OUT: makes the file i40Multisample from a plain list of names, one a line, 519 of them,
// each of at most ten characters, so that an owner can put in the names of his own instrument.

#include <cstdio>

#include "tools/factory/multisamples.h"

int main(int count, char** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "usage: zentaline-multisample LIST OUT\n");
    return 2;
  }
  zentaline::factory::Problems problems;
  const zentaline::Bytes file = zentaline::factory::MultisampleFile(arguments[1], problems);
  for (const std::string& problem : problems.List()) std::fprintf(stderr, "%s\n", problem.c_str());
  if (problems.Any()) return 1;
  return zentaline::factory::WriteFile(arguments[2], file) ? 0 : 1;
}
