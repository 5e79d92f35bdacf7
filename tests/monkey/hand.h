// A hand that does things at random: what could be done it asks the program's own windows, and it prefers what it has
// done least.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "tests/monkey/host.h"

namespace zentaline::monkey {

class Hand : public Lines {
 public:
  // `folder` is the working directory. In a life with `faults` the disk and the MIDI service fail now and then. With
  // `last` it is the last one of the run, which ends regularly.
  Hand(Shared& shared, std::string folder, bool faults, int life_length)
      : shared_(shared), folder_(std::move(folder)), faults_(faults), left_(life_length) {}

  std::optional<std::string> Next(Host& host) override;

 private:
  std::string Prelude();
  std::string Fault();
  std::string BoxLine(ui::BoxStyle style);
  std::string FileLine(const ui::FileDialogRequest& request);
  std::optional<std::string> TripLine(Host& host);
  std::string EndLine(Host& host);
  std::optional<std::string> RowLine(Host& host);
  std::string FormLine(ui::Form& form);
  std::string ModalLine(ui::Form& form);
  std::string LineIn(ui::Form& form);
  std::string MouseLine(const ui::Control& control);
  std::string UseOf(ui::Control& control);
  std::string ListLine(ui::ListBox& list);
  std::string ComboLine(ui::ComboBox& combo);
  std::string TextLine(ui::TextBox& box);
  std::string BarLine(ui::ScrollBar& bar);

  ui::Form& SomeForm(Host& host);
  ui::Control* SomeControl(ui::Form& form);
  std::string SomeText();
  std::string SomeKey();
  std::string SomeFile(const ui::FileDialogRequest& request);
  std::vector<std::string> FileNames() const;

  int Pick(int count) { return shared_.Pick(count); }
  bool OneIn(int count) { return shared_.OneIn(count); }
  template <class Items>
  const auto& OneOf(const Items& items) {
    return items[static_cast<std::size_t>(Pick(static_cast<int>(std::size(items))))];
  }
  // A question is also a place to crash at.
  std::string OrCrash(std::string line) { return OneIn(400) ? "#! crash" : line; }

  Shared& shared_;
  const std::string folder_;
  const bool faults_;
  int left_;  // lines of this life
  std::deque<std::string> next_;
  int prelude_ = 0;
  int ending_ = 0;  // attempts
  // A way back and forth again.
  enum class Trip { kNone, kBack, kForth } trip_ = Trip::kNone;
  int trip_length_ = 0, back_ = 0, forth_ = 0;
};

}  // namespace zentaline::monkey
