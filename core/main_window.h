// The main window as the rest of the program uses it: its menus, its status strip, and what they show.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/child_window.h"
#include "core/menus.h"
#include "core/state.h"
#include "core/welcome.h"
#include "midi/state.h"
#include "ui/form.h"

namespace zentaline {

struct Application;

// More than can be open at once: of each kind of file those of the files and of the new ones, and what there is once.
inline constexpr int kMostWindows = 80;

class MainWindow : public ui::Form {
 public:
  ui::PictureBox Picture1{*this, "Picture1"};
  ui::Label LabelNomeAppl{*this, "LabelNomeAppl"};
  ui::Label Label1{*this, "Label1"};
  ui::Label LabelMode{*this, "LabelMode"};
  ui::Label LabelArr{*this, "LabelArr"};
  ui::Label LabelSty{*this, "LabelSty"};
  ui::Label LabelPrg{*this, "LabelPrg"};
  ui::Label LabelPort{*this, "LabelPort"};

  ui::MenuEntry& Menu(MenuId id) const { return *menus_[static_cast<std::size_t>(id)]; }
  // By device, 0 to 18; entries of devices that are not there are hidden.
  ui::MenuEntry& mnuDevMIDIOut(int device) const;
  ui::MenuEntry& mnuDevMIDIIn(int device) const;
  // The open windows in the order of their opening; entries without a window are hidden.
  ui::MenuEntry& mnuWindowList(int i) const { return *window_list_[static_cast<std::size_t>(i)]; }
  ui::MenuEntry& mnuRecentFile(int i) const { return *recent_files_[static_cast<std::size_t>(i)]; }

  // Enables the entries that the window in front can serve.
  void RefreshMenus();
  // Where the notes go, in the strip and in the free area.
  void ShowOutput();
  // Opens mnuMIDIOut, when there is something to choose.
  void PopupOutputs();
  // What the instrument holds is no longer known: the three names of what was sent.
  void ForgetWhatWasSent();
  // A child window has opened or closed.
  void ChildrenChanged();
  // The captions of mnuRecentFile.
  void ShowRecentFiles();
  // Whether i40DBArr is usable: the entries that need it.
  void EnableDatabaseEntries(bool usable);
  // The captions of mnuArrU and mnuPrgU, and whether there is a file for them to open.
  void ShowArrUEntry();
  void ShowPrgUEntry();

  // Whether windows of the last run are still to come back.
  virtual bool Reopens() const = 0;
  // Opens these files when the windows of the last run are back, at once if they are.
  virtual void OpenWhenReady(std::vector<std::string> paths) = 0;

 protected:
  explicit MainWindow(Application& app);
  Application& app() const { return app_; }
  // The child window in front, null when there is none.
  ChildWindow* ActiveChild() const;
  void ShowDeviceMenus();
  // What follows from an event at its end: the list of the windows, and their marks of what isn't saved.
  void Settled();
  void ShowToggles();

 private:
  void MakeMenus();
  void ShowWindowList();
  void ActivateListed(int i);
  void ShowFileOf(MenuId id, const std::string& file);
  void EnableForKind(ChildWindow& child);

  std::string OutputWords(const char* name, const std::string& device) const;

  Application& app_;
  Welcome welcome_;
  std::vector<std::unique_ptr<ui::MenuEntry>> menus_;
  std::array<std::unique_ptr<ui::MenuEntry>, kMostMidiDevices> out_devices_;
  std::array<std::unique_ptr<ui::MenuEntry>, kMostMidiDevices> in_devices_;
  std::array<std::unique_ptr<ui::MenuEntry>, kRecentFiles> recent_files_;
  std::array<std::unique_ptr<ui::MenuEntry>, kMostWindows> window_list_;
};

// The entries that let the window in front do the work, as if its own button had been pressed.
struct ActiveEntry {
  MenuId entry;
  WindowFunction function;
};
// No window has a function of mnuLoadAll: it stands in the menu and stays off.
inline constexpr std::array<ActiveEntry, 12> kActiveEntries = {{
    {MenuId::mnuLoadAll, WindowFunction::kLoadAll},
    {MenuId::mnuLoadArr, WindowFunction::kLoadArr},
    {MenuId::mnuLoadSty, WindowFunction::kLoadSty},
    {MenuId::mnuShowSty, WindowFunction::kShowSty},
    {MenuId::mnuLoadPrg, WindowFunction::kLoadPrg},
    {MenuId::mnuShowPrg, WindowFunction::kShowPrg},
    {MenuId::mnuEdit, WindowFunction::kEdit},
    {MenuId::mnuEditPerf, WindowFunction::kEditPerf},
    {MenuId::mnui40DBArr, WindowFunction::kAddToDatabase},
    {MenuId::mnuCancella, WindowFunction::kDelete},
    {MenuId::mnuDBArrApri, WindowFunction::kOpen},
    {MenuId::mnuAddAll, WindowFunction::kAddAll},
}};

// The entries that flip a setting.
struct Toggle {
  MenuId entry;
  bool Settings::*flag;
};
inline constexpr std::array<Toggle, 8> kToggles = {{
    {MenuId::mnuCaricaArr, &Settings::CaricaArr},
    {MenuId::mnuCaricaSty, &Settings::CaricaSty},
    {MenuId::mnuCaricaStyNuovoArr, &Settings::CaricaStyNuovoArr},
    {MenuId::mnuCaricaPrg, &Settings::CaricaPrg},
    {MenuId::mnuAutoPrgSel, &Settings::AutoPrgSel},
    {MenuId::mnuRdOnly, &Settings::RdOnly},
    {MenuId::mnuVisBarraStato, &Settings::VisBarraStato},
    {MenuId::mnuAddi40DBArr, &Settings::Add40DBArr},
}};

}  // namespace zentaline
