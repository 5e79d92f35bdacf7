// A value that lasts as long as a scope: a guard that handlers ask for. At its end it gives back what was there before,
// so that one guard may stand inside another.
#pragma once

#include <utility>

namespace zentaline {

template <typename T>
class ScopedValue {
 public:
  ScopedValue(T& variable, T value) : variable_(variable), before_(std::exchange(variable, std::move(value))) {}
  ~ScopedValue() { variable_ = std::move(before_); }
  ScopedValue(const ScopedValue&) = delete;
  ScopedValue& operator=(const ScopedValue&) = delete;

 private:
  T& variable_;
  T before_;
};

}  // namespace zentaline
