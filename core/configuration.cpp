#include "core/configuration.h"

#include <algorithm>
#include <array>
#include <memory>

#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/frmLingua.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/multisample.h"
#include "data/texts.h"

namespace zentaline {

namespace {

constexpr std::string_view kSignature = "Zentaline";

// What is longer still is no configuration. In bytes.
constexpr std::size_t kLongestFile = 16 * kConfigLength;

// Records, which count from 1.
constexpr int kRecordSettings = 1;
constexpr int kRecordSizes = 2;
constexpr int kRecordArrDirectory = 3;
constexpr int kRecordPrgDirectory = 4;
constexpr int kRecordArrWindows = 6;
constexpr int kRecordPrgWindows = 14;
constexpr int kRecordGlobal = 30;
constexpr int kRecordStyWindows = 32;
constexpr int kRecordRecentFiles = 40;
constexpr int kRecordArrUser = 48;
constexpr int kRecordPrgUser = 49;
constexpr int kRecordNames = 50;

// Positions in record 1.
constexpr std::size_t kMidiInDevice = 19;
constexpr std::size_t kLanguage = 25;
constexpr std::size_t kKeyboard = 30;
constexpr std::size_t kThruOn = 46;
constexpr std::size_t kCurrentMode = 47;
constexpr std::size_t kMidiOutDevice = 48;
constexpr std::size_t kGlobalSet = 49;
constexpr std::size_t kPlacements = 51;
constexpr std::size_t kLastListIndex = 239;
constexpr std::size_t kGlobalChannel = 240;
constexpr std::size_t kArrChannel = 241;

struct Flag {
  std::size_t position;
  bool Settings::*field;
};
constexpr Flag kFlags[] = {
    {17, &Settings::RdOnly},         {20, &Settings::CaricaStyNuovoArr}, {21, &Settings::CaricaSty},
    {22, &Settings::OpenPrgWithArr}, {23, &Settings::CaricaPrg},         {26, &Settings::Add40DBArr},
    {27, &Settings::VisBarraStato},  {28, &Settings::CaricaArr},         {50, &Settings::AutoPrgSel},
};

// Where the parts' channels stand, in the order of the parts: Drum to Accomp 3, Upper 1, Upper 2, Lower.
constexpr std::array<std::size_t, 9> kPartChannels = {245, 246, 247, 248, 249, 250, 244, 243, 242};

// The forms that have a placement in record 1, in the order of their entries of nine bytes.
constexpr std::array<int, 20> kPlacedForms = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 32, 34};
constexpr std::size_t kPlacementLength = 9;
constexpr int kFirstFormWithSecond = 4;
constexpr int kLastFormWithSecond = 10;

// Left and top are stored with this added, so that a place beyond the edge stays positive.
constexpr int kOffset = 16000;

// Positions in an open-file entry.
constexpr std::size_t kEntryWidth = 239;
constexpr std::size_t kEntryState = 241;
constexpr std::size_t kEntrySecond = 242;
constexpr std::size_t kEntryLeft = 243;
constexpr std::size_t kEntryTop = 245;
constexpr std::size_t kEntryWindowState = 247;
constexpr std::size_t kEntryPgg = 248;
constexpr std::size_t kEntryHeight = 249;

constexpr std::size_t kRecentType = 242;
constexpr std::size_t kRecentReadOnly = 247;
constexpr int kRecentTypes = 6;

constexpr std::size_t kSizesPosition = 26;
constexpr std::size_t kNameLength = 50;

Bytes Record(const Bytes& file, int record) {
  return Slice(file, kConfigRecordLength * static_cast<std::size_t>(record - 1) + 1, kConfigRecordLength);
}

void PutRecord(Bytes& file, int record, std::string_view content) {
  PutBytes(file, kConfigRecordLength * static_cast<std::size_t>(record - 1) + 1,
           content.substr(0, kConfigRecordLength));
}

int Within(int value, int least, int most, int otherwise) {
  return value >= least && value <= most ? value : otherwise;
}

int TakeWindowState(int byte) {
  return Within(byte, 0, 2, 0);
}

int StoredPlace(int value) {
  return std::clamp(value, -kOffset, kOffset) + kOffset;
}

int StoredSize(int value) {
  return std::clamp(value, 0, 0xFFFF);
}

int TakeDevice(int byte) {
  return Within(byte, 0, kMostMidiDevices, kNoMidiDevice);
}

// Text that ends at its first zero byte, without the blanks at its end.
std::string TakeText(const Bytes& record, std::size_t position, std::size_t length) {
  const Bytes field = Slice(record, position, length);
  return std::string(TrimRight(std::string_view(field).substr(0, field.find('\0'))));
}

WindowRecord TakeWindow(const Bytes& record) {
  WindowRecord window;
  window.state = ByteAt(record, kEntryState);
  window.path = TakeText(record, 1, kPathLength);
  if ((window.state != 1 && window.state != 2) || window.path.empty()) return {};
  window.width = WordHighFirst(record, kEntryWidth);
  window.height = WordHighFirst(record, kEntryHeight);
  window.second = ByteAt(record, kEntrySecond);
  window.left = WordHighFirst(record, kEntryLeft) - kOffset;
  window.top = WordHighFirst(record, kEntryTop) - kOffset;
  window.window_state = TakeWindowState(ByteAt(record, kEntryWindowState));
  window.pgg = ByteAt(record, kEntryPgg) == 1 ? 1 : 0;
  return window;
}

Bytes WindowBytes(const WindowRecord& window) {
  Bytes record = Padded(window.path, kPathLength);
  record.resize(kConfigRecordLength, '\0');
  PutWordHighFirst(record, kEntryWidth, StoredSize(window.width));
  PutByte(record, kEntryState, window.state);
  PutByte(record, kEntrySecond, window.second);
  PutWordHighFirst(record, kEntryLeft, StoredPlace(window.left));
  PutWordHighFirst(record, kEntryTop, StoredPlace(window.top));
  PutByte(record, kEntryWindowState, window.window_state);
  PutByte(record, kEntryPgg, window.pgg);
  PutWordHighFirst(record, kEntryHeight, StoredSize(window.height));
  return record;
}

// A window that is not open leaves a record of zero bytes.
void PutWindow(Bytes& file, int record, const WindowRecord& window) {
  PutRecord(file, record, window.state == 0 ? Bytes(kConfigRecordLength, '\0') : WindowBytes(window));
}

RecentFile TakeRecent(const Bytes& record) {
  RecentFile recent;
  recent.path = TakeText(record, 1, kPathLength);
  recent.type = Within(ByteAt(record, kRecentType), 1, kRecentTypes, 0);
  recent.read_only = ByteAt(record, kRecentReadOnly) == 1;
  return recent.type == 0 || recent.path.empty() ? RecentFile() : recent;
}

Bytes RecentBytes(const RecentFile& recent) {
  Bytes record(kConfigRecordLength, ' ');
  if (recent.type == 0) return record;
  PutBytes(record, 1, Padded(recent.path, kPathLength));
  PutByte(record, kRecentType, recent.type);
  PutByte(record, kRecentReadOnly, recent.read_only ? 1 : 0);
  return record;
}

void TakePlacements(Application& app, const Bytes& settings) {
  std::size_t position = kPlacements;
  for (const int form : kPlacedForms) {
    FormState& state = app.core.FormStates[static_cast<std::size_t>(form)];
    state.left = WordHighFirst(settings, position) - kOffset;
    state.top = WordHighFirst(settings, position + 2) - kOffset;
    state.width = WordHighFirst(settings, position + 4);
    state.height = WordHighFirst(settings, position + 6);
    const int byte = ByteAt(settings, position + 8);
    const bool with_second = form >= kFirstFormWithSecond && form <= kLastFormWithSecond;
    state.state = TakeWindowState(with_second ? byte & 15 : byte);
    state.second = with_second ? byte >> 4 : 0;
    position += kPlacementLength;
  }
}

void PutPlacements(const Application& app, Bytes& settings) {
  std::size_t position = kPlacements;
  for (const int form : kPlacedForms) {
    const FormState& state = app.core.FormStates[static_cast<std::size_t>(form)];
    PutWordHighFirst(settings, position, StoredPlace(state.left));
    PutWordHighFirst(settings, position + 2, StoredPlace(state.top));
    PutWordHighFirst(settings, position + 4, StoredSize(state.width));
    PutWordHighFirst(settings, position + 6, StoredSize(state.height));
    const bool with_second = form >= kFirstFormWithSecond && form <= kLastFormWithSecond;
    PutByte(settings, position + 8, with_second ? state.state | state.second << 4 : state.state);
    position += kPlacementLength;
  }
}

void TakeSettings(Application& app, const Bytes& settings) {
  CoreState& core = app.core;
  MidiState& midi = app.midi;
  for (const Flag& flag : kFlags) core.settings.*flag.field = ByteAt(settings, flag.position) == 1;
  midi.MidiInDevice = TakeDevice(ByteAt(settings, kMidiInDevice));
  midi.MidiOutDevice = TakeDevice(ByteAt(settings, kMidiOutDevice));
  core.LanguageCode = ByteAt(settings, kLanguage);
  for (std::size_t i = 0; i < core.settings.Keyboard.size(); ++i) {
    core.settings.Keyboard[i] = ByteAt(settings, kKeyboard + i);
  }
  midi.ThruOn = ByteAt(settings, kThruOn) == 1;
  midi.CurrentMode = ByteAt(settings, kCurrentMode);
  core.settings.GlobalSetInInstrument = ByteAt(settings, kGlobalSet);
  core.settings.LastListIndex = ByteAt(settings, kLastListIndex);
  // A channel that is none is a damaged byte: the part keeps its default.
  midi.GlobalChannel = Within(ByteAt(settings, kGlobalChannel), 0, 15, midi.GlobalChannel);
  midi.ArrChannel = Within(ByteAt(settings, kArrChannel), 0, 15, midi.ArrChannel);
  for (std::size_t part = 0; part < kPartChannels.size(); ++part) {
    midi.PartChannel[part] = Within(ByteAt(settings, kPartChannels[part]), 0, 15, midi.PartChannel[part]);
  }
  TakePlacements(app, settings);
}

void PutSettings(const Application& app, Bytes& settings) {
  const CoreState& core = app.core;
  const MidiState& midi = app.midi;
  PutBytes(settings, 1, kSignature);
  for (const Flag& flag : kFlags) PutByte(settings, flag.position, core.settings.*flag.field ? 1 : 0);
  PutByte(settings, kMidiInDevice, midi.MidiInDevice);
  PutByte(settings, kMidiOutDevice, midi.MidiOutDevice);
  PutByte(settings, kLanguage, core.LanguageCode);
  for (std::size_t i = 0; i < core.settings.Keyboard.size(); ++i) {
    PutByte(settings, kKeyboard + i, core.settings.Keyboard[i]);
  }
  PutByte(settings, kThruOn, midi.ThruOn ? 1 : 0);
  PutByte(settings, kCurrentMode, midi.CurrentMode);
  PutByte(settings, kGlobalSet, core.settings.GlobalSetInInstrument);
  PutByte(settings, kLastListIndex, core.settings.LastListIndex);
  PutByte(settings, kGlobalChannel, midi.GlobalChannel);
  PutByte(settings, kArrChannel, midi.ArrChannel);
  for (std::size_t part = 0; part < kPartChannels.size(); ++part) {
    PutByte(settings, kPartChannels[part], midi.PartChannel[part]);
  }
  PutPlacements(app, settings);
}

void SetDefaults(Application& app) {
  CoreState& core = app.core;
  core.settings = Settings();
  core.ArrWindows = {};
  core.PrgWindows = {};
  core.StyWindows = {};
  core.FormStates = {};
  core.RecentFiles = {};
  app.files = {};
  app.midi.MidiOutDevice = kNoMidiDevice;
  app.midi.MidiInDevice = kNoMidiDevice;
}

// False when the language window was closed without an answer.
bool AskLanguage(Application& app) {
  const ui::UserEvent event(app.toolkit);
  const auto& window = static_cast<frmLingua&>(app.toolkit.OpenModal(std::make_unique<frmLingua>(app)));
  return window.chosen();
}

void ReadMultisamples(Application& app) {
  Bytes file;
  app.core.OperationTitle = GetText(app, kTextOpening) + "i40Multisample";
  const DiskResult result = app.disk.Read(app.core.MultisampleFile, file, kLargestDataFile);
  if (result == DiskResult::kOk) {
    // Of a longer one the first records are the list.
    app.core.MultisampleImage = file.substr(0, kMultisampleCount * kMultisampleLength);
  } else if (result != DiskResult::kAbsent) {
    FileErrorMessage(app, result);
  }
}

// An absent or overlong file is none: it gives no bytes, and is made anew.
bool IsFailure(DiskResult result) {
  return result != DiskResult::kOk && result != DiskResult::kAbsent && result != DiskResult::kTooLarge;
}

// What has the configuration's name and is none is somebody's: it goes on beside it.
DiskResult KeepForeign(Application& app, DiskResult read, std::size_t length) {
  if (read != DiskResult::kTooLarge && (read != DiskResult::kOk || length == 0)) return DiskResult::kOk;
  std::string kept;
  return app.disk.KeepAside(app.core.ConfigFile, kept);
}

bool CannotOpen(DiskResult result) {
  return result == DiskResult::kNoAccess || result == DiskResult::kIsFolder || result == DiskResult::kPathAbsent ||
         result == DiskResult::kTooManyFiles;
}

}  // namespace

