#include "tools/factory/settings.h"

#include <string>

#include "record/field_text.h"

namespace zentaline::factory {
namespace {

// The key of a field in all its blocks: "vdf.cutoff".
std::string KeyOfAll(const Field& field) {
  std::string key(field.key);
  std::erase(key, '#');
  return key;
}

}  // namespace

bool ApplySetting(std::span<const FieldBlock> blocks, std::string_view key, std::string_view text, Bytes& record) {
  bool known = false;
  for (const FieldBlock& block : blocks) {
    for (const Field& field : block.fields) {
      const bool all = KeyOfAll(field) == key;
      for (int n = 0; n < block.count(); ++n) {
        if (!all && FieldKey(field, block, n) != key) continue;
        const std::optional<int> value = ValueOfText(field, text);
        if (!value) return false;
        StoreAt(field, record, 1 + block.StartOf(n), *value);
        known = true;
      }
    }
  }
  return known;
}

}  // namespace zentaline::factory
