// The program with a folder of arrangement files, driven by the names of its controls, and what it did as short lines.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/format_bytes.h"
#include "tests/midi/unpack7.h"
#include "tests/program/prg_builder.h"
#include "tests/style/sty_builder.h"
#include "tests/support/program.h"
#include "ui/controls.h"

namespace zentaline::test {

// An arrangement as the instrument's layout has it; what isn't told is zero.
struct Arr {
  std::string name;
  int style = 0;
  bool user = false;                            // a style of the user's
  std::vector<std::pair<int, int>> parts = {};  // program number and bank code, from Drum on
};

inline std::string ArrRecord(const Arr& arr) {
  std::string record = Field(arr.name, 16) + Zeros(148);
  record[17] = static_cast<char>(arr.style);
  record[18] = static_cast<char>(arr.user ? 1 : 0);
  for (std::size_t t = 0; t < arr.parts.size(); ++t) {
    record[39 + 8 * t] = static_cast<char>(arr.parts[t].first);
    record[40 + 8 * t] = static_cast<char>(arr.parts[t].second);
  }
  return record;
}

// A file with these arrangements in its first rows; the other rows were never written.
inline std::string ArrBytes(const std::vector<Arr>& arrangements) {
  std::string file = "KORG" + Hand({0x4D, 0, 3}) + Zeros(25);
  for (const Arr& arr : arrangements) file += ArrRecord(arr);
  file.resize(10528, '\0');
  return file;
}

// A style file of four styles for each group that is wanted, each of 20 bytes more than the one before it.
inline std::string StyBytes(int groups) {
  std::vector<Style> styles;
  styles.reserve(static_cast<std::size_t>(groups) * 4);
  for (int e = 0; e < 4 * groups; ++e) {
    styles.push_back({"Style " + std::to_string(e), 40 + 20 * e, 0x80 + e});
  }
  return StyImage(styles);
}

// What the instrument gets for group g of a style file, before packing; worked out by the size table alone.
inline std::string StyGroupPayload(const std::string& sty, int g) {
  std::string descriptors;
  std::size_t start = 224;
  std::size_t offset = 24;
  std::size_t length = 0;
  for (std::size_t e = 0; e < 4 * static_cast<std::size_t>(g) + 4; ++e) {
    const int low = At(sty, 25 + 4 * e);
    const int high = At(sty, 26 + 4 * e);
    const std::size_t size = static_cast<std::size_t>(low) + static_cast<std::size_t>(high) * 256;
    if (e < 4 * static_cast<std::size_t>(g)) {
      start += size;
      continue;
    }
    descriptors += Hand({static_cast<int>(offset % 256), 0, static_cast<int>(offset / 256), 0x80 + g, low, high});
    offset += size;
    length += size;
  }
  return descriptors + sty.substr(start, length);
}

// What the instrument gets of a program file, before packing: the records, links wiped in a .pgg, and the second block.
inline std::string PrgPayload(const std::string& file, bool wiped) {
  std::string payload = file.substr(48, 11008);
  for (std::size_t n = 0; wiped && n < 64; ++n) {
    if (payload[172 * n] == 1) payload.replace(172 * n, 20, Zeros(20));
  }
  return payload + file.substr(23096, 2104);
}

class ArrDesk {
 public:
  ArrDesk() : ArrDesk(true) {}
  // Without a start, for a test that makes something ready first.
  explicit ArrDesk(bool starts) : program(folder) {
    folder.Put("i40Sty", EmptyStyles());
    if (starts) Start();
  }
  // With the files on a disk of the test's own.
  explicit ArrDesk(Disk& other) : program(other, folder.Path()) {
    other.Write(folder.Path("i40Sty"), EmptyStyles());
    Start();
  }

  // An output is chosen, and what happened so far is forgotten.
  void Start() {
    program.Start();
    if (!program.app.midi.OutputOpen) Press("mnuDevMIDIOut(0)");
    program.Boxes();
    Log();
  }

  void Put(const std::string& name, const std::string& content) { folder.Put(name, content); }
  // Opens a file of the folder as File, Open Arr does.
  void Open(const std::string& name, bool read_only = false) { program.OpenArr(folder.Path(name), 1, read_only); }

