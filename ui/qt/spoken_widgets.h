// How the desktop tells a screen reader of the widgets that the toolkit has no fitting words for.
#pragma once

namespace zentaline::ui::qt {

// From then on a list that opens goes by its name; the toolkit would call it by the text that it shows, which many of a
// window have in common. One of several options is called that, not a check box. A fader's value is the one that is
// shown beside it, not how far its handle is from the end. A field that can be pressed is a button.
void SpeakOfWidgets();

}  // namespace zentaline::ui::qt
