// What all child windows have in common: their image, and what the main window asks of the one in front.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "core/edit_tally.h"
#include "core/state.h"
#include "ui/form.h"

namespace zentaline {

struct Application;
struct EditStep;

// A button's function, which a menu entry may share.
enum class WindowFunction {
  kLoadAll,
  kLoadArr,
  kLoadSty,
  kShowSty,
  kLoadPrg,
  kShowPrg,
  kEdit,
  kEditPerf,
  kAddToDatabase,
  kDelete,
  kOpen,
  kAddAll,
  kCount,
};

// What a paste or a cut has made of a window's image, for the window to show.
struct ItemsShown {
  bool cut = false;
  std::vector<int> rows = {};        // of the list, that took an item or lost it
  std::vector<int> cut_styles = {};  // entries of the styles that went with their arrangements
  bool styles = false;               // the style part is another one
};

class ChildWindow : public ui::Form {
 public:
  ChildWindow(Application& app, std::string name, std::string number)
      : Form(app_toolkit(app), ui::FormKind::kChild, std::move(name), std::move(number)), app_(app) {}

  // The whole state of the window. Never copied to be looked at; it changes through app.edits.
  const Bytes& window_image() const { return window_image_; }

  int Kind() const;          // a WindowKind; 0 for a window without an image
  bool ReadOnly() const;     // the file was opened so
  int WindowNumber() const;  // 1 to 9
  // Base name of the file, as bytes of the file system and as it can be shown.
  std::string BaseName() const;

  // The button of a function, null when the window has none, and the timer that presses it for the menu.
  virtual ui::Button* ButtonOf(WindowFunction function);
  virtual ui::Timer* TimerOf(WindowFunction function);
  // Whether the menu entry of a function can be used: by default when its button can.
  virtual bool Offers(WindowFunction function);
  // Whether there is something that mnuSalva and mnuSalvaAs would save.
  virtual bool CanSave() const { return false; }
  // Whether it holds something that would be lost.
  virtual bool Unsaved() const { return CanSave(); }
  // Whether the file has no name of its own yet, so that saving asks for one.
  virtual bool NeverSaved() const;
  // Whether the window's path is that of its own file: not that of a new file, and not that of one it was made from.
  bool HasOwnPath() const;
  // The list whose rows are items that can be copied; null when there is none.
  virtual ui::ListBox* ItemList() { return nullptr; }
  // Shows rows one by one, with what follows from them: selection and focus stay, and nothing is clicked.
  virtual void ShowItems(const ItemsShown& shown) { (void)shown; }
  // Bytes of the window's image have been taken back or brought forth: shows them silently, with the row or the control
  // that they belong to; the instrument follows where it follows the window's own controls.
  virtual void ShowStep(const EditStep& step) { (void)step; }
  // Whether another window takes this one along at its closing, and asks for it.
  virtual bool GoesWithAnother() const { return false; }
  // The caption by the image.
  virtual void ShowName() {}
  // The window's file has another path now, without extension: the image and the window's record take it.
  void TakePath(const std::string& base);
  // The window's file has been saved.
  virtual void FileSaved() {}
  // A setting of the menus has changed.
  virtual void SettingsChanged() {}
  // Gives the window this size, or takes it back to the one it had before.
  void ToggleSize(ui::Size size);

  void Activated() override;
  void Load() override;
  void Unload() override;
  void Resized() override;
  void FilesDropped(const std::vector<std::string>& paths) override;

 protected:
  // A button, and the timer that presses it for a menu entry, unless it does something of its own.
  struct Served {
    WindowFunction function;
    ui::Button& button;
    ui::Timer& timer;
  };
  void Serve(std::vector<Served> functions);
  // The end of a window that shows a file: nothing waits any more, its place among the open windows is free, and the
  // file, by its path with the extension, is among the recent ones. Without a path it was never saved. The instrument's
  // own window keeps its mark, and so its file.
  void UnloadFile(ChildWindow*& slot, bool sending, const std::string& path);
  // The button sends a mode and gives the keys back to the list.
  void MakeModeButton(ui::Button& button, void (*send)(Application&), ui::ListBox& list);
  // What keeps the window's place: the record of a file's window, or the entry of a form that there is once. Null when
  // it has none.
  virtual WindowRecord* Record() { return nullptr; }
  virtual FormState* FormPlace() { return nullptr; }
  // Called before Load: at its very first showing the window is as large as so many characters need inside its frame.
  void SizeAtFirst(const ui::Font& font, ui::Size characters);
  // What the menus offer follows the window; after a click in its list this comes last, since the sound comes first.
  void RefreshMenus();
  // The Edit menu under the pointer, for a right click.
  void PopupEditMenu();
  // True, and the box tells so, when the file was opened read-only.
  bool RefusesChanges();
  Application& app() const { return app_; }

 private:
  friend class Edits;
  static ui::Toolkit& app_toolkit(Application& app);
  void KeepPlace();
  void TakeFirstSize();

  Application& app_;
  Bytes window_image_;
  std::array<EditTally, 3> tallies_;  // of its marks, for Edits
  struct FirstRoom {
    ui::Font font;
    ui::Size characters;
  };
  std::optional<FirstRoom> first_room_;
  std::vector<Served> served_;
  ui::Size size_before_;  // a width of 0: the window isn't enlarged
};

// Copies tool tips and captions from the tables to a form's controls. Captions that are set already stay.
void DressForm(const Application& app, ui::Form& form);

// The place itself or, where nothing of it would be seen, the same size in the corner of the screen.
ui::Placement OnScreen(const Application& app, ui::Placement placement);

// Keeps the place of a WindowRecord or a FormState, but not its state. The size of a window that fills the main window,
// or is an icon, is not one to come back to.
template <typename Kept>
void KeepNormalPlace(Kept& kept, const ui::Placement& placement) {
  if (placement.state != ui::WindowState::kNormal && kept.width > 0) return;
  kept.left = placement.left;
  kept.top = placement.top;
  kept.width = placement.width;
  kept.height = placement.height;
}

// A record's place as a window takes it, on the screen, and back.
ui::Placement PlacementOf(const Application& app, const WindowRecord& record);
void KeepPlacement(WindowRecord& record, const ui::Placement& placement);
ui::Placement PlacementOf(const Application& app, const FormState& state);
void KeepPlacement(FormState& state, const ui::Placement& placement);

// What stands behind the caption of a read-only window: " - " and the text, or nothing.
std::string ReadOnlySuffix(const Application& app, bool read_only);

}  // namespace zentaline
