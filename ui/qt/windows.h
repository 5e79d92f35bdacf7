// All windows of a desktop: made, hidden and brought to the front as a toolkit is asked to.
#pragma once

#include <functional>
#include <map>

#include "ui/qt/gate.h"
#include "ui/qt/window.h"
#include "ui/qt/words.h"
#include "ui/toolkit.h"

namespace zentaline::ui::qt {

// Needs a QApplication that lives longer.
class Windows {
 public:
  // `toolkit` is the one whose forms are shown.
  explicit Windows(const Toolkit& toolkit) : toolkit_(toolkit) {}
  ~Windows() { Drop(); }
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;

  Gate& gate() { return gate_; }
  // Null while there is none.
  MainFormWindow* main() const { return main_; }
  FormWindow* Of(const Form& form) const;
  // The window that a box belongs to; null when there is none.
  QWidget* Front() const;

  void Show(Form& form, const Words& words);
  void Hide(Form& form);
  void Raise(Form& form);
  // Takes all windows away; the forms live on.
  void Drop();

  // Whether forms are told the places and sizes that their windows have. Set before the first is shown.
  bool tells_places = true;

 private:
  void OnChildActivated(QMdiSubWindow* child);

  const Toolkit& toolkit_;
  Gate gate_;
  MainFormWindow* main_ = nullptr;
  std::map<const Form*, FormWindow*> windows_;
};

}  // namespace zentaline::ui::qt
