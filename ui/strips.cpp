#include "ui/strips.h"

#include <algorithm>
#include <vector>

namespace zentaline::ui {

namespace {

// The controls of a part of a layout, as they are declared.
void Collect(const Layout& layout, std::vector<Control*>& controls) {
  if (layout.kind == Layout::Kind::kControl && layout.control != nullptr) controls.push_back(layout.control);
  for (const Layout& child : layout.children) Collect(child, controls);
}

// The row of frames one of which holds the control; null when there is none.
const Layout* RowOfStrips(const Layout& layout, const Control& control) {
  for (const Layout& child : layout.children) {
    if (const Layout* found = RowOfStrips(child, control)) return found;
  }
  const bool row = layout.kind == Layout::Kind::kRow && layout.children.size() > 1 &&
                   std::all_of(layout.children.begin(), layout.children.end(),
                               [](const Layout& child) { return child.kind == Layout::Kind::kFrame; });
  if (!row) return nullptr;
  std::vector<Control*> inside;
  Collect(layout, inside);
  return std::find(inside.begin(), inside.end(), &control) == inside.end() ? nullptr : &layout;
}

}  // namespace

Control* InStripBeside(const Control& control, int way) {
  const Layout* row = RowOfStrips(control.form().layout, control);
  if (row == nullptr) return nullptr;
  const int strips = static_cast<int>(row->children.size());
  for (int strip = 0; strip < strips; ++strip) {
    std::vector<Control*> inside;
    Collect(row->children[static_cast<std::size_t>(strip)], inside);
    const auto place = std::find(inside.begin(), inside.end(), &control);
    if (place == inside.end()) continue;
    if (strip + way < 0 || strip + way >= strips) return nullptr;
    std::vector<Control*> beside;
    Collect(row->children[static_cast<std::size_t>(strip + way)], beside);
    const auto index = static_cast<std::size_t>(place - inside.begin());
    return index < beside.size() && beside[index]->Usable() ? beside[index] : nullptr;
  }
  return nullptr;
}

bool TurnPage(Form& form, int way) {
  for (Control* control : form.controls()) {
    if (control->kind() != ControlKind::kTabs) continue;
    auto& tabs = static_cast<Tabs&>(*control);
    const int pages = static_cast<int>(tabs.captions.size());
    return pages > 0 && tabs.UserSet((tabs.page() + way + pages) % pages);
  }
  return false;
}

}  // namespace zentaline::ui
