// How the global window opens, saves and closes, and what the instrument is told.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/global/gbl_desk.h"
#include "ui/picture.h"

namespace zentaline::test {
namespace {

using Lines = std::vector<std::string>;
using Boxes = std::vector<ShownBox>;

constexpr char kQuestion[] = "The file has changed\nSave changes ?";

class GlobalWindow : public ::testing::Test, public GblDesk {
 protected:
  GlobalWindow() { Put("Hall.gbl", GblFile(3)); }

  void AnswerBox(ui::BoxAnswer answer) { program.toolkit.answers.push_back(answer); }
  // The block goes to the instrument, which from then on holds it.
  void SendHall() {
    OpenGbl("Hall.gbl");
    Press("frmGbl.CommLoadGbl");
    Press("frmGbl.CommClose");
    Log();
    dumps.clear();
  }
};

TEST_F(GlobalWindow, OpensOnAFile) {
  OpenGbl("Hall.gbl");
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Window()->caption(), "File Gbl - Hall.gbl (1)");
  const Bytes& image = Window()->window_image();
  EXPECT_EQ(image.size(), 718u);
  EXPECT_EQ(At(image, 1), 25);
  EXPECT_EQ(At(image, 2), 0);
  EXPECT_EQ(At(image, 4), 0);
  EXPECT_EQ(At(image, 15), 1);
  EXPECT_EQ(image.substr(20, 238), Field(folder.Path("Hall"), 238));
  EXPECT_EQ(image.substr(270), GblFile(3));
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(Wire(), Lines()) << "opening sends nothing";
  const ui::FileDialogRequest& dialog = program.toolkit.dialogs.back();
  EXPECT_EQ(dialog.filter, 4);
  EXPECT_EQ(program.app.files.LastGblDirectory, folder.Path());
  EXPECT_EQ(program.app.files.LastGblName, "Hall");
}

TEST_F(GlobalWindow, HasItsPages) {
  OpenGbl("Hall.gbl");
  EXPECT_EQ(Find<ui::Tabs>("frmGbl.SSTab1")->captions,
            (Lines{"General", "Midi In", "Scales", "Pedals", "User Scale 1", "User Scale 2", "User Scale 3",
                   "User Scale 4", "Harmony"}));
  for (int k = 0; k < 4; ++k) {
    const std::string n = std::to_string(k);
    EXPECT_EQ(Text("frmGbl.CommResetUS(" + n + ")"), "Reset US" + std::to_string(k + 1));
    EXPECT_EQ(Text("frmGbl.Frame1(" + n + ")"), "User Scale " + std::to_string(k + 1));
  }
}

// Black notes on black keys: each name stands in the middle of its twelfth, and on a key of its colour.
TEST_F(GlobalWindow, TheScalesStandOverAnOctave) {
  OpenGbl("Hall.gbl");
  const char* const names[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
  for (int k = 0; k < 4; ++k) {
    const ui::Drawing& drawing = Find<ui::Picture>("frmGbl.ScalePicture(" + std::to_string(k) + ")")->drawing();
    EXPECT_TRUE(drawing.handles.empty());
    std::vector<bool> black_key(12);
    int found = 0;
    for (const ui::Shape& shape : drawing.shapes) {
      const double middle = shape.points[0].x / drawing.size.x * 12;
      if (shape.kind == ui::Shape::Kind::kArea && shape.ink == ui::Ink::kBlackKey) {
        black_key[static_cast<std::size_t>(middle)] = true;
      }
      if (shape.kind != ui::Shape::Kind::kText) continue;
      const auto note = static_cast<std::size_t>(middle);
      EXPECT_DOUBLE_EQ(middle, static_cast<double>(note) + 0.5);
      EXPECT_EQ(shape.text, names[note]);
      EXPECT_EQ(black_key[note], shape.text.size() == 2);
      EXPECT_EQ(shape.ink, shape.text.size() == 2 ? ui::Ink::kWhiteKey : ui::Ink::kBlackKey);
      ++found;
    }
    EXPECT_EQ(found, 12);
  }
}

TEST_F(GlobalWindow, SendingTellsTheProgramWhatTheInstrumentHolds) {
  OpenGbl("Hall.gbl");
  Log();
  EXPECT_FALSE(Enabled("mnuGlobalParam"));
  ASSERT_TRUE(Press("frmGbl.CommLoadGbl"));
  ExpectOneBlock("load");
  EXPECT_FALSE(Changed()) << "sending is no change";
  EXPECT_EQ(program.app.core.settings.GlobalSetInInstrument, 1);
  EXPECT_TRUE(Enabled("mnuGlobalParam"));
  EXPECT_EQ(Log(), Lines()) << "no wait text";
}

TEST_F(GlobalWindow, TheModeButtonSendsItsMode) {
  OpenGbl("Hall.gbl");
  Log();
  ASSERT_TRUE(Press("frmGbl.CommGlobal"));
  EXPECT_EQ(Wire(), (Lines{"0 mode 04"}));
  EXPECT_EQ(Text("LabelMode"), "GLOBAL");
}

TEST_F(GlobalWindow, WithoutAnOutputChangesAreKeptAllTheSame) {
  OpenGbl("Hall.gbl");
  Press("mnuDevMIDIOut(0)");
  Log();
  ASSERT_TRUE(SetTo("GblHScroll1(0)", 12));
  EXPECT_EQ(Byte(303), 12);
  EXPECT_EQ(Log(), Lines());
  EXPECT_TRUE(Enabled("mnuGlobalParam"));
  EXPECT_EQ(At(program.app.global.GlobalRecord, 33), 12);
}

TEST_F(GlobalWindow, APortThatFailsIsToldOnceAndTheValuesStay) {
  OpenGbl("Hall.gbl");
  program.midi.Fail("midiOutLongMsg", 11, 0);
  for (int value = 10; value < 20; ++value) ASSERT_TRUE(SetTo("GblHScroll1(0)", value));
  EXPECT_EQ(program.Boxes().size(), 1u);
  EXPECT_EQ(Byte(303), 19);
  EXPECT_TRUE(Changed());
}

// --- The window of what the instrument holds ---

TEST_F(GlobalWindow, OpensOnWhatTheInstrumentHolds) {
  EXPECT_FALSE(Enabled("mnuGlobalParam")) << "nothing was sent yet";
  SendHall();
  ASSERT_TRUE(Press("mnuGlobalParam"));
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Window()->caption(), "Global Parameters");
  const Bytes& image = Window()->window_image();
  EXPECT_EQ(At(image, 1), 14);
  EXPECT_EQ(At(image, 15), 1);
  EXPECT_EQ(image.substr(20, 238), Field("Global Parameters", 238));
  EXPECT_EQ(image.substr(270), GblFile(3));
  EXPECT_EQ(Wire(), Lines());
}

TEST_F(GlobalWindow, ThereIsOneWindowAtATime) {
  SendHall();
  EXPECT_TRUE(Enabled("mnuApriGbl"));
  Press("mnuGlobalParam");
  EXPECT_FALSE(Enabled("mnuApriGbl"));
  EXPECT_TRUE(Enabled("mnuGlobalParam"));
  ChildWindow* first = Window();
  Put("song.arr", ArrFile());
  Open("song.arr");
  EXPECT_NE(program.toolkit.active_child(), first);
  Press("mnuGlobalParam");
  EXPECT_EQ(program.toolkit.active_child(), first) << "it comes to the front";
  EXPECT_EQ(Window(), first);
  Press("frmGbl.CommClose");
  EXPECT_TRUE(Enabled("mnuApriGbl"));
  OpenGbl("Hall.gbl");
  EXPECT_FALSE(Enabled("mnuApriGbl"));
  first = Window();
  Press("mnuGlobalParam");
  EXPECT_EQ(Window(), first) << "a file's window too";
  EXPECT_EQ(first->Kind(), 25);
}

TEST_F(GlobalWindow, WhatTheInstrumentHoldsIsThereAtTheNextStartAndItsWindowComesBack) {
  SendHall();
  Press("mnuGlobalParam");
  Window()->UserPlace({30, 40, 700, 500, ui::WindowState::kNormal}, {690, 480});
  SetTo("GblHScroll1(0)", -7);
  AnswerBox(ui::BoxAnswer::kNo);
  ASSERT_TRUE(program.Quit());
  const std::string config = folder.Get("Zentaline.ini");
  EXPECT_EQ(At(config, 49), 1);
  Bytes block = GblFile(3);
  Set(block, 33, 249);
  EXPECT_EQ(config.substr(29 * 250, 250), block.substr(0, 250));
  EXPECT_EQ(config.substr(30 * 250, 250), block.substr(250) + Zeros(52));
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  ASSERT_NE(next.app.gbl_window, nullptr);
  EXPECT_EQ(next.app.gbl_window->caption(), "Global Parameters");
  EXPECT_EQ(next.app.gbl_window->placement(), (ui::Placement{30, 40, 700, 500, ui::WindowState::kNormal}));
  EXPECT_EQ(next.app.gbl_window->window_image().substr(270), block);
  EXPECT_FALSE(next.Enabled(MenuId::mnuApriGbl));
  EXPECT_TRUE(next.Enabled(MenuId::mnuGlobalParam));
}

// The entry of the window without a file is left alone.
TEST_F(GlobalWindow, TheWindowOfAFileDoesNotComeBack) {
  OpenGbl("Hall.gbl");
  Window()->UserPlace({30, 40, 700, 500, ui::WindowState::kNormal}, {690, 480});
  Press("frmGbl.CommLoadGbl");
  ASSERT_TRUE(program.Quit());
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.app.gbl_window, nullptr);
  EXPECT_TRUE(next.Enabled(MenuId::mnuGlobalParam));
  EXPECT_EQ(next.app.core.FormStates[14], FormState());
}

