// Long sessions at random on every window that there is, and then back and forth through the list of what was changed:
// at each step every image, every record and every mark is what it was when the step was made.
// ZENTALINE_SESSION_STEPS in the environment makes them longer.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "core/application.h"
#include "core/child_window.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "files/clipboard_format.h"
#include "midi/recorder/recorder.h"
#include "tests/support/config.h"
#include "tests/support/memory_disk.h"
#include "tests/ui/monkey.h"

namespace zentaline {
namespace {

constexpr std::size_t kMarkPositions[] = {4, 6, 7, 9, 10, 19};

// What an image holds that can be taken back: what stands behind its prefix without the channel of a bank and the table
// of rows that were copied, and its marks.
Bytes MeantOf(const Bytes& image) {
  Bytes meant = image;
  const int kind = ByteAt(image, 1);
  if (kind == kKindPrg || kind == kKindNewPrg || kind == kKindPcg) PutByte(meant, 286, 0);
  const ItemTable table = ItemTableOf(image);
  PutBytes(meant, table.position, Bytes(21 * static_cast<std::size_t>(table.rows), '\0'));
  meant.erase(0, kWindowPrefixLength);
  for (const std::size_t position : kMarkPositions) meant += static_cast<char>(ByteAt(image, position));
  return meant;
}

// Everything that the list can bring back, as numbers to be compared.
struct Moment {
  std::map<int, std::size_t> images;  // by the number that each window got when it opened
  std::size_t arr_record = 0;
  std::size_t prg_record = 0;
  std::size_t database = 0;
  bool arr_changed = false;
  bool prg_changed = false;
};

using Thing = EditTarget::Thing;

class Session {
 public:
  explicit Session(unsigned seed)
      : console_(ui::ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}),
        monkey_(console_, seed, [this] { return Names(); }),
        app_(console_, recorder_, disk_, "/disk") {
    monkey_.stays = true;
    console_.SetQuestions(monkey_);
    FillDisk();
    recorder_.SetOuts({"Out"});
    EXPECT_TRUE(app_.Start());
    console_.RunChain([this] { return app_.Starting(); });
    app_.main->OpenWhenReady({"/disk/First Steps.arr", "/disk/First Steps.prg", "/disk/Sunday Band.arr"});
  }

  // Back to the oldest step and forth to the newest.
  void WalkThrough() {
    const std::size_t newest = edits().standing();
    while (edits().StepBack() != nullptr) ExpectMoment("back");
    EXPECT_EQ(edits().standing(), 0U);
    while (edits().StepForward() != nullptr) ExpectMoment("forth");
    EXPECT_EQ(edits().standing(), newest);
  }

  // Some steps are taken back for good: something else is done then.
  void TakeBack(int steps) {
    for (int i = 0; i < steps && edits().standing() > 0; ++i) {
      taken_back_.insert(edits().actions()[edits().standing() - 1].number);
      edits().StepBack();
      ExpectMoment("back");
    }
    Look();
  }
  void GoOn(int steps) {
    for (int step = 0; step < steps && !console_.main_closed(); ++step) {
      Act();
      Look();
    }
  }

  bool ended() const { return console_.main_closed(); }

  // How often a moment was compared, and how often a target in one.
  int moments() const { return moments_; }
  int images() const { return images_; }
  int records() const { return records_; }
  std::set<std::string> words;  // of the actions that were seen

 private:
  Edits& edits() { return app_.edits; }

