// All texts and boxes. Titles and names are UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "base/disk.h"
#include "ui/types.h"

namespace zentaline {

struct Application;

// Text `id`, 1 to 154, in the language of this run. An id that the table doesn't hold gives an empty text.
std::string GetText(const Application& app, int id);

// The text with its first "_" replaced by `name`.
std::string WithName(std::string_view text, std::string_view name);

// The box of a message code, 0 to 38; code 1 shows `name` alone.
void ShowMessage(Application& app, int code, const std::string& title, const std::string& name);

// A question with Yes and No, codes 0 to 4; code 0 shows `name`. Without a title it has the caption of the window in
// front.
ui::BoxAnswer AskYesNo(Application& app, int code, const std::string& name = {}, const std::string& title = {});

// A question with Yes, No and Cancel, codes 0 to 3.
ui::BoxAnswer AskYesNoCancel(Application& app, int code, const std::string& title, const std::string& name = {});

// The file dialog.
ui::FileDialogAnswer AskForFile(Application& app, const ui::FileDialogRequest& request);

// The wait label, codes 1 to 9; code 0 clears it.
void ShowWait(Application& app, int code, const std::string& name = {});

// A wait text that stays when the work is done, since it tells something.
void ShowNotice(Application& app, const std::string& text);

// The text with its first two "_" replaced by names.
std::string TwoNames(std::string_view text, std::string_view first, std::string_view second);

// The box of a file operation that failed, with OperationTitle as its title.
void FileErrorMessage(Application& app, DiskResult result);

// The caption of the window in front, the main window's where there is none.
std::string ActiveCaption(const Application& app);

// A path or a file's name as it can be shown: text that is no UTF-8 is taken byte by byte.
std::string ShownPath(std::string_view path);

// At most `most` bytes of a text, cut between two characters.
std::string CutText(std::string_view text, std::size_t most);

}  // namespace zentaline
