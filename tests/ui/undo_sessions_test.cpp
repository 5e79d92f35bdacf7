// Sessions of a thousand steps at random in each editor and each kind of window, taken back to their start and brought
// forth again, twice: at every step each image, record and mark is what it was, the instrument has last heard of each
// field what the record holds, and at the start nothing is asked any more.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <tuple>

#include "core/window_image.h"
#include "files/clipboard_format.h"
#include "record/program_places.h"
#include "tests/ui/heard.h"
#include "tests/ui/undo_session.h"

namespace zentaline::test {
namespace {

constexpr std::size_t kMarkPositions[] = {4, 6, 7, 9, 10, 19};

// Without what nobody means to take back: a bank's channel, and the marks of what was copied.
Bytes MeantOf(const Bytes& image) {
  Bytes meant = image;
  const int kind = ByteAt(image, 1);
  if (kind == kKindPrg || kind == kKindNewPrg) PutByte(meant, 286, 0);
  const ItemTable table = ItemTableOf(image);
  PutBytes(meant, table.position, Bytes(21 * static_cast<std::size_t>(table.rows), '\0'));
  meant.erase(0, kWindowPrefixLength);
  return meant;
}

struct Moment {
  std::map<std::string, std::size_t> images;
  std::map<std::string, std::string> marks;
  Bytes arr_record;
  Bytes prg_record;
  std::size_t database = 0;
  bool operator==(const Moment&) const = default;
};

class UndoSessions : public testing::TestWithParam<std::tuple<SessionKind, unsigned>> {
 protected:
  UndoSessions() : kind_(std::get<0>(GetParam())), session_(kind_, std::get<1>(GetParam())) {
    session_.midi().heard = [this](std::string_view bytes) { heard_.Long(bytes); };
    edits().SetListener(&heard_);
    taken_ = Now();
  }
  ~UndoSessions() override { edits().SetListener(nullptr); }

  Edits& edits() { return session_.app().edits; }
  // Looking at a program's pan, at a limit, or at what isn't stored, an edit may mark it without changing a byte.
  bool MarksExactly() const { return kind_ != SessionKind::kProgram && kind_ != SessionKind::kPerformance; }

  std::int64_t Newest() {
    const EditAction* next = edits().NextBack();
    return next == nullptr ? 0 : next->number;
  }
  Moment Now() {
    const std::hash<std::string_view> hash;
    Moment now;
    for (ui::Form* form : session_.toolkit().forms()) {
      if (form->kind() != ui::FormKind::kChild || form->name().starts_with("frmEdit")) continue;
      const Bytes& image = static_cast<ChildWindow*>(form)->window_image();
      if (image.size() <= kWindowPrefixLength) continue;
      now.images[form->FullName()] = hash(MeantOf(image));
      for (const std::size_t position : kMarkPositions) {
        now.marks[form->FullName()] += std::to_string(ByteAt(image, position)) + " ";
      }
    }
    const Application& app = session_.app();
    // Without an editor it is that of the row that was heard last.
    if (kind_ == SessionKind::kArrangement) now.arr_record = app.arrangement.ArrEditRecord;
    if (!MarksExactly()) now.prg_record = app.program.EditRecord;
    now.database = hash(app.arrangement.DBImage);
    if (MarksExactly()) {
      now.marks["arrangement"] = std::to_string(app.arrangement.EditorChanged);
      now.marks["program"] = std::to_string(app.program.ProgramChanged);
    }
    return now;
  }
  std::map<std::string, std::string> Exact(std::map<std::string, std::string> marks) const {
    if (!session_.marked_only()) return marks;
    for (const char* name : {"arrangement", "frmGbl"}) marks.erase(name);
    return marks;
  }
  void ExpectMoment(const char* way) {
    ASSERT_TRUE(moments_.contains(Newest())) << way << " at " << Newest() << ", " << edits().BackCount() << " steps";
    const Moment now = Now();
    const Moment& then = moments_[Newest()];
    EXPECT_EQ(now.images, then.images) << way << " at " << Newest();
    EXPECT_EQ(Exact(now.marks), Exact(then.marks)) << way << " at " << Newest();
    EXPECT_EQ(now.arr_record, then.arr_record) << way << " at " << Newest();
    EXPECT_EQ(now.prg_record, then.prg_record) << way << " at " << Newest();
    EXPECT_EQ(now.database, then.database) << way << " at " << Newest();
    // What doesn't count as changed is as it was taken up.
    const Application& app = session_.app();
    if (kind_ == SessionKind::kArrangement && !app.arrangement.EditorChanged) {
      EXPECT_EQ(now.arr_record, taken_.arr_record);
    }
    if (!MarksExactly() && !app.program.ProgramChanged) {
      EXPECT_EQ(now.prg_record, taken_.prg_record);
    }
    ExpectHeard();
  }

