// Long sessions at random on every window that there is, and then back and forth through the list of what was changed:
// at each step every image, every record and every mark is what it was when the step was made. Where chance alone would
// seldom lead, as to a program picked for a part or to rows on their way between two windows, it is helped along.
// ZENTALINE_SESSION_STEPS in the environment makes them longer.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <utility>

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
  Session(unsigned seed, int language)
      : console_(ui::ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}),
        monkey_(console_, seed, [this] { return Names(); }),
        app_(console_, recorder_, disk_, "/disk") {
    monkey_.stays = true;
    console_.SetQuestions(monkey_);
    FillDisk(language);
    recorder_.SetOuts({"Out"});
    EXPECT_TRUE(app_.Start());
    console_.RunChain([this] { return app_.Starting(); });
    app_.main->OpenWhenReady(
        {"/disk/First Steps.arr", "/disk/First Steps.prg", "/disk/Sunday Band.arr", "/disk/First Steps.sty"});
    OpenWindows();
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
    bool of_database = false;
    for (int i = 0; i < steps && edits().standing() > 0; ++i) {
      const EditAction& action = edits().actions()[edits().standing() - 1];
      taken_back_.insert(action.number);
      for (const EditChange& change : action.changes) of_database |= change.target == kDatabaseImage;
      edits().StepBack();
      ExpectMoment("back");
    }
    Look();
    ahead_on_disk_ |= of_database;
  }
  void GoOn(int steps) {
    for (int step = 0; step < steps && !console_.main_closed(); ++step) {
      if (monkey_.Pick(4) == 0) {
        ActOnPurpose();
      } else {
        Act();
      }
      Look();
    }
  }

  bool ended() const { return console_.main_closed(); }

  // How often a moment was compared, and how often a target in one.
  int moments() const { return moments_; }
  int images() const { return images_; }
  int records() const { return records_; }
  // How many actions were done in the windows of a name, and how many are called by a word.
  int done_in(const std::string& form) const { return CountOf(done_in_, form); }
  int called(const std::string& word) const { return CountOf(called_, word); }
  const std::map<std::string, int>& words() const { return called_; }

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
    if (!editors.empty() && monkey_.Pick(50) != 0) {
      ui::Form& editor = OneOf(editors);
      return In(editor, [&] { monkey_.ActIn(editor); });
    }
    if (windows.empty() || monkey_.Pick(3) == 0) return monkey_.Act();
    ui::Form& window = OneOf(windows);
    auto* list = dynamic_cast<ui::ListBox*>(window.Find("List1"));
    In(window, [&] {
      if (list != nullptr && list->rows() > 0 && monkey_.Pick(2) == 0) {
        list->UserDouble(monkey_.Pick(list->rows()));
      } else {
        monkey_.ActIn(window);
      }
    });
  }

  // What the user does in a window: if an action begins by it, it counts for the window.
  template <typename Function>
  void In(const ui::Form& form, Function&& act) {
    const std::string name = form.name();
    const std::int64_t newest = Newest();
    act();
    Look();
    if (Newest() <= newest || edits().standing() == 0) return;
    const EditAction& action = edits().actions()[edits().standing() - 1];
    if (action.kind == EditAction::Kind::kUser && action.ChangesBytes()) ++done_in_[name];
  }
  template <typename Function>
  void InMain(Function&& act) {
    act();
    Look();
  }
  void Press(MenuId entry) {
    InMain([&] { app_.main->Menu(entry).UserPress(); });
  }

  // --- What chance alone would seldom do ---

  void ActOnPurpose() {
    switch (monkey_.Pick(11)) {
      case 0:
        return OpenWindows();
      case 1:
        return PickForAPart();
      case 2:
        return PickASound();
      case 3:
        return PressPerformances();
      case 4:
        return EditAProgram();
      case 5:
        return SelectAnd(app_.arr_windows, MenuId::mnuEdit);
      case 6:
        return ChangeTheDatabase();
      default:
        return MoveRows();
    }
  }

  // Those that are closed come back.
  void OpenWindows() {
    using enum MenuId;
    for (const MenuId entry : {mnuNuovoArr, mnuNuovoSty, mnuNuovoPrg, mnuGlobalParam, mnuWEditDBArr}) {
      if (monkey_.Pick(2) == 0) Press(entry);
    }
    if (app_.prg_windows[1] == nullptr) app_.main->OpenWhenReady({"/disk/First Steps.prg"});
    if (app_.arr_windows[1] == nullptr) app_.main->OpenWhenReady({"/disk/First Steps.arr"});
    Look();
  }

  // A box of the arrangement editor waits for a program or a style, and a bank gives one.
  void PickForAPart() {
    using enum MenuId;
    const bool style = monkey_.Pick(2) == 0;
    if (ui::Form* editor = console_.FindForm("frmEditArr")) {
      const int index = style ? 1 : 2 + 2 * monkey_.Pick(9);
      if (auto* box = static_cast<ui::TextBox*>(editor->Find("Text1", index))) {
        In(*editor, [&] { box->UserMouse({ui::MouseEvent::kDown, 1, 1, false}); });
      }
    }
    const bool second = monkey_.Pick(2) == 0;
    constexpr MenuId kPrograms[] = {mnuWProgA, mnuWProgB, mnuWProgC, mnuWProgD, mnuWProgE};
    if (style) {
      Press(monkey_.Pick(2) == 0 ? mnuStyA : mnuStyB);
    } else {
      Press(second ? (monkey_.Pick(2) == 0 ? mnuDrum : mnuPerc) : kPrograms[monkey_.Pick(5)]);
    }
    const std::string wanted = style ? (second ? "frmStyUN" : "frmStyAB") : (second ? "frmDrum" : "frmPcgAE");
    std::vector<ui::Form*> banks;
    for (ui::Form* form : console_.forms()) {
      if (form->name() == wanted && form->Reachable()) banks.push_back(form);
    }
    if (!banks.empty()) SelectIn(OneOf(banks), "List1", -1);
  }

  void SelectIn(ui::Form& form, const char* name, int index) {
    auto* list = static_cast<ui::ListBox*>(form.Find(name, index));
    if (list == nullptr || list->rows() == 0) return;
    In(form, [&] { list->UserSelect({monkey_.Pick(list->rows())}); });
  }

  // A box of the program editor waits for a sound, and the list of sounds gives one.
  void PickASound() {
    ui::Form* const editor = console_.FindForm("frmEditPrg");
    if (editor == nullptr) return EditAProgram();
    auto* box = static_cast<ui::TextBox*>(editor->Find("BasText", 1 + monkey_.Pick(2)));
    In(*editor, [&] {
      box->UserMouse({ui::MouseEvent::kDown, 1, 1, false});
      box->UserMouse({ui::MouseEvent::kUp, 1, 1, false});
    });
    console_.Advance(20);
    for (int i = 0; i < 3; ++i) {
      if (ui::Form* sounds = console_.FindForm("frmMultisample")) SelectIn(*sounds, "List1", monkey_.Pick(5));
    }
  }

  void PressPerformances() {
    if (console_.FindForm("frmEditPerf") == nullptr) SelectAnd(app_.prg_windows, MenuId::mnuEditPerf);
    for (int i = 0; i < 5; ++i) {
      ui::Form* const editor = console_.FindForm("frmEditPerf");
      if (editor == nullptr) return;
      const char* const arrays[] = {"CommUp", "CommDown", "CommReset"};
      auto* button =
          static_cast<ui::Button*>(editor->Find(arrays[static_cast<std::size_t>(monkey_.Pick(3))], monkey_.Pick(8)));
      In(*editor, [&] { button->UserPress(); });
    }
  }

  void EditAProgram() { SelectAnd(app_.prg_windows, MenuId::mnuEdit); }

  // A row of one of the windows, and then a menu entry.
  template <typename Windows>
  void SelectAnd(const Windows& slots, MenuId entry) {
    std::vector<ui::Form*> windows;
    for (ChildWindow* window : slots) {
      if (window != nullptr && window->Reachable()) windows.push_back(window);
    }
    if (windows.empty()) return;
    SelectIn(OneOf(windows), "List1", -1);
    Press(entry);
  }

  void ChangeTheDatabase() {
    // An arrangement's entry makes it, if that isn't declined.
    if (app_.arr_windows[1] != nullptr && Front(*app_.arr_windows[1])) Press(MenuId::mnui40DBArr);
    console_.Advance(100);
    Press(MenuId::mnuWEditDBArr);
    ui::Form* const database = console_.FindForm("frmEditDBArr");
    if (database == nullptr) return;
    SelectIn(*database, "List1", -1);
    const char* const name = monkey_.Pick(2) == 0 ? "CommDelete" : "CommAddAll";
    auto* button = static_cast<ui::Button*>(database->Find(name));
    In(*database, [&] {
      button->UserPress();
      console_.Advance(100);
    });
  }

  // Rows with something in them are copied or cut, and go to a window that takes them.
  void MoveRows() {
    using enum MenuId;
    ChildWindow* const from = OneWithItems([](ChildWindow&) { return true; });
    if (from == nullptr) return;
    std::vector<int> rows;
    ui::ListBox& list = *from->ItemList();
    const ItemFamily family = ItemTableOf(from->window_image()).family;
    for (int row = 0; row < list.rows(); ++row) {
      if (ShowsItem(family, row, Bytes(list.RowText(row)))) rows.push_back(row);
    }
    if (rows.empty()) return;
    const auto first = static_cast<std::size_t>(monkey_.Pick(static_cast<int>(rows.size())));
    rows.erase(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(first));
    rows.resize(std::min(rows.size(), static_cast<std::size_t>(1 + monkey_.Pick(3))));
    In(*from, [&] { list.UserSelect(rows); });
    if (!Front(*from)) return;
    const MenuId taking = monkey_.Pick(3) == 0 ? mnuTaglia : mnuCopia;
    In(*from, [&] { app_.main->Menu(taking).UserPress(); });
    ChildWindow* const to =
        OneWithItems([&](ChildWindow& each) { return ItemTableOf(each.window_image()).family == family; });
    if (to == nullptr) return;
    SelectIn(*to, "List1", -1);
    if (Front(*to)) In(*to, [&] { app_.main->Menu(mnuIncolla).UserPress(); });
  }

  template <typename Which>
  ChildWindow* OneWithItems(Which&& which) {
    std::vector<ui::Form*> windows;
    for (ui::Form* form : console_.forms()) {
      if (form->kind() != ui::FormKind::kChild || !form->Reachable()) continue;
      auto& window = static_cast<ChildWindow&>(*form);
      if (window.ItemList() != nullptr && which(window)) windows.push_back(form);
    }
    return windows.empty() ? nullptr : &static_cast<ChildWindow&>(OneOf(windows));
  }

  // False when the window is no longer there.
  bool Front(ui::Form& form) {
    const std::vector<ui::Form*> forms = console_.forms();
    if (std::find(forms.begin(), forms.end(), &form) == forms.end() || !form.Reachable()) return false;
    InMain([&] { form.UserActivate(); });
    return true;
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
      const Bytes& image = static_cast<ChildWindow*>(form)->window_image();
      Known& known = known_[number];
      if (known.hash == 0 || known.image != image) known = {image, hash(MeantOf(image))};
      now.images[number] = known.hash;
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
      NoteWords(action);
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
    // What was taken back still stands on the disk, and comes back with the next reading, maybe in one event with a
    // change.
    const bool read = now.database != before_.database;
    taken(Thing::kDatabase, read);
    if (read && std::exchange(ahead_on_disk_, false)) floors_[Key(kDatabaseImage)] = Newest();
  }

  // Every action says what it is, and no zero byte ends that early.
  void NoteWords(const EditAction& action) {
    if (action.kind != EditAction::Kind::kUser || !action.ChangesBytes()) return;
    if (seen_.contains(action.number)) return;
    const EditWords& words = action.words;
    EXPECT_NE(words.what, "") << "action " << action.number;
    for (const std::string_view each : {words.what, words.of, std::string_view(words.name)}) {
      EXPECT_EQ(each.find('\0'), std::string_view::npos) << words.what;
    }
    ++called_[std::string(words.what)];
  }

  static int CountOf(const std::map<std::string, int>& counts, const std::string& name) {
    const auto found = counts.find(name);
    return found == counts.end() ? 0 : found->second;
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

  void FillDisk(int language) {
    test::ConfigFile config = test::ConfigFile::English();
    config.Byte(1, 25, language);
    config.Byte(1, 49, 1);  // the instrument holds global parameters, all zero
    disk_.files["/disk/Zentaline.ini"] = config.bytes;
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

  // Hashing all images anew at every step would take most of the time.
  struct Known {
    Bytes image;
    std::size_t hash = 0;
  };

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
  std::map<int, Known> known_;
  int last_window_ = 0;
  std::map<std::int64_t, Moment> moments_of_;
  std::map<std::int64_t, Seen> seen_;
  std::set<std::int64_t> taken_back_;
  std::map<int, std::int64_t> floors_;  // by target: the oldest step whose moment still comes back
  Moment before_;
  bool ahead_on_disk_ = false;  // the database, of what the program has in memory
  std::map<std::string, int> done_in_;
  std::map<std::string, int> called_;
  int moments_ = 0;
  int images_ = 0;
  int records_ = 0;
};

constexpr int kStepsBetweenWalks = 100;

int StepsOfASession() {
  const char* const text = std::getenv("ZENTALINE_SESSION_STEPS");
  return text != nullptr ? std::atoi(text) : 1500;
}

// Where changes come from.
constexpr const char* kWindows[] = {"frmArrU",    "frmArrNew",   "frmEditArr",     "frmEditDBArr", "frmPrgUN",
                                    "frmEditPrg", "frmEditPerf", "frmMultisample", "frmPcgAE",     "frmDrum",
                                    "frmStyAB",   "frmStyUN",    "frmGbl"};
constexpr const char* kWords[] = {"Cut", "Paste", "Kept", "Sound", "Style"};

class EditSessions : public testing::TestWithParam<unsigned> {};

TEST_P(EditSessions, GoBackAndForthThroughEveryStep) {
  Session session(GetParam(), GetParam() % 2 == 0 ? 1 : 2);
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
  EXPECT_GE(session.words().size(), 40U) << "different things that were done";
  for (const char* window : kWindows) {
    RecordProperty(window, session.done_in(window));
    EXPECT_GT(session.done_in(window), 0) << window;
  }
  for (const char* word : kWords) {
    RecordProperty(word, session.called(word));
    EXPECT_GT(session.called(word), 0) << word;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditSessions, testing::Values(1U, 2U, 3U, 4U, 5U, 6U));

}  // namespace
}  // namespace zentaline
