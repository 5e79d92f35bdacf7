// The words that the desktop itself shows, in the language of the program.
#pragma once

#include <string>

namespace zentaline::ui::qt {

struct Words {
  std::string language;  // its two letters
  std::string ok;
  std::string cancel;
  std::string yes;
  std::string no;
  std::string open;
  std::string save;
  std::string look_in;
  std::string file_name;
  std::string files_of_type;
  std::string read_only;
  std::string overwrite_title;
  std::string overwrite;     // %1 is the file's name
  std::string also_touched;  // %1 are names of files, a line each
  std::string progress;      // %1 bytes gone, %2 bytes in all, %3 seconds left
  std::string progress_tool_tip;
  // Of a document that is shown before it is printed.
  std::string print_preview;
  std::string print;
  std::string print_tool_tip;
  std::string print_pdf;
  std::string print_pdf_tool_tip;
  std::string print_pdf_title;
  std::string print_close_tool_tip;
  // Of the menu in a window's title.
  std::string restore;
  std::string move;
  std::string size;
  std::string minimise;
  std::string maximise;
  std::string stay_on_top;
  std::string close;
};

const Words& EnglishWords();
const Words& ItalianWords();

}  // namespace zentaline::ui::qt
