// The program editor on a record written byte by byte.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "tests/program/prg_desk.h"
#include "tests/support/edits.h"

namespace zentaline::test {

// Zero bytes but for the name, and for effects that can be balanced.
inline std::string PlainProgram(const std::string& name = "Plain") {
  std::string record = Field(name, 16) + Zeros(156);
  Set(record, 144, 1);
  Set(record, 145, 1);
  return record;
}

inline std::string Sent(int a, int b, int value) {
  char text[64];
  std::snprintf(text, sizeof text, "0 F0 42 30 4D 60 %02X %02X %02X %02X F7", static_cast<unsigned>(a),
                static_cast<unsigned>(b), static_cast<unsigned>(value) & 0x7FU,
                value < 0 ? 0x7FU : static_cast<unsigned>(value) / 128U);
  return text;
}

class PrgEditorDesk : public PrgDesk {
 public:
  // A bank whose first records are these, and the editor open on the first one. What went out so far is forgotten.
  explicit PrgEditorDesk(const std::vector<std::string>& records = {PlainProgram()}, bool read_only = false) {
    std::string file = Bank();
    for (std::size_t i = 0; i < records.size(); ++i) file.replace(48 + 172 * i, 172, records[i]);
    Put("Bank.prg", file);
    OpenPrg("Bank.prg", read_only);
    Click(0);
    Press("frmPrgUN(1).CommEdit");
    Log();
    program.Boxes();
  }

  static std::string Editor(const std::string& control) { return "frmEditPrg." + control; }
  bool IsOpen() { return program.toolkit.FindForm("frmEditPrg") != nullptr; }
  std::string Caption() { return program.toolkit.FindForm("frmEditPrg")->caption(); }
  bool Close() { return program.toolkit.FindForm("frmEditPrg")->UserClose(); }
  void AnswerBox(ui::BoxAnswer answer) { program.toolkit.answers.push_back(answer); }

  bool Move(const std::string& name, int value) {
    ui::Control* control = Find<ui::Control>(Editor(name));
    if (auto* bar = dynamic_cast<ui::ScrollBar*>(control)) return bar->UserSet(value);
    if (auto* list = dynamic_cast<ui::ComboBox*>(control)) return list->UserSelect(value);
    if (auto* box = dynamic_cast<ui::CheckBox*>(control)) return box->UserSet(value != 0);
    if (auto* option = dynamic_cast<ui::OptionButton*>(control)) return option->UserPress();
    ADD_FAILURE() << "nothing to move is called " << name;
    return false;
  }
  bool Type(const std::string& name, const std::string& text) {
    return Find<ui::TextBox>(Editor(name))->UserType(text);
  }
  int Shows(const std::string& name) {
    ui::Control* control = Find<ui::Control>(Editor(name));
    if (auto* bar = dynamic_cast<ui::ScrollBar*>(control)) return bar->value();
    if (auto* list = dynamic_cast<ui::ComboBox*>(control)) return list->row();
    if (auto* box = dynamic_cast<ui::CheckBox*>(control)) return box->value() ? 1 : 0;
    if (auto* option = dynamic_cast<ui::OptionButton*>(control)) return option->value() ? 1 : 0;
    ADD_FAILURE() << "nothing is called " << name;
    return -2;
  }
  std::string Reads(const std::string& name) {
    if (auto* box = Find<ui::TextBox>(Editor(name))) return box->text();
    return Find<ui::Captioned>(Editor(name))->caption();
  }
  bool Enabled(const std::string& name) { return Find<ui::Control>(Editor(name))->enabled(); }
  bool Visible(const std::string& name) { return Find<ui::Control>(Editor(name))->visible(); }

  // Another record stands under edit, as if its row had been clicked.
  void TakeUp(const std::string& record) {
    BytesFor(state().EditRecord).replace(0, 172, record);
    FlagFor(state().ProgramChanged) = false;
    FillProgramEditor(program.app);
  }
  std::string Record() { return state().EditRecord.value().substr(0, 172); }
  int Byte(std::size_t position) { return At(state().EditRecord, position); }

  // What went out since the last call, without the 20 zero bytes that follow each change.
  std::vector<std::string> Params() {
    std::vector<std::string> params;
    const std::string pause = "0 " + HexText(std::string(20, '\0'));
    for (const std::string& line : Wire()) {
      if (line != pause) params.push_back(line);
    }
    return params;
  }
};

}  // namespace zentaline::test
