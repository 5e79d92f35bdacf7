// The one door through which bytes that can be saved change: the images of the windows behind their control bytes, the
// records under edit, the database, and what the instrument holds of global parameters. A change is noted with what it
// is in a musician's words and with the user's action that made it, so that it can be taken back; with it are noted the
// marks that say that something is changed. The door refuses nothing: whoever comes through it has asked whether the
// file is read-only. An EditListener (core/edit_listener.h) is told of each window that opens, is saved and closes, and
// of each action when the event that made it ends, when it is taken back, brought forth, and leaves the list.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/bytes.h"
#include "core/edit_tally.h"
#include "ui/toolkit.h"

namespace zentaline {

struct Application;
class ChildWindow;
class EditListener;

// Where bytes stand.
struct EditTarget {
  enum class Thing : unsigned char { kImage, kArrEditRecord, kEditRecord, kDatabase };
  Thing thing;
  ChildWindow* window = nullptr;  // of an image

  bool operator==(const EditTarget&) const = default;
};
inline EditTarget ImageOf(ChildWindow& window) {
  return {EditTarget::Thing::kImage, &window};
}
inline constexpr EditTarget kArrRecordUnderEdit{EditTarget::Thing::kArrEditRecord};
inline constexpr EditTarget kPrgRecordUnderEdit{EditTarget::Thing::kEditRecord};
inline constexpr EditTarget kDatabaseImage{EditTarget::Thing::kDatabase};

// What says that something is changed: a control byte of a window's image, or the flag of a record under edit.
struct EditMark {
  EditTarget target;
  std::size_t position = 0;  // of an image

  bool operator==(const EditMark&) const = default;
};

// What a change is: "Volume" of "UPPER1". The first two are English captions that live as long as the program, kept
// apart so that either language can be made of them; `name` is a text of the user's, as of a file, in UTF-8.
struct EditWords {
  std::string_view what;
  std::string_view of = {};
  std::string name = {};
};

// One piece of an action. The new bytes may be more or fewer than the old ones.
struct EditChange {
  EditTarget target;
  std::size_t position;  // counts from 1
  Bytes before;
  Bytes after;
  bool changes_bytes;  // whether they differ

  EditChange(const EditTarget& of, std::size_t at, std::string_view old_bytes, std::string_view new_bytes);
  // Other new bytes, as many as before.
  void TakeNew(std::string_view bytes);
};

struct EditMarkChange {
  EditMark mark;
  int before;
  int after;
};

// What a control showed before an action and after it: the value of a bar, the row of a list, whether a button can be
// used.
struct EditShown {
  ui::Control* control;
  int before;
  int after;
};
// The text of a box, of a label, or of a list's row (-1 where it has none).
struct EditTextShown {
  ui::Control* control;
  int row;
  std::string before;
  std::string after;
};

// What one action of the user's changed, or what a save did.
struct EditAction {
  enum class Kind : unsigned char {
    kUser,
    kSave,       // the place of a save; what it changed by itself, as by dropping styles that nobody uses
    kFailedSave  // of one that was broken off
  };
  std::int64_t number = 0;  // in the order of this run, from 1
  ui::Cause cause = ui::kNoCause;
  Kind kind = Kind::kUser;
  ChildWindow* window = nullptr;  // that was saved
  EditWords words = {};
  std::vector<EditChange> changes = {};  // in their order
  std::vector<EditMarkChange> marks = {};
  std::vector<EditShown> shown = {};
  std::vector<EditTextShown> texts = {};
  bool counted = false;  // in the tallies of what it changed

  // An event that only set marks is noted, but is no action.
  bool ChangesBytes() const;
  // Whether it is a step that can be taken back.
  bool IsStep() const { return kind == Kind::kUser && ChangesBytes(); }
  void Clear();
};

// Actions that lie elsewhere, to be looked at.
class EditActions {
 public:
  using List = std::deque<std::unique_ptr<EditAction>>;
  class Iterator {
   public:
    explicit Iterator(List::const_iterator at) : at_(at) {}
    const EditAction& operator*() const { return **at_; }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    bool operator==(const Iterator&) const = default;

   private:
    List::const_iterator at_;
  };

  explicit EditActions(const List& list) : list_(&list) {}
  std::size_t size() const { return list_->size(); }
  bool empty() const { return list_->empty(); }
  const EditAction& operator[](std::size_t i) const { return *(*list_)[i]; }
  const EditAction& front() const { return *list_->front(); }
  const EditAction& back() const { return *list_->back(); }
  Iterator begin() const { return Iterator(list_->begin()); }
  Iterator end() const { return Iterator(list_->end()); }

