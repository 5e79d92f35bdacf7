#include "core/configuration.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "tests/support/config.h"
#include "tests/support/memory_disk.h"
#include "tests/support/program.h"

namespace zentaline::test {
namespace {

constexpr char kIni[] = "Zentaline.ini";

std::string Blanks(std::size_t count) {
  return std::string(count, ' ');
}
std::string Zeros(std::size_t count) {
  return std::string(count, '\0');
}

class Configuration : public ::testing::Test {
 protected:
  ScratchFolder folder;

  ConfigFile Stored() const {
    ConfigFile file;
    file.bytes = folder.Get(kIni);
    file.bytes.resize(12500);
    return file;
  }
  // What is stored after a run that began with these bytes and that was ended before any window came back.
  ConfigFile AfterIdleRun(const ConfigFile& before) {
    folder.Put(kIni, before.bytes);
    TestProgram program(folder);
    program.toolkit.modals.push_back([](ui::Form& form) { TestProgram::ChooseLanguage(form, 2); });
    EXPECT_TRUE(program.app.Start());
    EXPECT_TRUE(program.Quit());
    return Stored();
  }
};

TEST_F(Configuration, TheFirstStartWritesTheDefaultsByteByByte) {
  TestProgram program(folder);
  ASSERT_TRUE(program.Start(2));
  const std::string file = folder.Get(kIni);
  ASSERT_EQ(file.size(), 12500u);

  std::string first = Blanks(250);
  const auto put = [&first](std::size_t position, std::initializer_list<int> values) {
    for (const int value : values) first[position++ - 1] = static_cast<char>(value);
  };
  first.replace(0, 9, "Zentaline");
  put(17, {0});
  put(19, {99});
  put(20, {0, 0, 0, 0});
  put(25, {2, 0, 1, 0});
  put(30, {0, 1, 0, 2, 100, 64, 64, 64, 0, 0, 64, 0, 0, 0, 0, 60});
  put(46, {0, 0, 99, 0, 0});
  for (std::size_t entry = 0; entry < 20; ++entry) put(51 + 9 * entry, {0x3E, 0x80, 0x3E, 0x80, 0, 0, 0, 0, 0});
  put(239, {0, 0, 0, 0, 0, 0, 9, 10, 11, 12, 13, 14});
  EXPECT_EQ(HexText(file.substr(0, 250)), HexText(first));

  EXPECT_EQ(file.substr(250, 250 * 30), Zeros(250 * 30)) << "records 2 to 31";
  EXPECT_EQ(file.substr(250 * 31, 250 * 16), Blanks(250 * 16)) << "records 32 to 47";
  EXPECT_EQ(file.substr(250 * 47, 500), Zeros(500)) << "records 48 and 49";
  EXPECT_EQ(file.substr(250 * 49), Blanks(150) + Zeros(100)) << "record 50";
}

TEST_F(Configuration, TheEndOfTheFirstRunStoresEmptyTablesAndTheMainWindowsPlace) {
  TestProgram program(folder);
  ASSERT_TRUE(program.Start(1));
  ASSERT_TRUE(program.Quit());
  const ConfigFile file = Stored();
  EXPECT_EQ(file.At(1, 25), 1);
  // The screen of the test: 1024 by 768.
  EXPECT_EQ(HexText(file.bytes.substr(50, 9)), "3E 80 3E 80 04 00 03 00 00");
  for (const int record : {3, 4}) EXPECT_EQ(file.Record(record), Blanks(238) + Zeros(12)) << record;
  for (int record = 6; record <= 21; ++record) EXPECT_EQ(file.Record(record), Zeros(250)) << record;
  for (int record = 32; record <= 39; ++record) EXPECT_EQ(file.Record(record), Zeros(250)) << record;
  for (int record = 40; record <= 47; ++record) EXPECT_EQ(file.Record(record), Blanks(250)) << record;
  for (const int record : {48, 49}) EXPECT_EQ(file.Record(record), Zeros(250)) << record;
  EXPECT_EQ(file.Record(50), Blanks(150) + Zeros(100));
}

// Every field has a value that is neither its default nor that of another field.
ConfigFile EveryFieldSet(const ScratchFolder& folder) {
  ConfigFile file;
  std::mt19937 random(11);
  for (char& c : file.bytes) c = static_cast<char>(random());
  file.Text(1, 1, "Zentaline");
  for (const int flag : {17, 20, 21, 22, 23, 26, 28, 46, 50}) file.Byte(1, flag, 1);
  file.Byte(1, 27, 0);
  file.Byte(1, 19, 1);
  file.Byte(1, 25, 2);
  for (int i = 0; i < 16; ++i) file.Byte(1, 30 + i, 150 + i);
  file.Byte(1, 47, 3);
  file.Byte(1, 48, 0);
  file.Byte(1, 49, 1);
  const int forms[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 32, 34};
  int position = 51;
  for (const int form : forms) {
    file.Word(1, position, 16000 + form);
    file.Word(1, position + 2, 16000 - 2 * form);
    file.Word(1, position + 4, 500 + form);
    file.Word(1, position + 6, 300 + form);
    // No window comes back by itself: the entries of these are not there yet.
    file.Byte(1, position + 8, form >= 4 && form <= 10 ? 16 * (form + 1) : 0);
    position += 9;
  }
  file.Byte(1, 239, 63);
  for (int i = 0; i < 11; ++i) file.Byte(1, 240 + i, i + 1);
  for (const int record : {3, 4}) file.Blanks(record, 1, 238);
  file.Text(3, 1, "/music/arrangements");
  file.Text(4, 1, "/music/programs with blanks");
  for (int record = 6; record <= 13; ++record) file.Text(record, 1, Zeros(250));
  file.Entry(6, folder.Path("song"), 1, 30, 40, 500, 360);
  for (int i = 0; i < 8; ++i) {
    const std::string n = std::to_string(i);
    file.Entry(14 + i, "/music/programs " + n, 1 + i % 2, -16000 + i, 16000 - i, 65535 - i, 257 + i, i % 3, 200 + i,
               i % 2);
    file.Entry(32 + i, "/music/styles" + n, 2 - i % 2, 100 + i, -i, 400 + i, 300 + i, i % 3);
    file.Recent(i, "/music/recent" + n, i % 6 + 1, i % 2 == 1);
  }
  for (int position2 = 199; position2 <= 250; ++position2) file.Byte(31, position2, 0);
  file.Entry(48, folder.Path("song"), 1, 60, 70, 510, 380);
  file.Entry(49, "/music/bank", 2, 1, 2, 3, 4, 2, 21, 1);
  file.Blanks(50, 1, 150);
  file.Text(50, 1, "song");
  file.Text(50, 51, "bank.pgg");
  file.Text(50, 101, "styles");
  return file;
}

TEST_F(Configuration, EveryFieldComesIntoTheStateByItsPosition) {
  folder.Put("song.arr", ArrFile());
  const ConfigFile file = EveryFieldSet(folder);
  folder.Put(kIni, file.bytes);
  TestProgram program(folder);
  // The windows of the last run are still to come back.
  ASSERT_TRUE(program.app.Start());
  const CoreState& core = program.app.core;
  const MidiState& midi = program.app.midi;
  const Settings& settings = core.settings;
  for (const bool flag : {settings.RdOnly, settings.CaricaStyNuovoArr, settings.CaricaSty, settings.OpenPrgWithArr,
                          settings.CaricaPrg, settings.Add40DBArr, settings.CaricaArr, settings.AutoPrgSel}) {
    EXPECT_TRUE(flag);
  }
  EXPECT_FALSE(settings.VisBarraStato);
  EXPECT_EQ(midi.MidiInDevice, 1);
  EXPECT_EQ(midi.MidiOutDevice, 0);
  EXPECT_TRUE(midi.ThruOn);
  EXPECT_EQ(midi.CurrentMode, 3);
  EXPECT_EQ(core.LanguageCode, 2);
  EXPECT_EQ(core.LanguageOffset, 200);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(settings.Keyboard[static_cast<std::size_t>(i)], 150 + i);
  EXPECT_EQ(settings.GlobalSetInInstrument, 1);
  EXPECT_EQ(settings.LastListIndex, 63);
  EXPECT_EQ(midi.GlobalChannel, 1);
  EXPECT_EQ(midi.ArrChannel, 2);
  // Drum, Percussion, Bass, Accomp 1 to 3, Upper 1, Upper 2, Lower.
  EXPECT_EQ(midi.PartChannel, (std::array<int, 9>{6, 7, 8, 9, 10, 11, 5, 4, 3}));
  for (const int form : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 32, 34}) {
    const FormState& state = core.FormStates[static_cast<std::size_t>(form)];
    EXPECT_EQ(state.left, form);
    EXPECT_EQ(state.top, -2 * form);
    EXPECT_EQ(state.width, 500 + form);
    EXPECT_EQ(state.height, 300 + form);
    EXPECT_EQ(state.state, 0);
    EXPECT_EQ(state.second, form >= 4 && form <= 10 ? form + 1 : 0);
  }
  for (int form = 2; form <= 38; ++form) {
    const FormState& state = core.FormStates[static_cast<std::size_t>(form)];
    const int position = 26 + 4 * (form - 2);
    EXPECT_EQ(state.large_width, 256 * file.At(2, position) + file.At(2, position + 1)) << form;
    EXPECT_EQ(state.large_height, 256 * file.At(2, position + 2) + file.At(2, position + 3)) << form;
  }
  EXPECT_EQ(program.app.files.LastArrDirectory, "/music/arrangements");
  EXPECT_EQ(program.app.files.LastPrgDirectory, "/music/programs with blanks");
  EXPECT_EQ(core.ArrWindows[1], (WindowRecord{folder.Path("song"), 1, 0, 30, 40, 500, 360, 0, 0}));
  EXPECT_EQ(core.ArrWindows[9], (WindowRecord{folder.Path("song"), 1, 0, 60, 70, 510, 380, 0, 0}));
  EXPECT_EQ(core.PrgWindows[3], (WindowRecord{"/music/programs 2", 1, 202, -15998, 15998, 65533, 259, 2, 0}));
  EXPECT_EQ(core.PrgWindows[9], (WindowRecord{"/music/bank", 2, 21, 1, 2, 3, 4, 2, 1}));
  EXPECT_EQ(core.StyWindows[8], (WindowRecord{"/music/styles7", 1, 0, 107, -7, 407, 307, 1, 0}));
  EXPECT_EQ(core.RecentFiles[5], (RecentFile{"/music/recent5", 6, true}));
  EXPECT_EQ(core.RecentFiles[6], (RecentFile{"/music/recent6", 1, false}));
  EXPECT_EQ(program.app.global.GlobalRecord, file.Record(30) + file.Record(31).substr(0, 198));
  EXPECT_EQ(program.app.arrangement.ArrInInstrument, "song");
  EXPECT_EQ(program.app.program.PrgInInstrument, "bank.pgg");
  EXPECT_EQ(program.app.style.StyInInstrument, "styles");
}

TEST_F(Configuration, ARunThatEndsBeforeItsWindowsAreBackKeepsEveryByteOfTheFile) {
  folder.Put("song.arr", ArrFile());
  const ConfigFile before = EveryFieldSet(folder);
  const ConfigFile after = AfterIdleRun(before);
  ASSERT_EQ(folder.Get(kIni).size(), 12500u);
  for (int record = 1; record <= 50; ++record) {
    EXPECT_EQ(HexText(after.Record(record)), HexText(before.Record(record))) << "record " << record;
  }
}

TEST_F(Configuration, TheGlobalRecordIsLeftAloneUnlessTheInstrumentHoldsOne) {
  ConfigFile before = ConfigFile::English();
  before.Text(30, 1, "kept as it was");
  before.Text(31, 190, "beyond the record's end");
  const ConfigFile after = AfterIdleRun(before);
  EXPECT_EQ(after.Record(30), before.Record(30));
  EXPECT_EQ(after.Record(31), before.Record(31));
}

TEST_F(Configuration, BytesBehindTheFiftyRecordsStay) {
  ConfigFile before = ConfigFile::English();
  before.bytes += "a longer file";
  folder.Put(kIni, before.bytes);
  TestProgram program(folder);
  ASSERT_TRUE(program.Start());
  EXPECT_TRUE(program.toolkit.modals.empty());
  ASSERT_TRUE(program.Quit());
  EXPECT_EQ(folder.Get(kIni).substr(12500), "a longer file");
}

TEST_F(Configuration, PlacesAreStoredWithinTheirLimitsAndComeBack) {
  folder.Put("song.arr", ArrFile());
  folder.Put(kIni, ConfigFile::English().bytes);
  TestProgram program(folder);
  ASSERT_TRUE(program.Start());
  program.OpenArr(folder.Path("song.arr"));
  ASSERT_NE(program.Arr(1), nullptr);
  WindowRecord& record = program.app.core.ArrWindows[1];
  const auto store = [&](int left, int top, int width, int height) {
    record.left = left;
    record.top = top;
    record.width = width;
    record.height = height;
    Bytes file(12500, '\0');
    PutConfiguration(program.app, file);
    ConfigFile stored;
    stored.bytes = file;
    const auto word = [&stored](int position) { return 256 * stored.At(6, position) + stored.At(6, position + 1); };
    return std::array<int, 4>{word(243), word(245), word(239), word(249)};
  };
  EXPECT_EQ(store(0, 0, 1, 1), (std::array<int, 4>{16000, 16000, 1, 1}));
  EXPECT_EQ(store(-16000, -16000, 65535, 65535), (std::array<int, 4>{0, 0, 65535, 65535}));
  EXPECT_EQ(store(-16001, -16001, 65536, 65536), (std::array<int, 4>{0, 0, 65535, 65535}));
  EXPECT_EQ(store(16000, 16000, -1, -1), (std::array<int, 4>{32000, 32000, 0, 0}));
  EXPECT_EQ(store(16001, 70000, 300, 400), (std::array<int, 4>{32000, 32000, 300, 400}));
}

TEST_F(Configuration, PathsOf238BytesFillTheirFieldAndComeBackWhole) {
  const std::string path = "/" + std::string(237, 'x');
  ConfigFile before = ConfigFile::English();
  before.Entry(14, path, 1, 0, 0, 100, 100);
  before.Recent(0, path, 3, false);
  before.Text(3, 1, path);
  before.Blanks(4, 1, 238);
  const ConfigFile after = AfterIdleRun(before);
  for (const int record : {3, 4, 14, 40}) EXPECT_EQ(HexText(after.Record(record)), HexText(before.Record(record)));
}

TEST_F(Configuration, NamesAreBytesOfAnyValue) {
  ConfigFile before = ConfigFile::English();
  std::string name =
      "/m\xFC"
      "sica/";
  for (int byte = 128; byte <= 255; ++byte) name += static_cast<char>(byte);
  before.Entry(32, name, 1, 0, 0, 100, 100);
  before.Recent(7, name, 2, true);
  const ConfigFile after = AfterIdleRun(before);
  EXPECT_EQ(HexText(after.Record(32)), HexText(before.Record(32)));
  EXPECT_EQ(HexText(after.Record(47)), HexText(before.Record(47)));
}

TEST_F(Configuration, ADeviceAbove19IsNeverTakenNorStored) {
  for (const int device : {0, 1, 18, 19, 20, 98, 99, 100, 255}) {
    ConfigFile before = ConfigFile::English();
    before.Byte(1, 19, device);
    before.Byte(1, 48, device);
    const ConfigFile after = AfterIdleRun(before);
    const int expected = device <= 19 ? device : 99;
    EXPECT_EQ(after.At(1, 19), expected) << device;
    EXPECT_EQ(after.At(1, 48), expected) << device;
  }
}

// --- Files that are none ---

struct OtherContent {
  const char* what;
  std::string bytes;
};

TEST_F(Configuration, AFileOfOtherContentOrShorterLengthGivesTheDefaults) {
  const std::string good = ConfigFile::English().bytes;
  std::string other_case = good;
  other_case[0] = 'z';
  std::string last_letter = good;
  last_letter[8] = 'E';
  const OtherContent contents[] = {
      {"empty", ""},
      {"one byte", "Z"},
      {"the signature alone", "Zentaline"},
      {"one byte short of a record", good.substr(0, 249)},
      {"one record", good.substr(0, 250)},
      {"one byte short", good.substr(0, 12499)},
      {"other case", other_case},
      {"another last letter", last_letter},
      {"zero bytes", Zeros(12500)},
      {"text", std::string(20000, 'x')},
      {"very long", good + Zeros(12500 * 20)},
  };
  for (const OtherContent& content : contents) {
    folder.Put(kIni, content.bytes);
    TestProgram program(folder);
    bool asked = false;
    program.toolkit.modals.push_back([&asked](ui::Form& form) {
      asked = form.name() == "frmLingua";
      TestProgram::ChooseLanguage(form, 2);
    });
    EXPECT_TRUE(program.app.Start()) << content.what;
    EXPECT_TRUE(asked) << content.what;
    EXPECT_EQ(folder.Get(kIni).size(), 12500u) << content.what;
    EXPECT_EQ(folder.Get(kIni)[249], 14) << content.what;
    EXPECT_TRUE(program.Quit()) << content.what;
  }
}

TEST_F(Configuration, ALanguageThatIsNoneIsAskedForAndTheOtherSettingsStay) {
  for (const int language : {0, 3, 32, 255}) {
    ConfigFile before = ConfigFile::English();
    before.Byte(1, 25, language);
    before.Byte(1, 28, 1);
    const ConfigFile after = AfterIdleRun(before);
    EXPECT_EQ(after.At(1, 25), 2);
    EXPECT_EQ(after.At(1, 28), 1);
  }
}

TEST_F(Configuration, CancellingTheLanguageEndsTheProgramAndLeavesNoFile) {
  const std::function<void(ui::Form&)> ways[] = {
      [](ui::Form& form) { form.UserClose(); },
      [](ui::Form& form) {
        static_cast<ui::OptionButton*>(form.Find("Option1", 0))->UserPress();
        form.UserClose();
      },
      // The button does nothing until a language is chosen.
      [](ui::Form& form) {
        static_cast<ui::Button*>(form.Find("CommOK"))->UserPress();
        EXPECT_TRUE(form.open());
      },
  };
  for (const auto& way : ways) {
    TestProgram program(folder);
    program.toolkit.modals.push_back(way);
    EXPECT_FALSE(program.app.Start());
    EXPECT_TRUE(program.app.core.StopRun);
    EXPECT_EQ(program.app.main, nullptr);
    EXPECT_TRUE(program.Boxes().empty());
    EXPECT_EQ(folder.Count(), 0);
  }
}

TEST_F(Configuration, TheProgramLooksForAllItsFilesInTheDirectoryItWasStartedIn) {
  const std::string name = folder.Path();
  TestProgram program(folder);
  ASSERT_TRUE(program.Start(1));
  const CoreState& core = program.app.core;
  EXPECT_EQ(core.ConfigFile, name + "/Zentaline.ini");
  EXPECT_EQ(core.InternalArrA, name + "/i40ArrA");
  EXPECT_EQ(core.InternalArrB, name + "/i40ArrB");
  EXPECT_EQ(core.InternalPrg, name + "/i40Prg");
  EXPECT_EQ(core.InternalSty, name + "/i40Sty");
  EXPECT_EQ(core.GuideFile, name + "/Zentaline-GuidaUtente.txt");
  EXPECT_EQ(core.NotebookFile, name + "/Zentaline-Notebook.txt");
  EXPECT_EQ(core.MultisampleFile, name + "/i40Multisample");
  EXPECT_EQ(core.DatabaseDir, name + "/i40DBArr");
  ASSERT_TRUE(program.Quit());
  TestProgram english(folder);
  folder.Put(kIni, ConfigFile::English().bytes);
  ASSERT_TRUE(english.Start());
  EXPECT_EQ(english.app.core.GuideFile, name + "/Zentaline-UserGuide.txt");
}

// --- A disk that fails ---

TEST_F(Configuration, AFileThatCannotBeOpenedShowsFileNotFoundAndEndsTheProgram) {
  folder.Put(kIni, ConfigFile::English().bytes);
  for (const char* error : {"EACCES", "EISDIR", "ENOTDIR", "EMFILE"}) {
    TestProgram program(folder);
    program.disk.Fail("read", error);
    EXPECT_FALSE(program.Start()) << error;
    EXPECT_TRUE(program.app.core.StopRun) << error;
    // No language is known yet, so the box speaks the table's first.
    EXPECT_EQ(program.Boxes(), (std::vector<ShownBox>{{48, "Apertura di Zentaline.ini", "File assente"}})) << error;
    EXPECT_EQ(folder.Get(kIni), ConfigFile::English().bytes) << error;
  }
}

TEST_F(Configuration, AReadErrorShowsItsOwnBoxAndEndsTheProgram) {
  folder.Put(kIni, ConfigFile::English().bytes);
  TestProgram program(folder);
  program.disk.Fail("read", "EIO");
  EXPECT_FALSE(program.Start());
  EXPECT_EQ(program.Boxes(), (std::vector<ShownBox>{{48, "Apertura di Zentaline.ini", "Errore I/O periferica"}}));
  EXPECT_EQ(folder.Get(kIni), ConfigFile::English().bytes);
}

TEST_F(Configuration, AFolderOfItsNameEndsTheProgramAndStays) {
  std::filesystem::create_directory(folder.Path(kIni));
  TestProgram program(folder);
  EXPECT_FALSE(program.Start());
  EXPECT_EQ(program.Boxes().size(), 1u);
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path(kIni)));
}

