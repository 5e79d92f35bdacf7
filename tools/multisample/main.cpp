// zentaline-multisample LIST OUT: makes the file i40Multisample from a plain list of names, one a line, 519 of them,
// each of at most ten characters, so that an owner can put in the names of his own instrument.

#include <cstdio>
#include <fstream>

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
  std::ofstream out(arguments[2], std::ios::binary | std::ios::trunc);
  out.write(file.data(), static_cast<std::streamsize>(file.size()));
  out.close();
  if (!out.fail()) return 0;
  std::fprintf(stderr, "%s: cannot be written\n", arguments[2]);
  return 1;
}