 private:
  const List* list_;
};

class Edits {
 public:
  explicit Edits(Application& app) : app_(app) {}
  Edits(const Edits&) = delete;
  Edits& operator=(const Edits&) = delete;

  // The bytes as they stand.
  const Bytes& Read(const EditTarget& target) { return BytesOf(target); }

  // --- What the user does ---

  // Writes bytes behind the control bytes; what reaches beyond the end is left out.
  void Put(const EditTarget& target, std::size_t position, std::string_view bytes, const EditWords& words);
  void PutByte(const EditTarget& target, std::size_t position, int value, const EditWords& words);
  // Lets `change` have the bytes, of any length afterwards, and notes what has become of them; of control bytes only
  // those that are marks. It asks nothing of the door meanwhile. Gives what `change` gives.
  template <typename Function>
  auto Change(const EditTarget& target, const EditWords& words, Function&& change) {
    const Difference difference(*this, target, words);
    return change(BytesOf(target));
  }
  // A control byte that is a mark.
  void Mark(ChildWindow& window, std::size_t position, int value);
  // EditorChanged or ProgramChanged.
  void Mark(const EditTarget& record, bool changed);
  // What a control showed before the change that the running event has made, and shows now. Nothing is noted of an
  // event that has changed no byte.
  void NoteShown(ui::Control& control, int before, int after);
  void NoteShown(ui::Control& control, const std::string& before, const std::string& after, int row = -1);

  // --- What is no action ---

  // The image of a window that opens, and the same while it goes on being put together.
  void TakeImage(ChildWindow& window, Bytes image);
  template <typename Function>
  void Prepare(ChildWindow& window, Function&& make) {
    make(BytesOf(ImageOf(window)));
  }
  // Another record is under edit: what was done to the one before can't be taken back any more, as when it is
  // forgotten. The flag stays as it is.
  void TakeRecord(const EditTarget& record, Bytes bytes);
  void ForgetRecord(const EditTarget& record);
  // The database as it is on the disk, or as the program makes it by itself.
  void TakeDatabase(Bytes image);
  // What the instrument holds of global parameters from now on. Taking back what was sent doesn't take it from there.
  void TakeGlobal(Bytes block);
  // What of an image nobody means to take back: control bytes that are no marks, a bank's channel, the marks of what
  // was copied. And the path.
  void SetAside(ChildWindow& window, std::size_t position, int value);
  void SetAside(ChildWindow& window, std::size_t position, std::string_view bytes);
  void SetPath(ChildWindow& window, std::string_view path);
  // The image as a save has left it, with its path and its marks; `whole` when all was saved.
  void TakeSaved(ChildWindow& window, Bytes image, bool whole);
  // The window has closed; its actions go, and with them what wouldn't fit any more.
  void Closed(ChildWindow& window);
  // The file's own record is another one, which the editor takes over; its actions stay, since the step back or forth
  // that changed the file leads to where they fit.
  void TakeOver(const EditTarget& record, Bytes bytes);
  // The database on the disk is no longer what the actions left.
  void ForgetDatabase();

  // --- The list ---

  // The actions of this run, the oldest first; `standing` of them stand, the others were taken back.
  EditActions actions() {
    NoteWaiting();
    return EditActions(actions_);
  }
  std::size_t standing() {
    NoteWaiting();
    return standing_;
  }
  // Takes the newest entry that stands back, or brings the last one taken back forth: bytes and marks alone, nothing is
  // shown or sent. Null when there is none.
  const EditAction* StepBack();
  const EditAction* StepForward();
  // The step that is taken back next, or brought forth; null when there is none. And how many there are, between two
  // events.
  const EditAction* NextBack();
  const EditAction* NextForward();
  bool NewestIsStep() {
    NoteWaiting();
    return standing_ > 0 && standing_ == actions_.size() && actions_.back()->IsStep();
  }
  int BackCount() const;
  int ForwardCount() const;
  // The marks of what the entry touched say whether it is away from what was saved; StepBack and StepForward alone give
  // them the values that they had.
  void SetTrueMarks(const EditAction& action);
  // Grows with whatever may change what can be taken back.
  std::int64_t changes() {
    NoteWaiting();
    return changes_;
  }
  // No more than so many actions, and no more bytes in them; none at all with 0 of both.
  void SetLimits(std::size_t actions, std::size_t bytes);

