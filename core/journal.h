// The journal of this run: each action, and what becomes of it, is on the disk within a second, so that a crash takes
// nothing away that the user has done. Its bytes are core/journal_format.h's.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/growing_file.h"
#include "core/edit_listener.h"
#include "core/edits.h"
#include "core/journal_format.h"

namespace zentaline {

struct Application;
class ChildWindow;

class Journal : public EditListener {
 public:
  explicit Journal(Application& app) : app_(app) {}
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;
  virtual ~Journal() = default;

  void Opened(ChildWindow&) override {}
  void Noted(const EditAction& action) override;
  void TakenBack(const EditAction& action) override;
  void BroughtForth(const EditAction& action) override;
  void Left(const EditAction&) override {}
  void Saved(ChildWindow& window, bool whole) override;
  void Closed(ChildWindow& window) override;
  void Taken(const EditTarget& record) override;

  // The user's event has ended: what it left of marks is written, the journal is rewritten when it has grown too large,
  // and a failure is told, once a run.
  void EventEnded();
  // All of the window is nowhere but here and in memory.
  void Adopt(ChildWindow& window);
  // Waits until all is on the disk; false when it can't be held.
  bool Flush();
  // The regular end, at which all was saved or given up.
  void Discard();

  // Words of another run, which last as long as this one.
  std::string_view Word(const std::string& word) { return *words_.insert(word).first; }
  // Journals that were put away before this run.
  void NoteOld(std::string path) { old_.push_back(std::move(path)); }
  const std::vector<std::string>& old() const { return old_; }

  // The journal grows to so many bytes before it is rewritten as what remains of it.
  void SetLimit(std::size_t bytes) { limit_ = bytes; }

 private:
  // What is known of a window whose content the journal holds. It is another one when something else than an action has
  // changed it.
  struct Known {
    std::uint32_t id;
    std::size_t size;
    int styles;
    int programs;
  };
  static Known Shape(std::uint32_t id, const Bytes& image);

  void Write(JournalStep step, const EditAction& action);
  // The content of all that the action touched is in the journal, as it was before the step.
  void HoldWindows(JournalStep step, const EditAction& action);
  void HoldRecords(JournalStep step, const EditAction& action);
  void HoldRecord(const EditTarget& record, Bytes bytes, bool changed);
  // `whole` when nothing of it is in any file; `has_file` when its path is that of its own file.
  void Hold(ChildWindow& window, Bytes image, bool whole, bool has_file);
  Bytes Before(const EditTarget& target, JournalStep step, const EditAction& action);
  std::uint32_t IdOf(ChildWindow& window);
  JournalPlace PlaceOf(const EditTarget& target);
  std::vector<JournalFile> FilesOf(const ChildWindow& window, const Bytes& image) const;
  bool RecordFlag(JournalThing thing) const;

  void Append(const Bytes& record);
  void Rewrite();
  void TurnOff();

  Application& app_;
  std::unique_ptr<GrowingFile> file_;
  std::map<ChildWindow*, Known> windows_;
  std::map<JournalThing, bool> flags_;  // of the records that the journal holds, as it knows them
  JournalActionView written_;           // kept for its memory; its texts are those of the action that is written
  std::set<std::string> words_;
  std::vector<std::string> old_;
  std::uint32_t last_id_ = 0;
  std::int64_t last_number_ = 0;  // of the action that was told of last
  std::size_t size_ = 0;
  std::size_t limit_ = std::size_t{16} << 20;
  bool off_ = false;
  bool untold_ = false;  // it was turned off, which nobody has been told
};

// The window of a file that a record under edit came from; null when it isn't open, or the record is of a bank.
ChildWindow* FileWindowOfRecord(Application& app, JournalThing thing);

}  // namespace zentaline
