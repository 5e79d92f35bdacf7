#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QUrl>

#include "tests/desktop/desk.h"

namespace zentaline::ui::qt {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class Windows : public Desk {
 protected:
  QMdiSubWindow* Sub(const Form& form) { return static_cast<QMdiSubWindow*>(Frame(form)); }
};

TEST_F(Windows, TheNewestChildIsInFrontAndActivatedOnce) {
  ToyChild& second = OpenChild("2");
  Settle();
  EXPECT_EQ(toolkit.windows().main()->area()->activeSubWindow(), Sub(second));
  EXPECT_EQ(std::count(log.begin(), log.end(), "activated 2"), 1);
  EXPECT_THAT(log, Not(Contains("activated 1")));
}

// The program's own icon is read behind the first frame; a window of the last run is there before.
TEST_F(Windows, AWindowThatOpensBeforeTheIconWasReadHasItAllTheSame) {
  QApplication::setWindowIcon(QIcon());
  EXPECT_FALSE(Sub(OpenChild("2"))->windowIcon().isNull());
}

TEST_F(Windows, AClickInAnotherChildBringsItToTheFront) {
  OpenChild("2");
  Settle();
  log.clear();
  QTest::mouseClick(Widget<QPushButton>(child->Comm1), Qt::LeftButton);
  EXPECT_THAT(log, ElementsAre("activated 1", "press"));
  EXPECT_EQ(toolkit.active_child(), child);
  EXPECT_EQ(toolkit.windows().main()->area()->activeSubWindow(), Sub(*child));
}

TEST_F(Windows, AChildThatTheUserActivatesTellsItOnce) {
  OpenChild("2");
  Settle();
  log.clear();
  toolkit.windows().main()->area()->setActiveSubWindow(Sub(*child));
  Settle();
  EXPECT_THAT(log, ElementsAre("activated 1"));
}

TEST_F(Windows, ClosingTheOneInFrontActivatesTheNext) {
  ToyChild& second = OpenChild("2");
  Settle();
  log.clear();
  Sub(second)->close();
  Settle();
  EXPECT_THAT(log, ElementsAre("unload 2", "activated 1"));
  EXPECT_EQ(toolkit.windows().main()->area()->subWindowList().size(), 1);
}

TEST_F(Windows, AMainWindowThatRefusesStaysOpen) {
  main->may_close = false;
  toolkit.windows().main()->window()->close();
  EXPECT_THAT(log, ElementsAre("main query"));
  EXPECT_TRUE(toolkit.windows().main()->window()->isVisible());
  main->may_close = true;
  toolkit.windows().main()->window()->close();
  EXPECT_TRUE(toolkit.ended());
  EXPECT_EQ(toolkit.windows().main(), nullptr);
}

TEST_F(Windows, APlaceSetByTheProgramIsTaken) {
  child->SetPlacement({30, 40, 700, 640, WindowState::kNormal});
  EXPECT_EQ(Sub(*child)->geometry(), QRect(30, 40, 700, 640));
  Settle();
  EXPECT_EQ(child->inner_size(),
            (Size{toolkit.windows().Of(*child)->body()->width(), toolkit.windows().Of(*child)->body()->height()}));
}

TEST_F(Windows, WhatTheUserDoesToAWindowReachesTheForm) {
  const QSize size = Sub(*child)->size() + QSize(20, 10);
  Sub(*child)->setGeometry(QRect({15, 25}, size));
  Settle();
  EXPECT_THAT(log, ElementsAre("resized 1"));
  EXPECT_EQ(child->placement(), (Placement{15, 25, size.width(), size.height(), WindowState::kNormal}));
  Sub(*child)->showMaximized();
  Settle();
  EXPECT_EQ(child->placement(), (Placement{15, 25, size.width(), size.height(), WindowState::kMaximised}));
  EXPECT_GT(child->inner_size().width, size.width());
  Sub(*child)->showMinimized();
  Settle();
  EXPECT_EQ(child->placement().state, WindowState::kMinimised);
  Sub(*child)->showNormal();
  Settle();
  EXPECT_EQ(child->placement(), (Placement{15, 25, size.width(), size.height(), WindowState::kNormal}));
}

TEST_F(Windows, AListGrowsWithItsWindow) {
  const int before = Widget<QWidget>(child->List1)->height();
  Sub(*child)->resize(Sub(*child)->size() + QSize(0, 100));
  Settle();
  EXPECT_EQ(Widget<QWidget>(child->List1)->height(), before + 100);
}

TEST_F(Windows, NoWindowIsSmallerThanItsCaptionsNeed) {
  child->SetPlacement({0, 0, 10, 10, WindowState::kNormal});
  Settle();
  const auto* button = Widget<QPushButton>(child->Comm1);
  EXPECT_GE(button->width(), button->sizeHint().width());
  EXPECT_EQ(child->placement().width, Sub(*child)->width());
}

TEST_F(Windows, AWindowWithTooLittleRoomScrollsAndKeepsItsControlsApart) {
  Sub(*child)->setGeometry(0, 0, 240, 160);
  Settle();
  const auto* area = Frame(*child)->findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_GT(area->horizontalScrollBar()->maximum(), 0);
  EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
  const auto place = [area](const QWidget* widget) {
    return QRect(widget->mapTo(area->widget(), QPoint()), widget->size());
  };
  const QRect list = place(Widget<QWidget>(child->List1));
  const QRect text = place(Widget<QWidget>(child->Text1));
  const QRect button = place(Widget<QWidget>(child->Comm1));
  EXPECT_LT(list.right(), text.left());
  EXPECT_LT(text.right(), button.left());
}

TEST_F(Windows, AMainWindowThatIsTooLargeForTheScreenIsShownWholeOnIt) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  Placement place;
  place.left = 100;
  place.top = 100;
  place.width = screen.width() - 200;
  place.height = screen.height() + 1;
  main->SetPlacement(place);
  const QWidget* window = toolkit.windows().main()->window();
  EXPECT_EQ(window->pos(), screen.topLeft());
  EXPECT_EQ(window->width(), screen.width() - 200);
  EXPECT_LE(window->height(), screen.height() - 40) << "its frame has room too";
  place.height = screen.height() - 200;
  main->SetPlacement(place);
  EXPECT_EQ(window->pos(), QPoint(100, 100));
  EXPECT_EQ(window->height(), screen.height() - 200);
}

