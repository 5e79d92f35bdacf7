// What the entries that take back and bring forth are called: by the names of fields and commands.
#include <algorithm>
#include <array>

#include "core/application.h"
#include "core/undo.h"

namespace zentaline {

namespace {

constexpr int kItalian = 1;

// Most fields keep the names that the instrument gives them. A command joins what it is about without "of".
struct Word {
  std::string_view what;
  std::string_view english;
  std::string_view italian;
  bool command = false;
};
constexpr std::array kWords = {
    Word{"Cut", "Cut", "Taglia", true},
    Word{"Paste", "Paste", "Incolla", true},
    Word{"Attached", "Attached", "Unisci", true},
    Word{"Reset", "Reset", "Azzera", true},
    Word{"Delete", "Delete", "Cancella", true},
    Word{"Update", "Update", "Aggiorna", true},
    Word{"Add All", "Add All", "Aggiungi Tutti", true},
    Word{"Entry", "Entry", "Aggiungi", true},
    Word{"Arrangements", "Arrangements", "Arrangement"},
    Word{"Programs", "Programs", "Program"},
    Word{"Styles", "Styles", "Style"},
    Word{"Sound", "Sound", "Suono"},
    Word{"Name", "Name", "Nome"},
    Word{"VOL", "Volume", "Volume"},
    Word{"PAN", "Pan", "Pan"},
    Word{"Program Name", "Program Name", "Nome del program"},
};
constexpr std::string_view kKept = "Kept";

const Word* WordOf(std::string_view what) {
  const auto word = std::find_if(kWords.begin(), kWords.end(), [&](const Word& each) { return each.what == what; });
  return word == kWords.end() ? nullptr : &*word;
}

// What is said of an action, without mnemonics.
std::string Said(const EditWords& words, bool italian) {
  if (words.what == kKept) {
    const std::string kept = italian ? "mantenuto" : "kept";
    return words.name.empty() ? kept : words.name + " " + kept;
  }
  const auto in_language = [&](std::string_view text) {
    const Word* word = WordOf(text);
    return std::string(word == nullptr ? text : italian ? word->italian : word->english);
  };
  const Word* what = WordOf(words.what);
  std::string said = in_language(words.what);
  if (!words.of.empty()) {
    const bool command = what != nullptr && what->command;
    said += command ? " " : italian ? " di " : " of ";
    said += in_language(words.of);
  }
  if (!words.name.empty()) said += " " + words.name;
  return said;
}

}  // namespace

std::string UndoCaption(const Application& app, bool back, const EditAction* action) {
  const bool italian = app.Language() == kItalian;
  std::string caption = back ? (italian ? "&Annulla" : "&Undo") : (italian ? "&Ripeti" : "&Redo");
  if (action == nullptr || action->words.what.empty()) return caption;
  caption += ": ";
  for (const char each : Said(action->words, italian)) {
    if (each == '&') caption += each;
    caption += each;
  }
  return caption;
}

}  // namespace zentaline
