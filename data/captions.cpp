#include "data/captions.h"

#include "data/control_texts.h"

namespace zentaline {
namespace {

// clang-format off
constexpr ControlText kCaptions[] = {
    // Asked before any language is known, so it speaks both.
    {"frmLingua", "frmLingua", "Lingua - Language", "Lingua - Language"},
    {"frmLingua", "Option1(0)", "&Italiano", "&Italiano"},
    {"frmLingua", "Option1(1)", "&English", "&English"},
    {"frmLingua", "CommOK", "OK", "OK"},
    {"frmAbout", "cmdOK", "OK", "OK"},
    {"frmAvviso1", "CommSI", "&Sì", "&Yes"},
    {"frmAvviso1", "CommNO", "&No", "&No"},

    {"frmMain", "frmMain", "Zentaline", "Zentaline"},
    {"frmMain", "LabelPort.none", "Nessuna uscita MIDI", "No MIDI output"},
    {"frmMain", "LabelPort.open", "Uscita: _", "Out: _"},
    {"frmMain", "LabelPort.failed", "Uscita: _ in errore, sceglila di nuovo", "Out: _ failed, choose it again"},
    {"frmMain", "LabelWelcome.none", "Nessuna uscita MIDI scelta", "No MIDI output is chosen"},
    {"frmMain", "LabelWelcome.open", "Suona su: _", "Plays to: _"},
    {"frmMain", "LabelWelcome.failed", "_ in errore, sceglila di nuovo", "_ failed, choose it again"},
    {"frmMain", "FrameWelcome", "Per cominciare", "To begin"},
    {"frmMain", "CommWelcomeOutput", "Scegli l'&uscita MIDI", "Choose the MIDI o&utput"},
    {"frmMain", "CommWelcomeOpen", "A&pri un arrangement", "O&pen an arrangement"},
    {"frmMain", "CommWelcomeExample", "Apri l'e&sempio", "Open the e&xample"},
    {"frmMain", "LabelWelcomeRecent", "File recenti", "Recent files"},
    {"frmMain", "CommWelcomeGuide", "&Guida", "&Guide"},
    {"frmMain", "mnuImportaArri30", "arr (i30)", "arr (i30)"},
    {"frmMain", "mnuImportaStyi30", "sty (i30)", "sty (i30)"},
    {"frmMain", "mnuImportaPrgi30", "prg (i30)", "prg (i30)"},
    {"frmMain", "mnuImportaArri5", "arr (vecchia serie i)", "arr (old i-series)"},
    {"frmMain", "mnuImportaPcgi5", "pcg (vecchia serie i)", "pcg (old i-series)"},
    {"frmMain", "mnuAnnulla", "&Annulla", "&Undo"},
    {"frmMain", "mnuRipeti", "&Ripeti", "&Redo"},
    {"frmMain", "mnuLoadAll", "Carica Tutto", "Load All"},
    {"frmMain", "mnuShowSty", "Visualizza Style", "Show Style"},
    {"frmMain", "mnuEditPerf", "Modifica Performance", "Edit Performance"},
    {"frmMain", "mnui40DBArr", "+ i40DBArr", "+ i40DBArr"},
    {"frmMain", "mnuArrPlay", "Arr Play", "Arr Play"},
    {"frmMain", "mnuSongPlay", "Song Play", "Song Play"},
    {"frmMain", "mnuProgram", "Program", "Program"},
    {"frmMain", "mnuBSq", "Back. Seq.", "Back. Seq."},
    {"frmMain", "mnuAddAll", "Aggiungi Tutti", "Add All"},
    {"frmMain", "mnuArrA", "Arr A", "Arr A"},
    {"frmMain", "mnuArrB", "Arr B", "Arr B"},
    {"frmMain", "mnuArrU", "Arrangement User", "Arrangement User"},
    {"frmMain", "mnuStyA", "Style A", "Style A"},
    {"frmMain", "mnuStyB", "Style B", "Style B"},
    {"frmMain", "mnuWProgA", "Program A", "Program A"},
    {"frmMain", "mnuWProgB", "Program B", "Program B"},
    {"frmMain", "mnuWProgC", "Program C", "Program C"},
    {"frmMain", "mnuWProgD", "Program D", "Program D"},
    {"frmMain", "mnuWProgE", "Program E", "Program E"},
    {"frmMain", "mnuPrgU", "Program F/User", "Program F/User"},
    {"frmMain", "mnuDrum", "Drum", "Drum"},
    {"frmMain", "mnuPerc", "Percussion", "Percussion"},
    {"frmMain", "mnuMultisample", "Multisample", "Multisample"},
    {"frmMain", "mnuGlobalParam", "Parametri Globali", "Global Parameters"},
    {"frmMain", "mnuWEditDBArr", "i40DBArr", "i40DBArr"},
    {"frmMain", "mnuMIDIThru", "MIDI Thru", "MIDI Thru"},
    {"frmMain", "mnuWTile", "&Affianca", "&Tile"},
    {"frmMain", "mnuHelp", "A&iuto", "&Help"},

    {"frmStyUN", "LabelTotal", "Totale (byte)", "Total (bytes)"},
    {"frmMIDI", "frmMIDI", "Canali MIDI", "MIDI Channels"},

    {"frmArrU", "LabelId", "Id", "Id"},
    {"frmArrU", "Frame1(0)", "Allo strumento", "To the instrument"},
    {"frmArrU", "Frame1(1)", "Mostra", "Show"},
    {"frmArrU", "Frame1(2)", "Modifica e numera", "Edit and number"},
    {"frmArrU", "Frame1(3)", "Modo", "Mode"},

    {"frmArrAB", "LabelId", "Id", "Id"},
    {"frmArrAB", "Frame1", "Modo", "Mode"},
    {"frmArrNew", "Frame1(0)", "Allo strumento", "To the instrument"},
    {"frmArrNew", "Frame1(1)", "Modo", "Mode"},

    {"frmEditDBArr", "frmEditDBArr", "Edit i40DBArr", "Edit i40DBArr"},
    {"frmEditDBArr", "Label2", "Cartella", "Folder"},
    {"frmEditDBArr", "CommAddAll", "A&ggiungi Tutti", "Add &All"},
    {"frmFindID", "Label1", "ID", "ID"},
    {"frmFindID", "CommOK", "OK", "OK"},

    {"frmPrgUN", "Frame1(0)", "Allo strumento", "To the instrument"},
    {"frmPrgUN", "Frame1(1)", "Modifica", "Edit"},

    {"frmBsq", "Frame1(0)", "Eventi delle tracce", "Events of the tracks"},
    {"frmBsq", "Frame1(1)", "Allo strumento", "To the instrument"},
    {"frmBsq", "Frame1(2)", "Modo", "Mode"},

    {"frmMultisample", "frmMultisample", "Multisample", "Multisample"},

    {"frmEditPerf", "CommResetAll", "Reset di &tutto", "Reset &All"},

    {"frmEditPrg", "SSTab1(0)", "&Comune", "&Common"},
    {"frmEditPrg", "SSTab1(1)", "&Oscillatore 1", "&Oscillator 1"},
    {"frmEditPrg", "SSTab1(2)", "O&scillatore 2", "O&scillator 2"},
    {"frmEditPrg", "SSTab1(3)", "Effe&tti", "Effec&ts"},
    {"frmEditPrg", "LabelSilent", "In modo SINGLE l'oscillatore 2 tace.", "In SINGLE mode oscillator 2 is silent."},

    {"frmTastiera", "LabelChannel", "Canale &MIDI", "&MIDI Channel"},
    {"frmTastiera", "LabelOctave", "&Ottava", "&Octave"},
    {"frmTastiera", "CheckClickKey", "Clic&k Key", "Clic&k Key"},
    {"frmTastiera", "CheckHoldNote", "Hold &Note", "Hold &Note"},
    {"frmTastiera", "CommHoldChord", "Hold C&hord", "Hold C&hord"},
    {"frmTastiera", "CommAllNoteOff", "All Notes O&ff", "All Notes O&ff"},
    {"frmTastiera", "Frame1", "Controlli", "Controllers"},
    {"frmTastiera", "Lab1(0)", "Volume", "Volume"},
    {"frmTastiera", "Lab1(1)", "Pan", "Pan"},
    {"frmTastiera", "Lab1(2)", "Vel On", "Vel On"},
    {"frmTastiera", "Lab1(3)", "Vel Off", "Vel Off"},
    {"frmTastiera", "Lab1(4)", "Att Time", "Att Time"},
    {"frmTastiera", "Lab1(5)", "Rel Time", "Rel Time"},
    {"frmTastiera", "Lab1(6)", "Bend", "Bend"},
    {"frmTastiera", "Lab1(7)", "PMod", "PMod"},
    {"frmTastiera", "Lab1(8)", "COMod", "COMod"},
    {"frmTastiera", "Lab1(9)", "Reverb", "Reverb"},
    {"frmTastiera", "Lab1(10)", "Chorus", "Chorus"},
    {"frmTastiera", "Frame2", "Split", "Split"},
    {"frmTastiera", "CommArrPlay", "&ARR PLAY", "&ARR PLAY"},
    {"frmTastiera", "CommSongPlay", "&SONG PLAY", "&SONG PLAY"},

    {"frmEditArr", "SSTab1(1)", "Parti", "Parts"},
    {"frmEditArr", "Frame3", "Esecuzione", "Playing"},
    {"frmEditArr", "Frame4", "Tastiera", "Keyboard"},
    {"frmEditArr", "Frame6", "Batteria", "Drums"},
};
// clang-format on

}  // namespace

std::string_view Caption(std::string_view form, std::string_view control, int language_code) {
  static const ControlTexts texts(kCaptions);
  return texts.Find(form, control, language_code);
}

}  // namespace zentaline
