// A small program with a window of each kind and every kind of control, for tests of the models and of scripts.
#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "ui/console/console_toolkit.h"
#include "ui/picture.h"

namespace zentaline::ui {

struct Toy;

class ToyChild : public Form {
 public:
  ToyChild(Toy& toy, std::string number);

  Label Label1{*this, "Label1"};
  Button Comm{*this, "Comm"};
  Button CommOff{*this, "CommOff"};
  Button CommHidden{*this, "CommHidden"};
  TextBox Text1{*this, "Text1"};
  ListBox List1{*this, "List1"};
  ListBox ListMany{*this, "ListMany"};
  ComboBox Combo1{*this, "Combo1"};
  ComboBox ComboEdit{*this, "ComboEdit"};
  ScrollBar VScroll0{*this, "VScroll1", 0};
  ScrollBar VScroll1{*this, "VScroll1", 1};
  CheckBox Check1{*this, "Check1"};
  OptionButton Option0{*this, "Option1", 0};
  OptionButton Option1{*this, "Option1", 1};
  Frame Frame1{*this, "Frame1"};
  Tabs Tab1{*this, "Tab1"};
  PictureBox Picture1{*this, "Picture1"};
  Picture Curve{*this, "Curve"};
  Timer Timer1{*this, "Timer1"};

  void Activated() override;
  void Resized() override;
  bool QueryClose() override;
  void Unload() override;

 private:
  Toy& toy_;
};

class ToyModal : public Form {
 public:
  explicit ToyModal(Toy& toy);
  Button CommOK{*this, "CommOK"};
  TextBox Text1{*this, "Text1"};
  Timer Timer1{*this, "Timer1"};
};

class ToyMain : public Form {
 public:
  explicit ToyMain(Toy& toy);
  Label Label1{*this, "Label1"};
  MenuEntry mnuFile{*this, nullptr, "mnuFile"};
  MenuEntry mnuNew{*this, &mnuFile, "mnuNew"};
  MenuEntry mnuYesNo{*this, &mnuFile, "mnuYesNo"};
  MenuEntry mnuYesNoCancel{*this, &mnuFile, "mnuYesNoCancel"};
  MenuEntry mnuNote{*this, &mnuFile, "mnuNote"};
  MenuEntry mnuOpen{*this, &mnuFile, "mnuOpen"};
  MenuEntry mnuSave{*this, &mnuFile, "mnuSave"};
  MenuEntry mnuModal{*this, &mnuFile, "mnuModal"};
  MenuEntry mnuPrint{*this, &mnuFile, "mnuPrint"};
  MenuEntry mnuToggle{*this, &mnuFile, "mnuToggle"};
  MenuEntry mnuHidden{*this, &mnuFile, "mnuHidden"};
  MenuEntry mnuOff{*this, nullptr, "mnuOff"};
  MenuEntry mnuBelow{*this, &mnuOff, "mnuBelow"};
  MenuEntry mnuDev0{*this, nullptr, "mnuDev", 0};
  MenuEntry mnuDev1{*this, nullptr, "mnuDev", 1};
  Timer TimerAuto{*this, "TimerAuto", 2};

  bool QueryClose() override;
  void Unload() override;

 private:
  Toy& toy_;
};

// What the windows write down, and how they behave.
struct Toy {
  explicit Toy(Toolkit& the_toolkit) : toolkit(the_toolkit) {}
  void Log(std::string what) {
    if (log.size() < 100000) log.push_back(std::move(what));
  }
  void Start() {
    const UserEvent event(toolkit);
    main = static_cast<ToyMain*>(&toolkit.Open(std::make_unique<ToyMain>(*this)));
    reopening = true;
    main->TimerAuto.Start();
  }
  ToyChild& NewChild() {
    std::unique_ptr<ToyChild> child = std::make_unique<ToyChild>(*this, std::to_string(++children));
    return static_cast<ToyChild&>(toolkit.Open(std::move(child)));
  }