  // Mostly in a window that edits, with a pause now and then, so that not all moves of a bar are one step. The main
  // window's menus lead everywhere, but seldom there.
  void Act() {
    std::vector<ui::Form*> windows;
    std::vector<ui::Form*> editors;
    for (ui::Form* form : console_.forms()) {
      if (form->kind() != ui::FormKind::kChild || !form->Reachable()) continue;
      windows.push_back(form);
      if (form->name().starts_with("frmEdit") || form->name() == "frmGbl") editors.push_back(form);
    }
    if (monkey_.Pick(8) == 0) return console_.Advance(3000);
    if (!editors.empty() && monkey_.Pick(50) != 0) return monkey_.ActIn(OneOf(editors));
    if (windows.empty() || monkey_.Pick(3) == 0) return monkey_.Act();
    ui::Form& window = OneOf(windows);
    auto* list = dynamic_cast<ui::ListBox*>(window.Find("List1"));
    if (list != nullptr && list->rows() > 0 && monkey_.Pick(2) == 0) {
      list->UserDouble(monkey_.Pick(list->rows()));
    } else {
      monkey_.ActIn(window);
    }
  }

  ui::Form& OneOf(const std::vector<ui::Form*>& forms) {
    return *forms[static_cast<std::size_t>(monkey_.Pick(static_cast<int>(forms.size())))];
  }

  // Numbers the windows that have opened, forgets those that have closed, and keeps the moment with the newest step.
  void Look() {
    std::map<ui::Form*, int> open;
    for (ui::Form* form : console_.forms()) {
      if (form->kind() != ui::FormKind::kChild) continue;
      const auto known = open_.find(form);
      open[form] = known != open_.end() ? known->second : ++last_window_;
    }
    open_ = std::move(open);
    const Moment now = Now();
    NoteFloors(now);
    before_ = now;
    moments_of_[Newest()] = now;
  }

  std::int64_t Newest() { return edits().standing() == 0 ? 0 : edits().actions()[edits().standing() - 1].number; }

  Moment Now() {
    const std::hash<std::string_view> hash;
    Moment now;
    for (const auto& [form, number] : open_) {
      now.images[number] = hash(MeantOf(static_cast<ChildWindow*>(form)->window_image()));
    }
    now.arr_record = hash(app_.arrangement.ArrEditRecord);
    now.prg_record = hash(app_.program.EditRecord);
    now.database = hash(app_.arrangement.DBImage);
    now.arr_changed = app_.arrangement.EditorChanged;
    now.prg_changed = app_.program.ProgramChanged;
    return now;
  }

  // What has left the list while it stood leaves its targets as they are: no older moment of theirs comes back. So
  // does taking up a record, or reading the database, which the list knows nothing of.
  void NoteFloors(const Moment& now) {
    std::map<std::int64_t, Seen> seen;
    std::set<int> touched;
    for (const EditAction& action : edits().actions()) {
      words.insert(std::string(action.words.what));
      Seen& each = seen[action.number];
      for (const EditChange& change : action.changes) each.changed.insert(Key(change.target));
      for (const EditMarkChange& mark : action.marks) each.marked.insert(Key(mark.mark.target));
      const auto known = seen_.find(action.number);
      // A new step, or one that has grown.
      if (known == seen_.end() || action.number == Newest()) {
        for (const EditChange& change : action.changes) touched.insert(Key(change.target));
      }
    }
    for (const auto& [number, before] : seen_) {
      const bool gone = !seen.contains(number);
      if (gone && taken_back_.contains(number)) continue;
      for (const int key : before.changed) {
        if (gone) floors_[key] = std::max(floors_[key], number);
      }
      for (const int key : before.marked) {
        if (gone || !seen[number].marked.contains(key))
          floors_[key] = std::max(floors_[key], std::max(number, Newest()));
      }
    }
    seen_ = std::move(seen);
    const auto taken = [&](Thing thing, bool differs) {
      if (differs && !touched.contains(Key({thing}))) floors_[Key({thing})] = Newest();
    };
    taken(Thing::kArrEditRecord, now.arr_record != before_.arr_record);
    taken(Thing::kEditRecord, now.prg_record != before_.prg_record);
    taken(Thing::kDatabase, now.database != before_.database);
  }

  // Windows by their numbers, the others below zero.
  int Key(const EditTarget& target) {
    if (target.thing != Thing::kImage) return -static_cast<int>(target.thing);
    const auto known = open_.find(target.window);
    return known == open_.end() ? 0 : known->second;
  }