TEST_F(Configuration, AFirstStartThatCannotWriteShowsTheErrorAndEnds) {
  const std::pair<const char*, const char*> errors[] = {
      {"ENOSPC", "Disk full"},     {"EACCES", "Read only file"}, {"EROFS", "Read only file"},
      {"EIO", "Error I/O device"}, {"ENOENT", "Path not found"},
  };
  for (const auto& [error, text] : errors) {
    TestProgram program(folder);
    program.disk.Fail("write", error);
    EXPECT_FALSE(program.Start(2)) << error;
    EXPECT_TRUE(program.app.core.StopRun);
    EXPECT_EQ(program.Boxes(), (std::vector<ShownBox>{{48, "Opening Zentaline.ini", text}})) << error;
    EXPECT_EQ(folder.Count(), 0) << error;
  }
}

TEST_F(Configuration, AnErrorAtTheEndIsShownAndTheOldFileStaysWhole) {
  const std::string before = ConfigFile::English().bytes;
  const std::pair<const char*, const char*> errors[] = {
      {"ENOSPC", "Disk full"}, {"EACCES", "Read only file"}, {"EIO", "Error I/O device"}};
  for (const char* operation : {"read", "write"}) {
    for (const auto& [error, text] : errors) {
      folder.Put(kIni, before);
      TestProgram program(folder);
      ASSERT_TRUE(program.Start());
      program.Press(MenuId::mnuRdOnly);
      program.disk.Fail(operation, error);
      EXPECT_TRUE(program.Quit()) << operation << error;
      EXPECT_EQ(program.Boxes(), (std::vector<ShownBox>{{48, "Saving Zentaline.ini", text}})) << operation << error;
      EXPECT_EQ(program.app.main, nullptr);
      EXPECT_EQ(folder.Get(kIni), before);
    }
  }
}

