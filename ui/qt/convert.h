// Values of the models as Qt's, and back.
#pragma once

#include <QColor>
#include <QFont>
#include <QKeyEvent>
#include <QString>
#include <optional>
#include <string>

#include "ui/types.h"

namespace zentaline::ui::qt {

QString ToQt(const std::string& text);
std::string FromQt(const QString& text);

QColor ToQt(Colour colour);
// Black or white, whichever stands out more from the ground.
QColor ReadableOn(const QColor& ground);
// The desktop's own face, or its fixed-pitch one in the same size.
QFont ToQt(const Font& font);

// The key as handlers see it; none for keys they don't see, as those held with Ctrl or Alt.
std::optional<Key> ToKey(const QKeyEvent& event);

// A caption for a place without mnemonics: "&&" becomes the sign, "&" before a letter goes. A sign before a blank is
// left, since it is no mnemonic but part of a name.
QString WithoutMnemonic(const std::string& caption);

// A caption of data for a place that reads mnemonics: each sign is shown.
QString WithSigns(const std::string& text);

// A tool tip is plain text, whatever signs it holds.
QString ToToolTip(const std::string& text);

}  // namespace zentaline::ui::qt
