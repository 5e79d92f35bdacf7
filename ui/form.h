// A window: its controls, its place, and what it does when it opens and closes.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/controls.h"
#include "ui/layout.h"
#include "ui/types.h"

namespace zentaline::ui {

class Toolkit;

enum class FormKind { kMain, kChild, kModal };

// The window of one form. It attaches itself with Form::view and must take itself off before it dies.
class FormView {
 public:
  virtual ~FormView() = default;
  virtual void ShowCaption() = 0;    // or the mark of what isn't saved
  virtual void ShowPlacement() = 0;  // place, size and state were changed by the program
};

class Form {
 public:
  // `number` tells windows of one class apart: "3" makes frmArrU(3). Empty where there is only one.
  Form(Toolkit& toolkit, FormKind kind, std::string name, std::string number = {});
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  Toolkit& toolkit() const { return toolkit_; }
  FormKind kind() const { return kind_; }
  const std::string& name() const { return name_; }
  const std::string& number() const { return number_; }
  std::string FullName() const;
  // Whether that is its full name.
  bool IsCalled(std::string_view full_name) const;

  const std::string& caption() const { return caption_; }
  void SetCaption(std::string caption);

  // The place. Children stand in the main window's inner area. A width of 0 leaves the place to the toolkit.
  const Placement& placement() const { return placement_; }
  void SetPlacement(const Placement& placement);
  // The room inside the frame. The toolkit keeps it.
  Size inner_size() const { return inner_size_; }

  // In the order of their declaration.
  const std::vector<Control*>& controls() const { return controls_; }
  // Null when there is none. An index of -1 finds a control that is not one of an array.
  Control* Find(const std::string& name, int index = -1) const;
  const std::vector<MenuEntry*>& menu_bar() const { return menu_bar_; }
  Layout layout;
  Layout free_area;             // of the main window: what stands where no child window does
  Label* wait_field = nullptr;  // of the main window: the field that gives way where a bar of progress has no room
  // Whether it holds something that isn't saved; the caption doesn't tell.
  bool modified() const { return modified_; }
  void SetModified(bool modified);

  Button* default_button = nullptr;  // pressed by Enter
  Button* cancel_button = nullptr;   // pressed by Escape

  Control* focus() const { return focus_; }
  bool open() const { return open_; }

  // What the form does. Load fills it before it is shown.
  virtual void Load() {}
  virtual void Activated() {}
  virtual void Resized() {}                   // place, size or state has changed
  virtual bool QueryClose() { return true; }  // false keeps it open
  virtual void Unload() {}
  virtual void FilesDropped(const std::vector<std::string>& paths) { (void)paths; }
  Handler on_context;
  // On the room that no control covers.
  std::function<void(const MouseEvent&)> on_mouse;

  // Asks, and closes it unless it refuses; true when it is closed. The form lives on until the outermost event has
  // ended.
  bool Close();
  void CloseWithoutAsking();
  // True when the user can get at it: open, and no other form is modal.
  bool Reachable() const;

  // What the user does.
  bool UserClose();
  void UserActivate();
  void UserPlace(const Placement& placement, Size inner);
  bool UserMouse(const MouseEvent& event);
  bool UserContext();

  FormView* view = nullptr;

 private:
  friend class Control;
  friend class MenuEntry;
  friend class OptionButton;
  friend class Toolkit;
  // Tells each control what it stands in.
  void NoteContainers();
  bool Noted() const { return noted_ == layout.children.data(); }

  Toolkit& toolkit_;
  FormKind kind_;
  std::string name_;
  std::string number_;
  std::string caption_;
  Placement placement_;
  Size inner_size_;
  const Layout* noted_ = nullptr;  // the children of the layout that was noted; another layout has others
  std::vector<Control*> controls_;
  std::vector<OptionButton*> options_;  // among the controls
  std::vector<MenuEntry*> menu_bar_;
  Control* focus_ = nullptr;
  bool modified_ = false;
  bool open_ = false;
};

}  // namespace zentaline::ui
