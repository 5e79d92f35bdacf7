// What can be saved and stands outside of the windows' images: it reads like a plain value, and changes only through
// core/edits.h.
#pragma once

#include <string_view>
#include <utility>

#include "base/bytes.h"
#include "core/edit_tally.h"

namespace zentaline {

class Edits;

class EditedBytes {
 public:
  const Bytes& value() const { return value_; }
  operator const Bytes&() const { return value_; }
  operator std::string_view() const { return value_; }
  friend bool operator==(const EditedBytes& bytes, std::string_view other) { return bytes.value_ == other; }

 private:
  friend class Edits;
  Bytes value_;
};

class EditedFlag {
 public:
  const bool& value() const { return value_; }
  operator bool() const { return value_; }

 private:
  friend class Edits;
  bool value_ = false;
  EditTally tally_;
};

}  // namespace zentaline
