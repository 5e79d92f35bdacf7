#include "data/more_texts.h"

#include <array>
#include <cstddef>

namespace zentaline {

namespace {

struct Row {
  std::string_view italian;
  std::string_view english;
};

// In the order of MoreText.
constexpr std::array kRows = {
    Row{"_ era cambiato su disco: conservato come _", "_ had changed on the disk: kept as _"},
    Row{"Il giornale delle modifiche non può essere scritto: ciò che non è salvato andrebbe perso in un arresto.",
        "The journal of changes can't be written: what isn't saved would be lost in a crash."},
    Row{"Modifiche non salvate: _ in _ file.\nRecuperarle ?", "Changes not saved: _ in _ files.\nBring them back ?"},
    Row{"Non tutte le modifiche hanno trovato una finestra libera. Restano in _.",
        "Not all changes have found a free window. They stay in _."},
    Row{" (recuperato)", " (recovered)"},
};

}  // namespace

std::string_view MoreTextOf(MoreText text, int language) {
  const Row& row = kRows[static_cast<std::size_t>(text)];
  return language == 1 ? row.italian : row.english;
}

}  // namespace zentaline
