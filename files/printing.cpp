// mnuStampaLista and mnuStampaTabella. A text that the printer refuses ends the work in silence; the document is ended
// in any case.
#include "files/printing.h"

#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/window_image.h"
#include "files/api.h"

namespace zentaline {

namespace {

// Twips.
constexpr int kLeft = 453;
constexpr int kTop = 283;
constexpr int kMiddle = 5953;
constexpr int kLowestPage = 15840;     // of A4 and Letter the lower,
constexpr int kNarrowestPage = 11906;  // and the narrower

constexpr int kRowsOfGroup = 8;
constexpr int kLinesAfterGroup = 3;
constexpr char kListHeader[] = "No  Arrangement      Style                Upper2               Upper1";

constexpr int kLargestPoints = 10;
constexpr int kLeastPoints = 4;

// A document in the making, from the top of the page down.
class Document {
 public:
  // The largest print in which so many lines of a list fit one page.
  Document(ui::Toolkit& toolkit, int lines) : toolkit_(toolkit) {
    while (font_.points > kLeastPoints && !Fits(lines)) --font_.points;
    line_height_ = toolkit_.PrintLineHeight(font_);
  }
  ~Document() { toolkit_.EndPrint(); }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  bool Line(const std::string& text) { return toolkit_.PrintText(kLeft, top_, font_, text); }
  bool Title(const std::string& text) {
    return toolkit_.PrintText(kMiddle - toolkit_.PrintWidth(font_, text) / 2, top_, font_, text);
  }
  void Down(int lines) { top_ += lines * line_height_; }

 private:
  bool Fits(int lines) const {
    const int width = toolkit_.PrintWidth(font_, std::string(kPrintColumns, '0'));
    return kTop + lines * toolkit_.PrintLineHeight(font_) <= kLowestPage - kTop &&
           kLeft + width <= kNarrowestPage - kLeft;
  }

  ui::Toolkit& toolkit_;
  ui::Font font_ = {.fixed_pitch = true, .bold = true, .points = kLargestPoints};
  int line_height_ = 0;
  int top_ = kTop;
};

}  // namespace

bool PrintsList(int kind) {
  return kind == kKindArr || kind == kKindNewArr;
}

bool PrintsTable(int kind) {
  return !TableTitle(kind, {}).empty();
}

void PrintList(Application& app, const ChildWindow& window) {
  const Bytes& image = window.window_image();
  constexpr int kGaps = (kArrRecordCount / kRowsOfGroup - 1) * (kLinesAfterGroup - 1);
  Document document(app.toolkit, 2 + kArrRecordCount + kGaps);
  if (!document.Line(ListTitle(ShownPath(window.BaseName()) + ".ARR", app.toolkit.ShortDate()))) return;
  document.Down(1);
  PrintLine header;
  header.Put(1, kListHeader);
  if (!document.Line(header.Text())) return;
  document.Down(1);
  for (int i = 0; i < kArrRecordCount; ++i) {
    if (!document.Line(ListRow(image, i))) return;
    document.Down((i + 1) % kRowsOfGroup == 0 ? kLinesAfterGroup : 1);
  }
}

void PrintTable(Application& app, const ChildWindow& window) {
  const std::vector<std::string> lines = TableLines(window.window_image());
  Document document(app.toolkit, 2 + static_cast<int>(lines.size()));
  if (!document.Title(TableTitle(window.Kind(), ShownPath(window.BaseName())))) return;
  document.Down(2);
  for (const std::string& line : lines) {
    if (!line.empty() && !document.Line(line)) return;
    document.Down(1);
  }
}

}  // namespace zentaline
