// The whole program on a desktop of a test's own: boxes, dialogs and modal windows are answered from queues and kept,
// devices come from a recorder, files lie in a folder that goes with the test, and every failure can be provoked.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/faulty_disk.h"
#include "base/posix_disk.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "midi/listening.h"
#include "midi/recorder/recorder.h"
#include "tests/support/edits.h"
#include "tests/support/scratch_folder.h"
#include "ui/console/console_toolkit.h"
#include "ui/console/midi_transcript.h"

namespace zentaline::test {

struct ShownBox {
  int style = 0;
  std::string title;
  std::string text;

  bool operator==(const ShownBox&) const = default;
};

inline void PrintTo(const ShownBox& box, std::ostream* out) {
  *out << box.style << " \"" << box.title << "\" \"" << box.text << "\"";
}

// Time stands still and moves only by Advance. A question without an answer in its queue is cancelled.
class AnsweringToolkit : public ui::ConsoleToolkit {
 public:
  AnsweringToolkit() : ConsoleToolkit(Clock::kVirtual, [this](const std::string& line) { lines.push_back(line); }) {}

  std::deque<ui::BoxAnswer> answers;  // of boxes with more than an OK button
  std::deque<ui::FileDialogAnswer> files;
  std::deque<std::function<void(ui::Form&)>> modals;  // what the user does in the next modal window

  std::vector<ShownBox> boxes;
  std::vector<ui::FileDialogRequest> dialogs;
  std::vector<std::string> lines;  // the transcript

  ui::BoxAnswer MessageBox(ui::BoxStyle style, const std::string& title, const std::string& text) override {
    transcript().Box(style, title, text);
    boxes.push_back({static_cast<int>(style), title, text});
    if (style == ui::BoxStyle::kOk) return ui::BoxAnswer::kOk;
    return Next(answers, style == ui::BoxStyle::kYesNo ? ui::BoxAnswer::kNo : ui::BoxAnswer::kCancel);
  }

  ui::FileDialogAnswer FileDialog(const ui::FileDialogRequest& request) override {
    dialogs.push_back(request);
    if (before_file_answer) before_file_answer();
    return Next(files, ui::FileDialogAnswer());
  }

  // What happens on the disk while the dialog is open.
  std::function<void()> before_file_answer;

  // The printer takes so many texts more and then fails; -1: it works.
  int prints_left = -1;
  int print_ends = 0;  // how many documents were ended

  bool PrintText(int left, int top, const ui::Font& font, const std::string& text) override {
    if (prints_left == 0) return false;
    if (prints_left > 0) --prints_left;
    return ConsoleToolkit::PrintText(left, top, font, text);
  }
  bool EndPrint() override {
    ++print_ends;
    return ConsoleToolkit::EndPrint();
  }

 protected:
  void RunModal(ui::Form& form) override {
    // A window that is opened outside of any event lives as long as it is looked at.
    const ui::UserEvent event(*this);
    const auto act = Next(modals, std::function<void(ui::Form&)>());
    if (act) act(form);
    if (form.open()) form.UserClose();
  }

 private:
  template <typename T>
  static T Next(std::deque<T>& queue, T otherwise) {
    if (queue.empty()) return otherwise;
    T first = std::move(queue.front());
    queue.pop_front();
    return first;
  }
};

// One run of the program. Another one on the same folder is the next start.
class TestProgram {
 public:
  explicit TestProgram(const ScratchFolder& folder) : TestProgram(nullptr, folder.Path()) {}
  // On a disk of the test's own.
  TestProgram(Disk& other, const std::string& directory) : TestProgram(&other, directory) {}

  // Starts, chooses the language (1 or 2) when it is asked for, and waits until the windows of the last run are back.
  bool Start(int language = 2) {
    toolkit.modals.push_front([language](ui::Form& form) { ChooseLanguage(form, language); });
    const bool runs = app.Start();
    toolkit.modals.clear();
    if (runs) toolkit.RunChain([this] { return app.Starting(); });
    return runs;
  }

  static void ChooseLanguage(ui::Form& form, int language) {
    static_cast<ui::OptionButton*>(form.Find("Option1", language - 1))->UserPress();
    static_cast<ui::Button*>(form.Find("CommOK"))->UserPress();
  }

  // As the user does: false when the program refused.
  bool Quit() { return app.main->UserClose(); }
  bool Press(MenuId entry) { return app.main->Menu(entry).UserPress(); }
  bool Enabled(MenuId entry) { return app.main->Menu(entry).Usable(); }

  // Answers the dialog of File, Open Arr with this path.
  void OpenArr(const std::string& path, int filter = 1, bool read_only = false) {
    toolkit.files.push_back({false, path, filter, read_only});
    Press(MenuId::mnuApriArr);
    toolkit.files.clear();
  }

  ChildWindow* Arr(int number) { return app.arr_windows[static_cast<std::size_t>(number)]; }
  // The boxes since the last call.
  std::vector<ShownBox> Boxes() { return std::exchange(toolkit.boxes, {}); }
  std::string Caption(int number) { return Arr(number) == nullptr ? "" : Arr(number)->caption(); }

 private:
  TestProgram(Disk* other, const std::string& directory)
      : listener_(toolkit.transcript()),
        listening_(midi, listener_),
        disk(other != nullptr ? *other : posix_disk_),
        app(toolkit, listening_, disk, directory) {
    midi.SetOuts({"Out A", "Out B"});
    midi.SetIns({"In A", "In B"});
  }

  PosixDisk posix_disk_;

 public:
  AnsweringToolkit toolkit;
  RecorderMidi midi;

 private:
  ui::MidiTranscript listener_;
  ListeningMidi listening_;

 public:
  FaultyDisk disk;
  Application app;
};

// The bytes of an arrangement file by the layout of the instrument, written by hand: the header, and in record 0 to 63
// a name of 16 characters where `names` has one.
inline Bytes ArrFile(const std::vector<std::string>& names = {"First"}) {
  Bytes file(10528, '\0');
  file.replace(0, 7, std::string("KORG\x4D\x00\x03", 7));
  for (std::size_t i = 0; i < names.size() && i < 64; ++i) {
    std::string name = names[i];
    name.resize(16, ' ');
    file.replace(32 + 164 * i, 16, name);
  }
  return file;
}

}  // namespace zentaline::test
