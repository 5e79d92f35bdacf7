#include "ui/qt/builder.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <QTabWidget>
#include <algorithm>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "ui/layout.h"
#include "ui/letters.h"
#include "ui/qt/convert.h"
#include "ui/qt/picture_view.h"
#include "ui/qt/places.h"
#include "ui/qt/simple_views.h"
#include "ui/qt/text_views.h"
#include "ui/spoken.h"
#include "ui/toolkit.h"

namespace zentaline::ui::qt {

namespace {

using Kind = Layout::Kind;

constexpr int kTightMargin = 4;  // pixels, inside a frame that is to be narrow

bool Grows(const Layout& layout);

// A list, a text of many lines, or pages: they use more room than they need.
bool GrowsByNature(const Layout& layout) {
  if (layout.kind == Kind::kPages) return true;
  if (layout.control != nullptr && layout.kind == Kind::kControl) {
    return layout.control->kind() == ControlKind::kListBox ||
           (layout.control->kind() == ControlKind::kTextBox && static_cast<TextBox*>(layout.control)->multi_line);
  }
  return std::any_of(layout.children.begin(), layout.children.end(),
                     [](const Layout& child) { return child.kind != Kind::kSpace && Grows(child); });
}

bool Grows(const Layout& layout) {
  return layout.stretch > 0 || layout.scrolls || GrowsByNature(layout);
}

// Takes the room that its content needs, where there is so much.
class Scroller : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;
  QSize sizeHint() const override { return widget() == nullptr ? QScrollArea::sizeHint() : widget()->sizeHint(); }
};

class Builder {
 public:
  Builder(Form& form, Gate& gate) : form_(form), gate_(gate) {}

  Built Build(QWidget* parent) {
    return form_.layout.kind == Kind::kNothing ? Build(parent, ColumnOfAll()) : Build(parent, form_.layout);
  }
  Built Build(QWidget* parent, const Layout& whole) {
    built_.body = new QWidget(parent);
    auto* box = new QVBoxLayout(built_.body);
    if (form_.kind() == FormKind::kMain) box->setContentsMargins(2, 2, 2, 2);
    if (whole.tight) box->setContentsMargins(0, 0, 0, 0);
    parent_ = built_.body;
    // The main window may be smaller than a window that fills it.
    const bool scrolls = whole.scrolls || (form_.kind() == FormKind::kChild && !whole.tight);
    scrolls ? AddScrolled(*box, whole, 1, true) : AddInPlace(*box, whole, 1);
    GiveLetters();
    for (View* view : built_.views) view->ShowAll();
    GiveNames();
    // Asked for their size only now that they show all they have.
    for (const auto& [area, content] : scrolled_) {
      area->setWidget(content);
      // The ground is that of the page or window around it.
      area->viewport()->setAutoFillBackground(false);
      content->setAutoFillBackground(false);
    }
    return std::move(built_);
  }

 private:
  // Those of the menu bar reach its menus from every window but a modal one.
  void GiveLetters() {
    std::set<char> taken;
    for (const Form* form : form_.toolkit().forms()) {
      if (form->kind() == FormKind::kMain && form_.kind() != FormKind::kModal) taken = LettersOfBar(*form);
    }
    const Letters letters = LettersOfControls(form_, taken);
    for (View* view : built_.views) {
      const auto found = letters.find(view->control());
      if (found != letters.end()) view->SetLetter(found->second);
    }
  }

  // What bears its own name as its caption goes by that, also when it changes.
  void GiveNames() {
    const SpokenNames names = SpokenNamesOf(form_);
    for (View* view : built_.views) {
      const auto found = names.find(view->control());
      if (found == names.end()) continue;
      const auto* button = qobject_cast<const QAbstractButton*>(view->widget());
      const bool is_caption = button != nullptr && FromQt(button->text().remove(u'&')) == found->second;
      if (!is_caption) view->SetSpoken(found->second);
    }
  }

  Layout ColumnOfAll() const {
    std::vector<Layout> all;
    for (Control* control : form_.controls()) {
      if (control->kind() != ControlKind::kTimer && control->kind() != ControlKind::kMenuEntry) {
        all.push_back(Item(*control));
      }
    }
    return Column(std::move(all));
  }

