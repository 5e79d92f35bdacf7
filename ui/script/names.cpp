#include "ui/script/names.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace zentaline::ui {

namespace {

// The parts between the dots that stand outside brackets.
std::vector<std::string_view> Parts(std::string_view name) {
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  bool in_brackets = false;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (name[at] == '(') in_brackets = true;
    if (name[at] == ')') in_brackets = false;
    if (name[at] != '.' || in_brackets) continue;
    parts.push_back(name.substr(start, at - start));
    start = at + 1;
  }
  parts.push_back(name.substr(start));
  return parts;
}

struct IndexedName {
  std::string name;
  int index = -1;
  bool good = true;
};

// Label1(2); an index is written without leading zeros or signs.
IndexedName Indexed(std::string_view part) {
  const std::size_t open = part.find('(');
  if (open == std::string_view::npos) return {std::string(part), -1, !part.empty()};
  const std::string_view digits = part.substr(open + 1, part.size() - open - 2);
  IndexedName indexed{std::string(part.substr(0, open)), -1, false};
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), indexed.index);
  indexed.good = part.back() == ')' && error == std::errc() && end == digits.data() + digits.size() &&
                 indexed.index >= 0 && std::to_string(indexed.index) == digits;
  return indexed;
}

MenuEntry* FindMenuEntry(const Toolkit& toolkit, const IndexedName& wanted) {
  std::vector<Form*> forms = toolkit.forms();
  std::stable_partition(forms.begin(), forms.end(), [](const Form* form) { return form->kind() == FormKind::kMain; });
  for (const Form* form : forms) {
    Control* control = form->Find(wanted.name, wanted.index);
    if (control != nullptr && control->kind() == ControlKind::kMenuEntry) return static_cast<MenuEntry*>(control);
  }
  return nullptr;
}

ScriptTarget Nothing(std::string_view what, std::string_view name) {
  ScriptTarget target;
  target.error = std::string(what) + ' ' + std::string(name);
  return target;
}

}  // namespace

ScriptTarget FindScriptTarget(const Toolkit& toolkit, std::string_view name, bool takes_property) {
  const std::vector<std::string_view> parts = Parts(name);
  ScriptTarget target;
  std::size_t used = 1;
  target.form = toolkit.FindForm(std::string(parts[0]));
  if (target.form == nullptr) {
    const IndexedName entry = Indexed(parts[0]);
    if (entry.good) target.control = FindMenuEntry(toolkit, entry);
    if (target.control == nullptr) return Nothing("no window or menu entry is called", parts[0]);
    target.form = &target.control->form();
  } else if (parts.size() > 1) {
    const IndexedName wanted = Indexed(parts[1]);
    if (wanted.good) target.control = target.form->Find(wanted.name, wanted.index);
    if (target.control != nullptr) {
      used = 2;
    } else if (!takes_property || parts.size() > 2) {
      return Nothing("there is no control", name);
    }
  }
  if (parts.size() > used + (takes_property ? 1U : 0U)) return Nothing("there is no control", name);
  if (parts.size() > used) {
    target.property = parts[used];
    if (target.property.empty()) return Nothing("there is no property", name);
  }
  return target;
}

std::string ScriptName(const Control& control) {
  if (control.kind() == ControlKind::kMenuEntry) return control.FullName();
  return control.form().FullName() + '.' + control.FullName();
}

}  // namespace zentaline::ui
