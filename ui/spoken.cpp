#include "ui/spoken.h"

#include <set>
#include <utility>
#include <vector>

#include "ui/controls.h"

namespace zentaline::ui {

namespace {

// Without the signs of its mnemonic, and without a colon that leads to what stands beside it.
std::string Plain(const std::string& caption, bool literal = false) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && !literal && ++i == caption.size()) break;
    plain += caption[i];
  }
  while (!plain.empty() && (plain.back() == ':' || plain.back() == ' ')) plain.pop_back();
  return plain;
}

// A caption of one or two signs, as "+" or "M", says what it does only to who sees what it stands beside.
bool IsMark(const std::string& caption) {
  return caption.size() <= 2;
}

// A control with what it stands in and what stands before it.
struct Spot {
  Control* control;
  std::string around;  // captions of frames and pages, the innermost last
  std::string label;
};

class Walker {
 public:
  std::vector<Spot> spots;

  void Walk(const Layout& layout, const std::string& around) {
    if (layout.kind == Layout::Kind::kPages) {
      WalkPages(layout, around);
      return;
    }
    std::string inside = around;
    if (layout.control != nullptr) {
      if (layout.kind == Layout::Kind::kFrame) {
        if (layout.control->kind() == ControlKind::kFrame) {
          if (std::string own = Plain(static_cast<Frame*>(layout.control)->caption()); !own.empty()) inside = own;
        }
      } else {
        Meet(*layout.control, around);
      }
    }
    for (const Layout& child : layout.children) Walk(child, inside);
  }

 private:
  void WalkPages(const Layout& layout, const std::string& around) {
    auto& tabs = static_cast<Tabs&>(*layout.control);
    spots.push_back({&tabs, around, {}});
    for (std::size_t page = 0; page < layout.children.size(); ++page) {
      Walk(layout.children[page], page < tabs.captions.size() ? Plain(tabs.captions[page]) : around);
    }
  }

  void Meet(Control& control, const std::string& around) {
    if (control.kind() == ControlKind::kLabel) {
      const auto& label = static_cast<Label&>(control);
      if (!label.sunken && !label.caption().empty()) label_ = Plain(label.caption(), label.literal);
      return;
    }
    spots.push_back({&control, around, label_});
  }

  std::string label_;
};

std::string OwnCaption(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kButton:
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton: {
      const auto& captioned = static_cast<const Captioned&>(control);
      return Plain(captioned.caption(), captioned.literal);
    }
    default:
      return {};
  }
}

std::string NameOf(const Spot& spot) {
  if (!spot.control->said().empty()) return spot.control->said();
  if (const std::string own = OwnCaption(*spot.control); !own.empty()) {
    return IsMark(own) && !spot.label.empty() ? own + ", " + spot.label : own;
  }
  for (const std::string& other : {spot.label, spot.around, Plain(spot.control->form().caption(), true)}) {
    if (!other.empty()) return other;
  }
  return spot.control->FullName();
}

}  // namespace

SpokenNames SpokenNamesOf(const Form& form) {
  Walker walker;
  walker.Walk(form.layout, {});
  walker.Walk(form.free_area, {});
  if (walker.spots.empty()) {
    for (Control* control : form.controls()) walker.Walk(Item(*control), {});
  }
  std::vector<std::string> own_names;
  std::map<std::string, int> counts;
  for (const Spot& spot : walker.spots) ++counts[own_names.emplace_back(NameOf(spot))];

  SpokenNames names;
  std::set<std::string> taken;
  for (std::size_t i = 0; i < walker.spots.size(); ++i) {
    const Spot& spot = walker.spots[i];
    std::string name = own_names[i];
    if (counts[name] > 1 && !spot.around.empty() && spot.around != name) name += ", " + spot.around;
    const std::string first = name;
    for (int again = 2; !taken.insert(name).second; ++again) name = first + " " + std::to_string(again);
    names.emplace(spot.control, std::move(name));
  }
  return names;
}

}  // namespace zentaline::ui
