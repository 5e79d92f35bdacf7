#include <gtest/gtest.h>

#include <filesystem>

#include "core/window_image.h"
#include "tests/support/config.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

using enum MenuId;

class MainWindowTest : public ::testing::Test {
 protected:
  ScratchFolder folder;
  ConfigFile config = ConfigFile::English();

  // A run on the configuration as it stands.
  std::unique_ptr<TestProgram> Run() {
    folder.Put("Zentaline.ini", config.bytes);
    return RunAgain();
  }
  std::unique_ptr<TestProgram> RunAgain() {
    auto program = std::make_unique<TestProgram>(folder);
    EXPECT_TRUE(program->Start(0));
    return program;
  }
  ConfigFile Stored() const {
    ConfigFile file;
    file.bytes = folder.Get("Zentaline.ini");
    return file;
  }
  std::string Song(const std::string& name) {
    folder.Put(name + ".arr", ArrFile());
    return folder.Path(name);
  }
};

struct EntryCaption {
  MenuId entry;
  const char* english;
  const char* italian;
};

// Those whose text stands in the table of texts.
constexpr EntryCaption kCaptions[] = {
    {mnuFile, "&File", "&File"},
    {mnuNuovoArr, "&New Arr", "&Nuovo Arr"},
    {mnuNuovoSty, "New Style", "Nuovo Style"},
    {mnuNuovoPrg, "New Prg/Pgg", "Nuovo Prg/Pgg"},
    {mnuApriArr, "&Open Arr", "&Apri Arr"},
    {mnuApriSty, "Open Sty", "Apri Sty"},
    {mnuApriPrg, "Open Prg/Pgg", "Apri Prg/Pgg"},
    {mnuApriGbl, "Open Gbl", "Apri Gbl"},
    {mnuApriBSQ, "Open Bsq", "Apri Bsq"},
    {mnuImporta, "Import", "Importa"},
    {mnuChiudi, "&Close", "&Chiudi"},
    {mnuSalva, "&Save", "&Salva"},
    {mnuSalvaAs, "Save file as", "Salva file come"},
    {mnuStampa, "Print", "Stampa"},
    {mnuStampaLista, "List", "Lista"},
    {mnuStampaTabella, "Table", "Tabella"},
    {mnuExit, "E&xit", "&Esci"},
    {mnuModifica, "&Edit", "&Modifica"},
    {mnuIngrandisci, "Maximize", "Ingrandisci"},
    {mnuTaglia, "Cut", "Taglia"},
    {mnuCopia, "Copy", "Copia"},
    {mnuIncolla, "Paste", "Incolla"},
    {mnuCancella, "&Delete", "&Cancella"},
    {mnuDBArrApri, "&Open", "&Apri"},
    {mnuWFindID, "Find Arra&ngement (ID)", "Cerca Arra&ngement (ID)"},
    {mnuAggArr, "&Update i40DBArr", "A&ggiornamento i40DBArr"},
    {mnuView, "&View", "&Visualizza"},
    {mnuPreferenze, "&Preferences", "&Preferenze"},
    {mnuLingua, "&Language", "&Lingua"},
    {mnuItaliano, "Italian", "Italiano"},
    {mnuInglese, "English", "Inglese"},
    {mnuMIDIOut, "MIDI out device", "Dispositivo MIDI di uscita"},
    {mnuMIDIIn, "MIDI in device", "Dispositivo MIDI di ingresso"},
    {mnuMIDI, "MIDI channels", "Canali MIDI"},
    {mnuCaricaArr, "Load Arrangement", "Carica Arrangement"},
    {mnuCaricaSty, "Load Style", "Carica Style"},
    {mnuCaricaStyNuovoArr, "Load Style (New Arr)", "Carica Style (Nuovo Arr)"},
    {mnuCaricaPrg, "Load Program", "Carica Program"},
    {mnuAutoPrgSel, "Auto Program Selection", "Selezione Automatica Program"},
    {mnuRdOnly, "Read Only", "Sola Lettura"},
    {mnuVisBarraStato, "Show Status Bar", "Visualizza Barra di Stato"},
    {mnuAddi40DBArr, "Update Automatically i40DBArr", "Aggiorna Automaticamente i40DBArr"},
    {mnuWindow, "&Window", "Fi&nestra"},
    {mnuBloccoNote, "Notebook", "Blocco Note"},
    {mnuWCascade, "&Cascade", "&Sovrapponi"},
    {mnuGuida, "User's Guide", "Guida Utente"},
    {mnuInfo, "&About", "Informazioni"},
};

