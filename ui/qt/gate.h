// Tells the user's doings from what the program itself brings about, and keeps them back while the program can't take
// them.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace zentaline::ui::qt {

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
  };

  bool showing() const { return showing_ > 0; }
  bool held() const { return holds_ > 0; }

  // Something the user did: forgotten while the program is showing something, kept while it is held up, otherwise
  // carried out at once. It is dropped when `guard` has died before.
  void User(QObject* guard, std::function<void()> act);
  // The same for what needs its result at once; only for input, which does not come while input is held.
  void UserNow(const std::function<void()>& act);
  // Destroys a window as soon as no widget's event is under way.
  void Destroy(QWidget* window);

  // Called when nothing holds the program up any longer.
  std::function<void()> on_release;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Kept {
    QPointer<QObject> guard;
    std::function<void()> act;
  };
  void Release();
  void StopWatching();
  void Deliver();
  void DeliverSoon();
  bool KeepsInput() const { return inputs_ > 0 || (draining_ && !kept_.empty()); }

  int showing_ = 0;
  int holds_ = 0;
  int inputs_ = 0;
  int acting_ = 0;
  int replaying_ = 0;
  bool draining_ = false;  // input has been held, and what was kept has not all been delivered yet
  bool watching_ = false;
  std::deque<Kept> kept_;
  std::vector<QPointer<QWidget>> dying_;  // those that are still there die with the gate
};

}  // namespace zentaline::ui::qt
