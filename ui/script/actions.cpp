// The commands that do what a user does.
#include <algorithm>
#include <tuple>
#include <utility>

#include "base/utf8.h"
#include "ui/picture.h"
#include "ui/script/engine.h"

namespace zentaline::ui {

namespace {

// What lies beyond it is no place or size of a window.
constexpr int kFarthest = 1000000;

bool IsShown(const Control& control) {
  return control.kind() != ControlKind::kTimer && control.kind() != ControlKind::kMenuEntry;
}

bool InRange(int row, int rows) {
  return row >= 0 && row < rows;
}

}  // namespace

ScriptEngine::Outcome ScriptEngine::Refused(const Control& control, std::string_view why) {
  return Refused(ScriptName(control) + ' ' + std::string(why));
}

ScriptEngine::Outcome ScriptEngine::DoneBy(bool done, std::string_view name) {
  return done ? Outcome() : Refused(std::string(name) + " refuses that");
}

ScriptEngine::Outcome ScriptEngine::Reach(const std::string& name, ScriptTarget& target) {
  target = FindScriptTarget(host_.toolkit(), name);
  if (!target.Found()) return Refused(target.error);
  if (!target.form->Reachable()) return Refused(name + " can't be reached while another window waits to be closed");
  if (target.form->kind() == FormKind::kChild) driver_.Activate(*target.form);
  if (target.control == nullptr) return target.form->open() ? Outcome() : Refused(name + " has been closed");
  if (target.control->Usable()) return {};
  if (!target.control->visible()) return Refused(*target.control, "is not to be seen");
  return Refused(*target.control, target.control->enabled() ? "stands in what is disabled or hidden" : "is disabled");
}

ScriptEngine::Outcome ScriptEngine::ReachByMouse(const std::string& name, ScriptTarget& target) {
  Outcome outcome = Reach(name, target);
  if (outcome.status != kScriptDone || target.control == nullptr || IsShown(*target.control)) return outcome;
  return Refused(*target.control, "is nothing that the mouse can reach");
}

Control* ScriptEngine::ReachControl(const std::string& name, std::initializer_list<ControlKind> kinds,
                                    Outcome& refusal) {
  ScriptTarget target;
  refusal = Reach(name, target);
  if (refusal.status != kScriptDone) return nullptr;
  if (target.control == nullptr) {
    refusal = Refused(name + " is a window");
  } else if (std::find(kinds.begin(), kinds.end(), target.control->kind()) == kinds.end()) {
    refusal = Refused(*target.control, "is no control for this command");
    return nullptr;
  }
  return target.control;
}

// A hand on the frame of a child window brings it to the front.
Form* ScriptEngine::ReachForm(const std::string& name, Outcome& refusal) {
  Form* const form = host_.toolkit().FindForm(name);
  if (form == nullptr || !form->Reachable()) {
    refusal = Refused(form == nullptr ? "no window is called " + name
                                      : name + " can't be reached while another window waits to be closed");
    return nullptr;
  }
  if (form->kind() == FormKind::kChild) driver_.Activate(*form);
  if (form->open()) return form;
  refusal = Refused(name + " has been closed");
  return nullptr;
}

ScriptEngine::Outcome ScriptEngine::Press(Words words) {
  const UserEvent event(host_.toolkit());
  Outcome refusal;
  Control* const control =
      ReachControl(words[0].text, {ControlKind::kButton, ControlKind::kOptionButton, ControlKind::kMenuEntry}, refusal);
  if (control == nullptr) return refusal;
  return DoneBy(driver_.Press(*control), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Select(Words words) {
  const UserEvent event(host_.toolkit());
  const std::vector<int> chosen = *ScriptRows(words.subspan(1));
  Outcome refusal;
  Control* const control = ReachControl(words[0].text, {ControlKind::kListBox, ControlKind::kComboBox}, refusal);
  if (control == nullptr) return refusal;
  const bool is_list = control->kind() == ControlKind::kListBox;
  const int rows = is_list ? static_cast<ListBox*>(control)->rows() : static_cast<ComboBox*>(control)->rows();
  if (!std::all_of(chosen.begin(), chosen.end(), [rows](int row) { return InRange(row, rows); })) {
    return Refused(*control, "has no such row");
  }
  const bool several = is_list && static_cast<ListBox*>(control)->multi_select;
  if ((chosen.size() > 1 && !several) || (chosen.empty() && !is_list)) return Refused(*control, "takes one row");
  return DoneBy(driver_.Select(*control, chosen), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Set(Words words) {
  const UserEvent event(host_.toolkit());
  const int value = *ScriptNumber(words[1].text);
  Outcome refusal;
  Control* const control =
      ReachControl(words[0].text, {ControlKind::kScrollBar, ControlKind::kCheckBox, ControlKind::kTabs}, refusal);
  if (control == nullptr) return refusal;
  int low = 0;
  int high = 1;
  if (control->kind() == ControlKind::kScrollBar) {
    const ScrollBar& bar = *static_cast<ScrollBar*>(control);
    std::tie(low, high) = std::minmax({bar.min(), bar.max()});
  } else if (control->kind() == ControlKind::kTabs) {
    high = static_cast<int>(static_cast<Tabs*>(control)->captions.size()) - 1;
  }
  if (value < low || value > high) return Refused(*control, "has no such value");
  return DoneBy(driver_.Set(*control, value), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Type(Words words) {
  const UserEvent event(host_.toolkit());
  const std::string& text = words[1].text;
  Outcome refusal;
  Control* const control = ReachControl(words[0].text, {ControlKind::kTextBox, ControlKind::kComboBox}, refusal);
  if (control == nullptr) return refusal;
  if (!IsUtf8(text) || text.find('\0') != std::string::npos) return Refused("this can't be typed");
  return DoneBy(driver_.Type(*control, text), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::PressKey(Words words) {
  const UserEvent event(host_.toolkit());
  Outcome refusal;
  Control* const control =
      ReachControl(words[0].text,
                   {ControlKind::kButton, ControlKind::kTextBox, ControlKind::kListBox, ControlKind::kComboBox,
                    ControlKind::kScrollBar, ControlKind::kCheckBox, ControlKind::kOptionButton, ControlKind::kTabs,
                    ControlKind::kPictureBox, ControlKind::kPicture, ControlKind::kLabel},
                   refusal);
  if (control == nullptr) return refusal;
  if (control->kind() == ControlKind::kLabel && !control->on_key) return Refused(*control, "takes no keys");
  return DoneBy(driver_.PressKey(*control, *ScriptKey(words[1].text)), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::DoubleClick(Words words) {
  const UserEvent event(host_.toolkit());
  Outcome refusal;
  if (words.size() == 1) {
    Control* const bar = ReachControl(words[0].text, {ControlKind::kScrollBar}, refusal);
    return bar == nullptr ? refusal : DoneBy(driver_.DoubleClick(*static_cast<ScrollBar*>(bar)), words[0].text);
  }
  const int row = *ScriptNumber(words[1].text);
  Control* const control = ReachControl(words[0].text, {ControlKind::kListBox}, refusal);
  if (control == nullptr) return refusal;
  if (!InRange(row, static_cast<ListBox*>(control)->rows())) return Refused(*control, "has no such row");
  return DoneBy(driver_.DoubleClick(*control, row), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Drag(Words words) {
  const UserEvent event(host_.toolkit());
  const std::vector<int> numbers = *ScriptNumbers(words.subspan(1));
  Outcome refusal;
  Control* const control = ReachControl(words[0].text, {ControlKind::kPicture}, refusal);
  if (control == nullptr) return refusal;
  auto& picture = *static_cast<Picture*>(control);
  if (!InRange(numbers[0], picture.handles())) return Refused(*control, "has no such handle");
  const int x = std::clamp(numbers[1], 0, kWholePicture);
  const int y = std::clamp(numbers[2], 0, kWholePicture);
  return DoneBy(driver_.Drag(picture, numbers[0], x, y), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Mouse(Words words) {
  const UserEvent event(host_.toolkit());
  const MouseEvent mouse = *ScriptMouse(words.subspan(1));
  ScriptTarget target;
  if (Outcome refusal = ReachByMouse(words[0].text, target); refusal.status != kScriptDone) return refusal;
  return DoneBy(target.control != nullptr ? driver_.Mouse(*target.control, mouse) : driver_.Mouse(*target.form, mouse),
                words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Menu(Words words) {
  const UserEvent event(host_.toolkit());
  ScriptTarget target;
  if (Outcome refusal = ReachByMouse(words[0].text, target); refusal.status != kScriptDone) return refusal;
  return DoneBy(target.control != nullptr ? driver_.Context(*target.control) : driver_.Context(*target.form),
                words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Activate(Words words) {
  const UserEvent event(host_.toolkit());
  Outcome refusal;
  Form* const form = ReachForm(words[0].text, refusal);
  if (form == nullptr) return refusal;
  return DoneBy(form->kind() == FormKind::kChild, words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Close(Words words) {
  const UserEvent event(host_.toolkit());
  Outcome refusal;
  Form* const form = ReachForm(words[0].text, refusal);
  if (form != nullptr) driver_.Close(*form);
  return refusal;
}

ScriptEngine::Outcome ScriptEngine::Resize(Words words) {
  const UserEvent event(host_.toolkit());
  const int width = *ScriptNumber(words[1].text);
  const int height = *ScriptNumber(words[2].text);
  Outcome refusal;
  Form* const form = ReachForm(words[0].text, refusal);
  if (form == nullptr) return refusal;
  if (width < 1 || height < 1 || width > kFarthest || height > kFarthest) return Refused("no window has such a size");
  Placement placement = form->placement();
  if (placement.state != WindowState::kNormal) return Refused(words[0].text + " is minimised or maximised");
  placement.width = width;
  placement.height = height;
  return DoneBy(driver_.Place(*form, placement), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::Move(Words words) {
  const UserEvent event(host_.toolkit());
  const int left = *ScriptNumber(words[1].text);
  const int top = *ScriptNumber(words[2].text);
  Outcome refusal;
  Form* const form = ReachForm(words[0].text, refusal);
  if (form == nullptr) return refusal;
  if (std::max(left, top) > kFarthest || std::min(left, top) < -kFarthest) return Refused("no window has such a place");
  Placement placement = form->placement();
  if (placement.state != WindowState::kNormal) return Refused(words[0].text + " is minimised or maximised");
  placement.left = left;
  placement.top = top;
  return DoneBy(driver_.Place(*form, placement), words[0].text);
}

ScriptEngine::Outcome ScriptEngine::ChangeState(const std::string& name, WindowState state) {
  const UserEvent event(host_.toolkit());
  Outcome refusal;
  Form* const form = ReachForm(name, refusal);
  if (form == nullptr) return refusal;
  Placement placement = form->placement();
  placement.state = state;
  return DoneBy(driver_.Place(*form, placement), name);
}

ScriptEngine::Outcome ScriptEngine::Maximize(Words words) {
  return ChangeState(words[0].text, WindowState::kMaximised);
}

ScriptEngine::Outcome ScriptEngine::Minimize(Words words) {
  return ChangeState(words[0].text, WindowState::kMinimised);
}

ScriptEngine::Outcome ScriptEngine::Restore(Words words) {
  return ChangeState(words[0].text, WindowState::kNormal);
}

}  // namespace zentaline::ui