TEST_F(MainWindowTest, EntriesHaveTheirTextsInBothLanguages) {
  for (const int language : {1, 2}) {
    config.Byte(1, 25, language);
    const auto program = Run();
    for (const EntryCaption& row : kCaptions) {
      const ui::MenuEntry& entry = program->app.main->Menu(row.entry);
      EXPECT_EQ(entry.caption(), language == 1 ? row.italian : row.english) << entry.name();
    }
  }
}

TEST_F(MainWindowTest, NoEntryIsWithoutCaptionInEitherLanguage) {
  for (const int language : {1, 2}) {
    config.Byte(1, 25, language);
    const auto program = Run();
    for (const MenuRow& row : MenuRows()) EXPECT_FALSE(program->app.main->Menu(row.id).caption().empty()) << row.name;
  }
}

// The tree of the menus: each entry with the one it hangs below.
TEST_F(MainWindowTest, EntriesHangWhereTheyBelong) {
  const std::pair<MenuId, std::vector<MenuId>> tree[] = {
      {mnuImporta, {mnuImportaArri30, mnuImportaStyi30, mnuImportaPrgi30, mnuImportaArri5, mnuImportaPcgi5}},
      {mnuStampa, {mnuStampaLista, mnuStampaTabella}},
      {mnuModifica,
       {mnuAnnulla,  mnuRipeti,  mnuIngrandisci, mnuTaglia,   mnuCopia,     mnuIncolla,  mnuLoadAll,  mnuLoadArr,
        mnuLoadSty,  mnuShowSty, mnuLoadPrg,     mnuShowPrg,  mnuEdit,      mnuEditPerf, mnui40DBArr, mnuArrPlay,
        mnuSongPlay, mnuProgram, mnuBSq,         mnuCancella, mnuDBArrApri, mnuAddAll,   mnuWFindID,  mnuAggArr}},
      {mnuView,
       {mnuArrA, mnuArrB, mnuArrU, mnuStyA, mnuStyB, mnuWProgA, mnuWProgB, mnuWProgC, mnuWProgD, mnuWProgE, mnuPrgU,
        mnuDrum, mnuPerc, mnuMultisample, mnuGlobalParam, mnuMsgEx, mnuWEditDBArr, mnuTastiera}},
      {mnuLingua, {mnuItaliano, mnuInglese}},
      {mnuPreferenze,
       {mnuLingua, mnuMIDIOut, mnuMIDIIn, mnuMIDIThru, mnuMIDI, mnuCaricaArr, mnuCaricaSty, mnuCaricaStyNuovoArr,
        mnuCaricaPrg, mnuAutoPrgSel, mnuRdOnly, mnuVisBarraStato, mnuAddi40DBArr}},
      {mnuWindow, {mnuBloccoNote, mnuWCascade, mnuWTile}},
      {mnuHelp, {mnuGuida, mnuInfo}},
  };
  const auto program = Run();
  const MainWindow& main = *program->app.main;
  for (const auto& [menu, children] : tree) {
    std::vector<const ui::MenuEntry*> expected;
    for (const MenuId child : children) expected.push_back(&main.Menu(child));
    // The open windows stand below the menu's own entries.
    for (int i = 0; menu == mnuWindow && i < kMostWindows; ++i) expected.push_back(&main.mnuWindowList(i));
    const auto& entries = main.Menu(menu).entries();
    EXPECT_EQ(std::vector<const ui::MenuEntry*>(entries.begin(), entries.end()), expected) << main.Menu(menu).name();
  }
  std::vector<std::string> bar;
  for (const ui::MenuEntry* entry : main.menu_bar()) bar.push_back(entry->name());
  EXPECT_EQ(bar,
            (std::vector<std::string>{"mnuFile", "mnuModifica", "mnuView", "mnuPreferenze", "mnuWindow", "mnuHelp"}));
  std::vector<std::string> file;
  for (const ui::MenuEntry* entry : main.Menu(mnuFile).entries()) file.push_back(entry->FullName());
  EXPECT_EQ(file,
            (std::vector<std::string>{"mnuNuovoArr",      "mnuNuovoSty",      "mnuNuovoPrg",      "mnuApriArr",
                                      "mnuApriSty",       "mnuApriPrg",       "mnuApriGbl",       "mnuApriBSQ",
                                      "mnuImporta",       "mnuChiudi",        "mnuSalva",         "mnuSalvaAs",
                                      "mnuStampa",        "mnuExit",          "mnuRecentFile(0)", "mnuRecentFile(1)",
                                      "mnuRecentFile(2)", "mnuRecentFile(3)", "mnuRecentFile(4)", "mnuRecentFile(5)",
                                      "mnuRecentFile(6)", "mnuRecentFile(7)"}));
}

