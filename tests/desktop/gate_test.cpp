// What waits while the program is held up: timers, and the user's hand.
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <thread>

#include "tests/desktop/desk.h"
#include "tests/desktop/slow_service.h"
#include "ui/qt/long_sender.h"

namespace zentaline::ui::qt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Holding : public Desk {
 protected:
  int Send(std::uint32_t bytes) {
    const std::string data(bytes, '\x41');
    MidiHeader header;
    header.data = data.data();
    header.buffer_length = bytes;
    return sender.midiOutLongMsg(1, header, kMidiHeaderSize);
  }
  // Lets everything happen until it has come.
  template <class What>
  static bool Comes(What what) {
    return QTest::qWaitFor(what, static_cast<int>(std::chrono::milliseconds(kPatience).count()));
  }
  // What happens in the middle of the next long send.
  template <class Doing>
  void During(Doing doing) {
    QTimer::singleShot(0, [this, doing] {
      doing();
      service.GoOn();
    });
  }
  // The user's click, through the platform's own queue.
  void ClickFromOutside(QWidget* widget) {
    QWindow* window = toolkit.windows().main()->window()->windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier,
                      widget->mapTo(toolkit.windows().main()->window(), widget->rect().center()));
  }

  SlowService service;
  LongSender sender{toolkit, service};
};

TEST_F(Holding, ALongSendGivesTheServicesResultFromAnotherThread) {
  service.result = kMidiNoDevice;
  service.GoOn();
  EXPECT_EQ(Send(1000), kMidiNoDevice);
  EXPECT_NE(service.thread, std::this_thread::get_id());
}

TEST_F(Holding, AShortSendIsSentAtOnce) {
  service.waits = false;
  EXPECT_EQ(Send(256), kMidiOk);
  EXPECT_EQ(service.thread, std::this_thread::get_id());
}

TEST_F(Holding, AClickDuringALongSendIsDoneAfterIt) {
  During([this] {
    ClickFromOutside(Widget<QWidget>(child->Comm1));
    log.push_back("clicked");
  });
  EXPECT_EQ(Send(1000), kMidiOk);
  log.push_back("sent");
  Settle();
  EXPECT_THAT(log, ElementsAre("clicked", "sent", "press"));
}

TEST_F(Holding, EventsThatReachTheWidgetsByThemselvesWaitTooAndKeepTheirOrder) {
  child->Text1.SetFocus();
  log.clear();
  During([this] {
    QWidget* text = Widget<QWidget>(child->Text1);
    QTest::sendKeyEvent(QTest::Click, text, Qt::Key_A, "a", Qt::NoModifier);
    QTest::mouseClick(Widget<QWidget>(child->Comm1), Qt::LeftButton);
    toolkit.windows().main()->window()->close();
    log.push_back("done");
  });
  main->may_close = false;
  EXPECT_EQ(Send(1000), kMidiOk);
  log.push_back("sent");
  Settle();
  EXPECT_THAT(log, ElementsAre("done", "sent", "text a", "press", "main query"));
}

TEST_F(Holding, ResizingAndActivationDuringALongSendAreToldAfterIt) {
  OpenChild("2");
  Settle();
  log.clear();
  During([this] {
    toolkit.windows().main()->area()->setActiveSubWindow(static_cast<QMdiSubWindow*>(Frame(*child)));
    Frame(*child)->resize(Frame(*child)->size() + QSize(10, 10));
  });
  EXPECT_EQ(Send(1000), kMidiOk);
  EXPECT_THAT(log, IsEmpty());
  Settle();
  EXPECT_THAT(log, ElementsAre("activated 1", "resized 1"));
}

TEST_F(Holding, NoTimerFiresDuringALongSendAndDueOnesFireAfterIt) {
  child->Timer1.SetInterval(50);
  child->Timer1.Start();
  QTimer::singleShot(400, [this] { service.GoOn(); });
  EXPECT_EQ(Send(1000), kMidiOk);
  log.push_back("sent");
  EXPECT_THAT(log, ElementsAre("sent"));
  EXPECT_TRUE(Comes([this] { return log.size() > 1; }));
  EXPECT_THAT(log, ElementsAre("sent", "timer"));
}

