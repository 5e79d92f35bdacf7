// Items on their way between windows: what Cut, Copy and Paste do to the window in front, and to the window that shows
// the same styles.
#include "files/clipboard_format.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

// What stands in the boxes and in the list of actions for each family.
struct FamilyRow {
  ItemFamily family;
  std::string_view words;
  int paste_text;  // title of the boxes after a paste; of programs there are none
};
constexpr FamilyRow kFamilies[] = {
    {ItemFamily::kArrangements, "Arrangements", kTextPasteArr},
    {ItemFamily::kPrograms, "Programs", kTextPasteArr},
    {ItemFamily::kStyles, "Styles", kTextPasteSty},
};

const FamilyRow& FamilyOf(const ChildWindow& window) {
  const ItemFamily family = ItemTableOf(window.window_image()).family;
  for (const FamilyRow& row : kFamilies) {
    if (row.family == family) return row;
  }
  return kFamilies[0];
}

Bytes RowBytes(const std::string& text) {
  Bytes bytes;
  return BytesFromUtf8(text, bytes) ? bytes : Bytes(text);
}

bool ShowsSelectedItem(ItemFamily family, const ui::ListBox& list) {
  for (int row = 0; row < list.rows(); ++row) {
    if (list.Selected(row) && ShowsItem(family, row, RowBytes(list.RowText(row)))) return true;
  }
  return false;
}

// In Italian in both languages.
constexpr char kStylesAbsentTitle[] = "File .sty assente";

void ShowNotice(Application& app, ItemNotice notice, const std::string& title) {
  switch (notice) {
    case ItemNotice::kStylesAbsent:
      return ShowMessage(app, kMessageText, kStylesAbsentTitle, {});
    case ItemNotice::kNoPlace:
      return ShowMessage(app, kMessageNoPlaceForStyle, title, {});
    case ItemNotice::kTooLong:
      return ShowMessage(app, kMessageStylesTooLong, title, {});
    case ItemNotice::kNoTemplate:
      return ShowMessage(app, kMessageNotFound, title, ShownPath(FileBaseName(app.core.InternalSty)));
  }
}

// What a paste or a cut has done is shown, then told; `same` shows the same styles, if it isn't null.
void ShowDone(Application& app, ChildWindow& window, ItemsDone done, const EditWords& words, bool cut,
              ChildWindow* same) {
  window.ShowItems({cut, std::move(done.rows), std::move(done.cut_styles), done.styles_changed});
  if (done.styles_changed && same != nullptr) KeepInStep(app, window, *same, words);
  if (app.main != nullptr) app.main->RefreshMenus();
  const std::string title = GetText(app, cut ? kTextCut : FamilyOf(window).paste_text);
  for (const ItemNotice notice : done.notices) ShowNotice(app, notice, title);
}

void CopyRows(Application& app, ChildWindow& window, const ui::ListBox& list) {
  std::vector<Bytes> texts;
  for (int row = 0; row < list.rows(); ++row) texts.push_back(RowBytes(list.RowText(row)));
  const Bytes& image = window.window_image();
  app.edits.SetAside(window, ItemTableOf(image).position, MarkedTable(image, texts, list.SelectedRows()));
  app.files.ItemClipboard = window.window_image();
}

}  // namespace

ItemEntries UsableItemEntries(const Application& app, ChildWindow& window) {
  const bool read_only = window.ReadOnly() || app.core.settings.RdOnly;
  // The database has a command of its own for its entries.
  if (window.Kind() == kKindDatabase) return {.cut = !read_only && window.Offers(WindowFunction::kDelete)};
  const ItemTable table = ItemTableOf(window.window_image());
  const ui::ListBox* list = window.ItemList();
  if (list == nullptr || table.family == ItemFamily::kNone) return {};
  const bool copy = ShowsSelectedItem(table.family, *list);
  const bool takes = table.takes && !read_only;
  return {takes && copy, copy, takes && FitsItems(app.files.ItemClipboard, window.window_image())};
}

void CopySelected(Application& app, ChildWindow& window) {
  if (!UsableItemEntries(app, window).copy) return;
  CopyRows(app, window, *window.ItemList());
  if (app.main != nullptr) app.main->RefreshMenus();
}

void CutSelected(Application& app, ChildWindow& window) {
  if (!UsableItemEntries(app, window).cut) return;
  if (window.Kind() == kKindDatabase) return window.ButtonOf(WindowFunction::kDelete)->Press();
  CopyRows(app, window, *window.ItemList());
  const EditWords words{"Cut", FamilyOf(window).words};
  // Asked before the cut: with the last style the arrangements have none attached any more.
  ChildWindow* same = SameStyles(app, window);
  ItemsDone done = app.edits.Change(ImageOf(window), words,
                                    [&app](Bytes& image) { return CutItems(image, app.style.EmptyStyleImage); });
  app.edits.SetAside(window, ItemTableOf(window.window_image()).position, UnmarkedTable(window.window_image()));
  ShowDone(app, window, std::move(done), words, true, same);
}

void PasteCopied(Application& app, ChildWindow& window) {
  if (!UsableItemEntries(app, window).paste) return;
  const ui::ListBox& list = *window.ItemList();
  const PasteTarget target{list.SelectedRows(), list.focus_row()};
  const EditWords words{"Paste", FamilyOf(window).words};
  // Arrangements without styles take those of their name along first, when a window shows them.
  const bool brings_styles = BringsStyles(app.files.ItemClipboard);
  const ChildWindow* styles = brings_styles ? StylesToTake(app, window) : nullptr;
  ItemsDone done = app.edits.Change(ImageOf(window), words, [&](Bytes& image) {
    if (styles != nullptr) AttachStyles(image, StylePart(styles->window_image()), 2);
    return PasteItems(app.files.ItemClipboard, image, target, app.style.EmptyStyleImage);
  });
  ShowDone(app, window, std::move(done), words, false, SameStyles(app, window));
}

}  // namespace zentaline
