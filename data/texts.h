// The numbered text table: everything the program says in its own words, in Italian and English, UTF-8.
#pragma once

#include <span>
#include <string_view>

namespace zentaline {

// Added to a text's id it gives the English twin.
inline constexpr int kEnglishOffset = 200;

// Italian ids of the texts that windows ask for by themselves.
inline constexpr int kTextClose = 8;
inline constexpr int kTextInputOpening = 19;
inline constexpr int kTextMidiChannel = 22;
inline constexpr int kTextCancel = 23;
inline constexpr int kTextAbout = 30;
inline constexpr int kTextDelete = 44;
inline constexpr int kTextFileName = 46;
inline constexpr int kTextGuide = 47;
inline constexpr int kTextNameNotValid = 48;
inline constexpr int kTextOpen = 51;
inline constexpr int kTextOpenFile = 67;
inline constexpr int kTextEdit = 71;
inline constexpr int kTextCut = 73;
inline constexpr int kTextSaveAs = 75;
inline constexpr int kTextNewFileArr = 80;
inline constexpr int kTextUntitled = 81;
inline constexpr int kTextPasteArr = 83;
inline constexpr int kTextChangeLanguage = 84;
inline constexpr int kTextNewFileProgram = 88;
inline constexpr int kTextCaption = 91;
inline constexpr int kTextReading = 105;
inline constexpr int kTextFindId = 92;
inline constexpr int kTextKeyboard = 106;
inline constexpr int kTextOpening = 111;
inline constexpr int kTextOpeningOut = 113;
inline constexpr int kTextClosingOut = 114;
inline constexpr int kTextSaving = 115;
inline constexpr int kTextPasteSty = 120;
inline constexpr int kTextNewStyle = 121;
inline constexpr int kTextReadOnly = 122;
inline constexpr int kTextNotebook = 128;
inline constexpr int kTextProgram = 129;
inline constexpr int kTextOutputAccess = 130;
inline constexpr int kTextVersion = 131;

struct TextRow {
  int id;  // 1 to 154, with gaps
  std::string_view italian;
  std::string_view english;
};

// The rows in the order of their ids.
std::span<const TextRow> AllTexts();

// Ids 1 to 154 are Italian, 201 to 354 English. An id that the table doesn't hold gives an empty view.
std::string_view TextOf(int id);

// Whether the table holds the id, in either language.
bool HasText(int id);

}  // namespace zentaline