TEST_F(GlobalWindow, TheWindowOfAFileKeepsItsPlaceForTheRun) {
  OpenGbl("Hall.gbl");
  Window()->UserPlace({30, 40, 700, 500, ui::WindowState::kNormal}, {690, 480});
  Press("frmGbl.CommClose");
  OpenGbl("Hall.gbl");
  EXPECT_EQ(Window()->placement(), (ui::Placement{30, 40, 700, 500, ui::WindowState::kNormal}));
}

// --- Saving ---

TEST_F(GlobalWindow, SavingWritesThe448Bytes) {
  OpenGbl("Hall.gbl");
  SetTo("GblHScroll1(0)", 9);
  Bytes expected = GblFile(3);
  Set(expected, 33, 9);
  EXPECT_TRUE(Enabled("mnuSalva"));
  ASSERT_TRUE(Press("mnuSalva"));
  EXPECT_EQ(folder.Get("Hall.gbl"), expected);
  EXPECT_FALSE(Changed());
  ASSERT_TRUE(Press("mnuChiudi"));
  EXPECT_TRUE(program.Boxes().empty());
}

TEST_F(GlobalWindow, TheMenusOfferToSaveIt) {
  OpenGbl("Hall.gbl");
  EXPECT_TRUE(Enabled("mnuSalva"));
  EXPECT_TRUE(Enabled("mnuSalvaAs"));
  for (const char* entry : {"mnuIngrandisci", "mnuLoadArr", "mnuEdit", "mnuTaglia"})
    EXPECT_FALSE(Enabled(entry)) << entry;
  Press("mnuRdOnly");
  EXPECT_FALSE(Enabled("mnuSalva"));
  EXPECT_TRUE(Enabled("mnuSalvaAs"));
}

