// Texts as scripts and transcripts write them.
#pragma once

#include <string>
#include <string_view>

namespace zentaline::ui {

// In double quotes, with \" \\ \n, and \xHH for other control characters and for bytes that are no UTF-8.
std::string Quoted(std::string_view text);

}  // namespace zentaline::ui
