// What crashes have left in journals, at the next start.
#pragma once

namespace zentaline {

struct Application;

// Offers what each journal of the working directory holds that no file does, and brings it back into windows. For the
// end of the start, when the windows of the last run are back.
void OfferJournals(Application& app);

// At the regular end: journals that were put away in an earlier run go.
void RemoveOldJournals(Application& app);

}  // namespace zentaline
