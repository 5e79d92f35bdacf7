#include "core/boxes.h"

#include <gtest/gtest.h>

#include "core/frmAbout.h"
#include "core/frmAvviso1.h"
#include "core/frmAvviso2.h"
#include "tests/support/config.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

// A program that has started in a language, 1 Italian or 2 English.
class Speaking {
 public:
  explicit Speaking(int language) : program(folder) {
    ConfigFile file = ConfigFile::English();
    file.Byte(1, 25, language);
    folder.Put("Zentaline.ini", file.bytes);
    EXPECT_TRUE(program.Start());
    program.Boxes();
  }
  // The text of the only box that was shown.
  std::string Text() {
    const std::vector<ShownBox> boxes = program.Boxes();
    return boxes.size() == 1 ? boxes[0].text : std::to_string(boxes.size()) + " boxes";
  }

  ScratchFolder folder;
  TestProgram program;
};

struct CodeTexts {
  int code;
  const char* english;
  const char* italian;
};

// With "song" as the name.
constexpr CodeTexts kMessages[] = {
    {0, "generic error", "errore generico"},
    {1, "song", "song"},
    {2, "song error", "song errato"},
    {3, "Not more than 4 styles per file are allowed", "Non sono consentiti più di 4 stili per file"},
    {4, "Error reading song", "Formato dati song errato"},
    {5, "File song not found", "File song assente"},
    {6, "File i40DBArrnot found", "File i40DBArr assente"},
    {7, "File i40DBArrdata error", "File i40DBArr errato"},
    {8, "File Arrangement not found", "File Arrangement assente"},
    {9, "File i40DBArrempty", "File i40DBArr vuoto"},
    {10, "MIDI input device not found", "Dispositivo MIDI di ingresso assente"},
    {12, "Close before all other applications", "Chiudere prima tutte le altre applicazioni"},
    {13, "Processing file sty i30", "Elaborazione file sty i30"},
    {14, "File i40ArrA not found", "File i40ArrA assente"},
    {15, "File i40ArrB not found", "File i40ArrB assente"},
    {16, "File already open", "File già aperto"},
    {17, "Read only file", "File di sola lettura"},
    {18, "Disk reading error", "Errore di lettura da disco"},
    {19, "Disk full", "Disco pieno"},
    {20, "Output MIDI Device already in use", "Dispositivo MIDI di Uscita già in uso"},
    {21, "Error opening MIDI input device", "Errore apertura dispositivo MIDI di ingresso"},
    {22, "Output MIDI Device not found", "Dispositivo MIDI di Uscita assente"},
    {23, "Error closing Output MIDI Device", "Errore chiusura Dispositivo MIDI di Uscita"},
    {24, "The change will take place next time you will run the programme",
     "Il cambio avrà effetto alla prossima esecuzione del programma"},
    {25, "Reading Error", "Errore di lettura"},
    {26, "Reading ", "Lettura di "},
    {27, "File not found", "File assente"},
    {28, "Disk not ready or not formatted", "Disco non pronto o non formattato"},
    {29, "Disk writing error", "Errore di scrittura su disco"},
    {30, "Path not found", "Impossibile trovare il percorso"},
    {31, "Error I/O device", "Errore I/O periferica"},
    {32, "Data format error", "Formato dati errato"},
    {33, "MIDI input device not found", "Dispositivo MIDI di ingresso assente"},
    {34, "Error Opening the MIDI Input Device", "Errore Apertura Dispositivo MIDI di Ingresso"},
    {35, "The MIDI Device will not be used", "Il Dispositivo MIDI non sarà utilizzato"},
    {36, "The lenght of a 4 Styles group must be less than 65496 bytes",
     "La lunghezza di un gruppo di 4 Styles deve essere inferiore a 65496 bytes"},
    {38, "Input MIDI Device already in use", "Dispositivo MIDI di ingresso già in uso"},
};

