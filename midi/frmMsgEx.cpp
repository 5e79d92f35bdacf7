#include "midi/frmMsgEx.h"

#include <string>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/texts.h"

namespace zentaline {

namespace {

constexpr ui::Font kFont = {.fixed_pitch = true, .points = 10};
constexpr ui::Size kFirstCharacters = {64, 30};

constexpr std::size_t kWorkArea = 65000;  // characters
constexpr std::size_t kCharactersOfByte = 3;
constexpr std::size_t kMostBytes = kWorkArea / kCharactersOfByte;  // of a longer message the first are shown
constexpr std::string_view kEndOfLine = "\r\n";
constexpr char kDigits[] = "0123456789ABCDEF";

}  // namespace

frmMsgEx::frmMsgEx(Application& app) : ChildWindow(app, "frmMsgEx", {}) {
  Text1.multi_line = Text1.read_only = true;
  on_context = Text1.on_context = [this] { PopupEditMenu(); };
  layout = ui::Tight(ui::Column({ui::Item(Text1, 1)}));
}

FormState* frmMsgEx::FormPlace() {
  return &app().core.FormStates[kKindMonitor];
}

void frmMsgEx::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  SetCaption(GetText(app(), kTextCaption));
  Text1.SetFont(kFont);
  SizeAtFirst(kFont, kFirstCharacters);
  ChildWindow::Load();
  work_.reserve(kWorkArea + kEndOfLine.size());
  app().midi.Monitor = [this](std::string_view bytes) { Log(bytes); };
  app().midi.MonitorOn = true;
  if (app().main != nullptr) app().main->Menu(MenuId::mnuMsgEx).SetChecked(true);
}

void frmMsgEx::Unload() {
  app().midi.Monitor = nullptr;
  app().midi.MonitorOn = false;
  if (app().main != nullptr) app().main->Menu(MenuId::mnuMsgEx).SetChecked(false);
  ChildWindow::Unload();
}

// The line is made in a work area of fixed size, so that the text of a dump doesn't grow byte by byte.
void frmMsgEx::Log(std::string_view bytes) {
  if (bytes.empty()) return Text1.SetText({});
  const std::size_t count = std::min(bytes.size(), kMostBytes);
  work_.resize(count * kCharactersOfByte);
  char* to = work_.data();
  for (const char byte : bytes.substr(0, count)) {
    const auto value = static_cast<unsigned char>(byte);
    *to++ = kDigits[value >> 4];
    *to++ = kDigits[value & 15];
    *to++ = ' ';
  }
  work_ += kEndOfLine;
  Text1.SetText(Text1.text() + work_);
}

}  // namespace zentaline
