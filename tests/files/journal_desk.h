// Runs that keep a journal, in a folder with a song and its styles.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/window_image.h"
#include "tests/files/save_desk.h"

namespace zentaline::test {

class Journals : public ::testing::Test {
 protected:
  Journals() {
    folder.Put("Zentaline.ini", ConfigFile::English().bytes);
    folder.Put("i40Sty", Template());
    folder.Put("song.arr", ArrFile({"First", "Second", "Third"}));
    folder.Put("song.sty", Styles("Mine"));
  }

  // A run that keeps a journal, up to the end of its start.
  std::unique_ptr<TestProgram> Run(std::vector<ui::BoxAnswer> answers = {}) {
    auto program = std::make_unique<TestProgram>(folder);
    program->app.KeepJournal();
    for (const ui::BoxAnswer answer : answers) program->toolkit.answers.push_back(answer);
    EXPECT_TRUE(program->Start());
    return program;
  }
  std::string Path(const std::string& name) const { return folder.Path(name); }
  std::vector<std::string> Journals_() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
      const std::string name = entry.path().filename();
      if (name.find(".journal") != std::string::npos) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  // The user gives row `row` another first letter.
  static void Rename(TestProgram& program, int row, char letter, int number = 1) {
    const ui::UserEvent event(program.toolkit);
    ChildWindow& window = *program.Arr(number);
    program.app.edits.PutByte(ImageOf(window), 303 + 164 * static_cast<std::size_t>(row), letter, {"Name", "Row"});
    program.app.edits.Mark(window, kChangedPosition, 1);
    program.app.main->RefreshMenus();
  }
  // A message with all the bytes of a file would tell nothing.
  bool Holds(const std::string& name, const Bytes& content) const { return folder.Get(name) == content; }
  static char Letter(TestProgram& program, int row, int number = 1) {
    return program.Arr(number)->window_image()[302 + 164 * static_cast<std::size_t>(row)];
  }
  const ShownBox Question(int changes, int files) const {
    return {52, "Zentaline",
            "Changes not saved: " + std::to_string(changes) + " in " + std::to_string(files) +
                " files.\nBring them back ?"};
  }

  ScratchFolder folder;
};

}  // namespace zentaline::test
