#include "ui/console/console_toolkit.h"

#include <algorithm>
#include <limits>
#include <thread>
#include <utility>

#include "base/utf8.h"

namespace zentaline::ui {

namespace {

constexpr Size kScreen = {1024, 768};
constexpr Size kFirstChildSize = {480, 360};
constexpr Size kModalSize = {400, 300};
constexpr int kCascadeStep = 24;
constexpr int kCascadeLength = 10;
constexpr int kCharacterWidth = 8;
constexpr const char* kDate = "11/03/2004";

// The clock goes no further, so that what is due after it can still be told.
constexpr std::int64_t kEndOfTime = std::numeric_limits<std::int64_t>::max() / 2;

// Milliseconds.
constexpr int kLongestSleep = std::numeric_limits<int>::max();

// A chain of timers that never ends is given up after so many.
constexpr int kLongestChain = 100000;
// So many timers run in one go before the script gets its turn again.
constexpr int kTimersInOneGo = 1000;

}  // namespace

// Passes on what the program does with a window's place.
class ConsoleToolkit::View : public FormView {
 public:
  View(ConsoleToolkit& toolkit, Form& form) : toolkit_(toolkit), form_(form) { form_.view = this; }
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  ~View() override { form_.view = nullptr; }

  void ShowCaption() override {}
  void ShowPlacement() override { toolkit_.UserPlaces(form_, form_.placement()); }