TEST_F(GlobalWindow, AFailureKeepsTheWindowChanged) {
  OpenGbl("Hall.gbl");
  SetTo("GblHScroll1(0)", 9);
  program.disk.Fail("write", "EIO");
  Press("mnuSalva");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening Hall.gbl", "Error I/O device"}}));
  EXPECT_TRUE(Changed());
  EXPECT_EQ(folder.Get("Hall.gbl"), GblFile(3));
}

TEST_F(GlobalWindow, SaveAsBeginsWithTheLastDirectoryAndTheFilesName) {
  OpenGbl("Hall.gbl");
  AnswerSave("Other.gbl");
  ASSERT_TRUE(Press("mnuSalvaAs"));
  const ui::FileDialogRequest& dialog = program.toolkit.dialogs.back();
  EXPECT_TRUE(dialog.save);
  EXPECT_EQ(dialog.filter, 5);
  EXPECT_EQ(dialog.directory, folder.Path());
  EXPECT_EQ(dialog.default_extension, "gbl");
  EXPECT_EQ(dialog.name, "Hall.gbl");
  EXPECT_EQ(folder.Get("Other.gbl"), GblFile(3));
  EXPECT_EQ(Window()->caption(), "File Gbl - Other.gbl (1)");
  EXPECT_EQ(program.app.core.RecentFiles[1].path, folder.Path("Other"));
  EXPECT_EQ(program.app.core.RecentFiles[1].type, 5);
}

