#include "program/frmMultisample.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "base/scoped_value.h"
#include "core/application.h"
#include "program/api.h"
#include "program/windows.h"

namespace zentaline {

namespace {

constexpr char kName[] = "frmMultisample";

// Behind the number and the two blanks.
constexpr std::size_t kNameOffset = 5;
// A letter that comes later begins another name.
constexpr std::int64_t kTypingPause = 1000;

int PageOf(int sound) {
  return sound / frmMultisample::kPageRows;
}

}  // namespace

frmMultisample::frmMultisample(Application& app) : ChildWindow(app, kName, {}) {
  std::vector<ui::Layout> pages;
  for (int page = 0; page < kPages; ++page) {
    const int first = page * kPageRows;
    const int last = std::min(first + kPageRows, kMultisampleCount) - 1;
    SSTab1.captions.push_back(std::to_string(first) + " - " + std::to_string(last));
    List1[page].SetFont({.fixed_pitch = true});
    List1[page].least_characters = {24, 17};
    List1[page].on_click = [this, page] { ClickRow(page); };
    List1[page].on_key = [this, page](const ui::Key& key) { return KeyInList(page, key); };
    pages.push_back(ui::Item(List1[page], 1));
  }
  Timer.on_timer = [this] { Follow(); };
  on_context = [this] { PopupEditMenu(); };
  layout = ui::Column({ui::Pages(SSTab1, std::move(pages))});
}

void frmMultisample::Load() {
  ChildWindow::Load();
  FillLists();
  Timer.Start();
}

void frmMultisample::Unload() {
  SetMultisoundTarget(app(), 0);
  ChildWindow::Unload();
}

FormState* frmMultisample::FormPlace() {
  return &app().program.MultisamplePlace;
}

// The file's text as it stands, never renumbered.
void frmMultisample::FillLists() {
  for (int page = 0; page < kPages; ++page) {
    std::vector<std::string> rows;
    for (int row = 0; row < kPageRows && page * kPageRows + row < kMultisampleCount; ++row) {
      rows.push_back(MultisoundText(app(), page * kPageRows + row));
    }
    List1[page].SetRows(std::move(rows));
  }
}

void frmMultisample::Follow() {
  const int sound = WantedMultisound(app());
  if (sound < 0 || sound >= kMultisampleCount) return;
  const ScopedValue loading(app().core.FormLoading, true);
  Show(sound);
}

void frmMultisample::Show(int sound) {
  const int page = PageOf(sound);
  for (int other = 0; other < kPages; ++other) {
    if (other != page) List1[other].SetRow(-1);
  }
  SSTab1.SetPage(page);
  List1[page].SetRow(sound - page * kPageRows);
}

void frmMultisample::ClickRow(int page) {
  if (app().core.FormLoading || List1[page].Row() < 0) return;
  const int sound = SelectedOn(page);
  for (int other = 0; other < kPages; ++other) {
    if (other != page) List1[other].SetRow(-1);
  }
  if (const int box = app().program.MultisoundTarget; box != 0) {
    SetMultisoundText(app(), box, MultisoundText(app(), sound));
  }
}

int frmMultisample::SelectedOn(int page) const {
  return page * kPageRows + List1[page].Row();
}

// --- Typing a name ---

// More letters narrow the search down from the sound that is shown; the first letter, and one that leads nowhere with
// those before it, goes to the next sound.
bool frmMultisample::KeyInList(int page, const ui::Key& key) {
  std::string letter = key.name == ui::Key::kSpace ? " " : key.character;
  if (key.name != ui::Key::kCharacter && key.name != ui::Key::kSpace) return false;
  if (!BytesFromUtf8(letter, letter)) return true;
  const std::int64_t now = toolkit().Now();
  if (now - typed_at_ > kTypingPause) typed_.clear();
  typed_at_ = now;
  letter = LowerCase(letter);
  const int shown = SelectedOn(page);
  int sound = typed_.empty() ? -1 : FindName(typed_ + letter, shown);
  if (sound >= 0) {
    typed_ += letter;
  } else {
    typed_ = letter;
    sound = FindName(typed_, shown + 1);
  }
  if (sound < 0) {
    typed_.clear();
    return true;
  }
  Show(sound);
  List1[PageOf(sound)].SetFocus();
  return true;
}

int frmMultisample::FindName(const std::string& text, int first) const {
  for (int i = 0; i < kMultisampleCount; ++i) {
    const int sound = (first + i) % kMultisampleCount;
    const std::string name = MultisampleRecord(app().core.MultisampleImage, sound).substr(kNameOffset);
    if (LowerCase(name).starts_with(text)) return sound;
  }
  return -1;
}

// --- What the other windows ask ---

namespace {

frmMultisample* OpenList(Application& app) {
  return static_cast<frmMultisample*>(app.toolkit.FindForm(kName));
}

}  // namespace

void ShowMultisamples(Application& app) {
  if (frmMultisample* list = OpenList(app)) {
    app.toolkit.Activate(*list);
    return list->Timer.Start();
  }
  app.toolkit.Open(std::make_unique<frmMultisample>(app));
}

void FollowMultisound(Application& app) {
  if (frmMultisample* list = OpenList(app)) list->Timer.Start();
}

void CloseMultisamples(Application& app) {
  if (frmMultisample* list = OpenList(app)) list->Close();
}

}  // namespace zentaline
