// A list of arrangements that have to reach the instrument before they can be played: what a click and the load buttons
// do in the windows of files and of new files.
#pragma once

#include <string>

#include "arrangement/list_window.h"

namespace zentaline {

class ArrFileListWindow : public ArrListWindow {
 protected:
  // What a click of the list goes on from: the intervals of its timer, which are milliseconds too.
  static constexpr int kClickFresh = 10;
  static constexpr int kClickArrSent = 11;
  static constexpr int kClickStySent = 12;

  using ArrListWindow::ArrListWindow;

  // A click sends first what the instrument lacks, as far as the options say so; the end of each send brings it back
  // here. At the end the row is selected on the instrument.
  void ClickRow();
  // The work of CommLoadArr is done in two steps, so that the wait text is painted: false at the first, which shows it
  // and starts the timer.
  bool LoadArrIsDue(ui::Timer& timer);
  void SendArrangements();
  // A send has ended; a click that waits for it goes on.
  void ContinueClick(int state);
  // The question about an arrangement under edit; what is kept goes back into its image, and what isn't stays in the
  // editor until it shows another record.
  void AskAboutEdits();
  bool KeyInList(const ui::Key& key);

  // The base name as it is kept of a file that was sent.
  std::string NameForInstrument() const;

  void RowShown(int row) override;
  void ForgetSent(bool records, bool styles) override;

  virtual ui::Timer& ClickTimer() = 0;
  virtual bool LoadsStylesOnClick() const = 0;
  // The row has no arrangement.
  virtual void ShowNothing() = 0;
  // The row's arrangement comes before the instrument is asked for it, and what the window shows of it.
  virtual void RowChosen(int row) { (void)row; }
  virtual void ShowSelected(int row) = 0;
  virtual void SelectRow(int row) = 0;
};

}  // namespace zentaline
