// A bank that the instrument holds for good: its names come from the fixed tables, its channel and its place are kept
// with the forms that there are once.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/menus.h"
#include "program/list_window.h"

namespace zentaline {

class BankWindow : public ProgramListWindow {
 public:
  void ShowName() override;

  void Load() override;
  void Unload() override;

 protected:
  // The names, 16 bytes each, row after row. `title` stands at the start of the caption, and in the image with at most
  // `title_length` characters to be read.
  BankWindow(Application& app, std::string name, int kind, std::string_view title, std::size_t title_length,
             std::string_view names);

  void ClickRow() override;
  void KeepChannel(int channel) override;
  FormState* FormPlace() override;

 private:
  int kind_;
  std::size_t title_length_;
};

}  // namespace zentaline
