// The program starts on a configuration of any bytes, ends, and starts on what it has written itself.
#include "core/configuration.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/whole_program.h"

using namespace zentaline;
using zentaline::fuzz::Require;

namespace {

// Whatever is asked on the way: the language, and what became of the windows of the last run.
constexpr char kScript[] =
    "outs A B\nins K\nstart\npress frmLingua.Option1(1)\npress frmLingua.CommOK\nwait 1000\nwindows\nquit\n";

Bytes Play(const Bytes& configuration) {
  const std::string path = std::string("/disk/") + kConfigFileName;
  // The first of them is refused where no language is asked.
  Bytes script(kScript);
  if (IsConfiguration(configuration)) {
    const std::size_t from = script.find("press frmLingua");
    script.erase(from, script.find("wait") - from);
  }
  fuzz::WholeProgram program(script);
  program.memory().files[path] = configuration;
  program.Run();
  const Bytes& left = program.memory().files[path];
  Require(!program.Ended() || left.size() == kConfigLength || left == configuration);
  return left;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const bool laid_over = input.Byte() % 2 == 0;
  const std::string_view rest = input.Rest();
  Bytes configuration(rest);
  if (laid_over) {
    configuration = NewConfiguration();
    for (std::size_t i = 0; i < std::min(rest.size(), configuration.size()); ++i) {
      // The signature stays, so that the rest is looked at.
      if (i >= 16) configuration[i] = rest[i];
    }
  }
  Play(Play(configuration));
  return 0;
}
