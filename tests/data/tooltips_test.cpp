#include "data/tooltips.h"

#include <gtest/gtest.h>

#include <string_view>

#include "data/captions.h"
#include "tests/data/utf8.h"

namespace zentaline {
namespace {

constexpr std::string_view kMainControls[] = {
    "LabelNomeAppl",    "Label1",           "LabelMode",        "LabelArr",
    "LabelSty",         "LabelPrg",         "mnuFile",          "mnuNuovoArr",
    "mnuNuovoSty",      "mnuNuovoPrg",      "mnuApriArr",       "mnuApriSty",
    "mnuApriPrg",       "mnuApriGbl",       "mnuApriBSQ",       "mnuImporta",
    "mnuImportaArri30", "mnuImportaStyi30", "mnuImportaPrgi30", "mnuImportaArri5",
    "mnuImportaPcgi5",  "mnuChiudi",        "mnuSalva",         "mnuSalvaAs",
    "mnuStampa",        "mnuStampaLista",   "mnuStampaTabella", "mnuExit",
    "mnuRecentFile",    "mnuModifica",      "mnuIngrandisci",   "mnuTaglia",
    "mnuCopia",         "mnuIncolla",       "mnuLoadAll",       "mnuLoadArr",
    "mnuLoadSty",       "mnuShowSty",       "mnuLoadPrg",       "mnuShowPrg",
    "mnuEdit",          "mnuEditPerf",      "mnui40DBArr",      "mnuArrPlay",
    "mnuSongPlay",      "mnuProgram",       "mnuBSq",           "mnuCancella",
    "mnuDBArrApri",     "mnuAddAll",        "mnuWFindID",       "mnuAggArr",
    "mnuView",          "mnuArrA",          "mnuArrB",          "mnuArrU",
    "mnuStyA",          "mnuStyB",          "mnuWProgA",        "mnuWProgB",
    "mnuWProgC",        "mnuWProgD",        "mnuWProgE",        "mnuPrgU",
    "mnuDrum",          "mnuPerc",          "mnuMultisample",   "mnuGlobalParam",
    "mnuMsgEx",         "mnuWEditDBArr",    "mnuTastiera",      "mnuPreferenze",
    "mnuLingua",        "mnuItaliano",      "mnuInglese",       "mnuMIDIOut",
    "mnuDevMIDIOut",    "mnuMIDIIn",        "mnuDevMIDIIn",     "mnuMIDIThru",
    "mnuMIDI",          "mnuCaricaArr",     "mnuCaricaSty",     "mnuCaricaStyNuovoArr",
    "mnuCaricaPrg",     "mnuAutoPrgSel",    "mnuRdOnly",        "mnuVisBarraStato",
    "mnuAddi40DBArr",   "mnuWindow",        "mnuBloccoNote",    "mnuWCascade",
    "mnuHelp",          "mnuGuida",         "mnuInfo"};

constexpr std::string_view kArrControls[] = {"List1",       "Combo1",      "Text1",        "Text2",       "CommLoadArr",
                                             "CommLoadSty", "CommShowSty", "CommLoadPrg",  "CommShowPrg", "CommEdit",
                                             "CommAdd",     "CommArrPlay", "CommSongPlay", "CommClose"};

void ExpectTips(std::string_view form, std::string_view control) {
  const std::string_view italian = ToolTip(form, control, 1);
  const std::string_view english = ToolTip(form, control, 2);
  EXPECT_FALSE(italian.empty()) << form << "." << control;
  EXPECT_FALSE(english.empty()) << form << "." << control;
  EXPECT_NE(italian, english) << form << "." << control;
  EXPECT_TRUE(IsUtf8(italian) && IsUtf8(english)) << form << "." << control;
}

TEST(ToolTips, EveryMenuEntryAndStatusLabelTellsWhatItDoesInBothLanguages) {
  for (std::string_view control : kMainControls) ExpectTips("frmMain", control);
}

TEST(ToolTips, EveryControlOfTheArrangementWindowTellsWhatItDoes) {
  for (std::string_view control : kArrControls) ExpectTips("frmArrU", control);
}

TEST(ToolTips, EveryControlOfTheBankTheNewFileTheDatabaseAndTheSearchTellsWhatItDoes) {
  for (std::string_view control : {"List1", "Combo1", "Text1", "Label1", "CommArrPlay", "CommSongPlay", "CommClose"}) {
    ExpectTips("frmArrAB", control);
  }
  for (std::string_view control :
       {"List1", "Combo1", "Label1", "CommLoadArr", "CommLoadSty", "CommArrPlay", "CommClose"}) {
    ExpectTips("frmArrNew", control);
  }
  for (std::string_view control :
       {"List1", "Label1", "Label2", "Label3", "Label4", "CommDelete", "CommApri", "CommAddAll", "CommClose"}) {
    ExpectTips("frmEditDBArr", control);
  }
  for (std::string_view control : {"Label1", "Text1", "CommOK"}) ExpectTips("frmFindID", control);
}

TEST(ToolTips, EveryControlOfTheProgramWindowsTellsWhatItDoes) {
  for (std::string_view control : {"List1", "Label1", "Combo1", "CommLoad", "CommProgram", "CommEdit", "CommClose"}) {
    ExpectTips("frmPrgUN", control);
  }
  for (std::string_view control :
       {"CommDown(0)", "PerfLab(0)", "PerfPicture(7)", "CommUp(7)", "CommReset(7)", "CommResetAll"}) {
    ExpectTips("frmEditPerf", control);
  }
  for (std::string_view control : {"SSTab1", "List1(0)", "List1(4)"}) ExpectTips("frmMultisample", control);
  for (int row = 0; row < 8; ++row) ExpectTips("frmEditPerf", "PerfLab1(" + std::to_string(row) + ")");
  for (std::string_view form : {"frmPcgAE", "frmDrum"}) {
    for (std::string_view control : {"List1", "Label1", "Combo1", "CommClose"}) ExpectTips(form, control);
  }
}

TEST(ToolTips, SmallFormsHaveTipsToo) {
  ExpectTips("frmLingua", "Option1(0)");
  ExpectTips("frmLingua", "Option1(1)");
  ExpectTips("frmLingua", "CommOK");
  ExpectTips("frmAbout", "cmdOK");
  ExpectTips("frmAvviso1", "CommSI");
  ExpectTips("frmAvviso1", "CommNO");
  ExpectTips("frmAvviso1", "CommAnnulla");
  ExpectTips("frmAvviso2", "CommClose");
}

TEST(ToolTips, AnElementOfAControlArrayFindsTheTipOfTheArray) {
  EXPECT_EQ(ToolTip("frmMain", "mnuRecentFile(7)", 2), ToolTip("frmMain", "mnuRecentFile", 2));
  EXPECT_NE(ToolTip("frmLingua", "Option1(0)", 2), ToolTip("frmLingua", "Option1(1)", 2));
}

TEST(ToolTips, UnknownControlsHaveNone) {
  EXPECT_EQ(ToolTip("frmMain", "CommLoadArr", 2), "");
  EXPECT_EQ(ToolTip("frmNone", "List1", 1), "");
  EXPECT_EQ(ToolTip("", "", 1), "");
}

TEST(Captions, SpeakBothLanguagesWhereTheyDiffer) {
  EXPECT_EQ(Caption("frmAvviso1", "CommSI", 1), "&S\xC3\xAC");
  EXPECT_EQ(Caption("frmAvviso1", "CommSI", 2), "&Yes");
  EXPECT_EQ(Caption("frmMain", "mnuImportaArri5", 2), "arr (old i-series)");
  EXPECT_EQ(Caption("frmMain", "mnuArrA", 1), "Arr A");
  EXPECT_EQ(Caption("frmMain", "mnuFile", 1), "");
}

}  // namespace
}  // namespace zentaline
