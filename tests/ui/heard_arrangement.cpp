#include "arrangement/editor_tables.h"
#include "tests/ui/heard.h"

namespace zentaline::test {

namespace {

constexpr std::size_t kRecord = 1;

void Add(std::vector<HeldField>& held, const EditorRow& row, int block, std::string_view record, std::size_t start) {
  const Field& field = *row.field;
  const int shown = field_coding::Decoded(field, RawAt(field, record, start));
  // A solo isn't sent, and the mutes have the same number.
  if (!row.message.IsSent() || row.message.greatest == 1 || shown == kNotShown) return;
  const int value = row.Has(kSendsShown) ? shown : CodedValue(field, shown);
  held.push_back({{row.message.a + kPartIdStep * block, 0, -1}, value, std::string(field.key) + std::to_string(block)});
}

}  // namespace

std::vector<HeldField> HeldByArrangement(std::string_view record) {
  std::vector<HeldField> held;
  for (const EditorRow& row : arr_editor::kCommonRows) Add(held, row, 0, record, kRecord);
  for (int part = 0; part < kArrPartCount; ++part) {
    for (const EditorRow& row : arr_editor::kPartRows) {
      Add(held, row, part, record, kRecord + kPartBlock.StartOf(part));
    }
  }
  return held;
}

}  // namespace zentaline::test
