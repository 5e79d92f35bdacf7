// Small windows with every kind of control, and a log of what their handlers were told.
#pragma once

#include <string>
#include <vector>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

using Log = std::vector<std::string>;

class ToyMain : public Form {
 public:
  ToyMain(Toolkit& the_toolkit, Log& the_log) : Form(the_toolkit, FormKind::kMain, "frmMain"), log(the_log) {
    SetCaption("Toy");
    mnuFile.SetCaption("&File");
    mnuOpen.SetCaption("&Open");
    mnuOpen.shortcut = "Ctrl+O";
    mnuOpen.SetToolTip("Opens something");
    mnuOpen.on_click = [this] { log.push_back("open"); };
    mnuOff.SetCaption("O&ff");
    mnuOff.separator_before = true;
    mnuOff.SetEnabled(false);
    mnuOff.on_click = [this] { log.push_back("off"); };
    mnuEdit.SetCaption("&Edit");
    mnuMark.SetCaption("&Mark");
    mnuMark.on_click = [this] {
      mnuMark.SetChecked(!mnuMark.checked());
      log.push_back("mark");
    };
    Label1.SetCaption("Wait");
    Label1.sunken = true;
    Label1.SetToolTip("What the program waits for");
    LabelArr.sunken = true;
    layout = Inside(Picture1, Row({Item(Label1, 2), Item(LabelArr, 1)}));
    on_mouse = [this](const MouseEvent&) { log.push_back("main mouse"); };
  }
  void Resized() override { log.push_back("main resized"); }
  bool QueryClose() override {
    log.push_back("main query");
    return may_close;
  }
  void FilesDropped(const std::vector<std::string>& paths) override {
    for (const std::string& path : paths) log.push_back("dropped " + path);
  }

  Log& log;
  bool may_close = true;
  MenuEntry mnuFile{*this, nullptr, "mnuFile"};
  MenuEntry mnuOpen{*this, &mnuFile, "mnuOpen"};
  MenuEntry mnuOff{*this, &mnuFile, "mnuOff"};
  MenuEntry mnuEdit{*this, nullptr, "mnuEdit"};
  MenuEntry mnuMark{*this, &mnuEdit, "mnuMark"};
  PictureBox Picture1{*this, "Picture1"};
  Label Label1{*this, "Label1"};
  Label LabelArr{*this, "LabelArr"};
};

