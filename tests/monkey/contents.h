// What a window holds that can be saved.
#pragma once

#include <cstdint>
#include <optional>

#include "base/bytes.h"
#include "core/application.h"
#include "core/child_window.h"

namespace zentaline::monkey {

// The kind of file that a window of this kind saves; 0 for one that saves none.
int FileKindOfWindow(int kind);

// A number for the bytes that would be saved; that of the record under edit is taken as kept where `kept` says so.
std::uint64_t ContentOf(Application& app, ChildWindow& window, bool kept);

// Whether something of it is marked as changed, or of the record under edit that came from it.
bool HasChanges(Application& app, ChildWindow& window);

// Whether the files hold all that the window does, although it counts as changed: of styles that two windows show the
// one has saved them.
bool StandsOnDisk(const ChildWindow& window);

}  // namespace zentaline::monkey
