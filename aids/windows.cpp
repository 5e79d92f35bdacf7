// How the keyboard and the windows of the texts open.
#include <memory>

#include "aids/api.h"
#include "aids/frmBloccoNote.h"
#include "aids/frmGuida.h"
#include "aids/frmTastiera.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"

namespace zentaline {

namespace {

bool ReadGuide(Application& app) {
  Bytes guide;
  switch (ReadDataFile(app, app.core.GuideFile, kGuideLength, guide)) {
    case kFileRead:
      break;
    case kFileAbsent:
      FileErrorMessage(app, DiskResult::kAbsent);
      return false;
    case kFileTooLarge:
      FileErrorMessage(app, DiskResult::kTooLarge);
      return false;
    case kFileFailed:
      return false;
  }
  app.aids.GuideLength = static_cast<int>(guide.size());
  guide.resize(kGuideLength, '\0');
  app.aids.GuideText = std::move(guide);
  return true;
}

// A notebook that is missing begins as a record of blanks.
bool ReadNotebook(Application& app) {
  Bytes file;
  switch (ReadDataFile(app, app.core.NotebookFile, kLargestDataFile, file)) {
    case kFileRead:
      break;
    case kFileAbsent:
      file.assign(kNoteLength, ' ');
      if (!WriteOwnText(app, app.core.NotebookFile, file)) return false;
      break;
    case kFileTooLarge:
      FileErrorMessage(app, DiskResult::kTooLarge);
      return false;
    case kFileFailed:
      return false;
  }
  app.aids.NoteText = Padded(file, kNoteLength);
  app.aids.NoteFile = std::move(file);
  return true;
}

}  // namespace

void ShowGuide(Application& app) {
  if (!ReadGuide(app)) return;
  // It is made anew each time, so that it shows what the file holds now.
  if (ui::Form* open = app.toolkit.FindForm("frmGuida")) open->Close();
  app.toolkit.Open(std::make_unique<frmGuida>(app));
}

void ShowNotebook(Application& app) {
  if (ui::Form* open = app.toolkit.FindForm("frmBloccoNote")) return app.toolkit.Activate(*open);
  if (ReadNotebook(app)) app.toolkit.Open(std::make_unique<frmBloccoNote>(app));
}

void ShowKeyboard(Application& app) {
  if (app.keyboard != nullptr) return app.toolkit.Activate(*app.keyboard);
  app.toolkit.Open(std::make_unique<frmTastiera>(app));
}

void ShowSplitNoteOnKeyboard(Application& app, int note) {
  if (app.keyboard != nullptr) static_cast<frmTastiera*>(app.keyboard)->ShowSplitNote(note);
}

void EndKeyboardNotes(Application& app) {
  if (app.keyboard != nullptr) static_cast<frmTastiera*>(app.keyboard)->EndNotes();
}

}  // namespace zentaline
