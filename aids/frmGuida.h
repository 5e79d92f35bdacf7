// The user's guide: a text to be read, line by line and page by page.
#pragma once

#include "core/child_window.h"

namespace zentaline {

class frmGuida : public ChildWindow {
 public:
  explicit frmGuida(Application& app);

  ui::TextBox Text1{*this, "Text1"};
  ui::Timer Timer1{*this, "Timer1"};

  void Load() override;

 protected:
  FormState* FormPlace() override;

 private:
  void KeyInText(const ui::Key& key);
  // The view moves by so many lines, down if positive, but not beyond the ends of the text.
  void MoveView(int lines);
  int LinesOfPage() const;

  int lines_ = 0;  // of the whole text
};

}  // namespace zentaline
