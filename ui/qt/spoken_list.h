// How the desktop tells a screen reader of a list that opens.
#pragma once

namespace zentaline::ui::qt {

// From then on such a list goes by its name. The toolkit's own way is to call it by the text that it shows, which many
// of a window have in common.
void SpeakOfListsByName();

}  // namespace zentaline::ui::qt
