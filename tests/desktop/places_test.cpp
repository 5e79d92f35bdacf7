// Pictures side by side that a hand passes over, like the keys of a piano.
#include <QMouseEvent>

#include "tests/desktop/desk.h"
#include "ui/control_array.h"
#include "ui/picture.h"

namespace zentaline::ui::qt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kKinds[] = {"down", "move", "up"};

std::string Told(const std::string& who, const MouseEvent& event) {
  return who + ' ' + kKinds[event.what] + ' ' + std::to_string(event.x) + ' ' + std::to_string(event.y);
}

// Two white keys of 200 by 1000, and a black one over both of 100 by 500.
class ToyKeys : public Form {
 public:
  ToyKeys(Toolkit& the_toolkit, Log& the_log) : Form(the_toolkit, FormKind::kChild, "frmKeys"), log(the_log) {
    for (int key = 0; key < 3; ++key) {
      Drawing drawing;
      drawing.size = key == 2 ? Point{100, 500} : Point{200, 1000};
      drawing.shapes = {Box({0, 0}, drawing.size, key == 2 ? Ink::kBlackKey : Ink::kWhiteKey)};
      Key[key].SetDrawing(drawing);
      Key[key].on_mouse = [this, key](const MouseEvent& event) { log.push_back(Told(std::to_string(key), event)); };
    }
    on_mouse = [this](const MouseEvent& event) { log.push_back(Told("form", event)); };
    layout = Column(
        {Item(Other),
         Places({400, 1000}, {300, 150},
                {At({0, 0, 200, 1000}, Key[0]), At({200, 0, 200, 1000}, Key[1]), At({150, 0, 100, 500}, Key[2])}, 1)});
  }
  Log& log;
  Button Other{*this, "Other"};
  ControlArray<Picture> Key{*this, "Key", 0, 2};
};

class Keys : public Desk {
 protected:
  Keys() {
    form = &static_cast<ToyKeys&>(toolkit.Open(std::make_unique<ToyKeys>(toolkit, log)));
    Settle();
    log.clear();
  }
  QWidget* KeyWidget(int key) { return Widget<QWidget>(form->Key[key]); }
  // At thousandths of a key.
  void Send(int key, QEvent::Type type, double x, double y, Qt::MouseButtons held) {
    const QPointF place(x * KeyWidget(key)->width() / 1000, y * KeyWidget(key)->height() / 1000);
    QMouseEvent event(type, place, KeyWidget(key)->mapToGlobal(place),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(KeyWidget(key), &event);
  }
  // The key of the last line.
  std::string Last() { return log.empty() ? "" : log.back().substr(0, log.back().find(' ')); }

  ToyKeys* form = nullptr;
};

TEST_F(Keys, TheMouseIsToldInTheUnitsOfTheDrawing) {
  Send(0, QEvent::MouseButtonPress, 500, 900, Qt::LeftButton);
  Send(0, QEvent::MouseButtonRelease, 500, 900, Qt::NoButton);
  Send(2, QEvent::MouseMove, 500, 900, Qt::NoButton);
  EXPECT_THAT(log, ElementsAre("0 down 100 900", "0 up 100 900", "2 move 50 450"));
}

TEST_F(Keys, TheyGrowWithTheirWindowAndKeepTheirEdges) {
  for (const QSize size : {QSize(420, 300), QSize(901, 477)}) {
    Frame(*form)->resize(size);
    Settle();
    const QRect left = KeyWidget(0)->geometry();
    const QRect right = KeyWidget(1)->geometry();
    EXPECT_GE(left.width() + right.width(), 300);
    EXPECT_EQ(left.right() + 1, right.left());
    EXPECT_NEAR(left.width(), right.width(), 1);
    EXPECT_NEAR(KeyWidget(2)->height(), left.height() / 2.0, 1);
    EXPECT_EQ(right.right() + 1, KeyWidget(0)->parentWidget()->width());
    const QPoint between(left.right(), left.height() / 4);
    EXPECT_EQ(KeyWidget(0)->parentWidget()->childAt(between), KeyWidget(2)) << "it lies over the others";
  }
}

TEST_F(Keys, AHandThatGoesOnWithItsButtonDownIsOnTheKeyBelowIt) {
  Send(0, QEvent::MouseButtonPress, 500, 900, Qt::LeftButton);
  Send(0, QEvent::MouseMove, 600, 900, Qt::LeftButton);
  EXPECT_EQ(Last(), "0");
  Send(0, QEvent::MouseMove, 1500, 900, Qt::LeftButton);
  EXPECT_EQ(log.back(), "1 move 100 900");
  Send(0, QEvent::MouseMove, 1000, 200, Qt::LeftButton);
  EXPECT_EQ(Last(), "2") << "the black key lies above the white ones";
  Send(0, QEvent::MouseMove, 500, -100, Qt::LeftButton);
  EXPECT_EQ(Last(), "form") << "it is over no key";
  Send(0, QEvent::MouseButtonRelease, 1500, 900, Qt::NoButton);
  EXPECT_EQ(Last(), "0") << "the release belongs to the press";
}

TEST_F(Keys, ThePointerThatLeavesThemIsToldToTheForm) {
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(KeyWidget(0)->parentWidget(), &leave);
  EXPECT_THAT(log, ElementsAre("form move -1 -1"));
}

TEST_F(Keys, APointerThatPassesOverAWindowLeavesItWhereItIs) {
  OpenChild("2");
  Settle();
  log.clear();
  Send(1, QEvent::MouseMove, 500, 900, Qt::NoButton);
  EXPECT_THAT(log, ElementsAre("1 move 100 900"));
  EXPECT_NE(toolkit.active_child(), form);
  Send(1, QEvent::MouseButtonPress, 500, 900, Qt::LeftButton);
  EXPECT_EQ(toolkit.active_child(), form);
}

TEST_F(Keys, TabGoesPastThem) {
  Widget<QWidget>(form->Other)->setFocus();
  for (int step = 0; step < 4; ++step) {
    QTest::keyClick(Frame(*form), Qt::Key_Tab);
    for (int key = 0; key < 3; ++key) EXPECT_FALSE(KeyWidget(key)->hasFocus());
  }
}

TEST_F(Keys, NothingIsToldOnceTheWindowHasGone) {
  QPointer<QWidget> bed(KeyWidget(0)->parentWidget());
  form->Close();
  log.clear();
  if (bed) {
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(bed, &leave);
  }
  Settle();
  EXPECT_THAT(log, IsEmpty());
}

}  // namespace
}  // namespace zentaline::ui::qt
