// What happened, line by line: the transcript that a console or a test prints.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ui/types.h"

namespace zentaline::ui {

class Form;

// A number, or a text in UTF-8.
using ScriptValue = std::variant<std::int64_t, std::string>;

class Transcript {
 public:
  // `sink` takes lines without their line end, `now` gives the milliseconds since the program began.
  Transcript(std::function<void(const std::string&)> sink, std::function<std::int64_t()> now)
      : sink_(std::move(sink)), now_(std::move(now)) {}

  void Box(BoxStyle style, std::string_view title, std::string_view text);
  void Dialog(const FileDialogRequest& request);
  // Only when it is another text than the last time.
  void Wait(const std::string& text);
  void Opened(const Form& form);
  void Closed(const Form& form);
  void Popup(std::string_view menu);
  void Printed(int left, int top, std::string_view text);
  void PrintEnded();

  void Service(std::string_view operation, const std::vector<int>& args, int result);
  void Long(std::string_view bytes);
  void Short(std::string_view bytes);
  void Failed(std::string_view operation, int result);

  void Value(std::string_view name, const ScriptValue& value);
  void Bytes(std::string_view bytes);

 private:
  // The first word and the time.
  std::string Start(std::string_view word) const;

  std::function<void(const std::string&)> sink_;
  std::function<std::int64_t()> now_;
  std::string wait_text_;
};

}  // namespace zentaline::ui