// What acts on a child window is off without one.
constexpr MenuId kOfChildren[] = {
    mnuIngrandisci, mnuTaglia,        mnuIncolla,  mnuCopia,    mnuSalva,    mnuSalvaAs,   mnuStampa,
    mnuStampaLista, mnuStampaTabella, mnuLoadArr,  mnuLoadSty,  mnuLoadAll,  mnuShowSty,   mnuLoadPrg,
    mnuShowPrg,     mnuEdit,          mnuEditPerf, mnui40DBArr, mnuCancella, mnuDBArrApri, mnuAddAll,
};

TEST_F(MainWindowTest, WithNoChildWindowNothingThatNeedsOneIsEnabled) {
  const auto program = Run();
  for (const MenuId id : kOfChildren) EXPECT_FALSE(program->Enabled(id)) << program->app.main->Menu(id).name();
  EXPECT_FALSE(program->Enabled(mnuChiudi));
  EXPECT_FALSE(program->app.main->Menu(mnuWindow).enabled());
  for (const MenuId id : {mnuApriArr, mnuExit, mnuArrPlay, mnuSongPlay, mnuProgram, mnuBSq, mnuItaliano, mnuInglese,
                          mnuMIDIOut, mnuMIDIIn, mnuCaricaArr, mnuCaricaSty, mnuCaricaStyNuovoArr, mnuCaricaPrg,
                          mnuAutoPrgSel, mnuRdOnly, mnuVisBarraStato, mnuAddi40DBArr, mnuInfo}) {
    EXPECT_TRUE(program->Enabled(id)) << program->app.main->Menu(id).name();
  }
  // There is no database yet, and no file that the instrument holds.
  for (const MenuId id : {mnuAggArr, mnuArrU}) EXPECT_FALSE(program->Enabled(id));
}

TEST_F(MainWindowTest, AnArrangementWindowEnablesWhatItOffers) {
  Song("song");
  const auto program = Run();
  program->OpenArr(folder.Path("song.arr"));
  ASSERT_NE(program->Arr(1), nullptr);
  EXPECT_EQ(program->app.core.OpenChildCount, 1);
  for (const MenuId id : {mnuWindow, mnuChiudi, mnuIngrandisci, mnuLoadArr, mnui40DBArr}) {
    EXPECT_TRUE(program->Enabled(id)) << program->app.main->Menu(id).name();
  }
  // No styles, no programs, nothing changed, no row.
  for (const MenuId id : {mnuLoadSty, mnuLoadPrg, mnuSalva, mnuSalvaAs, mnuLoadAll, mnuCancella, mnuDBArrApri,
                          mnuAddAll, mnuTaglia, mnuIncolla}) {
    EXPECT_FALSE(program->Enabled(id)) << program->app.main->Menu(id).name();
  }
  PutByte(ImageFor(*program->Arr(1)), 4, 1);
  program->app.main->RefreshMenus();
  EXPECT_TRUE(program->Enabled(mnuSalva));
  EXPECT_TRUE(program->Enabled(mnuSalvaAs));
  // Files that are opened read-only, and all of them by the setting.
  program->Press(mnuRdOnly);
  EXPECT_FALSE(program->Enabled(mnuSalva));
  EXPECT_TRUE(program->Enabled(mnuSalvaAs));
  program->Press(mnuRdOnly);
  EXPECT_TRUE(program->Enabled(mnuSalva));
  PutByte(ImageFor(*program->Arr(1)), 2, 1);
  program->app.main->RefreshMenus();
  EXPECT_FALSE(program->Enabled(mnuSalva));
  program->toolkit.answers = {ui::BoxAnswer::kNo};
  EXPECT_TRUE(program->Press(mnuChiudi));
  EXPECT_EQ(program->app.core.OpenChildCount, 0);
  EXPECT_FALSE(program->Enabled(mnuChiudi));
  EXPECT_FALSE(program->app.main->Menu(mnuWindow).enabled());
  EXPECT_FALSE(program->Enabled(mnuLoadArr));
}

