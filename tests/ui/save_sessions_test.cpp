// Sessions at random with saves, failing saves, undo and redo among their steps: at each step every image is what it
// was there, what doesn't count as changed is what the disk holds, what was saved and not changed since counts as
// unchanged, and the questions at the closing agree.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "arrangement/arr_format.h"
#include "core/window_image.h"
#include "files/api.h"
#include "program/prg_format.h"
#include "tests/ui/undo_session.h"

namespace zentaline::test {
namespace {

constexpr std::size_t kMarks[] = {4, 7, 10};

// What a window's file holds, by its kind and what may be attached: extension and bytes.
std::map<std::string, Bytes> FilesIn(const Bytes& image) {
  switch (ByteAt(image, kKindPosition)) {
    case kKindArr:
    case kKindNewArr: {
      std::map<std::string, Bytes> files = {{".arr", image.substr(270, 10528)}};
      if (ByteAt(image, kStyStatePosition) == 2) files[".sty"] = image.substr(42622);
      return files;
    }
    case kKindSty:
    case kKindNewSty:
      return {{".sty", image.substr(669)}};
    case kKindPrg:
    case kKindNewPrg:
      return {{ByteAt(image, kPggPosition) == 1 ? ".pgg" : ".prg", image.substr(270, 30480)}};
    case kKindGbl:
      return {{".gbl", image.substr(270, 448)}};
    default:
      return {};
  }
}

// Whether the disk holds what a window does: but for a bank's channel, and for the blanks that fill styles up which a
// save has cut.
bool IsOnDisk(Bytes file, Bytes on_disk, const std::string& extension) {
  if (extension == ".prg" || extension == ".pgg") {
    PutByte(file, kPrgFileChannelPosition, 0);
    PutByte(on_disk, kPrgFileChannelPosition, 0);
  }
  if (extension == ".sty" && file.size() < on_disk.size()) file.resize(on_disk.size(), ' ');
  return file == on_disk;
}

class SaveSessions : public testing::TestWithParam<std::tuple<SessionKind, unsigned>> {
 protected:
  SaveSessions() : session_(std::get<0>(GetParam()), std::get<1>(GetParam())) {}

  Application& app() { return session_.app(); }
  Edits& edits() { return app().edits; }
  bool HasEditor() const {
    const SessionKind kind = std::get<0>(GetParam());
    return kind == SessionKind::kArrangement || kind == SessionKind::kProgram;
  }

  std::vector<ChildWindow*> Windows() {
    std::vector<ChildWindow*> windows;
    for (ui::Form* form : session_.toolkit().forms()) {
      if (form->kind() != ui::FormKind::kChild) continue;
      auto* window = static_cast<ChildWindow*>(form);
      if (!FilesIn(window->window_image()).empty()) windows.push_back(window);
    }
    return windows;
  }
  static bool Changed(const ChildWindow& window) {
    const Bytes& image = window.window_image();
    // The styles of a new file count as changed from the beginning.
    if (window.Kind() == kKindNewArr) return ByteAt(image, 4) == 1;
    return std::any_of(std::begin(kMarks), std::end(kMarks),
                       [&](std::size_t mark) { return ByteAt(image, mark) == 1; });
  }
  // The newest entry that stands of those that changed the window: while it is the same, the bytes are.
  std::int64_t Version(ChildWindow& window) {
    std::int64_t version = 0;
    for (std::size_t i = 0; i < edits().standing(); ++i) {
      const EditAction& action = edits().actions()[i];
      for (const EditChange& change : action.changes) {
        if (change.target == ImageOf(window) && change.before != change.after) version = action.number;
      }
    }
    return version;
  }
  std::int64_t Newest() {
    const EditAction* next = edits().NextBack();
    return next == nullptr ? 0 : next->number;
  }

  std::map<std::string, std::size_t> Images() {
    std::map<std::string, std::size_t> images;
    for (ChildWindow* window : Windows()) {
      std::size_t hash = 0;
      for (const auto& [extension, bytes] : FilesIn(window->window_image()))
        hash = hash * 31 + std::hash<std::string_view>()(bytes);
      images[window->FullName()] = hash;
    }
    return images;
  }