  void ExpectMoment(const char* way) {
    const auto kept = moments_of_.find(Newest());
    if (kept == moments_of_.end()) return;
    const Moment& then = kept->second;
    const Moment now = Now();
    const std::string where = std::string(way) + " at step " + std::to_string(Newest());
    const auto holds = [&](int key) {
      const auto floor = floors_.find(key);
      return floor == floors_.end() || Newest() >= floor->second;
    };
    ++moments_;
    for (const auto& [number, image] : now.images) {
      const auto image_then = then.images.find(number);
      if (image_then == then.images.end() || !holds(number)) continue;
      ++images_;
      EXPECT_EQ(image, image_then->second) << where << ", window " << NameOf(number);
    }
    if (holds(Key({Thing::kArrEditRecord}))) {
      ++records_;
      EXPECT_EQ(now.arr_record, then.arr_record) << where;
      EXPECT_EQ(now.arr_changed, then.arr_changed) << where;
    }
    if (holds(Key({Thing::kEditRecord}))) {
      ++records_;
      EXPECT_EQ(now.prg_record, then.prg_record) << where;
      EXPECT_EQ(now.prg_changed, then.prg_changed) << where;
    }
    if (holds(Key({Thing::kDatabase}))) {
      EXPECT_EQ(now.database, then.database) << where;
    }
  }

  std::string NameOf(int number) {
    for (const auto& [form, each] : open_) {
      if (each == number) return form->FullName();
    }
    return "closed";
  }

  void FillDisk() {
    disk_.files["/disk/Zentaline.ini"] = test::ConfigFile::English().bytes;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ZENTALINE_SHARE)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      disk_.files["/disk/" + entry.path().filename().string()] = {std::istreambuf_iterator<char>(file), {}};
    }
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& [name, content] : disk_.files) {
      const std::string ending = name.substr(name.size() - std::min<std::size_t>(name.size(), 4));
      if (ending[0] == '.') names.push_back(name);
    }
    return names;
  }

  struct Seen {
    std::set<int> changed;
    std::set<int> marked;
  };

  test::MemoryDisk disk_;
  RecorderMidi recorder_;
  ui::ConsoleToolkit console_;
  ui::Monkey monkey_;
  Application app_;
  std::map<ui::Form*, int> open_;
  int last_window_ = 0;
  std::map<std::int64_t, Moment> moments_of_;
  std::map<std::int64_t, Seen> seen_;
  std::set<std::int64_t> taken_back_;
  std::map<int, std::int64_t> floors_;  // by target: the oldest step whose moment still comes back
  Moment before_;
  int moments_ = 0;
  int images_ = 0;
  int records_ = 0;
};

constexpr int kStepsBetweenWalks = 100;

int StepsOfASession() {
  const char* const text = std::getenv("ZENTALINE_SESSION_STEPS");
  return text != nullptr ? std::atoi(text) : 1500;
}

class EditSessions : public testing::TestWithParam<unsigned> {};

TEST_P(EditSessions, GoBackAndForthThroughEveryStep) {
  Session session(GetParam());
  for (int step = 0; step < StepsOfASession() && !HasFailure(); step += kStepsBetweenWalks) {
    session.GoOn(kStepsBetweenWalks);
    session.WalkThrough();
    session.TakeBack(5);
  }
  EXPECT_FALSE(session.ended());
  RecordProperty("moments", session.moments());
  RecordProperty("images", session.images());
  RecordProperty("records", session.records());
  EXPECT_GE(session.moments(), 200);
  EXPECT_GE(session.images(), 200);
  EXPECT_GE(session.records(), 100);
  EXPECT_GE(session.words.size(), 10U) << "of different things that were done";
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditSessions, testing::Values(1U, 2U, 3U, 4U, 5U, 6U));

}  // namespace
}  // namespace zentaline
