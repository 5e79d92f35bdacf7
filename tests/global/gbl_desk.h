// The program with a folder of files of global data, and what their bytes mean, written down by hand.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "global/frmGbl.h"
#include "tests/arrangement/arr_desk.h"
#include "tests/support/config.h"
#include "tests/support/edits.h"

namespace zentaline::test {

// A file of which all bytes behind the signature are the same.
inline std::string GblFile(int byte = 0) {
  return "KORG" + Hand({0x4D, 0, 6, 1}) + std::string(440, static_cast<char>(byte));
}

// The functions of pedals and controllers, by the rows of their lists.
struct PedalFunction {
  const char* name;
  int code;
};
inline constexpr PedalFunction kPedals[] = {
    {"OFF", 0},
    {"START/STOP", 1},
    {"SYNC START", 2},
    {"SYNC STOP", 47},
    {"RESET", 3},
    {"TAP TEMPO", 38},
    {"TEMPO LOCK", 37},
    {"INTRO/ENDING 1", 4},
    {"INTRO/ENDING 2", 5},
    {"FILL 1", 6},
    {"FILL 2", 7},
    {"VARIATION 1", 8},
    {"VARIATION 2", 9},
    {"VARIATION 3", 10},
    {"VARIATION 4", 11},
    {"CHORD MEMORY", 12},
    {"BASS INVERSION", 13},
    {"SCALE CHANGE", 14},
    {"ARR/STY UP", 15},
    {"ARR/STY DOWN", 16},
    {"PROGRAM UP", 17},
    {"PROGRAM DOWN", 18},
    {"VARIATION UP", 22},
    {"VARIATION DOWN", 20},
    {"PUNCH IN/OUT", 21},
    {"EFFECT 1 ON/OFF", 22},
    {"EFFECT 2 ON/OFF", 23},
    {"DRUM MUTE", 24},
    {"PERC MUTE", 25},
    {"BASS MUTE", 26},
    {"ACC1 MUTE", 27},
    {"ACC2 MUTE", 28},
    {"ACC3 MUTE", 29},
    {"LOW HARM MEMORY", 39},
    {"SUSTAIN ON/OFF", 40},
    {"FADE IN/OUT", 41},
    {"ENSEMBLE ON/OFF", 42},
    {"QUARTER TONE", 44},
    {"DAMPER ON/OFF", 45},
    {"CHORD LATCH ON/OFF", 46},
    {"ACC1-3 MUTE", 48},
    {"LOW/UP1/UP2 MUTE", 49},
    {"KEYBOARD SET UP", 50},
    {"KEYBOARD SET DOWN", 51},
    {"C BUTTON ON/OFF", 52},
    {"KB VOLUME", 30},
    {"MASTER VOLUME", 43},
    {"EXPRESSION", 31},
    {"VDF CUTOFF", 32},
    {"EFFECT CONTROL", 33},
    {"DATA ENTRY", 34},
    {"A/B FADER", 53},
};

// One control: where its byte is in the image, how far it goes, what it shows of a byte (nothing: the list stays), and
// what becomes of the byte.
struct Golden {
  std::string control;
  std::size_t position;
  int low;
  int high;
  std::function<std::optional<int>(int byte)> shown;
  std::function<int(int byte, int value)> stored;
};

inline std::vector<Golden> GoldenTable() {
  const auto index = [](int, int value) { return value; };
  const auto row_below = [](int rows) {
    return [rows](int byte) { return byte < rows ? std::optional<int>(byte) : std::nullopt; };
  };
  const auto sign = [](int byte) -> std::optional<int> { return byte >= 206 ? byte - 256 : byte > 50 ? 50 : byte; };
  const auto cents = [](int, int value) { return value < 0 ? value + 256 : value; };
  const auto pedal_shown = [](int byte) -> std::optional<int> {
    for (int row = 0; row < 52; ++row) {
      if (kPedals[row].code == byte) return row;
    }
    return std::nullopt;
  };
  const auto pedal_stored = [](int, int row) { return kPedals[row].code; };
  const auto bit_shown = [](int bit) { return [bit](int byte) { return std::optional<int>(byte >> bit & 1); }; };
  const auto bit_stored = [](int bit) {
    return [bit](int byte, int value) { return value == 1 ? byte | (1 << bit) : byte & (255 - (1 << bit)); };
  };
  // Of a nibble: 2, 1, 0 and 15 for the rows 0 to 3.
  const auto octave = [](int nibble) -> std::optional<int> {
    if (nibble == 15) return 3;
    return nibble <= 2 ? std::optional<int>(2 - nibble) : std::nullopt;
  };

  std::vector<Golden> table = {
      {"GblHScroll1(0)", 303, -50, 50, sign, cents},
      {"GblHScroll1(1)", 515, 0, 127, [](int b) { return std::optional<int>(b > 127 ? 127 : b); }, index},
      // The whole byte becomes the upper parts' octave.
      {"GblCombo1(0)", 516, 0, 3, [=](int b) { return octave(b & 15); },
       [](int, int row) { return row < 3 ? 2 - row : 255; }},
      {"GblCombo1(1)", 516, 0, 3, [=](int b) { return octave(b / 16); },
       [](int b, int row) { return (b & 15) | ((row < 3 ? 2 - row : 15) * 16); }},
      // Shown only: the bytes stay.
      {"GblCombo1(2)", 322, 0, 7, [](int b) { return std::optional<int>(b > 7 ? 7 : b); },
       [](int b, int) { return b; }},
      {"GblCombo1(3)", 323, 0, 7, [](int b) { return std::optional<int>(b > 7 ? 7 : b); },
       [](int b, int) { return b; }},
      {"GblCombo1(5)", 331, 0, 2, [](int b) { return std::optional<int>((b & 3) > 2 ? 2 : b & 3); }, index},
      {"GblCombo1(6)", 308, 0, 23, row_below(24), index},
      {"GblCombo1(7)", 324, 0, 23, row_below(24), index},
      {"GblCombo1(8)", 309, 0, 11, row_below(12), index},
      {"GblCombo1(9)", 325, 0, 11, row_below(12), index},
      {"GblCombo1(10)", 306, 0, 51, pedal_shown, pedal_stored},
      {"GblCombo1(16)", 305, 0, 1, bit_shown(3), bit_stored(3)},
      {"GblCombo1(17)", 305, 0, 1, bit_shown(4), bit_stored(4)},
      {"GblCombo1(18)", 305, 0, 1, bit_shown(5), bit_stored(5)},
      {"GblCombo1(19)", 305, 0, 2, [=](int b) { return row_below(3)(b / 64 & 3); },
       [](int b, int row) { return (b & 63) + 64 * row; }},
      {"GblCheck1(0)", 332, 0, 1, bit_shown(0), index},
      {"GblCheck1(1)", 525, 0, 1, bit_shown(1), bit_stored(1)},
      {"GblCheck1(2)", 525, 0, 1, bit_shown(0), bit_stored(0)},
      {"Combo3(0)", 518, 0, 6, [](int b) { return std::optional<int>(b <= 3     ? 3 - b
                                                                     : b >= 253 ? 259 - b
                                                                                : 0); },
       [](int, int row) { return row <= 3 ? 3 - row : 259 - row; }},
      {"Combo3(1)", 521, 0, 16,
       [](int b) -> std::optional<int> {
         if (b == 255) return 0;
         return b < 16 ? std::optional<int>(b + 1) : std::nullopt;
       },
       [](int, int row) { return row == 0 ? 255 : row - 1; }},
      {"Combo3(2)", 522, 0, 16, row_below(17), index},
      {"Combo3(3)", 523, 0, 32,
       [](int b) -> std::optional<int> {
         if (b == 255) return 0;
         return b < 32 ? std::optional<int>(b + 1) : std::nullopt;
       },
       [](int, int row) { return row == 0 ? 255 : row - 1; }},
      {"HScroll3(0)", 519, 0, 116, [](int b) { return std::optional<int>(b > 116 ? 116 : b); }, index},
      {"HScroll3(1)", 520, 11, 127, [](int b) { return std::optional<int>(b > 127  ? 127
                                                                          : b < 11 ? 11
                                                                                   : b); }, index},
      {"Check3", 524, 0, 1, bit_shown(0), index},
  };
  for (int i = 0; i < 5; ++i) {
    table.push_back({"GblCombo1(" + std::to_string(11 + i) + ")", static_cast<std::size_t>(326 + i), 0, 51, pedal_shown,
                     pedal_stored});
  }
  for (int i = 0; i < 48; ++i) {
    table.push_back({"VScroll2(" + std::to_string(i) + ")", static_cast<std::size_t>(335 + i), -50, 50, sign, cents});
  }
  return table;
}

class GblDesk : public ArrDesk {
 public:
  using ArrDesk::ArrDesk;