TEST_F(MainWindowTest, MenusFollowTheWindowInFront) {
  folder.Put("empty.arr", ArrFile({}));
  Song("song");
  const auto program = Run();
  program->OpenArr(folder.Path("song.arr"));
  EXPECT_TRUE(program->Enabled(mnuLoadArr));
  program->OpenArr(folder.Path("empty.arr"));
  EXPECT_FALSE(program->Enabled(mnuLoadArr));
  program->Arr(1)->UserActivate();
  EXPECT_TRUE(program->Enabled(mnuLoadArr));
  program->Arr(1)->UserClose();
  EXPECT_FALSE(program->Enabled(mnuLoadArr));
}

// --- Toggles ---

struct ToggleRow {
  MenuId entry;
  int position;  // in record 1
  bool initially;
};
constexpr ToggleRow kToggleRows[] = {
    {mnuRdOnly, 17, false},    {mnuCaricaStyNuovoArr, 20, false}, {mnuCaricaSty, 21, false},
    {mnuCaricaPrg, 23, false}, {mnuAddi40DBArr, 26, false},       {mnuVisBarraStato, 27, true},
    {mnuCaricaArr, 28, false}, {mnuAutoPrgSel, 50, false},
};

TEST_F(MainWindowTest, EachToggleMovesItsCheckMarkAndItsByteAlone) {
  for (const ToggleRow& row : kToggleRows) {
    {
      const auto program = Run();
      const ui::MenuEntry& entry = program->app.main->Menu(row.entry);
      EXPECT_EQ(entry.checked(), row.initially) << entry.name();
      EXPECT_TRUE(program->Press(row.entry));
      EXPECT_EQ(entry.checked(), !row.initially) << entry.name();
      for (const ToggleRow& other : kToggleRows) {
        EXPECT_EQ(program->app.main->Menu(other.entry).checked(), (other.entry == row.entry) != other.initially);
      }
      EXPECT_TRUE(program->Quit());
    }
    const ConfigFile once = Stored();
    for (const ToggleRow& other : kToggleRows) {
      EXPECT_EQ(once.At(1, other.position), (other.entry == row.entry) != other.initially) << other.position;
    }
    {
      const auto program = RunAgain();
      EXPECT_EQ(program->app.main->Menu(row.entry).checked(), !row.initially);
      EXPECT_TRUE(program->Press(row.entry));
      EXPECT_TRUE(program->Quit());
    }
    EXPECT_EQ(Stored().At(1, row.position), row.initially) << row.position;
  }
}

TEST_F(MainWindowTest, TheStatusStripIsShownByItsToggle) {
  const auto program = Run();
  EXPECT_TRUE(program->app.main->Picture1.visible());
  program->Press(mnuVisBarraStato);
  EXPECT_FALSE(program->app.main->Picture1.visible());
  ASSERT_TRUE(program->Quit());
  EXPECT_FALSE(RunAgain()->app.main->Picture1.visible());
}

