// Writes a random session of a thousand steps, back to its start and forth again, as a script for both programs:
//
//   undo_script KIND SEED FILE
//
// FILE.zts is the script, FILE.files/ what the working directory holds besides. KIND counts from 0.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/ui/undo_session.h"

namespace zentaline::test {
namespace {

constexpr int kSteps = 1000;
constexpr int kBetweenLooks = 100;

void Write(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

void Play(UndoSession& session) {
  Edits& edits = session.app().edits;
  for (int i = 0; i < 20 * kSteps && edits.BackCount() < kSteps; ++i) {
    session.Act();
    if (i % kBetweenLooks == 0) session.Look();
  }
  session.Look();
  for (int i = 1; session.Back(); ++i) {
    if (i % kBetweenLooks == 0) session.Look();
  }
  session.Look();
  for (int i = 1; session.Forth(); ++i) {
    if (i % kBetweenLooks == 0) session.Look();
  }
  session.Look();
}

int Main(int kind, unsigned seed, const std::string& file) {
  UndoSession session(static_cast<SessionKind>(kind), seed);
  Play(session);
  std::string script = "start\npress frmLingua.Option1(1)\npress frmLingua.CommOK\n";
  for (const std::string& line : session.script()) script += line + "\n";
  Write(file + ".zts", script);
  std::filesystem::create_directories(file + ".files");
  Write(file + ".files/Hall.gbl", GlobalFileOfSession());
  return session.app().edits.BackCount() < kSteps ? EXIT_FAILURE : EXIT_SUCCESS;
}

}  // namespace
}  // namespace zentaline::test

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: undo_script KIND SEED FILE\n", stderr);
    return 2;
  }
  return zentaline::test::Main(std::atoi(argv[1]), static_cast<unsigned>(std::atoi(argv[2])), argv[3]);
}