  // One listener at most, null for none; core/edit_listener.h says what it is told and when.
  void SetListener(EditListener* listener) { listener_ = listener; }
  // The newest entry doesn't grow any more: what comes next is an action of its own, also in the same event.
  void EndAction();
  // The outermost event, or a timer's handler, has ended.
  void EventEnded();

 private:
  // Notes at its end what has changed since its beginning.
  class Difference {
   public:
    Difference(Edits& edits, const EditTarget& target, const EditWords& words);
    ~Difference();
    Difference(const Difference&) = delete;
    Difference& operator=(const Difference&) = delete;

   private:
    Edits& edits_;
    const EditTarget& target_;
    const EditWords& words_;
    Bytes before_;
  };

  // A few bytes that have changed and are noted a little later, since the instrument hears of them first: with what is
  // noted next, when somebody looks at the list, at the end of the event at the latest.
  struct Waiting {
    static constexpr std::size_t kMost = 4;

    std::size_t length = 0;  // 0 when none wait
    EditTarget target = {};
    std::size_t position = 0;
    std::array<char, kMost> before = {};
    std::array<char, kMost> after = {};
    std::string_view what = {};
    std::string_view of = {};
    ui::Cause cause = ui::kNoCause;
  };
  void NoteWaiting() {
    if (waiting_.length > 0) NoteNow();
  }
  void NoteNow();

  Bytes& BytesOf(const EditTarget& target);
  bool& FlagOf(const EditTarget& record);
  void SetMark(const EditMark& mark, int value);

  // The entry of the cause, of the event that runs, made when there is none yet.
  EditAction& Current(ui::Cause cause);
  EditAction& Add(EditAction::Kind kind, ui::Cause cause);
  // Lets a few bytes wait, if it can; both are of one length.
  void NoteSoon(const EditTarget& target, std::size_t position, std::string_view before, std::string_view after,
                const EditWords& words);
  void NotePiece(const EditTarget& target, std::size_t position, std::string_view before, std::string_view after,
                 const EditWords& words);
  void NotePiece(EditAction& action, const EditTarget& target, std::size_t position, std::string_view before,
                 std::string_view after);
  void NoteMark(const EditMark& mark, int before, int after);
  void NoteSet(const EditMark& mark, bool set);
  void NoteDifference(const EditTarget& target, std::string_view before, const EditWords& words);
  void NoteRuns(const EditTarget& target, std::size_t from, std::string_view before, std::string_view after,
                const EditWords& words);
  void NoteMarks(ChildWindow& window, std::string_view before);

  // The newest entry doesn't grow any more.
  void Settle();
  // Adds `one` to the tallies of what the entry changed.
  void Count(const EditAction& action, int one);
  EditTally* TallyOf(const EditTarget& target, std::size_t position);
  void StayMarked(const EditMark& mark);
  int MarkValue(const EditMark& mark);
  void TallySaved(ChildWindow& window);
  // The entry that takes what is shown; null when the event has changed no byte.
  EditAction* Showing();
  // Tells the listener of the newest entry if it has changed.
  void Tell();
  // What was taken back can't be brought forth: a save that lies there isn't reached any more.
  void LoseForward();
  void LoseUnreached(const EditMark& part);
  void LoseUnreached(const EditAction& gone);

  // Takes out all that touches a target, and what wouldn't fit without it.
  void Drop(const EditTarget& target);
  void DropTakenBack();
  void OldestLeaves();
  EditAction& MakeRoom();

  Application& app_;
  std::deque<std::unique_ptr<EditAction>> actions_;
  std::size_t standing_ = 0;
  std::size_t size_ = 0;  // of the bytes in the list
  std::int64_t last_number_ = 0;
  EditAction* growing_ = nullptr;  // the newest entry that stands, while it can still grow
  std::size_t most_actions_ = 2000;
  std::size_t most_bytes_ = std::size_t{64} << 20;
  std::int64_t changes_ = 0;
  Waiting waiting_;
  bool untold_ = false;         // growing_ has changed since the listener was told
  bool bytes_changed_ = false;  // by the event that runs
  std::vector<EditMark> set_;   // that this event has set, so far without changing a byte
  std::vector<ChildWindow*> opened_;
  EditListener* listener_ = nullptr;
};

}  // namespace zentaline
