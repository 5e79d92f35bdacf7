#include "tests/monkey/hand.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "base/bytes.h"
#include "core/main_window.h"
#include "midi/operations.h"
#include "ui/picture.h"
#include "ui/script/names.h"
#include "ui/script/text.h"

namespace zentaline::monkey {

using ui::ControlKind;

namespace {

constexpr const char* kErrors[] = {"ENOENT", "EACCES", "EROFS", "ENOSPC", "EIO", "EISDIR", "ENOTDIR", "EMFILE"};
constexpr const char* kDiskOperations[] = {"read", "write", "remove", "list", "journal"};

constexpr const char* kTexts[] = {"",
                                  "a",
                                  "0",
                                  "11",
                                  "99999999999",
                                  "-1",
                                  "A B",
                                  "64",
                                  "\xC3\xA8",
                                  "#,;.*",
                                  "12345678901234567890",
                                  "Night Train",
                                  "127",
                                  "Str",
                                  "b",
                                  "\xE2\x82\xAC",
                                  "a\nb",
                                  "  "};

constexpr const char* kKeys[] = {"Delete", "Space", "Enter", "Escape", "Up", "Down", "PageUp", "PageDown", "Home",
                                 "End",    "Left",  "Right", "a",      "p",  "1",    "7",      "x",        "\xC3\xA8"};

constexpr int kMostBack = 300;
constexpr int kMostEndings = 200;
constexpr int kFarthest = 9000;  // in twips

bool IsForMouse(const ui::Control& control) {
  return control.kind() == ControlKind::kLabel || control.kind() == ControlKind::kFrame;
}

bool IsTaken(const ui::Control& control) {
  if (control.kind() == ControlKind::kTimer || !control.Usable()) return false;
  if (control.kind() == ControlKind::kLabel) return control.on_mouse || control.on_context || control.on_key;
  if (control.kind() == ControlKind::kFrame) return control.on_mouse || control.on_context;
  return true;
}

bool Fits(const std::string& name, const std::string& patterns) {
  const std::size_t point = name.rfind('.');
  return point != std::string::npos && LowerCase(patterns).find(LowerCase(name.substr(point))) != std::string::npos;
}

std::string Number(int number) {
  return std::to_string(number);
}

}  // namespace

std::optional<std::string> Hand::Next(Host& host) {
  if (host.Ended()) return std::nullopt;
  if (!host.start_given()) return Prelude();
  --left_;
  const Question& question = host.watched().question();
  if (question.kind == Question::kBox) return OrCrash(BoxLine(question.style));
  if (question.kind == Question::kDialog) return OrCrash(FileLine(*question.request));
  if (question.kind == Question::kModal) next_.clear();
  if (!next_.empty()) {
    std::string line = next_.front();
    next_.pop_front();
    return line;
  }
  if (question.kind == Question::kModal) return OrCrash(ModalLine(*host.watched().modal()));
  if (const auto line = TripLine(host)) return line;
  if (left_ <= 0 || shared_.actions >= shared_.most_actions) return EndLine(host);
  if (faults_ && OneIn(60)) return Fault();
  if (OneIn(20)) return "wait " + Number(OneIn(6) ? Pick(100000) : Pick(1200));
  if (OneIn(200)) return OneIn(3) ? "printer fail" : "printer ok";
  if (OneIn(150)) {
    trip_ = Trip::kBack;
    trip_length_ = OneIn(3) ? kMostBack : 1 + Pick(8);
    back_ = forth_ = 0;
    return "#! hold";
  }
  if (OneIn(25)) {
    const ui::MenuEntry& entry = host.program().main->Menu(OneIn(3) ? MenuId::mnuRipeti : MenuId::mnuAnnulla);
    if (entry.Usable()) return "press " + entry.FullName();
  }
  if (OneIn(18)) {
    if (const auto line = RowLine(host)) return *line;
  }
  ui::Form& form = SomeForm(host);
  if (OneIn(30)) return FormLine(form);
  return LineIn(form);
}

// Before the start.
std::string Hand::Prelude() {
  switch (prelude_++) {
    case 0: {
      std::string line = "outs";
      for (int i = Pick(4); i > 0; --i) line += " \"Port " + Number(i) + '"';
      return line;
    }
    case 1:
      return OneIn(3) ? "ins" : "ins Keys \"Other Keys\"";
    case 2:
      if (faults_ && OneIn(3)) return Fault();
      return "printer ok";
    default:
      return "start";
  }
}

std::string Hand::Fault() {
  if (OneIn(3)) {
    const char* const results[] = {"4", "1", "11", "0"};
    return "fail " + std::string(OneOf(kMidiOperationNames)) + ' ' + OneOf(results) + ' ' + Number(1 + Pick(3));
  }
  return std::string("disk ") + OneOf(kDiskOperations) + ' ' + (OneIn(8) ? "0" : OneOf(kErrors)) + ' ' +
         Number(1 + Pick(3)) + ' ' + Number(OneIn(2) ? 0 : Pick(4));
}

std::string Hand::BoxLine(ui::BoxStyle style) {
  const bool can_cancel = style == ui::BoxStyle::kYesNoCancel && ending_ == 0;
  if (can_cancel && OneIn(4)) return "answer cancel";
  return OneIn(3) ? "answer no" : "answer yes";
}

std::string Hand::FileLine(const ui::FileDialogRequest& request) {
  if (OneIn(6)) return "file cancel";
  const int filter = 1 + Pick(static_cast<int>(request.filters.size()));
  std::string line = "file " + ui::Quoted(SomeFile(request)) + " filter=" + Number(filter);
  if (request.shows_read_only && OneIn(6)) line += " readonly=1";
  return line;
}

std::string Hand::SomeFile(const ui::FileDialogRequest& request) {
  if (request.save && OneIn(2)) return "new" + Number(Pick(6)) + (OneIn(3) ? ".sty" : "");
  if (OneIn(30)) return OneIn(2) ? "none.arr" : "nowhere/none.sty";
  const std::vector<std::string> names = FileNames();
  std::vector<std::string> fitting;
  std::copy_if(names.begin(), names.end(), std::back_inserter(fitting), [&request](const std::string& name) {
    return std::any_of(request.filters.begin(), request.filters.end(),
                       [&name](const ui::FileFilter& filter) { return Fits(name, filter.patterns); });
  });
  return OneIn(8) || fitting.empty() ? OneOf(names) : OneOf(fitting);
}

// Sorted; a journal's name is another one in each run.
std::vector<std::string> Hand::FileNames() const {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_, error)) {
    const std::string name = entry.path().lexically_relative(folder_).string();
    if (entry.is_regular_file(error) && name.find(".journal") == std::string::npos) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  if (names.empty()) names.emplace_back("none.arr");
  return names;
}