class ToyChild : public Form {
 public:
  ToyChild(Toolkit& the_toolkit, Log& the_log, const std::string& the_number)
      : Form(the_toolkit, FormKind::kChild, "frmToy", the_number), log(the_log) {
    SetCaption("Toy " + the_number);
    const auto tell = [this](const std::string& what) { return [this, what] { log.push_back(what); }; };
    const auto keys = [this](const std::string& who) {
      return [this, who](const Key& key) {
        log.push_back(who + " key " + (key.name == Key::kCharacter ? key.character : std::to_string(key.name)));
        return false;
      };
    };
    Comm1.SetCaption("&Press me");
    Comm1.on_click = tell("press");
    CommClose.SetCaption("&Close");
    CommClose.on_click = [this] {
      log.push_back("closing");
      Close();
      log.push_back("still here");
    };
    for (int row = 0; row < 64; ++row) {
      const std::string label = std::to_string(row / 8 + 1) + std::to_string(row % 8 + 1);
      List1.AddRow(label + (row % 3 == 0 ? " + " : "   ") + "Arrangement " + std::to_string(row));
    }
    List1.group_rows = 8;
    List1.on_click = [this] { log.push_back("list " + std::to_string(List1.Row())); };
    List1.on_double_click = tell("double");
    List1.on_key = keys("list");
    List1.on_context = tell("list context");
    List2.multi_select = true;
    List2.SetRows({"one", "two", "three", "four", "five"});
    List2.on_click = [this] {
      std::string text = "list2";
      for (const int row : List2.SelectedRows()) text += " " + std::to_string(row);
      log.push_back(text + " focus " + std::to_string(List2.focus_row()));
    };
    Combo1.SetRows({"8 Beat 1 (A11)", "16 Beat 2 (A12)", "Bossa (A13)"});
    Combo1.on_click = [this] { log.push_back("combo " + std::to_string(Combo1.row())); };
    Combo2.editable = true;
    Combo2.SetRows({"alpha", "beta"});
    Combo2.on_change = [this] { log.push_back("combo2 " + Combo2.text()); };
    Text1.max_length = 8;
    Text1.bytes_only = true;
    Text1.on_change = [this] { log.push_back("text " + Text1.text()); };
    Text1.on_focus = tell("text focus");
    Text1.on_mouse = [this](const MouseEvent& event) {
      log.push_back("text mouse " + std::to_string(event.what) + (event.right ? " right" : ""));
    };
    Text2.multi_line = true;
    Text2.on_change = [this] { log.push_back("text2 " + Text2.text()); };
    LabelName.SetCaption("&Name:");
    Check1.SetCaption("Chec&k");
    Check1.on_click = [this] { log.push_back(Check1.value() ? "check on" : "check off"); };
    for (OptionButton* option : {&Option0, &Option1}) {
      option->SetCaption("Option " + std::to_string(option->index()));
      option->on_click = [this, option] { log.push_back("option " + std::to_string(option->index())); };
    }
    Option0.SetValue(true);
    HScroll1.SetRange(0, 127, 1, 10);
    HScroll1.on_change = [this] { log.push_back("bar " + std::to_string(HScroll1.value())); };
    VScroll1.vertical = true;
    VScroll1.SetRange(100, 0, 1, 10);
    VScroll1.on_change = [this] { log.push_back("vbar " + std::to_string(VScroll1.value())); };
    Frame1.SetCaption("Values");
    Tabs1.captions = {"General", "Effects"};
    Tabs1.on_change = [this] { log.push_back("page " + std::to_string(Tabs1.page())); };
    LabelPage.SetCaption("On the second page");
    Timer1.on_timer = tell("timer");
    layout = Row({Item(List1, 2),
                  Column({Row({Item(LabelName), Item(Text1, 1)}), Item(Combo1), Item(Combo2),
                          Inside(Frame1, Column({Item(Check1), Row({Item(Option0), Item(Option1)}), Item(HScroll1),
                                                 Item(VScroll1)})),
                          Pages(Tabs1, {Item(Text2), Item(LabelPage)}), Item(List2)},
                         1),
                  Column({Item(Comm1), Space(), Item(CommClose)})});
  }
  void Activated() override { log.push_back("activated " + number()); }
  void Resized() override { log.push_back("resized " + number()); }
  void Unload() override { log.push_back("unload " + number()); }

  Log& log;
  ListBox List1{*this, "List1"};
  ListBox List2{*this, "List2"};
  Label LabelName{*this, "LabelName"};
  TextBox Text1{*this, "Text1"};
  TextBox Text2{*this, "Text2"};
  ComboBox Combo1{*this, "Combo1"};
  ComboBox Combo2{*this, "Combo2"};
  Frame Frame1{*this, "Frame1"};
  CheckBox Check1{*this, "Check1"};
  OptionButton Option0{*this, "Option1", 0};
  OptionButton Option1{*this, "Option1", 1};
  ScrollBar HScroll1{*this, "HScroll1"};
  ScrollBar VScroll1{*this, "VScroll1"};
  Tabs Tabs1{*this, "Tabs1"};
  Label LabelPage{*this, "LabelPage"};
  Button Comm1{*this, "Comm1"};
  Button CommClose{*this, "CommClose"};
  Timer Timer1{*this, "Timer1"};
};

class ToyModal : public Form {
 public:
  ToyModal(Toolkit& the_toolkit, Log& the_log) : Form(the_toolkit, FormKind::kModal, "frmModal"), log(the_log) {
    SetCaption("Question");
    Label1.SetCaption("Shall it be done?");
    CommOK.SetCaption("&OK");
    CommOK.on_click = [this] {
      log.push_back("ok");
      Close();
    };
    CommCancel.SetCaption("&Cancel");
    CommCancel.on_click = [this] {
      log.push_back("cancel");
      Close();
    };
    Text1.on_change = [this] { log.push_back("modal text " + Text1.text()); };
    default_button = &CommOK;
    cancel_button = &CommCancel;
    layout = Column({Item(Label1), Item(Text1), Row({Space(), Item(CommOK), Item(CommCancel)})});
  }

  Log& log;
  Label Label1{*this, "Label1"};
  TextBox Text1{*this, "Text1"};
  Button CommOK{*this, "CommOK"};
  Button CommCancel{*this, "CommCancel"};
};

}  // namespace zentaline::ui