// What has no file asks for a name also by Save, and is a file from then on.
TEST_F(GlobalWindow, WhatHasNoFileIsSavedUnderANameAndBecomesAFile) {
  SendHall();
  Press("mnuGlobalParam");
  Window()->UserPlace({30, 40, 700, 500, ui::WindowState::kNormal}, {690, 480});
  AnswerSave("New.gbl");
  ASSERT_TRUE(Press("mnuSalva"));
  const ui::FileDialogRequest& dialog = program.toolkit.dialogs.back();
  EXPECT_TRUE(dialog.save);
  EXPECT_EQ(dialog.name, "Global Parameters.gbl");
  EXPECT_EQ(dialog.filter, 5);
  EXPECT_EQ(Window()->Kind(), 25);
  EXPECT_EQ(Window()->caption(), "File Gbl - New.gbl (1)");
  EXPECT_EQ(folder.Get("New.gbl"), GblFile(3));
  EXPECT_FALSE(Enabled("mnuApriGbl"));
  SetTo("GblHScroll1(0)", 1);
  const std::size_t dialogs = program.toolkit.dialogs.size();
  ASSERT_TRUE(Press("mnuSalva"));
  EXPECT_EQ(program.toolkit.dialogs.size(), dialogs) << "now it has a name";
  ASSERT_TRUE(program.Quit());
  TestProgram next(folder);
  ASSERT_TRUE(next.Start());
  EXPECT_EQ(next.app.gbl_window, nullptr) << "a file's window doesn't come back";
}

TEST_F(GlobalWindow, ASaveDialogThatIsCancelledLeavesWhatHasNoFileAsItIs) {
  SendHall();
  Press("mnuGlobalParam");
  SetTo("GblHScroll1(0)", 1);
  Press("mnuSalva");
  EXPECT_EQ(Window()->Kind(), 14);
  EXPECT_TRUE(Changed());
  AnswerBox(ui::BoxAnswer::kYes);
  Press("frmGbl.CommClose");
  ASSERT_NE(Window(), nullptr) << "no name, no closing";
  EXPECT_EQ(Window()->caption(), "Global Parameters");
}

// --- Closing ---

TEST_F(GlobalWindow, ClosingAsksForAChangedFile) {
  OpenGbl("Hall.gbl");
  ASSERT_TRUE(Press("frmGbl.CommClose"));
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(Window(), nullptr);
  OpenGbl("Hall.gbl");
  SetTo("GblHScroll1(0)", 9);
  AnswerBox(ui::BoxAnswer::kCancel);
  Press("frmGbl.CommClose");
  EXPECT_EQ(program.Boxes(), (Boxes{{51, "File Gbl - Hall.gbl (1)", kQuestion}}));
  ASSERT_NE(Window(), nullptr);
  AnswerBox(ui::BoxAnswer::kYes);
  Press("frmGbl.CommClose");
  EXPECT_EQ(Window(), nullptr);
  EXPECT_EQ(At(folder.Get("Hall.gbl"), 33), 9);
  OpenGbl("Hall.gbl");
  SetTo("GblHScroll1(0)", 10);
  AnswerBox(ui::BoxAnswer::kNo);
  Press("frmGbl.CommClose");
  EXPECT_EQ(Window(), nullptr);
  EXPECT_EQ(At(folder.Get("Hall.gbl"), 33), 9);
}