 private:
  ConsoleToolkit& toolkit_;
  Form& form_;
};

ConsoleToolkit::ConsoleToolkit(Clock clock, std::function<void(const std::string&)> sink, Rest rest)
    : clock_(clock),
      rest_(std::move(rest)),
      began_(std::chrono::steady_clock::now()),
      transcript_(std::move(sink), [this] { return Now(); }) {}

ConsoleToolkit::~ConsoleToolkit() {
  views_.clear();
  DropForms();
}

void ConsoleToolkit::Advance(std::int64_t milliseconds) {
  const std::int64_t now = Now();
  const std::int64_t longest = kEndOfTime - now;
  const std::int64_t target = now + std::clamp<std::int64_t>(milliseconds, 0, longest);
  if (clock_ == Clock::kVirtual) {
    AdvanceVirtual(target);
  } else {
    AdvanceReal(target);
  }
}

void ConsoleToolkit::AdvanceVirtual(std::int64_t target) {
  while (!main_closed_) {
    const auto due = timers().NextDue();
    if (!due || *due > target) break;
    now_ = std::max(now_, *due);
    FireDueTimer();
    RestFor(0);
  }
  if (!main_closed_) now_ = std::max(now_, target);
}

void ConsoleToolkit::AdvanceReal(std::int64_t target) {
  while (!main_closed_) {
    const int next = RunDueTimers();
    const std::int64_t left = target - Now();
    if (left <= 0 || main_closed_) return;
    RestFor(std::min<std::int64_t>(left, next < 0 ? kLongestSleep : next));
  }
}

void ConsoleToolkit::RestFor(std::int64_t milliseconds) {
  if (rest_) return rest_(static_cast<int>(milliseconds));
  if (milliseconds > 0) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void ConsoleToolkit::RunChain(const std::function<bool()>& running) {
  const auto of_main = [](const Timer& timer) { return timer.form().kind() == FormKind::kMain; };
  for (int i = 0; i < kLongestChain && !main_closed_ && running(); ++i) {
    if (clock_ == Clock::kReal) {
      const int next = RunDueTimers();
      if (next < 0 || !running()) return;
      RestFor(next);
      continue;
    }
    Timer* const timer = timers().TakeFirst(of_main);
    if (timer == nullptr) return;
    RunTimer(*timer);
  }
}

int ConsoleToolkit::RunDueTimers() {
  for (int i = 0; i < kTimersInOneGo && !main_closed_; ++i) {
    if (!FireDueTimer()) break;
  }
  const auto due = timers().NextDue();
  if (!due || main_closed_) return -1;
  return static_cast<int>(std::clamp<std::int64_t>(*due - Now(), 0, std::numeric_limits<int>::max()));
}

BoxAnswer ConsoleToolkit::MessageBox(BoxStyle style, const std::string& title, const std::string& text) {
  transcript_.Box(style, title, text);
  return questions_ != nullptr ? questions_->AnswerBox(style) : BoxAnswer::kCancel;
}

FileDialogAnswer ConsoleToolkit::FileDialog(const FileDialogRequest& request) {
  transcript_.Dialog(request);
  return questions_ != nullptr ? questions_->AnswerDialog(request) : FileDialogAnswer();
}

void ConsoleToolkit::PopupMenu(MenuEntry& menu) {
  transcript_.Popup(menu.FullName());
}

void ConsoleToolkit::ShowWait(const std::string& text) {
  transcript_.Wait(text);
}

Size ConsoleToolkit::ScreenSize() {
  return kScreen;
}

int ConsoleToolkit::TextWidth(const Font& font, const std::string& text) {
  (void)font;
  return static_cast<int>(CountCharacters(text)) * kCharacterWidth;
}

std::string ConsoleToolkit::ShortDate() {
  return kDate;
}

bool ConsoleToolkit::PrintText(int left, int top, const Font& font, const std::string& text) {
  (void)font;
  if (printer_works_) transcript_.Printed(left, top, text);
  return printer_works_;
}

bool ConsoleToolkit::EndPrint() {
  if (printer_works_) transcript_.PrintEnded();
  return printer_works_;
}

std::int64_t ConsoleToolkit::Now() {
  if (clock_ == Clock::kVirtual) return now_;
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - began_).count();
}

void ConsoleToolkit::MainClosed() {
  main_closed_ = true;
  timers().StopAll();
}

void ConsoleToolkit::ShowForm(Form& form) {
  views_[&form] = std::make_unique<View>(*this, form);
  transcript_.Opened(form);
  Placement placement = form.placement();
  if (placement.width <= 0 || placement.height <= 0) {
    const WindowState state = placement.state;
    placement = FirstPlace(form);
    placement.state = state;
  }
  UserPlaces(form, placement);
}

void ConsoleToolkit::HideForm(Form& form) {
  views_.erase(&form);
  transcript_.Closed(form);
}

void ConsoleToolkit::RaiseForm(Form& form) {
  (void)form;
}

void ConsoleToolkit::RunModal(Form& form) {
  if (questions_ != nullptr) questions_->RunModal(form);
}

void ConsoleToolkit::UserPlaces(Form& form, const Placement& placement) {
  form.UserPlace(placement, Inner(form, placement));
  if (form.kind() == FormKind::kMain) FitMaximised();
}

// Child windows stand one a step below the other, by the order of opening.
Placement ConsoleToolkit::FirstPlace(const Form& form) const {
  if (form.kind() == FormKind::kMain) return {0, 0, kScreen.width, kScreen.height, WindowState::kNormal};
  if (form.kind() == FormKind::kModal) {
    return {(kScreen.width - kModalSize.width) / 2, (kScreen.height - kModalSize.height) / 2, kModalSize.width,
            kModalSize.height, WindowState::kNormal};
  }
  const auto open = forms();
  const auto children =
      std::count_if(open.begin(), open.end(), [](const Form* other) { return other->kind() == FormKind::kChild; });
  const int step = kCascadeStep * (static_cast<int>(std::max<std::ptrdiff_t>(children - 1, 0)) % kCascadeLength);
  return {step, step, kFirstChildSize.width, kFirstChildSize.height, WindowState::kNormal};
}

Size ConsoleToolkit::Inner(const Form& form, const Placement& placement) const {
  switch (placement.state) {
    case WindowState::kMinimised:
      return {};
    case WindowState::kMaximised: {
      if (form.kind() != FormKind::kChild) return kScreen;
      for (const Form* const main : forms()) {
        if (main->kind() == FormKind::kMain) return main->inner_size();
      }
      return kScreen;
    }
    default:
      return {placement.width, placement.height};
  }
}

void ConsoleToolkit::FitMaximised() {
  const UserEvent event(*this);
  for (Form* const form : forms()) {
    if (form->kind() == FormKind::kChild && form->placement().state == WindowState::kMaximised) {
      form->UserPlace(form->placement(), Inner(*form, form->placement()));
    }
  }
}

bool ConsoleDriver::Place(Form& form, const Placement& placement) {
  if (!form.Reachable()) return false;
  toolkit_.UserPlaces(form, placement);
  return true;
}

}  // namespace zentaline::ui
