// The default printer, in twips from the corner of the page. When there is none, or the user holds Shift, a document is
// shown first.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>
#include <string>
#include <vector>

#include "ui/qt/words.h"
#include "ui/types.h"

namespace zentaline::ui::qt {

class Printing {
 public:
  // False when the printer fails.
  bool Text(int left, int top, const Font& font, const std::string& text);
  // Whether the document is one that is shown before it is printed.
  bool Previews();
  // Ends the document; false when there is none.
  bool End();
  // The same for a document that is shown: what becomes of it the user says.
  bool EndWithPreview(QWidget* parent, const Words& words);

  int Width(const Font& font, const std::string& text);
  int LineHeight(const Font& font);

 private:
  struct Item {
    int left;
    int top;
    Font font;
    std::string text;
  };

  void Prepare();
  static void Paint(QPainter& painter, QPrinter& printer, const Item& item);
  void PaintAll(QPrinter& printer) const;

  std::unique_ptr<QPrinter> printer_;  // of the document in the making
  bool previews_ = false;
  std::vector<Item> items_;  // of a document that is shown
  QPainter painter_;
};

}  // namespace zentaline::ui::qt
