// The database: additions, removals and a purge of a table that may be damaged in any byte.
#include "arrangement/db_format.h"
#include "fuzz/fuzz_input.h"

using namespace zentaline;
using zentaline::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const bool whole = input.Byte() % 2 == 0;
  const int actions = input.Byte() % 24;
  const std::string_view script = input.Take(static_cast<std::size_t>(actions) * 8);
  const std::string_view rest = input.Rest();

  Bytes image = whole ? NewDatabase() : Bytes(rest);
  if (whole) PutBytes(image, 1, rest);
  const std::size_t length = image.size();
  DBPurgeKeeps(rest);

  fuzz::Input steps(reinterpret_cast<const std::uint8_t*>(script.data()), script.size());
  for (int i = 0; i < actions; ++i) {
    const int action = steps.Byte();
    const int number = steps.Word();
    Bytes name(steps.Take(5));
    for (char& c : name) {
      if (c == '\0') c = '0';  // no file name holds it
    }
    if (action % 4 == 0) {
      DBRemoveEntry(image, number % 1010);
    } else if (action % 4 == 1) {
      DBPurgeEntries(image,
                     [&](std::string_view entry) { return entry.size() % 2 == static_cast<std::size_t>(number % 2); });
    } else {
      const int count = DBEntryCount(image);
      const DBAddition addition = DBAddEntry(image, name);
      const int after = DBEntryCount(image);
      if (addition.result == kDbAdded) {
        Require(addition.id >= 3 && addition.id <= 999);
        if (whole) Require(after > count && DBFindName(image, name) != 0);
      } else {
        Require(after == count);
      }
    }
    Require(image.size() == length);
    Require(DBEntryCount(image) <= 997);
    DBFindId(image, number);
    DBLookup(image, DBDirectoryOf(image), name);
  }
  Require(DBPurgeEntries(image, [](std::string_view) { return false; }) <= 998);
  Require(DBEntryCount(image) == 0);
  Require(DBImageOf(Bytes(rest)).size() == kDbLength);
  return 0;
}