std::optional<std::string> Hand::TripLine(Host& host) {
  if (trip_ == Trip::kNone) return std::nullopt;
  const MainWindow& main = *host.program().main;
  if (trip_ == Trip::kBack) {
    if (back_ < trip_length_ && main.Menu(MenuId::mnuAnnulla).Usable()) {
      ++back_;
      return "press mnuAnnulla";
    }
    trip_ = Trip::kForth;
  }
  if (forth_ < back_ && main.Menu(MenuId::mnuRipeti).Usable()) {
    ++forth_;
    return "press mnuRipeti";
  }
  trip_ = Trip::kNone;
  return "#! same";
}

// A crash, or the end that the user wants.
std::string Hand::EndLine(Host& host) {
  if (ending_ == 0 && !OneIn(3)) return "#! crash";
  if (ending_ == 0) {
    for (const char* const operation : kDiskOperations) {
      if (faults_) next_.push_back(std::string("disk ") + operation + " 0");
    }
  }
  if (++ending_ > kMostEndings) host.Fail("the program doesn't end");
  return "quit";
}

ui::Form& Hand::SomeForm(Host& host) {
  const std::vector<ui::Form*> forms = host.watched().forms();
  ui::Form* const front = host.watched().active_child();
  const int turn = Pick(100);
  if (turn < 50 && front != nullptr) return *front;
  if (turn < 75 && forms.size() > 1) return *OneOf(forms);
  return *host.program().main;
}

