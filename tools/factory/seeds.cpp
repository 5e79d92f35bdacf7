#include "tools/factory/seeds.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "arrangement/arr_format.h"
#include "arrangement/db_format.h"
#include "core/journal_format.h"
#include "core/window_image.h"
#include "global/gbl_format.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

namespace zentaline::factory {

namespace {

constexpr std::string_view kSong = "/disk/Night Train";

Bytes Word(std::size_t value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

// The same as a file of the instruments before.
Bytes Earlier(const Bytes& head, const Bytes& file) {
  return head + file.substr(std::min(head.size(), file.size()));
}

Bytes GlobalFile() {
  Bytes file("KORG\x4D\0\x06\x01", 8);
  for (std::size_t i = file.size(); i < kGlobalFileLength; ++i) file += static_cast<char>(i % 100);
  return file;
}

class Seeds {
 public:
  explicit Seeds(const std::map<std::string, Bytes>& made) : made_(made) {}

  std::map<std::string, Bytes> All() {
    for (const auto& [path, bytes] : made_) {
      const std::string name = path.substr(path.rfind('/') + 1);
      if (name.ends_with(".arr")) AddArrangements(name, bytes);
      if (name.ends_with(".sty") || name == "i40Sty") AddStyles(name, bytes);
      if (name.ends_with(".prg") || name.ends_with(".pgg") || name == "i40Prg") AddPrograms(name, bytes);
    }
    AddGlobal();
    AddDatabase();
    AddJournals();
    AddConfigurations();
    AddScripts();
    return std::move(seeds_);
  }

 private:
  const Bytes& Made(const std::string& name) const {
    static const Bytes kNothing;
    const auto found = made_.find(name);
    return found == made_.end() ? kNothing : found->second;
  }

  // A window of each kind on the file, with styles beside it, and a record that is taken up.
  void AddArrangements(const std::string& name, const Bytes& file) {
    const Bytes styles = Slice(Made("i40Sty"), 1, 4095);
    for (const int kind : {2, 3, 19, 20}) {
      for (const int state : {1, 4, 5}) {
        Bytes seed = {static_cast<char>(kind)};
        seed += Word(6) + static_cast<char>(state) + '\x01';
        seed += static_cast<char>(kSong.size() / 2) + Bytes(kSong.substr(0, kSong.size() / 2 * 2));
        seed += Word(styles.size()) + styles + file;
        seeds_["arr/" + std::to_string(kind) + ' ' + std::to_string(state) + ' ' + name] = seed;
      }
    }
    seeds_["import/arr " + name] = '\x04' + file;
    seeds_["import/old arr " + name] = '\x02' + file;
    seeds_["import/i30 arr " + name] = '\0' + Earlier(Bytes("KORG\x49\x05\x03", 7), file) + file;
    seeds_["messages/arr " + name] = Bytes("\x01\x02\x03\x04\x05\x06\x01\x02", 8) + file;
  }

  void AddStyles(const std::string& name, const Bytes& file) {
    const Bytes one = Slice(file, 1, 2047);
    for (const int entry : {0, 5, 15}) {
      Bytes seed = {static_cast<char>(entry), '\x02', static_cast<char>(entry + 8), '\x01', '\x02'};
      seeds_["sty/" + std::to_string(entry) + ' ' + name] = seed + Word(one.size()) + one + file;
    }
    seeds_["import/sty " + name] = '\x04' + Earlier(Bytes("KORG\x49\x05\x04\0", 8), file);
    seeds_["messages/sty " + name] = Bytes("\x01\x02\x03\x04\x05\x06\x02\x01", 8) + file;
  }

  void AddPrograms(const std::string& name, const Bytes& file) {
    for (const int n : {1, 32, 64}) {
      seeds_["prg/" + std::to_string(n) + ' ' + name] = Word(static_cast<std::size_t>(n)) + '\x01' + '\x01' + file;
    }
    seeds_["import/prg " + name] = '\x01' + Earlier(Bytes("KORG\x49\x05\0", 7), file);
    seeds_["import/old prg " + name] = '\x03' + file;
    seeds_["messages/prg " + name] = Bytes("\x01\x02\x03\x04\x05\x06\x03\x03", 8) + file;
  }

  void AddGlobal() {
    seeds_["gbl/global"] = Word(300) + GlobalFile();
    Bytes sequences("KORG\x4D\0\x05", 7);
    for (std::size_t i = sequences.size(); i < 9000; ++i) sequences += static_cast<char>(i % 7 * 9);
    seeds_["gbl/sequences"] = Word(2000) + sequences;
  }

  // Additions, look-ups and removals, on a new table and on one of zero bytes.
  void AddDatabase() {
    for (const char whole : {'\0', '\x01'}) {
      Bytes seed = {whole, '\x10'};
      for (int i = 0; i < 16; ++i) seed += static_cast<char>(i) + Word(3 + static_cast<std::size_t>(i)) + "Song" + '1';
      seeds_[std::string("db/") + (whole == '\0' ? "new" : "raw")] = seed + NewDatabase();
    }
  }

  // The fuzz program puts the head and a window before it, and makes the check sums of the records right.
  void AddJournals() {
    JournalAction action;
    action.number = 1;
    action.what = "Volume";
    action.of = "UPPER1";
    action.name = "Night Train";
    action.pieces = {{{JournalThing::kWindow, 1}, 271, "i", "A"}};
    action.marks = {{{JournalThing::kWindow, 1}, 4, 0, 1}};
    JournalAction back = action;
    std::swap(back.pieces[0].before, back.pieces[0].after);
    JournalRecord record;
    record.window = 1;
    record.bytes = Bytes(567, 'r');
    const Bytes steps[] = {JournalBytes(JournalStep::kDone, action), JournalBytes(JournalStep::kTakenBack, back),
                           JournalBytes(JournalStep::kBroughtForth, action), JournalBytes(record), JournalClosed(1)};
    Bytes seed = {static_cast<char>(std::size(steps))};
    Bytes whole = JournalHead();
    for (const Bytes& step : steps) {
      const Bytes content = step.substr(8);
      seed += '\x01' + Bytes(1, static_cast<char>(content.size())) + content;
      whole += step;
    }
    seeds_["journal/records"] = seed;
    seeds_["journal/whole"] = '\0' + whole.substr(JournalHead().size());
    JournalWindow window;
    window.window = 2;
    window.kind = kKindArr;
    window.path = kSong;
    window.has_file = true;
    window.files = {{"arr", {true, kArrFileLength, 1}}};
    window.image = BuildArrImage(kKindArr, Made("examples/First Steps.arr"), kSong, {});
    seeds_["journal/window"] = '\0' + JournalBytes(window);
  }

  // Records of 250 bytes: the settings, then windows of the last run, and recent files.
  void AddConfigurations() {
    Bytes file(12500, '\0');
    PutBytes(file, 1, "Zentaline");
    for (const std::size_t position : {19, 48}) PutByte(file, position, 99);
    PutByte(file, 25, 2);
    PutByte(file, 27, 1);
    seeds_["config/plain"] = '\x01' + file;
    const auto entry = [&file](std::size_t record, std::string_view path) {
      const std::size_t at = 250 * (record - 1);
      PutBytes(file, at + 1, Bytes(238, ' '));
      PutBytes(file, at + 1, path);
      PutBytes(file, at + 239, Bytes("\x01\x90\x01\0\x3E\x90\x3E\x90\0\0\x01\x2C", 12));
    };
    for (const std::size_t record : {6, 7, 14, 15, 30, 32, 33, 48, 49}) {
      entry(record, record % 2 == 0 ? "/disk/examples/First Steps" : "/disk/examples/Sunday Band");
    }
    for (std::size_t form = 0; form < 20; ++form) PutByte(file, 51 + 9 * form, 1);
    seeds_["config/windows"] = '\x01' + file;
    seeds_["config/windows laid over"] = '\0' + file;
  }

  void AddScripts() {
    const std::string start = "outs A B\nins K\nstart\npress frmLingua.Option1(1)\npress frmLingua.CommOK\n";
    const std::string song = start + "press mnuDevMIDIOut(0)\npress mnuApriArr\nfile \"examples/First Steps.arr\"\n";
    seeds_["script/editor"] = Bytes(song +
                                    "select frmArrU(1).List1 1\npress mnuEdit\nwait 10\nset frmEditArr.VScroll1(1) 90\n"
                                    "type frmEditArr.Text1(0) Elsewhere\npress mnuAnnulla\npress mnuRipeti\nquit\n"
                                    "answer yes\nanswer yes\n");
    seeds_["script/rows"] = Bytes(song +
                                  "select frmArrU(1).List1 0 3\npress mnuCopia\nselect frmArrU(1).List1 40\n"
                                  "press mnuIncolla\ndisk write EIO\npress mnuSalva\npress mnuSalvaAs\nfile new1\n");
    seeds_["script/windows"] = Bytes(start +
                                     "press mnuTastiera\npress mnuGuida\npress mnuBloccoNote\npress mnuMsgEx\n"
                                     "press mnuMultisample\nmouse frmTastiera.Key(3) down 10 10\n"
                                     "wait 1000\nmaximize frmGuida\nclose frmTastiera\nshow frmMain\nwindows\n");
    seeds_["script/programs"] =
        Bytes(start +
              "press mnuApriPrg\nfile \"examples/First Steps.prg\" filter=3\n"
              "double frmPrgUN(1).List1 1\nset frmEditPrg.OscHScroll(14) 9\n"
              "select frmEditPrg.OscCombo(2) 3\nfail midiOutLongMsg 4 2\nset frmEditPrg.OscHScroll(14) 20\n");
  }

  const std::map<std::string, Bytes>& made_;
  std::map<std::string, Bytes> seeds_;
};

}  // namespace

std::map<std::string, Bytes> SeedFiles(const std::map<std::string, Bytes>& made) {
  return Seeds(made).All();
}

}  // namespace zentaline::factory
