#include "ui/script/properties.h"

#include <charconv>
#include <string>

#include "ui/picture.h"
#include "ui/toolkit.h"

namespace zentaline::ui {

namespace {

using Value = std::optional<ScriptValue>;

constexpr Colour kTextColour = 0;

template <class T>
const T& As(const Control& control) {
  return static_cast<const T&>(control);
}

Value Number(std::int64_t number) {
  return ScriptValue(number);
}

Value Text(std::string text) {
  return ScriptValue(std::move(text));
}

Value Caption(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kButton:
    case ControlKind::kLabel:
    case ControlKind::kFrame:
    case ControlKind::kPictureBox:
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton:
      return Text(As<Captioned>(control).caption());
    case ControlKind::kMenuEntry:
      return Text(As<MenuEntry>(control).ShownCaption());
    default:
      return std::nullopt;
  }
}

// What the control shows, or the value it stands at.
Value ShownText(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kTextBox:
      return Text(As<TextBox>(control).text());
    case ControlKind::kComboBox:
      return Text(As<ComboBox>(control).text());
    case ControlKind::kListBox:
      return Text(As<ListBox>(control).RowText(As<ListBox>(control).Row()));
    case ControlKind::kScrollBar:
      return Number(As<ScrollBar>(control).value());
    case ControlKind::kCheckBox:
      return Number(As<CheckBox>(control).value());
    case ControlKind::kOptionButton:
      return Number(As<OptionButton>(control).value());
    case ControlKind::kTabs: {
      const Tabs& tabs = As<Tabs>(control);
      const auto page = static_cast<std::size_t>(tabs.page());
      return Text(page < tabs.captions.size() ? tabs.captions[page] : std::string());
    }
    case ControlKind::kPicture:
      return Text(As<Picture>(control).HandlePlaces());
    default:
      return Caption(control);
  }
}

Value Checked(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kCheckBox:
      return Number(As<CheckBox>(control).value());
    case ControlKind::kOptionButton:
      return Number(As<OptionButton>(control).value());
    case ControlKind::kMenuEntry:
      return Number(As<MenuEntry>(control).checked());
    default:
      return std::nullopt;
  }
}

// A timer is enabled while it runs.
bool IsEnabled(const Control& control) {
  return control.kind() == ControlKind::kTimer ? As<Timer>(control).running() : control.enabled();
}

Value Default(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kListBox:
      return Number(As<ListBox>(control).Row());
    case ControlKind::kTabs:
      return Number(As<Tabs>(control).page());
    case ControlKind::kTimer:
      return Number(As<Timer>(control).interval());
    case ControlKind::kMenuEntry:
      return Checked(control);
    default:
      return ShownText(control);
  }
}

Value Rows(const Control& control) {
  if (control.kind() == ControlKind::kListBox) return Number(As<ListBox>(control).rows());
  if (control.kind() == ControlKind::kComboBox) return Number(As<ComboBox>(control).rows());
  return std::nullopt;
}

Value SelectedRow(const Control& control) {
  if (control.kind() == ControlKind::kListBox) return Number(As<ListBox>(control).Row());
  if (control.kind() == ControlKind::kComboBox) return Number(As<ComboBox>(control).row());
  return std::nullopt;
}

// The N of a property like row(N), which begins with `start`; -1 when it is no number.
int NumberIn(std::string_view property, std::string_view start) {
  const std::string_view digits = property.substr(start.size(), property.size() - start.size() - 1);
  int number = -1;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size() ? number : -1;
}

// `property` is row(N).
Value TextOfRow(const Control& control, std::string_view property) {
  const int row = NumberIn(property, "row(");
  const Value rows = Rows(control);
  if (!rows || row < 0 || row >= std::get<std::int64_t>(*rows)) return std::nullopt;
  return Text(control.kind() == ControlKind::kListBox ? As<ListBox>(control).RowText(row)
                                                      : As<ComboBox>(control).RowText(row));
}

// `property` is handle(N).
Value PlaceOfHandle(const Control& control, std::string_view property) {
  if (control.kind() != ControlKind::kPicture) return std::nullopt;
  const std::string place = As<Picture>(control).HandlePlace(NumberIn(property, "handle("));
  return place.empty() ? std::nullopt : Text(place);
}

Value SelectedRows(const Control& control) {
  if (control.kind() != ControlKind::kListBox) return std::nullopt;
  std::string rows;
  for (const int row : As<ListBox>(control).SelectedRows()) {
    if (!rows.empty()) rows += ' ';
    rows += std::to_string(row);
  }
  return Text(rows);
}

}  // namespace

Value ReadProperty(const Control& control, std::string_view property) {
  if (property.empty()) return Default(control);
  if (property == "text") return ShownText(control);
  if (property == "caption") return Caption(control);
  if (property == "enabled") return Number(IsEnabled(control));
  if (property == "visible") return Number(control.visible());
  if (property == "checked") return Checked(control);
  if (property == "rows") return Rows(control);
  if (property == "row") return SelectedRow(control);
  if (property.starts_with("row(") && property.ends_with(')')) return TextOfRow(control, property);
  if (property.starts_with("handle(") && property.ends_with(')')) return PlaceOfHandle(control, property);
  if (property == "selected") return SelectedRows(control);
  if (property == "color") return Number(control.back_colour().value_or(kWindowColour));
  if (property == "forecolor") return Number(control.fore_colour().value_or(kTextColour));
  if (property == "focus") return Number(control.HasFocus());
  if (control.kind() == ControlKind::kScrollBar) {
    if (property == "min") return Number(As<ScrollBar>(control).min());
    if (property == "max") return Number(As<ScrollBar>(control).max());
  }
  if (control.kind() == ControlKind::kPicture && property == "handles") return ShownText(control);
  if (control.kind() == ControlKind::kTextBox && property == "line") return Number(As<TextBox>(control).top_line());
  if (control.kind() == ControlKind::kTimer && property == "interval") return Number(As<Timer>(control).interval());
  return std::nullopt;
}

Value ReadProperty(const Form& form, std::string_view property) {
  const Placement& place = form.placement();
  if (property.empty() || property == "caption") return Text(form.caption());
  if (property == "left") return Number(place.left);
  if (property == "top") return Number(place.top);
  if (property == "width") return Number(place.width);
  if (property == "height") return Number(place.height);
  if (property == "state") return Number(static_cast<int>(place.state));
  if (property == "focus") {
    const Toolkit& toolkit = form.toolkit();
    if (toolkit.modal() != nullptr) return Number(toolkit.modal() == &form);
    const Form* front = toolkit.active_child();
    return Number(front != nullptr ? front == &form : form.kind() == FormKind::kMain);
  }
  return std::nullopt;
}

}  // namespace zentaline::ui
