// The MIDI link, as the rest of the program uses it. No operation gives its caller a result of the transmission: a
// failure shows one box and silences its direction until the port is opened again.
#pragma once

#include <string>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

struct Application;

// --- The ports ---

void SendShort(Application& app);  // ShortMsgWord
int SendLong(Application& app);    // SysExBuffer; the last result of the service

// Results of the service.
int OpenMidiOut(Application& app);
int OpenMidiIn(Application& app);
int CloseMidiOut(Application& app);
int CloseMidiIn(Application& app);
// Made only if the input row of MidiDeviceOk holds 1 at the index of the *output* device; otherwise the result is 0.
// The rows are mixed up on purpose.
int ConnectThru(Application& app);
int DisconnectThru(Application& app);
int StartMidiIn(Application& app);
int StopMidiIn(Application& app);

// Finds the devices, and opens those that the configuration names.
void EnumerateMidi(Application& app);
// At the end of the program: output, input, thru.
void CloseMidi(Application& app);

// Clicks on the entries of the device menus, and on mnuMIDIThru.
void ChooseMidiOut(Application& app, int device);
void ChooseMidiIn(Application& app, int device);
void ToggleThru(Application& app);

// --- The mode ---

void SendModeArrPlay(Application& app);
void SendModeSongPlay(Application& app);
void SendModeGlobal(Application& app);
void SendModeBackSeq(Application& app);
// Sent only when the instrument isn't in Program mode already.
void SendModeProgram(Application& app);
// The instrument stays in its mode, but what is selected is no longer the program under edit.
void LeaveProgramEditing(Application& app);
// By the operation of the mode, 0 to 4; anything else sends nothing.
void SendMode(Application& app, int mode);
// At the start: the mode that the last run asked for, in Program mode too.
void SendStoredMode(Application& app);
void ShowMode(Application& app);

// --- The catalogue ---

// MonitorOn stays set. `bank` is the bank code, read when `id` is 46 hexadecimal.
void SendArrParam(Application& app, int bank, int id, int value, int sign);
// Followed by a long message of 20 zero bytes; MonitorOn is clear afterwards.
void SendPrgParam(Application& app, int a, int b, int value);
void SendArrDump(Application& app, std::string_view image);
void SendPrgBankDump(Application& app, std::string_view image);
// Group 0 to 3: 0 sent, 1 it holds an empty style and nothing was sent.
int SendStyleDump(Application& app, int group, std::string_view image);
void SendGlobalDump(Application& app, std::string_view image);
void SendBackSeqDump(Application& app, std::string_view image);
// `number` grows by 64 for bank code 3.
void SelectArrangement(Application& app, int& number, int bank);
void SelectProgram(Application& app, std::string_view image, int index);
void SendNoteOn(Application& app, int channel, int note, int velocity);
void SendNoteOff(Application& app, int channel, int note, int velocity);
void SendAllNotesOff(Application& app, int channel);
// These two don't show in the monitor.
void SendController(Application& app, int channel, int controller, int value);
void SendPitchBend(Application& app, int channel, int value);

// --- The monitor ---

void SetMonitorOn(Application& app, bool on);
// An empty text clears it, any other adds a line of hexadecimal. Nothing happens while it is closed or MonitorOn clear.
void MonitorLog(Application& app, std::string_view bytes);

// --- The windows ---

// mnuMsgEx: opens the monitor, or closes it.
void ToggleMonitor(Application& app);
// mnuMIDI: shows the window of the channels.
void ShowChannels(Application& app);

}  // namespace zentaline
