// The monitor: what went out last, in hexadecimal.
#pragma once

#include <string_view>

#include "core/child_window.h"

namespace zentaline {

class frmMsgEx : public ChildWindow {
 public:
  explicit frmMsgEx(Application& app);

  ui::TextBox Text1{*this, "Text1"};

  void Load() override;
  void Unload() override;

 protected:
  FormState* FormPlace() override;

 private:
  // An empty text clears the window, any other adds a line.
  void Log(std::string_view bytes);

  Bytes work_;  // a line in the making
};

}  // namespace zentaline
