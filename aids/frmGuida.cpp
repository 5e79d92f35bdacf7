#include "aids/frmGuida.h"

#include <algorithm>
#include <string>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/window_image.h"
#include "data/texts.h"

namespace zentaline {

namespace {

constexpr ui::Font kFont = {.fixed_pitch = true};
constexpr ui::Size kFirstCharacters = {82, 32};

constexpr std::string_view kEndOfLine = "\r\n";

// Each line end as carriage return and line feed, whatever the file has.
std::string WithLineEnds(std::string_view guide) {
  std::string text;
  text.reserve(guide.size());
  for (const char c : guide) {
    if (c == '\n' && !text.ends_with('\r')) text += '\r';
    text += c;
  }
  return text;
}

int CountLines(std::string_view text) {
  int lines = text.empty() || text.ends_with(kEndOfLine) ? 0 : 1;
  for (std::size_t at = text.find(kEndOfLine); at != std::string_view::npos; at = text.find(kEndOfLine, at + 1)) {
    ++lines;
  }
  return lines;
}

}  // namespace

frmGuida::frmGuida(Application& app) : ChildWindow(app, "frmGuida", {}) {
  Text1.multi_line = Text1.read_only = true;
  Text1.on_key = [this](const ui::Key& key) {
    KeyInText(key);
    return false;
  };
  Timer1.SetInterval(1);
  Timer1.on_timer = [this] { Text1.SetFocus(); };
  layout = ui::Tight(ui::Column({ui::Item(Text1, 1)}));
}

FormState* frmGuida::FormPlace() {
  return &app().core.FormStates[kKindGuide];
}

void frmGuida::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  SetCaption(std::string("Zentaline - ") + GetText(app(), kTextGuide));
  Text1.SetFont(kFont);
  SizeAtFirst(kFont, kFirstCharacters);
  ChildWindow::Load();
  const std::string_view guide =
      std::string_view(app().aids.GuideText).substr(0, static_cast<std::size_t>(app().aids.GuideLength));
  std::string text = WithLineEnds(Utf8FromBytes(guide));
  lines_ = CountLines(text);
  Text1.SetText(std::move(text));
  Timer1.Start();
}

int frmGuida::LinesOfPage() const {
  return std::max(inner_size().height / std::max(toolkit().LineHeight(kFont), 1), 1);
}

void frmGuida::MoveView(int lines) {
  const int last = std::max(lines_ - LinesOfPage(), 0);
  Text1.SetTopLine(std::clamp(Text1.top_line() + lines, 0, last));
}

void frmGuida::KeyInText(const ui::Key& key) {
  // A line of the last page stays in sight.
  const int page = std::max(LinesOfPage() - 1, 1);
  switch (key.name) {
    case ui::Key::kDown:
      return MoveView(1);
    case ui::Key::kUp:
      return MoveView(-1);
    case ui::Key::kPageDown:
    case ui::Key::kSpace:
      return MoveView(page);
    case ui::Key::kPageUp:
      return MoveView(-page);
    case ui::Key::kHome:
      return MoveView(-lines_);
    case ui::Key::kEnd:
      return MoveView(lines_);
    default:
      return;
  }
}

}  // namespace zentaline