TEST_F(Holding, TheProgressBarRunsAndGoesAway) {
  QProgressBar* bar = toolkit.windows().main()->window()->findChild<QProgressBar*>();
  int seen = 0;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    if (!bar->isVisible()) return;
    seen = bar->value();
    look.stop();
    service.GoOn();
  });
  look.start(10);
  EXPECT_FALSE(bar->isVisible());
  EXPECT_EQ(Send(1000), kMidiOk) << "no bar was seen";
  EXPECT_EQ(seen, 500);
  EXPECT_EQ(bar->maximum(), 1000);
  EXPECT_FALSE(bar->isVisible());
}

TEST_F(Holding, NoTimerFiresWhileABoxIsOpen) {
  child->Timer1.SetInterval(20);
  child->Timer1.Start();
  QTimer::singleShot(150, [this] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "Save changes ?");
    log.push_back("box");
    for (QAbstractButton* button : box->buttons()) {
      if (button->text() == "&No") return button->click();
    }
  });
  EXPECT_EQ(toolkit.MessageBox(BoxStyle::kYesNo, "Title", "Save changes ?"), BoxAnswer::kNo);
  EXPECT_THAT(log, ElementsAre("box"));
  EXPECT_TRUE(Comes([this] { return log.size() > 1; }));
  EXPECT_THAT(log, ElementsAre("box", "timer"));
}

TEST_F(Holding, TimersRunOnTheRealClockInTheirOrder) {
  ToyChild& other = OpenChild("2");
  Settle();
  log.clear();
  std::vector<std::int64_t> fired;
  for (ToyChild* one : {child, &other}) {
    one->Timer1.SetInterval(one == child ? 80 : 40);
    one->Timer1.on_timer = [this, one, &fired] {
      log.push_back("timer " + one->number());
      fired.push_back(toolkit.Now());
    };
  }
  std::int64_t began = 0;
  // Again, when the machine held the test up between the two.
  do {
    child->Timer1.Stop();
    other.Timer1.Stop();
    began = toolkit.Now();
    child->Timer1.Start();
    other.Timer1.Start();
  } while (toolkit.Now() - began >= 40);
  ASSERT_TRUE(Comes([&] { return fired.size() == 2; }));
  EXPECT_THAT(log, ElementsAre("timer 2", "timer 1"));
  EXPECT_GE(fired[0] - began, 40);
  EXPECT_GE(fired[1] - began, 80);
}

struct Answer {
  BoxStyle style;
  int button;  // counted from the left of what was added; -1 is Escape
  BoxAnswer answer;
};

class Boxes : public Holding, public ::testing::WithParamInterface<Answer> {};

TEST_P(Boxes, GiveTheAnswerOfTheButton) {
  QTimer::singleShot(0, [] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    if (GetParam().button < 0) {
      QTest::keyClick(box, Qt::Key_Escape);
      return;
    }
    const char* const texts[] = {"&Sì", "&No", "Annulla", "OK"};
    for (QAbstractButton* button : box->buttons()) {
      if (button->text() == QString::fromUtf8(texts[GetParam().button])) {
        QTest::mouseClick(button, Qt::LeftButton);
        return;
      }
    }
    ADD_FAILURE() << "no such button";
    box->reject();
  });
  toolkit.SetWordSource(ItalianWords);
  EXPECT_EQ(toolkit.MessageBox(GetParam().style, "T", "?"), GetParam().answer);
}

TEST_F(Holding, ABoxIsWideEnoughForItsTitle) {
  const std::string title = "Opening A File With A Name.arr";
  QTimer::singleShot(0, [&title] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_GE(box->width(), box->fontMetrics().horizontalAdvance(ToQt(title)) + 100);
    QTest::keyClick(box, Qt::Key_Escape);
  });
  toolkit.MessageBox(BoxStyle::kOk, title, "File not found");
}

INSTANTIATE_TEST_SUITE_P(Styles, Boxes,
                         ::testing::Values(Answer{BoxStyle::kOk, 3, BoxAnswer::kOk},
                                           Answer{BoxStyle::kOk, -1, BoxAnswer::kOk},
                                           Answer{BoxStyle::kYesNo, 0, BoxAnswer::kYes},
                                           Answer{BoxStyle::kYesNo, 1, BoxAnswer::kNo},
                                           Answer{BoxStyle::kYesNoCancel, 0, BoxAnswer::kYes},
                                           Answer{BoxStyle::kYesNoCancel, 1, BoxAnswer::kNo},
                                           Answer{BoxStyle::kYesNoCancel, 2, BoxAnswer::kCancel},
                                           Answer{BoxStyle::kYesNoCancel, -1, BoxAnswer::kCancel}));

}  // namespace
}  // namespace zentaline::ui::qt
