// The modes and the messages of the catalogue: built by the functions of midi/messages.h, sent at once.
#include <utility>

#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "data/message_codes.h"
#include "midi/api.h"
#include "midi/messages.h"

namespace zentaline {

namespace {

void SendMessage(Application& app, Bytes message) {
  app.midi.SysExBuffer = std::move(message);
  SendLong(app);
}

void SendModeChange(Application& app, int mode) {
  SendMessage(app, BuildModeChange(app.midi.GlobalChannel, mode));
}

void EnterMode(Application& app, int mode) {
  app.midi.CurrentMode = mode;
  app.midi.ProgramEditing = false;
  ShowMode(app);
}

void SendThenEnterMode(Application& app, int mode) {
  SendModeChange(app, mode);
  EnterMode(app, mode);
}

void SendWord(Application& app, std::uint32_t word) {
  app.midi.ShortMsgWord = word;
  SendShort(app);
}

void SendNote(Application& app, std::uint32_t word, std::size_t logged) {
  MonitorLog(app, {});
  SendWord(app, word);
  MonitorLog(app, ShortMessageBytes(word).substr(0, logged));
}

struct ModeRow {
  int mode;
  const char* text;
  MenuId entry;
};

constexpr MenuId kNoEntry = MenuId::kCount;
constexpr ModeRow kModes[] = {
    {kModeArrPlay, "ARR PLAY", MenuId::mnuArrPlay},
    {kModeSongPlay, "SONG PLAY", MenuId::mnuSongPlay},
    {kModeGlobal, "GLOBAL", kNoEntry},
    {kModeBackSeq, "BACK.SEQ.", MenuId::mnuBSq},
    {kModeProgram, "PROGRAM", MenuId::mnuProgram},
};

}  // namespace

void SendModeArrPlay(Application& app) {
  SendThenEnterMode(app, kModeArrPlay);
}

void SendModeSongPlay(Application& app) {
  SendThenEnterMode(app, kModeSongPlay);
}

void SendModeBackSeq(Application& app) {
  SendThenEnterMode(app, kModeBackSeq);
}

void SendModeGlobal(Application& app) {
  // The other way about than the rest, and meant so: the display changes first.
  EnterMode(app, kModeGlobal);
  SendModeChange(app, kModeGlobal);
}

void SendModeProgram(Application& app) {
  app.midi.ProgramEditing = true;
  if (app.midi.CurrentMode == kModeProgram) return;
  SendModeChange(app, kModeProgram);
  app.midi.CurrentMode = kModeProgram;
  ShowMode(app);
}

void SendMode(Application& app, int mode) {
  switch (mode) {
    case kModeArrPlay:
      return SendModeArrPlay(app);
    case kModeSongPlay:
      return SendModeSongPlay(app);
    case kModeGlobal:
      return SendModeGlobal(app);
    case kModeBackSeq:
      return SendModeBackSeq(app);
    case kModeProgram:
      return SendModeProgram(app);
    default:
      return;
  }
}

// The instrument is put in the remembered mode at each start, in Program mode too: what CurrentMode remembers was asked
// for in the last run.
void SendStoredMode(Application& app) {
  const int stored = app.midi.CurrentMode;
  if (stored == kModeProgram) app.midi.CurrentMode = kModeArrPlay;
  SendMode(app, stored);
  ShowMode(app);
}

void ShowMode(Application& app) {
  if (app.main == nullptr) return;
  for (const ModeRow& row : kModes) {
    if (row.entry != kNoEntry) app.main->Menu(row.entry).SetChecked(row.mode == app.midi.CurrentMode);
    if (row.mode == app.midi.CurrentMode) app.main->LabelMode.SetCaption(row.text);
  }
}

void SendArrParam(Application& app, int bank, int id, int value, int sign) {
  app.midi.MonitorOn = true;
  SendMessage(app, BuildArrParam(app.midi.GlobalChannel, bank, id, value, sign));
}

void SendPrgParam(Application& app, int a, int b, int value) {
  app.midi.MonitorOn = true;
  SendMessage(app, BuildPrgParam(app.midi.GlobalChannel, a, b, value));
  app.midi.MonitorOn = false;
  // The zero bytes hold the line for some 6 milliseconds; they are neither shown nor left in the buffer.
  Bytes message = std::move(app.midi.SysExBuffer);
  SendMessage(app, PrgParamPause());
  app.midi.SysExBuffer = std::move(message);
}

void SendArrDump(Application& app, std::string_view image) {
  SendMessage(app, BuildArrDump(app.midi.GlobalChannel, image));
}

void SendPrgBankDump(Application& app, std::string_view image) {
  SendMessage(app, BuildPrgBankDump(app.midi.GlobalChannel, image));
}

int SendStyleDump(Application& app, int group, std::string_view image) {
  if (BuildStyleDump(app.midi.GlobalChannel, image, group, app.midi.SysExBuffer) != 0) return 1;
  ShowWait(app, kWaitLoadingSty);
  SendLong(app);
  return 0;
}

void SendGlobalDump(Application& app, std::string_view image) {
  app.midi.MonitorOn = true;
  SendMessage(app, BuildGlobalDump(app.midi.GlobalChannel, image));
}

void SendBackSeqDump(Application& app, std::string_view image) {
  SendMessage(app, BuildBackSeqDump(app.midi.GlobalChannel, image));
}

void SelectArrangement(Application& app, int& number, int bank) {
  Selection selection = BuildArrSelection(app.midi.ArrChannel, number, bank);
  for (const std::uint32_t word : selection.words) SendWord(app, word);
  app.midi.SysExBuffer = std::move(selection.bytes);
}

void SelectProgram(Application& app, std::string_view image, int index) {
  MidiState& midi = app.midi;
  int channel = BankChannel(image);
  if (midi.CurrentMode == kModeProgram && midi.ProgramEditing) channel = midi.GlobalChannel;
  if (app.arrangement.ArrPartArmed) {
    const int part = ArmedPart(app.arrangement.ArrPartSlots);
    if (part >= 0) channel = midi.PartChannel[part];
  }
  const Selection selection = BuildProgramSelection(channel, image, index, midi.program_selection);
  for (const std::uint32_t word : selection.words) SendWord(app, word);
  // Of the three messages the last one stays in the buffer.
  midi.SysExBuffer = selection.bytes.substr(selection.bytes.size() - 2);
  MonitorLog(app, selection.bytes);
}

void SendNoteOn(Application& app, int channel, int note, int velocity) {
  SendNote(app, NoteOnWord(channel, note, velocity), 3);
}

void SendNoteOff(Application& app, int channel, int note, int velocity) {
  SendNote(app, NoteOffWord(channel, note, velocity), 3);
}

void SendController(Application& app, int channel, int controller, int value) {
  SendWord(app, ControllerWord(channel, controller, value));
}

void SendPitchBend(Application& app, int channel, int value) {
  SendWord(app, PitchBendWord(channel, value));
}

void SendAllNotesOff(Application& app, int channel) {
  // Of its three bytes the monitor shows two; that is how it is meant to be.
  SendNote(app, AllNotesOffWord(channel), 2);
}

void LeaveProgramEditing(Application& app) {
  app.midi.ProgramEditing = false;
}

void SetMonitorOn(Application& app, bool on) {
  app.midi.MonitorOn = on;
}

void MonitorLog(Application& app, std::string_view bytes) {
  if (app.midi.MonitorOn && app.midi.Monitor) app.midi.Monitor(bytes);
}

}  // namespace zentaline