TEST_F(MainWindowTest, TheStatusStripShowsTheNameOfTheProgramAndWhatTheInstrumentHolds) {
  config.Blanks(50, 1, 150);
  config.Text(50, 1, "song");
  config.Text(50, 51, "bank.pgg");
  config.Text(50, 101, "caff\xE8");
  const auto program = Run();
  const MainWindow& main = *program->app.main;
  EXPECT_EQ(main.LabelNomeAppl.caption(), "Zentaline");
  EXPECT_EQ(main.Label1.caption(), "");
  EXPECT_EQ(main.LabelMode.caption(), "ARR PLAY");
  EXPECT_EQ(main.LabelArr.caption(), "song");
  EXPECT_EQ(main.LabelSty.caption(), "caffè");
  EXPECT_EQ(main.LabelPrg.caption(), "bank.pgg");
}

// --- The mode ---

struct ModeRow {
  int stored;
  const char* message;  // on channel 6
  const char* label;
};

TEST_F(MainWindowTest, TheStoredModeIsSentAtEachStart) {
  const ModeRow rows[] = {
      {0, "long 0 F0 42 35 4D 4E 0A F7", "ARR PLAY"}, {1, "long 0 F0 42 35 4D 4E 06 F7", "SONG PLAY"},
      {2, "long 0 F0 42 35 4D 4E 04 F7", "GLOBAL"},   {3, "long 0 F0 42 35 4D 4E 0B F7", "BACK.SEQ."},
      {4, "long 0 F0 42 35 4D 4E 02 F7", "PROGRAM"},
  };
  config.Byte(1, 48, 0);
  config.Byte(1, 240, 5);
  for (const ModeRow& row : rows) {
    config.Byte(1, 47, row.stored);
    auto program = Run();
    for (int run = 1; run <= 2; ++run) {
      std::vector<std::string> sent;
      for (const std::string& line : program->toolkit.lines) {
        if (line.starts_with("long") || line.starts_with("short")) sent.push_back(line);
      }
      EXPECT_EQ(sent, (std::vector<std::string>{row.message})) << row.stored;
      EXPECT_EQ(program->app.main->LabelMode.caption(), row.label);
      EXPECT_EQ(program->app.midi.CurrentMode, row.stored);
      const std::pair<MenuId, int> entries[] = {{mnuArrPlay, 0}, {mnuSongPlay, 1}, {mnuBSq, 3}, {mnuProgram, 4}};
      for (const auto& [entry, mode] : entries) {
        EXPECT_EQ(program->app.main->Menu(entry).checked(), mode == row.stored) << row.stored << " " << mode;
      }
      EXPECT_TRUE(program->Quit());
      EXPECT_EQ(Stored().At(1, 47), row.stored);
      if (run == 1) program = RunAgain();
    }
  }
}

TEST_F(MainWindowTest, AStoredModeThatIsNoneSendsNothing) {
  config.Byte(1, 48, 0);
  for (const int mode : {5, 32, 255}) {
    config.Byte(1, 47, mode);
    const auto program = Run();
    for (const std::string& line : program->toolkit.lines) EXPECT_FALSE(line.starts_with("long")) << line;
    for (const MenuId id : {mnuArrPlay, mnuSongPlay, mnuBSq, mnuProgram}) {
      EXPECT_FALSE(program->app.main->Menu(id).checked());
    }
    EXPECT_EQ(program->app.main->LabelMode.caption(), "");
  }
}

TEST_F(MainWindowTest, ModeEntriesSendTheirMode) {
  config.Byte(1, 48, 0);
  const auto program = Run();
  const std::pair<MenuId, const char*> rows[] = {
      {mnuSongPlay, "long 0 F0 42 30 4D 4E 06 F7"}, {mnuSongPlay, "long 0 F0 42 30 4D 4E 06 F7"},
      {mnuProgram, "long 0 F0 42 30 4D 4E 02 F7"},  {mnuBSq, "long 0 F0 42 30 4D 4E 0B F7"},
      {mnuArrPlay, "long 0 F0 42 30 4D 4E 0A F7"},
  };
  for (const auto& [entry, line] : rows) {
    program->toolkit.lines.clear();
    EXPECT_TRUE(program->Press(entry));
    EXPECT_EQ(program->toolkit.lines, (std::vector<std::string>{line}));
  }
  program->Press(mnuProgram);
  program->toolkit.lines.clear();
  program->Press(mnuProgram);
  EXPECT_TRUE(program->toolkit.lines.empty());
}

