#include "data/texts.h"

#include <algorithm>
#include <iterator>

namespace zentaline {
namespace {

// Wording, blanks at the end and odd spellings are part of the table; other tables and the users' manuals quote them.
// clang-format off
constexpr TextRow kTexts[] = {
    {1, "_", "_"},
    {2, "&File", "&File"},
    {3, "&Visualizza", "&View"},
    {4, "Fi&nestra", "&Window"},
    {5, "Informazioni", "&About"},
    {6, "&Apri Arr", "&Open Arr"},
    {7, "&Esci", "E&xit"},
    {8, "&Chiudi", "&Close"},
    {9, "&Sovrapponi", "&Cascade"},
    {10, "Elaborazione File Style", "Processing File Style"},
    {11, "Trasmissione Style", "Loading Style"},
    {12, "Trasm. Arrangement", "Loading Arrangement"},
    {13, "Trasmissione Program", "Loading Program"},
    {14, "Formato dati _ errato", "Error reading _"},
    {15, "File assente", "File not found"},
    {16, "Dispositivo MIDI di ingresso assente", "MIDI input device not found"},
    {17, "Apertura di _", "Opening "},
    {18, "Dispositivo MIDI di Uscita già in uso", "Output MIDI Device already in use"},
    {19, "Errore apertura dispositivo MIDI di ingresso", "Error opening MIDI input device"},
    {20, "Dispositivo MIDI di Uscita assente", "Output MIDI Device not found"},
    {21, "Errore chiusura Dispositivo MIDI di Uscita", "Error closing Output MIDI Device"},
    {22, "Canale MIDI", "MIDI Channel"},
    {23, "Cancella", "Cancel"},
    {24, "Riprova", "Retry"},
    {25, "Unità non disponibile", "Device unavailable"},
    {26, "Disco non pronto o non formattato", "Disk not ready or not formatted"},
    {27, "Errore di lettura da disco", "Disk reading error"},
    {28, "Disco pieno", "Disk full"},
    {29, "ATTENZIONE", "WARNING"},
    {30, "Informazioni su ", "About "},
    {37, "Cerca Arrangement (nome)", "Find Arrangement (name)"},
    {38, "Cerca Arra&ngement (ID)", "Find Arra&ngement (ID)"},
    {39, "A&ggiornamento i40DBArr", "&Update i40DBArr"},
    {40, "File i40DBArr assente", "File i40DBArrnot found"},
    {41, "File i40DBArr errato", "File i40DBArrdata error"},
    {42, "File Arrangement assente", "File Arrangement not found"},
    {43, "File i40DBArr vuoto", "File i40DBArrempty"},
    {44, "&Cancella", "&Delete"},
    {45, "ATTENDERE", "WAIT"},
    {46, "Nome File", "File Name"},
    {47, "Guida Utente", "User's Guide"},
    {48, "Nome file non valido", "File name not valid"},
    {49, "Chiudere prima tutte le altre applicazioni", "Close before all other applications"},
    {50, "File i40Prg assente", "File i40Pcg not found"},
    {51, "&Apri", "&Open"},
    {52, "Il file è stato modificato", "The file has changed"},
    {53, "Salvare le modifiche ?", "Save changes ?"},
    {54, "&Salva", "&Save"},
    {62, "&Preferenze", "&Preferences"},
    {63, "&Lingua", "&Language"},
    {64, "Italiano", "Italian"},
    {65, "Inglese", "English"},
    {66, "Il cambio avrà effetto alla prossima esecuzione del programma", "The change will take place next time you will run the programme"},
    {67, "Apri File", "Open File"},
    {68, "Carica Style", "Load Style"},
    {69, "Visualizza Program", "Show Program"},
    {70, "Carica Program", "Load Program"},
    {71, "&Modifica", "&Edit"},
    {72, "Copia", "Copy"},
    {73, "Taglia", "Cut"},
    {74, "Incolla", "Paste"},
    {75, "Salva file come", "Save file as"},
    {76, "errore generico", "generic error"},
    {77, "File i40ArrA assente", "File i40ArrA not found"},
    {78, "File i40ArrB assente", "File i40ArrB not found"},
    {79, "File _ assente", "File _ not found"},
    {80, "Nuovo File Arr", "New File Arr"},
    {81, "SenzaNome", "Untitled"},
    {82, "Non sono consentiti più di 4 stili per file", "Not more than 4 styles per file are allowed"},
    {83, "Incolla Arrangement", "Paste Arrangement/s"},
    {84, "Cambio lingua", "Change language"},
    {85, "Apri Prg/Pgg", "Open Prg/Pgg"},
    {86, "&Nuovo Arr", "&New Arr"},
    {87, "Nuovo Prg/Pgg", "New Prg/Pgg"},
    {88, "Nuovo File Program", "New File Program"},
    {89, "Elaborazione file sty i30", "Processing file sty i30"},
    {90, "File di sola lettura", "Read only file"},
    {91, "Messaggi MIDI", "MIDI messages"},
    {92, "Cerca Arrangement (ID)", "Find Arrangement (ID)"},
    {93, "File già aperto", "File already open"},
    {94, "L'Arrangement è stato modificato.", "The Arrangement has changed."},
    {95, "Aggiorna Automaticamente i40DBArr", "Update Automatically i40DBArr"},
    {96, "Apertura di _", "Opening _"},
    {97, "Scegliere la directory del file aperto come directory di lavoro di i40DBArr ?", "Choose the directory of the opened file as working directory of i40DBArr?"},
    {98, "Interno", "Internal"},
    {99, "Elaborazione di _", "Processing _"},
    {100, "_ errato", "_ error"},
    {101, "Aggiornamento di _", "Update _"},
    {102, "Carica Arrangement", "Load Arrangement"},
    {103, "Visualizza Barra di Stato", "Show Status Bar"},
    {104, "Errore di lettura", "Reading Error"},
    {105, "Lettura di ", "Reading "},
    {106, "Tastiera", "Keyboard"},
    {107, "Carica Style (Nuovo Arr)", "Load Style (New Arr)"},
    {108, "Messaggi MIDI", "MIDI Messages"},
    {109, "Errore di scrittura su disco", "Disk writing error"},
    {110, "Impossibile trovare il percorso", "Path not found"},
    {111, "Apertura di ", "Opening "},
    {112, "Errore I/O periferica", "Error I/O device"},
    {113, "Apertura dispositivo MIDI", "Opening MIDI out device"},
    {114, "Chiusura dispositivo MIDI di uscita", "Closing MIDI out device"},
    {115, "Salva ", "Saving "},
    {116, "Formato dati errato", "Data format error"},
    {117, "Errore Apertura Dispositivo MIDI di Ingresso", "Error Opening the MIDI Input Device"},
    {118, "Il Dispositivo MIDI non sarà utilizzato", "The MIDI Device will not be used"},
    {119, "La lunghezza di un gruppo di 4 Styles deve essere inferiore a 65496 bytes", "The lenght of a 4 Styles group must be less than 65496 bytes"},
    {120, "Incolla Style/s", "Paste Style"},
    {121, "Nuovo Style", "New Style"},
    {122, "Sola Lettura", "Read Only"},
    {123, "Ingrandisci", "Maximize"},
    {124, "Trasm. Back. Seq.", "Loading Back. Seq."},
    {125, "Importa", "Import"},
    {126, "Il Program è stato modificato.", "The Program has changed."},
    {127, "Mantenere le modifiche ?", "Keep changes ?"},
    {128, "Blocco Note", "Notebook"},
    {129, "Zentaline Console/File Manager per KORG i40M, iS35, iS40/50 (Arranger/Tastiera)", "Zentaline Console/File Manager for KORG i40M, iS35, iS40, iS50 (Arranger/Keyboard)"},
    {130, "Errore accesso dispositivo MIDI di uscita", "Error accessing MIDI output device"},
    {131, "Versione 4.0, 2004 (release 11 marzo 2004)", "Version 4.0, 2004 (release 11th March 2004)"},
    {138, "Canali MIDI", "MIDI channels"},
    {141, "Selezione Automatica Program", "Auto Program Selection"},
    {143, "Apri Sty", "Open Sty"},
    {144, "Apri Gbl", "Open Gbl"},
    {145, "Apri Bsq", "Open Bsq"},
    {146, "Importazione di ", "Importing "},
    {147, "Stampa", "Print"},
    {148, "Lista", "List"},
    {149, "Tabella", "Table"},
    {150, "Selezione Automatica Program", "Auto Program Selection"},
    {151, "Dispositivo MIDI di uscita", "MIDI out device"},
    {152, "Dispositivo MIDI di ingresso", "MIDI in device"},
    {153, "(vuoto)", "(empty)"},
    {154, "Dispositivo MIDI di ingresso già in uso", "Input MIDI Device already in use"},
};
// clang-format on

static_assert(std::size(kTexts) == 132);
static_assert(std::is_sorted(std::begin(kTexts), std::end(kTexts),
                             [](const TextRow& a, const TextRow& b) { return a.id < b.id; }));

const TextRow* FindText(int id) {
  const auto row = std::lower_bound(std::begin(kTexts), std::end(kTexts), id,
                                    [](const TextRow& a, int wanted) { return a.id < wanted; });
  return row != std::end(kTexts) && row->id == id ? row : nullptr;
}

}  // namespace

std::span<const TextRow> AllTexts() {
  return kTexts;
}

std::string_view TextOf(int id) {
  const bool english = id > kEnglishOffset;
  const TextRow* row = FindText(english ? id - kEnglishOffset : id);
  if (row == nullptr) return {};
  return english ? row->english : row->italian;
}

bool HasText(int id) {
  return FindText(id > kEnglishOffset ? id - kEnglishOffset : id) != nullptr;
}

}  // namespace zentaline