  View* MakeView(Control& control) {
    switch (control.kind()) {
      case ControlKind::kButton:
        return MakeButton(static_cast<Button&>(control), gate_, parent_);
      case ControlKind::kLabel:
        return MakeLabel(static_cast<Label&>(control), gate_, parent_);
      case ControlKind::kTextBox:
        return MakeTextBox(static_cast<TextBox&>(control), gate_, parent_);
      case ControlKind::kListBox:
        return MakeListBox(static_cast<ListBox&>(control), gate_, parent_);
      case ControlKind::kComboBox:
        return MakeComboBox(static_cast<ComboBox&>(control), gate_, parent_);
      case ControlKind::kScrollBar:
        return MakeScrollBar(static_cast<ScrollBar&>(control), gate_, parent_);
      case ControlKind::kCheckBox:
        return MakeCheckBox(static_cast<CheckBox&>(control), gate_, parent_);
      case ControlKind::kOptionButton:
        return MakeOptionButton(static_cast<OptionButton&>(control), gate_, parent_);
      case ControlKind::kFrame:
        return MakeFrame(static_cast<Frame&>(control), gate_, parent_);
      case ControlKind::kTabs:
        return MakeTabs(static_cast<Tabs&>(control), gate_, parent_);
      case ControlKind::kPictureBox:
        return MakePictureBox(static_cast<PictureBox&>(control), gate_, parent_);
      case ControlKind::kPicture:
        return MakePicture(static_cast<Picture&>(control), gate_, parent_);
      case ControlKind::kTimer:
      case ControlKind::kMenuEntry:
        break;
    }
    return nullptr;
  }

  QWidget* MakeWidget(Control& control) {
    View* view = control.view == nullptr ? MakeView(control) : nullptr;
    if (view == nullptr) return nullptr;
    built_.views.push_back(view);
    QWidget* widget = view->widget();
    if (waiting_label_ != nullptr && widget->focusPolicy() != Qt::NoFocus) {
      waiting_label_->setBuddy(widget);
      waiting_label_ = nullptr;
    }
    if (control.kind() == ControlKind::kLabel && !static_cast<Label&>(control).sunken) {
      auto* label = static_cast<QLabel*>(widget);
      const QString text = ToQt(static_cast<Label&>(control).caption());
      if (text != WithoutMnemonic(static_cast<Label&>(control).caption())) waiting_label_ = label;
    }
    return widget;
  }

  // Children of a container are the children of its widget.
  void Fill(QWidget& container, std::span<const Layout> children, int margin) {
    QWidget* outer = parent_;
    parent_ = &container;
    auto* box = new QVBoxLayout(&container);
    if (margin >= 0) box->setContentsMargins(margin, margin, margin, margin);
    for (const Layout& child : children) Add(*box, child, Grows(child) ? 1 : 0);
    if (std::none_of(children.begin(), children.end(), Grows)) box->addStretch(1);
    parent_ = outer;
  }

  QWidget* MakeContainer(const Layout& layout) {
    QWidget* widget = layout.control == nullptr ? nullptr : MakeWidget(*layout.control);
    if (widget == nullptr) return nullptr;
    if (layout.kind == Kind::kFrame) {
      const bool plain = layout.control->kind() == ControlKind::kPictureBox;
      Fill(*widget, layout.children, plain ? 0 : layout.tight ? kTightMargin : -1);
      return widget;
    }
    auto* tabs = static_cast<QTabWidget*>(widget);
    const Gate::Showing showing(gate_);
    for (const Layout& child : layout.children) {
      auto* page = new QWidget(tabs);
      const auto number = static_cast<std::size_t>(tabs->count());
      const auto& captions = static_cast<Tabs*>(layout.control)->captions;
      tabs->addTab(page, number < captions.size() ? ToQt(captions[number]) : QString());
      Fill(*page, {&child, 1}, -1);
    }
    return widget;
  }

  void Add(QBoxLayout& box, const Layout& layout, int stretch) {
    if (layout.scrolls) {
      AddScrolled(box, layout, stretch, layout.stretch > 0 || GrowsByNature(layout));
    } else {
      AddInPlace(box, layout, stretch);
    }
  }

  void AddInPlace(QBoxLayout& box, const Layout& layout, int stretch) {
    switch (layout.kind) {
      case Kind::kNothing:
        break;
      case Kind::kSpace:
        box.addStretch(std::max(layout.stretch, 1));
        break;
      case Kind::kControl:
        if (QWidget* widget = MakeItem(layout, stretch)) box.addWidget(widget, stretch);
        break;
      case Kind::kFrame:
      case Kind::kPages:
        if (QWidget* widget = MakeContainer(layout)) box.addWidget(widget, stretch);
        break;
      case Kind::kRow:
        AddLine(box, *new QHBoxLayout, layout, stretch);
        break;
      case Kind::kColumn:
        AddLine(box, *new QVBoxLayout, layout, stretch);
        break;
      case Kind::kGrid:
        AddGrid(box, layout, stretch);
        break;
      case Kind::kPlaces:
        AddPlaces(box, layout, stretch);
        break;
    }
  }

