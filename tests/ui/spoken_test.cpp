#include "ui/spoken.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/console/console_toolkit.h"

namespace zentaline::ui {
namespace {

using testing::ElementsAre;

class Window : public Form {
 public:
  explicit Window(Toolkit& toolkit) : Form(toolkit, FormKind::kChild, "frmWindow") { SetCaption("Window"); }
  Label Lab{*this, "Lab"};
  Frame Left{*this, "Left"};
  Frame Right{*this, "Right"};
  ComboBox List1{*this, "List1"};
  ComboBox List2{*this, "List2"};
  ScrollBar Bar{*this, "Bar"};
  Button Plus{*this, "Plus"};
  Button Save{*this, "Save"};
  TextBox Text{*this, "Text"};
};

class Spoken : public testing::Test {
 protected:
  std::vector<std::string> Names(std::vector<const Control*> controls) {
    const SpokenNames names = SpokenNamesOf(window);
    std::vector<std::string> spoken;
    for (const Control* control : controls) spoken.push_back(names.at(control));
    return spoken;
  }
  ConsoleToolkit toolkit{ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}};
  Window window{toolkit};
};

TEST_F(Spoken, AListGoesByTheLabelBeforeIt) {
  window.Lab.SetCaption("&Octave:");
  window.layout = Row({Item(window.Lab), Item(window.List1)});
  EXPECT_THAT(Names({&window.List1}), ElementsAre("Octave"));
}

TEST_F(Spoken, ACommandGoesByItsCaptionAndAMarkByWhatItStandsBeside) {
  window.Lab.SetCaption("Attack");
  window.Plus.SetCaption("+");
  window.Save.SetCaption("Sa&ve && Close");
  window.layout = Row({Item(window.Lab), Item(window.Plus), Item(window.Save)});
  EXPECT_THAT(Names({&window.Plus, &window.Save}), ElementsAre("+, Attack", "Save & Close"));
}

TEST_F(Spoken, WhatAControlSaysOfItselfComesFirst) {
  window.Lab.SetCaption("Vol");
  window.Bar.SetSaid("Volume, UPPER1");
  window.layout = Row({Item(window.Lab), Item(window.Bar)});
  EXPECT_THAT(Names({&window.Bar}), ElementsAre("Volume, UPPER1"));
}

TEST_F(Spoken, TwoAlikeAreToldApartByWhatTheyStandInElseByNumber) {
  window.Lab.SetCaption("Pan");
  window.Left.SetCaption("Left");
  window.Right.SetCaption("Right");
  window.layout = Row({Item(window.Lab), Inside(window.Left, Item(window.List1)),
                       Inside(window.Right, Item(window.List2)), Item(window.Bar), Item(window.Text)});
  EXPECT_THAT(Names({&window.List1, &window.List2, &window.Bar, &window.Text}),
              ElementsAre("Pan, Left", "Pan, Right", "Pan", "Pan 2"));
}

TEST_F(Spoken, WithoutAnyOtherItIsTheWindows) {
  window.layout = Row({Item(window.Text)});
  EXPECT_THAT(Names({&window.Text}), ElementsAre("Window"));
}

}  // namespace
}  // namespace zentaline::ui
