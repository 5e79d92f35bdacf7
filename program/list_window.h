// What the windows that list programs have in common: the list, the bank's MIDI channel, and how a row is heard.
#pragma once

#include <string>

#include "core/child_window.h"

namespace zentaline {

class ProgramListWindow : public ChildWindow {
 public:
  ui::ListBox List1{*this, "List1"};
  ui::Label Label1{*this, "Label1"};
  ui::ComboBox Combo1{*this, "Combo1"};
  ui::Button CommClose{*this, "CommClose"};

  // Puts the list on a row, counted from 0; nothing is heard or assigned.
  void ShowRow(int row);

  ui::ListBox* ItemList() override { return &List1; }

 protected:
  ProgramListWindow(Application& app, std::string name, std::string number, Bytes image);

  virtual void ClickRow() = 0;
  // Another channel, 0 to 15, was chosen.
  virtual void KeepChannel(int channel) = 0;

  // The channel as the image has it, in the list and in the caption.
  void ShowChannel();
  std::string ChannelSuffix() const;
  // The row that a click means: -1 for none, and while the list is only put in its place.
  int ClickedRow() const;
  // Selects the row's program on the instrument, between the monitor's lines. Without an output both stay as they are.
  void HearRow(int row);
  // Gives the row's program to the armed part of the arrangement under edit.
  void AssignRow(int row);
};

}  // namespace zentaline
