#include "ui/strips.h"

#include <gtest/gtest.h>

#include <memory>

#include "ui/console/console_toolkit.h"

namespace zentaline::ui {
namespace {

constexpr int kStrips = 3;

class Mixer : public Form {
 public:
  explicit Mixer(Toolkit& toolkit) : Form(toolkit, FormKind::kChild, "frmMixer") {
    std::vector<Layout> strips;
    for (int i = 0; i < kStrips; ++i) {
      frames.push_back(std::make_unique<Frame>(*this, "Frame", i));
      bars.push_back(std::make_unique<ScrollBar>(*this, "Bar", i));
      buttons.push_back(std::make_unique<Button>(*this, "Comm", i));
      strips.push_back(Inside(*frames.back(), Column({Item(*bars.back()), Row({Item(*buttons.back())})})));
    }
    Tabs1.captions = {"One", "Two", "Three"};
    layout = Column({Item(Alone), Pages(Tabs1, {Row(std::move(strips)), Layout(), Layout()})});
  }
  Button Alone{*this, "Alone"};
  Tabs Tabs1{*this, "Tabs1"};
  std::vector<std::unique_ptr<Frame>> frames;
  std::vector<std::unique_ptr<ScrollBar>> bars;
  std::vector<std::unique_ptr<Button>> buttons;
};

class Strips : public testing::Test {
 protected:
  ConsoleToolkit toolkit{ConsoleToolkit::Clock::kVirtual, [](const std::string&) {}};
  Mixer& mixer = static_cast<Mixer&>(toolkit.Open(std::make_unique<Mixer>(toolkit)));
};

TEST_F(Strips, TheSameControlStandsInTheStripBeside) {
  EXPECT_EQ(InStripBeside(*mixer.bars[0], 1), mixer.bars[1].get());
  EXPECT_EQ(InStripBeside(*mixer.buttons[2], -1), mixer.buttons[1].get());
}

TEST_F(Strips, BeyondTheFirstAndTheLastThereIsNone) {
  EXPECT_EQ(InStripBeside(*mixer.bars[0], -1), nullptr);
  EXPECT_EQ(InStripBeside(*mixer.bars[2], 1), nullptr);
}

TEST_F(Strips, WhatCantBeReachedIsNone) {
  mixer.buttons[1]->SetEnabled(false);
  EXPECT_EQ(InStripBeside(*mixer.buttons[0], 1), nullptr);
}

TEST_F(Strips, OutsideOfStripsNothingStandsBeside) {
  EXPECT_EQ(InStripBeside(mixer.Alone, 1), nullptr);
}

TEST_F(Strips, PagesTurnRoundAtTheEnds) {
  EXPECT_TRUE(TurnPage(mixer, -1));
  EXPECT_EQ(mixer.Tabs1.page(), 2);
  EXPECT_TRUE(TurnPage(mixer, 1));
  EXPECT_EQ(mixer.Tabs1.page(), 0);
}

}  // namespace
}  // namespace zentaline::ui
