// A list whose rows have other controls beside them.
#include <QLineEdit>
#include <QListView>
#include <QScrollArea>

#include "tests/desktop/desk.h"
#include "ui/control_array.h"

namespace zentaline::ui::qt {
namespace {

constexpr int kGroups = 4;
constexpr int kOfGroup = 4;
constexpr int kRows = kGroups * (kOfGroup + 1) - 1;

// Four groups of rows with a gap behind each; a box beside each row, a button beside each group.
class BesideForm : public Form {
 public:
  explicit BesideForm(Toolkit& toolkit) : Form(toolkit, FormKind::kChild, "frmBeside") {
    List1.fills_height = true;
    std::vector<std::string> rows;
    for (int row = 0; row < kRows; ++row) rows.push_back("Row " + std::to_string(row));
    List1.SetRows(rows);
    std::vector<Layout> groups;
    for (int group = 0; group < kGroups; ++group) {
      std::vector<Layout> boxes;
      for (int i = kOfGroup * group; i < kOfGroup * (group + 1); ++i) {
        Text1[i].flat = Text1[i].right_aligned = Text1[i].read_only = true;
        Text1[i].least_characters = {7, 1};
        Text1[i].SetText(std::to_string(i));
        boxes.push_back(Item(Text1[i], 1));
      }
      groups.push_back(Row({Tight(Column(std::move(boxes))), Item(Comm1[group])}, kOfGroup));
      if (group + 1 < kGroups) groups.push_back(Space());
    }
    layout = Column({Row({Item(List1, 1), Tight(Column(std::move(groups)))}, 1)});
    layout.scrolls = true;
  }
  ListBox List1{*this, "List1"};
  ControlArray<TextBox> Text1{*this, "Text1", 0, kGroups* kOfGroup - 1};
  ControlArray<Button> Comm1{*this, "Comm1", 0, kGroups - 1};
};

class Beside : public Desk {
 protected:
  Beside() : form(static_cast<BesideForm&>(toolkit.Open(std::make_unique<BesideForm>(toolkit)))) { Settle(); }

  // How far the middle of the box lies from that of its row, at most.
  int WorstDistance() {
    auto* list = Widget<QListView>(form.List1);
    int worst = 0;
    for (int i = 0; i < kGroups * kOfGroup; ++i) {
      const QRect row = list->visualRect(list->model()->index(i + i / kOfGroup, 0));
      const QWidget* box = Widget<QLineEdit>(form.Text1[i]);
      const int row_middle = list->viewport()->mapToGlobal(row.center()).y();
      const int box_middle = box->mapToGlobal(box->rect().center()).y();
      worst = std::max(worst, std::abs(row_middle - box_middle));
    }
    return worst;
  }

  BesideForm& form;
};

TEST_F(Beside, EachBoxStandsBesideItsRowAtEverySize) {
  EXPECT_LE(WorstDistance(), 3);
  for (const int height : {500, 560, 611, 777, 1000}) {
    Frame(form)->resize(480, height);
    Settle();
    EXPECT_LE(WorstDistance(), 3) << height;
  }
}

TEST_F(Beside, TheWholeIsScrolledToWhereTheWindowIsSmall) {
  Frame(form)->resize(300, 150);
  Settle();
  EXPECT_LE(WorstDistance(), 3);
  const auto* area = Frame(form)->findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_GT(area->widget()->height(), area->viewport()->height());
  auto* list = Widget<QListView>(form.List1);
  const QRect last = list->visualRect(list->model()->index(kRows - 1, 0));
  EXPECT_TRUE(list->viewport()->rect().adjusted(0, 0, 0, 2).contains(last));
}

TEST_F(Beside, ANewWindowShowsAllOfIt) {
  const auto* area = Frame(form)->findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_LE(area->widget()->height(), area->viewport()->height());
}

TEST_F(Beside, TheRowsFillTheListWithoutAScrollBar) {
  Frame(form)->resize(480, 800);
  Settle();
  auto* list = Widget<QListView>(form.List1);
  const QRect last = list->visualRect(list->model()->index(kRows - 1, 0));
  EXPECT_NEAR(last.bottom(), list->viewport()->rect().bottom(), 2);
}

}  // namespace
}  // namespace zentaline::ui::qt
