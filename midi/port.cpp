// The port layer: the only code that calls the MIDI service.
#include <algorithm>
#include <optional>

#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "midi/api.h"

namespace zentaline {

namespace {

// Messages that are longer hold the program up.
constexpr std::size_t kLongestAtOnce = 256;

constexpr char kErrorBoxTitle[] = "Zentaline - Zentaline Console v 4.0 ";

// Where a call of the service failed; the number stands in the box.
enum Place : int {
  kPlacePrepare = 1,
  kPlaceLong = 2,
  kPlaceUnprepare = 3,
  kPlaceShort = 4,
  kPlaceOpenIn = 5,
  kPlaceOpenOut = 6,
  kPlaceCloseIn = 7,
  kPlaceCloseOut = 8,
};

void Report(Application& app, Place place, int result) {
  const bool input = place == kPlaceOpenIn || place == kPlaceCloseIn;
  std::string& text = app.midi.ErrorText;
  text = GetText(app, input ? kTextInputOpening : kTextOutputAccess);
  text += " (Cod Err: " + std::to_string(place) + (result < 10 ? "0" : "") + std::to_string(result) + ")";
  ShowMessage(app, kMessageText, kErrorBoxTitle, text);
}

// The calls of a long message. The place is that of the call that failed.
int SendHeader(Application& app, Place& place) {
  MidiState& midi = app.midi;
  MidiHeader& header = midi.MidiHeader;
  place = kPlacePrepare;
  if (const int result = app.service.midiOutPrepareHeader(midi.MidiOutHandle, header, kMidiHeaderSize); result != 0) {
    return result;
  }
  place = kPlaceLong;
  if (const int result = app.service.midiOutLongMsg(midi.MidiOutHandle, header, kMidiHeaderSize); result != 0) {
    return result;
  }
  // With its flags cleared the header no longer counts as prepared: the call returns at once, whatever becomes of the
  // data.
  header.flags = 0;
  place = kPlaceUnprepare;
  return app.service.midiOutUnprepareHeader(midi.MidiOutHandle, header, kMidiHeaderSize);
}

bool DeviceUsable(const MidiState& midi, int row, int device) {
  return device >= 0 && device <= kMostMidiDevices && midi.MidiDeviceOk[row][device] == 1;
}

bool ThruRowUsable(const MidiState& midi) {
  return DeviceUsable(midi, kInputRow, midi.MidiOutDevice);
}

void ShowOutput(Application& app) {
  if (app.main != nullptr) app.main->ShowOutput();
}

// What is opened at the start; false when it has to be given up.
bool OpenStoredPorts(Application& app) {
  const MidiState& midi = app.midi;
  if (midi.MidiOutDevice == kNoMidiDevice || !DeviceUsable(midi, kOutputRow, midi.MidiOutDevice)) return false;
  if (OpenMidiOut(app) != 0) return false;
  if (midi.MidiInDevice == kNoMidiDevice || !DeviceUsable(midi, kInputRow, midi.MidiInDevice)) return false;
  if (OpenMidiIn(app) != 0) return false;
  return !midi.ThruOn || (ConnectThru(app) == 0 && StartMidiIn(app) == 0);
}

}  // namespace

void SendShort(Application& app) {
  MidiState& midi = app.midi;
  if (!midi.ShortOutputOk || !midi.OutputOpen) return;
  midi.MidiResult = app.service.midiOutShortMsg(midi.MidiOutHandle, midi.ShortMsgWord);
  if (midi.MidiResult == 0) return;
  Report(app, kPlaceShort, midi.MidiResult);
  midi.ShortOutputOk = false;
  ShowOutput(app);
}

int SendLong(Application& app) {
  MidiState& midi = app.midi;
  if (!midi.LongOutputOk || !midi.OutputOpen) return midi.MidiResult;
  // It takes the time that the cable takes.
  std::optional<Undo::Hold> hold;
  if (midi.SysExBuffer.size() > kLongestAtOnce) hold.emplace(app);
  if (midi.MonitorOn) {
    MonitorLog(app, {});
    MonitorLog(app, midi.SysExBuffer);
  }
  midi.MidiHeader = MidiHeader{};
  midi.MidiHeader.data = midi.SysExBuffer.data();
  midi.MidiHeader.buffer_length = static_cast<std::uint32_t>(midi.SysExBuffer.size());
  Place place = kPlacePrepare;
  midi.MidiResult = SendHeader(app, place);
  if (midi.MidiResult != 0) {
    Report(app, place, midi.MidiResult);
    // One failure gives one box, not one for each parameter that follows.
    midi.LongOutputOk = false;
    ShowOutput(app);
  }
  return midi.MidiResult;
}

int OpenMidiOut(Application& app) {
  MidiState& midi = app.midi;
  const int result = app.service.midiOutOpen(midi.MidiOutHandle, midi.MidiOutDevice, 0, 0, 0);
  midi.OutputOpen = result == 0;
  if (result == 0) {
    midi.LongOutputOk = true;
    midi.ShortOutputOk = true;
  } else if (result == kMidiAllocated) {
    ShowMessage(app, kMessageOutputAllocated, app.core.OperationTitle, {});
  } else {
    Report(app, kPlaceOpenOut, result);
  }
  return result;
}

int OpenMidiIn(Application& app) {
  MidiState& midi = app.midi;
  const int result = app.service.midiInOpen(midi.MidiInHandle, midi.MidiInDevice, 0, 0, 0);
  midi.InputOpen = result == 0;
  if (result == kMidiAllocated) {
    ShowMessage(app, kMessageInputAllocated, app.core.OperationTitle, {});
  } else if (result != 0) {
    Report(app, kPlaceOpenIn, result);
  }
  return result;
}

int CloseMidiOut(Application& app) {
  MidiState& midi = app.midi;
  const int result = app.service.midiOutClose(midi.MidiOutHandle);
  midi.OutputOpen = false;
  // It is the last send's result that is looked at, not the close's, and that is wanted: a close after clean sending
  // never reports, one after a failed send always does.
  if (midi.MidiResult != 0) Report(app, kPlaceCloseOut, result);
  return result;
}

int CloseMidiIn(Application& app) {
  const int result = app.service.midiInClose(app.midi.MidiInHandle);
  app.midi.InputOpen = false;
  if (result != 0) Report(app, kPlaceCloseIn, result);
  return result;
}

int ConnectThru(Application& app) {
  if (!ThruRowUsable(app.midi)) return 0;
  return app.service.midiConnect(app.midi.MidiInHandle, app.midi.MidiOutHandle, 0);
}

int DisconnectThru(Application& app) {
  if (!ThruRowUsable(app.midi)) return 0;
  return app.service.midiDisconnect(app.midi.MidiInHandle, app.midi.MidiOutHandle, 0);
}

int StartMidiIn(Application& app) {
  return app.service.midiInStart(app.midi.MidiInHandle);
}

int StopMidiIn(Application& app) {
  return app.service.midiInStop(app.midi.MidiInHandle);
}

void EnumerateMidi(Application& app) {
  MidiState& midi = app.midi;
  midi.OutputOpen = false;
  midi.LongOutputOk = true;
  midi.ShortOutputOk = true;
  midi.MidiOutCount = std::clamp(app.service.midiOutGetNumDevs(), 0, kMostMidiDevices);
  if (midi.MidiOutCount == 0) {
    ShowMessage(app, kMessageNoOutput, app.core.OperationTitle, {});
    return;
  }
  for (int i = 0; i < midi.MidiOutCount; ++i) {
    midi.MidiResult = app.service.midiOutGetDevCapsA(i, midi.MidiOutCaps[i], kMidiCapsSize);
    midi.MidiDeviceOk[kOutputRow][i] = midi.MidiResult == 0;
  }
  midi.MidiInCount = std::clamp(app.service.midiInGetNumDevs(), 0, kMostMidiDevices);
  if (midi.MidiInCount == 0) {
    ShowMessage(app, kMessageNoInput, app.core.OperationTitle, {});
    midi.InputOpen = false;
    return;
  }
  for (int i = 0; i < midi.MidiInCount; ++i) {
    midi.MidiResult = app.service.midiInGetDevCapsA(i, midi.MidiInCaps[i], kMidiCapsSize);
    midi.MidiDeviceOk[kInputRow][i] = midi.MidiResult == 0;
  }
  // What has been opened stays open.
  if (!OpenStoredPorts(app)) midi.ThruOn = false;
}

void CloseMidi(Application& app) {
  if (app.midi.OutputOpen) CloseMidiOut(app);
  if (app.midi.InputOpen) CloseMidiIn(app);
  // Last, and on handles that are closed already: the order is fixed, and its errors are of no interest.
  if (app.midi.ThruOn) DisconnectThru(app);
}

namespace {

void TakeMidiOut(Application& app, int device) {
  MidiState& midi = app.midi;
  MainWindow& main = *app.main;
  app.core.OperationTitle = GetText(app, kTextOpeningOut);
  if (midi.MidiOutDevice == kNoMidiDevice) midi.MidiOutDevice = device;
  ui::MenuEntry& entry = main.mnuDevMIDIOut(device);
  if (midi.MidiOutDevice == device && entry.checked()) {
    entry.SetChecked(false);
    CloseMidiOut(app);
    midi.MidiOutDevice = kNoMidiDevice;
    main.Menu(MenuId::mnuMIDIThru).SetEnabled(false);
    return;
  }
  if (midi.MidiOutDevice != device) {
    main.mnuDevMIDIOut(midi.MidiOutDevice).SetChecked(false);
    CloseMidiOut(app);
    midi.MidiOutDevice = device;
  }
  if (OpenMidiOut(app) != 0) return;
  // Another instrument may stand at its end, or the same one switched on anew.
  main.ForgetWhatWasSent();
  entry.SetChecked(true);
  if (!midi.InputOpen) main.Menu(MenuId::mnuMIDIThru).SetChecked(false);
  main.Menu(MenuId::mnuMIDIThru).SetEnabled(midi.InputOpen);
}

}  // namespace

void ChooseMidiOut(Application& app, int device) {
  TakeMidiOut(app, device);
  ShowOutput(app);
}

void ChooseMidiIn(Application& app, int device) {
  MidiState& midi = app.midi;
  MainWindow& main = *app.main;
  ui::MenuEntry& thru = main.Menu(MenuId::mnuMIDIThru);
  app.core.OperationTitle = GetText(app, kTextOpeningOut);
  if (midi.MidiInDevice == kNoMidiDevice) midi.MidiInDevice = device;
  ui::MenuEntry& entry = main.mnuDevMIDIIn(device);
  if (midi.MidiInDevice == device && entry.checked()) {
    entry.SetChecked(false);
    CloseMidiIn(app);
    midi.MidiInDevice = kNoMidiDevice;
    thru.SetEnabled(false);
    return;
  }
  if (midi.MidiInDevice != device) {
    main.mnuDevMIDIIn(midi.MidiInDevice).SetChecked(false);
    CloseMidiIn(app);
    midi.MidiInDevice = device;
  }
  if (OpenMidiIn(app) != 0) {
    thru.SetEnabled(false);
    return;
  }
  entry.SetChecked(true);
  if (midi.OutputOpen) thru.SetEnabled(true);
}

void ToggleThru(Application& app) {
  ui::MenuEntry& entry = app.main->Menu(MenuId::mnuMIDIThru);
  const bool on = !entry.checked();
  entry.SetChecked(on);
  bool done = (on ? ConnectThru(app) : DisconnectThru(app)) == 0;
  if (done) done = (on ? StartMidiIn(app) : StopMidiIn(app)) == 0;
  // After a failure the check mark has moved, but ThruOn has not.
  if (done) app.midi.ThruOn = on;
}

}  // namespace zentaline
