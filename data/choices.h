// The lists that a field of an arrangement or a program is chosen from, in the order in which the editors show them.
#pragma once

#include <array>
#include <string_view>

namespace zentaline {

// Index is the stored value unless told.
inline constexpr std::array<std::string_view, 11> kKeyboardAssigns = {"FULL 1",  "FULL 2",  "SPLIT 1", "M. DRUMS",
                                                                      "FULL 3",  "FULL 4",  "SPLIT 2", "SPLIT 3",
                                                                      "SPLIT 4", "SPLIT 5", "SPLIT 6"};

inline constexpr std::array<std::string_view, 13> kFills = {" OFF", " ->1", " ->2", " ->3", " ->4", " 1&2", " 1&3",
                                                            " 1&4", " 2&3", " 2&4", " 3&4", " UP",  " DOWN"};

inline constexpr std::array<std::string_view, 10> kEnsembles = {
    "Duet", "Close", "Open1", "Open2", "Octave", "Power Ens.", "Fourths", "Block", "Brass Ens.", "Reed Ens."};

inline constexpr std::array<std::string_view, 4> kVariations = {" 1", " 2", " 3", " 4"};

inline constexpr std::array<std::string_view, 4> kMapVariations = {" VAR1", " VAR2", " VAR3", " VAR4"};

inline constexpr std::array<std::string_view, 4> kDesignations = {" A", " B", " C", " D"};

inline constexpr std::array<std::string_view, 16> kDrumKits = {" Dr11", " Dr12", " Dr13", " Dr14", " Dr15", " Dr16",
                                                               " Dr17", " Dr18", " Dr21", " Dr22", " Dr23", " Dr24",
                                                               " Dr25", " Dr26", " Dr27", " Dr28"};

inline constexpr std::array<std::string_view, 4> kOutStatus1 = {"OFF", "INT", "EXT", "BOTH"};

inline constexpr std::array<std::string_view, 3> kOutStatus2 = {"PLAY", "MUTE", "SOLO"};

// The greatest value stands first: what is stored is the first row's less the row.
inline constexpr std::array<std::string_view, 23> kTransposes = {
    " +11", " +10", " +9", " +8", " +7", " +6", " +5", " +4", " +3", " +2",  " +1", "  0",
    " -1",  " -2",  " -3", " -4", " -5", " -6", " -7", " -8", " -9", " -10", " -11"};

inline constexpr std::array<std::string_view, 5> kOctaves = {" +2", " +1", "  0", " -1", " -2"};

inline constexpr std::array<std::string_view, 11> kSends = {"PRG", " 9", " 8", " 7", " 6", " 5",
                                                            " 4",  " 3", " 2", " 1", " 0"};

inline constexpr std::array<std::string_view, 13> kWrapArounds = {" 12", " 11", " 10", " 9", " 8", " 7",  " 6",
                                                                  " 5",  " 4",  " 3",  " 2", " 1", " ORG"};

inline constexpr std::array<std::string_view, 2> kStyleLocations = {"Factory", "User"};

inline constexpr std::array<std::string_view, 5> kBankCodes = {"A, B", "C, D", "E", "F/User", "Drum"};

// Of programs.
inline constexpr std::array<std::string_view, 2> kOscModes = {" SINGLE", " DOUBLE"};

inline constexpr std::array<std::string_view, 2> kAssigns = {" POLY", " MONO"};

inline constexpr std::array<std::string_view, 2> kHolds = {" NORM", " HOLD"};

// The highest first: 4' is stored as 1, 32' as -2.
inline constexpr std::array<std::string_view, 4> kFeet = {"  4'", "  8'", " 16'", " 32'"};

// From -12 on.
inline constexpr std::array<std::string_view, 25> kSemitones = {
    " -12", " -11", " -10", " -9", " -8", " -7", " -6", " -5", " -4", " -3",  " -2",  " -1", "  0",
    "  1",  "  2",  "  3",  "  4", "  5", "  6", "  7", "  8", "  9", "  10", "  11", "  12"};

inline constexpr std::array<std::string_view, 4> kSweptOscillators = {"OFF", "OSC1", "OSC2", "BOTH"};

inline constexpr std::array<std::string_view, 10> kDigits = {" 0", " 1", " 2", " 3", " 4",
                                                             " 5", " 6", " 7", " 8", " 9"};

inline constexpr std::array<std::string_view, 3> kTrackModes = {" OFF", " LOW", " HIGH"};

inline constexpr std::array<std::string_view, 3> kPolarities = {" -", " 0", " +"};

// What moves an effect while it is played.
inline constexpr std::array<std::string_view, 6> kDModSources = {" NONE",       " JS UP", " JS DOWN",
                                                                 " AFT. TOUCH", " PEDAL", "VDA-EG"};

inline constexpr std::array<std::string_view, 5> kWaveforms = {"TRIANGLE", "SAW UP", "SAW DOWN", "SQUARE", "RANDOM"};

inline constexpr std::array<std::string_view, 4> kPlacements = {"SERIAL", "PARALLEL 1", "PARALLEL 2", "PARALLEL 3"};

// From top to bottom; the stored number counts from the bottom, so that 0 is "No Effect" and 47 stands first.
inline constexpr std::array<std::string_view, 48> kEffects = {
    "Delay/Rotary",  "Delay/Phaser",   "Delay/Overdrv", "Delay/Dist",    "Delay/Flanger", "Delay/Chorus",
    "Delay/Room",    "Delay/Hall",     "Flanger-Delay", "Chorus-Delay",  "Equalizer",     "Tremolo",
    "Auto Pan",      "Rotary Speaker", "Phaser 2",      "Phaser 1",      "Overdrive",     "Distortion",
    "Enhancer",      "Exciter",        "XOver Flanger", "Flanger 2",     "Flanger 1",     "Symphonic Ens",
    "Harmonic Cho.", "XOver Chorus",   "Quad Chorus",   "Chorus 2",      "Chorus 1",      "Multitap Dly3",
    "Multitap Dly2", "Multitap Dly1",  "Dual Delay",    "Cross Delay",   "Stereo Delay",  "Early Ref 3",
    "Early Ref 2",   "Early Ref 1",    "Spring Reverb", "Dry Plate",     "Wet Plate",     "Live Stage",
    "Large Room",    "Room",           "Concert Hall",  "Ensemble Hall", "Hall",          "No Effect"};

// Of the global data.
inline constexpr std::array<std::string_view, 24> kScaleTypes = {
    "EQUAL TEMP",   "EQUAL TEMP 2",  "PURE MAJOR",    "PURE MINOR",    "ARABIC",        "PYTHAGOREAN",
    "WERKMEISTER",  "KIRNBERGER",    "SLENDRO",       "PELOG",         "USER SCALE 1",  "USER SCALE 2",
    "USER SCALE 3", "USER SCALE 4",  "USER SCALE 5",  "USER SCALE 6",  "USER SCALE 7",  "USER SCALE 8",
    "USER SCALE 9", "USER SCALE 10", "USER SCALE 11", "USER SCALE 12", "USER SCALE 13", "USER SCALE 14"};

inline constexpr std::array<std::string_view, 12> kScaleKeys = {" C",  " C#", " D",  " D#", " E",  " F",
                                                                " F#", " G",  " G#", " A",  " A#", " B"};

inline constexpr std::array<std::string_view, 8> kCurves = {" 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8"};

inline constexpr std::array<std::string_view, 2> kJoystickUses = {" PRG", " DIS"};

inline constexpr std::array<std::string_view, 3> kEchoBacks = {" OFF", " IN 1", " IN 2"};

inline constexpr std::array<std::string_view, 4> kUpperOctaves = {" U+2", " U+1", " U+0", " U-1"};

// The third really reads so.
inline constexpr std::array<std::string_view, 4> kLowerOctaves = {" L+2", " L+1", " U+0", " L-1"};

inline constexpr std::array<std::string_view, 3> kChordRecognitions = {"Fingered1", "Fingered2", "One Finger"};

inline constexpr std::array<std::string_view, 7> kHarmonyOctaves = {" 3", " 2", " 1", " 0", " -1", " -2", " -3"};

inline constexpr std::array<std::string_view, 17> kArrChannels = {
    " OFF", " 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8", " 9", " 10", " 11", " 12", " 13", " 14", " 15", " 16"};

inline constexpr std::array<std::string_view, 17> kHarmonyTracks = {
    " OFF",  " DRUM", " PERC", " BASS", " ACC1", " ACC2", " ACC3", " UP1", " LOW/UP2",
    " ETr1", " ETr2", " ETr3", " ETr4", " ETr5", " ETr6", " ETr7", " ETr8"};

inline constexpr std::array<std::string_view, 33> kSongChannels = {
    " OFF",       " MIDI Ch01", " MIDI Ch02", " MIDI Ch03", " MIDI Ch04", " MIDI Ch05", " MIDI Ch06",
    " MIDI Ch07", " MIDI Ch08", " MIDI Ch09", " MIDI Ch10", " MIDI Ch11", " MIDI Ch12", " MIDI Ch13",
    " MIDI Ch14", " MIDI Ch15", " MIDI Ch16", " Song Ch01", " Song Ch02", " Song Ch03", " Song Ch04",
    " Song Ch05", " Song Ch06", " Song Ch07", " Song Ch08", " Song Ch09", " Song Ch10", " Song Ch11",
    " Song Ch12", " Song Ch13", " Song Ch14", " Song Ch15", " Song Ch16"};

// What pedals and controllers do.
inline constexpr std::array<std::string_view, 52> kPedalFunctions = {"OFF",
                                                                     "START/STOP",
                                                                     "SYNC START",
                                                                     "SYNC STOP",
                                                                     "RESET",
                                                                     "TAP TEMPO",
                                                                     "TEMPO LOCK",
                                                                     "INTRO/ENDING 1",
                                                                     "INTRO/ENDING 2",
                                                                     "FILL 1",
                                                                     "FILL 2",
                                                                     "VARIATION 1",
                                                                     "VARIATION 2",
                                                                     "VARIATION 3",
                                                                     "VARIATION 4",
                                                                     "CHORD MEMORY",
                                                                     "BASS INVERSION",
                                                                     "SCALE CHANGE",
                                                                     "ARR/STY UP",
                                                                     "ARR/STY DOWN",
                                                                     "PROGRAM UP",
                                                                     "PROGRAM DOWN",
                                                                     "VARIATION UP",
                                                                     "VARIATION DOWN",
                                                                     "PUNCH IN/OUT",
                                                                     "EFFECT 1 ON/OFF",
                                                                     "EFFECT 2 ON/OFF",
                                                                     "DRUM MUTE",
                                                                     "PERC MUTE",
                                                                     "BASS MUTE",
                                                                     "ACC1 MUTE",
                                                                     "ACC2 MUTE",
                                                                     "ACC3 MUTE",
                                                                     "LOW HARM MEMORY",
                                                                     "SUSTAIN ON/OFF",
                                                                     "FADE IN/OUT",
                                                                     "ENSEMBLE ON/OFF",
                                                                     "QUARTER TONE",
                                                                     "DAMPER ON/OFF",
                                                                     "CHORD LATCH ON/OFF",
                                                                     "ACC1-3 MUTE",
                                                                     "LOW/UP1/UP2 MUTE",
                                                                     "KEYBOARD SET UP",
                                                                     "KEYBOARD SET DOWN",
                                                                     "C BUTTON ON/OFF",
                                                                     "KB VOLUME",
                                                                     "MASTER VOLUME",
                                                                     "EXPRESSION",
                                                                     "VDF CUTOFF",
                                                                     "EFFECT CONTROL",
                                                                     "DATA ENTRY",
                                                                     "A/B FADER"};

}  // namespace zentaline
