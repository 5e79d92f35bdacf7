#include "core/menus.h"

#include <array>

namespace zentaline {

namespace {

using enum MenuId;

constexpr MenuId kBar = kCount;
constexpr bool kLine = true;
constexpr bool kWaits = true;

// clang-format off
constexpr std::array<MenuRow, kMenuCount> kRows = {{
    {mnuFile, kBar, "mnuFile", 2, "", false, false},
    {mnuNuovoArr, mnuFile, "mnuNuovoArr", 86, "", false, false},
    {mnuNuovoSty, mnuFile, "mnuNuovoSty", 121, "", false, false},
    {mnuNuovoPrg, mnuFile, "mnuNuovoPrg", 87, "", false, false},
    {mnuApriArr, mnuFile, "mnuApriArr", 6, "Ctrl+O", kLine, false},
    {mnuApriSty, mnuFile, "mnuApriSty", 143, "", false, false},
    {mnuApriPrg, mnuFile, "mnuApriPrg", 85, "", false, false},
    {mnuApriGbl, mnuFile, "mnuApriGbl", 144, "", false, false},
    {mnuApriBSQ, mnuFile, "mnuApriBSQ", 145, "", false, false},
    {mnuImporta, mnuFile, "mnuImporta", 125, "", kLine, false},
    {mnuImportaArri30, mnuImporta, "mnuImportaArri30", 0, "", false, false},
    {mnuImportaStyi30, mnuImporta, "mnuImportaStyi30", 0, "", false, false},
    {mnuImportaPrgi30, mnuImporta, "mnuImportaPrgi30", 0, "", false, false},
    {mnuImportaArri5, mnuImporta, "mnuImportaArri5", 0, "", false, false},
    {mnuImportaPcgi5, mnuImporta, "mnuImportaPcgi5", 0, "", false, false},
    {mnuChiudi, mnuFile, "mnuChiudi", 8, "Ctrl+W", kLine, false},
    {mnuSalva, mnuFile, "mnuSalva", 54, "Ctrl+S", false, false},
    {mnuSalvaAs, mnuFile, "mnuSalvaAs", 75, "Ctrl+Shift+S", false, false},
    {mnuStampa, mnuFile, "mnuStampa", 147, "", kLine, false},
    {mnuStampaLista, mnuStampa, "mnuStampaLista", 148, "", false, false},
    {mnuStampaTabella, mnuStampa, "mnuStampaTabella", 149, "", false, false},
    {mnuExit, mnuFile, "mnuExit", 7, "Ctrl+Q", kLine, false},
    {mnuModifica, kBar, "mnuModifica", 71, "", false, false},
    {mnuIngrandisci, mnuModifica, "mnuIngrandisci", 123, "", false, false},
    {mnuTaglia, mnuModifica, "mnuTaglia", 73, "Ctrl+X", kLine, false},
    {mnuCopia, mnuModifica, "mnuCopia", 72, "Ctrl+C", false, false},
    {mnuIncolla, mnuModifica, "mnuIncolla", 74, "Ctrl+V", false, false},
    {mnuLoadAll, mnuModifica, "mnuLoadAll", 0, "", kLine, kWaits},
    {mnuLoadArr, mnuModifica, "mnuLoadArr", 102, "", false, false},
    {mnuLoadSty, mnuModifica, "mnuLoadSty", 68, "", false, false},
    {mnuShowSty, mnuModifica, "mnuShowSty", 0, "", false, false},
    {mnuLoadPrg, mnuModifica, "mnuLoadPrg", 70, "", false, false},
    {mnuShowPrg, mnuModifica, "mnuShowPrg", 69, "", false, false},
    {mnuEdit, mnuModifica, "mnuEdit", 71, "", kLine, false},
    {mnuEditPerf, mnuModifica, "mnuEditPerf", 0, "", false, false},
    {mnui40DBArr, mnuModifica, "mnui40DBArr", 0, "", false, false},
    {mnuArrPlay, mnuModifica, "mnuArrPlay", 0, "", kLine, false},
    {mnuSongPlay, mnuModifica, "mnuSongPlay", 0, "", false, false},
    {mnuProgram, mnuModifica, "mnuProgram", 0, "", false, false},
    {mnuBSq, mnuModifica, "mnuBSq", 0, "", false, false},
    {mnuCancella, mnuModifica, "mnuCancella", 44, "", kLine, false},
    {mnuDBArrApri, mnuModifica, "mnuDBArrApri", 51, "", false, false},
    {mnuAddAll, mnuModifica, "mnuAddAll", 0, "", false, false},
    {mnuWFindID, mnuModifica, "mnuWFindID", 38, "", kLine, false},
    {mnuAggArr, mnuModifica, "mnuAggArr", 39, "", false, false},
    {mnuView, kBar, "mnuView", 3, "", false, false},
    {mnuArrA, mnuView, "mnuArrA", 0, "", false, false},
    {mnuArrB, mnuView, "mnuArrB", 0, "", false, false},
    {mnuArrU, mnuView, "mnuArrU", 0, "", false, false},
    {mnuStyA, mnuView, "mnuStyA", 0, "", kLine, false},
    {mnuStyB, mnuView, "mnuStyB", 0, "", false, false},
    {mnuWProgA, mnuView, "mnuWProgA", 0, "", kLine, false},
    {mnuWProgB, mnuView, "mnuWProgB", 0, "", false, false},
    {mnuWProgC, mnuView, "mnuWProgC", 0, "", false, false},
    {mnuWProgD, mnuView, "mnuWProgD", 0, "", false, false},
    {mnuWProgE, mnuView, "mnuWProgE", 0, "", false, false},
    {mnuPrgU, mnuView, "mnuPrgU", 0, "", false, false},
    {mnuDrum, mnuView, "mnuDrum", 0, "", false, false},
    {mnuPerc, mnuView, "mnuPerc", 0, "", false, false},
    {mnuMultisample, mnuView, "mnuMultisample", 0, "", kLine, false},
    {mnuGlobalParam, mnuView, "mnuGlobalParam", 0, "", false, false},
    {mnuMsgEx, mnuView, "mnuMsgEx", 108, "", false, false},
    {mnuWEditDBArr, mnuView, "mnuWEditDBArr", 0, "", false, false},
    {mnuTastiera, mnuView, "mnuTastiera", 106, "", false, kWaits},
    {mnuPreferenze, kBar, "mnuPreferenze", 62, "", false, false},
    {mnuLingua, mnuPreferenze, "mnuLingua", 63, "", false, false},
    {mnuItaliano, mnuLingua, "mnuItaliano", 64, "", false, false},
    {mnuInglese, mnuLingua, "mnuInglese", 65, "", false, false},
    {mnuMIDIOut, mnuPreferenze, "mnuMIDIOut", 151, "", kLine, false},
    {mnuMIDIIn, mnuPreferenze, "mnuMIDIIn", 152, "", false, false},
    {mnuMIDIThru, mnuPreferenze, "mnuMIDIThru", 0, "", false, false},
    {mnuMIDI, mnuPreferenze, "mnuMIDI", 138, "", false, false},
    {mnuCaricaArr, mnuPreferenze, "mnuCaricaArr", 102, "", kLine, false},
    {mnuCaricaSty, mnuPreferenze, "mnuCaricaSty", 68, "", false, false},
    {mnuCaricaStyNuovoArr, mnuPreferenze, "mnuCaricaStyNuovoArr", 107, "", false, false},
    {mnuCaricaPrg, mnuPreferenze, "mnuCaricaPrg", 70, "", false, false},
    {mnuAutoPrgSel, mnuPreferenze, "mnuAutoPrgSel", 141, "", kLine, false},
    {mnuRdOnly, mnuPreferenze, "mnuRdOnly", 122, "", false, false},
    {mnuVisBarraStato, mnuPreferenze, "mnuVisBarraStato", 103, "", false, false},
    {mnuAddi40DBArr, mnuPreferenze, "mnuAddi40DBArr", 95, "", false, false},
    {mnuWindow, kBar, "mnuWindow", 4, "", false, false},
    {mnuBloccoNote, mnuWindow, "mnuBloccoNote", 128, "", false, false},
    {mnuWCascade, mnuWindow, "mnuWCascade", 9, "", kLine, false},
    {mnuHelp, kBar, "mnuHelp", 0, "", false, false},
    {mnuGuida, mnuHelp, "mnuGuida", 47, "F1", false, false},
    {mnuInfo, mnuHelp, "mnuInfo", 5, "", kLine, false},
}};
// clang-format on

constexpr bool InOrder() {
  for (int i = 0; i < kMenuCount; ++i) {
    if (static_cast<int>(kRows[static_cast<std::size_t>(i)].id) != i) return false;
  }
  return true;
}
static_assert(InOrder());

}  // namespace

std::span<const MenuRow> MenuRows() {
  return kRows;
}

}  // namespace zentaline
