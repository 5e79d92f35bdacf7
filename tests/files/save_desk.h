// The program with an arrangement file to be changed and saved.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/window_image.h"
#include "tests/support/config.h"
#include "tests/support/program.h"

namespace zentaline::test {

using Boxes = std::vector<ShownBox>;

// Four empty styles as the template has them: 224 bytes of header, four entries of 1176.
inline Bytes Template() {
  Bytes file("KORG\x4D\x00\x04\x01", 8);
  file.resize(4928, '\0');
  for (std::size_t entry = 0; entry < 4; ++entry) {
    file[24 + 4 * entry] = '\x98';
    file[25 + 4 * entry] = '\x04';
    file.replace(224 + 1176 * entry, 16, "- empty -       ");
  }
  return file;
}

// The template with a style of this name in its first place.
inline Bytes Styles(const std::string& name) {
  Bytes file = Template();
  std::string field = name;
  field.resize(16, ' ');
  file.replace(224, 16, field);
  return file;
}

class Saving : public ::testing::Test {
 protected:
  Saving() : program(folder) {
    folder.Put("Zentaline.ini", ConfigFile::English().bytes);
    folder.Put("i40Sty", Template());
    EXPECT_TRUE(program.Start());
  }

  std::string Path(const std::string& name) const { return folder.Path(name); }
  bool There(const std::string& name) const { return std::filesystem::exists(Path(name)); }
  void Open(const std::string& name, bool read_only = false) {
    program.OpenArr(Path(name + ".arr"), 1, read_only);
    ASSERT_TRUE(program.Boxes().empty());
  }
  Bytes& Image(int number = 1) { return ImageFor(*program.Arr(number)); }
  // A change of the first record's name, as an editor makes it.
  void Change(int number = 1) {
    PutByte(Image(number), 303, 'Z');
    PutByte(Image(number), 4, 1);
    program.app.main->RefreshMenus();
  }
  static Bytes Changed() { return ArrFile({"Zirst"}); }
  void AnswerSave(const std::string& path, int filter = 1) {
    program.toolkit.files.push_back({false, path, filter, false});
  }
  bool MarkedChanged(int number = 1) { return ByteAt(Image(number), 4) == 1; }

  ScratchFolder folder;
  TestProgram program;
};

}  // namespace zentaline::test
