// What the main window does: its menus' actions, its load, the timers that bring the windows of the last run back, and
// the end of the program.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/main_window.h"
#include "core/window_image.h"

namespace zentaline {

class frmMain : public MainWindow {
 public:
  explicit frmMain(Application& app);

  bool Reopens() const override;
  void OpenWhenReady(std::vector<std::string> paths) override;

  void Load() override;
  void Resized() override;
  bool QueryClose() override;
  void Unload() override;
  void FilesDropped(const std::vector<std::string>& paths) override;

 private:
  void ConnectMenus();
  void ConnectFileMenu();
  void ChooseLanguage(int code);
  void Enlarge();
  void Cascade();
  void Tile();
  void ForEachChild(const std::function<void(ChildWindow&)>& action);

  // Reopening: the rest of the load. What the last run had open comes back, one window a tick.
  void MakeReopeningTimers();
  bool ComesBack(WindowKind form, MenuId entry) const;
  void FinishLoad();
  void ReopenAuto(std::size_t i);
  void ReopenFile(std::size_t i);
  void ChainEnded();

  // An entry of a table of file windows, and the timer that brings its window back.
  struct FileTimer {
    int kind;
    int entry;
    std::unique_ptr<ui::Timer> timer;
  };

  ui::Timer Timer0{*this, "Timer", 0};
  ui::Timer Timer2{*this, "Timer", 2};
  ui::Timer TimerAggArr{*this, "TimerAggArr"};
  std::vector<std::unique_ptr<ui::Timer>> TimerAuto;  // 2 to 11
  std::vector<FileTimer> file_timers_;                // TimerArrU(1) to (9), then those of programs and styles
  int to_reopen_ = 0;
  int reopened_ = 0;
  std::vector<std::string> files_to_open_;
};

}  // namespace zentaline
