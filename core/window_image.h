// What the images of all child windows have in common: one byte string of 20 control bytes, 250 bytes with the path,
// then the tables and files of the kind. Positions count from 1.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

// The byte at position 1, also handed to the open dialog.
enum WindowKind : int {
  kKindArrA = 2,
  kKindArrB = 3,
  kKindPrgA = 4,
  kKindPrgB = 5,
  kKindPrgC = 6,
  kKindPrgD = 7,
  kKindPrgE = 8,
  kKindDrum = 9,
  kKindPercussion = 10,
  kKindFindId = 11,
  kKindDatabase = 12,
  kKindArrEditor = 13,
  kKindGlobal = 14,  // global parameters without a file
  kKindKeyboard = 15,
  kKindMonitor = 16,
  kKindStyA = 17,
  kKindStyB = 18,
  kKindArr = 19,
  kKindNewArr = 20,
  kKindPrg = 21,
  kKindNewPrg = 22,
  kKindSty = 23,
  kKindNewSty = 24,
  kKindGbl = 25,
  kKindBsq = 26,
  kKindPcg = 31,        // a program file opened from an older instrument's
  kKindPrgEditor = 32,  // a blank
  kKindNotebook = 32,   // the place where it stood; it has no image, as the guide
  kKindPerfEditor = 33,
  kKindGuide = 34,
  kKindI30Arr = 36,  // 36 to 38: imports, only handed to the open dialog
  kKindI30Prg = 37,
  kKindI30Sty = 38,
};

// Control bytes.
inline constexpr std::size_t kKindPosition = 1;
inline constexpr std::size_t kReadOnlyPosition = 2;
inline constexpr std::size_t kChangedPosition = 4;        // arrangement or global part, 1 changed since the last save
inline constexpr std::size_t kPrgAttachedPosition = 6;    // arrangements: 1 a program file attached; programs: 2
inline constexpr std::size_t kPrgChangedPosition = 7;     // 1 the program part changed
inline constexpr std::size_t kStyStatePosition = 9;       // 0 no styles looked for, 1 the empty template, 2 the sibling
inline constexpr std::size_t kStyChangedPosition = 10;    // 1 the style part changed
inline constexpr std::size_t kNoFilePosition = 11;        // not 0: no file of its own yet, saving asks for a name
inline constexpr int kMustSaveAs = 5;                     // there: its path is that of a file which it doesn't hold
inline constexpr std::size_t kWindowNumberPosition = 15;  // 1 to 8, 9 for what stands in the instrument
inline constexpr std::size_t kBankChannelPosition = 16;   // factory banks: MIDI channel 0 to 15
inline constexpr std::size_t kSlotStatePosition = 17;     // saved state of the window's slot
inline constexpr std::size_t kNeverSavedPosition = 18;    // 1 a new file
inline constexpr std::size_t kPggPosition = 19;           // 1 the program file is a .pgg
inline constexpr std::size_t kControlLength = 20;

inline constexpr std::size_t kPathPosition = 21;
inline constexpr std::size_t kPathLength = 238;  // without the extension, padded with blanks
inline constexpr std::size_t kWindowPrefixLength = 270;
inline constexpr std::size_t kWindowFilePosition = 271;  // where a file image starts, styles apart

// A row table: a mark byte, 1 selected, and 20 bytes of the list row's text.
inline constexpr std::size_t kRowTableRowLength = 21;
inline constexpr std::size_t kRowTableTextLength = 20;
inline constexpr std::size_t kRowTable64Length = 64 * kRowTableRowLength;

// 20 zero bytes and 250 blanks.
Bytes WindowPrefix();

// The path without its extension, blanks at its end removed; a path longer than 238 bytes is cut.
std::string_view WindowPath(std::string_view image);
void PutWindowPath(Bytes& image, std::string_view path);

// What follows the last '/', and what precedes it ("/" for a file of the root, "" without any).
std::string_view FileBaseName(std::string_view path);
std::string_view FileDirectory(std::string_view path);

// What follows the last '/' of the image's path.
std::string_view WindowBaseName(std::string_view image);

}  // namespace zentaline
