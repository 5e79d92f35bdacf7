#include "core/application.h"

#include <memory>

#include "aids/api.h"
#include "core/boxes.h"
#include "core/configuration.h"
#include "core/frmMain.h"
#include "core/journal.h"
#include "data/texts.h"
#include "files/paths.h"
#include "midi/api.h"

namespace zentaline {

Application::Application(ui::Toolkit& the_toolkit, MidiService& the_service, Disk& the_disk,
                         const std::string& directory)
    : toolkit(the_toolkit), service(the_service), disk(the_disk) {
  core.Directory = directory;
  core.ConfigFile = JoinPath(directory, kConfigFileName);
  core.InternalArrA = JoinPath(directory, "i40ArrA");
  core.InternalArrB = JoinPath(directory, "i40ArrB");
  core.InternalPrg = JoinPath(directory, "i40Prg");
  core.InternalSty = JoinPath(directory, "i40Sty");
  core.NotebookFile = JoinPath(directory, "Zentaline-Notebook.txt");
  core.MultisampleFile = JoinPath(directory, "i40Multisample");
  core.DatabaseDir = JoinPath(directory, "i40DBArr");
  toolkit.on_event_end = [this] {
    undo.EventEnded();
    if (journal != nullptr) journal->EventEnded();
  };
}

Application::~Application() {
  toolkit.on_event_end = nullptr;
  edits.SetListener(nullptr);
}

void Application::KeepJournal() {
  journal = std::make_unique<Journal>(*this);
  edits.SetListener(journal.get());
}

bool Application::Start() {
  const ui::UserEvent event(toolkit);
  core.StartingUp = true;
  ReadConfiguration(*this);
  if (core.StopRun) {
    core.StartingUp = false;
    return false;
  }
  core.GuideFile = JoinPath(core.Directory, Language() == 1 ? "Zentaline-GuidaUtente.txt" : "Zentaline-UserGuide.txt");
  core.OperationTitle = GetText(*this, kTextOpeningOut);
  EnumerateMidi(*this);
  toolkit.Open(std::make_unique<frmMain>(*this));
  core.StartingUp = false;
  return true;
}

void Application::End() {
  core.Closing = true;
  for (ui::Form* form : toolkit.forms()) {
    if (form->kind() == ui::FormKind::kChild) form->Resized();
  }
  core.OperationTitle = GetText(*this, kTextClosingOut);
  EndKeyboardNotes(*this);
  CloseMidi(*this);
  WriteConfiguration(*this);
}

void Application::EndUnasked() {
  if (main == nullptr) return;
  if (ui::Form* notebook = toolkit.FindForm("frmBloccoNote")) notebook->QueryClose();
  End();
}

}  // namespace zentaline