TEST(Boxes, EveryMessageCodeShowsItsTextInBothLanguages) {
  Speaking italian(1);
  Speaking english(2);
  for (const CodeTexts& row : kMessages) {
    ShowMessage(english.program.app, row.code, "a title", "song");
    EXPECT_EQ(english.program.Boxes(), (std::vector<ShownBox>{{48, "a title", row.english}})) << row.code;
    ShowMessage(italian.program.app, row.code, "a title", "song");
    EXPECT_EQ(italian.Text(), row.italian) << row.code;
  }
}

TEST(Boxes, CodesThatAreNotInUseShowAnEmptyBox) {
  Speaking english(2);
  for (const int code : {-1, 11, 37, 39, 255, 1000}) {
    ShowMessage(english.program.app, code, "a title", "song");
    EXPECT_EQ(english.Text(), "") << code;
  }
}

TEST(Boxes, OnlyTheFirstPlaceHolderIsReplaced) {
  EXPECT_EQ(WithName("Error reading _", "song_1.arr"), "Error reading song_1.arr");
  EXPECT_EQ(WithName("_ and _", "a"), "a and _");
  EXPECT_EQ(WithName("_", "_"), "_");
  EXPECT_EQ(WithName("_ error", ""), " error");
  EXPECT_EQ(WithName("no place", "a"), "no place");
  EXPECT_EQ(WithName("", "a"), "");
}

TEST(Boxes, AnEmptyNameLetsThePlaceHolderDisappear) {
  Speaking english(2);
  ShowMessage(english.program.app, 5, "", "");
  EXPECT_EQ(english.program.Boxes(), (std::vector<ShownBox>{{48, "", "File  not found"}}));
  ShowMessage(english.program.app, 1, "t", "");
  EXPECT_EQ(english.Text(), "");
}

TEST(Boxes, QuestionsWithYesAndNoHaveTheirStyleTheirTextAndTheCaptionOfTheWindowInFront) {
  const CodeTexts rows[] = {
      {0, "song", "song"},
      {1, "The file has changed\nKeep changes ?", "Il file è stato modificato\nMantenere le modifiche ?"},
      {2, "The Arrangement has changed.\nKeep changes ?",
       "L'Arrangement è stato modificato.\nMantenere le modifiche ?"},
      {3, "Choose the directory of the opened file as working directory of i40DBArr?",
       "Scegliere la directory del file aperto come directory di lavoro di i40DBArr ?"},
  };
  Speaking italian(1);
  Speaking english(2);
  for (const CodeTexts& row : rows) {
    english.program.toolkit.answers = {ui::BoxAnswer::kYes};
    EXPECT_EQ(static_cast<int>(AskYesNo(english.program.app, row.code, "song")), 6);
    EXPECT_EQ(english.program.Boxes(), (std::vector<ShownBox>{{52, "Zentaline", row.english}})) << row.code;
    italian.program.toolkit.answers = {ui::BoxAnswer::kNo};
    EXPECT_EQ(static_cast<int>(AskYesNo(italian.program.app, row.code, "song")), 7);
    EXPECT_EQ(italian.Text(), row.italian) << row.code;
  }
  english.folder.Put("song.arr", ArrFile());
  english.program.OpenArr(english.folder.Path("song.arr"));
  AskYesNo(english.program.app, 1);
  EXPECT_EQ(english.program.Boxes().back().title, "File Arr - song.arr (1)");
}

TEST(Boxes, QuestionsWithCancelHaveTheirStyleAndText) {
  const CodeTexts rows[] = {
      {0, "song", "song"},
      {1, "The file has changed\nSave changes ?", "Il file è stato modificato\nSalvare le modifiche ?"},
      {2, "The Arrangement has changed.\nSave changes ?", "L'Arrangement è stato modificato.\nSalvare le modifiche ?"},
      {3, "The Program has changed.\nSave changes ?", "Il Program è stato modificato.\nSalvare le modifiche ?"},
  };
  Speaking italian(1);
  Speaking english(2);
  for (const CodeTexts& row : rows) {
    for (const ui::BoxAnswer answer : {ui::BoxAnswer::kYes, ui::BoxAnswer::kNo, ui::BoxAnswer::kCancel}) {
      english.program.toolkit.answers = {answer};
      EXPECT_EQ(AskYesNoCancel(english.program.app, row.code, "t", "song"), answer);
      EXPECT_EQ(english.program.Boxes(), (std::vector<ShownBox>{{51, "t", row.english}})) << row.code;
    }
    AskYesNoCancel(italian.program.app, row.code, "t", "song");
    EXPECT_EQ(italian.Text(), row.italian) << row.code;
  }
}

