#include "ui/qt/window.h"

#include <QAction>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "ui/placing.h"
#include "ui/qt/builder.h"
#include "ui/qt/convert.h"
#include "ui/qt/icon.h"
#include "ui/qt/menus.h"
#include "ui/toolkit.h"

namespace zentaline::ui::qt {

namespace {

constexpr QSize kFirstSize(1760, 1100);  // of the main window, where the screen has room for it
constexpr QSize kLeastSize(480, 320);
constexpr QSize kFrameRoom(16, 48);  // what the desktop puts around the main window
constexpr int kTitleRoom = 140;      // pixels
constexpr int kProgressWidth = 260;

// What every frame reports to its window.
template <class Base>
class Frame : public Base {
 public:
  using Base::Base;
  FormWindow* owner = nullptr;

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    if (owner != nullptr) owner->CloseAsked();
  }
  void moveEvent(QMoveEvent* event) override {
    Base::moveEvent(event);
    if (owner != nullptr) owner->GeometryChanged();
  }
  void resizeEvent(QResizeEvent* event) override {
    Base::resizeEvent(event);
    if (owner != nullptr) owner->GeometryChanged();
  }
  void changeEvent(QEvent* event) override {
    Base::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && owner != nullptr) owner->GeometryChanged();
  }
};

class DialogFrame : public Frame<QDialog> {
 public:
  using Frame::Frame;
  // Escape with the focus nowhere: only a cancel button answers it.
  void reject() override {
    if (owner != nullptr && owner->form() != nullptr) PressByKey(*owner->form(), {Key::kEscape, {}});
  }
};

WindowState StateOf(const QWidget& window) {
  if (window.isMinimized()) return WindowState::kMinimised;
  return window.isMaximized() ? WindowState::kMaximised : WindowState::kNormal;
}

Placement PlacementOf(const QRect& place, WindowState state) {
  return {place.left(), place.top(), place.width(), place.height(), state};
}

Size SizeOf(const QSize& size) {
  return {size.width(), size.height()};
}

void NameSystemMenu(QMenu& menu, const Words& words) {
  const std::pair<const char*, const std::string&> names[] = {
      {"Restore", words.restore},   {"Move", words.move},         {"Size", words.size},
      {"Minimize", words.minimise}, {"Maximize", words.maximise}, {"Stay on Top", words.stay_on_top},
      {"Close", words.close}};
  for (QAction* action : menu.actions()) {
    // Its shortcuts would compete with the menu bar's.
    action->setShortcuts(QList<QKeySequence>{});
    for (const auto& [name, text] : names) {
      if (action->text().remove(u'&') == QLatin1String(name)) action->setText(ToQt(text));
    }
  }
}

}  // namespace

FormWindow::FormWindow(Form& form, Gate& gate, QWidget* frame)
    : QObject(frame), form_(&form), gate_(gate), frame_(frame) {
  form.view = this;
  frame->setObjectName(ToQt(form.FullName()));
}

FormWindow::~FormWindow() {
  Detach();
}

void FormWindow::BuildIn(QWidget* parent) {
  Built built = BuildBody(*form_, gate_, parent);
  body_ = built.body;
  Keep(built.views);
  body_->installEventFilter(this);
  body_->setMouseTracking(static_cast<bool>(form_->on_mouse));
}

void FormWindow::Keep(const std::vector<View*>& views) {
  for (View* view : views) views_.emplace_back(view);
}

void FormWindow::Detach() {
  for (const QPointer<View>& view : views_) {
    if (view) view->Detach();
  }
  views_.clear();
  if (form_ == nullptr) return;
  DetachMenus(*form_);
  if (form_->view == this) form_->view = nullptr;
  form_ = nullptr;
}

void FormWindow::ShowCaption() {
  const Gate::Showing showing(gate_);
  // The desktop's mark of what isn't saved stands in place of the sign, which a caption may hold too.
  QString title = ToQt(form_->caption());
  const QString sign = QStringLiteral("[*]");
  title.replace(sign, sign + sign);
  frame_->setWindowTitle(form_->modified() ? title + sign : title);
  frame_->setWindowModified(form_->modified());
}

Placement FormWindow::PlacementNow() const {
  return PlacementOf(frame_->geometry(), StateOf(*frame_));
}

Size FormWindow::InnerNow() const {
  return SizeOf(body_->size());
}

void FormWindow::Report() {
  if (form_ != nullptr && !keeps_places_ && frame_->isVisible()) form_->UserPlace(PlacementNow(), InnerNow());
}