// --- Devices ---

TEST_F(MainWindowTest, DeviceMenusShowTheDevicesThatAnswerAndCheckTheStoredOnes) {
  config.Byte(1, 48, 1);
  config.Byte(1, 19, 0);
  folder.Put("Zentaline.ini", config.bytes);
  TestProgram program(folder);
  program.midi.SetOuts({"First", "Second", "Third"});
  program.midi.SetIns({"Only"});
  ASSERT_TRUE(program.Start());
  const MainWindow& main = *program.app.main;
  for (int i = 0; i < 19; ++i) {
    EXPECT_EQ(main.mnuDevMIDIOut(i).visible(), i < 3) << i;
    EXPECT_EQ(main.mnuDevMIDIOut(i).checked(), i == 1) << i;
    EXPECT_EQ(main.mnuDevMIDIIn(i).visible(), i < 1) << i;
    EXPECT_EQ(main.mnuDevMIDIIn(i).checked(), i == 0) << i;
  }
  EXPECT_EQ(main.mnuDevMIDIOut(1).caption(), "Second");
  EXPECT_EQ(main.mnuDevMIDIIn(0).caption(), "Only");
  EXPECT_TRUE(program.app.midi.OutputOpen);
  EXPECT_TRUE(program.app.midi.InputOpen);
  EXPECT_TRUE(program.Enabled(mnuMIDIThru));
}

TEST_F(MainWindowTest, NamesOfFilesAndDevicesAreShownSignBySign) {
  const auto program = Run();
  const MainWindow& main = *program->app.main;
  for (const ui::Captioned* shown :
       {static_cast<const ui::Captioned*>(&main.mnuRecentFile(7)),
        static_cast<const ui::Captioned*>(&main.mnuDevMIDIOut(18)),
        static_cast<const ui::Captioned*>(&main.mnuDevMIDIIn(0)),
        static_cast<const ui::Captioned*>(&main.Menu(mnuArrU)), static_cast<const ui::Captioned*>(&main.Menu(mnuPrgU)),
        static_cast<const ui::Captioned*>(&main.Label1), static_cast<const ui::Captioned*>(&main.LabelArr),
        static_cast<const ui::Captioned*>(&main.LabelSty), static_cast<const ui::Captioned*>(&main.LabelPrg)}) {
    EXPECT_TRUE(shown->literal) << shown->FullName();
  }
  EXPECT_FALSE(main.Menu(mnuApriArr).literal);
}

TEST_F(MainWindowTest, Of25DevicesTheFirst19AreListed) {
  std::vector<std::string> names;
  for (int i = 0; i < 25; ++i) names.push_back("Port " + std::to_string(i));
  folder.Put("Zentaline.ini", config.bytes);
  TestProgram program(folder);
  program.midi.SetOuts(names);
  program.midi.SetIns(names);
  ASSERT_TRUE(program.Start());
  EXPECT_EQ(program.app.midi.MidiOutCount, 19);
  EXPECT_EQ(program.app.midi.MidiInCount, 19);
  EXPECT_EQ(program.app.main->mnuDevMIDIOut(18).caption(), "Port 18");
  EXPECT_TRUE(program.app.main->mnuDevMIDIOut(18).visible());
  EXPECT_TRUE(program.app.main->mnuDevMIDIOut(18).UserPress());
  ASSERT_TRUE(program.Quit());
  EXPECT_EQ(Stored().At(1, 48), 18);
}

TEST_F(MainWindowTest, WithoutDevicesThereIsOneBoxAndTheMenusAreOff) {
  folder.Put("Zentaline.ini", config.bytes);
  TestProgram program(folder);
  program.midi.SetOuts({});
  ASSERT_TRUE(program.Start());
  EXPECT_EQ(program.Boxes(), (std::vector<ShownBox>{{48, "Opening MIDI out device", "Output MIDI Device not found"}}));
  EXPECT_FALSE(program.Enabled(mnuMIDIOut));
  EXPECT_FALSE(program.Enabled(mnuMIDIThru));
  TestProgram no_input(folder);
  no_input.midi.SetIns({});
  ASSERT_TRUE(no_input.Start());
  EXPECT_EQ(no_input.Boxes(), (std::vector<ShownBox>{{48, "Opening MIDI out device", "MIDI input device not found"}}));
  EXPECT_TRUE(no_input.Enabled(mnuMIDIOut));
  EXPECT_FALSE(no_input.Enabled(mnuMIDIThru));
}