TEST_F(Windows, TheMainWindowTakesMostOfTheScreenAtItsFirstStart) {
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  const QSize window = toolkit.windows().main()->window()->size();
  EXPECT_GE(window.width(), std::min(screen.width() * 85 / 100, 1600));
  EXPECT_GE(window.height(), std::min(screen.height() * 85 / 100, 1000));
  EXPECT_LE(window.width(), screen.width());
  EXPECT_LE(window.height(), screen.height());
}

TEST_F(Windows, TheCaptionFollowsTheModel) {
  child->SetCaption("SONG.ARR");
  EXPECT_EQ(Sub(*child)->windowTitle(), "SONG.ARR");
}

TEST_F(Windows, AModalWindowHoldsTheCallerUpUntilItIsClosed) {
  QTimer::singleShot(0, [this] {
    Form* modal = toolkit.modal();
    ASSERT_NE(modal, nullptr);
    EXPECT_FALSE(child->Comm1.UserPress());
    QTest::keyClicks(Widget<QLineEdit>(*modal->Find("Text1")), "x");
    QTest::keyClick(Widget<QLineEdit>(*modal->Find("Text1")), Qt::Key_Return);
  });
  toolkit.OpenModal(std::make_unique<ToyModal>(toolkit, log));
  log.push_back("returned");
  EXPECT_THAT(log, ElementsAre("modal text x", "ok", "returned"));
  EXPECT_EQ(toolkit.modal(), nullptr);
}

TEST_F(Windows, AChildClosedFromAModalWindowThatItsOwnHandlerOpenedOutlivesTheHandler) {
  QPointer<QWidget> frame = Frame(*child);
  child->Comm1.on_click = [this] {
    QTimer::singleShot(0, [this] {
      child->CloseWithoutAsking();
      Settle();
      QTest::keyClick(Frame(*toolkit.modal()), Qt::Key_Escape);
    });
    toolkit.OpenModal(std::make_unique<ToyModal>(toolkit, log));
    log.push_back("handler ends " + child->number());
  };
  QTest::mouseClick(Widget<QPushButton>(child->Comm1), Qt::LeftButton);
  EXPECT_THAT(log, ElementsAre("unload 1", "cancel", "handler ends 1"));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(frame.isNull());
}

TEST_F(Windows, TimersGoOnBehindAModalWindow) {
  child->Timer1.SetInterval(20);
  QTimer escape;
  escape.setSingleShot(true);
  QObject::connect(&escape, &QTimer::timeout, [this] { QTest::keyClick(Frame(*toolkit.modal()), Qt::Key_Escape); });
  escape.start(60000);
  child->Timer1.on_timer = [this, &escape] {
    log.push_back("timer");
    escape.start(0);
  };
  child->Timer1.Start();
  toolkit.OpenModal(std::make_unique<ToyModal>(toolkit, log));
  EXPECT_THAT(log, ElementsAre("timer", "cancel"));
}

TEST_F(Windows, EscapePressesAModalWindowsCancelButton) {
  QTimer::singleShot(0, [this] { QTest::keyClick(Frame(*toolkit.modal()), Qt::Key_Escape); });
  toolkit.OpenModal(std::make_unique<ToyModal>(toolkit, log));
  EXPECT_THAT(log, ElementsAre("cancel"));
}

TEST_F(Windows, FilesThatAreDroppedReachTheMainWindow) {
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/music/a b.arr"), QUrl("http://example.org/c.arr")});
  QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(Widget<QWidget>(child->Text1), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(Widget<QWidget>(child->Text1), &drop);
  EXPECT_THAT(log, ElementsAre("dropped /music/a b.arr"));
}

TEST_F(Windows, TheStripIsHiddenAndShownWithItsPictureBox) {
  main->Picture1.SetVisible(false);
  EXPECT_FALSE(Widget<QWidget>(main->Label1)->isVisible());
  main->Picture1.SetVisible(true);
  EXPECT_TRUE(Widget<QWidget>(main->Label1)->isVisible());
}

// A form without a layout value.
class Bare : public Form {
 public:
  explicit Bare(Toolkit& the_toolkit) : Form(the_toolkit, FormKind::kChild, "frmBare") {}
  Button Comm1{*this, "Comm1"};
  ListBox List1{*this, "List1"};
};

TEST_F(Windows, AFormWithoutALayoutShowsAllItHas) {
  auto& bare = static_cast<Bare&>(toolkit.Open(std::make_unique<Bare>(toolkit)));
  Settle();
  EXPECT_TRUE(Widget<QWidget>(bare.Comm1)->isVisible());
  EXPECT_TRUE(Widget<QWidget>(bare.List1)->isVisible());
}

TEST_F(Windows, AToolkitThatGoesLeavesNoWindow) {
  auto other = std::make_unique<QtToolkit>();
  Log other_log;
  other->Open(std::make_unique<ToyMain>(*other, other_log));
  other->Open(std::make_unique<ToyChild>(*other, other_log, "1"));
  const QPointer<QWidget> window = other->windows().main()->window();
  other.reset();
  EXPECT_TRUE(window.isNull());
}

}  // namespace
}  // namespace zentaline::ui::qt