bool IsConfiguration(const Bytes& file) {
  return file.size() >= kConfigLength && file.compare(0, kSignature.size(), kSignature) == 0;
}

void TakeConfiguration(Application& app, const Bytes& file) {
  CoreState& core = app.core;
  TakeSettings(app, Record(file, kRecordSettings));
  const Bytes sizes = Record(file, kRecordSizes);
  for (int form = 2; form <= kFormStates; ++form) {
    const std::size_t position = kSizesPosition + 4 * static_cast<std::size_t>(form - 2);
    core.FormStates[static_cast<std::size_t>(form)].large_width = WordHighFirst(sizes, position);
    core.FormStates[static_cast<std::size_t>(form)].large_height = WordHighFirst(sizes, position + 2);
  }
  app.files.LastArrDirectory = TakeText(Record(file, kRecordArrDirectory), 1, kPathLength);
  app.files.LastPrgDirectory = TakeText(Record(file, kRecordPrgDirectory), 1, kPathLength);
  for (int i = 1; i <= kFileWindows; ++i) {
    const auto entry = static_cast<std::size_t>(i);
    core.ArrWindows[entry] = TakeWindow(Record(file, kRecordArrWindows + i - 1));
    core.PrgWindows[entry] = TakeWindow(Record(file, kRecordPrgWindows + i - 1));
    core.StyWindows[entry] = TakeWindow(Record(file, kRecordStyWindows + i - 1));
    core.RecentFiles[entry - 1] = TakeRecent(Record(file, kRecordRecentFiles + i - 1));
  }
  core.ArrWindows[kInstrumentWindow] = TakeWindow(Record(file, kRecordArrUser));
  core.PrgWindows[kInstrumentWindow] = TakeWindow(Record(file, kRecordPrgUser));
  if (core.settings.GlobalSetInInstrument == 1) {
    app.edits.TakeGlobal(Record(file, kRecordGlobal) +
                         Slice(Record(file, kRecordGlobal + 1), 1, kGlobalRecordLength - kConfigRecordLength));
  }
  const Bytes names = Record(file, kRecordNames);
  app.arrangement.ArrInInstrument = TakeText(names, 1, kNameLength);
  app.program.PrgInInstrument = TakeText(names, 1 + kNameLength, kNameLength);
  app.style.StyInInstrument = TakeText(names, 1 + 2 * kNameLength, kNameLength);
}

