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
    {"frmMain", "mnuAutoPrgSel", "Selezionando un program ne trasmette prima il banco, se lo strumento non lo ha; la barra spaziatrice mostra i program dell'arrangement", "Selecting a program first sends its bank, if the instrument lacks it; the space bar shows the programs of the arrangement"},
    {"frmMain", "mnuRdOnly", "Apre i file in sola lettura, così che nulla possa cambiarli", "Opens files for reading only, so that nothing can change them"},
    {"frmMain", "mnuVisBarraStato", "Mostra o nasconde la barra di stato", "Shows or hides the status bar"},
    {"frmMain", "mnuAddi40DBArr", "Mette nell'archivio ogni file di arrangement che si apre", "Enters every arrangement file that you open in the database"},

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

    // Program windows.
    {"frmPrgUN", "List1", "I 64 program del banco, con un asterisco i rimandi ad altri banchi; un clic seleziona il suono sullo strumento o lo assegna alla parte in attesa", "The 64 programs of the bank, links to other banks with an asterisk; a click selects the sound on the instrument, or gives it to the part that waits for one"},
    {"frmPrgUN", "Label1", "Il canale MIDI su cui si sentono i program del banco", "The MIDI channel on which the programs of the bank are heard"},
    {"frmPrgUN", "Combo1", "Il canale MIDI su cui si sentono i program del banco", "The MIDI channel on which the programs of the bank are heard"},
    {"frmPrgUN", "CommLoad", "Trasmette allo strumento i 64 program del banco", "Sends the 64 programs of the bank to the instrument"},
    {"frmPrgUN", "CommProgram", "Mette lo strumento in modo Program", "Puts the instrument in Program mode"},
    {"frmPrgUN", "CommEdit", "Apre l'editor sul program selezionato", "Opens the editor on the selected program"},
    {"frmPrgUN", "Frame1(0)", "Ciò che si trasmette allo strumento", "What is sent to the instrument"},
    {"frmPrgUN", "Frame1(1)", "Cambiare il program selezionato", "Change the selected program"},
    {"frmPrgUN", "CommClose", "Chiude questa finestra", "Closes this window"},
    {"frmPcgAE", "List1", "I 64 program del banco; un clic seleziona il suono sullo strumento, o lo assegna alla parte in attesa", "The 64 programs of the bank; a click selects the sound on the instrument, or gives it to the part that waits for one"},
    {"frmPcgAE", "Label1", "Il canale MIDI su cui si sentono i program del banco", "The MIDI channel on which the programs of the bank are heard"},
    {"frmPcgAE", "Combo1", "Il canale MIDI su cui si sentono i program del banco", "The MIDI channel on which the programs of the bank are heard"},
    {"frmPcgAE", "CommClose", "Chiude questa finestra", "Closes this window"},
    {"frmDrum", "List1", "I kit di batteria; un clic seleziona il kit sullo strumento, o lo assegna alla parte in attesa", "The drum kits; a click selects the kit on the instrument, or gives it to the part that waits for one"},
    {"frmDrum", "Label1", "Il canale MIDI su cui si sentono i kit", "The MIDI channel on which the kits are heard"},
    {"frmDrum", "Combo1", "Il canale MIDI su cui si sentono i kit", "The MIDI channel on which the kits are heard"},
    {"frmDrum", "CommClose", "Chiude questa finestra", "Closes this window"},

    // Style windows.
    {"frmStyUN", "List1", "I sedici style nei loro quattro gruppi; un clic dà lo style all'editor degli arrangement, se lo aspetta", "The sixteen styles in their four groups; a click gives the style to the arrangement editor, if it waits for one"},
    {"frmStyUN", "Text1", "La lunghezza dello style in byte", "The length of the style in bytes"},
    {"frmStyUN", "Text2", "La lunghezza dei quattro style del gruppo in byte", "The length of the four styles of the group in bytes"},
    {"frmStyUN", "Text3", "La lunghezza di tutto il file in byte", "The length of the whole file in bytes"},
    {"frmStyUN", "CommLoadSty", "Trasmette allo strumento tutti gli style, un gruppo dopo l'altro", "Sends all styles to the instrument, one group after the other"},
    {"frmStyUN", "CommLoadStyGrp", "Trasmette allo strumento i quattro style del gruppo", "Sends the four styles of the group to the instrument"},
    {"frmStyUN", "CommClose", "Chiude questa finestra", "Closes this window"},
    {"frmStyUN", "LabelGroup", "I numeri degli style del gruppo", "The numbers of the styles of the group"},
    {"frmStyUN", "LabelTotal", "La lunghezza di tutto il file in byte", "The length of the whole file in bytes"},
    {"frmStyAB", "List1", "I 64 style del banco; un clic dà lo style all'editor degli arrangement, se lo aspetta", "The 64 styles of the bank; a click gives the style to the arrangement editor, if it waits for one"},
    {"frmStyAB", "CommArrPlay", "Mette lo strumento in modo Arr Play", "Puts the instrument in Arr Play mode"},
    {"frmStyAB", "CommSongPlay", "Mette lo strumento in modo Song Play", "Puts the instrument in Song Play mode"},
    {"frmStyAB", "CommClose", "Chiude questa finestra", "Closes this window"},

    // Windows of the MIDI link.
    {"frmMsgEx", "Text1", "L'ultimo messaggio trasmesso, in cifre esadecimali", "The message sent last, in hexadecimal digits"},
    {"frmMIDI", "Lab3", "La parte dello strumento a cui appartiene il canale accanto", "The part of the instrument that the channel beside it belongs to"},
    {"frmMIDI", "Combo3", "Il canale MIDI, da 1 a 16, che deve essere lo stesso sullo strumento; vale dal prossimo messaggio", "The MIDI channel, 1 to 16, which has to be the same on the instrument; the next message uses it"},
    {"frmMIDI", "Combo3(0)", "Il canale globale, da 1 a 16, su cui lo strumento riceve i dati; vale dal prossimo messaggio", "The global channel, 1 to 16, by which the instrument takes data; the next message uses it"},
    {"frmMIDI", "CommClose", "Chiude questa finestra", "Closes this window"},

    // Arrangement editor. Of the nine parts the tips of the first stand for all.
    {"frmEditArr", "Label(0)", "Il nome dell'arrangement", "The arrangement's name"},
    {"frmEditArr", "Label(1)", "Lo style dell'arrangement e il suo numero", "The arrangement's style and its number"},
    {"frmEditArr", "Text1(0)", "Il nome dell'arrangement, al massimo 16 caratteri", "The arrangement's name, at most 16 characters"},
    {"frmEditArr", "Text1(1)", "Un clic, poi lo style si sceglie in una finestra di style; un altro clic rinuncia", "Click here, then choose the style in a style window; another click gives up"},
    {"frmEditArr", "Text1(2)", "Un clic, poi il program della parte si sceglie in una finestra di program; un altro clic rinuncia", "Click here, then choose the part's program in a program window; another click gives up"},
    {"frmEditArr", "Text1(3)", "Il banco e il numero del program", "The bank and number of the program"},
    {"frmEditArr", "SSTab1", "Le impostazioni generali, o le nove parti una accanto all'altra", "The general settings, or the nine parts side by side"},
    {"frmEditArr", "General", "Le impostazioni di tutto l'arrangement", "The settings of the whole arrangement"},
    {"frmEditArr", "Frame1", "I due effetti dell'arrangement", "The two effects of the arrangement"},
    {"frmEditArr", "Frame2", "Come l'arrangement segue tasti e accordi", "How the arrangement follows keys and chords"},
    {"frmEditArr", "Frame3", "Con quale tempo, variazione e fill comincia", "The tempo, variation and fills that it starts with"},
    {"frmEditArr", "Frame4", "Come si divide la tastiera", "How the keyboard is divided"},
    {"frmEditArr", "Frame5", "Le voci aggiunte alla melodia", "The voices added to the melody"},
    {"frmEditArr", "Frame6", "Quali suoni prende la batteria", "Which sounds the drums take"},
    {"frmEditArr", "Drum", "La parte Drum dello style", "The drum part of the style"},
    {"frmEditArr", "Percussion", "La parte Percussion dello style", "The percussion part of the style"},
    {"frmEditArr", "FrBass", "La parte del basso dello style", "The bass part of the style"},
    {"frmEditArr", "FrAcc1", "La prima parte di accompagnamento", "The first accompaniment part"},
    {"frmEditArr", "FrACC2", "La seconda parte di accompagnamento", "The second accompaniment part"},
    {"frmEditArr", "FrACC3", "La terza parte di accompagnamento", "The third accompaniment part"},
    {"frmEditArr", "UPPER1", "La prima parte suonata con la mano destra", "The first part played by the right hand"},
    {"frmEditArr", "UPPER2", "La seconda parte suonata con la mano destra", "The second part played by the right hand"},
    {"frmEditArr", "LOWER", "La parte suonata con la mano sinistra", "The part played by the left hand"},
    {"frmEditArr", "VScroll1(0)", "Il tempo in battiti al minuto, da 40 a 240", "The tempo in beats a minute, 40 to 240"},
    {"frmEditArr", "VScroll1(1)", "Il volume della parte, da 0 a 127", "The volume of the part, 0 to 127"},
    {"frmEditArr", "VScroll1(2)", "La posizione della parte fra sinistra e destra; OFF la spegne, PRG prende quella del program", "Where the part stands between left and right; OFF turns it off, PRG takes the program's own"},
    {"frmEditArr", "HScroll1(0)", "La nota che divide la tastiera", "The note that divides the keyboard"},
    {"frmEditArr", "HScroll1(1)", "La mappa di batteria della variazione scelta, da 1 a 8", "The drum map of the chosen variation, 1 to 8"},
    {"frmEditArr", "Combo1(0)", "Quali parti suonano in quale zona della tastiera", "Which parts play in which zone of the keyboard"},
    {"frmEditArr", "Combo1(1)", "La variazione che segue il fill 1", "The variation that follows fill 1"},
    {"frmEditArr", "Combo1(2)", "La variazione che segue il fill 2", "The variation that follows fill 2"},
    {"frmEditArr", "Combo1(3)", "La variazione con cui comincia lo style", "The variation that the style starts with"},
    {"frmEditArr", "Combo1(4)", "Alza o abbassa tutto di tanti semitoni", "Raises or lowers everything by so many semitones"},
    {"frmEditArr", "Combo1(5)", "La variazione di cui si vede la mappa di batteria", "The variation whose drum map is shown"},
    {"frmEditArr", "Combo1(6)", "Mostra la grancassa; una scelta va dove è andata l'ultima modifica di una lista", "Shows the kick; a choice goes where the last change of a list went"},
    {"frmEditArr", "Combo1(7)", "Mostra il rullante; una scelta va dove è andata l'ultima modifica di una lista", "Shows the snare; a choice goes where the last change of a list went"},
    {"frmEditArr", "Combo1(8)", "Il genere di voci aggiunte alla melodia", "The kind of voices added to the melody"},
    {"frmEditArr", "Combo1(9)", "Il kit che si suona a mano sulla tastiera", "The kit that is played by hand on the keyboard"},
    {"frmEditArr", "Combo2(0)", "Quanto della parte va all'effetto C; PRG prende il livello del program", "How much of the part goes to effect C; PRG takes the program's level"},
    {"frmEditArr", "Combo2(1)", "Quanto della parte va all'effetto D; PRG prende il livello del program", "How much of the part goes to effect D; PRG takes the program's level"},
    {"frmEditArr", "Combo2(2)", "Sposta la parte di tante ottave", "Shifts the part by so many octaves"},
    {"frmEditArr", "Combo2(3)", "Se la parte suona dentro lo strumento, all'uscita MIDI, o in entrambi", "Whether the part sounds in the instrument, at its MIDI out, or both"},
    {"frmEditArr", "Combo2(4)", "Se la parte suona, tace, o suona da sola", "Whether the part plays, is silent, or plays alone"},
    {"frmEditArr", "Combo2(5)", "La nota oltre la quale la parte torna all'ottava più bassa; ORG come nello style", "The note beyond which the part wraps to the octave below; ORG as in the style"},
    {"frmEditArr", "Check1(0)", "La dinamica dei tasti regola il volume dell'accompagnamento", "How hard the keys are struck sets the volume of the accompaniment"},
    {"frmEditArr", "Check1(1)", "Il tempo resta quando si cambia arrangement", "The tempo stays when the arrangement changes"},
    {"frmEditArr", "Check1(2)", "Il pedale damper agisce sulle parti di KBD1", "The damper pedal acts on the parts of KBD1"},
    {"frmEditArr", "Check1(3)", "Il pedale damper agisce sulle parti di KBD2", "The damper pedal acts on the parts of KBD2"},
    {"frmEditArr", "Check1(4)", "Gli accordi si riconoscono sotto il punto di split", "Chords are read below the split point"},
    {"frmEditArr", "Check1(5)", "Gli accordi si riconoscono sopra il punto di split", "Chords are read above the split point"},
    {"frmEditArr", "Check1(6)", "Il basso segue la nota più bassa dell'accordo", "The bass follows the lowest note of the chord"},
    {"frmEditArr", "Check1(7)", "L'accordo resta riconosciuto quando si lasciano i tasti", "The chord stays when the keys are let go"},
    {"frmEditArr", "Check1(8)", "L'accompagnamento continua quando si lasciano i tasti", "The accompaniment goes on when the keys are let go"},
    {"frmEditArr", "Check1(9)", "Accende le voci aggiunte alla melodia", "Turns the voices added to the melody on"},
    {"frmEditArr", "EffCombo(0)", "Il tipo del primo effetto", "The type of the first effect"},
    {"frmEditArr", "EffCombo(1)", "Il tipo del secondo effetto", "The type of the second effect"},
    {"frmEditArr", "EffComm", "Accende o spegne l'effetto sullo strumento; l'arrangement non cambia", "Turns the effect on or off at the instrument; the arrangement doesn't change"},
    {"frmEditArr", "CommM", "Fa tacere la parte sullo strumento; l'arrangement non cambia", "Silences the part at the instrument; the arrangement doesn't change"},
    {"frmEditArr", "CommS", "Fa tacere tutte le altre parti sullo strumento; l'arrangement non cambia", "Silences all other parts at the instrument; the arrangement doesn't change"},
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
