// Reading program files, and what stands in the instrument.
#include "base/panel_numbers.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/file_set.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/names.h"
#include "files/paths.h"
#include "program/api.h"
#include "program/prg_format.h"

namespace zentaline {

namespace {

PrgReadResult CheckPrg(std::string_view file) {
  return CheckProgramByExtension(file, false);
}

PrgReadResult CheckPgg(std::string_view file) {
  return CheckProgramByExtension(file, true);
}

// The buffer takes what was read before anything is tested: as much of it as a bank, or zero bytes behind it.
int ReadWith(Application& app, const std::string& path, PrgReadResult (*check)(std::string_view)) {
  Bytes file;
  const FileReadResult read = ReadDataFile(app, path, kLargestDataFile, file);
  if (read == kFileFailed || read == kFileAbsent) return read;
  const PrgReadResult result = read == kFileRead ? check(file) : kPrgWrong;
  if (read == kFileRead) {
    file.resize(kPrgFileLength, '\0');
    app.program.ProgramFileBuffer = std::move(file);
  }
  if (result == kPrgWrong) ShowMessage(app, kMessageDataFormat, app.core.OperationTitle, {});
  return result;
}

}  // namespace

int ReadProgramFile(Application& app, const std::string& path) {
  return ReadWith(app, path, CheckProgramFile);
}

int ReadProgramByName(Application& app, const std::string& path) {
  const int type = FileType(path);
  if (type == kTypePrg || type == kTypePgg) {
    app.program.ProgramExtension = ExtensionOf(type);
    return ReadWith(app, path, type == kTypePgg ? CheckPgg : CheckPrg);
  }
  app.program.ProgramExtension = "prg";
  const int result = ReadWith(app, path + ".prg", CheckPrg);
  if (result != kPrgAbsent) return result;
  app.program.ProgramExtension = "pgg";
  return ReadWith(app, path + ".pgg", CheckPgg);
}

void PutPrgFiles(const Application&, Bytes& image, FileSet& set) {
  const std::string base(WindowPath(image));
  // A bank may have come under the other extension: the letters at its start go with the one that it gets.
  DecideProgramFormat(image);
  const bool pgg = ProgramExtension(image) == "pgg";
  set.Write(base + (pgg ? ".pgg" : ".prg"), PrgFileBytes(image));
  // One name never stands in both formats.
  set.Remove(base + (pgg ? ".prg" : ".pgg"));
}

void PrgFilesSaved(Bytes& image, bool whole) {
  if (whole) PutByte(image, kPrgChangedPosition, 0);
}

Bytes InstrumentProgramName(int bank_code, int number) {
  if (bank_code == kDrumBankCode) return Bytes(TrimRight(DrumKitName(number)));
  const ProgramPlace place = ProgramPlaceOf(bank_code, number);
  if (bank_code == kUserBankCode || place.kind == 0) return {};
  return Bytes(TrimRight(ProgramName(place.kind - kKindPrgA, place.index)));
}

std::string PrgLabel(int number, int bank_code) {
  if (bank_code == kUserBankCode) return "F/User";
  const std::string name = Utf8FromBytes(InstrumentProgramName(bank_code, number));
  if (bank_code == kDrumBankCode) return name.empty() ? "Drum" : name;
  const ProgramPlace place = ProgramPlaceOf(bank_code, number);
  if (place.kind == 0) return {};
  return name + " (" + std::string(place.letter) + PanelNumberText(place.index) + ")";
}

const Bytes* FindOpenProgram(const Application& app, const std::string& path) {
  for (int i = 1; i <= kFileWindows; ++i) {
    const auto slot = static_cast<std::size_t>(i);
    const ChildWindow* window = app.prg_windows[slot];
    if (window != nullptr && app.core.PrgWindows[slot].path == path) return &window->window_image();
  }
  return nullptr;
}

}  // namespace zentaline
