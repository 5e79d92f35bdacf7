// Fields as texts: what is written beside a control, and the way back from a text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "record/field.h"

namespace zentaline {

// What a value of the field is shown as: the text of its row, a number, the name of a note, ...
std::string FieldText(const Field& field, int shown);

// The value that is shown by this text, blanks at its ends apart; a list of numbers takes them with or without "+".
std::optional<int> ValueOfText(const Field& field, std::string_view text);

// "vdf2.cutoff": the key with the tag of block n.
std::string FieldKey(const Field& field, const FieldBlock& block, int n);

// What a field belongs to, in a musician's words: "VDF EG, OSC-2".
std::string FieldOwner(const Field& field, const FieldBlock& block, int n);

// "C#4" for 61.
std::string NoteNameText(int note);
// "C4#" for 61, as the arrangement editor writes a split point; notes below 36 show as 36.
std::string SplitNoteName(int note);

}  // namespace zentaline