  // By the name that a script uses; null where there is none.
  template <typename T>
  T* Find(const std::string& name) {
    const std::size_t dot = name.find(").") != std::string::npos ? name.find(").") + 1 : name.find('.');
    ui::Form* form = dot == std::string::npos ? program.app.main : program.toolkit.FindForm(name.substr(0, dot));
    if (form == nullptr) return nullptr;
    const std::string control = dot == std::string::npos ? name : name.substr(dot + 1);
    for (ui::Control* each : form->controls()) {
      if (each->FullName() == control) return dynamic_cast<T*>(each);
    }
    return nullptr;
  }

  bool Press(const std::string& name) {
    if (auto* button = Find<ui::Button>(name)) return button->UserPress();
    if (auto* entry = Find<ui::MenuEntry>(name)) return entry->UserPress();
    ADD_FAILURE() << "nothing to press is called " << name;
    return false;
  }
  bool Select(int row, int window = 1) { return List(window).UserSelect({row}); }
  bool Double(int row, int window = 1) { return List(window).UserDouble(row); }
  ui::ListBox& List(int window = 1) { return *Find<ui::ListBox>(In(window, "List1")); }
  bool Enabled(const std::string& name) { return Find<ui::Control>(name)->enabled(); }
  std::string Text(const std::string& name) {
    if (auto* text = Find<ui::TextBox>(name)) return text->text();
    if (auto* combo = Find<ui::ComboBox>(name)) return combo->text();
    if (auto* captioned = Find<ui::Captioned>(name)) return captioned->caption();
    return "no such control";
  }
  std::vector<std::string> Rows(const std::string& name) {
    std::vector<std::string> rows;
    if (auto* list = Find<ui::ListBox>(name)) {
      for (int i = 0; i < list->rows(); ++i) rows.push_back(list->RowText(i));
    } else if (auto* combo = Find<ui::ComboBox>(name)) {
      for (int i = 0; i < combo->rows(); ++i) rows.push_back(combo->RowText(i));
    }
    return rows;
  }
  static std::string In(int window, const std::string& control) {
    return "frmArrU(" + std::to_string(window) + ")." + control;
  }
  int Byte(int window, std::size_t position) { return At(program.Arr(window)->window_image(), position); }
  void Wait(std::int64_t milliseconds) { program.toolkit.Advance(milliseconds); }

  // What happened since the last call, a line each: T is the time. A mode change is "T mode MM", a dump "T dump FF N"
  // with its N bytes kept in `dumps`, other bytes are "T HH HH HH". Boxes, wait texts, windows and calls of the service
  // stand as in a transcript, with the folder's name as DIR.
  std::vector<std::string> Log() {
    std::vector<std::string> log;
    for (const std::string& line : std::exchange(program.toolkit.lines, {})) {
      if (const std::string said = Said(line); !said.empty()) log.push_back(said);
    }
    return log;
  }
  // The same without what only moves windows and boxes.
  std::vector<std::string> Wire() {
    std::vector<std::string> wire;
    for (const std::string& line : Log()) {
      if (std::isdigit(static_cast<unsigned char>(line[0])) != 0) wire.push_back(line);
    }
    return wire;
  }

  ScratchFolder folder;
  TestProgram program;
  std::vector<std::string> dumps;

 private:
  std::string Said(std::string line) {
    const std::size_t first = line.find(' ');
    const std::string word = line.substr(0, first);
    if (word != "long" && word != "short") {
      for (std::size_t at = 0; (at = line.find(folder.Path(), at)) != std::string::npos;) {
        line.replace(at, folder.Path().size(), "DIR");
      }
      return line;
    }
    const std::size_t second = line.find(' ', first + 1);
    const std::string time = line.substr(first + 1, second - first);
    const std::string hex = line.substr(second + 1);
    const std::size_t length = (hex.size() + 1) / 3;
    if (length == 7 && hex.substr(12, 2) == "4E") return time + "mode " + hex.substr(15, 2);
    if (length <= 24) return time + hex;
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 3) {
      bytes.push_back(static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    dumps.push_back(bytes);
    return time + "dump " + hex.substr(12, 2) + " " + std::to_string(length);
  }
};

}  // namespace zentaline::test