  Bytes OnDisk(const std::string& path) {
    const auto found = session_.disk().files.find(path);
    return found == session_.disk().files.end() ? Bytes() : found->second;
  }
  void Expect(const std::string& when) {
    const std::string at = when + " at " + std::to_string(Newest());
    for (ChildWindow* window : Windows()) {
      const Bytes& image = window->window_image();
      const std::string name = window->FullName() + " " + at;
      if (window->HasOwnPath() && !Changed(*window)) {
        for (const auto& [extension, bytes] : FilesIn(image)) {
          if (extension == ".sty" && IsCut(*window)) continue;
          const Bytes on_disk = OnDisk(std::string(WindowPath(image)) + extension);
          EXPECT_TRUE(IsOnDisk(bytes, on_disk, extension))
              << name << " counts as saved, and " << extension << " is another";
          ++compared_;
        }
      }
      const auto saved = saved_.find(window);
      if (saved == saved_.end()) continue;
      const bool as_saved = Version(*window) == saved->second && !marked_only_.contains(window);
      if (!as_saved) {
        ++beyond_;
        continue;
      }
      ++as_saved_;
      EXPECT_FALSE(Changed(*window)) << name << " is as it was saved";
    }
    // A global window and one whose channel was chosen can be saved at any time.
    if (auto* front = static_cast<ChildWindow*>(session_.toolkit().active_child());
        front != nullptr && front->HasOwnPath() && CanOnlySaveChanges(*front)) {
      EXPECT_EQ(app().main->Menu(MenuId::mnuSalva).Usable(), Changed(*front)) << front->FullName() << " " << at;
    }
    ExpectRecord(at);
  }
  // Saving arrangements may cut their styles, but never those of the window that shows them too.
  bool IsCut(ChildWindow& window) {
    ChildWindow* same = SameStyles(app(), window);
    return same != nullptr && FilesIn(same->window_image())[".sty"] != FilesIn(window.window_image())[".sty"];
  }
  static bool CanOnlySaveChanges(const ChildWindow& window) {
    const int kind = window.Kind();
    return kind == kKindArr || kind == kKindNewArr || kind == kKindSty || kind == kKindNewSty;
  }
  // What doesn't count as changed of a record is what its file holds.
  void ExpectRecord(const std::string& at) {
    const ui::Form* arr = session_.toolkit().FindForm("frmEditArr");
    if (arr != nullptr && !app().arrangement.EditorChanged) {
      const Bytes& image = app().arr_windows[1]->window_image();
      Bytes with = image;
      ASSERT_EQ(StoreEditRecordBytes(with, app().arrangement.ArrEditRecord), kArrStored);
      EXPECT_TRUE(with.substr(270) == image.substr(270)) << at;
      ++records_;
    }
    const ui::Form* prg = session_.toolkit().FindForm("frmEditPrg");
    if (prg != nullptr && !app().program.ProgramChanged) {
      const Bytes& image = app().prg_windows[1]->window_image();
      Bytes with = image;
      PutEditRecord(with, app().program.EditRecord);
      EXPECT_TRUE(with.substr(270) == image.substr(270)) << at;
      ++records_;
    }
  }

  void Save(ChildWindow& window) {
    const bool fails = session_.Pick(5) == 0 && !HasEditor();
    if (fails) session_.faults().Fail("write", "ENOSPC", 1, session_.Pick(2));
    const bool pressed = session_.Save(window, "Own " + std::to_string(++names_));
    session_.faults().Fail("write", "0");
    if (!pressed) return;
    const bool saved = window.HasOwnPath() && !Changed(window);
    EXPECT_TRUE(saved || fails) << window.FullName();
    if (saved) {
      saved_[&window] = Version(window);
      // What shows the same styles is away from the file wherever steps lead it, until it is saved itself.
      if (ChildWindow* same = SameStyles(app(), window)) saved_.erase(same);
      marked_only_.erase(&window);
      ++saves_;
    }
    moments_[Newest()] = Images();
  }
  void Step() {
    const std::vector<ChildWindow*> windows = Windows();
    switch (session_.Pick(12)) {
      case 0:
        return Save(*windows[static_cast<std::size_t>(session_.Pick(static_cast<int>(windows.size())))]);
      case 1:
      case 2:
        for (int steps = 1 + session_.Pick(6); steps > 0; --steps) session_.Back();
        return;
      case 3:
        for (int steps = 1 + session_.Pick(6); steps > 0; --steps) session_.Forth();
        return;
      case 4:
        if (HasEditor()) return KeepOrDrop();
        [[fallthrough]];
      default:
        ActAndWatch();
    }
  }
  // A record that was marked without being changed marks its window so too when it is kept; then it is saved.
  void KeepOrDrop() {
    const bool keeps = session_.Pick(3) != 0;
    session_.CloseEditor(keeps);
    if (keeps) Save(*Windows().front());
  }
  // Some events set a mark without changing a byte of what it stands for; it stays until the window is saved.
  void ActAndWatch() {
    std::map<std::pair<ChildWindow*, std::size_t>, int> before;
    for (ChildWindow* window : Windows()) {
      for (const std::size_t mark : kMarks) before[{window, mark}] = ByteAt(window->window_image(), mark);
    }
    const std::int64_t newest = Newest();
    session_.Act();
    for (const auto& [place, value] : before) {
      const auto& [window, mark] = place;
      if (value == 1 || ByteAt(window->window_image(), mark) != 1) continue;
      if (!HasChanged(*window, mark, newest)) marked_only_.insert(window);
    }
  }
  // Whether an action behind that one changed what the mark stands for.
  bool HasChanged(ChildWindow& window, std::size_t mark, std::int64_t newest) {
    const int kind = window.Kind();
    const bool parts = kind == kKindArr || kind == kKindNewArr;
    for (std::size_t i = 0; i < edits().standing(); ++i) {
      const EditAction& action = edits().actions()[i];
      if (action.number <= newest) continue;
      for (const EditChange& change : action.changes) {
        if (change.target != ImageOf(window) || change.before == change.after) continue;
        if (!parts || (change.position > 42622) == (mark == 10)) return true;
      }
    }
    return false;
  }

