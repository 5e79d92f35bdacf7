// Which texts of the table the boxes and the wait label show, by the codes their callers use.
#pragma once

namespace zentaline {

// ShowMessage codes 0 to 38. The text's Italian id; 0 for a code that is not in use (11, 37 and any outside the range).
int MessageTextId(int code);

// ShowWait codes 1 to 9. The text's Italian id; 0 for code 0, which clears the label, and for codes not in use.
int WaitTextId(int code);

// A question's text is the text `first`, and when `second` is not 0 a line break and the text `second`. Both 0: the
// caller's own name stands as it is (code 0), or the code is not in use.
struct QuestionTexts {
  int first;
  int second;
};

// AskYesNo codes 0 to 3.
QuestionTexts YesNoTexts(int code);

// AskYesNoCancel codes 0 to 3.
QuestionTexts YesNoCancelTexts(int code);

}  // namespace zentaline
