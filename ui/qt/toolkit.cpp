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
#include "ui/qt/spoken_widgets.h"

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

constexpr int kAfterFirstFrame = 50;  // milliseconds

}  // namespace

QtToolkit::QtToolkit() {
  SpeakOfWidgets();
  clock_.start();
  // Reading the pictures takes longer than all else here: the first frame doesn't wait for them, as it would for an
  // event that is posted now.
  QTimer::singleShot(kAfterFirstFrame, QCoreApplication::instance(), ShowProgramIcon);
  due_.setSingleShot(true);
  due_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&due_, &QTimer::timeout, [this] { OnTimer(); });
  windows_.gate().on_release = [this] { TimersChanged(); };
}

QtToolkit::~QtToolkit() {
  due_.stop();
  windows_.gate().on_release = nullptr;
  windows_.Drop();
  ShowWait({});
  DropForms();
}

int QtToolkit::Run() {
  return ended_ ? 0 : QApplication::exec();
}

BoxAnswer QtToolkit::MessageBox(BoxStyle style, const std::string& title, const std::string& text) {
  const Gate::Hold hold(windows_.gate());
  const PlainPointer pointer(waiting_);
  return RunBox(windows_.Front(), words_(), style, title, text);
}

FileDialogAnswer QtToolkit::FileDialog(const FileDialogRequest& request) {
  const Gate::Hold hold(windows_.gate());
  const PlainPointer pointer(waiting_);
  return RunFileDialog(windows_.Front(), words_(), request);
}

void QtToolkit::PopupMenu(MenuEntry& menu) {
  if (QMenu* shown = MenuOf(menu)) shown->popup(windows_.gate().popup_place.value_or(QCursor::pos()));
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

int QtToolkit::LineHeight(const Font& font) {
  return QFontMetrics(ToQt(font)).lineSpacing();
}

std::string QtToolkit::ShortDate() {
  return FromQt(QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
}

bool QtToolkit::PrintText(int left, int top, const Font& font, const std::string& text) {
  return printing_.Text(left, top, font, text);
}

bool QtToolkit::EndPrint() {
  if (!printing_.Previews()) return printing_.End();
  const Gate::Hold hold(windows_.gate());
  const PlainPointer pointer(waiting_);
  return printing_.EndWithPreview(windows_.Front(), words_());
}

int QtToolkit::PrintWidth(const Font& font, const std::string& text) {
  return printing_.Width(font, text);
}

int QtToolkit::PrintLineHeight(const Font& font) {
  return printing_.LineHeight(font);
}

std::int64_t QtToolkit::Now() {
  return clock_.elapsed();
}

void QtToolkit::TimersChanged() {
  due_.stop();
  const std::optional<std::int64_t> next = timers().NextDue();
  if (!next || windows_.gate().held()) return;
  due_.start(static_cast<int>(std::clamp<std::int64_t>(*next - Now(), 0, 1 << 30)));
}

// One at a time, so that the user's doings come between, and set anew before the handler runs: it may open a window
// that waits.
void QtToolkit::OnTimer() {
  if (windows_.gate().held()) return;
  windows_.gate().UserNow([this] { FireDueTimer(); });
  TimersChanged();
}

void QtToolkit::MainClosed() {
  ended_ = true;
  for (const auto& [form, loop] : modal_loops_) loop->quit();
  QCoreApplication::quit();
}

void QtToolkit::ShowForm(Form& form) {
  const Words& words = words_();
  translation_.Speak(words.language);
  windows_.Show(form, words);
}

void QtToolkit::HideForm(Form& form) {
  windows_.Hide(form);
  for (const auto& [modal_form, loop] : modal_loops_) {
    if (modal_form == &form) loop->quit();
  }
}

void QtToolkit::RaiseForm(Form& form) {
  windows_.Raise(form);
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
