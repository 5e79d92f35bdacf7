// The arrangement editor on a record written byte by byte.
#pragma once

#include <string>
#include <vector>

#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {

// A record of zero bytes but for its name.
inline std::string EmptyRecord(const std::string& name = "Song") {
  return Field(name, 16) + Zeros(148);
}

class EditorDesk : public ArrDesk {
 public:
  // A file with these records, and the editor open on the first one. What went out so far is forgotten.
  explicit EditorDesk(const std::vector<std::string>& records = {EmptyRecord()}, bool read_only = false) {
    std::string file = ArrBytes({});
    for (std::size_t i = 0; i < records.size(); ++i) file.replace(32 + 164 * i, 164, records[i]);
    Put("song.arr", file);
    Open("song.arr", read_only);
    Double(0);
    Log();
  }

  static std::string Of(const std::string& control) { return "frmEditArr." + control; }
  bool IsOpen() { return program.toolkit.FindForm("frmEditArr") != nullptr; }
  std::string Caption() { return program.toolkit.FindForm("frmEditArr")->caption(); }
  bool Close() { return program.toolkit.FindForm("frmEditArr")->UserClose(); }

  // As the user's hand: the value of a bar, the row of a list, 1 or 0 of a check box, the press of a button.
  bool Move(const std::string& name, int value) {
    ui::Control* control = Find<ui::Control>(Of(name));
    if (auto* bar = dynamic_cast<ui::ScrollBar*>(control)) return bar->UserSet(value);
    if (auto* list = dynamic_cast<ui::ComboBox*>(control)) return list->UserSelect(value);
    if (auto* box = dynamic_cast<ui::CheckBox*>(control)) return box->UserSet(value != 0);
    ADD_FAILURE() << "nothing to move is called " << name;
    return false;
  }
  bool Push(const std::string& name) { return Press(Of(name)); }
  void Touch(const std::string& name) {
    ui::Control* control = Find<ui::Control>(Of(name));
    control->UserMouse({ui::MouseEvent::kDown});
    control->UserMouse({ui::MouseEvent::kUp});
  }
  bool Type(const std::string& name, const std::string& text) {
    if (auto* box = Find<ui::TextBox>(Of(name))) return box->UserType(text);
    return Find<ui::ComboBox>(Of(name))->UserType(text);
  }
  // What a control shows: as Move takes it.
  int Shows(const std::string& name) {
    ui::Control* control = Find<ui::Control>(Of(name));
    if (auto* bar = dynamic_cast<ui::ScrollBar*>(control)) return bar->value();
    if (auto* list = dynamic_cast<ui::ComboBox*>(control)) return list->row();
    if (auto* box = dynamic_cast<ui::CheckBox*>(control)) return box->value() ? 1 : 0;
    ADD_FAILURE() << "nothing is called " << name;
    return -2;
  }
  std::string Reads(const std::string& name) { return Text(Of(name)); }
  long Colour(const std::string& name) {
    return static_cast<long>(Find<ui::Control>(Of(name))->back_colour().value_or(ui::kWindowColour));
  }

  ArrangementState& State() { return program.app.arrangement; }
  const std::string& Edited() { return State().ArrEditRecord; }
  // Of the record under edit, by its offset.
  int Record(std::size_t offset) { return At(Edited(), offset + 1); }

  // The parameter changes since the last call, "ID LO HI" each; anything else as it went out.
  std::vector<std::string> Params() {
    std::vector<std::string> params;
    for (const std::string& line : Wire()) {
      const std::string start = "0 F0 42 30 4D 41 ";
      const bool is_param = line.starts_with(start) && line.size() == start.size() + 11;
      params.push_back(is_param ? line.substr(start.size(), 8) : line);
    }
    return params;
  }
};

using Strings = std::vector<std::string>;

}  // namespace zentaline::test
