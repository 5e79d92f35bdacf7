// What an instrument has heard of the record under edit, parameter by parameter, and what the record holds of the same.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "core/edit_listener.h"
#include "core/edits.h"

namespace zentaline::test {

// Of an arrangement the id alone; of a program the two numbers, and the oscillator where it is one's, else -1.
using Parameter = std::tuple<int, int, int>;

// The last value of each parameter since the record was taken up.
class Heard final : public EditListener {
 public:
  void Long(std::string_view message) {
    constexpr int kArrParam = 0x41;
    constexpr int kPrgParam = 0x60;
    const int function = ByteAt(message, 5);
    if (ByteAt(message, 1) != 0xF0) return;
    if (function == kArrParam) heard_[{ByteAt(message, 6), 0, -1}] = Value(message, 7);
    if (function != kPrgParam) return;
    const int a = ByteAt(message, 6);
    const int b = ByteAt(message, 7);
    const int value = Value(message, 8);
    if (a == 2 && b == 0) oscillator_ = value;
    for (const int oscillator : {oscillator_, -1}) heard_[{a, b, oscillator}] = value;
  }
  // Null when it wasn't heard.
  const int* Of(const Parameter& parameter) const {
    const auto found = heard_.find(parameter);
    return found == heard_.end() ? nullptr : &found->second;
  }

  void Opened(ChildWindow&) override {}
  void Noted(const EditAction&) override {}
  void TakenBack(const EditAction&) override {}
  void BroughtForth(const EditAction&) override {}
  void Left(const EditAction&) override {}
  void Saved(ChildWindow&, bool) override {}
  void Closed(ChildWindow&) override {}
  void Taken(const EditTarget&) override { heard_.clear(); }

 private:
  // Negative ones have 7F in their second byte.
  static int Value(std::string_view message, std::size_t low) {
    const int high = ByteAt(message, low + 1);
    return ByteAt(message, low) + 128 * (high == 0x7F ? -1 : high);
  }

  int oscillator_ = 0;
  std::map<Parameter, int> heard_;
};

struct HeldField {
  Parameter parameter;
  int value;
  std::string name;
};

// Every field with a message whose bytes stand for a value, but for those that are sent and stored differently on
// purpose.
std::vector<HeldField> HeldByArrangement(std::string_view record);
std::vector<HeldField> HeldByProgram(std::string_view record);

}  // namespace zentaline::test
