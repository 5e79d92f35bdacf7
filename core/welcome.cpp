#include "core/welcome.h"

#include <utility>
#include <vector>

#include "core/application.h"
#include "core/file_reading.h"
#include "core/main_window.h"
#include "files/api.h"

namespace zentaline {

namespace {

constexpr char kExamples[] = "examples";
constexpr int kCommandWidth = 40;

}  // namespace

Welcome::Welcome(MainWindow& main, Application& app)
    : main_(main),
      app_(app),
      FrameWelcome(main, "FrameWelcome"),
      LabelWelcome(main, "LabelWelcome"),
      CommWelcomeOutput(main, "CommWelcomeOutput"),
      CommWelcomeOpen(main, "CommWelcomeOpen"),
      CommWelcomeExample(main, "CommWelcomeExample"),
      LabelWelcomeRecent(main, "LabelWelcomeRecent"),
      CommWelcomeRecent(main, "CommWelcomeRecent", 0, kRecentFiles - 1),
      CommWelcomeGuide(main, "CommWelcomeGuide") {
  LabelWelcome.literal = true;
  CommWelcomeOutput.least_characters = {kCommandWidth, 1};
  CommWelcomeOutput.on_click = [this] { main_.PopupOutputs(); };
  CommWelcomeOpen.on_click = [this] { main_.Menu(MenuId::mnuApriArr).Press(); };
  CommWelcomeExample.on_click = [this] {
    if (const std::string path = Example(); !path.empty()) OpenPath(app_, path);
  };
  CommWelcomeGuide.on_click = [this] { main_.Menu(MenuId::mnuGuida).Press(); };
  for (int i = 0; i < kRecentFiles; ++i) {
    CommWelcomeRecent[i].literal = true;
    CommWelcomeRecent[i].on_click = [this, i] { main_.mnuRecentFile(i).Press(); };
  }
  for (ui::Control* control : main.controls()) {
    if (control->name().find("Welcome") != std::string::npos) control->SetVisible(false);
  }
}

ui::Layout Welcome::LayOut() {
  std::vector<ui::Layout> parts = {ui::Item(LabelWelcome), ui::Item(CommWelcomeOutput), ui::Item(CommWelcomeOpen),
                                   ui::Item(CommWelcomeExample), ui::Item(LabelWelcomeRecent)};
  for (int i = 0; i < kRecentFiles; ++i) parts.push_back(ui::Item(CommWelcomeRecent[i]));
  parts.push_back(ui::Item(CommWelcomeGuide));
  ui::Layout centred = ui::Row({ui::Space(), ui::Inside(FrameWelcome, ui::Column(std::move(parts))), ui::Space()});
  ui::Layout whole = ui::Column({ui::Space(), std::move(centred), ui::Space()});
  whole.scrolls = true;
  return whole;
}

void Welcome::Show() {
  const bool shows = app_.core.OpenChildCount == 0 && !main_.Reopens() && !app_.core.Closing;
  if (std::exchange(shown_, shows) == shows) return;
  CommWelcomeExample.SetVisible(shows && !Example().empty());
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&LabelWelcome, &CommWelcomeOutput, &CommWelcomeOpen, &CommWelcomeGuide}) {
    control->SetVisible(shows);
  }
  ShowRecentFiles();
  FrameWelcome.SetVisible(shows);
}

void Welcome::ShowOutput(const std::string& text, bool can_choose) {
  LabelWelcome.SetCaption(text);
  CommWelcomeOutput.SetEnabled(can_choose);
}

void Welcome::ShowRecentFiles() {
  bool any = false;
  for (int i = 0; i < kRecentFiles; ++i) {
    const ui::MenuEntry& entry = main_.mnuRecentFile(i);
    CommWelcomeRecent[i].SetCaption(entry.caption());
    CommWelcomeRecent[i].SetEnabled(entry.enabled());
    CommWelcomeRecent[i].SetVisible(shown_ && entry.visible());
    any = any || entry.visible();
  }
  LabelWelcomeRecent.SetVisible(shown_ && any);
}

std::string Welcome::Example() const {
  const std::string folder = app_.core.Directory + "/" + kExamples;
  std::vector<std::string> names;
  const bool found = app_.disk.List(folder, ".arr", names) == DiskResult::kOk && !names.empty();
  return found ? folder + "/" + names.front() : std::string();
}

}  // namespace zentaline