TEST(Boxes, TheWaitTextStandsInTheStatusStripUntilItIsCleared) {
  const CodeTexts rows[] = {
      {1, "Processing File Style", "Elaborazione File Style"},
      {2, "Loading Style", "Trasmissione Style"},
      {3, "Loading Arrangement", "Trasm. Arrangement"},
      {4, "Loading Program", "Trasmissione Program"},
      {5, "Loading Back. Seq.", "Trasm. Back. Seq."},
      {6, "Opening song", "Apertura di song"},
      {7, "Processing song", "Elaborazione di song"},
      {8, "Update song", "Aggiornamento di song"},
      {9, "Processing file sty i30", "Elaborazione file sty i30"},
      {0, "", ""},
  };
  Speaking italian(1);
  Speaking english(2);
  english.program.toolkit.lines.clear();
  for (const CodeTexts& row : rows) {
    ShowWait(english.program.app, row.code, "song");
    EXPECT_EQ(english.program.app.main->Label1.caption(), row.english) << row.code;
    ShowWait(italian.program.app, row.code, "song");
    EXPECT_EQ(italian.program.app.main->Label1.caption(), row.italian) << row.code;
  }
  ASSERT_EQ(english.program.toolkit.lines.size(), 10u);
  EXPECT_EQ(english.program.toolkit.lines[7], "wait 0 \"Update song\"");
  EXPECT_EQ(english.program.toolkit.lines[9], "wait 0 \"\"");
}

TEST(Boxes, TextIdsOutsideTheTableAreEmpty) {
  Speaking italian(1);
  Speaking english(2);
  for (const int id : {-5, 0, 31, 36, 55, 61, 132, 139, 140, 142, 155, 199, 200, 400}) {
    EXPECT_EQ(GetText(english.program.app, id), "") << id;
  }
  for (const int id : {0, 31, 155, 199, 200, 355}) EXPECT_EQ(GetText(italian.program.app, id), "") << id;
}

TEST(FileErrors, EachErrorOfTheDiskHasItsText) {
  const std::pair<DiskResult, const char*> rows[] = {
      {DiskResult::kNotReady, "Disk not ready or not formatted"},
      {DiskResult::kNoAccess, "Read only file"},
      {DiskResult::kIsFolder, "Read only file"},
      {DiskResult::kPathAbsent, "Path not found"},
      {DiskResult::kInputOutput, "Error I/O device"},
      {DiskResult::kFull, "Disk full"},
      {DiskResult::kTooLarge, "Disk reading error"},
      {DiskResult::kTooManyFiles, "Disk reading error"},
      {DiskResult::kAbsent, "Disk reading error"},
      {DiskResult::kOther, "Disk reading error"},
  };
  Speaking english(2);
  english.program.app.core.OperationTitle = "Opening song.arr";
  for (const auto& [result, text] : rows) {
    FileErrorMessage(english.program.app, result);
    EXPECT_EQ(english.program.Boxes(), (std::vector<ShownBox>{{48, "Opening song.arr", text}}));
  }
}

// --- The language ---

