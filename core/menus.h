// The menu tree of the main window, as a table.
#pragma once

#include <span>

namespace zentaline {

// The entries in the order of the menus. Arrays (the devices and the recent files) hang below their entry and are made
// apart.
enum class MenuId {
  mnuFile,
  mnuNuovoArr,
  mnuNuovoSty,
  mnuNuovoPrg,
  mnuApriArr,
  mnuApriSty,
  mnuApriPrg,
  mnuApriGbl,
  mnuApriBSQ,
  mnuImporta,
  mnuImportaArri30,
  mnuImportaStyi30,
  mnuImportaPrgi30,
  mnuImportaArri5,
  mnuImportaPcgi5,
  mnuChiudi,
  mnuSalva,
  mnuSalvaAs,
  mnuStampa,
  mnuStampaLista,
  mnuStampaTabella,
  mnuExit,
  mnuModifica,
  mnuAnnulla,
  mnuRipeti,
  mnuIngrandisci,
  mnuTaglia,
  mnuCopia,
  mnuIncolla,
  mnuLoadAll,
  mnuLoadArr,
  mnuLoadSty,
  mnuShowSty,
  mnuLoadPrg,
  mnuShowPrg,
  mnuEdit,
  mnuEditPerf,
  mnui40DBArr,
  mnuArrPlay,
  mnuSongPlay,
  mnuProgram,
  mnuBSq,
  mnuCancella,
  mnuDBArrApri,
  mnuAddAll,
  mnuWFindID,
  mnuAggArr,
  mnuView,
  mnuArrA,
  mnuArrB,
  mnuArrU,
  mnuStyA,
  mnuStyB,
  mnuWProgA,
  mnuWProgB,
  mnuWProgC,
  mnuWProgD,
  mnuWProgE,
  mnuPrgU,
  mnuDrum,
  mnuPerc,
  mnuMultisample,
  mnuGlobalParam,
  mnuMsgEx,
  mnuWEditDBArr,
  mnuTastiera,
  mnuPreferenze,
  mnuLingua,
  mnuItaliano,
  mnuInglese,
  mnuMIDIOut,
  mnuMIDIIn,
  mnuMIDIThru,
  mnuMIDI,
  mnuCaricaArr,
  mnuCaricaSty,
  mnuCaricaStyNuovoArr,
  mnuCaricaPrg,
  mnuAutoPrgSel,
  mnuRdOnly,
  mnuVisBarraStato,
  mnuAddi40DBArr,
  mnuWindow,
  mnuBloccoNote,
  mnuWCascade,
  mnuWTile,
  mnuHelp,
  mnuGuida,
  mnuInfo,
  kCount,
};

inline constexpr int kMenuCount = static_cast<int>(MenuId::kCount);

struct MenuRow {
  MenuId id;
  MenuId parent;  // kCount: it stands in the menu bar
  const char* name;
  int text;  // Italian id of its caption; 0: the caption stands among those that the text table doesn't hold
  const char* shortcut;
  bool separator_before;
};

// One row for each entry, in the order of MenuId.
std::span<const MenuRow> MenuRows();

}  // namespace zentaline
