// Cuts a run that fails down to a short one that fails in the same way.
#pragma once

#include <string>
#include <vector>

#include "tests/monkey/life.h"

namespace zentaline::monkey {

// The lines of all lives of a report, a life after the other. What was refused is left out.
using Script = std::vector<std::vector<std::string>>;
Script ReadScript(const std::string& folder);

// Plays the lives on a fresh folder; why it failed, or nothing. Shared is as after the run.
std::string Replay(Shared& shared, Folder& folder, const Reports& reports, const Script& script);

// Takes out chunks of lines, ever smaller ones, as long as the run fails as before; the reports then are of the
// shortest.
Script Shrink(Shared& shared, Folder& folder, const Reports& reports, const Script& script, int most_runs);

}  // namespace zentaline::monkey
