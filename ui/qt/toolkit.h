// The desktop: forms as windows, boxes, dialogs, and the real clock.
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <functional>
#include <utility>
#include <vector>

#include "ui/qt/printing.h"
#include "ui/qt/translation.h"
#include "ui/qt/windows.h"
#include "ui/qt/words.h"
#include "ui/toolkit.h"

namespace zentaline::ui::qt {

// Needs a QApplication that lives longer.
class QtToolkit : public Toolkit {
 public:
  QtToolkit();
  ~QtToolkit() override;

  // Where the words of its own boxes, dialogs and bars come from; called whenever they are needed, so that they follow
  // the program's language. English at first.
  void SetWordSource(std::function<const Words&()> source) { words_ = std::move(source); }

  // Runs until the main window has closed.
  int Run();
  bool ended() const { return ended_; }

  Windows& windows() { return windows_; }

  BoxAnswer MessageBox(BoxStyle style, const std::string& title, const std::string& text) override;
  FileDialogAnswer FileDialog(const FileDialogRequest& request) override;
  void PopupMenu(MenuEntry& menu) override;
  void ShowWait(const std::string& text) override;
  Size ScreenSize() override;
  int TextWidth(const Font& font, const std::string& text) override;
  int LineHeight(const Font& font) override;
  std::string ShortDate() override;
  bool PrintText(int left, int top, const Font& font, const std::string& text) override;
  bool EndPrint() override;
  int PrintWidth(const Font& font, const std::string& text) override;
  int PrintLineHeight(const Font& font) override;
  std::int64_t Now() override;
  void TimersChanged() override;
  void MainClosed() override;

 protected:
  void ShowForm(Form& form) override;
  void HideForm(Form& form) override;
  void RaiseForm(Form& form) override;
  void RunModal(Form& form) override;

 private:
  void OnTimer();
  void PaintNow();

  std::function<const Words&()> words_ = EnglishWords;
  QElapsedTimer clock_;
  QTimer due_;
  Printing printing_;
  Translation translation_;
  Windows windows_{*this};
  std::vector<std::pair<Form*, QEventLoop*>> modal_loops_;
  bool waiting_ = false;
  bool ended_ = false;
};

}  // namespace zentaline::ui::qt
