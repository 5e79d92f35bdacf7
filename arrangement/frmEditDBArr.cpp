#include "arrangement/frmEditDBArr.h"

#include <memory>
#include <utility>

#include "arrangement/api.h"
#include "arrangement/database.h"
#include "arrangement/db_format.h"
#include "arrangement/frmArrU.h"
#include "arrangement/windows.h"
#include "base/utf8.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "data/texts.h"
#include "files/api.h"
#include "files/paths.h"

namespace zentaline {

namespace {

constexpr int EntryIndex(int row) {
  return row - frmEditDBArr::kBankRows + kDbFirstIndex;
}

constexpr char kColumn = '\t';

constexpr ui::Font kDirectoryFont = {.points = 10};
constexpr std::size_t kDirectoryHead = 3;  // characters of a folder's name that are kept at its start
constexpr int kDirectoryRoom = 96;         // pixels of the window that the folder's name can't have
constexpr int kFirstWidth = 480;           // before the window has a size

std::string CutCharacters(const std::string& text, std::size_t most) {
  std::size_t length = 0;
  for (std::size_t count = 0; count < most && length < text.size(); ++count) {
    ++length;
    while (length < text.size() && IsInsideCharacter(text[length])) ++length;
  }
  return text.substr(0, length);
}

frmEditDBArr* DatabaseWindow(const Application& app) {
  return static_cast<frmEditDBArr*>(app.toolkit.FindForm("frmEditDBArr"));
}

}  // namespace

frmEditDBArr::frmEditDBArr(Application& app) : ChildWindow(app, "frmEditDBArr", {}) {
  app.edits.TakeImage(*this, {static_cast<char>(kKindDatabase), '\0'});
  Label1.SetCaption(GetText(app, kTextFileName));
  CommDelete.SetCaption(GetText(app, kTextDelete));
  CommApri.SetCaption(GetText(app, kTextOpen));
  CommClose.SetCaption(GetText(app, kTextClose));
  Dir1.SetVisible(false);
  File1.SetVisible(false);
  Connect();
  LayOut();
}

void frmEditDBArr::Connect() {
  List1.on_click = [this] { ShowButtons(); };
  List1.on_double_click = CommApri.on_click = [this] { Timer[2].Start(); };
  List1.on_key = [this](const ui::Key& key) {
    if (key.name == ui::Key::kDelete) TimerCancella.Start();
    return key.name == ui::Key::kDelete;
  };
  List1.on_context = on_context = [this] { PopupEditMenu(); };
  CommDelete.on_click = [this] { TimerCancella.Start(); };
  CommAddAll.on_click = [this] { PressAddAll(); };
  CommClose.on_click = [this] { Close(); };
  Timer[0].on_timer = [this] { CommAddAll.Press(); };
  Timer[1].on_timer = [this] { Reload(); };
  Timer[2].on_timer = [this] { OpenRow(); };
  TimerCancella.on_timer = [this] { DeleteRow(); };
  Serve({{WindowFunction::kDelete, CommDelete, TimerCancella},
         {WindowFunction::kOpen, CommApri, TimerApri},
         {WindowFunction::kAddAll, CommAddAll, TimerAddAll}});
}

void frmEditDBArr::LayOut() {
  List1.least_characters = {32, 12};
  Label4.SetFont(kDirectoryFont);
  Label4.literal = Label4.sunken = true;
  Label4.least_characters = {16, 1};
  layout = ui::Column(
      {ui::Row({ui::Item(Label1), ui::Space(), ui::Item(Label3)}), ui::Item(List1, 1),
       ui::Row({ui::Item(Label2), ui::Item(Label4, 1)}),
       ui::Row({ui::Item(CommDelete), ui::Item(CommApri), ui::Item(CommAddAll), ui::Space(), ui::Item(CommClose)})});
}

FormState* frmEditDBArr::FormPlace() {
  return &app().core.FormStates[kKindDatabase];
}

// --- Showing ---

void frmEditDBArr::Load() {
  ChildWindow::Load();
  app().arrangement.DBWindowOpen = true;
  ShowRows(false);
}

void frmEditDBArr::Unload() {
  if (adding_) ShowWait(app(), 0);
  app().arrangement.DBWindowOpen = false;
  ChildWindow::Unload();
}

void frmEditDBArr::Resized() {
  ChildWindow::Resized();
  FitDirectory();
}

void frmEditDBArr::ShowRows(bool after_addition) {
  const Bytes& image = app().arrangement.DBImage;
  const std::string family = after_addition ? "i5Arr" : "Arr";
  std::vector<std::string> rows = {std::string("1") + kColumn + family + "A",
                                   std::string("2") + kColumn + family + "B"};
  for (int index = kDbFirstIndex; DBEntryUsed(image, index); ++index) {
    rows.push_back(std::to_string(DBEntryId(image, index)) + kColumn + ShownPath(DBEntryName(image, index)) + ".arr");
  }
  List1.SetRows(std::move(rows));
  directory_ = ShownPath(DBDirectoryOf(image));
  Dir1.SetRows({directory_});
  ShowCount();
  FitDirectory();
  ShowButtons();
}

void frmEditDBArr::ShowCount() {
  Label3.SetCaption(std::to_string(List1.rows()) + "/999");
}

void frmEditDBArr::ShowButtons() {
  const int row = List1.Row();
  CommApri.SetEnabled(row >= 0);
  CommDelete.SetEnabled(row >= kBankRows);
  if (app().main != nullptr && toolkit().active_child() == this) app().main->RefreshMenus();
}

void frmEditDBArr::FitDirectory() {
  const int inner = inner_size().width > 0 ? inner_size().width : kFirstWidth;
  const int room = inner - kDirectoryRoom;
  std::string shown = directory_;
  if (toolkit().TextWidth(kDirectoryFont, shown) > room) {
    const std::string head = CutCharacters(directory_, kDirectoryHead) + "...";
    std::size_t tail = directory_.size();
    const auto fits = [&](std::size_t from) {
      return toolkit().TextWidth(kDirectoryFont, head + directory_.substr(from)) <= room;
    };
    while (tail > 0) {
      std::size_t next = tail - 1;
      while (next > 0 && IsInsideCharacter(directory_[next])) --next;
      if (!fits(next)) break;
      tail = next;
    }
    shown = head + directory_.substr(tail);
  }
  Label4.SetCaption(shown);
}

void frmEditDBArr::Reload() {
  SetDatabaseTitle(app());
  ReadDatabase(app(), true);
  ShowRows(false);
}

// --- What the user does ---

bool frmEditDBArr::ListFiles() {
  SetDatabaseTitle(app());
  const DiskResult result = app().disk.List(std::string(DBDirectoryOf(app().arrangement.DBImage)), ".arr", files_);
  std::vector<std::string> rows;
  rows.reserve(files_.size());
  for (const std::string& name : files_) rows.push_back(ShownPath(name));
  File1.SetRows(std::move(rows));
  if (result != DiskResult::kOk) FileErrorMessage(app(), result);
  return result == DiskResult::kOk;
}

void frmEditDBArr::PressAddAll() {
  if (!std::exchange(adding_, !adding_)) {
    ShowWait(app(), kWaitUpdate, kDatabaseName);
    return Timer[0].Start();
  }
  // Stopped, since a second press may have come before the timer.
  Timer[0].Stop();
  if (ListFiles()) DBAddAll(app(), files_);
  ShowRows(false);
  ShowWait(app(), 0);
}

void frmEditDBArr::DeleteRow() {
  const int row = List1.Row();
  const Bytes& shown = app().arrangement.DBImage;
  if (row < kBankRows || !DBEntryUsed(shown, EntryIndex(row))) return;
  const EditWords words{"Delete", {}, ShownPath(DBEntryName(shown, EntryIndex(row)))};
  Bytes image = shown;
  DBRemoveEntry(image, EntryIndex(row));
  SetDatabaseTitle(app());
  if (!StoreDatabase(app(), std::move(image), words)) return;
  List1.RemoveRow(row);
  ShowCount();
  ShowButtons();
}

std::string frmEditDBArr::IdOf(int row) const {
  const std::string& text = List1.RowText(row);
  return text.substr(0, text.find(kColumn));
}

void frmEditDBArr::OpenRow() {
  const int row = List1.Row();
  if (row < 0) return;
  for (const int kind : {kKindArrA, kKindArrB}) {
    if (IdOf(row) != std::to_string(ArrBankFileId(kind))) continue;
    OpenArrBank(app(), kind);
    return;
  }
  const Bytes& image = app().arrangement.DBImage;
  const std::string base = JoinPath(DBDirectoryOf(image), DBEntryName(image, EntryIndex(row)));
  if (frmArrU* window = ArrWindowOfFile(app(), base)) return toolkit().Activate(*window);
  if (OpenArrByPath(app(), base, kDatabaseWindowTitle) == kChooseOpenAlready) {
    ShowFile(app(), kKindArr, base + ".arr", false);
  }
}

// --- For the rest of the folder ---

void ShowDatabase(Application& app) {
  if (frmEditDBArr* window = DatabaseWindow(app)) return app.toolkit.Activate(*window);
  if (HaveDatabase(app, kDatabaseWindowTitle)) {
    app.toolkit.Open(std::make_unique<frmEditDBArr>(app));
  } else {
    // It isn't asked for again at the next start.
    app.core.FormStates[kKindDatabase].state = 0;
  }
}

void DatabaseGrew(Application& app) {
  if (frmEditDBArr* window = DatabaseWindow(app)) window->ShowRows(true);
}

void DatabasePurged(Application& app) {
  if (frmEditDBArr* window = DatabaseWindow(app)) window->ReloadSoon();
}

}  // namespace zentaline
