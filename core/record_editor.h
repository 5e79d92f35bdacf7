// Binds the fields of a record to the controls of a form. A row says which control stands for which field, which
// message tells the instrument of a change, and in what the control departs from its field; one mechanism makes the
// controls ready, shows values in them, and takes what the user does to the record. Adding a parameter to an editor is
// a field, a row, a tool tip and a line of its test.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/edits.h"
#include "record/field.h"
#include "ui/controls.h"

namespace zentaline {

// In what a control departs from its field. Each looks like a slip and is wanted.
enum EditTrait : unsigned {
  kNoTrait = 0,
  kActsInFill = 1U << 0,       // its handler runs while another record is shown, so that the instrument follows
  kSendsShown = 1U << 1,       // the value shown goes out, not the stored one
  kNotStored = 1U << 2,        // the change goes out, the byte stays as it was
  kReplacesByte = 1U << 3,     // a store keeps nothing of the bits beside it
  kStoresRow = 1U << 4,        // the row itself is stored and sent, not the code that reading looks for
  kReadsTwoBits = 1U << 5,     // shown by the two low bits alone
  kReadsFirstRow = 1U << 6,    // shown as its first row, whatever the byte holds
  kReadsUncoded = 1U << 7,     // 255 shows as 0, any other byte as it stands
  kStoresElsewhere = 1U << 9,  // the field is shown alone: where a change goes the form tells
  kReadsAllAbove = 1U << 8,    // shown by all bits of the byte from its own on
};
inline constexpr unsigned kReadsOtherwise = kReadsTwoBits | kReadsFirstRow | kReadsUncoded | kReadsAllAbove;

// What tells the instrument of a change: the id of an arrangement's parameter, or the two numbers of a program's.
struct EditMessage {
  int a = -1;  // none is sent
  int b = 0;
  unsigned silent = 0;        // a bit for each block of which none is sent
  int greatest = 0x7FFFFFFF;  // of the values that are sent

  constexpr bool IsSent() const { return a >= 0; }
  constexpr bool SilentIn(int block) const { return (silent >> static_cast<unsigned>(block) & 1U) != 0; }
};

// How a bar stands: upright ones have their greatest value at the top.
struct EditLook {
  int page = 10;
  bool upright = false;
};

// A line of an editor's table. Of a field that the record has several times, the index and the message are those of the
// first.
struct EditorRow {
  int array;  // of the form's control arrays
  int index;
  const Field* field;
  EditMessage message = {};
  unsigned traits = kNoTrait;
  EditLook look = {};

  constexpr bool Has(EditTrait trait) const { return (traits & trait) != 0; }
};

// What of a row is shown for the raw bytes; kNotShown where a list is left as it was.
int ShownIn(const EditorRow& row, int raw);
// The raw bytes after a store.
int RawAfter(const EditorRow& row, int raw, int shown);
// What goes out, negative below zero.
int SentValue(const EditorRow& row, int shown);
// The same for what the record holds: what the control sent when it stored these raw bytes, or would have sent.
int SentOfRaw(const EditorRow& row, int raw);
// Whether two raw values differ in what is the field's own.
bool Differ(const Field& field, int raw, int other);

// A row with the controls that stand for it.
struct EditorControl {
  const EditorRow* row;
  int block;               // which of the field's blocks, from 0
  std::size_t start;       // position of that block in the record
  std::string_view owner;  // in a musician's words: "VDF EG", "UPPER1"
  ui::Control* control;
  ui::Label* value = nullptr;  // shows the value of a bar
  ui::Label* name = nullptr;   // of a control that doesn't carry its name itself
  int shown = 0;               // what the control showed when it was shown or stored last

  const Field& field() const { return *row->field; }
  std::size_t position() const { return start + field().place.offset; }
};

// What an editor's form does for its controls.
class RecordEditorHost {
 public:
  // The user has changed the control; or a fill has, in a row that acts in it.
  virtual void Edit(EditorControl& control) = 0;
  // What is written beside a control; by its field where the form says nothing else.
  virtual std::string ValueText(const EditorControl& control, int shown) const;

 protected:
  ~RecordEditorHost() = default;
};

class RecordEditor {
 public:
  // The record stands in `target`, and changes through the door.
  RecordEditor(ui::Form& form, RecordEditorHost& host, Edits& edits, const EditTarget& target)
      : form_(form), host_(host), edits_(edits), target_(target) {}
  RecordEditor(const RecordEditor&) = delete;
  RecordEditor& operator=(const RecordEditor&) = delete;

  // Makes the control ready: range, list, caption, handler. Its name stands in a label of its own where `named`.
  EditorControl& Bind(EditorControl bound, bool named = true);
  // Gives a control another row: its range, list and name change, and its value with them, but nothing is raised.
  void Rebind(EditorControl& bound, const EditorRow& row, bool visible = true);

  // Shows the record in all controls, or in one; nothing is raised.
  void Show();
  void Show(EditorControl& bound) { Show(bound, edits_.Read(target_), false); }
  // The same, but rows that act in a fill are shown by their controls' own events, in the order in which they were
  // bound.
  void Fill();
  // The record as it is now is what bars go back to; a fill does the same.
  void Keep();
  void ShowLabel(const EditorControl& bound) const;

  static int Shown(const EditorControl& bound);
  // The value goes into the record by the row. Once the instrument has been told, NoteShown follows.
  void Store(EditorControl& bound, int shown);
  // The control's new value belongs to the action that has changed the record.
  void NoteShown(EditorControl& bound);
  // Shows silently what the control showed at a step; false when it isn't one of these.
  bool ShowAgain(const ui::Control& control, int shown);
  // The controls whose fields differ from what the record was before the step, in the order in which they were bound.
  // It holds until the next call.
  const std::vector<EditorControl*>& Changed(const EditAction& action, std::string_view before);
  const std::vector<EditorControl*>& Changed(std::string_view before);

  std::deque<EditorControl>& controls() { return controls_; }
  EditorControl* Of(const ui::Control& control);

 private:
  void SetUp(EditorControl& bound);
  // "Volume, UPPER1" for who doesn't see where it stands.
  static void SayWhat(const EditorControl& bound);
  void Show(EditorControl& bound, const Bytes& record, bool raises);
  void NotePositions();
  void AddIfChanged(EditorControl& bound, std::string_view before);

  ui::Form& form_;
  RecordEditorHost& host_;
  Edits& edits_;
  EditTarget target_;
  Bytes kept_;  // the record when it was last filled or kept
  std::deque<EditorControl> controls_;
  std::unordered_map<const ui::Control*, EditorControl*> of_;
  std::vector<std::unique_ptr<ui::Label>> names_;
  std::vector<std::size_t> found_;
  std::vector<EditorControl*> changed_;
  std::vector<std::vector<std::size_t>> at_;  // by position of the record: which controls show it
};

}  // namespace zentaline
