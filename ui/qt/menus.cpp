#include "ui/qt/menus.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <vector>

#include "ui/letters.h"
#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

namespace {

// What stands for an entry, as long as there is one.
class AnyEntry : public QObject, public ControlView {
 public:
  using QObject::QObject;
  virtual void Detach() = 0;
};

class EntryView : public AnyEntry {
 public:
  // `menu` is that of the entry itself when it has entries below it.
  EntryView(MenuEntry& entry, char letter, Gate& gate, QAction* action, QMenu* menu)
      : AnyEntry(action), entry_(&entry), letter_(letter), gate_(gate), action_(action), menu_(menu) {
    entry.view = this;
    action->setObjectName(ToQt(entry.FullName()));
    if (!entry.shortcut.empty()) action->setShortcut(QKeySequence(ToQt(entry.shortcut)));
    connect(action, &QAction::triggered, this, [this] {
      if (entry_ == nullptr) return;
      gate_.User(this, [this] {
        const QPointer<EntryView> alive(this);
        if (entry_ != nullptr) entry_->UserPress();
        // Qt has flipped the mark by itself.
        if (alive) Show(Change::kChecked);
      });
    });
    for (const Change change :
         {Change::kText, Change::kToolTip, Change::kChecked, Change::kEnabled, Change::kVisible}) {
      Show(change);
    }
  }
  ~EntryView() override { EntryView::Detach(); }

  void Detach() override {
    if (entry_ != nullptr && entry_->view == this) entry_->view = nullptr;
    entry_ = nullptr;
  }
  QAction* action() const { return action_; }
  QMenu* menu() const { return menu_; }

  void Show(Change change) override {
    if (entry_ == nullptr) return;
    const Gate::Showing showing(gate_);
    switch (change) {
      case Change::kText:
        action_->setText(Number() + ToQt(WithLetter(entry_->caption(), Letter(), entry_->literal)));
        break;
      case Change::kToolTip:
        action_->setToolTip(ToToolTip(entry_->tool_tip()));
        break;
      case Change::kEnabled:
        action_->setEnabled(entry_->enabled());
        break;
      case Change::kVisible:
        action_->setVisible(entry_->visible());
        if (separator != nullptr) separator->setVisible(entry_->visible());
        break;
      case Change::kChecked:
        // Only an entry that has been checked once has room for a mark.
        if (entry_->checked()) action_->setCheckable(true);
        action_->setChecked(entry_->checked());
        break;
      default:
        break;
    }
  }

  QAction* separator = nullptr;

 private:
  // Another caption may lack the one that was found, and name one of its own.
  char Letter() const {
    const char named = entry_->literal ? '\0' : NamedLetter(entry_->caption());
    return named == 0 || HasLetter(entry_->caption(), letter_) ? letter_ : named;
  }
  // The key by which an entry of a numbered array is chosen.
  QString Number() const {
    const bool has_one = entry_->numbered && entry_->index() < 9;
    return has_one ? QStringLiteral("&%1 ").arg(entry_->index() + 1) : QString();
  }

  MenuEntry* entry_;
  char letter_;
  Gate& gate_;
  QAction* action_;
  QMenu* menu_;
};

void AddEntry(MenuEntry& entry, char letter, Gate& gate, QWidget& place);

// Of an array that is long and seldom full: an entry that is put into its menu when it is to be seen at last. It stands
// at the menu's end, and those before it have come before it.
class WaitingEntry : public AnyEntry {
 public:
  WaitingEntry(MenuEntry& entry, Gate& gate, QWidget& place)
      : AnyEntry(&place), entry_(&entry), gate_(gate), place_(place) {
    entry.view = this;
  }
  ~WaitingEntry() override { WaitingEntry::Detach(); }

  void Detach() override {
    if (entry_ != nullptr && entry_->view == this) entry_->view = nullptr;
    entry_ = nullptr;
  }
  void Show(Change change) override {
    if (entry_ == nullptr || change != Change::kVisible || !entry_->visible()) return;
    MenuEntry& entry = *entry_;
    Detach();
    AddEntry(entry, 0, gate_, place_);
    deleteLater();
  }

 private:
  MenuEntry* entry_;
  Gate& gate_;
  QWidget& place_;
};

// Places of the bar and of menus take entries alike.

void AddEntries(const std::vector<MenuEntry*>& entries, Gate& gate, QWidget& place) {
  const Letters letters = LettersOfEntries(entries);
  for (MenuEntry* entry : entries) {
    if (entry->numbered && !entry->visible()) {
      new WaitingEntry(*entry, gate, place);
      continue;
    }
    const auto letter = letters.find(entry);
    AddEntry(*entry, letter == letters.end() ? '\0' : letter->second, gate, place);
  }
}

void AddEntry(MenuEntry& entry, char letter, Gate& gate, QWidget& place) {
  QAction* separator = nullptr;
  if (entry.separator_before) {
    separator = new QAction(&place);
    separator->setSeparator(true);
    place.addAction(separator);
  }
  QMenu* menu = nullptr;
  QAction* action = nullptr;
  if (entry.entries().empty() && (entry.parent() != nullptr || entry.on_click)) {
    action = new QAction(&place);
  } else {
    menu = new QMenu(&place);
    menu->setToolTipsVisible(true);
    QObject::connect(menu, &QMenu::aboutToShow, menu, [&entry] {
      for (const MenuEntry* below : entry.entries()) below->ShownCaption();
    });
    action = menu->menuAction();
  }
  place.addAction(action);
  auto* view = new EntryView(entry, letter, gate, action, menu);
  view->separator = separator;
  view->Show(Change::kVisible);
  if (menu != nullptr) AddEntries(entry.entries(), gate, *menu);
}

// Whoever leaves the bar by the keyboard is where he was before. The toolkit's bar forgets that when a letter leads
// from it into another of its menus, and then keeps the focus itself.
class WayBack : public QObject {
 public:
  explicit WayBack(QMenuBar& bar) : QObject(&bar), bar_(bar) {
    bar.installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
      if (now == &bar_ && before != nullptr) before_ = before;
    });
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::KeyPress)
      QMetaObject::invokeMethod(
          this, [this] { GoBack(); }, Qt::QueuedConnection);
    return false;
  }

 private:
  void GoBack() {
    const bool left = bar_.hasFocus() && bar_.activeAction() == nullptr && QApplication::activePopupWidget() == nullptr;
    if (left && before_ != nullptr && before_->isVisible()) before_->setFocus(Qt::MenuBarFocusReason);
  }

  QMenuBar& bar_;
  QPointer<QWidget> before_;
};

}  // namespace

void BuildMenus(Form& form, Gate& gate, QMenuBar& bar) {
  new WayBack(bar);
  AddEntries(form.menu_bar(), gate, bar);
}

void DetachMenus(Form& form) {
  for (Control* control : form.controls()) {
    if (control->kind() == ControlKind::kMenuEntry && control->view != nullptr) {
      static_cast<AnyEntry*>(control->view)->Detach();
    }
  }
}

QAction* ActionOf(const MenuEntry& entry) {
  auto* view = dynamic_cast<EntryView*>(entry.view);
  return view == nullptr ? nullptr : view->action();
}

QMenu* MenuOf(const MenuEntry& entry) {
  auto* view = dynamic_cast<EntryView*>(entry.view);
  return view == nullptr ? nullptr : view->menu();
}

}  // namespace zentaline::ui::qt
