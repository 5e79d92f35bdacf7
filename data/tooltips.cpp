#include "data/tooltips.h"

namespace zentaline {
namespace {

struct Tip {
  std::string_view form;
  std::string_view control;
  std::string_view italian;
  std::string_view english;
};

// clang-format off
constexpr Tip kTips[] = {
    {"frmLingua", "Option1(0)", "Menu, messaggi e guida in italiano", "Menus, messages and guide in Italian"},
    {"frmLingua", "Option1(1)", "Menu, messaggi e guida in inglese", "Menus, messages and guide in English"},
    {"frmLingua", "Option1", "La lingua di menu, messaggi e guida", "The language of menus, messages and guide"},
    {"frmLingua", "CommOK", "Continua con la lingua scelta", "Go on with the language chosen"},

    {"frmAbout", "Label1", "Che cos'è questo programma", "What this program is"},
    {"frmAbout", "Label2", "La versione del programma", "The version of the program"},
    {"frmAbout", "cmdOK", "Chiude questa finestra", "Closes this window"},

    {"frmAvviso1", "Label1", "La domanda a cui rispondere", "The question to be answered"},
    {"frmAvviso1", "CommSI", "Risponde sì alla domanda", "Answers the question with yes"},
    {"frmAvviso1", "CommNO", "Risponde no alla domanda", "Answers the question with no"},
    {"frmAvviso1", "CommAnnulla", "Lascia tutto com'era", "Leaves everything as it was"},
    {"frmAvviso2", "Label1", "L'avviso del programma", "What the program has to tell"},
    {"frmAvviso2", "CommClose", "Chiude questo avviso", "Closes this message"},

    // Main window: status strip.
    {"frmMain", "Picture1", "Lo stato del collegamento con lo strumento", "How things stand with the instrument"},
    {"frmMain", "LabelNomeAppl", "Il nome del programma", "The name of the program"},
    {"frmMain", "Label1", "Che cosa sta facendo il programma in questo momento", "What the program is doing right now"},
    {"frmMain", "LabelMode", "Il modo in cui il programma ha messo lo strumento", "The mode that the program has put the instrument in"},
    {"frmMain", "LabelArr", "L'ultimo file di arrangement trasmesso allo strumento", "The arrangement file sent to the instrument last"},
    {"frmMain", "LabelSty", "L'ultimo file di style trasmesso allo strumento", "The style file sent to the instrument last"},
    {"frmMain", "LabelPrg", "L'ultimo file di program trasmesso allo strumento", "The program file sent to the instrument last"},

    // File menu.
    {"frmMain", "mnuFile", "Aprire, salvare e stampare i file", "Open, save and print files"},
    {"frmMain", "mnuNuovoArr", "Comincia un nuovo file di arrangement", "Starts a new arrangement file"},
    {"frmMain", "mnuNuovoSty", "Comincia un nuovo file di style", "Starts a new style file"},
    {"frmMain", "mnuNuovoPrg", "Comincia un nuovo file di program", "Starts a new program file"},
    {"frmMain", "mnuApriArr", "Apre un file di arrangement, con gli style e i program dello stesso nome", "Opens an arrangement file, with the styles and programs of the same name"},
    {"frmMain", "mnuApriSty", "Apre un file di style", "Opens a style file"},
    {"frmMain", "mnuApriPrg", "Apre un file di program", "Opens a program file"},
    {"frmMain", "mnuApriGbl", "Apre un file di dati globali", "Opens a file of global data"},
    {"frmMain", "mnuApriBSQ", "Apre un file di backing sequence", "Opens a file of back sequences"},
    {"frmMain", "mnuImporta", "Prende i dati dagli strumenti precedenti", "Takes over data of earlier instruments"},
    {"frmMain", "mnuImportaArri30", "Converte gli arrangement di un i30", "Converts arrangements of an i30"},
    {"frmMain", "mnuImportaStyi30", "Converte gli style di un i30", "Converts styles of an i30"},
    {"frmMain", "mnuImportaPrgi30", "Converte i program di un i30", "Converts programs of an i30"},
    {"frmMain", "mnuImportaArri5", "Converte gli arrangement della vecchia serie i", "Converts arrangements of the old i-series"},
    {"frmMain", "mnuImportaPcgi5", "Converte i program della vecchia serie i", "Converts programs of the old i-series"},
    {"frmMain", "mnuChiudi", "Chiude la finestra in primo piano", "Closes the window in front"},
    {"frmMain", "mnuSalva", "Salva il file della finestra in primo piano", "Saves the file of the window in front"},
    {"frmMain", "mnuSalvaAs", "Salva il file con un altro nome o in un'altra cartella", "Saves the file under another name or in another folder"},
    {"frmMain", "mnuStampa", "Stampa il contenuto della finestra in primo piano", "Prints what the window in front holds"},
    {"frmMain", "mnuStampaLista", "Stampa i nomi, uno per riga", "Prints the names, one to a line"},
    {"frmMain", "mnuStampaTabella", "Stampa una tabella di tutto il banco", "Prints a table of the whole bank"},
    {"frmMain", "mnuExit", "Chiude il programma e ricorda le finestre aperte", "Ends the program and remembers the windows that are open"},
    {"frmMain", "mnuRecentFile", "Apre di nuovo questo file", "Opens this file again"},

    // Edit menu.
    {"frmMain", "mnuModifica", "Modificare, copiare e trasmettere le righe selezionate", "Edit, copy and send the selected rows"},
    {"frmMain", "mnuIngrandisci", "Ingrandisce la finestra, o la riporta com'era", "Makes the window larger, or as it was before"},
    {"frmMain", "mnuTaglia", "Toglie le righe selezionate e le tiene per incollarle", "Takes the selected rows away and keeps them for pasting"},
    {"frmMain", "mnuCopia", "Tiene una copia delle righe selezionate per incollarla", "Keeps a copy of the selected rows for pasting"},
    {"frmMain", "mnuIncolla", "Mette ciò che è stato copiato al posto selezionato", "Puts what was copied in the selected place"},
    {"frmMain", "mnuLoadAll", "Trasmette allo strumento arrangement, style e program insieme", "Sends arrangements, styles and programs to the instrument together"},
    {"frmMain", "mnuLoadArr", "Trasmette allo strumento i 64 arrangement della finestra", "Sends the 64 arrangements of the window to the instrument"},
    {"frmMain", "mnuLoadSty", "Trasmette allo strumento gli style della finestra", "Sends the styles of the window to the instrument"},
    {"frmMain", "mnuShowSty", "Mostra il file di style che appartiene a questi arrangement", "Shows the style file that belongs to these arrangements"},
    {"frmMain", "mnuLoadPrg", "Trasmette allo strumento i program della finestra", "Sends the programs of the window to the instrument"},
    {"frmMain", "mnuShowPrg", "Mostra il file di program che appartiene a questi arrangement", "Shows the program file that belongs to these arrangements"},
    {"frmMain", "mnuEdit", "Apre l'editor sulla riga selezionata", "Opens the editor on the selected row"},
    {"frmMain", "mnuEditPerf", "Cambia il suono del program con pochi comandi", "Reshapes the program with a few broad controls"},
    {"frmMain", "mnui40DBArr", "Mette il file nell'archivio degli arrangement e gli dà un numero", "Enters the file in the arrangement database and gives it a number"},
    {"frmMain", "mnuArrPlay", "Mette lo strumento in modo Arr Play", "Puts the instrument in Arr Play mode"},
    {"frmMain", "mnuSongPlay", "Mette lo strumento in modo Song Play", "Puts the instrument in Song Play mode"},
    {"frmMain", "mnuProgram", "Mette lo strumento in modo Program", "Puts the instrument in Program mode"},
    {"frmMain", "mnuBSq", "Mette lo strumento in modo Backing Sequence", "Puts the instrument in Back Sequence mode"},
    {"frmMain", "mnuCancella", "Cancella le righe selezionate", "Deletes the selected rows"},
    {"frmMain", "mnuDBArrApri", "Apre il file selezionato nell'archivio", "Opens the file that is selected in the database"},
    {"frmMain", "mnuAddAll", "Mette nell'archivio tutti i file della cartella", "Enters every file of the folder in the database"},
    {"frmMain", "mnuWFindID", "Trova un arrangement dal suo numero", "Finds an arrangement by its number"},
    {"frmMain", "mnuAggArr", "Toglie dall'archivio i file che non ci sono più", "Takes files that are gone out of the database"},

    // View menu.
    {"frmMain", "mnuView", "Mostrare ciò che lo strumento contiene", "Show what the instrument holds"},
    {"frmMain", "mnuArrA", "Mostra i 64 arrangement del banco A", "Shows the 64 arrangements of bank A"},
    {"frmMain", "mnuArrB", "Mostra i 64 arrangement del banco B", "Shows the 64 arrangements of bank B"},
    {"frmMain", "mnuArrU", "Mostra gli arrangement che lo strumento ha ricevuto", "Shows the arrangements that the instrument was sent"},
    {"frmMain", "mnuStyA", "Mostra i 64 style del banco A", "Shows the 64 styles of bank A"},
    {"frmMain", "mnuStyB", "Mostra i 64 style del banco B", "Shows the 64 styles of bank B"},
    {"frmMain", "mnuWProgA", "Mostra i 64 program del banco A", "Shows the 64 programs of bank A"},
    {"frmMain", "mnuWProgB", "Mostra i 64 program del banco B", "Shows the 64 programs of bank B"},
    {"frmMain", "mnuWProgC", "Mostra i 64 program del banco C", "Shows the 64 programs of bank C"},
    {"frmMain", "mnuWProgD", "Mostra i 64 program del banco D", "Shows the 64 programs of bank D"},
    {"frmMain", "mnuWProgE", "Mostra i 64 program del banco E", "Shows the 64 programs of bank E"},
    {"frmMain", "mnuPrgU", "Mostra i program che lo strumento ha ricevuto", "Shows the programs that the instrument was sent"},
    {"frmMain", "mnuDrum", "Mostra i kit di batteria", "Shows the drum kits"},
    {"frmMain", "mnuPerc", "Mostra i kit di batteria per la percussione", "Shows the drum kits for the percussion part"},
    {"frmMain", "mnuMultisample", "Mostra i suoni di base degli oscillatori", "Shows the sounds that the oscillators start from"},
    {"frmMain", "mnuGlobalParam", "Mostra i parametri globali dello strumento", "Shows the global parameters of the instrument"},
    {"frmMain", "mnuMsgEx", "Mostra l'ultimo messaggio MIDI trasmesso", "Shows the MIDI message sent last"},
    {"frmMain", "mnuWEditDBArr", "Mostra l'archivio degli arrangement", "Shows the arrangement database"},
    {"frmMain", "mnuTastiera", "Suona lo strumento con una tastiera sullo schermo", "Plays the instrument from a keyboard on the screen"},

    // Preferences menu.
    {"frmMain", "mnuPreferenze", "Lingua, porte MIDI e opzioni automatiche", "Language, MIDI ports and automatic options"},
    {"frmMain", "mnuLingua", "La lingua del programma, dal prossimo avvio", "The language of the program, from the next start on"},
    {"frmMain", "mnuItaliano", "Usa l'italiano dal prossimo avvio", "Uses Italian from the next start on"},
    {"frmMain", "mnuInglese", "Usa l'inglese dal prossimo avvio", "Uses English from the next start on"},
    {"frmMain", "mnuMIDIOut", "La porta MIDI a cui è collegato lo strumento", "The MIDI port that leads to the instrument"},
    {"frmMain", "mnuDevMIDIOut", "Trasmette su questa porta, o la chiude se è già scelta", "Sends by this port, or closes it when it is the one in use"},
    {"frmMain", "mnuMIDIIn", "La porta MIDI da cui arriva ciò che si suona", "The MIDI port that brings what you play"},
    {"frmMain", "mnuDevMIDIIn", "Riceve da questa porta, o la chiude se è già scelta", "Takes in from this port, or closes it when it is the one in use"},
    {"frmMain", "mnuMIDIThru", "Passa allo strumento ciò che arriva dall'ingresso MIDI", "Passes on to the instrument what comes in at the MIDI input"},
    {"frmMain", "mnuMIDI", "I canali MIDI dello strumento e delle sue parti", "The MIDI channels of the instrument and its parts"},
    {"frmMain", "mnuCaricaArr", "Selezionando una riga trasmette prima il file, se lo strumento non lo ha", "Selecting a row first sends its file, if the instrument doesn't hold it"},
    {"frmMain", "mnuCaricaSty", "Selezionando una riga trasmette prima i suoi style, se mancano allo strumento", "Selecting a row first sends its styles, if the instrument lacks them"},
    {"frmMain", "mnuCaricaStyNuovoArr", "Trasmette gli style anche dalle finestre dei nuovi arrangement", "Sends the styles from windows of new arrangements as well"},
    {"frmMain", "mnuCaricaPrg", "Trasmette anche i program, se l'arrangement ne ha bisogno", "Sends the programs as well, if the arrangement needs them"},
    {"frmMain", "mnuAutoPrgSel", "Con la barra spaziatrice mostra i program dell'arrangement", "The space bar shows the programs of the arrangement"},
    {"frmMain", "mnuRdOnly", "Apre i file in sola lettura, così che nulla possa cambiarli", "Opens files for reading only, so that nothing can change them"},
    {"frmMain", "mnuVisBarraStato", "Mostra o nasconde la barra di stato", "Shows or hides the status bar"},
    {"frmMain", "mnuAddi40DBArr", "Mette nell'archivio ogni file che si salva", "Enters every file that you save in the database"},

    // Window and help menus.
    {"frmMain", "mnuWindow", "Ordinare le finestre aperte", "Put the open windows in order"},
    {"frmMain", "mnuBloccoNote", "Appunti che restano da una volta all'altra", "Notes that are kept from one run to the next"},
    {"frmMain", "mnuWCascade", "Mette le finestre una dietro l'altra", "Places the windows one behind the other"},
    {"frmMain", "mnuHelp", "La guida e notizie sul programma", "The guide and facts about the program"},
    {"frmMain", "mnuGuida", "Legge la guida del programma", "Reads the user's guide"},
    {"frmMain", "mnuInfo", "La versione del programma", "The version of the program"},

    // Arrangement file window.
    {"frmArrU", "List1", "I 64 arrangement del file; un clic seleziona l'arrangement sullo strumento", "The 64 arrangements of the file; a click selects one on the instrument"},
    {"frmArrU", "Combo1", "Lo style dell'arrangement selezionato, e tutti gli style del file", "The style of the selected arrangement, and all styles of the file"},
    {"frmArrU", "Text1", "Il numero dell'arrangement nell'archivio: il file e la riga", "The number of the arrangement in the database: file and row"},
    {"frmArrU", "Text2", "Il suono di UPPER1, o \"User\" se l'arrangement usa i program del file", "The sound of UPPER1, or \"User\" if the arrangement uses the programs of the file"},
    {"frmArrU", "Label1", "Che cosa mostrano le caselle accanto", "What the boxes beside it show"},
    {"frmArrU", "CommLoadArr", "Trasmette allo strumento i 64 arrangement del file", "Sends the 64 arrangements of the file to the instrument"},
    {"frmArrU", "CommLoadSty", "Trasmette allo strumento gli style del file con lo stesso nome", "Sends the styles of the file of the same name to the instrument"},
    {"frmArrU", "CommShowSty", "Mostra il file di style con lo stesso nome", "Shows the style file of the same name"},
    {"frmArrU", "CommLoadPrg", "Trasmette allo strumento i program del file con lo stesso nome", "Sends the programs of the file of the same name to the instrument"},
    {"frmArrU", "CommShowPrg", "Mostra il file di program con lo stesso nome", "Shows the program file of the same name"},
    {"frmArrU", "CommEdit", "Apre l'editor sull'arrangement selezionato", "Opens the editor on the selected arrangement"},
    {"frmArrU", "CommAdd", "Mette il file nell'archivio e gli dà un numero", "Enters the file in the database and gives it a number"},
    {"frmArrU", "CommArrPlay", "Mette lo strumento in modo Arr Play", "Puts the instrument in Arr Play mode"},
    {"frmArrU", "CommSongPlay", "Mette lo strumento in modo Song Play", "Puts the instrument in Song Play mode"},
    {"frmArrU", "CommClose", "Chiude questa finestra", "Closes this window"},
};
// clang-format on

const Tip* FindTip(std::string_view form, std::string_view control) {
  for (const Tip& tip : kTips) {
    if (tip.form == form && tip.control == control) return &tip;
  }
  return nullptr;
}

}  // namespace

std::string_view ToolTip(std::string_view form, std::string_view control, int language_code) {
  const Tip* tip = FindTip(form, control);
  if (tip == nullptr) tip = FindTip(form, control.substr(0, control.find('(')));
  if (tip == nullptr) return {};
  return language_code == 1 ? tip->italian : tip->english;
}

}  // namespace zentaline
