// The window of a style file, or of a new one: the sixteen styles in their four groups with their sizes, sent to the
// instrument all together or group by group, and offered to the arrangement editor.
#pragma once

#include <string>

#include "core/child_window.h"
#include "style/sty_format.h"
#include "style/transmission.h"
#include "ui/control_array.h"

namespace zentaline {

class frmStyUN : public ChildWindow {
 public:
  // `number` is 1 to 8, of the files or of the new ones by the image's kind. The image carries everything else.
  frmStyUN(Application& app, int number, Bytes image);

  ui::ListBox List1{*this, "List1"};
  ui::ControlArray<ui::TextBox> Text1{*this, "Text1", 0, kStyEntryCount - 1};
  ui::ControlArray<ui::TextBox> Text2{*this, "Text2", 0, kStyGroupCount - 1};
  ui::TextBox Text3{*this, "Text3"};
  ui::Button CommLoadSty{*this, "CommLoadSty"};
  ui::ControlArray<ui::Button> CommLoadStyGrp{*this, "CommLoadStyGrp", 0, kStyGroupCount - 1};
  ui::Button CommClose{*this, "CommClose"};
  ui::ControlArray<ui::Label> LabelGroup{*this, "LabelGroup", 0, kStyGroupCount - 1};
  ui::Label LabelTotal{*this, "LabelTotal"};
  ui::ControlArray<ui::Timer> TimerTxSty{*this, "TimerTxSty", 0, 1};
  ui::ControlArray<ui::Timer> TimerLoadStyGrp{*this, "TimerLoadStyGrp", 0, kStyGroupCount - 1};

  ui::Timer* TimerOf(WindowFunction function) override;
  bool Offers(WindowFunction function) override;
  bool CanSave() const override;
  void ShowName() override;
  ui::ListBox* ItemList() override { return &List1; }
  void ShowItems(const ItemsShown& shown) override;
  void ShowStep(const EditStep& step) override;

  void Load() override;
  bool QueryClose() override;
  void Unload() override;

 protected:
  WindowRecord* Record() override;

 private:
  bool IsNew() const;  // a new file's window, saved or not
  std::string_view styles() const { return StylePart(window_image()); }
  // The window's place in the table of open windows.
  ChildWindow*& Slot();
  StyleTimers timers() { return {TimerTxSty[0], TimerTxSty[1], kPauseBetweenGroups}; }

  void LayOut();
  void Connect();
  // Shows all entries, groups and sums anew.
  void FillRows();
  void ShowSizes();
  std::string RowText(int row) const;
  std::string SizeText(int row) const;

  void ClickRow();
  void PressLoadSty();
  void PressLoadStyGrp(int group);
  // The wait text stands there on this window's account.
  bool Sending();
  bool KeyInList(const ui::Key& key);

  static constexpr int kPauseBetweenGroups = 800;  // milliseconds

  int number_;
};

}  // namespace zentaline
