#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "arrangement/db_format.h"
#include "tests/format_bytes.h"

namespace zentaline {
namespace {

using namespace test;

std::string FreePattern() {
  return Zeros(1) + Blanks(23) + Zeros(2);
}

std::string Entry(const std::string& name, int id) {
  return Field(name, 24) + Hand({id % 256, id / 256});
}

// A database written by hand, with these entries in this order.
std::string Database(const std::vector<std::pair<std::string, int>>& entries, const std::string& directory) {
  std::string image = "i40DBArr" + Zeros(18) + FreePattern();
  std::string map = Zeros(997);
  for (std::size_t i = 0; i < 997; ++i) {
    image += i < entries.size() ? Entry(entries[i].first, entries[i].second) : FreePattern();
    if (i < entries.size()) map[static_cast<std::size_t>(entries[i].second - 3)] = 1;
  }
  return image + map + Field(directory, 250);
}

Bytes Full() {
  Bytes image = NewDatabase();
  for (int i = 0; i < 997; ++i) EXPECT_EQ(DBAddEntry(image, "file" + std::to_string(i)).result, kDbAdded);
  return image;
}

TEST(Db, ANewDatabaseHasTheBytesOfItsTable) {
  EXPECT_EQ(NewDatabase(), Database({}, ""));
  EXPECT_EQ(NewDatabase().size(), 27221U);
  EXPECT_EQ(DBEntryPosition(3), 53U);
  EXPECT_EQ(DBEntryPosition(999), 25949U);
}

TEST(Db, TheFirstFileStandsAt53WithId3) {
  Bytes image = NewDatabase();
  PutDBDirectory(image, "/music");
  const DBAddition addition = DBAddEntry(image, "Live");
  EXPECT_EQ(addition.result, kDbAdded);
  EXPECT_EQ(addition.id, 3);
  EXPECT_EQ(image, Database({{"Live", 3}}, "/music"));
}

TEST(Db, IdsRunInTheOrderOfAdditionAndEntriesByName) {
  Bytes image = NewDatabase();
  for (const char* name : {"mango", "Apple", "zebra", "banana", "Mandarin"}) DBAddEntry(image, name);
  EXPECT_EQ(image, Database({{"Apple", 4}, {"banana", 6}, {"Mandarin", 7}, {"mango", 3}, {"zebra", 5}}, ""));
  EXPECT_EQ(DBEntryCount(image), 5);
}

TEST(Db, ANameThatDiffersInCaseOnlyIsKnown) {
  Bytes image = Database({{"Live", 9}}, "");
  const Bytes before = image;
  const DBAddition addition = DBAddEntry(image, "lIVE");
  EXPECT_EQ(addition.result, kDbKnown);
  EXPECT_EQ(addition.id, 9);
  EXPECT_EQ(image, before);
}

TEST(Db, NamesAreCutAt24SoThatLongOnesFallTogether) {
  Bytes image = NewDatabase();
  EXPECT_EQ(DBAddEntry(image, "abcdefghijklmnopqrstuvwxyz").id, 3);
  EXPECT_EQ(image, Database({{"abcdefghijklmnopqrstuvwx", 3}}, ""));
  const DBAddition second = DBAddEntry(image, "abcdefghijklmnopqrstuvwx-other");
  EXPECT_EQ(second.result, kDbKnown);
  EXPECT_EQ(second.id, 3);
  EXPECT_EQ(DBLookup(image, "", "abcdefghijklmnopqrstuvwxyz"), 3);
}

TEST(Db, TheFile998IsRefused) {
  Bytes image = Full();
  EXPECT_EQ(DBEntryCount(image), 997);
  EXPECT_EQ(DBEntryId(image, DBFindName(image, "FILE996")), 999);
  const Bytes before = image;
  const DBAddition addition = DBAddEntry(image, "one too many");
  EXPECT_EQ(addition.result, kDbFull);
  EXPECT_EQ(addition.id, 0);
  EXPECT_EQ(image, before);
  EXPECT_EQ(DBAddEntry(image, "File500").result, kDbKnown);
}

TEST(Db, AnIdMapWithoutAFreePlaceRefusesWithoutChangingAnything) {
  Bytes image = NewDatabase();
  for (std::size_t position = 25975; position <= 26971; ++position) Set(image, position, 1);
  const Bytes before = image;
  EXPECT_EQ(DBAddEntry(image, "Live").result, kDbFull);
  EXPECT_EQ(image, before);
}

TEST(Db, AFreedIdIsTheNextOneGiven) {
  Bytes image = Database({{"a", 3}, {"b", 4}, {"c", 5}}, "");
  DBRemoveEntry(image, DBFindId(image, 4));
  EXPECT_EQ(image, Database({{"a", 3}, {"c", 5}}, ""));
  EXPECT_EQ(DBAddEntry(image, "zz").id, 4);
  EXPECT_EQ(image, Database({{"a", 3}, {"c", 5}, {"zz", 4}}, ""));
}

TEST(Db, RemovingEachOfAFullTableMovesTheOthersUpByOne) {
  const Bytes full = Full();
  for (const int index : {3, 4, 500, 998, 999}) {
    Bytes image = full;
    const int id = DBEntryId(image, index);
    Bytes expected = full;
    expected.erase(static_cast<std::size_t>(26 * (index - 1)), 26);
    expected.insert(25948, FreePattern());
    Set(expected, 25975 + static_cast<std::size_t>(id) - 3, 0);
    DBRemoveEntry(image, index);
    EXPECT_EQ(image, expected) << index;
  }
}

TEST(Db, AnIndexOutsideTheTableRemovesNothing) {
  const Bytes full = Full();
  for (const int index : {-5, 0, 1, 2, 1000, 100000}) {
    Bytes image = full;
    DBRemoveEntry(image, index);
    EXPECT_EQ(image, full) << index;
    EXPECT_FALSE(DBEntryUsed(image, index));
    EXPECT_EQ(DBEntryName(image, index), "");
    EXPECT_EQ(DBEntryId(image, index), 0);
  }
}

TEST(Db, ALookUpNeedsTheDatabasesOwnDirectory) {
  const Bytes image = Database({{"Live", 300}}, "/music");
  EXPECT_EQ(DBLookup(image, "/music", "live"), 300);
  EXPECT_EQ(DBLookup(image, "/Music", "live"), 0);
  EXPECT_EQ(DBLookup(image, "/music/sub", "live"), 0);
  EXPECT_EQ(DBLookup(image, "/music", "other"), 0);
  EXPECT_EQ(DBLookup("i40DBxrr" + image.substr(8), "/music", "live"), 0);
  EXPECT_EQ(DBLookup("", "/music", "live"), 0);
}

TEST(Db, ALookUpStopsAtTheFirstFreeEntry) {
  Bytes image = Database({{"a", 3}, {"b", 4}, {"c", 5}}, "/m");
  Set(image, DBEntryPosition(4), 0);
  EXPECT_EQ(DBLookup(image, "/m", "a"), 3);
  EXPECT_EQ(DBLookup(image, "/m", "c"), 0);
  EXPECT_EQ(DBEntryCount(image), 1);
}

TEST(Db, TheIdIsReadLowByteFirst) {
  const Bytes image = Database({{"Live", 0x0203}}, "");
  EXPECT_EQ(DBEntryId(image, 3), 0x0203);
  EXPECT_EQ(DBFindId(image, 0x0203), 3);
  EXPECT_EQ(DBFindId(image, 0x0302), 0);
}

TEST(Db, TheDirectoryIsPaddedAndCutTo250Bytes) {
  Bytes image = NewDatabase();
  PutDBDirectory(image, std::string(300, 'd'));
  EXPECT_EQ(image.size(), 27221U);
  EXPECT_EQ(DBDirectoryOf(image), std::string(250, 'd'));
  EXPECT_TRUE(DBIsOfDirectory(image, std::string(300, 'd')));
  PutDBDirectory(image, "/m");
  EXPECT_EQ(image, Database({}, "/m"));
  EXPECT_TRUE(DBIsOfDirectory(image, "/m"));
  EXPECT_FALSE(DBIsOfDirectory(image, "/mm"));
}

TEST(Db, AFileOfAnotherLengthIsTakenByItsBeginning) {
  const Bytes good = Database({{"Live", 3}}, "/m");
  EXPECT_EQ(DBImageOf(good + "more"), good);
  EXPECT_EQ(DBImageOf(good.substr(0, 27000)), good.substr(0, 27000) + Zeros(221));
  EXPECT_TRUE(DBIsDatabase(DBImageOf("i40DBArr")));
  EXPECT_FALSE(DBIsDatabase(DBImageOf("i40DBAr")));
  EXPECT_FALSE(DBIsDatabase(""));
}

TEST(DbPurge, AFileStaysOnlyIfItsTenBytesAt32AreThoseAt672) {
  std::string file = "KORG" + std::string(28, 'h') + "ABCDEFGHIJ" + std::string(630, 'x') + "ABCDEFGHIJ" + "rest";
  EXPECT_TRUE(DBPurgeKeeps(file));
  for (std::size_t position = 33; position <= 42; ++position) {
    std::string other = file;
    Set(other, position, '?');
    EXPECT_FALSE(DBPurgeKeeps(other)) << position;
  }
  std::string other = file;
  Set(other, 43, '?');
  EXPECT_TRUE(DBPurgeKeeps(other));
  for (std::size_t position = 1; position <= 4; ++position) {
    std::string header = file;
    Set(header, position, '?');
    EXPECT_FALSE(DBPurgeKeeps(header));
  }
  EXPECT_FALSE(DBPurgeKeeps(""));
  EXPECT_FALSE(DBPurgeKeeps(file.substr(0, 675)));
}

TEST(DbPurge, ASoundArrangementFileWithDifferentNamesGoesOut) {
  std::string file = "KORG" + Hand({0x4D, 0, 3}) + Zeros(10521);
  EXPECT_TRUE(DBPurgeKeeps(file));
  file.replace(32, 16, Field("Bossa", 16));
  EXPECT_FALSE(DBPurgeKeeps(file));
}

TEST(DbPurge, EveryEntryIsAskedOnceAndTheRejectedOnesGo) {
  Bytes image = Database({{"a", 5}, {"b", 3}, {"c", 4}, {"d", 7}, {"e", 6}}, "/m");
  std::vector<std::string> asked;
  const int removed = DBPurgeEntries(image, [&](std::string_view name) {
    asked.emplace_back(name);
    return name == "c" || name == "e";
  });
  EXPECT_EQ(removed, 3);
  EXPECT_EQ(asked, (std::vector<std::string>{"a", "b", "c", "d", "e"}));
  EXPECT_EQ(image, Database({{"c", 4}, {"e", 6}}, "/m"));
}

TEST(DbPurge, AFullTableCanBeEmptied) {
  Bytes image = Full();
  EXPECT_EQ(DBPurgeEntries(image, [](std::string_view) { return false; }), 997);
  EXPECT_EQ(image, NewDatabase());
}

// Random additions and removals against an ordered map kept beside the image.
TEST(Db, RandomAdditionsAndRemovalsKeepTheInvariants) {
  std::mt19937 random(5);
  Bytes image = NewDatabase();
  std::map<std::string, int> model;
  for (int step = 0; step < 3000; ++step) {
    const std::string name = "N" + std::to_string(RandomNumber(random, 0, 60));
    if (RandomNumber(random, 0, 2) != 0) {
      const DBAddition addition = DBAddEntry(image, name);
      if (model.count(name) != 0) {
        ASSERT_EQ(addition.id, model[name]);
        continue;
      }
      int lowest = 3;
      for (bool taken = true; taken; lowest += taken ? 1 : 0) {
        taken = std::any_of(model.begin(), model.end(), [&](const auto& entry) { return entry.second == lowest; });
      }
      ASSERT_EQ(addition.id, lowest);
      model[name] = lowest;
    } else if (model.count(name) != 0) {
      DBRemoveEntry(image, DBFindName(image, name));
      model.erase(name);
    }
    const std::vector<std::pair<std::string, int>> entries(model.begin(), model.end());
    ASSERT_EQ(image, Database(entries, "")) << "step " << step;
  }
}

// The same as one by one: by name, whatever the case, with the lowest ids that are free.
TEST(Db, ManyFilesAreEnteredAsOneByOne) {
  std::mt19937 random(9);
  Bytes image = Database({{"Delta", 5}, {"kappa", 4}}, "/m");
  std::map<std::string, std::pair<std::string, int>> expected = {{"DELTA", {"Delta", 5}}, {"KAPPA", {"kappa", 4}}};
  std::vector<int> ids = {3};
  for (int id = 6; id <= 999; ++id) ids.push_back(id);
  std::size_t next = 0;
  DBAdding adding(image);
  for (int i = 0; i < 400; ++i) {
    std::string name;
    std::string key;
    for (int length = RandomNumber(random, 1, 3); length > 0; --length) {
      const char letter = static_cast<char>('a' + RandomNumber(random, 0, 5));
      key += static_cast<char>(letter - 'a' + 'A');
      name += RandomNumber(random, 0, 1) == 0 ? letter : key.back();
    }
    const DBAddition addition = adding.Add(name);
    const bool known = expected.contains(key);
    EXPECT_EQ(addition.result, known ? kDbKnown : kDbAdded) << name;
    if (!known) expected[key] = {name, ids[next++]};
    EXPECT_EQ(addition.id, expected[key].second) << name;
  }
  int index = 3;
  for (const auto& [key, entry] : expected) {
    EXPECT_EQ(DBEntryName(image, index), entry.first);
    EXPECT_EQ(DBEntryId(image, index), entry.second);
    ++index;
  }
  EXPECT_FALSE(DBEntryUsed(image, index));
}

TEST(Db, DamageInAnyByteIsStood) {
  std::mt19937 random(6);
  const Bytes good = Database({{"a", 3}, {"b", 4}, {"c", 5}}, "/m");
  for (std::size_t position = 1; position <= good.size(); position += position < 200 ? 1 : 37) {
    Bytes image = good;
    Set(image, position, RandomNumber(random, 0, 255));
    EXPECT_LE(DBEntryCount(image), 997);
    DBLookup(image, "/m", "c");
    DBAddEntry(image, "bb");
    DBPurgeEntries(image, [](std::string_view name) { return name == "b"; });
    EXPECT_EQ(image.size(), 27221U);
  }
}

TEST(Db, RandomBytesOfAnyLengthAreStood) {
  std::mt19937 random(8);
  for (int round = 0; round < 60; ++round) {
    Bytes image = RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 0, 30000)));
    const std::size_t before = image.size();
    EXPECT_LE(DBEntryCount(image), 997);
    DBAddEntry(image, "name");
    DBRemoveEntry(image, RandomNumber(random, 0, 1005));
    EXPECT_LE(DBPurgeEntries(image, [](std::string_view) { return false; }), 998);
    EXPECT_EQ(DBEntryCount(image), 0);
    EXPECT_EQ(image.size(), before);
  }
}

}  // namespace
}  // namespace zentaline