void PutConfiguration(const Application& app, Bytes& file) {
  const CoreState& core = app.core;
  Bytes settings = Record(file, kRecordSettings);
  PutSettings(app, settings);
  PutRecord(file, kRecordSettings, settings);
  Bytes sizes = Record(file, kRecordSizes);
  for (int form = 2; form <= kFormStates; ++form) {
    const std::size_t position = kSizesPosition + 4 * static_cast<std::size_t>(form - 2);
    PutWordHighFirst(sizes, position, StoredSize(core.FormStates[static_cast<std::size_t>(form)].large_width));
    PutWordHighFirst(sizes, position + 2, StoredSize(core.FormStates[static_cast<std::size_t>(form)].large_height));
  }
  PutRecord(file, kRecordSizes, sizes);
  PutRecord(file, kRecordArrDirectory, Padded(app.files.LastArrDirectory, kPathLength));
  PutRecord(file, kRecordPrgDirectory, Padded(app.files.LastPrgDirectory, kPathLength));
  for (int i = 1; i <= kFileWindows; ++i) {
    const auto entry = static_cast<std::size_t>(i);
    PutWindow(file, kRecordArrWindows + i - 1, core.ArrWindows[entry]);
    PutWindow(file, kRecordPrgWindows + i - 1, core.PrgWindows[entry]);
    PutWindow(file, kRecordStyWindows + i - 1, core.StyWindows[entry]);
    PutRecord(file, kRecordRecentFiles + i - 1, RecentBytes(core.RecentFiles[entry - 1]));
  }
  if (core.settings.GlobalSetInInstrument == 1) {
    PutRecord(file, kRecordGlobal, Slice(app.global.GlobalRecord, 1, kConfigRecordLength));
    PutRecord(file, kRecordGlobal + 1, Slice(app.global.GlobalRecord, 1 + kConfigRecordLength, kConfigRecordLength));
  }
  PutWindow(file, kRecordArrUser, core.ArrWindows[kInstrumentWindow]);
  PutWindow(file, kRecordPrgUser, core.PrgWindows[kInstrumentWindow]);
  Bytes names = Record(file, kRecordNames);
  PutBytes(names, 1, Padded(app.arrangement.ArrInInstrument, kNameLength));
  PutBytes(names, 1 + kNameLength, Padded(app.program.PrgInInstrument, kNameLength));
  PutBytes(names, 1 + 2 * kNameLength, Padded(app.style.StyInInstrument, kNameLength));
  PutRecord(file, kRecordNames, names);
}

