// Tells the user's doings from what the program itself brings about, and keeps them back while the program can't take
// them.
#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ui/qt/text_sizes.h"

namespace zentaline::ui::qt {

// A widget that goes along with the hand at once, also while input is held; what it then reports is a move that waits.
class FollowsHand {
 public:
  virtual ~FollowsHand() = default;
  // Whether this is such an event of the hand.
  virtual bool Follows(const QEvent& event) const = 0;
};

class Gate : public QObject {
 public:
  Gate() = default;
  ~Gate() override;

  // While one of these lives, what the widgets report comes from the program and is no doing of the user.
  class Showing {
   public:
    explicit Showing(Gate& gate) : gate_(gate) { ++gate_.showing_; }
    ~Showing() { --gate_.showing_; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;

   private:
    Gate& gate_;
  };

  // While one of these lives a box, a dialog or a long send holds the program up: no timer fires, and what the user
  // does to other windows waits.
  class Hold {
   public:
    explicit Hold(Gate& gate) : gate_(gate) { ++gate_.holds_; }
    ~Hold() { gate_.Release(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    Gate& gate_;
  };

  // The same, and keys and mouse wait too.
  class HoldInput {
   public:
    explicit HoldInput(Gate& gate);
    ~HoldInput();
    HoldInput(const HoldInput&) = delete;
    HoldInput& operator=(const HoldInput&) = delete;

   private:
    Hold hold_;
    Gate& gate_;
    int replaying_before_;
  };

  bool showing() const { return showing_ > 0; }
  bool held() const { return holds_ > 0; }

  // Something the user did: forgotten while the program is showing something, kept while it is held up, otherwise
  // carried out at once. It is dropped when `guard` has died before.
  void User(QObject* guard, std::function<void()> act);
  // Whether what the user does now has to wait. What follows from an action that is being delivered belongs to it, and
  // doesn't wait behind the next.
  bool Waits() const { return held() || (acting_ == 0 && !kept_.empty()); }
  // Keeps a move of a bar, when it has to wait. Of moves of one bar that wait next to each other only the last is
  // carried out: false when it took the place of the one before.
  bool KeepMove(QObject* bar, std::function<void()> act);
  // Told of every press and release that a control gets.
  void NoteButton(const QMouseEvent& event, QWidget* widget);
  // The same for what needs its result at once; only for input, which does not come while input is held.
  void UserNow(const std::function<void()>& act);
  // Destroys a window as soon as no widget's event is under way.
  void Destroy(QWidget* window);

  // Where a menu opens that a key asks for, on the screen; none: under the pointer.
  std::optional<QPoint> popup_place;
  // For the widgets of all windows.
  TextSizes text_sizes;
  // Called when nothing holds the program up any longer.
  std::function<void()> on_release;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Kept {
    QPointer<QObject> guard;  // nothing is done when it has died meanwhile
    std::function<void()> act;
    const QObject* bar = nullptr;  // of a move; of an event, of a move of the mouse that has taken it
    bool is_event = false;
    bool hovers = false;  // a move of the mouse without a button
  };
  void Release();
  void StopWatching();
  void Deliver();
  void DeliverSoon();
  // A box that opens while the rest is delivered is answered first.
  bool KeepsInput() const { return inputs_ > 0 || (draining_ && !kept_.empty() && !held()); }
  // Whether the event goes to a widget that follows the hand, with nothing before it that could change where it goes.
  bool GoesOn(QObject* receiver, const QEvent& event);
  // The widget that the event will come to; those from outside reach the window first.
  QWidget* TargetOf(QObject* receiver, const QEvent& event) const;
  // The bar that a kept press has taken hold of, for the moves of the mouse that are kept behind it; null for others.
  const QObject* BarOfMove(QObject* receiver, const QEvent& event);
  bool KeepsEvents() const;

  int showing_ = 0;
  int holds_ = 0;
  int inputs_ = 0;
  int acting_ = 0;
  int replaying_ = 0;
  bool draining_ = false;  // input has been held, and what was kept has not all been delivered yet
  bool watching_ = false;
  QPointer<QWidget> held_by_button_;  // what the left button was pressed on, until its release
  QPointer<QWidget> gone_on_;         // the last bar that an event went on to
  bool hand_known_ = false;           // a press or a release is kept
  QPointer<QObject> hand_;            // then the bar that the mouse will have taken behind it
  std::deque<Kept> kept_;
  std::vector<QPointer<QWidget>> dying_;  // those that are still there die with the gate
};

}  // namespace zentaline::ui::qt
