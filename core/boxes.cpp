#include "core/boxes.h"

#include "base/utf8.h"
#include "core/application.h"
#include "core/main_window.h"
#include "data/message_codes.h"
#include "data/texts.h"

namespace zentaline {

namespace {

std::string QuestionText(const Application& app, const QuestionTexts& texts, const std::string& name) {
  if (texts.first == 0) return name;
  std::string text = GetText(app, texts.first);
  if (texts.second != 0) text += "\n" + GetText(app, texts.second);
  return text;
}

}  // namespace

std::string GetText(const Application& app, int id) {
  return std::string(TextOf(app.core.LanguageOffset + id));
}

std::string WithName(std::string_view text, std::string_view name) {
  const std::size_t place = text.find('_');
  if (place == std::string_view::npos) return std::string(text);
  return std::string(text.substr(0, place)).append(name).append(text.substr(place + 1));
}

void ShowMessage(Application& app, int code, const std::string& title, const std::string& name) {
  const std::string text = code == 1 ? name : WithName(GetText(app, MessageTextId(code)), name);
  const Undo::Hold hold(app);
  app.toolkit.MessageBox(ui::BoxStyle::kOk, title, text);
}

ui::BoxAnswer AskYesNo(Application& app, int code, const std::string& name, const std::string& title) {
  const Undo::Hold hold(app);
  return app.toolkit.MessageBox(ui::BoxStyle::kYesNo, title.empty() ? ActiveCaption(app) : title,
                                QuestionText(app, YesNoTexts(code), name));
}

ui::BoxAnswer AskYesNoCancel(Application& app, int code, const std::string& title, const std::string& name) {
  const Undo::Hold hold(app);
  return app.toolkit.MessageBox(ui::BoxStyle::kYesNoCancel, title, QuestionText(app, YesNoCancelTexts(code), name));
}

ui::FileDialogAnswer AskForFile(Application& app, const ui::FileDialogRequest& request) {
  const Undo::Hold hold(app);
  return app.toolkit.FileDialog(request);
}

void ShowWait(Application& app, int code, const std::string& name) {
  const std::string text = code == 0 ? std::string() : WithName(GetText(app, WaitTextId(code)), name);
  if (app.main != nullptr) app.main->Label1.SetCaption(text);
  app.toolkit.ShowWait(text);
}

void ShowNotice(Application& app, const std::string& text) {
  if (app.main != nullptr) app.main->Label1.SetCaption(text);
  app.toolkit.ShowWait(text);
  app.toolkit.ShowWait({});
}

std::string TwoNames(std::string_view text, std::string_view first, std::string_view second) {
  // A name may hold a "_" of its own.
  const std::size_t place = text.find('_');
  if (place == std::string_view::npos) return std::string(text);
  return std::string(text.substr(0, place)).append(first).append(WithName(text.substr(place + 1), second));
}

void FileErrorMessage(Application& app, DiskResult result) {
  int code = kMessageDiskReading;
  switch (result) {
    case DiskResult::kNotReady:
      code = kMessageNotReady;
      break;
    case DiskResult::kNoAccess:
    case DiskResult::kIsFolder:
      code = kMessageReadOnlyFile;
      break;
    case DiskResult::kPathAbsent:
      code = kMessagePathNotFound;
      break;
    case DiskResult::kInputOutput:
      code = kMessageDevice;
      break;
    case DiskResult::kFull:
      code = kMessageDiskFull;
      break;
    default:
      break;
  }
  ShowMessage(app, code, app.core.OperationTitle, {});
}

std::string ActiveCaption(const Application& app) {
  if (const ui::Form* child = app.toolkit.active_child(); child != nullptr) return child->caption();
  return app.main != nullptr ? app.main->caption() : std::string();
}

std::string ShownPath(std::string_view path) {
  return IsUtf8(path) ? std::string(path) : Utf8FromBytes(path);
}

std::string CutText(std::string_view text, std::size_t most) {
  if (text.size() <= most) return std::string(text);
  std::size_t length = most;
  while (length > 0 && IsInsideCharacter(text[length])) --length;
  return std::string(text.substr(0, length));
}

}  // namespace zentaline
