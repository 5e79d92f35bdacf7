// The main window: menus, status strip, the timers that bring the windows of the last run back.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/menus.h"
#include "core/state.h"
#include "ui/form.h"

namespace zentaline {

struct Application;
class ChildWindow;

class frmMain : public ui::Form {
 public:
  explicit frmMain(Application& app);

  ui::PictureBox Picture1{*this, "Picture1"};
  ui::Label LabelNomeAppl{*this, "LabelNomeAppl"};
  ui::Label Label1{*this, "Label1"};
  ui::Label LabelMode{*this, "LabelMode"};
  ui::Label LabelArr{*this, "LabelArr"};
  ui::Label LabelSty{*this, "LabelSty"};
  ui::Label LabelPrg{*this, "LabelPrg"};

  ui::MenuEntry& Menu(MenuId id) const { return *menus_[static_cast<std::size_t>(id)]; }
  // By device, 0 to 18; entries of devices that are not there are hidden.
  ui::MenuEntry& mnuDevMIDIOut(int device) const;
  ui::MenuEntry& mnuDevMIDIIn(int device) const;
  ui::MenuEntry& mnuRecentFile(int i) const { return *recent_files_[static_cast<std::size_t>(i)]; }

  // Enables the entries that the window in front can serve.
  void RefreshMenus();
  // The captions of mnuRecentFile.
  void ShowRecentFiles();
  // Whether i40DBArr is usable: the entries that need it.
  void EnableDatabaseEntries(bool usable);
  // The caption of mnuArrU, and whether there is a file for it to open.
  void ShowArrUEntry();
  void ShowPrgUEntry();

  // Opens these files when the windows of the last run are back, at once if they are.
  void OpenWhenReady(std::vector<std::string> paths);

  void Load() override;
  void Resized() override;
  bool QueryClose() override;
  void Unload() override;
  void FilesDropped(const std::vector<std::string>& paths) override;

 private:
  void MakeMenus();
  void ConnectMenus();
  void ShowDeviceMenus();
  void ShowToggles();
  void SendStoredMode();
  // The rest of the load: what the last run had open comes back, one window a tick.
  void FinishLoad();
  void ReopenAuto(std::size_t i);
  void ReopenArrangement(int entry);
  void ChainEnded();
  void ChooseLanguage(int code);
  void Enlarge();
  void Cascade();
  void EnableForKind(ChildWindow& child);
  void ForEachChild(const std::function<void(ChildWindow&)>& action);

  Application& app_;
  std::vector<std::unique_ptr<ui::MenuEntry>> menus_;
  std::array<std::unique_ptr<ui::MenuEntry>, 19> out_devices_;
  std::array<std::unique_ptr<ui::MenuEntry>, 19> in_devices_;
  std::array<std::unique_ptr<ui::MenuEntry>, 8> recent_files_;
  ui::Timer Timer0{*this, "Timer", 0};
  ui::Timer Timer2{*this, "Timer", 2};
  std::vector<std::unique_ptr<ui::Timer>> TimerAuto;  // 2 to 11
  std::vector<std::unique_ptr<ui::Timer>> TimerArrU;  // 1 to 9
  ui::Timer TimerAggArr{*this, "TimerAggArr"};
  // While windows come back.
  int to_reopen_ = 0;
  int reopened_ = 0;
  std::array<bool, 10> slots_used_{};
  std::vector<std::string> files_to_open_;
};

}  // namespace zentaline
