#include "ui/qt/convert.h"
#include "ui/qt/rows_view.h"
#include "ui/qt/text_views.h"

namespace zentaline::ui::qt {

namespace {

class ListView : public View {
 public:
  ListView(ListBox& box, Gate& gate, QWidget* parent)
      : View(box, gate, new RowsView(box, parent)), box_(box), widget_(static_cast<RowsView*>(View::widget())) {
    ShowFont();
    Watch(widget_->viewport());
    widget_->on_select = [this](const std::vector<int>& rows) { User([this, rows] { box_.UserSelect(rows); }); };
    widget_->on_double_click = [this](int) {
      User([this] {
        if (!box_.Usable()) return;
        const UserEvent event(box_.form());
        if (box_.on_double_click) box_.on_double_click();
      });
    };
  }

  // A menu acts on the row under the pointer.
  void ContextAsked(const QWidget& part, const QPoint& place) override {
    if (&part != widget_->viewport()) return;
    const int row = widget_->RowAt(place);
    if (row >= 0 && !box_.Selected(row)) User([this, row] { box_.UserSelect({row}); });
  }
  QPoint PlaceOfPopup() const override { return widget_->PlaceOfPopup(); }

  void Detach() override {
    widget_->Forget();
    View::Detach();
  }

 protected:
  void Refresh(Change change) override {
    if (change == Change::kRows) widget_->ShowRows();
    if (change == Change::kRow) widget_->ShowSelection();
    if (change == Change::kFont) ShowFont();
  }
  bool KeyDoes(const Key& key, const QKeyEvent& event) override {
    if (key.name == Key::kEnter) return event.isAutoRepeat() || box_.UserEnter();
    const bool types = key.name == Key::kCharacter || key.name == Key::kSpace;
    if (!types) return widget_->Key(event);
    box_.DefaultKey(key);
    return true;
  }

 private:
  // Rows are tables: their columns stand one below the other.
  void ShowFont() {
    Font fixed = box_.font();
    fixed.fixed_pitch = true;
    widget_->setFont(ToQt(fixed));
  }

  ListBox& box_;
  RowsView* widget_;
};

}  // namespace

View* MakeListBox(ListBox& box, Gate& gate, QWidget* parent) {
  return new ListView(box, gate, parent);
}

}  // namespace zentaline::ui::qt