TEST_F(Configuration, NothingIsWrittenDuringARun) {
  folder.Put("song.arr", ArrFile());
  folder.Put(kIni, ConfigFile::English().bytes);
  TestProgram program(folder);
  ASSERT_TRUE(program.Start());
  program.Press(MenuId::mnuCaricaArr);
  program.Press(MenuId::mnuItaliano);
  program.OpenArr(folder.Path("song.arr"));
  program.Press(MenuId::mnuChiudi);
  EXPECT_EQ(folder.Get(kIni), ConfigFile::English().bytes);
}

TEST_F(Configuration, AMultisampleListThatCannotBeReadIsReportedAndTheProgramStarts) {
  folder.Put(kIni, ConfigFile::English().bytes);
  std::filesystem::create_directory(folder.Path("i40Multisample"));
  TestProgram program(folder);
  EXPECT_TRUE(program.Start());
  EXPECT_EQ(program.Boxes(), (std::vector<ShownBox>{{48, "Opening i40Multisample", "Read only file"}}));
}

TEST_F(Configuration, AMultisampleListIsTakenWholeAndItsAbsenceIsSilent) {
  folder.Put(kIni, ConfigFile::English().bytes);
  {
    TestProgram program(folder);
    ASSERT_TRUE(program.Start());
    EXPECT_TRUE(program.Boxes().empty());
    EXPECT_TRUE(program.app.core.MultisampleImage.empty());
  }
  folder.Put("i40Multisample", std::string(7785, 'm'));
  TestProgram program(folder);
  ASSERT_TRUE(program.Start());
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(program.app.core.MultisampleImage, std::string(7785, 'm'));
}

