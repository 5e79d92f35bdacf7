// Controls of one name that are told apart by their index.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <vector>

#include "ui/form.h"

namespace zentaline::ui {

// Asked only for an index that it was made with.
template <class Control>
class ControlArray {
 public:
  // With the indices from `first` to `last`, or with these alone.
  ControlArray(Form& form, const char* name, int first, int last) {
    controls_.resize(static_cast<std::size_t>(last) + 1);
    for (int i = first; i <= last; ++i) Make(form, name, i);
  }
  ControlArray(Form& form, const char* name, std::initializer_list<int> indices) {
    controls_.resize(static_cast<std::size_t>(std::max(indices)) + 1);
    for (const int i : indices) Make(form, name, i);
  }
  Control& operator[](int index) const { return *controls_[static_cast<std::size_t>(index)]; }

 private:
  void Make(Form& form, const char* name, int i) {
    controls_[static_cast<std::size_t>(i)] = std::make_unique<Control>(form, name, i);
  }
  std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace zentaline::ui
