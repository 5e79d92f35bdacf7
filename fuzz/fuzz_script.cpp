// Any bytes as a script: on a small program with a window of each kind, and on the whole program.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz/fuzz_input.h"
#include "fuzz/whole_program.h"
#include "tests/ui/toy_program.h"

namespace {

constexpr std::size_t kLongest = std::size_t{1} << 16;

void RunToy(const std::string& script) {
  using zentaline::ui::ToyHost;
  ToyHost host(script);
  host.toy.asks_at_close = script.size() % 2 == 1;
  const int status = host.Run();
  zentaline::fuzz::Require(status >= 0 && status <= 3 && (status == 0) == host.complaint.empty());

  ToyHost started("start\n" + script);
  const int second = started.Run();
  zentaline::fuzz::Require(second >= 0 && second <= 3);
}

void RunWhole(const std::string& script) {
  zentaline::fuzz::WholeProgram program(script);
  const int status = program.Run();
  zentaline::fuzz::Require(status >= 0 && status <= 3);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string script(reinterpret_cast<const char*>(data), std::min(size, kLongest));
  RunToy(script);
  RunWhole(script);
  if (script.find("start") == std::string::npos) {
    RunWhole("outs A B\nins K\nstart\npress frmLingua.Option1(1)\npress frmLingua.CommOK\n" + script);
  }
  return 0;
}
