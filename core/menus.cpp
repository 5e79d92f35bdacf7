#include "core/menus.h"

#include <array>

namespace zentaline {

namespace {

using enum MenuId;

constexpr MenuId kBar = kCount;
constexpr bool kLine = true;

// clang-format off
constexpr std::array<MenuRow, kMenuCount> kRows = {{
    {mnuFile, kBar, "mnuFile", 2, "", false},
    {mnuNuovoArr, mnuFile, "mnuNuovoArr", 86, "", false},
    {mnuNuovoSty, mnuFile, "mnuNuovoSty", 121, "", false},
    {mnuNuovoPrg, mnuFile, "mnuNuovoPrg", 87, "", false},
    {mnuApriArr, mnuFile, "mnuApriArr", 6, "Ctrl+O", kLine},
    {mnuApriSty, mnuFile, "mnuApriSty", 143, "", false},
    {mnuApriPrg, mnuFile, "mnuApriPrg", 85, "", false},
    {mnuApriGbl, mnuFile, "mnuApriGbl", 144, "", false},
    {mnuApriBSQ, mnuFile, "mnuApriBSQ", 145, "", false},
    {mnuImporta, mnuFile, "mnuImporta", 125, "", kLine},
    {mnuImportaArri30, mnuImporta, "mnuImportaArri30", 0, "", false},
    {mnuImportaStyi30, mnuImporta, "mnuImportaStyi30", 0, "", false},
    {mnuImportaPrgi30, mnuImporta, "mnuImportaPrgi30", 0, "", false},
    {mnuImportaArri5, mnuImporta, "mnuImportaArri5", 0, "", false},
    {mnuImportaPcgi5, mnuImporta, "mnuImportaPcgi5", 0, "", false},
    {mnuChiudi, mnuFile, "mnuChiudi", 8, "Ctrl+W", kLine},
    {mnuSalva, mnuFile, "mnuSalva", 54, "Ctrl+S", false},
    {mnuSalvaAs, mnuFile, "mnuSalvaAs", 75, "Ctrl+Shift+S", false},
    {mnuStampa, mnuFile, "mnuStampa", 147, "", kLine},
    {mnuStampaLista, mnuStampa, "mnuStampaLista", 148, "", false},
    {mnuStampaTabella, mnuStampa, "mnuStampaTabella", 149, "", false},
    {mnuExit, mnuFile, "mnuExit", 7, "Ctrl+Q", kLine},
    {mnuModifica, kBar, "mnuModifica", 71, "", false},
    {mnuAnnulla, mnuModifica, "mnuAnnulla", 0, "Ctrl+Z", false},
    {mnuRipeti, mnuModifica, "mnuRipeti", 0, "Ctrl+Shift+Z", false},
    {mnuIngrandisci, mnuModifica, "mnuIngrandisci", 123, "", kLine},
    {mnuTaglia, mnuModifica, "mnuTaglia", 73, "Ctrl+X", kLine},
    {mnuCopia, mnuModifica, "mnuCopia", 72, "Ctrl+C", false},
    {mnuIncolla, mnuModifica, "mnuIncolla", 74, "Ctrl+V", false},
    {mnuLoadAll, mnuModifica, "mnuLoadAll", 0, "", kLine},
    {mnuLoadArr, mnuModifica, "mnuLoadArr", 102, "", false},
    {mnuLoadSty, mnuModifica, "mnuLoadSty", 68, "", false},
    {mnuShowSty, mnuModifica, "mnuShowSty", 0, "", false},
    {mnuLoadPrg, mnuModifica, "mnuLoadPrg", 70, "", false},
    {mnuShowPrg, mnuModifica, "mnuShowPrg", 69, "", false},
    {mnuEdit, mnuModifica, "mnuEdit", 71, "", kLine},
    {mnuEditPerf, mnuModifica, "mnuEditPerf", 0, "", false},
    {mnui40DBArr, mnuModifica, "mnui40DBArr", 0, "", false},
    {mnuArrPlay, mnuModifica, "mnuArrPlay", 0, "", kLine},
    {mnuSongPlay, mnuModifica, "mnuSongPlay", 0, "", false},
    {mnuProgram, mnuModifica, "mnuProgram", 0, "", false},
    {mnuBSq, mnuModifica, "mnuBSq", 0, "", false},
    {mnuCancella, mnuModifica, "mnuCancella", 44, "", kLine},
    {mnuDBArrApri, mnuModifica, "mnuDBArrApri", 51, "", false},
    {mnuAddAll, mnuModifica, "mnuAddAll", 0, "", false},
    {mnuWFindID, mnuModifica, "mnuWFindID", 38, "", kLine},
    {mnuAggArr, mnuModifica, "mnuAggArr", 39, "", false},
    {mnuView, kBar, "mnuView", 3, "", false},
    {mnuArrA, mnuView, "mnuArrA", 0, "", false},
    {mnuArrB, mnuView, "mnuArrB", 0, "", false},
    {mnuArrU, mnuView, "mnuArrU", 0, "", false},
    {mnuStyA, mnuView, "mnuStyA", 0, "", kLine},
    {mnuStyB, mnuView, "mnuStyB", 0, "", false},
    {mnuWProgA, mnuView, "mnuWProgA", 0, "", kLine},
    {mnuWProgB, mnuView, "mnuWProgB", 0, "", false},
    {mnuWProgC, mnuView, "mnuWProgC", 0, "", false},
    {mnuWProgD, mnuView, "mnuWProgD", 0, "", false},
    {mnuWProgE, mnuView, "mnuWProgE", 0, "", false},
    {mnuPrgU, mnuView, "mnuPrgU", 0, "", false},
    {mnuDrum, mnuView, "mnuDrum", 0, "", false},
    {mnuPerc, mnuView, "mnuPerc", 0, "", false},
    {mnuMultisample, mnuView, "mnuMultisample", 0, "", kLine},
    {mnuGlobalParam, mnuView, "mnuGlobalParam", 0, "", false},
    {mnuMsgEx, mnuView, "mnuMsgEx", 108, "", false},
    {mnuWEditDBArr, mnuView, "mnuWEditDBArr", 0, "", false},
    {mnuTastiera, mnuView, "mnuTastiera", 106, "", false},
    {mnuPreferenze, kBar, "mnuPreferenze", 62, "", false},
    {mnuLingua, mnuPreferenze, "mnuLingua", 63, "", false},
    {mnuItaliano, mnuLingua, "mnuItaliano", 64, "", false},
    {mnuInglese, mnuLingua, "mnuInglese", 65, "", false},
    {mnuMIDIOut, mnuPreferenze, "mnuMIDIOut", 151, "", kLine},
    {mnuMIDIIn, mnuPreferenze, "mnuMIDIIn", 152, "", false},
    {mnuMIDIThru, mnuPreferenze, "mnuMIDIThru", 0, "", false},
    {mnuMIDI, mnuPreferenze, "mnuMIDI", 138, "", false},
    {mnuCaricaArr, mnuPreferenze, "mnuCaricaArr", 102, "", kLine},
    {mnuCaricaSty, mnuPreferenze, "mnuCaricaSty", 68, "", false},
    {mnuCaricaStyNuovoArr, mnuPreferenze, "mnuCaricaStyNuovoArr", 107, "", false},
    {mnuCaricaPrg, mnuPreferenze, "mnuCaricaPrg", 70, "", false},
    {mnuAutoPrgSel, mnuPreferenze, "mnuAutoPrgSel", 141, "", kLine},
    {mnuRdOnly, mnuPreferenze, "mnuRdOnly", 122, "", false},
    {mnuVisBarraStato, mnuPreferenze, "mnuVisBarraStato", 103, "", false},
    {mnuAddi40DBArr, mnuPreferenze, "mnuAddi40DBArr", 95, "", false},
    {mnuWindow, kBar, "mnuWindow", 4, "", false},
    {mnuBloccoNote, mnuWindow, "mnuBloccoNote", 128, "", false},
    {mnuWCascade, mnuWindow, "mnuWCascade", 9, "", kLine},
    {mnuWTile, mnuWindow, "mnuWTile", 0, "", false},
    {mnuHelp, kBar, "mnuHelp", 0, "", false},
    {mnuGuida, mnuHelp, "mnuGuida", 47, "F1", false},
    {mnuInfo, mnuHelp, "mnuInfo", 5, "", kLine},
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
