#include "ui/qt/words.h"

namespace zentaline::ui::qt {

const Words& EnglishWords() {
  static const Words words{
      .language = "en",
      .ok = "OK",
      .cancel = "Cancel",
      .yes = "&Yes",
      .no = "&No",
      .open = "&Open",
      .save = "&Save",
      .look_in = "Look in:",
      .file_name = "File &name:",
      .files_of_type = "Files of type:",
      .read_only = "Open as &read-only",
      .overwrite_title = "Save",
      .overwrite = "“%1” already exists. Replace it?",
      .also_touched = "These files would be replaced or removed as well:\n%1\nGo on?",
      .progress = "%1 of %2 bytes, %3 s left",
      .progress_tool_tip = "How much of the message has gone to the instrument",
      .print_preview = "Print preview",
      .print = "&Print...",
      .print_tool_tip = "Chooses a printer and prints the page",
      .print_pdf = "P&DF...",
      .print_pdf_tool_tip = "Writes the page to a PDF file",
      .print_pdf_title = "Print to PDF",
      .print_close_tool_tip = "Closes the preview without printing",
      .restore = "&Restore",
      .move = "&Move",
      .size = "&Size",
      .minimise = "Mi&nimize",
      .maximise = "Ma&ximize",
      .stay_on_top = "Stay on &Top",
      .close = "&Close",
  };
  return words;
}

const Words& ItalianWords() {
  static const Words words{
      .language = "it",
      .ok = "OK",
      .cancel = "Annulla",
      .yes = "&Sì",
      .no = "&No",
      .open = "&Apri",
      .save = "&Salva",
      .look_in = "Cerca in:",
      .file_name = "&Nome file:",
      .files_of_type = "Tipo di file:",
      .read_only = "Apri in sola &lettura",
      .overwrite_title = "Salva",
      .overwrite = "“%1” esiste già. Sostituirlo?",
      .also_touched = "Verrebbero sostituiti o rimossi anche questi file:\n%1\nContinuare?",
      .progress = "%1 di %2 byte, ancora %3 s",
      .progress_tool_tip = "Quanta parte del messaggio è arrivata allo strumento",
      .print_preview = "Anteprima di stampa",
      .print = "&Stampa...",
      .print_tool_tip = "Sceglie una stampante e stampa la pagina",
      .print_pdf = "P&DF...",
      .print_pdf_tool_tip = "Scrive la pagina in un file PDF",
      .print_pdf_title = "Stampa su PDF",
      .print_close_tool_tip = "Chiude l'anteprima senza stampare",
      .restore = "&Ripristina",
      .move = "&Sposta",
      .size = "&Dimensiona",
      .minimise = "Riduci a &icona",
      .maximise = "I&ngrandisci",
      .stay_on_top = "Sempre in &primo piano",
      .close = "&Chiudi",
  };
  return words;
}

}  // namespace zentaline::ui::qt