TEST_F(Configuration, OfALongerMultisampleListTheFirstRecordsAreTaken) {
  folder.Put(kIni, ConfigFile::English().bytes);
  folder.Put("i40Multisample", std::string(7785, 'm') + "and more");
  TestProgram program(folder);
  ASSERT_TRUE(program.Start());
  EXPECT_TRUE(program.Boxes().empty());
  EXPECT_EQ(program.app.core.MultisampleImage, std::string(7785, 'm'));
}

// --- Damage ---

// A configuration in which every table has something that damage can hit.
ConfigFile Full(const std::string& directory) {
  ConfigFile file = ConfigFile::English();
  file.Byte(1, 19, 1);
  file.Byte(1, 48, 1);
  file.Byte(1, 46, 1);
  for (int i = 0; i < 8; ++i) {
    const std::string path = directory + "/song" + std::to_string(i % 2);
    file.Entry(6 + i, path, 1 + i % 2, 10 * i, 10 * i, 480, 360, i % 3);
    file.Entry(14 + i, path, 1, 0, 0, 480, 360);
    file.Entry(32 + i, path, 1, 0, 0, 480, 360);
    file.Recent(i, path, 1 + i % 6, false);
  }
  file.Entry(48, directory + "/song0", 1, 0, 0, 480, 360);
  file.Entry(49, directory + "/song0", 1, 0, 0, 480, 360, 0, 21);
  file.Text(50, 1, "song0");
  return file;
}