// What is done with the rows of files, and a file to do it with.
std::optional<std::string> Hand::RowLine(Host& host) {
  static constexpr const char* kOpen[] = {"mnuApriArr", "mnuApriPrg", "mnuApriSty", "mnuApriGbl", "mnuNuovoArr"};
  static constexpr const char* kWork[] = {"mnuEdit",    "mnuEdit",    "mnuCopia",  "mnuCopia",    "mnuIncolla",
                                          "mnuIncolla", "mnuIncolla", "mnuTaglia", "mnuEditPerf", "mnuSalva"};
  std::vector<ChildWindow*> windows;
  for (ui::Form* const form : host.watched().forms()) {
    if (form->kind() != ui::FormKind::kChild) continue;
    auto* const window = static_cast<ChildWindow*>(form);
    if (window->ItemList() != nullptr && window->ItemList()->Usable()) windows.push_back(window);
  }
  if (windows.size() < 3 && OneIn(2)) return std::string("press ") + OneOf(kOpen);
  if (windows.empty()) return std::nullopt;
  ui::ListBox& list = *OneOf(windows)->ItemList();
  if (list.rows() == 0) return std::nullopt;
  next_.push_back(std::string("press ") + OneOf(kWork));
  std::string line = "select " + ui::ScriptName(list) + ' ' + Number(Pick(list.rows()));
  if (list.multi_select && OneIn(3)) line += ' ' + Number(Pick(list.rows()));
  return line;
}

std::string Hand::FormLine(ui::Form& form) {
  const std::string name = form.FullName();
  const bool is_main = form.kind() == ui::FormKind::kMain;
  switch (Pick(9)) {
    case 0:
    case 1:
      // The main window's closing is the end of a life.
      if (is_main && !OneIn(20)) return "activate " + name;
      return (is_main ? "quit" : "close " + name);
    case 2:
      return "resize " + name + ' ' + Number(1 + Pick(1500)) + ' ' + Number(1 + Pick(1200));
    case 3:
      return "move " + name + ' ' + Number(Pick(2000) - 1000) + ' ' + Number(Pick(2000) - 1000);
    case 4:
      return "maximize " + name;
    case 5:
      return (is_main ? "restore " : "minimize ") + name;
    case 6:
      return "menu " + name;
    case 7:
      return "mouse " + name + ' ' + (OneIn(2) ? "move " : "up ") + Number(Pick(kFarthest)) + ' ' + Number(Pick(2000));
    default:
      return "restore " + name;
  }
}

std::string Hand::ModalLine(ui::Form& form) {
  if (OneIn(12)) return "close " + form.FullName();
  return LineIn(form);
}

// Of some that can be reached the one that was used least.
ui::Control* Hand::SomeControl(ui::Form& form) {
  std::vector<ui::Control*> usable;
  for (ui::Control* const control : form.controls()) {
    if (IsTaken(*control)) usable.push_back(control);
  }
  if (usable.empty()) return nullptr;
  const auto uses = [this, &form](const ui::Control& control) -> std::uint32_t& {
    return shared_.used[HashOf(form.name() + '.' + control.FullName()) % shared_.used.size()];
  };
  ui::Control* chosen = OneOf(usable);
  for (int i = form.kind() == ui::FormKind::kMain ? 12 : 4; i > 0; --i) {
    ui::Control* const other = OneOf(usable);
    if (uses(*other) < uses(*chosen)) chosen = other;
  }
  ++uses(*chosen);
  return chosen;
}

std::string Hand::LineIn(ui::Form& form) {
  ui::Control* const control = SomeControl(form);
  if (control == nullptr) return "activate " + form.FullName();
  const bool entry = control->kind() == ControlKind::kMenuEntry;
  if (!entry && (IsForMouse(*control) || OneIn(12))) return MouseLine(*control);
  if (!entry && OneIn(10)) return "key " + ui::ScriptName(*control) + ' ' + SomeKey();
  return UseOf(*control);
}

