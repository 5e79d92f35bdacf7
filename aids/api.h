// The keyboard on the screen, the guide and the notebook, as the rest of the program uses them.
#pragma once

namespace zentaline {

struct Application;

// mnuGuida: reads the guide of the language and shows it. One that is absent, can't be read or is too long is told of,
// and no window opens.
void ShowGuide(Application& app);
// mnuBloccoNote: shows the notebook, whose file is made when it is missing.
void ShowNotebook(Application& app);
// mnuTastiera: shows the keyboard.
void ShowKeyboard(Application& app);
// The arrangement under edit has another split point: the keyboard shows it, when it is open.
void ShowSplitNoteOnKeyboard(Application& app, int note);
// The program ends: what the keyboard plays ends while there is a port.
void EndKeyboardNotes(Application& app);

}  // namespace zentaline
