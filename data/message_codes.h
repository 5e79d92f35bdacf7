// Which texts of the table the boxes and the wait label show, by the codes their callers use.
#pragma once

namespace zentaline {

// The codes that are shown, by name. Of ShowMessage:
inline constexpr int kMessageText = 1;
inline constexpr int kMessageWrong = 2;
inline constexpr int kMessageNoPlaceForStyle = 3;
inline constexpr int kMessageErrorReading = 4;
inline constexpr int kMessageNotFound = 5;
inline constexpr int kMessageNoDatabase = 6;
inline constexpr int kMessageBadDatabase = 7;
inline constexpr int kMessageArrAbsent = 8;
inline constexpr int kMessageNoArrA = 14;
inline constexpr int kMessageNoArrB = 15;
inline constexpr int kMessageOpenAlready = 16;
inline constexpr int kMessageReadOnlyFile = 17;
inline constexpr int kMessageDiskReading = 18;
inline constexpr int kMessageDiskFull = 19;
inline constexpr int kMessageOutputAllocated = 20;
inline constexpr int kMessageNoOutput = 22;
inline constexpr int kMessageNextStart = 24;
inline constexpr int kMessageFileNotFound = 27;
inline constexpr int kMessageNotReady = 28;
inline constexpr int kMessagePathNotFound = 30;
inline constexpr int kMessageDevice = 31;
inline constexpr int kMessageDataFormat = 32;
inline constexpr int kMessageNoInput = 33;
inline constexpr int kMessageStylesTooLong = 36;
inline constexpr int kMessageInputAllocated = 38;
// Of ShowWait:
inline constexpr int kWaitLoadingSty = 2;
inline constexpr int kWaitLoadingArr = 3;
inline constexpr int kWaitLoadingPrg = 4;
inline constexpr int kWaitLoadingBsq = 5;
inline constexpr int kWaitOpening = 6;
inline constexpr int kWaitUpdate = 8;
inline constexpr int kWaitStyi30 = 9;
// Of the questions: AskYesNo (keep, directory, program) and AskYesNoCancel (save).
inline constexpr int kAskFileSave = 1;
inline constexpr int kAskArrKeep = 2;
inline constexpr int kAskArrSave = 2;
inline constexpr int kAskDirectory = 3;
inline constexpr int kAskPrgKeep = 4;
inline constexpr int kAskPrgSave = 3;

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

// AskYesNo codes 0 to 4.
QuestionTexts YesNoTexts(int code);

// AskYesNoCancel codes 0 to 3.
QuestionTexts YesNoCancelTexts(int code);

}  // namespace zentaline
