// The performance editor: eight rows that reshape the program under edit in broad steps, each heard at once. What is
// changed are bytes of EditRecord; with the program editor open it is its bars that move.
#pragma once

#include <array>

#include "core/child_window.h"
#include "core/edits.h"
#include "core/undo.h"
#include "program/perf_tables.h"
#include "ui/control_array.h"
#include "ui/picture.h"

namespace zentaline {

class frmEditPerf : public ChildWindow {
 public:
  explicit frmEditPerf(Application& app);

  ui::ControlArray<ui::Label> PerfLab1{*this, "PerfLab1", 0, kPerfRows - 1};  // what the rows are called
  ui::ControlArray<ui::Button> CommDown{*this, "CommDown", 0, kPerfRows - 1};
  ui::ControlArray<ui::Label> PerfLab{*this, "PerfLab", 0, kPerfRows - 1};  // their counts, -10 to 10
  // The count as a bar to either side of its middle: the shape of a change at a glance.
  ui::ControlArray<ui::Picture> PerfPicture{*this, "PerfPicture", 0, kPerfRows - 1};
  ui::ControlArray<ui::Button> CommUp{*this, "CommUp", 0, kPerfRows - 1};
  ui::ControlArray<ui::Button> CommReset{*this, "CommReset", 0, kPerfRows - 1};
  ui::Button CommResetAll{*this, "CommResetAll"};

  // Shows a program that was just taken up: all counts at 0, and no button of a limit that it stands at.
  void Refresh();
  void ShowStep(const EditStep& step) override;

  void Load() override;
  // The bank that the program came from asks for it.
  bool GoesWithAnother() const override { return true; }
  bool QueryClose() override;
  bool Unsaved() const override;
  void Unload() override;

 protected:
  FormState* FormPlace() override;

 private:
  void LayOut();
  int Count(int row) const;
  void SetCount(int row, int count);
  // The count's picture; the sound comes first.
  void ShowBar(int row);

  // For steps back and forth: what a press changes of its row.
  struct RowShown {
    int count;
    bool up;
    bool down;
  };
  RowShown ShownOf(int row) const;
  void NoteShown(int row, const RowShown& before);

  void Press(int row, int way);
  void Reset(int row);
  // The work of a press, a reset or a refresh: the new count is shown already.
  void Apply(int row);
  void ApplyTo(int row, int entry, int osc);
  int Step(int row, const PerfParameter& parameter, std::size_t position);
  void Limit(int row, int value, int low, int high);
  void CopyBalance(const PerfParameter& parameter, int entry, const EditWords& words);
  void Store(std::size_t position, int value, const EditWords& words);
  const Bytes& record() const;

  std::array<int, kPerfRows> counts_{};
};

}  // namespace zentaline