void FormWindow::GeometryChanged() {
  if (form_ == nullptr || body_ == nullptr || std::exchange(report_due_, true)) return;
  // A change of state comes as several events: they are told as one.
  QMetaObject::invokeMethod(
      this,
      [this] {
        report_due_ = false;
        if (form_ == nullptr) return;
        gate_.User(this, [this] { Report(); });
        if (form_ == nullptr || form_->toolkit().active_child() != form_) return;
        if (!frame_->window()->property("focus_fled").toBool()) return;
        frame_->window()->setProperty("focus_fled", false);
        const Gate::Showing showing(gate_);
        ShowFocus();
      },
      Qt::QueuedConnection);
}

void FormWindow::CloseAsked() {
  if (form_ == nullptr) return;
  gate_.User(this, [this] {
    Report();
    if (form_ != nullptr) form_->UserClose();
  });
}

void FormWindow::ShowFocus() {
  if (form_ == nullptr || form_->focus() == nullptr || form_->focus()->view == nullptr) return;
  form_->focus()->view->Show(Change::kFocus);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (form_ == nullptr || watched != body_) return false;
  const bool press = event->type() == QEvent::MouseButtonPress;
  const bool release = event->type() == QEvent::MouseButtonRelease;
  const bool context_key = event->type() == QEvent::ContextMenu;
  if (context_key && form_->on_context) return true;
  if (!press && !release && event->type() != QEvent::MouseMove) return false;
  const auto& mouse = *static_cast<QMouseEvent*>(event);
  const QPoint place = mouse.position().toPoint();
  for (const QWidget* child = body_->childAt(place); child != nullptr && child != body_;
       child = child->parentWidget()) {
    if (ShowsControl(*child) && child->isEnabled()) return false;
  }
  const bool right = mouse.button() == Qt::RightButton || (mouse.buttons() & Qt::RightButton) != 0;
  gate_.UserNow([&] {
    if (form_->on_mouse) {
      form_->UserMouse({press     ? MouseEvent::kDown
                        : release ? MouseEvent::kUp
                                  : MouseEvent::kMove,
                        place.x(), place.y(), right});
    }
    if (release && mouse.button() == Qt::RightButton && form_ != nullptr) form_->UserContext();
  });
  return false;
}

MainFormWindow::MainFormWindow(Form& form, Gate& gate, const Words& words)
    : FormWindow(form, gate, new Frame<QMainWindow>),
      window_(static_cast<QMainWindow*>(frame())),
      area_(new QMdiArea),
      strip_(new QHBoxLayout),
      progress_(new QProgressBar),
      words_(words) {
  static_cast<Frame<QMainWindow>*>(window_)->owner = this;
  window_->setMinimumSize(kLeastSize);
  auto* inside = new QWidget(window_);
  auto* column = new QVBoxLayout(inside);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  column->addWidget(area_, 1);
  strip_->setSpacing(0);
  column->addLayout(strip_);
  BuildFreeRoom();
  BuildIn(inside);
  strip_->addWidget(body(), 1);
  progress_->setMinimumWidth(kProgressWidth);
  progress_->setToolTip(ToToolTip(words.progress_tool_tip));
  progress_->setVisible(false);
  strip_->addWidget(progress_);
  window_->setCentralWidget(inside);
  if (!form.menu_bar().empty()) BuildMenus(form, gate, *window_->menuBar());
  window_->setAcceptDrops(true);
  window_->installEventFilter(this);
  ShowCaption();
  ShowPlacement();
}

void MainFormWindow::ShowPlacement() {
  Place();
  Report();
}

void MainFormWindow::Place() {
  const Gate::Showing showing(gate());
  const Placement& place = form()->placement();
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  if (place.width > 0) {
    // A place on a screen that is gone is no place.
    const QRect wanted(place.left, place.top, place.width, place.height);
    const QScreen* screen = QGuiApplication::screenAt(wanted.center());
    const QRect around = screen == nullptr ? room : screen->availableGeometry();
    // What is too large for the screen, as after a change of its scaling, is shown whole on it.
    const bool fits = wanted.width() <= around.width() && wanted.height() <= around.height();
    window_->resize(
        (fits ? wanted.size() : wanted.size().boundedTo(around.size() - kFrameRoom)).expandedTo(kLeastSize));
    window_->move(screen == nullptr ? room.topLeft() : fits ? wanted.topLeft() : around.topLeft());
  } else if (!window_->isVisible()) {
    window_->resize(kFirstSize.boundedTo(room.size() * 9 / 10));
    window_->move(room.center() - window_->rect().center());
  }
  const Qt::WindowStates states = window_->windowState() & ~(Qt::WindowMaximized | Qt::WindowMinimized);
  window_->setWindowState(states | (place.state == WindowState::kMaximised   ? Qt::WindowMaximized
                                    : place.state == WindowState::kMinimised ? Qt::WindowMinimized
                                                                             : Qt::WindowNoState));
}

