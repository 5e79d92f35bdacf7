// Any bytes as a script, carried out on a small program with a window of each kind.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tests/ui/toy_program.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using zentaline::ui::ToyHost;
  const std::string script(reinterpret_cast<const char*>(data), size);
  ToyHost host(script);
  host.toy.asks_at_close = size % 2 == 1;
  const int status = host.Run();
  if (status < 0 || status > 3 || (status == 0) != host.complaint.empty()) std::abort();

  ToyHost started("start\n" + script);
  const int second = started.Run();
  if (second < 0 || second > 3) std::abort();
  return 0;
}