Bytes NewConfiguration() {
  Bytes file(kConfigLength, '\0');
  PutRecord(file, kRecordSettings, Bytes(kConfigRecordLength, ' '));
  for (int record = kRecordStyWindows; record < kRecordArrUser; ++record) {
    PutRecord(file, record, Bytes(kConfigRecordLength, ' '));
  }
  PutRecord(file, kRecordNames, Padded({}, 3 * kNameLength));
  return file;
}

void ReadConfiguration(Application& app) {
  CoreState& core = app.core;
  core.OperationTitle = GetText(app, kTextOpening) + kConfigFileName;
  Bytes file;
  const DiskResult result = app.disk.Read(core.ConfigFile, file, kLongestFile);
  if (IsFailure(result)) {
    core.StopRun = true;
    if (CannotOpen(result)) return ShowMessage(app, kMessageFileNotFound, core.OperationTitle, {});
    return FileErrorMessage(app, result);
  }
  const bool known = IsConfiguration(file);
  const std::size_t length = file.size();
  if (known) {
    TakeConfiguration(app, file);
  } else {
    SetDefaults(app);
  }
  // A language that is none is asked for anew; the other settings stay.
  if (!known || core.LanguageCode < 1 || core.LanguageCode > 2) {
    core.LanguageCode = 0;
    if (!AskLanguage(app)) {
      core.StopRun = true;
      return;
    }
  }
  core.LanguageOffset = core.LanguageCode == 1 ? 0 : kEnglishOffset;
  if (!known) {
    file = NewConfiguration();
    PutSettings(app, file);
    core.OperationTitle = GetText(app, kTextOpening) + kConfigFileName;
    const DiskResult kept = KeepForeign(app, result, length);
    const DiskResult written = kept == DiskResult::kOk ? WriteOwnFile(app, core.ConfigFile, file) : kept;
    if (written != DiskResult::kOk) {
      core.StopRun = true;
      return FileErrorMessage(app, written);
    }
  }
  ReadMultisamples(app);
}

void WriteConfiguration(Application& app) {
  app.core.OperationTitle = GetText(app, kTextSaving) + kConfigFileName;
  Bytes file;
  const DiskResult result = app.disk.Read(app.core.ConfigFile, file, kLongestFile);
  if (IsFailure(result)) {
    return FileErrorMessage(app, result);
  }
  if (!IsConfiguration(file)) {
    const DiskResult kept = KeepForeign(app, result, file.size());
    if (kept != DiskResult::kOk) return FileErrorMessage(app, kept);
    file = NewConfiguration();
  }
  PutConfiguration(app, file);
  if (const DiskResult written = WriteOwnFile(app, app.core.ConfigFile, file); written != DiskResult::kOk) {
    FileErrorMessage(app, written);
  }
}

}  // namespace zentaline
