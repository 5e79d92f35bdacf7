#include "aids/frmBloccoNote.h"

#include <utility>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/texts.h"

namespace zentaline {

namespace {

constexpr ui::Font kFont = {.points = 10};

}  // namespace

frmBloccoNote::frmBloccoNote(Application& app) : ChildWindow(app, "frmBloccoNote", {}) {
  Text1.multi_line = Text1.bytes_only = Text1.keeps_line_ends = true;
  Text1.max_length = kNoteLength;
  Text1.on_change = [this] {
    Bytes note;
    if (BytesFromUtf8(Text1.text(), note)) this->app().aids.NoteText = Padded(note, kNoteLength);
  };
  layout = ui::Tight(ui::Column({ui::Item(Text1, 1)}));
}

FormState* frmBloccoNote::FormPlace() {
  return &app().core.FormStates[kKindNotebook];
}

void frmBloccoNote::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  SetCaption(GetText(app(), kTextNotebook));
  ChildWindow::Load();
  Text1.SetFont(kFont);
  Text1.SetText(Utf8FromBytes(TrimRight(app().aids.NoteText)));
  if (app().main != nullptr) app().main->Menu(MenuId::mnuBloccoNote).SetEnabled(false);
}

// What stands behind the text in a longer file stays there. A file that holds the same already is left alone, so that
// one which may not be written can be read and closed.
bool frmBloccoNote::Write() {
  AidsState& aids = app().aids;
  Bytes file = aids.NoteText;
  if (aids.NoteFile.size() > kNoteLength) file += aids.NoteFile.substr(kNoteLength);
  if (file == aids.NoteFile && app().disk.Exists(app().core.NotebookFile)) return true;
  if (!WriteOwnText(app(), app().core.NotebookFile, file)) return false;
  aids.NoteFile = std::move(file);
  return true;
}

bool frmBloccoNote::QueryClose() {
  return Write();
}

void frmBloccoNote::Unload() {
  ChildWindow::Unload();
  if (app().main != nullptr) app().main->Menu(MenuId::mnuBloccoNote).SetEnabled(true);
}

}  // namespace zentaline
