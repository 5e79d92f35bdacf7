#include "core/state_names.h"

#include <cstddef>
#include <string>

#include "arrangement/db_format.h"
#include "core/application.h"
#include "core/boxes.h"

namespace zentaline {

namespace {

struct NumberRow {
  std::string_view name;
  long (*read)(const Application& app);
};

struct TextRow {
  std::string_view name;
  const std::string& (*read)(const Application& app);
};

// clang-format off
constexpr NumberRow kNumbers[] = {
    {"StartingUp", [](const Application& app) -> long { return app.core.StartingUp; }},
    {"StopRun", [](const Application& app) -> long { return app.core.StopRun; }},
    {"Closing", [](const Application& app) -> long { return app.core.Closing; }},
    {"ReopeningFiles", [](const Application& app) -> long { return app.core.ReopeningFiles; }},
    {"FormLoading", [](const Application& app) -> long { return app.core.FormLoading; }},
    {"LanguageCode", [](const Application& app) -> long { return app.core.LanguageCode; }},
    {"LanguageOffset", [](const Application& app) -> long { return app.core.LanguageOffset; }},
    {"WarningAnswer", [](const Application& app) -> long { return app.core.WarningAnswer; }},
    {"UndoCount", [](const Application& app) -> long { return app.edits.BackCount(); }},
    {"RedoCount", [](const Application& app) -> long { return app.edits.ForwardCount(); }},
    {"OpenChildCount", [](const Application& app) -> long { return app.core.OpenChildCount; }},
    {"MidiOutHandle", [](const Application& app) -> long { return app.midi.MidiOutHandle; }},
    {"MidiInHandle", [](const Application& app) -> long { return app.midi.MidiInHandle; }},
    {"MidiOutDevice", [](const Application& app) -> long { return app.midi.MidiOutDevice; }},
    {"MidiInDevice", [](const Application& app) -> long { return app.midi.MidiInDevice; }},
    {"MidiOutCount", [](const Application& app) -> long { return app.midi.MidiOutCount; }},
    {"MidiInCount", [](const Application& app) -> long { return app.midi.MidiInCount; }},
    {"OutputOpen", [](const Application& app) -> long { return app.midi.OutputOpen; }},
    {"LongOutputOk", [](const Application& app) -> long { return app.midi.LongOutputOk; }},
    {"ShortOutputOk", [](const Application& app) -> long { return app.midi.ShortOutputOk; }},
    {"InputOpen", [](const Application& app) -> long { return app.midi.InputOpen; }},
    {"ThruOn", [](const Application& app) -> long { return app.midi.ThruOn; }},
    {"MonitorOn", [](const Application& app) -> long { return app.midi.MonitorOn; }},
    {"MidiResult", [](const Application& app) -> long { return app.midi.MidiResult; }},
    {"ShortMsgWord", [](const Application& app) -> long { return app.midi.ShortMsgWord; }},
    {"CurrentMode", [](const Application& app) -> long { return app.midi.CurrentMode; }},
    {"ProgramEditing", [](const Application& app) -> long { return app.midi.ProgramEditing; }},
    {"GlobalChannel", [](const Application& app) -> long { return app.midi.GlobalChannel; }},
    {"ArrChannel", [](const Application& app) -> long { return app.midi.ArrChannel; }},
    {"StyleGroupIndex", [](const Application& app) -> long { return app.style.StyleGroupIndex; }},
    {"StyleGroupCount", [](const Application& app) -> long { return app.style.StyleGroupCount; }},
    {"ArrNameChanged", [](const Application& app) -> long { return app.arrangement.ArrNameChanged; }},
    {"EditorOpen", [](const Application& app) -> long { return app.arrangement.EditorOpen; }},
    {"EditorChanged", [](const Application& app) -> long { return app.arrangement.EditorChanged; }},
    {"BankWanted", [](const Application& app) -> long { return app.arrangement.BankWanted; }},
    {"FindActive", [](const Application& app) -> long { return app.arrangement.FindActive; }},
    {"FindRow", [](const Application& app) -> long { return app.arrangement.FindRow; }},
    {"FindFileId", [](const Application& app) -> long { return app.arrangement.FindFileId; }},
    {"FindNeedsPrg", [](const Application& app) -> long { return app.arrangement.FindNeedsPrg; }},
    {"FindUserStyle", [](const Application& app) -> long { return app.arrangement.FindUserStyle; }},
    {"ListBusy", [](const Application& app) -> long { return app.core.ListBusy; }},
    {"ArrPartArmed", [](const Application& app) -> long { return app.arrangement.ArrPartArmed; }},
    {"ArrStyleArmed", [](const Application& app) -> long { return app.arrangement.ArrStyleArmed; }},
    {"ArrNameArmed", [](const Application& app) -> long { return app.arrangement.ArrNameArmed; }},
    {"ArrSignFlag", [](const Application& app) -> long { return app.arrangement.ArrSignFlag; }},
    {"ArrEditPos", [](const Application& app) -> long { return app.arrangement.ArrEditPos; }},
    {"EditorFilling", [](const Application& app) -> long { return app.arrangement.EditorFilling; }},
    {"EditorCloseRefused", [](const Application& app) -> long { return app.arrangement.EditorCloseRefused; }},
    {"UserProgram", [](const Application& app) -> long { return app.program.UserProgram; }},
    {"EditOsc", [](const Application& app) -> long { return app.program.EditOsc; }},
    {"PrgEditorOpen", [](const Application& app) -> long { return app.program.PrgEditorOpen; }},
    {"ProgramChanged", [](const Application& app) -> long { return app.program.ProgramChanged; }},
    {"ProgramFilling", [](const Application& app) -> long { return app.program.ProgramFilling; }},
    {"MultisoundTarget", [](const Application& app) -> long { return app.program.MultisoundTarget; }},
    {"PerfOpen", [](const Application& app) -> long { return app.program.PerfOpen; }},
    {"PerfResetting", [](const Application& app) -> long { return app.program.PerfResetting; }},
    {"PerfSilent", [](const Application& app) -> long { return app.program.PerfSilent; }},
    {"DBWindowOpen", [](const Application& app) -> long { return app.arrangement.DBWindowOpen; }},
    {"SilentStart", [](const Application& app) -> long { return app.arrangement.SilentStart; }},
    {"ArrFileId", [](const Application& app) -> long { return app.arrangement.ArrFileId; }},
    {"GuideLength", [](const Application& app) -> long { return app.aids.GuideLength; }},
    {"FirstNote", [](const Application& app) -> long { return app.aids.FirstNote; }},
    {"CurrentNote", [](const Application& app) -> long { return app.aids.CurrentNote; }},
    {"ChordState", [](const Application& app) -> long { return app.aids.ChordState; }},
    {"ReadOnlyAnswer", [](const Application& app) -> long { return app.files.ReadOnlyAnswer; }},
};

constexpr TextRow kTexts[] = {
    {"OperationTitle", [](const Application& app) -> const std::string& { return app.core.OperationTitle; }},
    {"ConfigFile", [](const Application& app) -> const std::string& { return app.core.ConfigFile; }},
    {"InternalArrA", [](const Application& app) -> const std::string& { return app.core.InternalArrA; }},
    {"InternalArrB", [](const Application& app) -> const std::string& { return app.core.InternalArrB; }},
    {"InternalPrg", [](const Application& app) -> const std::string& { return app.core.InternalPrg; }},
    {"InternalSty", [](const Application& app) -> const std::string& { return app.core.InternalSty; }},
    {"GuideFile", [](const Application& app) -> const std::string& { return app.core.GuideFile; }},
    {"NotebookFile", [](const Application& app) -> const std::string& { return app.core.NotebookFile; }},
    {"MultisampleFile", [](const Application& app) -> const std::string& { return app.core.MultisampleFile; }},
    {"DatabaseDir", [](const Application& app) -> const std::string& { return app.core.DatabaseDir; }},
    {"DBPath", [](const Application& app) -> const std::string& { return app.core.DatabaseDir; }},
    {"ErrorText", [](const Application& app) -> const std::string& { return app.midi.ErrorText; }},
    {"ArrInInstrument", [](const Application& app) -> const std::string& { return app.arrangement.ArrInInstrument; }},
    {"StyInInstrument", [](const Application& app) -> const std::string& { return app.style.StyInInstrument; }},
    {"PrgInInstrument", [](const Application& app) -> const std::string& { return app.program.PrgInInstrument; }},
    {"CurrentFileDir", [](const Application& app) -> const std::string& { return app.files.CurrentFileDir; }},
    {"CurrentFileName", [](const Application& app) -> const std::string& { return app.files.CurrentFileName; }},
    {"LastArrDirectory", [](const Application& app) -> const std::string& { return app.files.LastArrDirectory; }},
    {"LastPrgDirectory", [](const Application& app) -> const std::string& { return app.files.LastPrgDirectory; }},
    {"LastGblDirectory", [](const Application& app) -> const std::string& { return app.files.LastGblDirectory; }},
};

constexpr TextRow kImages[] = {
    {"ArrFileImage", [](const Application& app) -> const Bytes& { return app.arrangement.ArrFileImage; }},
    {"ArrEditRecord", [](const Application& app) -> const Bytes& { return app.arrangement.ArrEditRecord; }},
    {"DBImage", [](const Application& app) -> const Bytes& { return app.arrangement.DBImage; }},
    {"StyleImage", [](const Application& app) -> const Bytes& { return app.style.StyleImage; }},
    {"EmptyStyleImage", [](const Application& app) -> const Bytes& { return app.style.EmptyStyleImage; }},
    {"ProgramFileBuffer", [](const Application& app) -> const Bytes& { return app.program.ProgramFileBuffer; }},
    {"EditRecord", [](const Application& app) -> const Bytes& { return app.program.EditRecord; }},
    {"ItemClipboard", [](const Application& app) -> const Bytes& { return app.files.ItemClipboard; }},
    {"GuideText", [](const Application& app) -> const Bytes& { return app.aids.GuideText; }},
    {"NoteText", [](const Application& app) -> const Bytes& { return app.aids.NoteText; }},
    {"BsqBuffer", [](const Application& app) -> const Bytes& { return app.global.BsqBuffer; }},
    {"HeldNotes", [](const Application& app) -> const Bytes& { return app.aids.HeldNotes; }},
    {"ChordNotes", [](const Application& app) -> const Bytes& { return app.aids.ChordNotes; }},
    {"SysExBuffer", [](const Application& app) -> const Bytes& { return app.midi.SysExBuffer; }},
};
// clang-format on

// Of an array: NAME(INDEX), from 0.
template <typename Values>
std::optional<StateValue> ReadEntry(std::string_view wanted, const std::string& name, const Values& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (wanted == name + "(" + std::to_string(i) + ")") return StateValue(long{values[i]});
  }
  return std::nullopt;
}

}  // namespace

