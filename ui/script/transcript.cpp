#include "ui/script/transcript.h"

#include "base/bytes.h"
#include "ui/form.h"
#include "ui/script/text.h"

namespace zentaline::ui {

std::string Transcript::Start(std::string_view word) const {
  return std::string(word) + ' ' + std::to_string(now_());
}

void Transcript::Box(BoxStyle style, std::string_view title, std::string_view text) {
  sink_(Start("box") + ' ' + std::to_string(static_cast<int>(style)) + ' ' + Quoted(title) + ' ' + Quoted(text));
}

void Transcript::Dialog(const FileDialogRequest& request) {
  sink_(Start("dialog") + (request.save ? " save " : " open ") + Quoted(request.title) +
        " filter=" + std::to_string(request.filter) + " dir=" + Quoted(request.directory) +
        " name=" + Quoted(request.name) + " readonly=" + (request.read_only ? "1" : "0"));
}

void Transcript::Wait(const std::string& text) {
  if (text == wait_text_) return;
  wait_text_ = text;
  sink_(Start("wait") + ' ' + Quoted(text));
}

void Transcript::Opened(const Form& form) {
  sink_(Start("open") + ' ' + form.FullName() + ' ' + Quoted(form.caption()));
}

void Transcript::Closed(const Form& form) {
  sink_(Start("close") + ' ' + form.FullName());
}

void Transcript::Popup(std::string_view menu) {
  sink_(Start("popup") + ' ' + std::string(menu));
}

void Transcript::Printed(int left, int top, std::string_view text) {
  sink_(Start("print") + ' ' + std::to_string(left) + ' ' + std::to_string(top) + ' ' + Quoted(text));
}

void Transcript::PrintEnded() {
  sink_(Start("print") + " end");
}

void Transcript::Service(std::string_view operation, const std::vector<int>& args, int result) {
  std::string line = Start("service") + ' ' + std::string(operation);
  for (const int arg : args) line += ' ' + std::to_string(arg);
  sink_(line + " -> " + std::to_string(result));
}

void Transcript::Long(std::string_view bytes) {
  sink_(Start("long") + ' ' + HexText(bytes));
}

void Transcript::Short(std::string_view bytes) {
  sink_(Start("short") + ' ' + HexText(bytes));
}

void Transcript::Failed(std::string_view operation, int result) {
  sink_(Start("failed") + ' ' + std::string(operation) + " -> " + std::to_string(result));
}

void Transcript::Value(std::string_view name, const ScriptValue& value) {
  const auto* const number = std::get_if<std::int64_t>(&value);
  sink_("value " + std::string(name) + ' ' +
        (number != nullptr ? std::to_string(*number) : Quoted(std::get<std::string>(value))));
}

void Transcript::Bytes(std::string_view bytes) {
  sink_(bytes.empty() ? "bytes" : "bytes " + HexText(bytes));
}

}  // namespace zentaline::ui