  void OpenGbl(const std::string& name, bool read_only = false) {
    Answer(name, read_only);
    found_.clear();
    Press("mnuApriGbl");
    program.toolkit.files.clear();
  }
  // Opens the window on a file of these bytes; what was said and sent so far is forgotten.
  void OpenBytes(const std::string& bytes) {
    Put("Set.gbl", bytes);
    if (Window() != nullptr) Window()->CloseWithoutAsking();
    OpenGbl("Set.gbl");
    Log();
    dumps.clear();
  }
  void Answer(const std::string& name, bool read_only = false) {
    program.toolkit.files.push_back({false, folder.Path(name), 4, read_only});
  }
  // Answers the next save dialog.
  void AnswerSave(const std::string& name, int filter = 5) {
    program.toolkit.files.push_back({false, folder.Path(name), filter, false});
  }

  frmGbl* Window() { return static_cast<frmGbl*>(program.app.gbl_window); }
  Bytes& Image() { return ImageFor(*Window()); }
  int Byte(std::size_t position) { return At(Window()->window_image(), position); }
  bool Changed() { return Byte(4) == 1; }

  // Of a bar, a list or a check box; -1 for a list without a row.
  int Value(const std::string& name) {
    ui::Control& control = In(name);
    if (auto* bar = dynamic_cast<ui::ScrollBar*>(&control)) return bar->value();
    if (auto* box = dynamic_cast<ui::CheckBox*>(&control)) return box->value() ? 1 : 0;
    return dynamic_cast<ui::ComboBox&>(control).row();
  }
  bool SetTo(const std::string& name, int value) {
    ui::Control& control = In(name);
    if (auto* bar = dynamic_cast<ui::ScrollBar*>(&control)) return bar->UserSet(value);
    if (auto* box = dynamic_cast<ui::CheckBox*>(&control)) return box->UserSet(value == 1);
    return dynamic_cast<ui::ComboBox&>(control).UserSelect(value);
  }
  // Shows a value, or no row of a list, without telling anybody.
  void ShowValue(const std::string& name, int value) {
    ui::Control& control = In(name);
    if (auto* bar = dynamic_cast<ui::ScrollBar*>(&control)) return bar->ShowValue(value);
    if (auto* box = dynamic_cast<ui::CheckBox*>(&control)) return box->ShowValue(value == 1);
    dynamic_cast<ui::ComboBox&>(control).ShowRow(value);
  }

  // That exactly one block has gone out, and that it is what the image holds.
  void ExpectOneBlock(const std::string& what) {
    const std::vector<std::string> wire = Wire();
    ASSERT_EQ(wire.size(), 1u) << what;
    EXPECT_NE(wire[0].find("dump 51 481"), std::string::npos) << what << ": " << wire[0];
    ASSERT_EQ(dumps.size(), 1u) << what;
    EXPECT_EQ(DumpPayload(dumps[0]), Window()->window_image().substr(302, 415)) << what;
    EXPECT_EQ(program.app.global.GlobalRecord, Window()->window_image().substr(270, 448)) << what;
    dumps.clear();
  }

 private:
  // A control of the window by its name; found once after an opening, since the tables ask again and again.
  ui::Control& In(const std::string& name) {
    ui::Control*& found = found_[name];
    if (found == nullptr) found = Find<ui::Control>("frmGbl." + name);
    return *found;
  }

  std::map<std::string, ui::Control*> found_;
};

}  // namespace zentaline::test
