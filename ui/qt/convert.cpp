#include "ui/qt/convert.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <cmath>

namespace zentaline::ui::qt {

QString ToQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string FromQt(const QString& text) {
  return text.toStdString();
}

QColor ToQt(Colour colour) {
  return QColor(static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8) & 0xFFU),
                static_cast<int>((colour >> 16) & 0xFFU));
}

QColor ReadableOn(const QColor& ground) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  const double light =
      0.2126 * linear(ground.redF()) + 0.7152 * linear(ground.greenF()) + 0.0722 * linear(ground.blueF());
  // Where black and white stand out alike.
  return light > 0.179 ? Qt::black : Qt::white;
}

QFont ToQt(const Font& font) {
  QFont made = QGuiApplication::font();
  if (font.fixed_pitch) {
    made = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // A desktop that has none set gives its general one.
    if (!QFontInfo(made).fixedPitch()) {
      made.setFamily(QStringLiteral("monospace"));
      made.setStyleHint(QFont::Monospace);
    }
    if (QGuiApplication::font().pointSizeF() > 0) made.setPointSizeF(QGuiApplication::font().pointSizeF());
  }
  if (font.points > 0) made.setPointSize(font.points);
  if (font.bold) made.setBold(true);
  return made;
}

std::optional<Key> ToKey(const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Delete:
      return Key{Key::kDelete, {}};
    case Qt::Key_Space:
      return Key{Key::kSpace, {}};
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Key{Key::kEnter, {}};
    case Qt::Key_Escape:
      return Key{Key::kEscape, {}};
    case Qt::Key_Up:
      return Key{Key::kUp, {}};
    case Qt::Key_Down:
      return Key{Key::kDown, {}};
    case Qt::Key_PageUp:
      return Key{Key::kPageUp, {}};
    case Qt::Key_PageDown:
      return Key{Key::kPageDown, {}};
    case Qt::Key_Home:
      return Key{Key::kHome, {}};
    case Qt::Key_End:
      return Key{Key::kEnd, {}};
    case Qt::Key_Left:
      return Key{Key::kLeft, {}};
    case Qt::Key_Right:
      return Key{Key::kRight, {}};
    default:
      break;
  }
  const QString text = event.text();
  if (text.isEmpty() || !text.front().isPrint()) return std::nullopt;
  return Key{Key::kCharacter, FromQt(text)};
}

QString WithoutMnemonic(const std::string& caption) {
  const QString text = ToQt(caption);
  if (!text.contains(u'&')) return text;
  QString shown;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool sign = text[i] == u'&';
    if (sign && i + 1 < text.size() && text[i + 1] == u'&') {
      shown += u'&';
      ++i;
    } else if (!sign || i + 1 == text.size() || !text[i + 1].isLetterOrNumber()) {
      shown += text[i];
    }
  }
  return shown;
}

QString WithSigns(const std::string& text) {
  return ToQt(text).replace(u'&', QStringLiteral("&&"));
}

QString ToToolTip(const std::string& text) {
  const QString plain = ToQt(text);
  return plain.contains(u'<') ? QStringLiteral("<p>") + plain.toHtmlEscaped() + QStringLiteral("</p>") : plain;
}

}  // namespace zentaline::ui::qt
