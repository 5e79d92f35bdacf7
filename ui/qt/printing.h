// The default printer, in twips.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>
#include <string>

#include "ui/types.h"

namespace zentaline::ui::qt {

class Printing {
 public:
  // False when there is no printer or it fails.
  bool Text(int left, int top, const Font& font, const std::string& text);
  // Ends the document; false when there is none.
  bool End();

 private:
  bool Begin();
  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;
};

}  // namespace zentaline::ui::qt
