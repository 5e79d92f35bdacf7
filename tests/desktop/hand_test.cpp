// A hand that is faster than the wire: what becomes of the moves of a bar while a long send is under way.
#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <chrono>
#include <semaphore>

#include "tests/desktop/desk.h"
#include "tests/desktop/slow_service.h"
#include "ui/qt/fader.h"
#include "ui/qt/long_sender.h"

namespace zentaline::ui::qt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FastHand : public Desk {
 protected:
  FastHand() {
    Bar().shown = [](int value) { return "<" + std::to_string(value) + ">"; };
    Bar().value_label = &child->LabelName;
  }
  ScrollBar& Bar() { return child->HScroll1; }
  Fader* BarWidget() { return Widget<Fader>(child->HScroll1); }
  Fader* OtherBar() { return Widget<Fader>(child->VScroll1); }
  QString LabelText() { return Widget<QLabel>(child->LabelName)->text(); }

  int Send(std::uint32_t bytes = 1000) {
    const std::string data(bytes, '\x41');
    MidiHeader header;
    header.data = data.data();
    header.buffer_length = bytes;
    return sender.midiOutLongMsg(1, header, kMidiHeaderSize);
  }
  // What happens in the middle of the next long send.
  template <class Doing>
  void During(Doing doing) {
    QTimer::singleShot(0, [this, doing] {
      doing();
      service.GoOn();
    });
  }
  static QPoint SliderOf(const Fader* bar) { return bar->HandlePlace().center(); }
  // By the platform's own queue, which reaches the window first.
  void Hand(QEvent::Type type, QWidget* widget, QPoint place) {
    QWidget* top = toolkit.windows().main()->window();
    const QPoint there = widget->mapTo(top, place);
    QWindow* window = top->windowHandle();
    switch (type) {
      case QEvent::MouseButtonPress:
        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, there);
        break;
      case QEvent::MouseMove:
        QTest::mouseMove(window, there);
        break;
      default:
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, there);
    }
  }
  // Takes the slider and pulls it along in steps of some pixels.
  void Pull(Fader* bar, int steps) {
    QPoint place = SliderOf(bar);
    Hand(QEvent::MouseButtonPress, bar, place);
    for (int i = 0; i < steps; ++i) {
      place += bar->orientation() == Qt::Horizontal ? QPoint(5, 0) : QPoint(0, 5);
      Hand(QEvent::MouseMove, bar, place);
    }
    Hand(QEvent::MouseButtonRelease, bar, place);
  }

  SlowService service;
  LongSender sender{toolkit, service};
};

TEST_F(FastHand, TheMovesOfABarDuringASendCountAsOne) {
  int reached = 0;
  During([&] {
    Pull(BarWidget(), 8);
    reached = BarWidget()->value();
    EXPECT_GT(reached, 8);
    EXPECT_EQ(Bar().value(), 0);
    EXPECT_THAT(log, IsEmpty());
  });
  EXPECT_EQ(Send(), kMidiOk);
  EXPECT_THAT(log, IsEmpty());
  Settle();
  EXPECT_THAT(log, ElementsAre("bar " + std::to_string(reached)));
  EXPECT_EQ(BarWidget()->value(), reached);
  EXPECT_TRUE(Bar().HasFocus());
}

TEST_F(FastHand, TheLabelFollowsTheHandBeforeTheProgramDoes) {
  child->LabelName.SetCaption("at rest");
  During([&] {
    BarWidget()->setValue(40);
    EXPECT_EQ(LabelText(), "<40>");
    BarWidget()->setValue(41);
    EXPECT_EQ(LabelText(), "<41>");
    child->LabelName.SetCaption("by another");
    EXPECT_EQ(LabelText(), "<41>");
  });
  EXPECT_EQ(Send(), kMidiOk);
  EXPECT_EQ(LabelText(), "<41>");
  Settle();
  EXPECT_EQ(LabelText(), "by another") << "the program's own text again, once it was told";
}

TEST_F(FastHand, AMoveThatWaitsIsNotTakenBackByWhatTheProgramShows) {
  During([&] {
    BarWidget()->setValue(70);
    Bar().SetValue(5);
    EXPECT_EQ(BarWidget()->value(), 70);
  });
  EXPECT_EQ(Send(), kMidiOk);
  Settle();
  EXPECT_THAT(log, ElementsAre("bar 5", "bar 70"));
  EXPECT_EQ(BarWidget()->value(), 70);
}

TEST_F(FastHand, WhatComesBetweenKeepsItsOrder) {
  int first = 0;
  During([&] {
    Pull(BarWidget(), 4);
    first = BarWidget()->value();
    QTest::mouseClick(Widget<QWidget>(child->Comm1), Qt::LeftButton);
    Pull(BarWidget(), 4);
  });
  EXPECT_EQ(Send(), kMidiOk);
  Settle();
  EXPECT_THAT(log, ElementsAre("bar " + std::to_string(first), "press", "bar " + std::to_string(Bar().value())));
  EXPECT_GT(Bar().value(), first);
}

TEST_F(FastHand, TwoBarsInTurnAreMovesOfTheirOwn) {
  During([&] {
    BarWidget()->setValue(1);
    BarWidget()->setValue(2);
    OtherBar()->setValue(30);
    OtherBar()->setValue(40);
    BarWidget()->setValue(3);
  });
  EXPECT_EQ(Send(), kMidiOk);
  Settle();
  EXPECT_THAT(log, ElementsAre("bar 2", "vbar 60", "bar 3"));
}

