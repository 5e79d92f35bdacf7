// The program with a folder of program files, driven by the names of its controls.
#pragma once

#include <string>
#include <vector>

#include "midi/api.h"
#include "program/api.h"
#include "tests/arrangement/arr_desk.h"

namespace zentaline::test {

// A bank without links: "Prog 0" to "Prog 63", and the channel of its header, 0 to 15.
inline std::string Bank(int channel = 0, unsigned seed = 1) {
  std::string file = PrgFile(seed);
  for (std::size_t n = 0; n < 64; ++n) file.replace(48 + 172 * n, 16, Field("Prog " + std::to_string(n), 16));
  Set(file, 16, channel);
  return file;
}

class PrgDesk : public ArrDesk {
 public:
  PrgDesk() = default;
  explicit PrgDesk(bool starts) : ArrDesk(starts) {}

  void OpenPrg(const std::string& name, bool read_only = false) {
    Answer(name, 3, read_only);
    Press("mnuApriPrg");
    program.toolkit.files.clear();
  }
  // Opens a new file of the folder; what was said and sent so far is forgotten.
  void OpenBank(const std::string& file, const std::string& name = "Bank.prg") {
    Put(name, file);
    OpenPrg(name);
    Log();
    dumps.clear();
  }
  // The next file dialog is answered with this file of the folder.
  void Answer(const std::string& name, int filter = 3, bool read_only = false) {
    program.toolkit.files.push_back({false, folder.Path(name), filter, read_only});
  }

  ChildWindow* Prg(int number) { return program.app.prg_windows[static_cast<std::size_t>(number)]; }
  std::string Caption(int number) { return Prg(number) == nullptr ? "" : Prg(number)->caption(); }
  const Bytes& Image(int number = 1) { return Prg(number)->window_image(); }
  int Control(int number, std::size_t position) { return At(Image(number), position); }
  ui::ListBox& Rows(int number = 1) { return *Find<ui::ListBox>(Of(number, "List1")); }
  bool Click(int row, int number = 1) { return Rows(number).UserSelect({row}); }
  bool Channel(const std::string& window, int row) { return Find<ui::ComboBox>(window + ".Combo1")->UserSelect(row); }
  bool Key(const std::string& list, const ui::Key& key) { return Find<ui::ListBox>(list)->UserKey(key); }
  // As if the program part had been changed by hand.
  void Change(int number) { Set(ImageFor(*Prg(number)), 7, 1); }

  static std::string Of(int number, const std::string& control) {
    return "frmPrgUN(" + std::to_string(number) + ")." + control;
  }
  ProgramState& state() { return program.app.program; }
  Settings& settings() { return program.app.core.settings; }
};

// The three messages of a selection as the log has them, at time `t`.
inline std::vector<std::string> Selection(int t, int channel, int bank, int number) {
  const auto hex = [](int value) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    return std::string{kDigits[value >> 4], kDigits[value & 15]};
  };
  const std::string time = std::to_string(t) + " ";
  return {time + hex(0xB0 + channel) + " 00 00", time + hex(0xB0 + channel) + " 20 " + hex(bank),
          time + hex(0xC0 + channel) + " " + hex(number)};
}

}  // namespace zentaline::test
