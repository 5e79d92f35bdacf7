// Windows that show the same styles: a style file's, and that of the arrangements of its name.
#include "arrangement/arr_format.h"
#include "core/application.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/undo.h"
#include "core/window_image.h"
#include "files/api.h"
#include "files/dialogs.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

bool ShowsStyles(const ChildWindow& window) {
  return window.Kind() == kKindSty || window.Kind() == kKindNewSty;
}

bool StylesAttached(const ChildWindow& window) {
  return ShowsStyles(window) || ByteAt(window.window_image(), kStyStatePosition) == 2;
}

ChildWindow* NamedWindow(const Application& app, int kind, const std::string& base) {
  ChildWindow* found = WindowOf(app, *FileKindOf(kind), base);
  return found == nullptr || !found->HasOwnPath() ? nullptr : found;
}

bool ChangesStylesOf(const EditAction& action, ChildWindow& window) {
  const std::size_t begin = ShowsStyles(window) ? 1 : kArrImageLength + 1;
  return ChangesWithin(action, ImageOf(window), begin, std::string::npos);
}

// As after a crash, when the journal held what became of each window by itself.
bool HasStepsOfItsOwn(Application& app, ChildWindow& window, ChildWindow& other) {
  for (const EditAction& each : app.edits.actions()) {
    if (each.IsStep() && ChangesStylesOf(each, window) && !ChangesStylesOf(each, other)) return true;
  }
  return false;
}

// As far as this run knows.
bool StylesAreInFile(Application& app, const ChildWindow& window) {
  Bytes image = window.window_image();
  const std::string path = PathOnDisk(app.disk, std::string(WindowPath(image)) + ".sty");
  const auto known = app.core.KnownFiles.find(path);
  return known != app.core.KnownFiles.end() && known->second == MarkOf(StyFileBytes(image));
}

}  // namespace

ChildWindow* StylesWindow(const Application& app, int kind, const std::string& base) {
  ChildWindow* found = NamedWindow(app, kind, base);
  return found == nullptr || !StylesAttached(*found) ? nullptr : found;
}

const ChildWindow* ChangedStyles(const Application& app, int kind, const std::string& base) {
  const ChildWindow* found = StylesWindow(app, kind, base);
  return found == nullptr || ByteAt(found->window_image(), kStyChangedPosition) == 0 ? nullptr : found;
}

ChildWindow* SameStyles(const Application& app, const ChildWindow& window) {
  if (window.WindowNumber() == kInstrumentWindow || !window.HasOwnPath() || !StylesAttached(window)) return nullptr;
  return StylesWindow(app, ShowsStyles(window) ? kKindArr : kKindSty, std::string(WindowPath(window.window_image())));
}

ChildWindow* StylesToTake(const Application& app, const ChildWindow& arrangements) {
  if (arrangements.WindowNumber() == kInstrumentWindow || !arrangements.HasOwnPath() || StylesAttached(arrangements)) {
    return nullptr;
  }
  return StylesWindow(app, kKindSty, std::string(WindowPath(arrangements.window_image())));
}

bool StylesOpenElsewhere(const Application& app, const ChildWindow& window, const std::string& base) {
  for (const int kind : {kKindArr, kKindSty}) {
    const ChildWindow* found = StylesWindow(app, kind, base);
    if (found != nullptr && found != &window && found != SameStyles(app, window)) return true;
  }
  return false;
}

void KeepInStep(Application& app, const ChildWindow& window, ChildWindow& other, const EditWords& words) {
  app.edits.Change(ImageOf(other), words, [&window](Bytes& image) {
    PutStylePart(image, StylePart(window.window_image()));
    PutByte(image, kStyChangedPosition, 1);
  });
  other.ShowItems({.styles = true});
}

ChildWindow* FollowStyles(Application& app, ChildWindow& window, const EditAction& action) {
  if (!ChangesStylesOf(action, window)) return nullptr;
  ChildWindow* same = SameStyles(app, window);
  if (same == nullptr || StylePart(same->window_image()) == StylePart(window.window_image())) return nullptr;
  if (ChangesWithin(action, ImageOf(*same), 0, std::string::npos) || HasStepsOfItsOwn(app, *same, window)) {
    return nullptr;
  }
  app.edits.Prepare(*same, [&](Bytes& image) { PutStylePart(image, StylePart(window.window_image())); });
  return same;
}

void ShowFollowed(Application& app, ChildWindow& window) {
  const int changed = StylesAreInFile(app, window) ? 0 : 1;
  app.edits.Prepare(window, [changed](Bytes& image) { PutByte(image, kStyChangedPosition, changed); });
  if (changed == 0) {
    // Unless something else keeps it marked until it is saved.
    EditAction of_window;
    of_window.window = &window;
    app.edits.SetTrueMarks(of_window);
  }
  window.ShowItems({.styles = true});
}

void GiveStylesToArrangements(Application& app, const ChildWindow& window) {
  if (!ShowsStyles(window) || !window.HasOwnPath()) return;
  ChildWindow* found = NamedWindow(app, kKindArr, std::string(WindowPath(window.window_image())));
  if (found == nullptr || StylesAttached(*found)) return;
  app.edits.Change(ImageOf(*found), {"Attached", "Styles"},
                   [&window](Bytes& image) { AttachStyles(image, StylePart(window.window_image()), 2); });
  found->ShowItems({.styles = true});
}

}  // namespace zentaline
