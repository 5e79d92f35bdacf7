#include "ui/qt/toolkit.h"

#include <QApplication>
#include <QCursor>
#include <QDate>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <algorithm>

#include "ui/qt/convert.h"
#include "ui/qt/dialogs.h"
#include "ui/qt/icon.h"
#include "ui/qt/menus.h"

namespace zentaline::ui::qt {

namespace {

// Over a box or a dialog the pointer is an arrow, also while the program shows an hourglass.
class PlainPointer {
 public:
  explicit PlainPointer(bool needed) : needed_(needed) {
    if (needed_) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~PlainPointer() {
    if (needed_) QGuiApplication::restoreOverrideCursor();
  }
  PlainPointer(const PlainPointer&) = delete;
  PlainPointer& operator=(const PlainPointer&) = delete;

 private:
  bool needed_;
};

}  // namespace

QtToolkit::QtToolkit() : words_(&EnglishWords()) {
  QApplication::setWindowIcon(ProgramIcon());
  clock_.start();
  due_.setSingleShot(true);
  due_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&due_, &QTimer::timeout, [this] { OnTimer(); });
  gate_.on_release = [this] { TimersChanged(); };
}

QtToolkit::~QtToolkit() {
  due_.stop();
  gate_.on_release = nullptr;
  const Gate::Showing showing(gate_);
  std::vector<QWidget*> frames;
  for (Form* form : forms()) {
    FormWindow* window = WindowOf(*form);
    if (window == nullptr) continue;
    // Child windows die with the main window's area.
    if (form->kind() != FormKind::kChild) frames.push_back(window->frame());
    window->Detach();
  }
  for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame) delete *frame;
  ShowWait({});
  DropForms();
}

int QtToolkit::Run() {
  return ended_ ? 0 : QApplication::exec();
}

FormWindow* QtToolkit::WindowOf(const Form& form) const {
  return static_cast<FormWindow*>(form.view);
}

QWidget* QtToolkit::FrontWindow() const {
  if (Form* top = modal(); top != nullptr && top->view != nullptr) return WindowOf(*top)->frame();
  return main_ == nullptr ? nullptr : main_->window();
}

BoxAnswer QtToolkit::MessageBox(BoxStyle style, const std::string& title, const std::string& text) {
  const Gate::Hold hold(gate_);
  const PlainPointer pointer(waiting_);
  return RunBox(FrontWindow(), words(), style, title, text);
}

FileDialogAnswer QtToolkit::FileDialog(const FileDialogRequest& request) {
  const Gate::Hold hold(gate_);
  const PlainPointer pointer(waiting_);
  return RunFileDialog(FrontWindow(), words(), request);
}

void QtToolkit::PopupMenu(MenuEntry& menu) {
  if (QMenu* shown = MenuOf(menu)) shown->popup(QCursor::pos());
}

void QtToolkit::ShowWait(const std::string& text) {
  const bool waits = !text.empty();
  if (waits != waiting_) {
    waiting_ = waits;
    if (waits) {
      QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
      QGuiApplication::restoreOverrideCursor();
    }
  }
  if (waits) PaintNow();
}

// What the wait label says must be seen before the program goes on: paints, and lets nothing else happen.
void QtToolkit::PaintNow() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
}

Size QtToolkit::ScreenSize() {
  const QSize size = QGuiApplication::primaryScreen()->size();
  return {size.width(), size.height()};
}

int QtToolkit::TextWidth(const Font& font, const std::string& text) {
  return QFontMetrics(ToQt(font)).horizontalAdvance(ToQt(text));
}

std::string QtToolkit::ShortDate() {
  return FromQt(QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
}

bool QtToolkit::PrintText(int left, int top, const Font& font, const std::string& text) {
  return printing_.Text(left, top, font, text);
}

bool QtToolkit::EndPrint() {
  return printing_.End();
}

std::int64_t QtToolkit::Now() {
  return clock_.elapsed();
}

void QtToolkit::TimersChanged() {
  due_.stop();
  const std::optional<std::int64_t> next = timers().NextDue();
  if (!next || gate_.held()) return;
  due_.start(static_cast<int>(std::clamp<std::int64_t>(*next - Now(), 0, 1 << 30)));
}

// One at a time, so that the user's doings come between, and set anew before the handler runs: it may open a window
// that waits.
void QtToolkit::OnTimer() {
  if (gate_.held()) return;
  gate_.UserNow([this] { FireDueTimer(); });
  TimersChanged();
}

void QtToolkit::MainClosed() {
  ended_ = true;
  for (const auto& [form, loop] : modal_loops_) loop->quit();
  QCoreApplication::quit();
}

void QtToolkit::ShowForm(Form& form) {
  const Gate::Showing showing(gate_);
  FormWindow* window = nullptr;
  switch (form.kind()) {
    case FormKind::kMain:
      main_ = new MainFormWindow(form, gate_, words());
      window = main_;
      QObject::connect(main_->area(), &QMdiArea::subWindowActivated, main_,
                       [this](QMdiSubWindow* child) { OnChildActivated(child); });
      main_->window()->show();
      break;
    case FormKind::kChild:
      if (main_ == nullptr) return;
      window = new ChildFormWindow(form, gate_, words(), main_->area());
      break;
    case FormKind::kModal:
      window = new ModalFormWindow(form, gate_, FrontWindow());
      window->frame()->setWindowModality(Qt::ApplicationModal);
      window->frame()->show();
      window->ShowFocus();
      break;
  }
  window->Report();
}

void QtToolkit::HideForm(Form& form) {
  const Gate::Showing showing(gate_);
  FormWindow* window = WindowOf(form);
  if (window == nullptr) return;
  QWidget* frame = window->frame();
  window->Detach();
  if (window == main_) main_ = nullptr;
  if (form.kind() == FormKind::kChild && main_ != nullptr) main_->area()->removeSubWindow(frame);
  frame->hide();
  gate_.Destroy(frame);
  for (const auto& [modal_form, loop] : modal_loops_) {
    if (modal_form == &form) loop->quit();
  }
}

void QtToolkit::RaiseForm(Form& form) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr || main_ == nullptr || form.kind() != FormKind::kChild) return;
  const Gate::Showing showing(gate_);
  // Where the user has put the focus himself it stays.
  QWidget* focused = main_->window()->focusWidget();
  const bool inside = focused != nullptr && window->frame()->isAncestorOf(focused) &&
                      main_->area()->activeSubWindow() == window->frame();
  main_->area()->setActiveSubWindow(static_cast<QMdiSubWindow*>(window->frame()));
  if (!inside) window->ShowFocus();
}

void QtToolkit::OnChildActivated(QMdiSubWindow* child) {
  // None is active while another program is in front.
  if (child == nullptr || gate_.showing()) return;
  gate_.User(child, [this, child] {
    for (Form* form : forms()) {
      if (form->kind() == FormKind::kChild && form->view != nullptr && WindowOf(*form)->frame() == child &&
          main_->area()->activeSubWindow() == child) {
        form->UserActivate();
        return;
      }
    }
  });
}

void QtToolkit::RunModal(Form& form) {
  if (!form.open()) return;
  QEventLoop loop;
  modal_loops_.emplace_back(&form, &loop);
  TimersChanged();
  loop.exec();
  std::erase_if(modal_loops_, [&loop](const auto& entry) { return entry.second == &loop; });
}

}  // namespace zentaline::ui::qt