Placement MainFormWindow::PlacementNow() const {
  const WindowState state = StateOf(*window_);
  if (state != WindowState::kNormal && window_->normalGeometry().isValid()) {
    return PlacementOf(window_->normalGeometry(), state);
  }
  return PlacementOf({window_->pos(), window_->size()}, state);
}

Size MainFormWindow::InnerNow() const {
  return SizeOf(area_->viewport()->size());
}

void MainFormWindow::BuildFreeRoom() {
  if (form()->free_area.kind == Layout::Kind::kNothing) return;
  const Built built = BuildFreeArea(*form(), gate(), area_);
  Keep(built.views);
  free_room_ = built.body;
  free_room_->setAutoFillBackground(true);
  area_->installEventFilter(this);
  if (built.views.empty()) return;
  free_part_ = built.views.front()->widget();
  free_part_->installEventFilter(this);
  free_room_->setVisible(!free_part_->isHidden());
}

bool MainFormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (form() == nullptr) return false;
  if (watched == area_ && free_room_ != nullptr && event->type() == QEvent::Resize) {
    free_room_->setGeometry(area_->rect());
    return false;
  }
  if (watched == free_part_ && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)) {
    free_room_->setVisible(event->type() == QEvent::ShowToParent);
    free_room_->raise();
    // Who opens the program by the keyboard finds the first command in hand.
    const QWidget* focused = window_->focusWidget();
    const auto commands = free_part_->findChildren<QPushButton*>();
    const auto first = std::find_if(commands.begin(), commands.end(), [](const QPushButton* command) {
      return !command->isHidden() && command->isEnabled();
    });
    const bool free = focused == nullptr || !focused->isVisible();
    if (event->type() == QEvent::ShowToParent && free && first != commands.end())
      (*first)->setFocus(Qt::OtherFocusReason);
    return false;
  }
  if (watched == window_ && (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove)) {
    auto* drag = static_cast<QDragMoveEvent*>(event);
    const QList<QUrl> urls = drag->mimeData()->urls();
    const bool files = std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
    if (files) drag->acceptProposedAction();
    return true;
  }
  if (watched == window_ && event->type() == QEvent::Drop) {
    std::vector<std::string> paths;
    for (const QUrl& url : static_cast<QDropEvent*>(event)->mimeData()->urls()) {
      if (url.isLocalFile()) paths.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
    }
    static_cast<QDropEvent*>(event)->acceptProposedAction();
    gate().User(this, [this, paths] {
      if (form() == nullptr || !form()->Reachable()) return;
      const UserEvent scope(*form());
      form()->FilesDropped(paths);
    });
    return true;
  }
  return FormWindow::eventFilter(watched, event);
}

void MainFormWindow::ShowProgress(std::uint32_t gone, std::uint32_t total, int seconds_left) {
  const Gate::Showing showing(gate());
  const QLocale locale;
  progress_->setRange(0, static_cast<int>(total));
  progress_->setValue(static_cast<int>(gone));
  progress_->setFormat(ToQt(words_.progress).arg(locale.toString(gone), locale.toString(total)).arg(seconds_left));
  if (progress_->isHidden()) PlaceProgress();
  progress_->setVisible(true);
}

void MainFormWindow::HideProgress() {
  const Gate::Showing showing(gate());
  progress_->setVisible(false);
}

// Where it would take from the fields what they show whole it stands over the wait text, which tells less.
void MainFormWindow::PlaceProgress() {
  const Label* field = form() == nullptr ? nullptr : form()->wait_field;
  QWidget* over = field == nullptr || field->view == nullptr ? nullptr : static_cast<View*>(field->view)->widget();
  if (over == nullptr || HasRoomBeside(kProgressWidth)) {
    progress_->setMinimumWidth(kProgressWidth);
    strip_->addWidget(progress_);
    return;
  }
  strip_->removeWidget(progress_);
  progress_->setMinimumWidth(0);
  progress_->setParent(over->parentWidget());
  progress_->setGeometry(over->geometry());
  progress_->raise();
}

