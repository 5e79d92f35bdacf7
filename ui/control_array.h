// Controls of one name that are told apart by their index.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "ui/form.h"

namespace zentaline::ui {

// With the indices from `first` to `last`.
template <class Control>
class ControlArray {
 public:
  ControlArray(Form& form, const char* name, int first, int last) : first_(first) {
    for (int i = first; i <= last; ++i) controls_.push_back(std::make_unique<Control>(form, name, i));
  }
  Control& operator[](int index) const { return *controls_[static_cast<std::size_t>(index - first_)]; }
  int size() const { return static_cast<int>(controls_.size()); }

 private:
  int first_;
  std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace zentaline::ui
