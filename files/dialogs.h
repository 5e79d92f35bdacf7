// What the open and the save dialogs share; for this folder alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/types.h"

namespace zentaline {

struct Application;

inline constexpr std::string_view kDialogTitle = "Zentaline - Zentaline Console v 4.0 ";

// "text|patterns|" again and again.
std::vector<ui::FileFilter> ParseFilters(std::string_view text);

// The box for a path that can't be kept.
void ShowNameNotValid(Application& app, const std::string& path);

}  // namespace zentaline
