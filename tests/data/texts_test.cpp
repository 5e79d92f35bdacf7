#include "data/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/data/utf8.h"

namespace zentaline {
namespace {

TEST(Texts, HoldsExactlyTheIdsOfTheTable) {
  std::set<int> expected;
  for (int id = 1; id <= 154; ++id) expected.insert(id);
  for (int id : {31, 32, 33, 34, 35, 36, 55, 56, 57, 58, 59, 60, 61, 132, 133, 134, 135, 136, 137, 139, 140, 142}) {
    expected.erase(id);
  }
  std::set<int> found;
  for (const TextRow& row : AllTexts()) found.insert(row.id);
  EXPECT_EQ(found, expected);
  EXPECT_EQ(AllTexts().size(), 132u);
}

TEST(Texts, EveryIdSpeaksBothLanguagesInValidUtf8) {
  for (const TextRow& row : AllTexts()) {
    EXPECT_FALSE(TextOf(row.id).empty()) << row.id;
    EXPECT_FALSE(TextOf(row.id + 200).empty()) << row.id;
    EXPECT_TRUE(IsUtf8(TextOf(row.id))) << row.id;
    EXPECT_TRUE(IsUtf8(TextOf(row.id + 200))) << row.id;
    EXPECT_TRUE(HasText(row.id) && HasText(row.id + 200)) << row.id;
  }
}

TEST(Texts, IdsOutsideTheTableGiveNothing) {
  for (int id : {-200, -1, 0, 31, 55, 132, 142, 155, 199, 200, 231, 342, 355, 400, 401, 100000}) {
    EXPECT_EQ(TextOf(id), "") << id;
    EXPECT_FALSE(HasText(id)) << id;
  }
}

TEST(Texts, KeepsItalianAndEnglishApart) {
  EXPECT_EQ(TextOf(1), "_");
  EXPECT_EQ(TextOf(201), "_");
  EXPECT_EQ(TextOf(7), "&Esci");
  EXPECT_EQ(TextOf(207), "E&xit");
  EXPECT_EQ(TextOf(45), "ATTENDERE");
  EXPECT_EQ(TextOf(245), "WAIT");
  EXPECT_EQ(TextOf(86), "&Nuovo Arr");
  EXPECT_EQ(TextOf(286), "&New Arr");
  EXPECT_EQ(TextOf(141), "Selezione Automatica Program");
  EXPECT_EQ(TextOf(341), "Auto Program Selection");
  EXPECT_EQ(TextOf(154), "Dispositivo MIDI di ingresso già in uso");
  EXPECT_EQ(TextOf(354), "Input MIDI Device already in use");
}

TEST(Texts, KeepsBlanksAtTheEnd) {
  EXPECT_EQ(TextOf(217), "Opening ");
  EXPECT_EQ(TextOf(17), "Apertura di _");
  EXPECT_EQ(TextOf(30), "Informazioni su ");
  EXPECT_EQ(TextOf(230), "About ");
  EXPECT_EQ(TextOf(105), "Lettura di ");
  EXPECT_EQ(TextOf(305), "Reading ");
  EXPECT_EQ(TextOf(111), "Apertura di ");
  EXPECT_EQ(TextOf(311), "Opening ");
  EXPECT_EQ(TextOf(115), "Salva ");
  EXPECT_EQ(TextOf(315), "Saving ");
  EXPECT_EQ(TextOf(146), "Importazione di ");
  EXPECT_EQ(TextOf(346), "Importing ");
}

TEST(Texts, KeepsTheOddSpellings) {
  EXPECT_EQ(TextOf(240), "File i40DBArrnot found");
  EXPECT_EQ(TextOf(241), "File i40DBArrdata error");
  EXPECT_EQ(TextOf(243), "File i40DBArrempty");
  EXPECT_EQ(TextOf(250), "File i40Pcg not found");
  EXPECT_EQ(TextOf(50), "File i40Prg assente");
  EXPECT_EQ(TextOf(276), "generic error");
  EXPECT_EQ(TextOf(297), "Choose the directory of the opened file as working directory of i40DBArr?");
  EXPECT_EQ(TextOf(97), "Scegliere la directory del file aperto come directory di lavoro di i40DBArr ?");
  EXPECT_EQ(TextOf(319), "The lenght of a 4 Styles group must be less than 65496 bytes");
  EXPECT_EQ(TextOf(329), "Zentaline Console/File Manager for KORG i40M, iS35, iS40, iS50 (Arranger/Keyboard)");
  EXPECT_EQ(TextOf(129), "Zentaline Console/File Manager per KORG i40M, iS35, iS40/50 (Arranger/Tastiera)");
  EXPECT_EQ(TextOf(331), "Version 4.0, 2004 (release 11th March 2004)");
  EXPECT_EQ(TextOf(120), "Incolla Style/s");
}

TEST(Texts, WritesAccentsInUtf8) {
  EXPECT_EQ(TextOf(52), "Il file \xC3\xA8 stato modificato");
  EXPECT_EQ(TextOf(66), "Il cambio avr\xC3\xA0 effetto alla prossima esecuzione del programma");
  EXPECT_EQ(TextOf(25), "Unit\xC3\xA0 non disponibile");
  EXPECT_EQ(TextOf(82), "Non sono consentiti pi\xC3\xB9 di 4 stili per file");
}

TEST(Texts, HasAtMostOnePlaceForAName) {
  for (const TextRow& row : AllTexts()) {
    EXPECT_LE(std::count(row.italian.begin(), row.italian.end(), '_'), 1) << row.id;
    EXPECT_LE(std::count(row.english.begin(), row.english.end(), '_'), 1) << row.id;
  }
}

}  // namespace
}  // namespace zentaline
