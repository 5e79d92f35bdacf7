// A session at random in one editor, or in the windows of one kind of file, that keeps to what can be taken back: each
// thing that is done is a line of a script too, so that the same session can be had on other toolkits.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "base/faulty_disk.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "global/gbl_format.h"
#include "midi/recorder/recorder.h"
#include "tests/support/config.h"
#include "tests/support/memory_disk.h"
#include "ui/console/console_toolkit.h"
#include "ui/picture.h"

namespace zentaline::test {

enum class SessionKind { kArrangement, kProgram, kPerformance, kGlobal, kArrangementFiles, kProgramFiles, kDatabase };

inline Bytes GlobalFileOfSession() {
  return Bytes("KORG\x4D\0\x06\x01", 8) + Bytes(kGlobalFileLength - 8, '\x05');
}

// Boxes with a question are answered with No, and counted.
class CountingToolkit : public ui::ConsoleToolkit {
 public:
  CountingToolkit() : ConsoleToolkit(Clock::kVirtual, [](const std::string&) {}) {}
  int questions = 0;
  std::string file;  // the next dialog is answered with
  int filter = 1;

  ui::BoxAnswer MessageBox(ui::BoxStyle style, const std::string&, const std::string&) override {
    if (style == ui::BoxStyle::kOk) return ui::BoxAnswer::kOk;
    ++questions;
    return yes ? ui::BoxAnswer::kYes : ui::BoxAnswer::kNo;
  }
  ui::FileDialogAnswer FileDialog(const ui::FileDialogRequest&) override { return {file.empty(), file, filter, false}; }
  bool yes = false;
};

// Tells of each long message.
class HearingMidi : public RecorderMidi {
 public:
  std::function<void(std::string_view)> heard;

