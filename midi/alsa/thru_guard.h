// The kernel keeps a subscription between two ports for ever; this one ends with the program, however that ends.
#pragma once

namespace zentaline {

// A sequencer port.
struct PortAddress {
  int client = 0;
  int port = 0;
  bool operator==(const PortAddress&) const = default;
};

// While this object lives, a process of its own waits for the end of the program, and then takes the subscription away,
// even when the program was killed. The destructor sends that process home; the subscription is then the caller's.
class ThruGuard {
 public:
  ThruGuard(PortAddress from, PortAddress to);
  ~ThruGuard();
  ThruGuard(const ThruGuard&) = delete;
  ThruGuard& operator=(const ThruGuard&) = delete;

 private:
  int pipe_ = -1;
};

}  // namespace zentaline
