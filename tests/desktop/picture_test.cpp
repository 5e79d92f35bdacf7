// A picture on its widget: taken, dragged and let go by the mouse, moved by the keys, drawn in the desktop's colours.
#include <QImage>
#include <QMouseEvent>

#include "tests/desktop/desk.h"
#include "ui/picture.h"
#include "ui/qt/picture_view.h"

namespace zentaline::ui::qt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ToyCurve : public Form {
 public:
  ToyCurve(Toolkit& the_toolkit, Log& the_log) : Form(the_toolkit, FormKind::kChild, "frmCurve"), log(the_log) {
    Curve.on_drag = [this](int handle, int x, int y) {
      log.push_back("drag " + std::to_string(handle) + " " + std::to_string(x) + " " + std::to_string(y));
      Move(handle, x, y);
    };
    Curve.on_step = [this](int handle, int right, int up) {
      log.push_back("step " + std::to_string(handle) + " " + std::to_string(right) + " " + std::to_string(up));
    };
    Curve.least_characters = {40, 10};
    Drawing drawing;
    drawing.shapes = {Box({0, 0}, {1000, 1000}, Ink::kPaper), Box({500, 0}, {1000, 1000}, Ink::kAccent)};
    drawing.handles = {{"Attack", 200, 200}, {"Decay", 600, 800}, {"Twin", 600, 800}};
    Curve.SetDrawing(drawing);
    layout = Column({Item(Curve, 1), Item(Other)});
  }
  void Move(int handle, int x, int y) {
    Drawing drawing = Curve.drawing();
    drawing.handles[static_cast<std::size_t>(handle)].x = x;
    drawing.handles[static_cast<std::size_t>(handle)].y = y;
    Curve.SetDrawing(drawing);
  }
  Log& log;
  Picture Curve{*this, "Curve"};
  Button Other{*this, "Other"};
};

