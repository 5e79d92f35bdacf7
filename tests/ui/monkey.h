// Someone who does things at random, in whatever window is open, and answers whatever is asked.
#pragma once

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "ui/console/console_toolkit.h"

namespace zentaline::ui {

class Monkey : public ScriptQuestions {
 public:
  // It never ends the program.
  bool stays = false;

  // `names` gives the paths that it knows when a dialog asks for one.
  Monkey(ConsoleToolkit& toolkit, unsigned seed, std::function<std::vector<std::string>()> names)
      : toolkit_(toolkit), driver_(toolkit), random_(seed), names_(std::move(names)) {}

  // One action; nothing when the program has ended.
  void Act() {
    std::vector<Form*> open = toolkit_.forms();
    std::erase_if(open, [](const Form* form) { return !form->Reachable(); });
    if (open.empty() || toolkit_.main_closed()) return;
    if (Pick(10) == 0) return toolkit_.Advance(Pick(3000));
    const UserEvent event(toolkit_);
    // Half of the time the main window, whose menus lead everywhere.
    Form& form = *open[Pick(2) == 0 ? 0 : static_cast<std::size_t>(Pick(static_cast<int>(open.size())))];
    if (Pick(60) == 0) return ActOnForm(form);
    ActOnOneOf(form);
  }

  // One action in this window.
  void ActIn(Form& form) {
    const UserEvent event(toolkit_);
    ActOnOneOf(form);
  }

  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(std::max(count, 1))); }

  BoxAnswer AnswerBox(BoxStyle style) override {
    if (style == BoxStyle::kOk) return BoxAnswer::kOk;
    if (style == BoxStyle::kYesNoCancel && Pick(4) == 0) return BoxAnswer::kCancel;
    return Pick(2) == 0 ? BoxAnswer::kYes : BoxAnswer::kNo;
  }

  FileDialogAnswer AnswerDialog(const FileDialogRequest& request) override {
    FileDialogAnswer answer;
    const std::vector<std::string> names = names_();
    answer.cancelled = Pick(5) == 0 || names.empty();
    if (answer.cancelled) return answer;
    answer.path = names[static_cast<std::size_t>(Pick(static_cast<int>(names.size())))];
    if (request.save && Pick(2) == 0)
      answer.path = "/disk/new" + std::to_string(Pick(9)) + '.' + request.default_extension;
    answer.filter = 1 + Pick(static_cast<int>(request.filters.size()));
    answer.read_only = Pick(6) == 0;
    return answer;
  }

  void RunModal(Form& form) override {
    for (int i = 0; i < 30 && form.open(); ++i) Act();
    while (form.open() && toolkit_.modal() != nullptr) toolkit_.modal()->CloseWithoutAsking();
  }

 private:
  void ActOnOneOf(Form& form) {
    const auto& controls = form.controls();
    if (!controls.empty()) ActOn(*controls[static_cast<std::size_t>(Pick(static_cast<int>(controls.size())))]);
  }

  void ActOnForm(Form& form) {
    Placement placement = form.placement();
    switch (Pick(6)) {
      case 0:
        if (form.kind() != FormKind::kMain || (!stays && Pick(3) == 0)) form.UserClose();
        break;
      case 1:
        placement.left = Pick(2000) - 1000;
        placement.width = 1 + Pick(1500);
        driver_.Place(form, placement);
        break;
      case 2:
        placement.state = static_cast<WindowState>(Pick(3));
        driver_.Place(form, placement);
        break;
      case 3:
        form.UserContext();
        break;
      case 4:
        driver_.Mouse(form, {MouseEvent::kMove, Pick(9000), Pick(2000), false});
        break;
      default:
        form.UserActivate();
    }
  }

  void ActOn(Control& control) {
    switch (Pick(12)) {
      case 0:
        control.UserMouse({static_cast<MouseEvent::What>(Pick(3)), Pick(2000), Pick(2000), Pick(4) == 0});
        return;
      case 1:
        if (control.kind() == ControlKind::kTimer || control.kind() == ControlKind::kMenuEntry) return;
        driver_.PressKey(control, {static_cast<Key::Name>(Pick(11)), "x"});
        return;
      case 2:
        control.UserContext();
        return;
      default:
        UseOf(control);
    }
  }

  void UseOf(Control& control) {
    switch (control.kind()) {
      case ControlKind::kListBox: {
        auto& list = static_cast<ListBox&>(control);
        if (Pick(5) == 0) {
          list.UserDouble(Pick(list.rows()));
        } else if (list.multi_select && Pick(2) == 0) {
          list.UserSelect({Pick(list.rows()), Pick(list.rows())});
        } else {
          list.UserSelect({Pick(list.rows())});
        }
        break;
      }
      case ControlKind::kComboBox: {
        auto& combo = static_cast<ComboBox&>(control);
        if (!combo.UserType(SomeText())) combo.UserSelect(Pick(combo.rows()));
        break;
      }
      case ControlKind::kTextBox:
        static_cast<TextBox&>(control).UserType(SomeText());
        break;
      case ControlKind::kScrollBar: {
        auto& bar = static_cast<ScrollBar&>(control);
        const auto [low, high] = std::minmax({bar.min(), bar.max()});
        bar.UserSet(Pick(4) == 0 ? bar.max() : low + Pick(high - low + 1));
        break;
      }
      case ControlKind::kCheckBox:
        static_cast<CheckBox&>(control).UserSet(Pick(2) == 0);
        break;
      case ControlKind::kTabs:
        static_cast<Tabs&>(control).UserSet(Pick(8));
        break;
      default:
        if (control.name() != "mnuExit" || (!stays && Pick(10) == 0)) driver_.Press(control);
    }
  }

  std::string SomeText() {
    static const std::vector<std::string> kTexts = {
        "",         "a",  "0",     "11",           "99999999999",         "-1", "A B", "64",
        "\xC3\xA8", "\n", "#,;.*", "\xE2\x82\xAC", "12345678901234567890"};
    return kTexts[static_cast<std::size_t>(Pick(static_cast<int>(kTexts.size())))];
  }

  ConsoleToolkit& toolkit_;
  ConsoleDriver driver_;
  std::mt19937 random_;
  std::function<std::vector<std::string>()> names_;
};

}  // namespace zentaline::ui
