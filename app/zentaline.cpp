// zentaline: the program on the desktop.
#include <QApplication>
#include <QMainWindow>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/desktop_options.h"
#include "app/desktop_session.h"
#include "app/directory.h"
#include "app/end_signals.h"
#include "app/first_instance.h"
#include "app/home.h"
#include "base/memory.h"
#include "base/posix_disk.h"
#include "core/application.h"
#include "core/main_window.h"
#include "midi/recorder/recorder.h"
#include "midi/virtual/virtual_midi.h"
#include "ui/qt/long_sender.h"
#include "ui/qt/toolkit.h"
#include "ui/qt/window.h"
#ifdef ZENTALINE_HAVE_ALSA
#include "midi/alsa/alsa_midi.h"
#endif

namespace {

using zentaline::DesktopOptions;
using zentaline::MidiService;

int Misused(const std::string& why) {
  std::fprintf(stderr, "zentaline: %s\n\n%s", why.c_str(), zentaline::kDesktopUsage);
  return 2;
}

// Null when the service was asked for and this program has none of the kind.
std::unique_ptr<MidiService> MakeService(DesktopOptions::Midi midi, const zentaline::EndSignals& end_signals) {
  if (midi == DesktopOptions::Midi::kVirtual) return std::make_unique<zentaline::VirtualMidi>();
#ifdef ZENTALINE_HAVE_ALSA
  const bool wanted = midi == DesktopOptions::Midi::kAlsa;
  if (wanted || (midi == DesktopOptions::Midi::kDefault && zentaline::AlsaMidi::Available())) {
    auto alsa = std::make_unique<zentaline::AlsaMidi>();
    alsa->SetStop([&end_signals] { return end_signals.Pending(); });
    return alsa;
  }
#else
  (void)end_signals;
  if (midi == DesktopOptions::Midi::kAlsa) return nullptr;
#endif
  // A recorder that is given no devices has none.
  return std::make_unique<zentaline::RecorderMidi>();
}

void BringToFront(zentaline::ui::qt::QtToolkit& toolkit) {
  if (toolkit.windows().main() == nullptr) return;
  QWidget* const window = toolkit.windows().main()->window();
  window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  window->raise();
  window->activateWindow();
}

}  // namespace

int main(int count, char** arguments) {
  zentaline::KeepFreedMemory();
  DesktopOptions options = zentaline::ReadDesktopOptions({arguments + 1, arguments + count});
  if (!options.error.empty()) return Misused(options.error);
  if (options.help) {
    std::fputs(zentaline::kDesktopUsage, stdout);
    return 0;
  }
  zentaline::EndSignals end_signals;
  const std::unique_ptr<MidiService> service = MakeService(options.midi, end_signals);
  if (service == nullptr) return Misused("this zentaline was built without ALSA");
  // The files are named from where the program was called.
  for (std::string& file : options.files) {
    std::error_code error;
    file = std::filesystem::absolute(file, error).lexically_normal().string();
  }
  std::string wanted = options.directory;
  if (options.home) {
    wanted = zentaline::HomeDirectory([](const char* name) -> const char* { return std::getenv(name); });
    if (wanted.empty()) return Misused("there is no home directory; --dir names another");
    const std::string failure = zentaline::CopyLacking(zentaline::FactoryDirectory(), wanted);
    // It works without them, and says what it misses when it is asked for.
    if (!failure.empty()) std::fprintf(stderr, "zentaline: %s\n", failure.c_str());
  }
  const std::string directory = zentaline::EnterDirectory(wanted);
  if (directory.empty()) return Misused("there is no such directory: " + wanted);

  int qt_count = 1;
  const QApplication application(qt_count, arguments);
  QApplication::setApplicationName(QStringLiteral("Zentaline"));
  QApplication::setDesktopFileName(QStringLiteral("zentaline"));
  QApplication::setQuitOnLastWindowClosed(false);

  zentaline::FirstInstance instance;
  if (instance.HandOver(options.files)) return 0;

  zentaline::PosixDisk disk;
  zentaline::ui::qt::QtToolkit toolkit;
  zentaline::ui::qt::LongSender sender(toolkit, *service);
  zentaline::Application program(toolkit, sender, disk, directory);
  toolkit.SetWordSource([&program]() -> const zentaline::ui::qt::Words& {
    return program.Language() == 1 ? zentaline::ui::qt::ItalianWords() : zentaline::ui::qt::EnglishWords();
  });
  const zentaline::DesktopSession session(program, toolkit, end_signals);
  instance.Listen([&](const std::vector<std::string>& files) {
    BringToFront(toolkit);
    if (program.main == nullptr) {
      options.files.insert(options.files.end(), files.begin(), files.end());
    } else {
      toolkit.windows().gate().User(toolkit.windows().main()->window(), [&program, files] {
        if (program.main != nullptr) program.main->OpenWhenReady(files);
      });
    }
  });
  program.KeepJournal();
  if (!program.Start()) return 0;
  if (program.main != nullptr) program.main->OpenWhenReady(options.files);
  return toolkit.Run();
}