TEST_F(FastHand, OfManyMovesBehindASendThatFollowsTheMoveOnlyTheLastIsSent) {
  Bar().on_change = [this] {
    log.push_back("bar " + std::to_string(Bar().value()));
    Send(480);
    log.push_back("sent");
  };
  service.waits = false;
  service.on_send = [&] { std::this_thread::sleep_for(std::chrono::milliseconds(100)); };
  constexpr int kMoves = 60;
  // Timers of their own: one whose move is being told doesn't fire again meanwhile.
  for (int value = 1; value <= kMoves; ++value) {
    QTimer::singleShot(5 * value, [this, value] { BarWidget()->setValue(value); });
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return Bar().value() == kMoves && log.back() == "sent"; }, 20000));
  EXPECT_LT(log.size(), 2U * kMoves / 2);
  EXPECT_EQ(log[log.size() - 2], "bar " + std::to_string(kMoves)) << "the last position is always sent";
}

TEST_F(FastHand, KeysMoveABarAtOnceTooAndCountAsOne) {
  Bar().SetFocus();
  log.clear();
  During([&] {
    for (int i = 0; i < 5; ++i) QTest::keyClick(BarWidget(), Qt::Key_Down);
    QTest::keyClick(BarWidget(), Qt::Key_PageDown);
    QTest::keyClick(BarWidget(), Qt::Key_Up);
    EXPECT_EQ(BarWidget()->value(), 14);
    EXPECT_EQ(LabelText(), "<14>");
  });
  EXPECT_EQ(Send(), kMidiOk);
  EXPECT_THAT(log, IsEmpty());
  Settle();
  EXPECT_THAT(log, ElementsAre("bar 14"));
}

TEST_F(FastHand, TheWheelMovesABarAtOnceTooAndCountsAsOne) {
  Bar().SetFocus();
  log.clear();
  During([&] {
    for (int i = 0; i < 3; ++i) {
      QWheelEvent turn(QPointF(5, 5), BarWidget()->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton,
                       Qt::NoModifier, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(BarWidget(), &turn);
    }
    EXPECT_EQ(BarWidget()->value(), 3);
  });
  EXPECT_EQ(Send(), kMidiOk);
  Settle();
  EXPECT_THAT(log, ElementsAre("bar 3"));
}

TEST_F(FastHand, KeysTypedElsewhereKeepTheirPlaceBeforeTheBar) {
  child->Text1.SetFocus();
  log.clear();
  During([&] {
    QTest::keyClick(Widget<QWidget>(child->Text1), Qt::Key_A);
    Pull(BarWidget(), 4);
    EXPECT_EQ(BarWidget()->value(), 0) << "waits behind the key, which goes where the focus is";
  });
  EXPECT_EQ(Send(), kMidiOk);
  Settle();
  EXPECT_THAT(log, ElementsAre("text a", "bar " + std::to_string(Bar().value())));
  EXPECT_GT(Bar().value(), 0);
}

TEST_F(FastHand, AShortcutTypedDuringASendIsDoneAfterIt) {
  During([&] { QTest::keyClick(toolkit.windows().main()->window()->windowHandle(), Qt::Key_O, Qt::ControlModifier); });
  EXPECT_EQ(Send(), kMidiOk);
  EXPECT_THAT(log, IsEmpty());
  Settle();
  EXPECT_THAT(log, ElementsAre("open"));
}

TEST_F(FastHand, ABoxThatAMoveBringsUpIsAnsweredBeforeWhatWaitsBehindIt) {
  Bar().on_change = [this] {
    toolkit.MessageBox(BoxStyle::kOk, "MIDI", "No device");
    log.push_back("answered");
  };
  During([&] {
    BarWidget()->setValue(9);
    QTest::mouseClick(Widget<QWidget>(child->Comm1), Qt::LeftButton);
  });
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      box->buttons().front()->click();
    }
  });
  answer.start(20);
  EXPECT_EQ(Send(), kMidiOk);
  EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() == 2; }, 20000));
  EXPECT_THAT(log, ElementsAre("answered", "press"));
}

TEST_F(FastHand, ABarThatIsDisabledBeforeItsMoveIsToldGoesBack) {
  During([&] {
    BarWidget()->setValue(50);
    Bar().SetEnabled(false);
  });
  EXPECT_EQ(Send(), kMidiOk);
  Settle();
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(BarWidget()->value(), 0);
}

TEST_F(FastHand, AMoveInAWindowThatIsGoneIsForgotten) {
  During([&] {
    BarWidget()->setValue(50);
    child->CloseWithoutAsking();
  });
  EXPECT_EQ(Send(), kMidiOk);
  Settle();
  EXPECT_THAT(log, ElementsAre("unload 1"));
}

TEST_F(FastHand, ASendInsideADeliveredClickKeepsWhatComesInMeanwhile) {
  child->Comm1.on_click = [this] {
    log.push_back("press");
    Send();
    log.push_back("sent");
  };
  During([&] {
    QTest::mouseClick(Widget<QWidget>(child->Comm1), Qt::LeftButton);
    During([&] { QTest::mouseClick(Widget<QWidget>(child->CommClose), Qt::LeftButton); });
  });
  EXPECT_EQ(Send(), kMidiOk);
  EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() >= 4; }, 20000));
  EXPECT_THAT(log, ElementsAre("press", "sent", "closing", "unload 1", "still here"));
}

}  // namespace
}  // namespace zentaline::ui::qt