void ExpectStoredDevicesAreUsable(const Bytes& file, const std::string& what) {
  ASSERT_GE(file.size(), 12500u) << what;
  for (const int position : {19, 48}) {
    const int device = ByteAt(file, static_cast<std::size_t>(position));
    EXPECT_TRUE(device <= 19 || device == 99) << what << ": position " << position << " holds " << device;
  }
}

// Starts the program on the damaged file and ends it; a further run starts on what the one before it wrote.
void Survive(MemoryDisk& disk, const std::string& damaged, const std::string& what, int runs = 1) {
  disk.files["/disk/Zentaline.ini"] = damaged;
  for (int run = 1; run <= runs; ++run) {
    TestProgram program(disk, "/disk");
    ASSERT_TRUE(program.Start()) << what;
    ASSERT_TRUE(program.Quit()) << what;
    ExpectStoredDevicesAreUsable(disk.files["/disk/Zentaline.ini"], what);
  }
}

class DamagedConfiguration : public ::testing::TestWithParam<int> {};

// The records whose bytes have a meaning of their own each.
INSTANTIATE_TEST_SUITE_P(Records, DamagedConfiguration, ::testing::Values(1, 2, 6, 14, 32, 40, 48, 50));

TEST_P(DamagedConfiguration, EachByteOfTheRecordMayHoldAnything) {
  MemoryDisk disk;
  disk.files["/disk/song0.arr"] = ArrFile();
  disk.files["/disk/song1.arr"] = ArrFile();
  const ConfigFile good = Full("/disk");
  std::mt19937 random(static_cast<unsigned>(GetParam()));
  for (int position = 1; position <= 250; ++position) {
    for (const int value : {0, 255, static_cast<int>(random() & 255)}) {
      ConfigFile damaged = good;
      damaged.Byte(GetParam(), position, value);
      Survive(disk, damaged.bytes, "position " + std::to_string(position) + " value " + std::to_string(value));
    }
  }
}

