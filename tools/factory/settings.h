// The settings of a table's line: what each writes into the record, by the record's fields.
#pragma once

#include <span>
#include <string_view>

#include "base/bytes.h"
#include "record/field.h"

namespace zentaline::factory {

// Writes the value that an editor shows as `text` to the field of this key. A key without the number of its block sets
// the field in all of them. False for a key that isn't known or a text that stands for no value; `record` may then be
// changed in part.
bool ApplySetting(std::span<const FieldBlock> blocks, std::string_view key, std::string_view text, Bytes& record);

}  // namespace zentaline::factory
