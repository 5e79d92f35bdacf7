#include "ui/qt/translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

Translation::~Translation() {
  QCoreApplication::removeTranslator(&words_);
}

void Translation::Speak(const std::string& language) {
  if (language == language_) return;
  language_ = language;
  QCoreApplication::removeTranslator(&words_);
  const QString file = QStringLiteral("qtbase_") + ToQt(language);
  if (!words_.load(file, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) return;
  QCoreApplication::installTranslator(&words_);
  // A dialog that opens meanwhile would lose the words that the program gives it.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
}

}  // namespace zentaline::ui::qt
