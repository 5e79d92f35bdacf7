// The style file: a header of 224 bytes with a table of sizes, then up to sixteen styles, one behind the other, of
// which only the name is looked at. Multi-byte numbers are little-endian. Entries count from 0, positions from 1,
// offsets from 0. Entries above 15 are taken as the table and the data behind it read, never clipped; nothing is read
// or written outside an image.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

// The file. The header's other bytes are carried, never examined.
inline constexpr std::size_t kStyHeaderLength = 224;
inline constexpr std::size_t kStyPairOffset = 22;  // + 4k: two carried bytes of entry k
inline constexpr std::size_t kStySizeOffset = 24;  // + 4k: size of entry k; 0: it and all behind it don't exist
inline constexpr std::size_t kStyNameLength = 16;  // at the start of each entry, padded with blanks
inline constexpr int kStyEntryCount = 16;
inline constexpr int kStyGroupCount = 4;
inline constexpr int kStyGroupEntries = 4;
inline constexpr std::size_t kStyRecordLength = 32200;  // a file is read in at most nine of these, the rest stays zero
inline constexpr std::size_t kStyRecordCount = 9;
inline constexpr std::size_t kStyWriteLength = 4;  // files are written in records of this length
inline constexpr std::size_t kStyTemplateLength = 4928;
inline constexpr std::size_t kStyTemplateEntryLength = 1176;
inline constexpr int kStyGroupLimit = 80000;  // bytes of a group's four styles that a paste may reach
inline constexpr std::string_view kStyEmptyName = "- empty -";
inline constexpr std::string_view kStyDetachedName = "-empty-";  // shown while no style part is attached

// The image of a style window: the prefix, a row table of 19 rows, the file.
inline constexpr std::size_t kStyRowTablePosition = 271;
inline constexpr int kStyRowCount = 19;
inline constexpr std::size_t kStyWindowBase = 670;   // group base in windows of the kinds 23 and 24
inline constexpr std::size_t kArrStyleBase = 42623;  // group base in all others

enum StyReadResult : int { kStyGood = 0, kStyWrong = 1, kStyAbsent = 2 };

// The image of a file's bytes: as long as the file; what lies behind nine records stays zero. `image` is only changed
// when the result is kStyGood.
StyReadResult StyReadImage(std::string_view file, Bytes& image);

// The same for the template: seven bytes are tested, not eight, and the first four names become "- empty -".
StyReadResult StyReadTemplate(std::string_view file, Bytes& image);

// 20 zero bytes, 250 blanks, 399 zero bytes, then the style image.
Bytes BuildStyWindowImage(std::string_view style_image);

// Of a bare style image. Neither the name nor the size asks whether the entry exists: sizes are summed as found.
std::string_view StyEntryName(int entry, std::string_view image);  // blanks at the end removed
int StyEntrySize(int entry, std::string_view image);
// Position of the entry; 0 when an entry in front of it has size 0.
std::size_t StyEntryPos(int entry, std::string_view image);
// Sum of the four sizes of the entry's group.
int StyGroupSize(int entry, std::string_view image);

// Of a window's image. The group base is the position where its style part begins.
std::size_t StyGroupBase(std::string_view image);
std::string_view StylePart(std::string_view image);
void PutStylePart(Bytes& image, std::string_view style_image);
// "-empty-" while control byte 9 is 0.
std::string_view WindowStyName(int entry, std::string_view image);
int WindowStyEntrySize(int entry, std::string_view image);
// 224 plus the four sizes of the entry's group.
int StyGroupSpan(int entry, std::string_view image);
// 224 plus the sizes up to the first 0.
std::size_t StyTotalSize(std::string_view image);
// Groups up to the last entry that isn't named "- empty -", 0 to 4; always 4 in a style window.
int StyUsedGroups(std::string_view image);
// Groups up to the last entry that exists and isn't named "- empty -", 0 to 4: what there is to send.
int StyGroupsToSend(std::string_view image);

// The list row of entry 0 to 15: the rows 4, 9 and 14 are blank. And back; -1 for a blank row or one outside.
int StyEntryRow(int entry);
int StyRowEntry(int row);

// "11" to "18", "21" to "28"; above 15 it goes on in the next decade.
std::string UserStyleNumber(int entry);

// Cuts what lies behind the used groups. 1 when no group is used and nothing was done, else 0.
int StyTrimUnused(Bytes& image);

// The bytes of the file of a window's style part, in whole 4-byte records; trims the image first.
Bytes StyFileBytes(Bytes& image);

enum StyPutResult : int { kStyPutDone = 0, kStyPutKnown = 1, kStyPutNoPlace = 2, kStyPutTooLong = 3 };

// Puts a style in an entry's place; both images are bare style images. `mode` is 0 for a paste, anything else for a
// cut, which takes entry 0 of `empty_style` as its source. A paste to a `destination_entry` of 100 or more first looks
// for a style of the same name (then `mode` receives its entry and the result is kStyPutKnown), else for the first free
// entry, which `destination_entry` receives. Any other destination entry outside 0 to 15 gives kStyPutNoPlace. Nothing
// changes unless the result is kStyPutDone.
StyPutResult StyPutEntry(int& mode, int source_entry, std::string_view source, int& destination_entry,
                         Bytes& destination, std::string_view empty_style);
// The same in an image whose style part begins at `base`, so that nothing has to be taken out and put back.
StyPutResult StyPutEntryAt(int& mode, int source_entry, std::string_view source, int& destination_entry, Bytes& image,
                           std::size_t base, std::string_view empty_style);

// Splits the 48 styles of an i30 file into three files of sixteen. `outputs` is only changed when the result is
// kStyGood.
StyReadResult StySplitI30(std::string_view file, std::array<Bytes, 3>& outputs);

}  // namespace zentaline
