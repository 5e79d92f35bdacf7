// The letters by which the keyboard reaches a window's commands: those that the captions name, and for the others one
// of their own, which a desktop shows. No two of a window are the same.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "ui/form.h"

namespace zentaline::ui {

// By control; a control without a letter has no entry. Letters are lower-case, signs as they are.
using Letters = std::map<const Control*, char>;

// Of the form's controls. `taken` are those of the menu bar, which a child window shares. Buttons are the commands:
// each has one, if need be a number, unless it shows data, or a mark of one or two signs, as M and S beside each other
// many times. Others have the one that their caption names, and two on different pages may have the same.
Letters LettersOfControls(const Form& form, const std::set<char>& taken);
// Of the entries of one menu, or of the bar.
Letters LettersOfEntries(const std::vector<MenuEntry*>& entries);
std::set<char> LettersOfBar(const Form& main);

// The letter that the caption names, 0 for none.
char NamedLetter(std::string_view caption);
bool HasLetter(std::string_view caption, char letter);
// The caption with its sign before the letter, and before no other; behind it where the caption lacks the letter.
// `literal` ones are data, whose signs are doubled.
std::string WithLetter(std::string_view caption, char letter, bool literal);

}  // namespace zentaline::ui
