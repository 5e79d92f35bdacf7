#include "tools/factory/program_fields.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "data/choices.h"
#include "program/prg_format.h"
#include "tools/factory/source.h"

namespace zentaline::factory {
namespace {

namespace prog = program_record;
namespace osc = osc_block;

enum class Kind { kNumber, kWord, kChoice, kOctave, kEffect, kPan };

struct Field {
  std::string_view key;
  std::size_t place;  // position in the record, or offset in an oscillator's block
  int low;
  int high;
  Kind kind = Kind::kNumber;
  int shift = 0;  // of a field that is only some bits of its byte
  int mask = 0xFF;
  std::span<const std::string_view> names = {};
};

constexpr std::array<std::string_view, 2> kModes = {"SINGLE", "DOUBLE"};
constexpr std::array<std::string_view, 2> kAssigns = {"POLY", "MONO"};
constexpr std::array<std::string_view, 2> kHolds = {"NORM", "HOLD"};
constexpr std::array<std::string_view, 2> kSwitch = {"OFF", "ON"};
constexpr std::array<std::string_view, 3> kTrackModes = {"OFF", "LOW", "HIGH"};
constexpr std::array<std::string_view, 4> kEnables = {"OFF", "OSC1", "OSC2", "BOTH"};

constexpr Field kCommonFields[] = {
    {"mode", prog::kMode, 0, 1, Kind::kChoice, 0, 3, kModes},
    {"assign", prog::kAssignHold, 0, 1, Kind::kChoice, 0, 1, kAssigns},
    {"hold", prog::kAssignHold, 0, 1, Kind::kChoice, 1, 2, kHolds},
    {"sound1", prog::kOsc1Multisound, 0, 518, Kind::kWord},
    {"sound2", prog::kOsc2Multisound, 0, 518, Kind::kWord},
    {"octave1", prog::kOsc1Octave, 0, 0, Kind::kOctave},
    {"octave2", prog::kOsc2Octave, 0, 0, Kind::kOctave},
    {"interval", prog::kInterval, -12, 12},
    {"detune", prog::kDetune, -50, 50},
    {"delay", prog::kDelayStart, 0, 99},
    {"pitch.start", prog::kPitchEgStartLevel, -99, 99},
    {"pitch.attack", prog::kPitchEgAttackTime, 0, 99},
    {"pitch.attack.level", prog::kPitchEgAttackLevel, -99, 99},
    {"pitch.decay", prog::kPitchEgDecayTime, 0, 99},
    {"pitch.release", prog::kPitchEgReleaseTime, 0, 99},
    {"pitch.release.level", prog::kPitchEgReleaseLevel, -99, 99},
    {"sweep.wave", prog::kVdfMgFlags, 0, 4, Kind::kChoice, 0, 7, kWaveforms},
    {"sweep.on", prog::kVdfMgFlags, 0, 3, Kind::kChoice, 5, 0x60, kEnables},
    {"sweep.sync", prog::kVdfMgFlags, 0, 1, Kind::kChoice, 7, 0x80, kSwitch},
    {"sweep.rate", prog::kVdfMgFrequency, 0, 99},
    {"sweep.delay", prog::kVdfMgDelay, 0, 99},
    {"sweep.depth", prog::kVdfMgIntensity, 0, 99},
    {"touch.bend", prog::kAftertouchBendRange, -12, 12},
    {"touch.cutoff", prog::kAftertouchCutoff, -99, 99},
    {"touch.sweep", prog::kAftertouchVdfMg, 0, 99},
    {"touch.level", prog::kAftertouchVdaLevel, -99, 99},
    {"bend", prog::kJoystickBendRange, -12, 12},
    {"bend.cutoff", prog::kJoystickCutoff, -99, 99},
    {"bend.sweep", prog::kJoystickVdfMg, 0, 99},
    {"fx1", prog::kFx1Effect, 0, 47, Kind::kEffect},
    {"fx2", prog::kFx2Effect, 0, 47, Kind::kEffect},
    {"balance1", prog::kFx1Balance, 0, 100},
    {"balance2", prog::kFx2Balance, 0, 100},
    {"cpan", prog::kOutputC, 0, 101},
    {"dpan", prog::kOutputD, 0, 101},
    {"placement", prog::kFxFlags, 0, 3, Kind::kChoice, 4, 0x70, kPlacements},
    {"fx1.on", prog::kFxFlags, 0, 1, Kind::kChoice, 0, 1, kSwitch},
    {"fx2.on", prog::kFxFlags, 0, 1, Kind::kChoice, 2, 4, kSwitch},
};

constexpr Field kOscFields[] = {
    {"pitch.eg", osc::kPitchEgInt, -99, 99},
    {"vibrato.wave", osc::kPitchMgFlags, 0, 4, Kind::kChoice, 0, 7, kWaveforms},
    {"vibrato.sync", osc::kPitchMgFlags, 0, 1, Kind::kChoice, 7, 0x80, kSwitch},
    {"vibrato.rate", osc::kPitchMgFrequency, 0, 99},
    {"vibrato.delay", osc::kPitchMgDelay, 0, 99},
    {"vibrato.fade", osc::kPitchMgFadeIn, 0, 99},
    {"vibrato.intensity", osc::kPitchMgIntensity, 0, 99},
    {"vibrato.touch", osc::kPitchMgIntAftertouch, 0, 99},
    {"vibrato.joystick", osc::kPitchMgIntJoystick, 0, 99},
    {"cutoff", osc::kVdfCutoff, 0, 99},
    {"cutoff.key", osc::kVdfKeyTrackKey, 0, 127},
    {"filter.track", osc::kVdfKeyTrackAmount, -99, 99},
    {"filter.eg", osc::kVdfEgIntensity, 0, 99},
    {"filter.velocity", osc::kVdfEgIntVelSense, -99, 99},
    {"filter.attack", osc::kVdfEgAttackTime, 0, 99},
    {"filter.attack.level", osc::kVdfEgAttackLevel, -99, 99},
    {"filter.decay", osc::kVdfEgDecayTime, 0, 99},
    {"filter.break", osc::kVdfEgBreakPoint, -99, 99},
    {"filter.slope", osc::kVdfEgSlopeTime, 0, 99},
    {"filter.sustain", osc::kVdfEgSustainLevel, -99, 99},
    {"filter.release", osc::kVdfEgReleaseTime, 0, 99},
    {"filter.release.level", osc::kVdfEgReleaseLevel, -99, 99},
    {"level", osc::kVdaOscLevel, 0, 99},
    {"amp.key", osc::kVdaKeyTrackKey, 0, 127},
    {"amp.track", osc::kVdaKeyTrackAmount, -99, 99},
    {"amp.velocity", osc::kVdaAmountVelSense, -99, 99},
    {"amp.attack", osc::kVdaEgAttackTime, 0, 99},
    {"amp.attack.level", osc::kVdaEgAttackLevel, 0, 99},
    {"amp.decay", osc::kVdaEgDecayTime, 0, 99},
    {"amp.break", osc::kVdaEgBreakPoint, 0, 99},
    {"amp.slope", osc::kVdaEgSlopeTime, 0, 99},
    {"amp.sustain", osc::kVdaEgSustainLevel, 0, 99},
    {"amp.release", osc::kVdaEgReleaseTime, 0, 99},
    {"csend", osc::kSendLevels, 0, 9, Kind::kNumber, 4, 0xF0},
    {"dsend", osc::kSendLevels, 0, 9, Kind::kNumber, 0, 0x0F},
    {"color", osc::kColorIntensity, 0, 99},
    {"color.velocity", osc::kColorVelSense, -99, 99},
    {"track.filter", osc::kKeyTrackMode, 0, 2, Kind::kChoice, 4, 0xF0, kTrackModes},
    {"track.amp", osc::kKeyTrackMode, 0, 2, Kind::kChoice, 0, 0x0F, kTrackModes},
    {"pan", osc::kPan, 0, 30, Kind::kPan},
};

const Field* FindField(std::span<const Field> fields, std::string_view key) {
  const auto field = std::find_if(fields.begin(), fields.end(), [key](const Field& f) { return f.key == key; });
  return field == fields.end() ? nullptr : &*field;
}

std::optional<int> ValueOf(const Field& field, std::string_view text) {
  switch (field.kind) {
    case Kind::kNumber:
    case Kind::kWord: {
      const std::optional<int> number = NumberOf(text);
      return number && *number >= field.low && *number <= field.high ? number : std::nullopt;
    }
    case Kind::kChoice:
      return IndexIn(field.names, text);
    case Kind::kOctave: {
      constexpr std::array<std::string_view, 4> feet = {"4'", "8'", "16'", "32'"};
      const std::optional<int> index = IndexIn(feet, text);
      return index ? std::optional<int>(1 - *index) : index;
    }
    case Kind::kEffect:
      return EffectOf(text);
    case Kind::kPan:
      return PanOf(text);
  }
  return std::nullopt;
}

bool Put(const Field& field, std::size_t position, std::string_view text, Bytes& record) {
  const std::optional<int> value = ValueOf(field, text);
  if (!value) return false;
  if (field.kind == Kind::kWord) {
    PutWordLowFirst(record, position, *value);
  } else {
    PutByte(record, position, (ByteAt(record, position) & ~field.mask) | (*value << field.shift & field.mask));
  }
  // The performance editor keeps a second copy of each balance beside the first.
  if (position == prog::kFx1Balance) PutByte(record, prog::kFx1BalanceCopy, *value);
  if (position == prog::kFx2Balance) PutByte(record, prog::kFx2BalanceCopy, *value);
  return true;
}

}  // namespace

bool ApplyProgramSetting(std::string_view setting, Bytes& record) {
  std::string_view text;
  std::string_view key = FirstWord(setting, text);
  if (const Field* field = FindField(kCommonFields, key)) return Put(*field, field->place, text, record);
  const bool only_first = key.starts_with("1.");
  const bool only_second = key.starts_with("2.");
  if (only_first || only_second) key.remove_prefix(2);
  const Field* field = FindField(kOscFields, key);
  if (field == nullptr) return false;
  return (only_second || Put(*field, prog::kOsc1 + field->place, text, record)) &&
         (only_first || Put(*field, prog::kOsc2 + field->place, text, record));
}

}  // namespace zentaline::factory
