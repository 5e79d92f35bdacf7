#include "ui/script/names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/ui/toy_program.h"
#include "ui/script/properties.h"

namespace zentaline::ui {
namespace {

class Names : public testing::Test {
 protected:
  ScriptTarget Find(std::string_view name) { return FindScriptTarget(host.console, name); }
  // What `get` gives: a number, a text in quotes, or "none".
  std::string Get(std::string_view name) {
    const ScriptTarget target = FindScriptTarget(host.console, name, true);
    if (!target.Found()) return "not found";
    const auto value = target.control != nullptr ? ReadProperty(*target.control, target.property)
                                                 : ReadProperty(*target.form, target.property);
    if (!value) return "none";
    if (const auto* const number = std::get_if<std::int64_t>(&*value)) return std::to_string(*number);
    return '"' + std::get<std::string>(*value) + '"';
  }

  ToyHost host{""};
  Toy& toy = host.toy;
  ToyChild& child = (toy.Start(), toy.NewChild());
};

TEST_F(Names, AFormGoesByItsNameAndNumber) {
  EXPECT_EQ(Find("frmToy(1)").form, &child);
  EXPECT_EQ(Find("frmToy(1)").control, nullptr);
  EXPECT_FALSE(Find("frmToy").Found());
  EXPECT_FALSE(Find("frmToy(2)").Found());
  EXPECT_FALSE(Find("frmToy(01)").Found());
}

TEST_F(Names, AControlGoesByFormDotNameAndIndex) {
  EXPECT_EQ(Find("frmToy(1).Text1").control, &child.Text1);
  EXPECT_EQ(Find("frmToy(1).VScroll1(1)").control, &child.VScroll1);
  EXPECT_FALSE(Find("frmToy(1).VScroll1").Found());
  EXPECT_FALSE(Find("frmToy(1).VScroll1(2)").Found());
  EXPECT_FALSE(Find("frmToy(1).Text1(0)").Found());
  EXPECT_FALSE(Find("frmToy(1).Text1.text").Found());
  EXPECT_FALSE(Find("Text1").Found());
}

TEST_F(Names, AMenuEntryGoesByItsNameAlone) {
  EXPECT_EQ(Find("mnuNew").control, &toy.main->mnuNew);
  EXPECT_EQ(Find("mnuDev(1)").control, &toy.main->mnuDev1);
  EXPECT_EQ(Find("frmMain.mnuNew").control, &toy.main->mnuNew);
  EXPECT_FALSE(Find("mnuDev").Found());
  EXPECT_FALSE(Find("TimerAuto(2)").Found());
}

TEST_F(Names, OddNamesAreNotFound) {
  for (const std::string_view name : {"",
                                      ".",
                                      "..",
                                      "(",
                                      ")",
                                      "()",
                                      "frmToy(1).",
                                      ".Text1",
                                      "frmToy(1)..text",
                                      "frmToy(1).VScroll1()",
                                      "frmToy(1).VScroll1(1",
                                      "frmToy(1).VScroll1(-1)",
                                      "frmToy(1).VScroll1(01)",
                                      "frmToy(1).VScroll1(1)x",
                                      "frmToy(1).VScroll1( 1)",
                                      "frmToy(1).VScroll1(99999999999999999999)",
                                      "mnuDev(",
                                      "mnuDev(0",
                                      "frmToy((1))",
                                      "frmToy(1).(1)"}) {
    EXPECT_FALSE(Find(name).Found()) << name;
    EXPECT_THAT(Get(name), testing::AnyOf("not found", "none")) << name;
  }
  std::string deep = "frmToy(1)";
  for (int i = 0; i < 10000; ++i) deep += ".a(";
  EXPECT_FALSE(Find(deep).Found());
}

TEST_F(Names, WithoutAPropertyAControlSaysWhatMattersMost) {
  child.List1.SetRow(1);
  child.VScroll1.SetValue(-3);
  child.Check1.SetValue(true);
  child.Option1.SetValue(true);
  child.Tab1.SetPage(1);
  child.Combo1.SetRow(1);
  toy.main->mnuToggle.SetChecked(true);
  EXPECT_EQ(Get("frmToy(1)"), "\"Toy 1\"");
  EXPECT_EQ(Get("frmToy(1).Label1"), "\"a \"label\"\"");
  EXPECT_EQ(Get("frmToy(1).Comm"), "\"&Go\"");
  EXPECT_EQ(Get("frmToy(1).Text1"), "\"\"");
  EXPECT_EQ(Get("frmToy(1).List1"), "1");
  EXPECT_EQ(Get("frmToy(1).ListMany"), "-1");
  EXPECT_EQ(Get("frmToy(1).Combo1"), "\"green\"");
  EXPECT_EQ(Get("frmToy(1).VScroll1(1)"), "-3");
  EXPECT_EQ(Get("frmToy(1).Check1"), "1");
  EXPECT_EQ(Get("frmToy(1).Option1(0)"), "0");
  EXPECT_EQ(Get("frmToy(1).Option1(1)"), "1");
  EXPECT_EQ(Get("frmToy(1).Frame1"), "\"\"");
  EXPECT_EQ(Get("frmToy(1).Tab1"), "1");
  EXPECT_EQ(Get("frmToy(1).Picture1"), "\"\"");
  EXPECT_EQ(Get("frmToy(1).Timer1"), "100");
  EXPECT_EQ(Get("mnuToggle"), "1");
  EXPECT_EQ(Get("mnuDev(0)"), "0");
}

TEST_F(Names, TextIsWhatAControlShows) {
  child.List1.SetRow(2);
  child.Tab1.SetPage(1);
  child.VScroll0.SetValue(9);
  EXPECT_EQ(Get("frmToy(1).List1.text"), "\"three\"");
  EXPECT_EQ(Get("frmToy(1).ListMany.text"), "\"\"");
  EXPECT_EQ(Get("frmToy(1).Comm.text"), "\"&Go\"");
  EXPECT_EQ(Get("frmToy(1).Check1.text"), "0");
  EXPECT_EQ(Get("frmToy(1).Option1(0).text"), "0");
  EXPECT_EQ(Get("frmToy(1).VScroll1(0).text"), "9");
  EXPECT_EQ(Get("frmToy(1).Tab1.text"), "\"Second\"");
  EXPECT_EQ(Get("frmToy(1).Timer1.text"), "none");
}

TEST_F(Names, EveryControlSaysWhetherItIsEnabledAndVisible) {
  child.Timer1.Stop();
  for (const Control* const control : child.controls()) {
    const bool off = control == &child.CommOff || control == &child.Timer1;
    EXPECT_EQ(Get(ScriptName(*control) + ".enabled"), off ? "0" : "1");
    EXPECT_EQ(Get(ScriptName(*control) + ".visible"), control == &child.CommHidden ? "0" : "1");
  }
  EXPECT_EQ(Get("mnuOff.enabled"), "0");
  EXPECT_EQ(Get("mnuHidden.visible"), "0");
  child.Timer1.Start();
  EXPECT_EQ(Get("frmToy(1).Timer1.enabled"), "1");
}

TEST_F(Names, RowsOfListsAreReadByNumber) {
  child.ListMany.UserSelect({3, 1});
  EXPECT_EQ(Get("frmToy(1).ListMany.rows"), "4");
  EXPECT_EQ(Get("frmToy(1).ListMany.row"), "1");
  EXPECT_EQ(Get("frmToy(1).ListMany.row(2)"), "\"2\"");
  EXPECT_EQ(Get("frmToy(1).ListMany.selected"), "\"1 3\"");
  EXPECT_EQ(Get("frmToy(1).List1.selected"), "\"\"");
  EXPECT_EQ(Get("frmToy(1).Combo1.rows"), "2");
  EXPECT_EQ(Get("frmToy(1).Combo1.row"), "-1");
  EXPECT_EQ(Get("frmToy(1).Combo1.row(0)"), "\"red\"");
  for (const std::string_view row : {"row(4)", "row(-1)", "row()", "row(x)", "row(1 )", "row(1", "row1"}) {
    EXPECT_EQ(Get("frmToy(1).ListMany." + std::string(row)), "none") << row;
  }
}

TEST_F(Names, BarsTellTheirEndsColoursAreNumbersAndFocusIsTold) {
  EXPECT_EQ(Get("frmToy(1).VScroll1(0).min"), "127");
  EXPECT_EQ(Get("frmToy(1).VScroll1(0).max"), "0");
  EXPECT_EQ(Get("frmToy(1).Comm.color"), "12632256");
  EXPECT_EQ(Get("frmToy(1).Comm.forecolor"), "0");
  child.Comm.SetBackColour(255);
  child.Comm.SetForeColour(0xFF0000);
  EXPECT_EQ(Get("frmToy(1).Comm.color"), "255");
  EXPECT_EQ(Get("frmToy(1).Comm.forecolor"), "16711680");
  EXPECT_EQ(Get("frmToy(1).Comm.focus"), "0");
  child.Comm.UserPress();
  EXPECT_EQ(Get("frmToy(1).Comm.focus"), "1");
  EXPECT_EQ(Get("frmToy(1).Timer1.interval"), "100");
  EXPECT_EQ(Get("mnuToggle.checked"), "0");
  EXPECT_EQ(Get("mnuToggle.caption"), "\"\"");
}

TEST_F(Names, APropertyOfAnotherKindIsNone) {
  for (const std::string_view name :
       {"frmToy(1).Text1.checked", "frmToy(1).Text1.rows", "frmToy(1).Text1.min", "frmToy(1).Text1.interval",
        "frmToy(1).Text1.caption", "frmToy(1).Comm.row", "frmToy(1).Combo1.selected", "frmToy(1).List1.nonsense",
        "frmToy(1).rows", "frmToy(1).enabled", "mnuNew.row(0)"}) {
    EXPECT_EQ(Get(name), "none") << name;
  }
}

TEST_F(Names, FormsTellTheirPlaceAndFocus) {
  host.console.UserPlaces(child, {3, -4, 200, 100, WindowState::kNormal});
  EXPECT_EQ(Get("frmToy(1).caption"), "\"Toy 1\"");
  EXPECT_EQ(Get("frmToy(1).left"), "3");
  EXPECT_EQ(Get("frmToy(1).top"), "-4");
  EXPECT_EQ(Get("frmToy(1).width"), "200");
  EXPECT_EQ(Get("frmToy(1).height"), "100");
  EXPECT_EQ(Get("frmToy(1).state"), "0");
  EXPECT_EQ(Get("frmToy(1).focus"), "1");
  EXPECT_EQ(Get("frmMain.focus"), "0");
  toy.NewChild();
  EXPECT_EQ(Get("frmToy(1).focus"), "0");
  host.console.Open(std::make_unique<ToyModal>(toy));
  EXPECT_EQ(Get("frmToy(2).focus"), "0");
  EXPECT_EQ(Get("frmModal.focus"), "1");
}

}  // namespace
}  // namespace zentaline::ui