TEST_F(GlobalWindow, AReadOnlyFileChangesInItsWindowAndAtTheInstrumentButIsNotWritten) {
  OpenGbl("Hall.gbl", true);
  EXPECT_EQ(Window()->caption(), "File Gbl - Hall.gbl (1) - Read Only");
  EXPECT_FALSE(Enabled("mnuSalva"));
  EXPECT_TRUE(Enabled("mnuSalvaAs"));
  Log();
  ASSERT_TRUE(SetTo("GblHScroll1(0)", 9));
  EXPECT_EQ(Byte(303), 9);
  ExpectOneBlock("read-only");
  AnswerBox(ui::BoxAnswer::kYes);
  Press("frmGbl.CommClose");
  EXPECT_EQ(program.Boxes(),
            (Boxes{{51, "File Gbl - Hall.gbl (1) - Read Only", kQuestion}, {48, "Hall", "Read only file"}}));
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(folder.Get("Hall.gbl"), GblFile(3));
  AnswerSave("Mine.gbl");
  ASSERT_TRUE(Press("mnuSalvaAs"));
  EXPECT_EQ(At(folder.Get("Mine.gbl"), 33), 9);
  EXPECT_EQ(Window()->caption(), "File Gbl - Mine.gbl (1)") << "a file of one's own";
  EXPECT_FALSE(Window()->ReadOnly());
  ASSERT_TRUE(Press("frmGbl.CommClose"));
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(GlobalWindow, TheFileIsAmongTheRecentOnesAndOpensFromThere) {
  OpenGbl("Hall.gbl", true);
  EXPECT_EQ(program.app.core.RecentFiles[0].path, folder.Path("Hall"));
  EXPECT_EQ(program.app.core.RecentFiles[0].type, 5);
  EXPECT_TRUE(Press("mnuRecentFile(0)"));
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Hall.gbl", "File already open"}}));
  Press("frmGbl.CommClose");
  EXPECT_TRUE(Press("mnuRecentFile(0)"));
  ASSERT_NE(Window(), nullptr);
  EXPECT_TRUE(Window()->ReadOnly());
  Press("frmGbl.CommClose");
  std::filesystem::remove(folder.Path("Hall.gbl"));
  EXPECT_TRUE(Press("mnuRecentFile(0)"));
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening Hall.gbl", "File not found"}}));
}

// --- Bad files ---

TEST_F(GlobalWindow, AFileOfAnotherLengthOrSignatureIsRefused) {
  const std::string thrice = GblFile() + GblFile() + GblFile();
  for (std::size_t length = 1; length <= thrice.size(); length += length < 460 ? 1 : 97) {
    if (length == 448) continue;
    Put("Bad.gbl", thrice.substr(0, length));
    OpenGbl("Bad.gbl");
    EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening Bad.gbl", "Error reading Bad.gbl"}})) << length;
    EXPECT_EQ(Window(), nullptr);
  }
  Put("Bad.gbl", std::string(448, 'x'));
  OpenGbl("Bad.gbl");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening Bad.gbl", "Error reading Bad.gbl"}}));
  Put("Empty.gbl", "");
  OpenGbl("Empty.gbl");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Empty.gbl", "File not found"}}));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("Empty.gbl")));
  Put("Bad.gbl", GblFile() + std::string((1 << 24) - 447, 'x'));
  OpenGbl("Bad.gbl");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening Bad.gbl", "Error reading Bad.gbl"}})) << "longer than any data file";
  Put("Other.txt", GblFile());
  OpenGbl("Other.txt");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Other.txt", "Data format error"}}));
  program.disk.Fail("read", "EIO");
  OpenGbl("Hall.gbl");
  EXPECT_EQ(program.Boxes(), (Boxes{{48, "Opening Hall.gbl", "Error I/O device"}}));
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(Enabled("mnuApriGbl"));
}

TEST_F(GlobalWindow, EachControlTellsWhatItIsInBothLanguages) {
  for (const int language : {1, 2}) {
    ScratchFolder other;
    other.Put("Hall.gbl", GblFile());
    ConfigFile config = ConfigFile::English();
    config.Byte(1, 25, language);
    other.Put("Zentaline.ini", config.bytes);
    TestProgram run(other);
    run.Start();
    run.toolkit.files.push_back({false, other.Path("Hall.gbl"), 4, false});
    ASSERT_TRUE(run.Press(MenuId::mnuApriGbl));
    for (const ui::Control* control : run.app.gbl_window->controls()) {
      EXPECT_NE(control->tool_tip(), "") << control->FullName() << " language " << language;
    }
  }
}

}  // namespace
}  // namespace zentaline::test
