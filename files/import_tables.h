// How a record of the older instruments becomes one of this one: a row for each run of bytes of the new record, in its
// order. Offsets count from 0. The rows cover the new record without a gap or an overlap, and the compiler sees to it.
#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace zentaline {

enum class ImportRule {
  kCopy,           // `length` bytes of the old record from `value` on
  kFill,           // `length` times the byte `value`
  kMasked,         // the old byte at `value`, of which the two low bits are kept
  kStyleNumber,    // of the old style byte at `value`
  kStyleLocation,  // of the same
};

struct ImportRow {
  std::size_t target;
  std::size_t length;
  ImportRule rule;
  std::size_t value;
};

inline constexpr std::size_t kOldPrgRecordLength = 164;
inline constexpr std::size_t kOldArrRecordLength = 131;
inline constexpr std::size_t kOldStyleOffset = 10;

namespace import_tables {

using enum ImportRule;

// A program of 164 bytes. Targets 16, 20 and 22 are zero in the end: the old bytes 12 and 15, which would stand at the
// two last ones, are lost, and that is wanted.
inline constexpr std::array kPrograms = std::to_array<ImportRow>({
    {0, 10, kCopy, 0},  // name
    {10, 6, kFill, ' '},
    {16, 2, kFill, 0},
    {18, 2, kCopy, 10},
    {20, 1, kFill, 0},
    {21, 1, kCopy, 13},
    {22, 1, kFill, 0},
    {23, 1, kCopy, 16},
    {24, 1, kCopy, 14},
    {25, 4, kCopy, 17},
    {29, 114, kCopy, 21},
    {143, 29, kCopy, 135},
});

// An arrangement of 131 bytes. Two of the runs are filled twice from the same old bytes, and that is wanted.
inline constexpr std::array kArrangements = std::to_array<ImportRow>({
    {0, 10, kCopy, 0},  // name
    {10, 6, kFill, ' '},
    {16, 1, kFill, 0},
    {17, 1, kStyleNumber, kOldStyleOffset},
    {18, 1, kStyleLocation, kOldStyleOffset},
    {19, 1, kCopy, 12},
    {20, 1, kCopy, 13},
    {21, 1, kCopy, 14},
    {22, 1, kMasked, 15},
    {23, 1, kCopy, 16},
    {24, 1, kFill, 0},
    {25, 1, kCopy, 18},
    {26, 1, kCopy, 19},
    {27, 6, kCopy, 20},
    {33, 4, kFill, 0},
    {37, 1, kCopy, 30},
    {38, 1, kCopy, 32},
    {39, 48, kCopy, 34},
    {87, 8, kCopy, 82},
    {95, 8, kCopy, 82},
    {103, 8, kCopy, 90},
    {111, 16, kFill, 0},
    {127, 2, kCopy, 98},
    {129, 2, kCopy, 98},
    {131, 2, kCopy, 100},
    {133, 2, kFill, 0},
    {135, 29, kCopy, 102},
});

// Whether the rows follow each other to the end of the new record, and read nothing outside the old one.
constexpr bool Covers(std::span<const ImportRow> rows, std::size_t new_length, std::size_t old_length) {
  std::size_t next = 0;
  for (const ImportRow& row : rows) {
    if (row.target != next) return false;
    next += row.length;
    const std::size_t read = row.rule == kFill ? 0 : row.rule == kCopy ? row.value + row.length : row.value + 1;
    if (read > old_length) return false;
  }
  return next == new_length;
}

static_assert(Covers(kPrograms, 172, kOldPrgRecordLength));
static_assert(Covers(kArrangements, 164, kOldArrRecordLength));

// What the program and bank of a track become. The first row that fits counts; where none does nothing changes.
struct ProgramMove {
  int bank;
  int from;  // programs of this range
  int to;
  int add;  // to the program
  int new_bank;
};
inline constexpr std::array kProgramMoves = std::to_array<ProgramMove>({
    {1, 64, 255, -64, 3},
    {2, 0, 255, 0, 4},
    {3, 0, 63, 64, 1},
    {3, 64, 255, -64, 3},
});
inline constexpr int kMovedTracks = 8;  // the ninth keeps what it has

}  // namespace import_tables

}  // namespace zentaline