  Toolkit& toolkit;
  ToyMain* main = nullptr;
  int children = 0;
  bool reopening = false;
  bool asks_at_close = false;
  bool with_handles = false;  // the picture gets two by the press on Comm
  std::string image = "\x01\x02\xFF";
  std::vector<std::string> log;
};

inline ToyChild::ToyChild(Toy& toy, std::string number)
    : Form(toy.toolkit, FormKind::kChild, "frmToy", std::move(number)), toy_(toy) {
  SetCaption("Toy " + this->number());
  Label1.SetCaption("a \"label\"");
  Comm.SetCaption("&Go");
  Comm.on_click = [this] {
    toy_.Log("Comm");
    if (!toy_.with_handles) return;
    Drawing drawing;
    drawing.handles = {{"A", 10, 20}, {"B", 30, 40}};
    Curve.SetDrawing(std::move(drawing));
  };
  CommOff.SetEnabled(false);
  CommHidden.SetVisible(false);
  Text1.max_length = 8;
  Text1.on_change = [this] { toy_.Log("Text1=" + Text1.text()); };
  Text1.on_key = [this](const Key& key) {
    toy_.Log("Text1 key " + std::to_string(key.name) + key.character);
    return false;
  };
  List1.SetRows({"one", "two", "three"});
  List1.on_click = [this] { toy_.Log("List1 click " + std::to_string(List1.Row())); };
  List1.on_double_click = [this] { toy_.Log("List1 double"); };
  List1.on_context = [this] { toolkit().PopupMenu(toy_.main->mnuFile); };
  ListMany.multi_select = true;
  ListMany.SetRows({"0", "1", "2", "3"});
  ListMany.on_click = [this] { toy_.Log("ListMany click"); };
  Combo1.SetRows({"red", "green"});
  Combo1.on_click = [this] { toy_.Log("Combo1=" + Combo1.text()); };
  ComboEdit.editable = true;
  ComboEdit.SetRows({"red", "green"});
  ComboEdit.on_change = [this] { toy_.Log("ComboEdit=" + ComboEdit.text()); };
  VScroll0.SetRange(127, 0);
  VScroll0.on_change = [this] { toy_.Log("VScroll1(0)=" + std::to_string(VScroll0.value())); };
  VScroll1.SetRange(-5, 5);
  Check1.SetCaption("Check");
  Check1.on_click = [this] { toy_.Log("Check1=" + std::to_string(Check1.value())); };
  Option0.on_click = [this] { toy_.Log("Option1(0)"); };
  Option1.on_click = [this] { toy_.Log("Option1(1)"); };
  Tab1.captions = {"First", "Second"};
  Tab1.on_change = [this] { toy_.Log("Tab1=" + std::to_string(Tab1.page())); };
  Picture1.on_mouse = [this](const MouseEvent& event) {
    toy_.Log("Picture1 mouse " + std::to_string(event.what) + ' ' + std::to_string(event.x) + ' ' +
             std::to_string(event.y) + (event.right ? " right" : ""));
  };
  Curve.on_drag = [this](int handle, int x, int y) {
    toy_.Log("Curve " + std::to_string(handle) + " to " + std::to_string(x) + ' ' + std::to_string(y));
  };
  on_mouse = [this](const MouseEvent& event) { toy_.Log("form mouse " + std::to_string(event.what)); };
  Timer1.SetInterval(100);
  Timer1.on_timer = [this] { toy_.Log("Timer1 at " + std::to_string(toolkit().Now())); };
}

inline void ToyChild::Activated() {
  toy_.Log("activated " + number());
}

inline void ToyChild::Resized() {
  toy_.Log("resized " + number());
}

inline bool ToyChild::QueryClose() {
  return !toy_.asks_at_close || toolkit().MessageBox(BoxStyle::kYesNo, "Toy", "Close?") == BoxAnswer::kYes;
}

inline void ToyChild::Unload() {
  toy_.Log("unload " + number());
}

inline ToyModal::ToyModal(Toy& toy) : Form(toy.toolkit, FormKind::kModal, "frmModal") {
  SetCaption("Modal");
  CommOK.on_click = [this] { Close(); };
  default_button = &CommOK;
  cancel_button = &CommOK;
  Timer1.on_timer = [this] { Text1.SetText("timer"); };
}

inline ToyMain::ToyMain(Toy& toy) : Form(toy.toolkit, FormKind::kMain, "frmMain"), toy_(toy) {
  SetCaption("Toy program");
  mnuNew.on_click = [this] { toy_.NewChild(); };
  mnuYesNo.on_click = [this] {
    toy_.Log("answer " + std::to_string(static_cast<int>(toolkit().MessageBox(BoxStyle::kYesNo, "Q", "Yes\nor no?"))));
  };
  mnuYesNoCancel.on_click = [this] {
    toy_.Log("answer " + std::to_string(static_cast<int>(toolkit().MessageBox(BoxStyle::kYesNoCancel, "Q", "Well?"))));
  };
  mnuNote.on_click = [this] { toolkit().MessageBox(BoxStyle::kOk, "Note", "Noted."); };
  const auto dialog = [this](bool save) {
    FileDialogRequest request;
    request.save = save;
    request.title = save ? "Save" : "Open";
    request.filters = {{"Toys", "*.toy"}, {"All", "*.*"}};
    request.directory = "/disk";
    request.name = "a.toy";
    request.default_extension = "toy";
    request.shows_read_only = !save;
    const FileDialogAnswer answer = toolkit().FileDialog(request);
    toy_.Log(answer.cancelled
                 ? "cancelled"
                 : answer.path + " filter " + std::to_string(answer.filter) + (answer.read_only ? " read-only" : ""));
  };
  mnuOpen.on_click = [dialog] { dialog(false); };
  mnuSave.on_click = [dialog] { dialog(true); };
  mnuModal.on_click = [this] {
    toolkit().OpenModal(std::make_unique<ToyModal>(toy_));
    toy_.Log("modal closed");
  };
  mnuPrint.on_click = [this] {
    const bool printed = toolkit().PrintText(453, 283, {}, "Text");
    toy_.Log(printed && toolkit().EndPrint() ? "printed" : "not printed");
  };
  mnuToggle.on_click = [this] { mnuToggle.SetChecked(!mnuToggle.checked()); };
  mnuHidden.SetVisible(false);
  mnuOff.SetEnabled(false);
  TimerAuto.on_timer = [this] {
    toy_.NewChild().Timer1.Start();
    toy_.reopening = false;
  };
}

inline bool ToyMain::QueryClose() {
  return !toy_.asks_at_close || toolkit().MessageBox(BoxStyle::kYesNoCancel, "Toy", "Quit?") == BoxAnswer::kYes;
}

inline void ToyMain::Unload() {
  for (Form* const form : toolkit().forms()) {
    if (form->kind() == FormKind::kChild) form->CloseWithoutAsking();
  }
  toy_.main = nullptr;
}

// Thrown where a program would leave at once.
struct ToyEnd {
  int status;
};

// Runs a script on the toy program and keeps all that comes of it.
class ToyHost : public ScriptHost {
 public:
  explicit ToyHost(const std::string& script) : script_(script) { console.SetQuestions(engine); }