// Whether the fields that share what room there is, but for the wait text, still show theirs whole with so much less.
bool MainFormWindow::HasRoomBeside(int width) const {
  const QWidget* wait = static_cast<View*>(form()->wait_field->view)->widget();
  const QList<QLabel*> fields = body()->findChildren<QLabel*>();
  return std::all_of(fields.begin(), fields.end(), [&](const QLabel* field) {
    if (field == wait || field->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored) return true;
    return field->sizeHint().width() <= field->width() * (body()->width() - width) / std::max(body()->width(), 1);
  });
}

ChildFormWindow::ChildFormWindow(Form& form, Gate& gate, const Words& words, QMdiArea* area, const Form* belongs_to)
    : FormWindow(form, gate, new Frame<QMdiSubWindow>), window_(static_cast<QMdiSubWindow*>(frame())) {
  static_cast<Frame<QMdiSubWindow>*>(window_)->owner = this;
  // Widgets that are made in a window on the screen know its screen; those around them have none to take along.
  area->addSubWindow(window_);
  BuildIn(window_);
  window_->setWidget(body());
  // A window that opens at once doesn't wait for the icon of the others: without one of its own it has the toolkit's.
  ShowProgramIcon();
  window_->setWindowIcon(QGuiApplication::windowIcon());
  if (QMenu* menu = window_->systemMenu()) NameSystemMenu(*menu, words);
  const Placement& place = form.placement();
  if (place.width == 0) {
    QSize hint = window_->sizeHint();
    const QSize room = area->viewport()->size();
    // What scrolls in one direction has its bar beside what it would have shown whole in the other.
    const int bar = window_->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QSize over(hint.height() > room.height() ? bar : 0, hint.width() > room.width() ? bar : 0);
    hint += over;
    window_->resize(hint.boundedTo(room).expandedTo(window_->minimumSizeHint()));
    const bool beside = belongs_to != nullptr && belongs_to->placement().state == WindowState::kNormal;
    const Placement found =
        PlaceInArea(SizeOf(room), SizeOf(window_->size()), beside ? &belongs_to->placement() : nullptr,
                    window_->minimumSizeHint().height());
    window_->setGeometry(found.left, found.top, found.width, found.height);
  }
  Place(place);
  // The caption comes last, behind what the new widgets ask of their window: with each size that this is asked for and
  // given its parts are placed anew, and the caption is shortened for each of them.
  QCoreApplication::sendPostedEvents(body(), QEvent::LayoutRequest);
  QCoreApplication::sendPostedEvents(window_, QEvent::LayoutRequest);
  ShowCaption();
}

void ChildFormWindow::ShowPlacement() {
  {
    const Gate::Showing showing(gate());
    Place(form()->placement());
  }
  Report();
}

void ChildFormWindow::Place(const Placement& place) {
  if (place.width > 0) {
    const QRect wanted(place.left, place.top, place.width, place.height);
    if (StateOf(*window_) != WindowState::kNormal) window_->showNormal();
    window_->setGeometry({wanted.topLeft(), wanted.size().expandedTo(window_->minimumSizeHint())});
    normal_ = window_->geometry();
  }
  switch (place.state) {
    case WindowState::kNormal:
      window_->showNormal();
      break;
    case WindowState::kMinimised:
      window_->showMinimized();
      break;
    case WindowState::kMaximised:
      window_->showMaximized();
      break;
  }
}

Placement ChildFormWindow::PlacementNow() const {
  const WindowState state = StateOf(*window_);
  if (state == WindowState::kNormal) normal_ = window_->geometry();
  return PlacementOf(normal_.isValid() ? normal_ : window_->geometry(), state);
}

ModalFormWindow::ModalFormWindow(Form& form, Gate& gate, QWidget* parent)
    : FormWindow(form, gate, new DialogFrame(parent)), window_(static_cast<QDialog*>(frame())) {
  static_cast<DialogFrame*>(window_)->owner = this;
  window_->setWindowModality(Qt::ApplicationModal);
  // Its title has room too, beside the buttons of its frame.
  window_->setMinimumWidth(window_->fontMetrics().horizontalAdvance(ToQt(form.caption())) + kTitleRoom);
  auto* column = new QVBoxLayout(window_);
  column->setContentsMargins(0, 0, 0, 0);
  BuildIn(window_);
  column->addWidget(body());
  ShowCaption();
  ShowPlacement();
}

void ModalFormWindow::ShowPlacement() {
  const Placement& place = form()->placement();
  if (place.width == 0) return;
  {
    const Gate::Showing showing(gate());
    window_->setGeometry(place.left, place.top, place.width, place.height);
  }
  Report();
}

}  // namespace zentaline::ui::qt
