// The words of the toolkit itself, as in its file dialogs and the menus of its text boxes, in the program's language.
#pragma once

#include <QTranslator>
#include <string>

namespace zentaline::ui::qt {

class Translation {
 public:
  Translation() = default;
  ~Translation();
  Translation(const Translation&) = delete;
  Translation& operator=(const Translation&) = delete;

  // By the two letters of a language. Where the toolkit's files of it aren't installed the words stay English.
  void Speak(const std::string& language);

 private:
  std::string language_ = "en";  // in which all of them are written
  QTranslator words_;
};

}  // namespace zentaline::ui::qt