 protected:
  int TakeLong(MidiHandle handle, std::string_view bytes) override {
    if (heard) heard(bytes);
    return RecorderMidi::TakeLong(handle, bytes);
  }
};

class UndoSession {
 public:
  UndoSession(SessionKind kind, unsigned seed) : kind_(kind), random_(seed), app_(toolkit_, midi_, faulty_, "/disk") {
    ConfigFile config = ConfigFile::English();
    config.Byte(1, 25, 2);
    disk_.files["/disk/Zentaline.ini"] = config.bytes;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ZENTALINE_SHARE)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      Bytes content(std::istreambuf_iterator<char>(file), {});
      const std::string name = std::filesystem::relative(entry.path(), ZENTALINE_SHARE).string();
      disk_.files["/disk/" + name] = content;
    }
    disk_.files["/disk/Hall.gbl"] = GlobalFileOfSession();
    midi_.SetOuts({"Out"});
    app_.Start();
    toolkit_.RunChain([this] { return app_.Starting(); });
    Do("press mnuDevMIDIOut(0)", [&] { app_.main->mnuDevMIDIOut(0).UserPress(); });
    Open();
  }

  Application& app() { return app_; }
  CountingToolkit& toolkit() { return toolkit_; }
  HearingMidi& midi() { return midi_; }
  MemoryDisk& disk() { return disk_; }
  FaultyDisk& faults() { return faulty_; }
  // Something marked what is edited without changing it, as a reset of what is at its rest already.
  bool marked_only() const { return marked_only_; }
  const std::vector<std::string>& script() const { return script_; }

  // One thing that a user does.
  void Act() {
    if (Pick(12) == 0) return Wait(Pick(4) == 0 ? 2500 : 20);
    switch (kind_) {
      case SessionKind::kArrangement:
        return Pick(15) == 0 ? PickForAPart() : ActIn("frmEditArr");
      case SessionKind::kProgram:
        return ActIn("frmEditPrg");
      case SessionKind::kPerformance:
        return ActInPerformance();
      case SessionKind::kGlobal:
        return ActIn("frmGbl");
      case SessionKind::kArrangementFiles:
      case SessionKind::kProgramFiles:
        return MoveRows();
      case SessionKind::kDatabase:
        return ActInDatabase();
    }
  }
  bool Back() { return PressMenu(MenuId::mnuAnnulla, "mnuAnnulla"); }
  bool Forth() { return PressMenu(MenuId::mnuRipeti, "mnuRipeti"); }
  bool PressMenu(MenuId entry, const std::string& name) {
    bool pressed = app_.main->Menu(entry).Usable();
    if (pressed) Do("press " + name, [&] { app_.main->Menu(entry).UserPress(); });
    return pressed;
  }
  // The file of a window; a new one gets this path. False where it can't be saved.
  bool Save(ChildWindow& window, const std::string& path) {
    Do("activate " + window.FullName(), [&] { window.UserActivate(); });
    Log("file \"" + path + "\"");
    toolkit_.file = "/disk/" + path;
    toolkit_.filter = 6;  // of any kind
    const bool saved = PressMenu(MenuId::mnuSalva, "mnuSalva");
    toolkit_.file.clear();
    return saved;
  }
  // Closes the editor with a yes, or a no, and takes up another record.
  void CloseEditor(bool keeps) {
    ui::Form* editor = Find(kind_ == SessionKind::kArrangement ? "frmEditArr" : "frmEditPrg");
    toolkit_.yes = keeps;
    Do("close " + editor->FullName(), [&] { editor->UserClose(); });
    toolkit_.yes = false;
    Double(kind_ == SessionKind::kArrangement ? "frmArrU(1)" : "frmPrgUN(1)", Pick(3));
  }
  // Looks at what stands, in the script.
  void Look() {
    Log("state UndoCount");
    Log("state RedoCount");
    if (kind_ == SessionKind::kArrangement) Log("image ArrEditRecord 1 567");
    if (kind_ == SessionKind::kProgram || kind_ == SessionKind::kPerformance) Log("image EditRecord 1 201");
    if (kind_ == SessionKind::kDatabase) Log("image DBImage 1 600");
    for (ui::Form* form : toolkit_.forms()) {
      if (form->kind() != ui::FormKind::kChild || form->name().starts_with("frmEdit")) continue;
      const std::size_t length = static_cast<ChildWindow*>(form)->window_image().size();
      if (length == 0) continue;
      Log("image " + form->FullName() + " 1 " + std::to_string(std::min<std::size_t>(length, 20)));
      if (length > 300)
        Log("image " + form->FullName() + " 271 " + std::to_string(std::min<std::size_t>(length, 2000)));
    }
  }
  void Log(const std::string& line) { script_.push_back(line); }
  // Called after each line's work.
  std::function<void()> on_done;
  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(std::max(count, 1))); }

 private:
  template <typename Function>
  void Do(const std::string& line, Function&& act) {
    Log(line);
    act();
    if (on_done) on_done();
  }
  void Wait(int milliseconds) {
    Do("wait " + std::to_string(milliseconds), [&] { toolkit_.Advance(milliseconds); });
  }
  void OpenFile(MenuId entry, const std::string& name, const std::string& path, int filter) {
    Log("press " + name);
    Log("file \"" + path + "\" filter=" + std::to_string(filter));
    toolkit_.file = "/disk/" + path;
    toolkit_.filter = filter;
    app_.main->Menu(entry).UserPress();
    toolkit_.file.clear();
  }
  ui::Form* Find(const std::string& name) { return toolkit_.FindForm(name); }

  void Open() {
    using enum MenuId;
    switch (kind_) {
      case SessionKind::kArrangement:
        OpenFile(mnuApriArr, "mnuApriArr", "examples/First Steps.arr", 1);
        Double("frmArrU(1)", 0);
        Press(mnuWProgD, "mnuWProgD");
        Press(mnuDrum, "mnuDrum");
        Press(mnuStyB, "mnuStyB");
        break;
      case SessionKind::kProgram:
      case SessionKind::kPerformance:
        OpenFile(mnuApriPrg, "mnuApriPrg", "examples/First Steps.prg", 3);
        if (Pick(2) == 0 || kind_ == SessionKind::kProgram) {
          Double("frmPrgUN(1)", 0);
        } else {
          Select(*Find("frmPrgUN(1)"), {0});
        }
        break;
      case SessionKind::kGlobal:
        OpenFile(mnuApriGbl, "mnuApriGbl", "Hall.gbl", 4);
        break;
      case SessionKind::kArrangementFiles:
        OpenFile(mnuApriArr, "mnuApriArr", "examples/First Steps.arr", 1);
        OpenFile(mnuApriArr, "mnuApriArr", "examples/Sunday Band.arr", 1);
        Press(mnuNuovoArr, "mnuNuovoArr");
        OpenFile(mnuApriSty, "mnuApriSty", "examples/First Steps.sty", 2);
        Press(mnuNuovoSty, "mnuNuovoSty");
        break;
      case SessionKind::kProgramFiles:
        OpenFile(mnuApriPrg, "mnuApriPrg", "examples/First Steps.prg", 3);
        OpenFile(mnuApriPrg, "mnuApriPrg", "examples/Sunday Band.pgg", 3);
        Press(mnuNuovoPrg, "mnuNuovoPrg");
        Press(mnuWProgA, "mnuWProgA");
        Press(mnuDrum, "mnuDrum");
        break;
      case SessionKind::kDatabase:
        OpenFile(mnuApriArr, "mnuApriArr", "examples/First Steps.arr", 1);
        Log("press frmArrU(1).CommAdd");
        Log("wait 20");
        Log("answer yes");
        toolkit_.yes = true;
        static_cast<ui::Button*>(Find("frmArrU(1)")->Find("CommAdd"))->UserPress();
        toolkit_.Advance(20);
        toolkit_.yes = false;
        toolkit_.questions = 0;
        Press(mnuWEditDBArr, "mnuWEditDBArr");
        break;
    }
    Wait(100);
  }
  void Press(MenuId entry, const std::string& name) {
    Do("press " + name, [&] { app_.main->Menu(entry).UserPress(); });
  }
  void Double(const std::string& form, int row) {
    Do("double " + form + ".List1 " + std::to_string(row),
       [&] { static_cast<ui::ListBox*>(Find(form)->Find("List1"))->UserDouble(row); });
    Wait(50);
  }
  void Select(ui::Form& form, const std::vector<int>& rows) {
    std::string line = "select " + form.FullName() + ".List1";
    for (const int row : rows) line += " " + std::to_string(row);
    Do(line, [&] { static_cast<ui::ListBox*>(form.Find("List1"))->UserSelect(rows); });
  }

  // --- In an editor ---

  // What would mark the record without changing it, sends without storing, or writes elsewhere than it shows.
  static bool Avoided(const ui::Control& control) {
    static const std::set<std::string> kAvoided = {"frmEditArr.Combo1(5)", "frmEditArr.Combo1(6)",
                                                   "frmEditArr.Combo1(7)", "frmEditArr.Text1(0)"};
    return kAvoided.contains(control.form().name() + "." + control.FullName());
  }

  void ActIn(const std::string& name) {
    ui::Form* form = Find(name);
    std::vector<ui::Control*> usable;
    for (ui::Control* control : form->controls()) {
      if (control->Usable() && !Avoided(*control) && IsEditing(*control)) usable.push_back(control);
    }
    Use(*usable[static_cast<std::size_t>(Pick(static_cast<int>(usable.size())))]);
  }
  static bool IsEditing(const ui::Control& control) {
    switch (control.kind()) {
      case ui::ControlKind::kScrollBar:
      case ui::ControlKind::kComboBox:
      case ui::ControlKind::kCheckBox:
        return true;
      case ui::ControlKind::kTabs:
        return true;
      case ui::ControlKind::kOptionButton:
        return control.form().name() == "frmGbl";
      case ui::ControlKind::kButton:
        return control.name().starts_with("CommReset") || control.name() == "CommUp" || control.name() == "CommDown";
      case ui::ControlKind::kPicture:
        return control.name() == "EGPicture";
      default:
        return false;
    }
  }
  static int ValueOf(const ui::Control& control) {
    switch (control.kind()) {
      case ui::ControlKind::kScrollBar:
        return static_cast<const ui::ScrollBar&>(control).value();
      case ui::ControlKind::kComboBox:
        return static_cast<const ui::ComboBox&>(control).row();
      case ui::ControlKind::kCheckBox:
        return static_cast<const ui::CheckBox&>(control).value() ? 1 : 0;
      default:
        return 0;
    }
  }
  void Use(ui::Control& control) {
    const int value = ValueOf(control);
    const std::int64_t changes = app_.edits.changes();
    UseNow(control);
    const bool acts = control.kind() == ui::ControlKind::kButton || control.kind() == ui::ControlKind::kOptionButton;
    marked_only_ |= app_.edits.changes() == changes && (acts || ValueOf(control) != value);
  }
  void UseNow(ui::Control& control) {
    const std::string name = control.form().FullName() + "." + control.FullName();
    switch (control.kind()) {
      case ui::ControlKind::kScrollBar: {
        auto& bar = static_cast<ui::ScrollBar&>(control);
        const auto [low, high] = std::minmax({bar.min(), bar.max()});
        for (int moves = 1 + Pick(3); moves > 0; --moves) {
          const int value = low + Pick(high - low + 1);
          Do("set " + name + " " + std::to_string(value), [&] { bar.UserSet(value); });
        }
        break;
      }
      case ui::ControlKind::kComboBox: {
        const int row = Pick(static_cast<ui::ComboBox&>(control).rows());
        Do("select " + name + " " + std::to_string(row), [&] { static_cast<ui::ComboBox&>(control).UserSelect(row); });
        break;
      }
      case ui::ControlKind::kCheckBox: {
        const int value = Pick(2);
        Do("set " + name + " " + std::to_string(value),
           [&] { static_cast<ui::CheckBox&>(control).UserSet(value != 0); });
        break;
      }
      case ui::ControlKind::kTabs: {
        const int page = Pick(static_cast<int>(static_cast<ui::Tabs&>(control).captions.size()));
        Do("set " + name + " " + std::to_string(page), [&] { static_cast<ui::Tabs&>(control).UserSet(page); });
        break;
      }
      case ui::ControlKind::kOptionButton:
        Do("press " + name, [&] { static_cast<ui::OptionButton&>(control).UserPress(); });
        break;
      case ui::ControlKind::kPicture: {
        auto& picture = static_cast<ui::Picture&>(control);
        const int handle = Pick(picture.handles());
        const int x = Pick(1001);
        const int y = Pick(1001);
        Do("drag " + name + " " + std::to_string(handle) + " " + std::to_string(x) + " " + std::to_string(y),
           [&] { picture.UserDrag(handle, x, y); });
        break;
      }
      default:
        Do("press " + name, [&] { static_cast<ui::Button&>(control).UserPress(); });
    }
  }

  void PickForAPart() {
    ui::Form* editor = Find("frmEditArr");
    const bool style = Pick(3) == 0;
    const int box = style ? 1 : 2 + 2 * Pick(9);
    auto& text = *static_cast<ui::TextBox*>(editor->Find("Text1", box));
    const std::string name = "frmEditArr." + text.FullName();
    Do("mouse " + name + " down", [&] { text.UserMouse({ui::MouseEvent::kDown, 0, 0, false}); });
    Do("mouse " + name + " up", [&] { text.UserMouse({ui::MouseEvent::kUp, 0, 0, false}); });
    if (!style && !app_.arrangement.ArrPartArmed) return;
    if (style && !app_.arrangement.ArrStyleArmed) return;
    ui::Form* bank = Find(style ? "frmStyAB(18)" : Pick(2) == 0 ? "frmPcgAE(7)" : "frmDrum(9)");
    const std::int64_t changes = app_.edits.changes();
    Select(*bank, {Pick(static_cast<ui::ListBox*>(bank->Find("List1"))->rows())});
    marked_only_ |= app_.edits.changes() == changes;
  }

  void ActInPerformance() {
    if (Find("frmEditPerf") == nullptr) {
      ui::Form& bank = *Find("frmPrgUN(1)");
      Do("activate frmPrgUN(1)", [&] { bank.UserActivate(); });
      Press(MenuId::mnuEditPerf, "mnuEditPerf");
      return;
    }
    if (Pick(12) == 0 && Find("frmEditPrg") != nullptr) return ActIn("frmEditPrg");
    ActIn("frmEditPerf");
  }

  // --- In files ---

  std::vector<ChildWindow*> Files() {
    std::vector<ChildWindow*> files;
    for (ui::Form* form : toolkit_.forms()) {
      if (form->kind() != ui::FormKind::kChild) continue;
      auto* window = static_cast<ChildWindow*>(form);
      if (window->ItemList() != nullptr && window->ItemList()->rows() > 0) files.push_back(window);
    }
    return files;
  }
  void MoveRows() {
    const std::vector<ChildWindow*> files = Files();
    ChildWindow& window = *files[static_cast<std::size_t>(Pick(static_cast<int>(files.size())))];
    const int rows = window.ItemList()->rows();
    std::vector<int> chosen = {Pick(rows)};
    if (window.ItemList()->multi_select && Pick(3) == 0 && chosen[0] + 1 < rows) chosen.push_back(chosen[0] + 1);
    Select(window, chosen);
    Wait(20);
    switch (Pick(4)) {
      case 0:
        PressMenu(MenuId::mnuCopia, "mnuCopia");
        break;
      case 1:
        PressMenu(MenuId::mnuTaglia, "mnuTaglia");
        break;
      default:
        PressMenu(MenuId::mnuIncolla, "mnuIncolla");
    }
  }

  void ActInDatabase() {
    ui::Form& database = *Find("frmEditDBArr");
    auto& list = *static_cast<ui::ListBox*>(database.Find("List1"));
    if (Pick(3) == 0) {
      Use(*database.Find("CommAddAll"));
    } else if (list.rows() > 2) {
      Select(database, {2 + Pick(list.rows() - 2)});
      if (database.Find("CommDelete")->Usable()) Use(*database.Find("CommDelete"));
    }
    Wait(30);
  }

  SessionKind kind_;
  bool marked_only_ = false;
  std::mt19937 random_;
  MemoryDisk disk_;
  FaultyDisk faulty_{disk_};
  HearingMidi midi_;
  CountingToolkit toolkit_;
  std::vector<std::string> script_;
  Application app_;
};

}  // namespace zentaline::test