class PictureWidgets : public Desk {
 protected:
  PictureWidgets() {
    form = &static_cast<ToyCurve&>(toolkit.Open(std::make_unique<ToyCurve>(toolkit, log)));
    Settle();
    log.clear();
  }
  QWidget* Canvas() { return Widget<QWidget>(form->Curve); }
  void Send(QEvent::Type type, double x, double y, Qt::MouseButton button = Qt::LeftButton) {
    const QPointF place(x * Canvas()->width() / 1000, y * Canvas()->height() / 1000);
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(type, place, Canvas()->mapToGlobal(place), moves ? Qt::NoButton : button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QCoreApplication::sendEvent(Canvas(), &event);
  }
  QColor Shown(int x, int y) {
    const QImage image = Canvas()->grab().toImage();
    return image.pixelColor(image.width() * x / 1000, image.height() * y / 1000);
  }
  ToyCurve* form = nullptr;
};

TEST_F(PictureWidgets, AHandleIsTakenDraggedAndLetGo) {
  Send(QEvent::MouseButtonPress, 200, 200);
  EXPECT_TRUE(toolkit.HandHolds());
  EXPECT_TRUE(form->Curve.HasFocus());
  Send(QEvent::MouseMove, 300, 250);
  Send(QEvent::MouseMove, 1200, -40);
  EXPECT_TRUE(toolkit.HandHolds());
  Send(QEvent::MouseButtonRelease, 1200, -40);
  EXPECT_FALSE(toolkit.HandHolds());
  EXPECT_THAT(log, ElementsAre("drag 0 300 250", "drag 0 1000 0"));
  EXPECT_EQ(toolkit.takings(), 1);
}

TEST_F(PictureWidgets, AHandleKeepsItsDistanceFromThePointer) {
  const double off = 4.0 * 1000 / Canvas()->width();
  Send(QEvent::MouseButtonPress, 200 + off, 200);
  Send(QEvent::MouseMove, 400 + off, 200);
  EXPECT_THAT(log, ElementsAre("drag 0 400 200"));
}

TEST_F(PictureWidgets, APressBesideAllHandlesTakesNone) {
  Send(QEvent::MouseButtonPress, 400, 500);
  Send(QEvent::MouseMove, 500, 500);
  Send(QEvent::MouseButtonRelease, 500, 500);
  EXPECT_FALSE(toolkit.HandHolds());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(PictureWidgets, TheRightButtonTakesNothing) {
  Send(QEvent::MouseButtonPress, 200, 200, Qt::RightButton);
  EXPECT_FALSE(toolkit.HandHolds());
}

TEST_F(PictureWidgets, OfHandlesInOnePlaceTheSelectedOneIsTaken) {
  form->Curve.SelectHandle(2);
  Send(QEvent::MouseButtonPress, 600, 800);
  Send(QEvent::MouseMove, 700, 700);
  Send(QEvent::MouseButtonRelease, 700, 700);
  form->Move(2, 600, 800);
  form->Curve.SelectHandle(1);
  Send(QEvent::MouseButtonPress, 600, 800);
  Send(QEvent::MouseMove, 100, 100);
  Send(QEvent::MouseButtonRelease, 100, 100);
  EXPECT_THAT(log, ElementsAre("drag 2 700 700", "drag 1 100 100"));
}

TEST_F(PictureWidgets, AHandWhoseReleaseWentElsewhereHasLetGo) {
  Send(QEvent::MouseButtonPress, 200, 200);
  Send(QEvent::MouseMove, 300, 300, Qt::NoButton);
  EXPECT_FALSE(toolkit.HandHolds());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(PictureWidgets, KeysReachItByTabAndMoveItsHandles) {
  form->Other.SetFocus();
  QTest::keyClick(Widget<QWidget>(form->Other), Qt::Key_Backtab);
  EXPECT_TRUE(Canvas()->hasFocus());
  EXPECT_TRUE(form->Curve.HasFocus());
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Space, Qt::Key_Right, Qt::Key_PageDown}) {
    QTest::keyClick(Canvas(), key);
  }
  EXPECT_THAT(log, ElementsAre("step 0 -1 0", "step 0 0 1", "step 1 1 0", "step 1 0 -10"));
  EXPECT_TRUE(Canvas()->hasFocus());
}

TEST_F(PictureWidgets, AFormClosedInTheGripLeavesNothingHeld) {
  form->Curve.on_drag = [this](int, int, int) { form->Close(); };
  Send(QEvent::MouseButtonPress, 200, 200);
  Send(QEvent::MouseMove, 300, 300);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Settle();
  EXPECT_EQ(toolkit.FindForm("frmCurve"), nullptr);
  EXPECT_FALSE(toolkit.HandHolds());
}

TEST_F(PictureWidgets, InksAreTheDesktopsColours) {
  QPalette dark = Canvas()->palette();
  dark.setColor(QPalette::Base, QColor(20, 21, 22));
  dark.setColor(QPalette::Highlight, QColor(200, 120, 40));
  Canvas()->setPalette(dark);
  EXPECT_EQ(Shown(100, 500), QColor(20, 21, 22));
  EXPECT_EQ(Shown(900, 500), QColor(200, 120, 40));
}

TEST_F(PictureWidgets, LinesAndWritingStandOutFromThePaper) {
  for (const bool is_dark : {false, true}) {
    QPalette palette;
    palette.setColor(QPalette::Base, is_dark ? QColor(30, 30, 30) : QColor(Qt::white));
    palette.setColor(QPalette::Text, is_dark ? QColor(Qt::white) : QColor(Qt::black));
    const int paper = ColourOf(Ink::kPaper, palette, QPalette::Active).lightness();
    int last = 0;
    for (const Ink ink : {Ink::kGrid, Ink::kZero, Ink::kMuted, Ink::kText}) {
      const int distance = std::abs(ColourOf(ink, palette, QPalette::Active).lightness() - paper);
      EXPECT_GT(distance, last) << static_cast<int>(ink);
      last = distance;
    }
  }
}

TEST_F(PictureWidgets, ANewDrawingIsShown) {
  const QColor before = Shown(100, 500);
  Drawing drawing = form->Curve.drawing();
  drawing.shapes = {Box({0, 0}, {1000, 1000}, Ink::kText)};
  form->Curve.SetDrawing(drawing);
  EXPECT_NE(Shown(100, 500), before);
}

}  // namespace
}  // namespace zentaline::ui::qt