TEST(Damage, EachOfThe12500BytesIsTakenAndStoredWithoutHarm) {
  MemoryDisk disk;
  const ConfigFile good = Full("/disk");
  std::mt19937 random(5);
  TestProgram program(disk, "/disk");
  for (std::size_t i = 0; i < good.bytes.size(); ++i) {
    for (const int value : {0, 255, static_cast<int>(random() & 255)}) {
      Bytes damaged = good.bytes;
      damaged[i] = static_cast<char>(value);
      TakeConfiguration(program.app, damaged);
      Bytes stored = damaged;
      PutConfiguration(program.app, stored);
      ExpectStoredDevicesAreUsable(stored, std::to_string(i));
      // What was stored once is stored the same way again.
      TakeConfiguration(program.app, stored);
      Bytes again = stored;
      PutConfiguration(program.app, again);
      ASSERT_EQ(again, stored) << "offset " << i << " value " << value;
    }
  }
}

TEST(Damage, BytesAtRandomBehindTheSignatureStartToo) {
  MemoryDisk disk;
  disk.files["/disk/song0.arr"] = ArrFile();
  std::mt19937 random(7);
  for (int round = 0; round < 100; ++round) {
    std::string bytes(12500, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    bytes.replace(0, 9, "Zentaline");
    Survive(disk, bytes, "round " + std::to_string(round), 2);
  }
}

}  // namespace
}  // namespace zentaline::test
