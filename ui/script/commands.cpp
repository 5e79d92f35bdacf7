// The commands around the program, and those that read it.
#include <algorithm>
#include <utility>

#include "base/bytes.h"
#include "ui/script/engine.h"
#include "ui/script/properties.h"

namespace zentaline::ui {

namespace {

// So many bytes of an image go on one line at most.
constexpr int kMostBytes = 1 << 20;

std::vector<std::string> Texts(ScriptWords words) {
  std::vector<std::string> texts;
  for (const ScriptWord& word : words) texts.push_back(word.text);
  return texts;
}

int Times(ScriptWords words) {
  return words.size() > 2 ? *ScriptNumber(words[2].text) : 1;
}

int After(ScriptWords words) {
  return words.size() > 3 ? *ScriptNumber(words[3].text) : 0;
}

std::string Absolute(const std::string& directory, const std::string& path) {
  if (path.front() == '/') return path;
  return directory.ends_with('/') ? directory + path : directory + '/' + path;
}

bool HasExtension(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
  const std::size_t dot = path.rfind('.');
  return dot != std::string::npos && dot > start;
}

bool HasButton(BoxStyle style, BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::kOk:
      return style == BoxStyle::kOk;
    case BoxAnswer::kCancel:
      return style == BoxStyle::kYesNoCancel;
    default:
      return style != BoxStyle::kOk;
  }
}

}  // namespace

ScriptEngine::Outcome ScriptEngine::FromHost(HostResult result) {
  switch (result) {
    case HostResult::kDone:
      return {};
    case HostResult::kUnknown:
      return Usage("there is no such operation or error");
    default:
      return Refused("the devices and faults of this service can't be set");
  }
}

ScriptEngine::Outcome ScriptEngine::Outs(Words words) {
  return FromHost(host_.SetOuts(Texts(words)));
}

ScriptEngine::Outcome ScriptEngine::Ins(Words words) {
  return FromHost(host_.SetIns(Texts(words)));
}

ScriptEngine::Outcome ScriptEngine::Fail(Words words) {
  return FromHost(host_.FailService(words[0].text, *ScriptNumber(words[1].text), Times(words)));
}

ScriptEngine::Outcome ScriptEngine::Disk(Words words) {
  return FromHost(host_.FailDisk(words[0].text, words[1].text, Times(words), After(words)));
}

ScriptEngine::Outcome ScriptEngine::Printer(Words words) {
  host_.SetPrinter(words[0].text == "ok");
  return {};
}

ScriptEngine::Outcome ScriptEngine::Start(Words) {
  started_ = true;
  host_.Start();
  return {};
}

ScriptEngine::Outcome ScriptEngine::Wait(Words words) {
  host_.Advance(*ScriptDuration(words[0].text));
  return {};
}

ScriptEngine::Outcome ScriptEngine::Quit(Words) {
  for (Form* const form : host_.toolkit().forms()) {
    if (form->kind() != FormKind::kMain) continue;
    if (!form->Reachable()) break;
    driver_.Close(*form);
    return {};
  }
  return Refused("the main window can't be closed now");
}

ScriptEngine::Outcome ScriptEngine::Answer(Words words) {
  const BoxAnswer answer = *ScriptAnswer(words[0].text);
  if (!HasButton(box_style_, answer)) return Refused("the box has no such button");
  box_answer_ = answer;
  return {};
}

ScriptEngine::Outcome ScriptEngine::File(Words words) {
  const ScriptFile file = *ScriptFileAnswer(words);
  FileDialogAnswer answer;
  answer.cancelled = file.cancelled;
  answer.filter = file.filter.value_or(dialog_->filter);
  answer.read_only = file.read_only.value_or(dialog_->read_only);
  if (file.cancelled) {
    dialog_answer_ = answer;
    return {};
  }
  if (file.path.find('\0') != std::string::npos) return Refused("this is no path");
  if (file.filter && (*file.filter < 1 || *file.filter > static_cast<int>(dialog_->filters.size()))) {
    return Refused("the dialog has no such filter");
  }
  if (file.read_only.value_or(false) && !dialog_->shows_read_only) return Refused("the dialog has no read-only box");
  // No name at all stays none: what a dialog answers when nothing was typed.
  if (!file.path.empty()) answer.path = Absolute(host_.Directory(), file.path);
  if (!file.path.empty() && dialog_->save && !dialog_->default_extension.empty() && !HasExtension(answer.path)) {
    answer.path += '.' + dialog_->default_extension;
  }
  dialog_answer_ = std::move(answer);
  return {};
}

ScriptEngine::Outcome ScriptEngine::Get(Words words) {
  const std::string& name = words[0].text;
  const ScriptTarget target = FindScriptTarget(host_.toolkit(), name, true);
  if (!target.Found()) return Refused(target.error);
  const auto value = target.control != nullptr ? ReadProperty(*target.control, target.property)
                                               : ReadProperty(*target.form, target.property);
  if (!value) return Refused("there is no property " + name);
  transcript_.Value(name, *value);
  return {};
}

ScriptEngine::Outcome ScriptEngine::Show(Words words) {
  const Form* const form = host_.toolkit().FindForm(words[0].text);
  if (form == nullptr) return Refused("no window is called " + words[0].text);
  for (const Control* const control : form->controls()) {
    if (const auto value = ReadProperty(*control, {})) transcript_.Value(ScriptName(*control), *value);
  }
  return {};
}

ScriptEngine::Outcome ScriptEngine::Image(Words words) {
  const std::string& name = words[0].text;
  const int position = *ScriptNumber(words[1].text);
  const int length = *ScriptNumber(words[2].text);
  if (position < 1 || length < 0 || length > kMostBytes) return Refused("position or length out of range");
  Form* const form = host_.toolkit().FindForm(name);
  const auto* const image = form != nullptr ? host_.ImageOf(*form) : host_.Image(name);
  if (image == nullptr) return Refused("there is no image of " + name);
  transcript_.Bytes(Slice(*image, static_cast<std::size_t>(position), static_cast<std::size_t>(length)));
  return {};
}

ScriptEngine::Outcome ScriptEngine::State(Words words) {
  const auto value = host_.State(words[0].text);
  if (!value) return Refused("there is no state " + words[0].text);
  transcript_.Value(words[0].text, *value);
  return {};
}

ScriptEngine::Outcome ScriptEngine::Instrument(Words) {
  const auto values = host_.Instrument();
  if (!values) return Refused("there is no instrument inside the program");
  for (const auto& [name, value] : *values) transcript_.Value(name, value);
  return {};
}

ScriptEngine::Outcome ScriptEngine::Windows(Words) {
  for (const Form* const form : host_.toolkit().forms()) {
    if (form->kind() == FormKind::kChild) transcript_.Value(form->FullName(), form->caption());
  }
  return {};
}

}  // namespace zentaline::ui
