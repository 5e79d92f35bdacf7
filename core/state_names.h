// The module-wide state by name, for scripts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/bytes.h"

namespace zentaline {

struct Application;

using StateValue = std::variant<long, std::string>;

// The value of a piece of state: a number (flags 1 and 0) or a text. Nothing for a name that is none.
std::optional<StateValue> ReadState(const Application& app, std::string_view name);

// A byte string of the state: ArrEditRecord, EditRecord, ItemClipboard, DBImage and the buffers. Null for a name that
// is none.
const Bytes* ReadStateImage(const Application& app, std::string_view name);

}  // namespace zentaline
