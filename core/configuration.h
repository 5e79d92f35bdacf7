// Zentaline.ini: 50 records of 250 bytes, read at the start and written at the end.
#pragma once

#include "base/bytes.h"

namespace zentaline {

struct Application;

inline constexpr char kConfigFileName[] = "Zentaline.ini";
inline constexpr std::size_t kConfigRecordLength = 250;
inline constexpr int kConfigRecordCount = 50;
inline constexpr std::size_t kConfigLength = kConfigRecordLength * kConfigRecordCount;

// Takes the settings from the file, or the defaults where it is absent, shorter, or of other content; asks the language
// at the first start. Sets StopRun when the program ends here. Reads the multisample list too.
void ReadConfiguration(Application& app);

// Writes the file; bytes that have no field keep the value that they have on the disk.
void WriteConfiguration(Application& app);

// The pure halves: a file's bytes to the state, and the state over a file's bytes (12500 of them).
bool IsConfiguration(const Bytes& file);
void TakeConfiguration(Application& app, const Bytes& file);
void PutConfiguration(const Application& app, Bytes& file);
// What a file that is made new holds before the fields are put in.
Bytes NewConfiguration();

}  // namespace zentaline