TEST(Language, AChangeShowsItsMessageAndTakesPlaceAtTheNextStart) {
  Speaking english(2);
  TestProgram& program = english.program;
  MainWindow& main = *program.app.main;
  EXPECT_TRUE(main.Menu(MenuId::mnuInglese).checked());
  EXPECT_TRUE(program.Press(MenuId::mnuItaliano));
  EXPECT_EQ(program.Boxes(),
            (std::vector<ShownBox>{
                {48, "Change language", "The change will take place next time you will run the programme"}}));
  EXPECT_TRUE(main.Menu(MenuId::mnuItaliano).checked());
  EXPECT_FALSE(main.Menu(MenuId::mnuInglese).checked());
  EXPECT_EQ(program.app.core.LanguageCode, 1);
  EXPECT_EQ(program.app.core.LanguageOffset, 200);
  EXPECT_EQ(main.Menu(MenuId::mnuChiudi).caption(), "&Close");
  // The language it is already: nothing.
  EXPECT_TRUE(program.Press(MenuId::mnuItaliano));
  EXPECT_TRUE(program.Boxes().empty());
  ASSERT_TRUE(program.Quit());

  TestProgram next(english.folder);
  ASSERT_TRUE(next.Start(0));
  EXPECT_EQ(next.app.core.LanguageOffset, 0);
  EXPECT_EQ(next.app.main->Menu(MenuId::mnuChiudi).caption(), "&Chiudi");
  EXPECT_TRUE(next.Press(MenuId::mnuInglese));
  EXPECT_EQ(
      next.Boxes(),
      (std::vector<ShownBox>{{48, "Cambio lingua", "Il cambio avrà effetto alla prossima esecuzione del programma"}}));
}

TEST(Language, ChangedThereAndBackTheFileKeepsTheOldOne) {
  Speaking english(2);
  english.program.Press(MenuId::mnuItaliano);
  english.program.Press(MenuId::mnuInglese);
  EXPECT_EQ(english.program.Boxes().size(), 2u);
  ASSERT_TRUE(english.program.Quit());
  EXPECT_EQ(english.folder.Get("Zentaline.ini")[24], 2);
}

TEST(Language, FrmLinguaClosesByItsButtonOnlyOnceALanguageIsChosen) {
  const ScratchFolder folder;
  TestProgram program(folder);
  program.toolkit.modals.push_back([](ui::Form& form) {
    auto& italian = *static_cast<ui::OptionButton*>(form.Find("Option1", 0));
    auto& english = *static_cast<ui::OptionButton*>(form.Find("Option1", 1));
    auto& ok = *static_cast<ui::Button*>(form.Find("CommOK"));
    EXPECT_FALSE(italian.value());
    EXPECT_FALSE(english.value());
    ok.UserPress();
    EXPECT_TRUE(form.open());
    english.UserPress();
    EXPECT_TRUE(form.open());
    italian.UserPress();
    EXPECT_FALSE(english.value());
    ok.UserPress();
    EXPECT_FALSE(form.open());
  });
  EXPECT_TRUE(program.app.Start());
  EXPECT_EQ(program.app.core.LanguageCode, 1);
  EXPECT_EQ(program.app.core.LanguageOffset, 0);
}

// --- Small windows ---

std::string CaptionOf(ui::Form& form, const char* control, int index = -1) {
  auto* captioned = dynamic_cast<ui::Captioned*>(form.Find(control, index));
  return captioned == nullptr ? "no such control" : captioned->caption();
}

TEST(FrmAbout, TellsTheProgramAndItsVersionInBothLanguages) {
  for (const int language : {1, 2}) {
    Speaking speaking(language);
    bool seen = false;
    speaking.program.toolkit.modals.push_back([&](ui::Form& form) {
      seen = true;
      EXPECT_EQ(form.caption(), language == 1 ? "Informazioni su Zentaline" : "About Zentaline");
      EXPECT_EQ(CaptionOf(form, "Label1"),
                language == 1 ? "Zentaline Console/File Manager per KORG i40M, iS35, iS40/50 (Arranger/Tastiera)"
                              : "Zentaline Console/File Manager for KORG i40M, iS35, iS40, iS50 (Arranger/Keyboard)");
      EXPECT_EQ(CaptionOf(form, "Label2"), language == 1 ? "Versione 4.0, 2004 (release 11 marzo 2004)"
                                                         : "Version 4.0, 2004 (release 11th March 2004)");
      static_cast<ui::Button*>(form.Find("cmdOK"))->UserPress();
      EXPECT_FALSE(form.open());
    });
    EXPECT_TRUE(speaking.program.Press(MenuId::mnuInfo));
    EXPECT_TRUE(seen);
  }
}