std::string Hand::MouseLine(const ui::Control& control) {
  const std::string name = ui::ScriptName(control);
  if (OneIn(4)) return "menu " + name;
  if (control.kind() == ControlKind::kLabel && control.on_key && OneIn(3)) return "key " + name + ' ' + SomeKey();
  const std::string place = ' ' + Number(Pick(kFarthest)) + ' ' + Number(Pick(2000));
  const std::string right = OneIn(5) ? " right" : "";
  next_.push_back("mouse " + name + " up" + place + right);
  return "mouse " + name + " down" + place + right;
}

std::string Hand::UseOf(ui::Control& control) {
  const std::string name = ui::ScriptName(control);
  switch (control.kind()) {
    case ControlKind::kListBox:
      return ListLine(static_cast<ui::ListBox&>(control));
    case ControlKind::kComboBox:
      return ComboLine(static_cast<ui::ComboBox&>(control));
    case ControlKind::kTextBox:
      return TextLine(static_cast<ui::TextBox&>(control));
    case ControlKind::kScrollBar:
      return BarLine(static_cast<ui::ScrollBar&>(control));
    case ControlKind::kCheckBox:
      return "set " + name + ' ' + Number(Pick(2));
    case ControlKind::kTabs:
      return "set " + name + ' ' + Number(Pick(static_cast<int>(static_cast<ui::Tabs&>(control).captions.size())));
    case ControlKind::kPicture: {
      const int handles = static_cast<ui::Picture&>(control).handles();
      if (handles == 0) return "key " + name + ' ' + SomeKey();
      return "drag " + name + ' ' + Number(Pick(handles)) + ' ' + Number(Pick(1001)) + ' ' + Number(Pick(1001));
    }
    case ControlKind::kPictureBox:
      return MouseLine(control);
    default:
      if (control.name() == "mnuExit" && !OneIn(20)) return "wait 10";
      return "press " + name;
  }
}

std::string Hand::ListLine(ui::ListBox& list) {
  const std::string name = ui::ScriptName(list);
  if (list.rows() == 0 || OneIn(12)) return "key " + name + ' ' + SomeKey();
  if (OneIn(6)) return "double " + name + ' ' + Number(Pick(list.rows()));
  if (OneIn(15)) return "select " + name + " none";
  std::string line = "select " + name + ' ' + Number(Pick(list.rows()));
  if (list.multi_select && OneIn(2)) {
    for (int i = Pick(5); i > 0; --i) line += ' ' + Number(Pick(list.rows()));
  }
  return line;
}

std::string Hand::ComboLine(ui::ComboBox& combo) {
  const std::string name = ui::ScriptName(combo);
  if (combo.editable && (combo.rows() == 0 || OneIn(2))) return "type " + name + ' ' + SomeText();
  if (combo.rows() == 0) return "key " + name + ' ' + SomeKey();
  return "select " + name + ' ' + Number(Pick(combo.rows()));
}

std::string Hand::TextLine(ui::TextBox& box) {
  const std::string name = ui::ScriptName(box);
  if (box.read_only || OneIn(5)) {
    // Arms it, where it waits for a sound.
    next_.push_back("mouse " + name + " up");
    return "mouse " + name + " down";
  }
  return "type " + name + ' ' + SomeText();
}

std::string Hand::BarLine(ui::ScrollBar& bar) {
  const std::string name = ui::ScriptName(bar);
  if (OneIn(10) && bar.kept_value && bar.kept_value()) return "double " + name;
  const auto [low, high] = std::minmax({bar.min(), bar.max()});
  return "set " + name + ' ' + Number(OneIn(5) ? bar.max() : low + Pick(high - low + 1));
}

std::string Hand::SomeText() {
  return ui::Quoted(OneOf(kTexts));
}

std::string Hand::SomeKey() {
  return OneOf(kKeys);
}

}  // namespace zentaline::monkey
