// What the style windows tell each other; for this folder alone.
#pragma once

namespace zentaline {

struct Application;

// mnuNuovoSty can be used while one of the eight places for new files is free.
void RefreshNewStyEntry(Application& app);

}  // namespace zentaline