TEST(FrmAvviso1, EachButtonGivesItsAnswerAndClosingWithoutOneIsNo) {
  Speaking english(2);
  Application& app = english.program.app;
  const std::pair<const char*, int> buttons[] = {{"CommSI", 0}, {"CommNO", 1}, {"CommAnnulla", 2}, {nullptr, 1}};
  for (const auto& [button, answer] : buttons) {
    app.core.WarningAnswer = 77;
    english.program.toolkit.modals.push_back([&, name = button](ui::Form& form) {
      EXPECT_EQ(app.core.WarningAnswer, 1);
      EXPECT_EQ(CaptionOf(form, "Label1", 0), "first line");
      EXPECT_EQ(CaptionOf(form, "Label1", 1), "second line");
      EXPECT_EQ(CaptionOf(form, "CommSI"), "&Yes");
      EXPECT_EQ(CaptionOf(form, "CommNO"), "&No");
      EXPECT_EQ(CaptionOf(form, "CommAnnulla"), "Cancel");
      if (name != nullptr) static_cast<ui::Button*>(form.Find(name))->UserPress();
      EXPECT_EQ(form.open(), name == nullptr);
    });
    app.toolkit.OpenModal(std::make_unique<frmAvviso1>(app, "title", "first line", "second line"));
    EXPECT_EQ(app.core.WarningAnswer, answer) << (button == nullptr ? "none" : button);
  }
}

TEST(FrmAvviso1, StandsInTheMiddleOfTheMainWindow) {
  Speaking english(2);
  Application& app = english.program.app;
  english.program.toolkit.UserPlaces(*app.main, {100, 50, 800, 600, ui::WindowState::kNormal});
  english.program.toolkit.modals.push_back([](ui::Form& form) {
    const ui::Placement& place = form.placement();
    EXPECT_EQ(2 * place.left + place.width, 2 * 100 + 800);
    EXPECT_EQ(2 * place.top + place.height, 2 * 50 + 600);
  });
  app.toolkit.OpenModal(std::make_unique<frmAvviso1>(app, "title", "a", "b"));
}

TEST(FrmAvviso2, ShowsItsTextUntilItIsClosed) {
  Speaking italian(1);
  Application& app = italian.program.app;
  bool seen = false;
  italian.program.toolkit.modals.push_back([&seen](ui::Form& form) {
    seen = true;
    EXPECT_EQ(form.caption(), "title");
    EXPECT_EQ(CaptionOf(form, "Label1"), "a long text");
    EXPECT_EQ(CaptionOf(form, "CommClose"), "&Chiudi");
    static_cast<ui::Button*>(form.Find("CommClose"))->UserPress();
    EXPECT_FALSE(form.open());
  });
  app.toolkit.OpenModal(std::make_unique<frmAvviso2>(app, "title", "a long text"));
  EXPECT_TRUE(seen);
}

// --- Texts ---

TEST(ShownPath, TextThatIsNoUtf8IsTakenByteByByte) {
  EXPECT_EQ(ShownPath("caff\xC3\xA8.arr"), "caffè.arr");
  EXPECT_EQ(ShownPath("caff\xE8.arr"), "caffè.arr");
  EXPECT_EQ(ShownPath(""), "");
  EXPECT_EQ(ShownPath("\xC3"), "Ã");
  EXPECT_EQ(ShownPath("\xED\xA0\x80"), "\xC3\xAD\xC2\xA0\xE2\x82\xAC");
}

TEST(CutText, NeverCutsACharacter) {
  EXPECT_EQ(CutText("abc", 3), "abc");
  EXPECT_EQ(CutText("abc", 2), "ab");
  EXPECT_EQ(CutText("caff\xC3\xA8", 5), "caff");
  EXPECT_EQ(CutText("caff\xC3\xA8", 6), "caff\xC3\xA8");
  EXPECT_EQ(CutText("abc", 0), "");
}

}  // namespace
}  // namespace zentaline::test
