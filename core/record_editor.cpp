#include "core/record_editor.h"

#include <algorithm>
#include <utility>

#include "record/field_text.h"

namespace zentaline {

namespace {

constexpr int kNothingByte = 255;

}  // namespace

std::optional<int> ShownIn(const EditorRow& row, int raw) {
  const Field& field = *row.field;
  if (row.Has(kReadsFirstRow)) return field.range.low;
  if (row.Has(kReadsTwoBits)) return raw >> field.place.shift & 3;
  if (row.Has(kReadsUncoded)) {
    return raw == kNothingByte ? field.range.low : std::clamp(raw, field.range.low, field.range.high);
  }
  if (row.Has(kReadsAllAbove)) {
    const int value = raw >> field.place.shift;
    return value <= field.range.high ? std::optional<int>(value) : std::nullopt;
  }
  return ShownOf(field, raw);
}

int RawAfter(const EditorRow& row, int raw, int shown) {
  if (row.Has(kNotStored)) return raw;
  if (row.Has(kReplacesByte)) return CodedValue(*row.field, shown) & 0xFF;
  return RawAfterCoded(*row.field, raw, row.Has(kStoresRow) ? shown : CodedValue(*row.field, shown));
}

int SentValue(const EditorRow& row, int shown) {
  return row.Has(kSendsShown) || row.Has(kStoresRow) ? shown : CodedValue(*row.field, shown);
}

EditorControl& RecordEditor::Bind(EditorControl bound, bool named) {
  EditorControl& kept = controls_.emplace_back(bound);
  const bool names_itself = kept.control->kind() == ui::ControlKind::kCheckBox;
  if (named && !names_itself && kept.name == nullptr) {
    names_.push_back(std::make_unique<ui::Label>(form_, "LabelName", static_cast<int>(names_.size())));
    kept.name = names_.back().get();
  }
  if (kept.name != nullptr) kept.name->SetCaption(std::string(kept.field().name));
  SetUp(kept);
  return kept;
}

void RecordEditor::SetUp(EditorControl& bound) {
  const Field& field = bound.field();
  const auto edit = [this, &bound] { host_.edit(bound); };
  switch (bound.control->kind()) {
    case ui::ControlKind::kScrollBar: {
      auto& bar = static_cast<ui::ScrollBar&>(*bound.control);
      const EditLook& look = bound.row->look;
      bar.vertical = look.upright;
      bar.SetRange(look.upright ? field.range.high : field.range.low, look.upright ? field.range.low : field.range.high,
                   1, look.page);
      bar.on_change = edit;
      bar.shown = [this, &bound](int value) { return TextFor(bound, value); };
      bar.value_label = bound.value;
      break;
    }
    case ui::ControlKind::kCheckBox: {
      auto& box = static_cast<ui::CheckBox&>(*bound.control);
      box.SetCaption(std::string(field.name));
      box.on_click = edit;
      break;
    }
    default: {
      auto& list = static_cast<ui::ComboBox&>(*bound.control);
      list.SetRows({field.list.begin(), field.list.end()});
      list.on_click = edit;
    }
  }
}

void RecordEditor::Rebind(EditorControl& bound, const EditorRow& row, bool visible) {
  bound.row = &row;
  const Field& field = *row.field;
  if (bound.control->kind() == ui::ControlKind::kScrollBar) {
    auto& bar = static_cast<ui::ScrollBar&>(*bound.control);
    bar.ShowRange(bar.vertical ? field.range.high : field.range.low, bar.vertical ? field.range.low : field.range.high);
  } else if (bound.control->kind() == ui::ControlKind::kComboBox) {
    static_cast<ui::ComboBox&>(*bound.control).SetRows({field.list.begin(), field.list.end()});
  }
  if (bound.name != nullptr) bound.name->SetCaption(std::string(field.name));
  bound.control->SetVisible(visible);
  for (ui::Label* label : {bound.name, bound.value}) {
    if (label != nullptr) label->SetVisible(visible);
  }
  Show(bound);
}

std::optional<int> RecordEditor::InRecord(const EditorControl& bound) const {
  return ShownIn(*bound.row, RawAt(bound.field(), host_.record(), bound.start));
}

void RecordEditor::Show(const Which& which) {
  for (EditorControl& bound : controls_) {
    if (!which || which(*bound.row)) Show(bound);
  }
}

void RecordEditor::Fill(const Which& which) {
  for (EditorControl& bound : controls_) {
    if (which(*bound.row)) Fill(bound);
  }
}

void RecordEditor::Show(EditorControl& bound) {
  const std::optional<int> shown = InRecord(bound);
  if (!shown) return;
  switch (bound.control->kind()) {
    case ui::ControlKind::kScrollBar:
      static_cast<ui::ScrollBar&>(*bound.control).ShowValue(*shown);
      break;
    case ui::ControlKind::kCheckBox:
      static_cast<ui::CheckBox&>(*bound.control).ShowValue(*shown != 0);
      break;
    default:
      static_cast<ui::ComboBox&>(*bound.control).ShowRow(*shown);
  }
  ShowLabel(bound);
}

void RecordEditor::Fill(EditorControl& bound) {
  const std::optional<int> shown = InRecord(bound);
  if (!shown) return;
  switch (bound.control->kind()) {
    case ui::ControlKind::kScrollBar:
      static_cast<ui::ScrollBar&>(*bound.control).SetValue(*shown);
      break;
    case ui::ControlKind::kCheckBox:
      static_cast<ui::CheckBox&>(*bound.control).SetValue(*shown != 0);
      break;
    default:
      static_cast<ui::ComboBox&>(*bound.control).SetRow(*shown);
  }
  ShowLabel(bound);
}

std::string RecordEditor::TextFor(const EditorControl& bound, int shown) const {
  return host_.text ? host_.text(bound, shown) : FieldText(bound.field(), shown);
}

void RecordEditor::ShowLabel(const EditorControl& bound) const {
  if (bound.value == nullptr) return;
  const int shown = Shown(bound);
  bound.value->SetCaption(TextFor(bound, shown));
}

int RecordEditor::Shown(const EditorControl& bound) {
  switch (bound.control->kind()) {
    case ui::ControlKind::kScrollBar:
      return static_cast<ui::ScrollBar&>(*bound.control).value();
    case ui::ControlKind::kCheckBox:
      return static_cast<ui::CheckBox&>(*bound.control).value() ? 1 : 0;
    default:
      return static_cast<ui::ComboBox&>(*bound.control).row();
  }
}

void RecordEditor::Store(const EditorControl& bound, int shown) {
  const int raw = RawAt(bound.field(), host_.record(), bound.start);
  host_.put(bound, RawBytes(bound.field(), RawAfter(*bound.row, raw, shown)));
}

EditorControl* RecordEditor::Of(const ui::Control& control) {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&control](const EditorControl& each) { return each.control == &control; });
  return found == controls_.end() ? nullptr : &*found;
}

}  // namespace zentaline