  UndoSession session_;
  std::map<std::int64_t, std::map<std::string, std::size_t>> moments_;
  std::map<ChildWindow*, std::int64_t> saved_;  // the version that was saved last
  std::set<ChildWindow*> marked_only_;
  int names_ = 0;
  int saves_ = 0;
  int compared_ = 0;
  int as_saved_ = 0;
  int beyond_ = 0;
  int records_ = 0;
};

TEST_P(SaveSessions, WhatIsUnchangedIsOnTheDiskAtEveryStep) {
  // New files get their names first; without one nothing is unchanged.
  for (ChildWindow* window : Windows()) {
    if (!window->HasOwnPath()) session_.Save(*window, "New " + std::to_string(++names_));
    if (!Changed(*window)) saved_[window] = Version(*window);
  }
  moments_[Newest()] = Images();
  session_.on_done = [this] { moments_[Newest()] = Images(); };
  for (int i = 0; i < 700 && !HasFailure(); ++i) {
    Step();
    Expect("going on");
  }
  session_.on_done = nullptr;
  const auto same = [&](const char* way) {
    ASSERT_TRUE(moments_.contains(Newest())) << way << " at " << Newest();
    EXPECT_EQ(Images(), moments_[Newest()]) << way << " at " << Newest();
    Expect(way);
  };
  while (session_.Back() && !HasFailure()) same("back");
  while (session_.Forth() && !HasFailure()) same("forth");
  for (int steps = session_.Pick(40); steps > 0 && !HasFailure(); --steps) {
    if (session_.Back()) same("back");
  }
  EXPECT_GT(saves_, 10);
  EXPECT_GT(compared_, 50);
  EXPECT_GT(as_saved_, 50);
  EXPECT_GT(beyond_, 50);
  EXPECT_GT(records_, HasEditor() ? 20 : -1);

  int changed = 0;
  std::string names;
  for (ChildWindow* window : Windows()) {
    changed += Changed(*window) ? 1 : 0;
    if (!Changed(*window)) continue;
    names += " " + window->FullName();
    for (const std::size_t mark : kMarks) names += " " + std::to_string(ByteAt(window->window_image(), mark));
  }
  if (session_.toolkit().FindForm("frmEditArr") != nullptr && app().arrangement.EditorChanged) ++changed;
  if (session_.toolkit().FindForm("frmEditPrg") != nullptr && app().program.ProgramChanged) ++changed;
  session_.toolkit().questions = 0;
  app().main->UserClose();
  EXPECT_EQ(session_.toolkit().questions, changed) << names;
}

// Each file saved as it stands, after anything: nothing is asked.
TEST_P(SaveSessions, AfterASaveOfEachWindowNothingIsAsked) {
  for (int i = 0; i < 150; ++i) Step();
  if (HasEditor()) session_.CloseEditor(true);
  for (ChildWindow* window : Windows()) {
    session_.Save(*window, "Last " + std::to_string(++names_));
  }
  Expect("at the end");
  session_.toolkit().questions = 0;
  app().main->UserClose();
  EXPECT_EQ(session_.toolkit().questions, 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SaveSessions,
                         testing::Combine(testing::Values(SessionKind::kArrangement, SessionKind::kProgram,
                                                          SessionKind::kGlobal, SessionKind::kArrangementFiles,
                                                          SessionKind::kProgramFiles),
                                          testing::Values(1U, 2U, 3U)));

}  // namespace
}  // namespace zentaline::test