  // The exit status.
  int Run() {
    try {
      return engine.Run();
    } catch (const ToyEnd& end) {
      return end.status;
    }
  }

  Toolkit& toolkit() override { return console; }
  bool ReadLine(std::string& line, bool) override { return static_cast<bool>(std::getline(script_, line)); }
  HostResult SetOuts(const std::vector<std::string>& names) override {
    outs = names;
    return HostResult::kDone;
  }
  HostResult SetIns(const std::vector<std::string>&) override { return HostResult::kRefused; }
  HostResult FailService(const std::string& operation, int result, int times) override {
    faults += operation + ' ' + std::to_string(result) + ' ' + std::to_string(times) + ';';
    return operation == "midiOutOpen" ? HostResult::kDone : HostResult::kUnknown;
  }
  HostResult FailDisk(const std::string& operation, const std::string& error, int times, int after) override {
    faults += operation + ' ' + error + ' ' + std::to_string(times);
    faults += after == 0 ? ";" : ' ' + std::to_string(after) + ';';
    return operation == "read" ? HostResult::kDone : HostResult::kUnknown;
  }
  void SetPrinter(bool works) override { console.SetPrinter(works); }
  void Start() override {
    toy.Start();
    console.RunChain([this] { return toy.reopening; });
  }
  bool Ended() const override { return console.main_closed(); }
  void Advance(std::int64_t milliseconds) override { console.Advance(milliseconds); }
  std::optional<ScriptValue> State(const std::string& name) override {
    if (name == "Count") return ScriptValue(std::int64_t{toy.children});
    if (name == "Name") return ScriptValue(std::string("toy"));
    return std::nullopt;
  }
  const Bytes* Image(const std::string& name) override { return name == "Clipboard" ? &toy.image : nullptr; }
  const Bytes* ImageOf(Form& form) override { return form.kind() == FormKind::kChild ? &toy.image : nullptr; }
  std::optional<NamedValues> Instrument() override { return instrument; }
  std::string Directory() override { return "/toys"; }
  void Complain(const std::string& message) override { complaint = message; }
  [[noreturn]] void End(int status) override { throw ToyEnd{status}; }

  std::vector<std::string> lines;  // of the transcript
  std::vector<std::string> outs;
  std::string faults;
  std::string complaint;
  std::optional<NamedValues> instrument;
  ConsoleToolkit console{ConsoleToolkit::Clock::kVirtual, [this](const std::string& line) {
                           if (lines.size() < 100000) lines.push_back(line);
                         }};
  Toy toy{console};
  ConsoleDriver driver{console};
  ScriptEngine engine{*this, driver, console.transcript()};

 private:
  std::istringstream script_;
};

}  // namespace zentaline::ui
