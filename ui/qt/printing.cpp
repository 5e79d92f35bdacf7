#include "ui/qt/printing.h"

#include <QPrinterInfo>

#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

namespace {

constexpr int kTwipsOfAnInch = 1440;

}  // namespace

bool Printing::Begin() {
  if (painter_.isActive()) return true;
  if (QPrinterInfo::defaultPrinter().isNull()) return false;
  printer_ = std::make_unique<QPrinter>(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
  if (painter_.begin(printer_.get())) return true;
  printer_.reset();
  return false;
}

bool Printing::Text(int left, int top, const Font& font, const std::string& text) {
  if (!Begin()) return false;
  const int dots = printer_->resolution();
  const QFont face(ToQt(font), printer_.get());
  painter_.setFont(face);
  const int ascent = QFontMetrics(face, printer_.get()).ascent();
  painter_.drawText(left * dots / kTwipsOfAnInch, top * dots / kTwipsOfAnInch + ascent, ToQt(text));
  return printer_->printerState() != QPrinter::Error;
}

bool Printing::End() {
  if (!painter_.isActive()) return false;
  const bool ended = painter_.end() && printer_->printerState() != QPrinter::Error;
  printer_.reset();
  return ended;
}

}  // namespace zentaline::ui::qt
