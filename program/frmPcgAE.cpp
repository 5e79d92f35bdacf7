#include "program/frmPcgAE.h"

#include "core/window_image.h"
#include "data/names.h"

namespace zentaline {

namespace {

constexpr std::string_view kTitles[] = {"Prg A", "Prg B", "Prg C", "Prg D", "Prg E"};
constexpr std::size_t kTitleLength = 5;

}  // namespace

frmPcgAE::frmPcgAE(Application& app, int kind)
    : BankWindow(app, "frmPcgAE", kind, kTitles[kind - kKindPrgA], kTitleLength, ProgramNames(kind - kKindPrgA)) {}

}  // namespace zentaline
