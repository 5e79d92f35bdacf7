// A bank with a program whose bytes a test sets, and what of program parameters went out.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/program/prg_desk.h"

namespace zentaline::test {

class PerfDesk : public PrgDesk {
 public:
  static constexpr int kRow = 5;

  // The bank's program in row 5 is all 50 behind its name, SINGLE, but for these bytes by position.
  explicit PerfDesk(const std::map<std::size_t, int>& bytes = {}, bool read_only = false) {
    Put("Bank.prg", With(bytes));
    OpenPrg("Bank.prg", read_only);
    Click(kRow);
    Press("mnuEditPerf");
    program.Boxes();
    Log();
  }
  // The program editor beside it, on the program as it stands.
  void OpenEditor() {
    Press("frmPrgUN(1).CommEdit");
    program.toolkit.Activate(*Perf());
    program.Boxes();
    Log();
  }
  ChildWindow* Editor() { return static_cast<ChildWindow*>(program.toolkit.FindForm("frmEditPrg")); }
  ui::ScrollBar& Bar(const std::string& name) { return *Find<ui::ScrollBar>("frmEditPrg." + name); }
  static std::string With(const std::map<std::size_t, int>& bytes) {
    std::string file = Bank();
    file.replace(48 + 172 * kRow + 16, 156, std::string(156, '\x32'));
    Set(file, 48 + 172 * kRow + 19, 0);
    for (const auto& [position, value] : bytes) Set(file, 48 + 172 * kRow + position, value);
    return file;
  }

  int Byte(std::size_t position) { return At(state().EditRecord, position); }
  bool Up(int row) { return Press(Of("CommUp", row)); }
  bool Down(int row) { return Press(Of("CommDown", row)); }
  bool Reset(int row) { return Press(Of("CommReset", row)); }
  bool CanUp(int row) { return Enabled(Of("CommUp", row)); }
  bool CanDown(int row) { return Enabled(Of("CommDown", row)); }
  std::string Count(int row) { return Text(Of("PerfLab", row)); }
  ChildWindow* Perf() { return static_cast<ChildWindow*>(program.toolkit.FindForm("frmEditPerf")); }
  static std::string Of(const std::string& array, int row) {
    return "frmEditPerf." + array + "(" + std::to_string(row) + ")";
  }

  // The program parameters since the last call, "A B LOW HIGH" each; anything else on the wire, and a parameter without
  // its 20 zero bytes, stands as it is.
  std::vector<std::string> Sent() {
    static const std::string kPause = " " + HexText(std::string(20, '\0'));
    static const std::string kBefore = " F0 42 30 4D 60 ";
    std::vector<std::string> sent;
    const std::vector<std::string> wire = Wire();
    for (std::size_t i = 0; i < wire.size(); ++i) {
      const std::size_t message = wire[i].find(' ');
      const bool whole = wire[i].substr(message).starts_with(kBefore) && wire[i].ends_with(" F7") &&
                         i + 1 < wire.size() && wire[i + 1].ends_with(kPause);
      sent.push_back(whole ? wire[i].substr(message + kBefore.size(), 11) : wire[i]);
      if (whole) ++i;
    }
    return sent;
  }
};

}  // namespace zentaline::test
