// Runs that end without a word, and what the next one brings back.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/files/journal_desk.h"
#include "tests/program/prg_builder.h"
#include "ui/controls.h"

namespace zentaline::test {

class Recovery : public Journals {
 protected:
  Recovery() { folder.Put("bank.prg", PrgFile()); }

  static void OpenBy(TestProgram& program, MenuId entry, const std::string& path, int filter, bool read_only = false) {
    program.toolkit.files.push_back({false, path, filter, read_only});
    ASSERT_TRUE(program.Press(entry));
    program.toolkit.files.clear();
  }
  static ui::ListBox& List(ChildWindow& window) { return *static_cast<ui::ListBox*>(window.Find("List1")); }
  // Opens the editor on a row of a bank and gives its program another name.
  static ui::Form& RenameProgram(TestProgram& program, int row, const std::string& name) {
    List(*program.app.prg_windows[1]).UserDouble(row);
    program.toolkit.Advance(50);
    ui::Form& editor = *program.toolkit.FindForm("frmEditPrg");
    EXPECT_TRUE(static_cast<ui::TextBox*>(editor.Find("BasText", 0))->UserType(name));
    return editor;
  }
  // The same of an arrangement.
  static ui::Form& RenameArrangement(TestProgram& program, int row, const std::string& name) {
    List(*program.Arr(1)).UserDouble(row);
    program.toolkit.Advance(50);
    ui::Form& editor = *program.toolkit.FindForm("frmEditArr");
    EXPECT_TRUE(static_cast<ui::TextBox*>(editor.Find("Text1", 0))->UserType(name));
    return editor;
  }
  static std::string ProgramName(const Bytes& file, int row) {
    return file.substr(48 + 172 * static_cast<std::size_t>(row), 16);
  }
  static std::string ProgramIn(const ChildWindow& window, int row) {
    return ProgramName(window.window_image().substr(270), row);
  }
  static std::string ArrangementIn(const ChildWindow& window, int row) {
    return window.window_image().substr(302 + 164 * static_cast<std::size_t>(row), 16);
  }
  // The one journal, as a file of its name.
  std::string TheJournal() const { return Journals_().at(0); }
};

}  // namespace zentaline::test
