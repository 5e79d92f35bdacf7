// How long packing a style group takes, beside copying the same bytes. The rate to look at is bytes_per_second: packing
// is to reach at least a fiftieth of the copy's.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>

#include "bench/measure.h"
#include "bench/times.h"
#include "midi/pack7.h"

namespace zentaline {
namespace {

constexpr std::size_t kGroupLength = 65000;

Bytes Group() {
  std::mt19937 random(1);
  Bytes group(kGroupLength, '\0');
  for (char& c : group) c = static_cast<char>(random());
  return group;
}

void CopyGroup(benchmark::State& state) {
  const Bytes group = Group();
  Bytes copy(kGroupLength, '\0');
  for (auto _ : state) {
    std::memcpy(copy.data(), group.data(), group.size());
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kGroupLength));
}
BENCHMARK(CopyGroup);

void Pack7Group(benchmark::State& state) {
  const Bytes group = Group();
  for (auto _ : state) benchmark::DoNotOptimize(Pack7(group));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kGroupLength));
}
BENCHMARK(Pack7Group);

}  // namespace
}  // namespace zentaline

int main(int argc, char** argv) {
  const zentaline::bench::Times times(argc, argv);
  zentaline::bench::PrintRatio("pack7", times["CopyGroup"] / times["Pack7Group"], ">=", 0.02,
                               "speed of packing a style group of 65000 bytes, of that of copying it");
}
