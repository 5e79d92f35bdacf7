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

}  // namespace zentaline
