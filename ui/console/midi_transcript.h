// Prints what a MIDI service is asked as lines of the transcript.
#pragma once

#include "midi/listener.h"
#include "ui/script/transcript.h"

namespace zentaline::ui {

class MidiTranscript : public MidiListener {
 public:
  // Borrowed; must outlive this one.
  explicit MidiTranscript(Transcript& transcript) : transcript_(transcript) {}

  void Service(std::string_view operation, const std::vector<int>& args, int result) override {
    transcript_.Service(operation, args, result);
  }
  void Long(std::string_view bytes) override { transcript_.Long(bytes); }
  void Short(std::string_view bytes) override { transcript_.Short(bytes); }
  void Failed(std::string_view operation, int result) override { transcript_.Failed(operation, result); }

 private:
  Transcript& transcript_;
};

}  // namespace zentaline::ui