// --- Sizes and places ---

TEST_F(MainWindowTest, MaximizeGivesAWindowTheStoredSizeOfItsKindAndTakesItBack) {
  // The entry of form 19.
  config.Word(2, 26 + 4 * 17, 900);
  config.Word(2, 28 + 4 * 17, 600);
  Song("song");
  const auto program = Run();
  program->OpenArr(folder.Path("song.arr"));
  ui::Form& window = *program->Arr(1);
  program->toolkit.UserPlaces(window, {10, 20, 400, 300, ui::WindowState::kNormal});
  EXPECT_TRUE(program->Press(mnuIngrandisci));
  EXPECT_EQ(window.placement(), (ui::Placement{10, 20, 900, 600, ui::WindowState::kNormal}));
  EXPECT_EQ(program->app.core.ArrWindows[1].width, 900);
  EXPECT_TRUE(program->Press(mnuIngrandisci));
  EXPECT_EQ(window.placement(), (ui::Placement{10, 20, 400, 300, ui::WindowState::kNormal}));
  EXPECT_EQ(program->app.core.ArrWindows[1].width, 400);
}

TEST_F(MainWindowTest, CascadePlacesEachWindowAStepFurtherAndStoresIt) {
  const auto program = Run();
  for (const char* name : {"a", "b", "c"}) {
    Song(name);
    program->OpenArr(folder.Path(name) + ".arr");
  }
  program->toolkit.UserPlaces(*program->Arr(2), {300, 300, 500, 400, ui::WindowState::kMaximised});
  EXPECT_TRUE(program->Press(mnuWCascade));
  int step = -1;
  for (int number = 1; number <= 3; ++number) {
    const ui::Placement& place = program->Arr(number)->placement();
    EXPECT_EQ(place.left, place.top);
    EXPECT_GT(place.left, step);
    EXPECT_EQ(place.state, ui::WindowState::kNormal);
    step = place.left;
    const WindowRecord& record = program->app.core.ArrWindows[static_cast<std::size_t>(number)];
    EXPECT_EQ(record.left, place.left);
    EXPECT_EQ(record.top, place.top);
    EXPECT_EQ(record.window_state, 0);
  }
  EXPECT_EQ(program->Arr(1)->placement().left, 0);
}

TEST_F(MainWindowTest, CascadeKeepsWhoIsInFrontAndPutsItBelowTheTitlesOfTheOthers) {
  const auto program = Run();
  for (const char* name : {"a", "b", "c"}) {
    Song(name);
    program->OpenArr(folder.Path(name) + ".arr");
  }
  program->Arr(1)->UserActivate();
  EXPECT_TRUE(program->Press(mnuWCascade));
  EXPECT_EQ(program->toolkit.active_child(), program->Arr(1));
  EXPECT_EQ(program->Arr(2)->placement().top, 0);
  EXPECT_LT(program->Arr(2)->placement().top, program->Arr(3)->placement().top);
  EXPECT_LT(program->Arr(3)->placement().top, program->Arr(1)->placement().top);
}

TEST_F(MainWindowTest, ManyWindowsInACascadeStayInsideTheMainWindow) {
  const auto program = Run();
  program->toolkit.UserPlaces(*program->app.main, {0, 0, 700, 300, ui::WindowState::kNormal});
  const ui::Size room = program->app.main->inner_size();
  for (int number = 1; number <= 8; ++number) {
    const std::string name = "song" + std::to_string(number);
    Song(name);
    program->OpenArr(folder.Path(name) + ".arr");
  }
  EXPECT_TRUE(program->Press(mnuWCascade));
  int left = -1;
  for (int number = 1; number <= 8; ++number) {
    const ui::Placement& place = program->Arr(number)->placement();
    EXPECT_LE(place.top, room.height / 2);
    EXPECT_GT(place.left, left);
    left = place.left;
  }
}

