// zentaline: the program on the desktop.
#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/desktop_options.h"
#include "app/directory.h"
#include "app/home.h"
#include "base/memory.h"
#include "base/posix_disk.h"
#include "core/application.h"
#include "core/main_window.h"
#include "midi/recorder/recorder.h"
#include "midi/virtual/virtual_midi.h"
#include "ui/qt/long_sender.h"
#include "ui/qt/toolkit.h"
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
std::unique_ptr<MidiService> MakeService(DesktopOptions::Midi midi) {
  if (midi == DesktopOptions::Midi::kVirtual) return std::make_unique<zentaline::VirtualMidi>();
#ifdef ZENTALINE_HAVE_ALSA
  const bool wanted = midi == DesktopOptions::Midi::kAlsa;
  if (wanted || (midi == DesktopOptions::Midi::kDefault && zentaline::AlsaMidi::Available())) {
    return std::make_unique<zentaline::AlsaMidi>();
  }
#else
  if (midi == DesktopOptions::Midi::kAlsa) return nullptr;
#endif
  // A recorder that is given no devices has none.
  return std::make_unique<zentaline::RecorderMidi>();
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
  const std::unique_ptr<MidiService> service = MakeService(options.midi);
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

  zentaline::PosixDisk disk;
  zentaline::ui::qt::QtToolkit toolkit;
  zentaline::ui::qt::LongSender sender(toolkit, *service);
  zentaline::Application program(toolkit, sender, disk, directory);
  toolkit.SetWordSource([&program]() -> const zentaline::ui::qt::Words& {
    return program.Language() == 1 ? zentaline::ui::qt::ItalianWords() : zentaline::ui::qt::EnglishWords();
  });
  if (!program.Start()) return 0;
  if (program.main != nullptr) program.main->OpenWhenReady(options.files);
  return toolkit.Run();
}