  QWidget* MakeItem(const Layout& layout, int stretch) {
    QWidget* widget = layout.control == nullptr ? nullptr : MakeWidget(*layout.control);
    if (widget == nullptr) return nullptr;
    // A field that shares the room left over is as wide as its share, whatever it holds.
    const bool is_field = layout.control->kind() == ControlKind::kLabel && static_cast<Label*>(layout.control)->sunken;
    if (is_field && stretch > 0) widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return widget;
  }

  void AddPlaces(QBoxLayout& box, const Layout& layout, int stretch) {
    auto* whole = new PlacesWidget(layout.place, layout.least, parent_, built_.body);
    QWidget* outer = std::exchange(parent_, whole);
    for (const Layout& child : layout.children) {
      if (child.control == nullptr) continue;
      if (QWidget* widget = MakeWidget(*child.control)) whole->Put(widget, child.place);
    }
    parent_ = outer;
    box.addWidget(whole, stretch);
  }

  void AddScrolled(QBoxLayout& box, const Layout& layout, int stretch, bool grows) {
    auto* area = new Scroller(parent_);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    auto* content = new QWidget(area);
    QWidget* outer = std::exchange(parent_, content);
    auto* inside = new QVBoxLayout(content);
    inside->setContentsMargins(0, 0, 0, 0);
    AddInPlace(*inside, layout, grows ? 1 : 0);
    if (!grows) inside->addStretch(1);
    parent_ = outer;
    scrolled_.emplace_back(area, content);
    area->setFocusPolicy(Qt::NoFocus);
    box.addWidget(area, std::max(stretch, 1));
  }

  // Who has a stretch takes the room left over; where nobody has one it is whoever grows by nature, and where there is
  // none of these either the room stays empty at the end.
  void AddLine(QBoxLayout& outer, QBoxLayout& line, const Layout& layout, int stretch) {
    outer.addLayout(&line, stretch);
    // A line inside another one would take its room from it.
    const bool across = line.direction() == QBoxLayout::LeftToRight || line.direction() == QBoxLayout::RightToLeft;
    if (layout.tight) {
      line.setSpacing(0);
    } else if (outer.spacing() == 0) {
      line.setSpacing(parent_->style()->pixelMetric(across ? QStyle::PM_LayoutHorizontalSpacing
                                                           : QStyle::PM_LayoutVerticalSpacing));
    }
    const bool told = std::any_of(layout.children.begin(), layout.children.end(),
                                  [](const Layout& child) { return child.stretch > 0; });
    bool grows = told;
    for (const Layout& child : layout.children) {
      const bool by_nature = !told && Grows(child);
      grows = grows || by_nature;
      Add(line, child, by_nature ? 1 : child.stretch);
    }
    if (!grows) line.addStretch(1);
  }

  void AddGrid(QBoxLayout& outer, const Layout& layout, int stretch) {
    auto* grid = new QGridLayout;
    outer.addLayout(grid, stretch);
    const int columns = std::max(layout.columns, 1);
    bool wide = false;
    bool high = false;
    int place = 0;
    for (const Layout& child : layout.children) {
      const int row = place / columns;
      const int column = place % columns;
      ++place;
      if (child.kind == Kind::kNothing) continue;
      if (child.kind == Kind::kControl && !child.scrolls) {
        if (QWidget* widget = MakeItem(child, Grows(child) ? 1 : 0)) grid->addWidget(widget, row, column);
      } else {
        auto* cell = new QVBoxLayout;
        grid->addLayout(cell, row, column);
        Add(*cell, child, Grows(child) ? 1 : 0);
      }
      grid->setColumnStretch(column, std::max(grid->columnStretch(column), child.stretch));
      wide = wide || child.stretch > 0;
      if (!Grows(child) || child.kind == Kind::kSpace || IsFlat(child)) continue;
      grid->setRowStretch(row, 1);
      high = true;
    }
    if (!wide) grid->setColumnStretch(columns, 1);
    if (!high) grid->setRowStretch((place + columns - 1) / columns, 1);
  }

  // A stretch in a grid is across; only these take height as well.
  static bool IsFlat(const Layout& child) { return !child.scrolls && !GrowsByNature(child); }

  Form& form_;
  Gate& gate_;
  Built built_;
  QWidget* parent_ = nullptr;
  QLabel* waiting_label_ = nullptr;
  std::vector<std::pair<QScrollArea*, QWidget*>> scrolled_;
};

}  // namespace

Built BuildBody(Form& form, Gate& gate, QWidget* parent) {
  return Builder(form, gate).Build(parent);
}

Built BuildFreeArea(Form& form, Gate& gate, QWidget* parent) {
  return Builder(form, gate).Build(parent, form.free_area);
}

}  // namespace zentaline::ui::qt
