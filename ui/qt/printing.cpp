#include "ui/qt/printing.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPrinterInfo>
#include <cmath>

#include "ui/qt/convert.h"
#include "ui/qt/print_preview.h"

namespace zentaline::ui::qt {

namespace {

constexpr int kTwipsOfAnInch = 1440;

QFont PrintFont(const Font& font, QPrinter* printer) {
  QFont made = ToQt(font);
  if (font.fixed_pitch) made.setFamilies({QStringLiteral("Courier New"), made.family()});
  return {made, printer};
}

int Dots(int twips, const QPrinter& printer) {
  return twips * printer.resolution() / kTwipsOfAnInch;
}

int Twips(double dots, const QPrinter& printer) {
  return static_cast<int>(std::ceil(dots * kTwipsOfAnInch / printer.resolution()));
}

}  // namespace

void Printing::Prepare() {
  if (printer_ != nullptr) return;
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  previews_ = info.isNull() || (QGuiApplication::queryKeyboardModifiers() & Qt::ShiftModifier) != 0;
  printer_ = info.isNull() ? std::make_unique<QPrinter>(QPrinter::HighResolution)
                           : std::make_unique<QPrinter>(info, QPrinter::HighResolution);
  printer_->setFullPage(true);
}

bool Printing::Previews() {
  Prepare();
  return previews_;
}

bool Printing::Text(int left, int top, const Font& font, const std::string& text) {
  Prepare();
  const Item item{left, top, font, text};
  if (previews_) {
    items_.push_back(item);
    return true;
  }
  if (!painter_.isActive() && !painter_.begin(printer_.get())) return false;
  Paint(painter_, *printer_, item);
  return printer_->printerState() != QPrinter::Error;
}

bool Printing::End() {
  const bool ended = painter_.isActive() && painter_.end() && printer_->printerState() != QPrinter::Error;
  printer_.reset();
  items_.clear();
  return ended;
}

bool Printing::EndWithPreview(QWidget* parent, const Words& words) {
  const bool any = !items_.empty();
  if (any) RunPrintPreview(parent, words, *printer_, [this](QPrinter* printer) { PaintAll(*printer); });
  printer_.reset();
  items_.clear();
  return any;
}

void Printing::Paint(QPainter& painter, QPrinter& printer, const Item& item) {
  const QFont face = PrintFont(item.font, &printer);
  painter.setFont(face);
  const double ascent = QFontMetricsF(face, &printer).ascent();
  painter.drawText(QPointF(Dots(item.left, printer), Dots(item.top, printer) + ascent), ToQt(item.text));
}

void Printing::PaintAll(QPrinter& printer) const {
  QPainter painter;
  if (!painter.begin(&printer)) return;
  for (const Item& item : items_) Paint(painter, printer, item);
}

int Printing::Width(const Font& font, const std::string& text) {
  Prepare();
  return Twips(QFontMetricsF(PrintFont(font, printer_.get()), printer_.get()).horizontalAdvance(ToQt(text)), *printer_);
}

int Printing::LineHeight(const Font& font) {
  Prepare();
  return Twips(QFontMetricsF(PrintFont(font, printer_.get()), printer_.get()).lineSpacing(), *printer_);
}

}  // namespace zentaline::ui::qt