TEST_F(MainWindowTest, TheMainWindowComesBackWhereItWas) {
  {
    const auto program = Run();
    program->toolkit.UserPlaces(*program->app.main, {30, -10, 700, 500, ui::WindowState::kNormal});
    ASSERT_TRUE(program->Quit());
  }
  EXPECT_EQ(HexText(Stored().bytes.substr(50, 9)), "3E 9E 3E 76 02 BC 01 F4 00");
  {
    const auto program = RunAgain();
    EXPECT_EQ(program->app.main->placement(), (ui::Placement{30, -10, 700, 500, ui::WindowState::kNormal}));
    program->toolkit.UserPlaces(*program->app.main, {0, 0, 1024, 768, ui::WindowState::kMaximised});
    ASSERT_TRUE(program->Quit());
  }
  // The size to come back to is kept beside the state.
  EXPECT_EQ(HexText(Stored().bytes.substr(50, 9)), "3E 9E 3E 76 02 BC 01 F4 02");
  EXPECT_EQ(RunAgain()->app.main->placement().state, ui::WindowState::kMaximised);
}

TEST_F(MainWindowTest, APlaceBeyondTheScreenIsTakenBackOntoIt) {
  const auto program = Run();
  for (const auto& [left, top] : {std::pair{5000, 10}, {10, 5000}, {-5000, 10}, {10, -5000}}) {
    ConfigFile far = ConfigFile::English();
    far.Word(1, 51, left + 16000);
    far.Word(1, 53, top + 16000);
    far.Word(1, 55, 700);
    far.Word(1, 57, 500);
    config = far;
    const ui::Placement place = Run()->app.main->placement();
    EXPECT_EQ(place, (ui::Placement{0, 0, 700, 500, ui::WindowState::kNormal})) << left << " " << top;
  }
}

// --- Closing ---

TEST_F(MainWindowTest, ClosingAsksEachChangedWindowAndStaysOnCancel) {
  const auto program = Run();
  for (const char* name : {"a", "b", "c"}) {
    Song(name);
    program->OpenArr(folder.Path(name) + ".arr");
  }
  for (const int number : {1, 3}) PutByte(ImageFor(*program->Arr(number)), 4, 1);
  program->toolkit.answers = {ui::BoxAnswer::kNo, ui::BoxAnswer::kCancel};
  EXPECT_FALSE(program->Quit());
  EXPECT_EQ(program->Boxes(),
            (std::vector<ShownBox>{{51, "File Arr - a.arr (1)", "The file has changed\nSave changes ?"},
                                   {51, "File Arr - c.arr (3)", "The file has changed\nSave changes ?"}}));
  for (int number = 1; number <= 3; ++number) EXPECT_NE(program->Arr(number), nullptr);
  EXPECT_FALSE(program->app.core.Closing);
  program->toolkit.answers = {ui::BoxAnswer::kNo, ui::BoxAnswer::kNo};
  EXPECT_TRUE(program->Quit());
  EXPECT_EQ(program->app.main, nullptr);
}

TEST_F(MainWindowTest, TheEndClosesOutputThenInputThenThru) {
  config.Byte(1, 48, 0);
  config.Byte(1, 19, 0);
  config.Byte(1, 46, 1);
  const auto program = Run();
  program->toolkit.lines.clear();
  ASSERT_TRUE(program->Quit());
  std::vector<std::string> calls;
  for (const std::string& line : program->toolkit.lines) {
    if (line.starts_with("service")) calls.push_back(line.substr(0, line.find(" ->")));
  }
  EXPECT_EQ(calls,
            (std::vector<std::string>{"service 0 midiOutClose", "service 0 midiInClose", "service 0 midiDisconnect"}));
  EXPECT_TRUE(program->Boxes().empty());
}

TEST_F(MainWindowTest, ExitEntryClosesTheProgram) {
  const auto program = Run();
  EXPECT_TRUE(program->Press(mnuExit));
  EXPECT_EQ(program->app.main, nullptr);
}

}  // namespace
}  // namespace zentaline::test
