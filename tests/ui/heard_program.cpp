#include "program/prg_editor_tables.h"
#include "tests/ui/heard.h"

namespace zentaline::test {

namespace {

constexpr std::size_t kRecord = 1;

void Add(std::vector<HeldField>& held, const EditorRow& row, int oscillator, std::string_view record,
         std::size_t start = kRecord) {
  const Field& field = *row.field;
  const int shown = field_coding::Decoded(field, RawAt(field, record, start));
  if (shown == kNotShown || row.Has(kNotStored)) return;
  // The waveform takes these away in the record, not in the instrument.
  if (field.key == "sweep.sync" || field.key == "sweep.on") return;
  const int value = row.Has(kStoresRow) ? RawAt(field, record, start) >> field.place.shift & field.place.mask
                                        : CodedValue(field, shown);
  held.push_back({{row.message.a, row.message.b, oscillator}, value, std::string(field.key)});
}

}  // namespace

std::vector<HeldField> HeldByProgram(std::string_view record) {
  std::vector<HeldField> held;
  for (const EditorRow& row : prg_editor::kCommonRows) {
    const bool octave = row.array == kBasCombo && row.index < 2;
    Add(held, row, octave ? row.index : -1, record);
  }
  for (int block = 0; block < 2; ++block) {
    for (const EditorRow& row : prg_editor::kOscRows) Add(held, row, block, record, kRecord + kOscBlock.StartOf(block));
  }
  for (const EditorRow& row : prg_editor::kEffectRows) Add(held, row, -1, record);
  const bool returns =
      ShownAt(FieldOf(program_fields::kCommon, "placement"), record, kRecord) == prg_editor::kPlacementWithReturns;
  if (returns) {
    for (const EditorRow& row : prg_editor::kReturnRows) Add(held, row, -1, record);
  } else {
    for (const EditorRow& row : prg_editor::kPanRows) Add(held, row, -1, record);
  }
  return held;
}

}  // namespace zentaline::test
