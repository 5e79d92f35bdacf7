// Opens every window of the program on the desktop, one after the other, turns all its pages, looks at it, and takes
// its picture when it is asked to.
//
//   zentaline-walk [--italian] [--dark] [--least] [--pictures DIR] FACTORY
//
// FACTORY holds the factory files. At its least the main window is 480 by 320, else 1280 by 860. The scale is the
// toolkit's own (QT_SCALE_FACTOR). The exit status is 1 when something was found; what, goes to standard output.
#include <QApplication>
#include <QListView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPalette>
#include <QStyleFactory>
#include <QTabWidget>
#include <QThread>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>

#include "arrangement/db_format.h"
#include "base/posix_disk.h"
#include "core/application.h"
#include "core/main_window.h"
#include "core/window_image.h"
#include "midi/virtual/virtual_midi.h"
#include "tests/desktop/walk/look.h"
#include "tests/support/scratch_folder.h"
#include "ui/qt/convert.h"
#include "ui/qt/long_sender.h"
#include "ui/qt/toolkit.h"
#include "ui/qt/view.h"

namespace zentaline {
namespace {

namespace fs = std::filesystem;

struct Wanted {
  bool italian = false;
  bool dark = false;
  bool least = false;
  std::string pictures;
  std::string factory;
};

void Settle() {
  for (int i = 0; i < 8; ++i) {
    QApplication::processEvents(QEventLoop::AllEvents, 20);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

// Looks at windows and counts what it finds.
class Eye {
 public:
  explicit Eye(const Wanted& wanted) : wanted_(wanted) {}

  void See(const std::string& name, QWidget& window) {
    ++seen_;
    Settle();
    auto* tabs = window.findChild<QTabWidget*>();
    for (int page = 0; page < (tabs == nullptr ? 1 : tabs->count()); ++page) {
      if (tabs != nullptr) tabs->setCurrentIndex(page);
      Settle();
      const std::string shown = page == 0 ? name : name + " page " + std::to_string(page + 1);
      for (const std::string& finding : ui::qt::Look(window)) {
        std::printf("%s: %s\n", shown.c_str(), finding.c_str());
        ++found_;
      }
      if (!wanted_.pictures.empty()) Picture(shown, window);
    }
  }
  int found() const { return found_; }
  int seen() const { return seen_; }

 private:
  void Picture(const std::string& name, QWidget& window) const {
    std::string file = name;
    for (char& c : file) c = c == ' ' || c == '(' || c == ')' ? '-' : c;
    window.grab().save(QString::fromStdString(wanted_.pictures + "/" + file + ".png"));
  }

  const Wanted& wanted_;
  int found_ = 0;
  int seen_ = 0;
};

// Answers what the program asks; a modal window is seen before it is closed.
class WalkingToolkit : public ui::qt::QtToolkit {
 public:
  WalkingToolkit(Eye& eye, bool italian) : eye_(eye), italian_(italian) {}
  std::string file;
  int filter = 1;

  ui::BoxAnswer MessageBox(ui::BoxStyle style, const std::string&, const std::string&) override {
    return style == ui::BoxStyle::kOk ? ui::BoxAnswer::kOk : ui::BoxAnswer::kNo;
  }
  ui::FileDialogAnswer FileDialog(const ui::FileDialogRequest& request) override {
    return {false, file, request.filter, false};
  }

 protected:
  void RunModal(ui::Form& form) override {
    eye_.See(form.FullName(), *windows().Of(form)->frame());
    if (ui::Control* option = form.Find("Option1", italian_ ? 0 : 1))
      static_cast<ui::OptionButton*>(option)->UserPress();
    if (ui::Control* ok = form.Find("CommOK")) static_cast<ui::Button*>(ok)->UserPress();
    if (form.open()) form.CloseWithoutAsking();
  }

 private:
  Eye& eye_;
  bool italian_;
};

Bytes GlobalFile() {
  return Bytes("KORG\x4D\0\x06\x01", 8) + Bytes(440, '\0');
}

Bytes BackSequences() {
  Bytes file("KORG\x4D\0\x05\x01", 8);
  file.resize(32200, '\0');
  return file;
}

class Walk {
 public:
  Walk(const Wanted& wanted, Eye& eye)
      : wanted_(wanted),
        eye_(eye),
        toolkit_(eye, wanted.italian),
        sender_(toolkit_, midi_),
        app_(toolkit_, sender_, disk_, folder_.Path()) {
    fs::copy(wanted.factory, folder_.Path(), fs::copy_options::recursive);
    folder_.Put("Hall.gbl", GlobalFile());
    folder_.Put("Stage.bsq", BackSequences());
    Bytes database = NewDatabase();
    PutDBDirectory(database, folder_.Path());
    DBAddEntry(database, "Night Train");
    folder_.Put("i40DBArr", database);
  }

  bool Go() {
    if (!app_.Start() || app_.main == nullptr) return false;
    QWidget& main = *toolkit_.windows().main()->window();
    main.resize(wanted_.least ? QSize(480, 320) : QSize(1280, 860));
    main.show();
    for (int i = 0; i < 50 && app_.Starting(); ++i) {
      Settle();
      QThread::msleep(10);
    }
    eye_.See("frmMain", main);
    Press("mnuDevMIDIOut", 0);

    for (const MenuId entry :
         {MenuId::mnuArrA, MenuId::mnuArrB, MenuId::mnuStyA, MenuId::mnuStyB, MenuId::mnuWProgA, MenuId::mnuDrum,
          MenuId::mnuPerc, MenuId::mnuMsgEx, MenuId::mnuMIDI, MenuId::mnuTastiera, MenuId::mnuGuida,
          MenuId::mnuNuovoArr, MenuId::mnuNuovoSty, MenuId::mnuNuovoPrg, MenuId::mnuWFindID, MenuId::mnuWEditDBArr}) {
      Open(Menu(entry).name(), [&] { Menu(entry).UserPress(); });
      CloseAll();
    }
    Menu(MenuId::mnuInfo).UserPress();
    // The notebook's entry is there beside another window.
    Open("mnuArrA", [&] { Menu(MenuId::mnuArrA).UserPress(); });
    Open("mnuBloccoNote", [&] { Menu(MenuId::mnuBloccoNote).UserPress(); });
    CloseAll();
    Open("Hall.gbl", [&] { File("Hall.gbl", MenuId::mnuApriGbl); });
    CloseAll();
    Open("Stage.bsq", [&] { File("Stage.bsq", MenuId::mnuApriBSQ); });
    CloseAll();

    Open("examples/First Steps.arr", [&] { File("examples/First Steps.arr", MenuId::mnuApriArr); });
    SeeInColumns();
    Open("a row's editor", [&] { EditRow(0); });
    CloseAll();
    Open("examples/First Steps.sty", [&] { File("examples/First Steps.sty", MenuId::mnuApriSty); });
    CloseAll();
    Open("examples/First Steps.prg", [&] { File("examples/First Steps.prg", MenuId::mnuApriPrg); });
    ui::Form* bank = toolkit_.active_child();
    Open("a row's editor", [&] { EditRow(0); });
    Open("mnuMultisample", [&] { Menu(MenuId::mnuMultisample).UserPress(); });
    if (bank != nullptr) toolkit_.Activate(*bank);
    Open("mnuEditPerf", [&] { Menu(MenuId::mnuEditPerf).UserPress(); });
    CloseAll();
    return complete_;
  }

 private:
  ui::MenuEntry& Menu(MenuId id) { return app_.main->Menu(id); }
  void Press(const char* name, int index) {
    if (auto* entry = app_.main->Find(name, index)) static_cast<ui::MenuEntry*>(entry)->UserPress();
    Settle();
  }
  void File(const std::string& name, MenuId entry) {
    toolkit_.file = folder_.Path(name);
    Menu(entry).UserPress();
  }
  void EditRow(int row) {
    auto& window = static_cast<ChildWindow&>(*toolkit_.active_child());
    window.ItemList()->UserDouble(row);
  }

  // The list in front, in a window that is wide enough for columns of eight.
  void SeeInColumns() {
    if (wanted_.least || toolkit_.active_child() == nullptr) return;
    QWidget& main = *toolkit_.windows().main()->window();
    const ui::Form& form = *toolkit_.active_child();
    auto& list = *static_cast<ui::ListBox*>(form.Find("List1"));
    auto& frame = *toolkit_.windows().Of(form)->frame();
    const QSize before = main.size();
    const QRect place = frame.geometry();
    main.resize(1900, 860);
    Settle();
    frame.resize(1860, 500);
    list.UserSelect({9});
    eye_.See(form.FullName() + " columns", frame);
    const auto* rows = static_cast<const QListView*>(static_cast<ui::qt::View*>(list.view)->widget());
    if (!rows->isWrapping()) {
      std::printf("%s: the list doesn't stand in columns\n", form.FullName().c_str());
      complete_ = false;
    }
    frame.setGeometry(place);
    main.resize(before);
    Settle();
  }

  // A window must come by it.
  void Open(const std::string& what, const std::function<void()>& act) {
    const ui::Form* before = toolkit_.active_child();
    act();
    for (int i = 0; i < 100 && toolkit_.active_child() == before; ++i) {
      Settle();
      QThread::msleep(10);
    }
    ui::Form* form = toolkit_.active_child();
    if (form == nullptr || form == before) {
      std::printf("%s: the window didn't come\n", what.c_str());
      complete_ = false;
      return;
    }
    eye_.See(form->FullName(), *toolkit_.windows().Of(*form)->frame());
  }

  void CloseAll() {
    while (ui::Form* form = toolkit_.active_child()) {
      form->CloseWithoutAsking();
      Settle();
    }
  }

  const Wanted& wanted_;
  Eye& eye_;
  test::ScratchFolder folder_;
  PosixDisk disk_;
  VirtualMidi midi_;
  WalkingToolkit toolkit_;
  ui::qt::LongSender sender_;
  Application app_;
  bool complete_ = true;
};

void GoDark() {
  QPalette dark;
  const QColor ground(32, 34, 38);
  const QColor field(24, 26, 29);
  const QColor text(230, 230, 230);
  for (const auto role : {QPalette::Window, QPalette::Button, QPalette::AlternateBase, QPalette::ToolTipBase}) {
    dark.setColor(role, ground);
  }
  dark.setColor(QPalette::Base, field);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    dark.setColor(role, text);
  }
  QApplication::setPalette(dark);
}

int Run(const Wanted& wanted) {
  Eye eye(wanted);
  const bool complete = Walk(wanted, eye).Go();
  std::printf("%d windows, %d findings\n", eye.seen(), eye.found());
  return complete && eye.found() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace zentaline

int main(int count, char** arguments) {
  if (std::getenv("QT_QPA_PLATFORM") == nullptr) ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  zentaline::Wanted wanted;
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument == "--italian") {
      wanted.italian = true;
    } else if (argument == "--dark") {
      wanted.dark = true;
    } else if (argument == "--least") {
      wanted.least = true;
    } else if (argument == "--pictures" && i + 1 < count) {
      wanted.pictures = arguments[++i];
    } else {
      wanted.factory = argument;
    }
  }
  if (wanted.factory.empty()) {
    std::fprintf(stderr, "usage: zentaline-walk [--italian] [--dark] [--least] [--pictures DIR] FACTORY\n");
    return 2;
  }
  int qt_count = 1;
  const QApplication application(qt_count, arguments);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  if (wanted.dark) zentaline::GoDark();
  QApplication::setQuitOnLastWindowClosed(false);
  return zentaline::Run(wanted);
}