std::optional<StateValue> ReadState(const Application& app, std::string_view name) {
  if (name == "DBDirectory") return StateValue(ShownPath(DBDirectoryOf(app.arrangement.DBImage)));
  if (name.ends_with(')')) {
    if (auto entry = ReadEntry(name, "PartChannel", app.midi.PartChannel)) return entry;
    if (auto entry = ReadEntry(name, "ArrPartSlots", app.arrangement.ArrPartSlots)) return entry;
    if (auto entry = ReadEntry(name, "PartMuted", app.arrangement.PartMuted)) return entry;
    if (auto entry = ReadEntry(name, "PartSoloed", app.arrangement.PartSoloed)) return entry;
    if (auto entry = ReadEntry(name, "PerfBase", app.program.PerfBase)) return entry;
    if (auto entry = ReadEntry(name, "PerfStepValue", app.program.PerfStepValue)) return entry;
  }
  for (const NumberRow& row : kNumbers) {
    if (row.name == name) return StateValue(row.read(app));
  }
  for (const TextRow& row : kTexts) {
    if (row.name == name) return StateValue(ShownPath(row.read(app)));
  }
  return std::nullopt;
}

const Bytes* ReadStateImage(const Application& app, std::string_view name) {
  for (const TextRow& row : kImages) {
    if (row.name == name) return &row.read(app);
  }
  return nullptr;
}

}  // namespace zentaline
