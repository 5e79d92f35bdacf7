#include "global/frmBsq.h"

#include <array>
#include <utility>
#include <vector>

#include "base/scoped_value.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/send_steps.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "global/pictures.h"
#include "midi/api.h"

namespace zentaline {

namespace {

// The states of TimerLoadBSQ, which are its milliseconds too.
constexpr int kLoadDue = 11;

// The tracks that are shown, from the top; of the others there is only the sum.
struct ShownTrack {
  int track;
  const char* caption;
  bool extra;  // it stands in Label4, the others in Label2
  int index;
};
constexpr std::array<ShownTrack, 12> kShownTracks = {{
    {1, "ATr:", false, 0},
    {2, "CTRL:", false, 1},
    {3, "CHRD:", false, 2},
    {9, "ETr1:", true, 0},
    {10, "ETr2:", true, 1},
    {11, "ETr3:", true, 2},
    {12, "ETr4:", true, 3},
    {13, "ETr5:", true, 4},
    {14, "ETr6:", true, 5},
    {15, "ETr7:", true, 6},
    {16, "ETr8:", true, 7},
    {17, "Tempo:", false, 3},
}};

constexpr int kCountCharacters = 7;
constexpr ui::Size kBarsSize = {24, 0};

}  // namespace

frmBsq::frmBsq(Application& app, Bytes image) : ChildWindow(app, "frmBsq", {}) {
  app.edits.TakeImage(*this, std::move(image));
  for (const ShownTrack& row : kShownTracks) (row.extra ? Lab4 : Lab2)[row.index].SetCaption(row.caption);
  CommLoadBSQ.SetCaption("&Load Back. Seq.");
  CommBSQ.SetCaption("&BACK. SEQ.");
  CommArrPlay.SetCaption("&ARR PLAY");
  CommSongPlay.SetCaption("SO&NG PLAY");
  CommClose.SetCaption(GetText(app, kTextClose));
  List1.numbered = false;
  List1.on_click = [this] { ShowTracks(); };
  List1.on_context = on_context = [this] { PopupEditMenu(); };
  CommLoadBSQ.on_click = [this] { PressLoad(); };
  TimerLoadBSQ.on_timer = [this] { CommLoadBSQ.Press(); };
  MakeModeButton(CommBSQ, SendModeBackSeq, List1);
  MakeModeButton(CommArrPlay, SendModeArrPlay, List1);
  MakeModeButton(CommSongPlay, SendModeSongPlay, List1);
  CommClose.on_click = [this] { Close(); };
  LayOut();
}

// Each sum stands beside its name, and each bar beside its count.
void frmBsq::LayOut() {
  List1.SetFont({.fixed_pitch = true});
  List1.fills_height = true;
  List1.least_characters = {14, 0};
  std::vector<ui::Layout> sums;
  for (int n = 0; n < kBackSeqCount; ++n) {
    Label3[n].right_aligned = true;
    Label3[n].least_characters = {kCountCharacters, 1};
    sums.push_back(ui::Item(Label3[n], 1));
  }
  std::vector<ui::Layout> captions;
  std::vector<ui::Layout> counts;
  for (const ShownTrack& row : kShownTracks) {
    ui::Label& count = (row.extra ? Label4 : Label2)[row.index];
    count.right_aligned = true;
    count.least_characters = {kCountCharacters, 1};
    captions.push_back(ui::Item((row.extra ? Lab4 : Lab2)[row.index], 1));
    counts.push_back(ui::Item(count, 1));
  }
  EventsPicture.least_characters = kBarsSize;
  ui::Layout names = ui::Row({ui::Item(List1, 1), ui::Tight(ui::Column(std::move(sums)))}, 1);
  ui::Layout events = ui::Inside(Frame1,
                                 ui::Row({ui::Tight(ui::Column(std::move(captions))),
                                          ui::Tight(ui::Column(std::move(counts))), ui::Item(EventsPicture, 1)}),
                                 1);
  ui::Layout buttons =
      ui::Column({ui::Inside(Frame2, ui::Column({ui::Item(CommLoadBSQ)})),
                  ui::Inside(Frame3, ui::Column({ui::Item(CommBSQ), ui::Item(CommArrPlay), ui::Item(CommSongPlay)})),
                  ui::Space(), ui::Row({ui::Space(), ui::Item(CommClose)})});
  layout = ui::Row({std::move(names), std::move(events), std::move(buttons)});
}

WindowRecord* frmBsq::Record() {
  return &app().core.BsqWindows[1];
}

std::string_view frmBsq::File() const {
  return BackSeqFileIn(window_image());
}

void frmBsq::Load() {
  const ScopedValue loading(app().core.FormLoading, true);
  app().bsq_window = this;
  ChildWindow::Load();
  ShowName();
  FillRows();
  ShowTracks();
}

void frmBsq::FillRows() {
  std::vector<std::string> rows;
  rows.reserve(kBackSeqCount);
  for (int n = 0; n < kBackSeqCount; ++n) {
    rows.push_back(Utf8FromBytes(BackSeqName(File(), n)));
    Label3[n].SetCaption(std::to_string(BackSeqEventSum(File(), n)));
  }
  List1.SetRows(std::move(rows));
}

void frmBsq::ShowName() {
  SetCaption("File Bsq - " + ShownPath(BaseName()) + ".bsq (" + std::to_string(WindowNumber()) + ")" +
             ReadOnlySuffix(app(), ReadOnly()));
}

void frmBsq::ShowTracks() {
  const int sequence = List1.Row();
  std::vector<int> counts;
  for (const ShownTrack& row : kShownTracks) {
    counts.push_back(sequence < 0 ? 0 : BackSeqEvents(File(), sequence, row.track));
    (row.extra ? Label4 : Label2)[row.index].SetCaption(sequence < 0 ? "" : std::to_string(counts.back()));
  }
  EventsPicture.SetDrawing(EventsDrawing(counts));
}

// A second press isn't held off: it sends at once, and the timer that would have done it stops.
void frmBsq::PressLoad() {
  if (TakeSendStep(TimerLoadBSQ) == kSendIdle) {
    return WaitForSend(app(), TimerLoadBSQ, kLoadDue, kWaitLoadingBsq);
  }
  SendBackSeqDump(app(), window_image());
  ShowWait(app(), 0);
}

void frmBsq::Unload() {
  UnloadFile(app().bsq_window, SendIsDue(TimerLoadBSQ), std::string(WindowPath(window_image())) + ".bsq");
}

}  // namespace zentaline
