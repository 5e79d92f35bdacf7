// The file of the ten back sequences of one memory: a header, ten entries, a table of words for each sequence that says
// where its tracks are, and the events. Positions count from 1, sequences from 0, tracks from 1. What isn't named here
// is carried unchanged.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

inline constexpr int kBackSeqCount = 10;
inline constexpr int kBackSeqTracks = 17;
inline constexpr std::size_t kBackSeqNameLength = 10;

inline constexpr std::size_t kBackSeqEntryPosition = 17;  // of sequence 0; the name stands first in an entry
inline constexpr std::size_t kBackSeqEntryLength = 198;
inline constexpr std::size_t kBackSeqTablePosition = 1997;  // of sequence 0: a word for each track, low byte first
inline constexpr std::size_t kBackSeqTableLength = 2 * kBackSeqTracks;
inline constexpr std::size_t kBackSeqEventPosition = 2339;  // behind the word that ends the last track

// The words count blocks of events.
inline constexpr int kBackSeqEventLength = 4;
inline constexpr int kBackSeqBlockEvents = 4;

// What is read of a file: three records. What lies behind them counts as zero bytes.
inline constexpr std::size_t kBackSeqReadLength = 3 * std::size_t{32200};

// Makes of a file that was read what the program works with. False when its signature is another one; it is then as it
// was. Whatever byte 6 is, it doesn't count, and becomes zero.
bool TakeBackSeqFile(Bytes& file);

// The image of a window, without its control bytes, and the file in it.
Bytes BuildBackSeqImage(std::string_view file);
std::string_view BackSeqFileIn(std::string_view image);

// The ten bytes of the name up to its first zero byte, padded with blanks.
Bytes BackSeqName(std::string_view file, int sequence);

// Where the first track of a sequence starts. A lying table puts it anywhere, also in front of the file.
long TrackPosition(std::string_view file, int sequence);

// How many events a track holds: up to its last slot that isn't zero. What its words place outside of the file counts
// as zero.
int BackSeqEvents(std::string_view file, int sequence, int track);
// Of all tracks of a sequence, those too that no window shows.
int BackSeqEventSum(std::string_view file, int sequence);

}  // namespace zentaline