  // --- Of each field that was sent ---

  void ExpectHeard() {
    if (kind_ == SessionKind::kArrangement) ExpectArrHeard();
    if (kind_ == SessionKind::kProgram || kind_ == SessionKind::kPerformance) ExpectPrgHeard();
  }
  void ExpectArrHeard() {
    for (const HeldField& field : HeldByArrangement(session_.app().arrangement.ArrEditRecord)) Expect(field);
  }
  void ExpectPrgHeard() {
    const Bytes& record = session_.app().program.EditRecord;
    for (const HeldField& field : HeldByProgram(record)) Expect(field);
    // The selected oscillator takes a sound, whichever's box it was.
    if (const int* sound = heard_.Of({2, 1, -1})) {
      EXPECT_TRUE(*sound == WordLowFirst(record, program_record::kOsc1Multisound) ||
                  *sound == WordLowFirst(record, program_record::kOsc2Multisound))
          << *sound << " at " << Newest();
    }
  }
  void Expect(const HeldField& field) {
    const int* heard = heard_.Of(field.parameter);
    if (heard == nullptr) return;
    ++fields_;
    EXPECT_EQ(*heard, field.value) << field.name << " at " << Newest();
  }

  SessionKind kind_;
  Heard heard_;
  UndoSession session_;
  std::map<std::int64_t, Moment> moments_;
  Moment taken_;
  int fields_ = 0;
};

TEST_P(UndoSessions, GoBackToTheirStartAndForth) {
  moments_[0] = Now();
  session_.on_done = [this] { moments_[Newest()] = Now(); };
  for (int i = 0; i < 20000 && edits().BackCount() < 1000; ++i) session_.Act();
  session_.on_done = nullptr;
  ASSERT_GE(edits().BackCount(), 1000);
  for (int time = 0; time < 2; ++time) {
    while (session_.Back() && !HasFailure()) ExpectMoment("back");
    if (HasFailure()) return;
    EXPECT_EQ(edits().BackCount(), 0);
    if (time == 1) break;
    while (session_.Forth() && !HasFailure()) ExpectMoment("forth");
    if (HasFailure()) return;
    EXPECT_EQ(edits().ForwardCount(), 0);
  }
  RecordProperty("fields", fields_);
  const bool heard = kind_ == SessionKind::kArrangement || !MarksExactly();
  if (heard) {
    EXPECT_GT(fields_, 10000) << "values that were compared with what was sent";
  }
  // Everything is as it was opened: nothing is asked. A step before that something is.
  const bool asks = std::get<1>(GetParam()) % 2 == 0 && kind_ != SessionKind::kDatabase;
  if (asks) session_.Forth();
  const bool new_files = kind_ == SessionKind::kArrangementFiles || kind_ == SessionKind::kProgramFiles;
  session_.toolkit().questions = 0;
  session_.app().main->UserClose();
  if (!MarksExactly() || session_.marked_only()) return;
  if (asks) {
    EXPECT_GT(session_.toolkit().questions, 0);
  } else if (!new_files) {
    EXPECT_EQ(session_.toolkit().questions, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoSessions,
                         testing::Combine(testing::Values(SessionKind::kArrangement, SessionKind::kProgram,
                                                          SessionKind::kPerformance, SessionKind::kGlobal,
                                                          SessionKind::kArrangementFiles, SessionKind::kProgramFiles,
                                                          SessionKind::kDatabase),
                                          testing::Values(1U, 2U)));

}  // namespace
}  // namespace zentaline::test
