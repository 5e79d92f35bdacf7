#include "core/record_editor.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/undo.h"
#include "record/field_text.h"

namespace zentaline {

namespace {

constexpr int kNothingByte = 255;

}  // namespace

int ShownIn(const EditorRow& row, int raw) {
  const Field& field = *row.field;
  if ((row.traits & kReadsOtherwise) == 0) return ShownOrNot(field, raw);
  if (row.Has(kReadsFirstRow)) return field.range.low;
  if (row.Has(kReadsTwoBits)) return raw >> field.place.shift & 3;
  if (row.Has(kReadsUncoded)) {
    return raw == kNothingByte ? field.range.low : std::clamp(raw, field.range.low, field.range.high);
  }
  const int all_above = raw >> field.place.shift;
  return all_above <= field.range.high ? all_above : kNotShown;
}

int RawAfter(const EditorRow& row, int raw, int shown) {
  if (row.Has(kNotStored)) return raw;
  if (row.Has(kReplacesByte)) return CodedValue(*row.field, shown) & 0xFF;
  return RawAfterCoded(*row.field, raw, row.Has(kStoresRow) ? shown : CodedValue(*row.field, shown));
}

int SentValue(const EditorRow& row, int shown) {
  return row.Has(kSendsShown) || row.Has(kStoresRow) ? shown : CodedValue(*row.field, shown);
}

int SentOfRaw(const EditorRow& row, int raw) {
  const Field& field = *row.field;
  const int bits = raw >> field.place.shift & field.place.mask;
  if (row.Has(kStoresRow)) return bits;
  const int shown = field_coding::Decoded(field, raw);
  if (shown != kNotShown) return SentValue(row, shown);
  // The instrument has no sign for such a pair of bits either.
  if (field.coding == FieldCoding::kPolarity) return SentValue(row, field_coding::kPolarityNone);
  if (field.coding != FieldCoding::kBits) return raw;
  return row.Has(kSendsShown) ? (bits - field.code.base) * field.code.step : bits;
}

bool Differ(const Field& field, int raw, int other) {
  const int bits = field.coding == FieldCoding::kWord ? 0xFFFF : field_check::BitsOf(field, 0);
  return ((raw ^ other) & bits) != 0;
}

std::string RecordEditorHost::ValueText(const EditorControl& control, int shown) const {
  return FieldText(control.field(), shown);
}

EditorControl& RecordEditor::Bind(EditorControl bound, bool named) {
  EditorControl& kept = controls_.emplace_back(bound);
  SayWhat(kept);
  of_.emplace(kept.control, &kept);
  const bool names_itself = kept.control->kind() == ui::ControlKind::kCheckBox;
  if (named && !names_itself && kept.name == nullptr) {
    names_.push_back(std::make_unique<ui::Label>(form_, "LabelName", static_cast<int>(names_.size())));
    kept.name = names_.back().get();
  }
  if (kept.name != nullptr) kept.name->SetCaption(std::string(kept.field().name));
  SetUp(kept);
  return kept;
}

void RecordEditor::SayWhat(const EditorControl& bound) {
  std::string said(bound.field().name);
  if (!bound.owner.empty()) said.append(", ").append(bound.owner);
  bound.control->SetSaid(std::move(said));
}

void RecordEditor::SetUp(EditorControl& bound) {
  const Field& field = bound.field();
  const auto edit = [this, &bound] { host_.Edit(bound); };
  switch (bound.control->kind()) {
    case ui::ControlKind::kScrollBar: {
      auto& bar = static_cast<ui::ScrollBar&>(*bound.control);
      const EditLook& look = bound.row->look;
      bar.vertical = look.upright;
      bar.SetRange(look.upright ? field.range.high : field.range.low, look.upright ? field.range.low : field.range.high,
                   1, look.page);
      bar.on_change = edit;
      bar.shown = [this, &bound](int value) { return host_.ValueText(bound, value); };
      bar.value_label = bound.value;
      bar.kept_value = [this, &bound]() -> std::optional<int> {
        if (kept_.empty()) return std::nullopt;
        // Where it is shown by another number than it is stored by, the number that stores it.
        const int kept = ShownOrNot(bound.field(), RawAt(bound.field(), kept_, bound.start));
        return kept == kNotShown ? std::nullopt : std::optional(kept);
      };
      for (ui::Label* label : {bound.name, bound.value}) {
        if (label != nullptr) label->bar = &bar;
      }
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
  SayWhat(bound);
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

void RecordEditor::Show() {
  const Bytes& record = edits_.Read(target_);
  for (EditorControl& bound : controls_) Show(bound, record, false);
}

void RecordEditor::Keep() {
  kept_ = edits_.Read(target_);
}

void RecordEditor::Fill() {
  Keep();
  const Bytes& record = edits_.Read(target_);
  for (EditorControl& bound : controls_) Show(bound, record, bound.row->Has(kActsInFill));
}

void RecordEditor::Show(EditorControl& bound, const Bytes& record, bool raises) {
  const int shown = ShownIn(*bound.row, RawAt(bound.field(), record, bound.start));
  if (shown == kNotShown) {
    bound.shown = Shown(bound);
    return;
  }
  switch (bound.control->kind()) {
    case ui::ControlKind::kScrollBar: {
      auto& bar = static_cast<ui::ScrollBar&>(*bound.control);
      raises ? bar.SetValue(shown) : bar.ShowValue(shown);
      break;
    }
    case ui::ControlKind::kCheckBox: {
      auto& box = static_cast<ui::CheckBox&>(*bound.control);
      raises ? box.SetValue(shown != 0) : box.ShowValue(shown != 0);
      break;
    }
    default: {
      auto& list = static_cast<ui::ComboBox&>(*bound.control);
      raises ? list.SetRow(shown) : list.ShowRow(shown);
    }
  }
  bound.shown = Shown(bound);
  ShowLabel(bound);
}

void RecordEditor::ShowLabel(const EditorControl& bound) const {
  if (bound.value != nullptr) bound.value->SetCaption(host_.ValueText(bound, Shown(bound)));
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

void RecordEditor::Store(EditorControl& bound, int shown) {
  const Field& field = bound.field();
  const int raw = RawAfter(*bound.row, RawAt(field, edits_.Read(target_), bound.start), shown);
  const EditWords words{field.name, bound.owner};
  if (field.Width() == 1) return edits_.PutByte(target_, bound.position(), raw, words);
  edits_.Put(target_, bound.position(), RawBytes(field, raw), words);
}

void RecordEditor::NoteShown(EditorControl& bound) {
  const int shown = Shown(bound);
  edits_.NoteShown(*bound.control, bound.shown, shown);
  bound.shown = shown;
}

bool RecordEditor::ShowAgain(const ui::Control& control, int shown) {
  EditorControl* bound = Of(control);
  if (bound == nullptr) return false;
  zentaline::ShowAgain(*bound->control, shown);
  bound->shown = shown;
  ShowLabel(*bound);
  return true;
}

void RecordEditor::NotePositions() {
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const std::size_t position = controls_[i].position();
    at_.resize(std::max(at_.size(), position + controls_[i].field().Width()));
    for (std::size_t byte = 0; byte < controls_[i].field().Width(); ++byte) at_[position + byte].push_back(i);
  }
}

const std::vector<EditorControl*>& RecordEditor::Changed(const EditAction& action, std::string_view before) {
  if (at_.empty()) NotePositions();
  found_.clear();
  for (const EditChange& change : action.changes) {
    if (change.target != target_) continue;
    const std::size_t end = std::min(change.position + change.after.size(), at_.size());
    for (std::size_t at = change.position; at < end; ++at) found_.insert(found_.end(), at_[at].begin(), at_[at].end());
  }
  if (found_.size() > 1) {
    std::sort(found_.begin(), found_.end());
    found_.erase(std::unique(found_.begin(), found_.end()), found_.end());
  }
  changed_.clear();
  for (const std::size_t i : found_) AddIfChanged(controls_[i], before);
  return changed_;
}

const std::vector<EditorControl*>& RecordEditor::Changed(std::string_view before) {
  changed_.clear();
  for (EditorControl& bound : controls_) AddIfChanged(bound, before);
  return changed_;
}

void RecordEditor::AddIfChanged(EditorControl& bound, std::string_view before) {
  const Field& field = bound.field();
  const int now = RawAt(field, edits_.Read(target_), bound.start);
  if (Differ(field, now, RawAt(field, before, bound.start))) changed_.push_back(&bound);
}

EditorControl* RecordEditor::Of(const ui::Control& control) {
  const auto found = of_.find(&control);
  return found == of_.end() ? nullptr : found->second;
}

}  // namespace zentaline
