// A second start in the same working directory.
#include "app/first_instance.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <filesystem>
#include <memory>
#include <thread>

#include "tests/support/scratch_folder.h"

namespace zentaline {
namespace {

namespace fs = std::filesystem;
using Files = std::vector<std::string>;

class Instances : public ::testing::Test {
 protected:
  void SetUp() override {
    before_ = fs::current_path();
    qputenv("XDG_RUNTIME_DIR", runtime_.Path().c_str());
    fs::create_directory(folder_.Path("work"));
    fs::create_directory(folder_.Path("other"));
    fs::create_directory_symlink("work", folder_.Path("link"));
    fs::current_path(folder_.Path("work"));
  }
  void TearDown() override { fs::current_path(before_); }

  // The second start, in a thread of its own as in a program of its own; the first goes on meanwhile.
  bool HandOver(const Files& files) {
    bool taken = false;
    std::thread second([&] { taken = FirstInstance().HandOver(files); });
    QElapsedTimer since;
    since.start();
    while (since.elapsed() < 1500) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    second.join();
    return taken;
  }

  test::ScratchFolder folder_, runtime_;
  fs::path before_;
  Files got_;
  int times_ = 0;
};

TEST_F(Instances, TheSecondHandsItsFilesToTheFirst) {
  FirstInstance first;
  EXPECT_FALSE(first.HandOver({"/a.arr"}));
  first.Listen([&](const Files& files) {
    got_ = files;
    ++times_;
  });
  EXPECT_TRUE(HandOver({"/a song.arr", "/\xE8.sty"}));
  EXPECT_EQ(got_, (Files{"/a song.arr", "/\xE8.sty"}));
  EXPECT_TRUE(HandOver({}));
  EXPECT_TRUE(got_.empty());
  EXPECT_EQ(times_, 2);
}

TEST_F(Instances, TheDirectoryCountsAndNotItsName) {
  FirstInstance first;
  first.Listen([&](const Files&) { ++times_; });
  fs::current_path(folder_.Path("link"));
  EXPECT_TRUE(HandOver({}));
  fs::current_path(folder_.Path("other"));
  EXPECT_FALSE(FirstInstance().HandOver({}));
  EXPECT_EQ(times_, 1);
}

TEST_F(Instances, AfterTheFirstHasGoneTheNextIsTheFirst) {
  auto first = std::make_unique<FirstInstance>();
  first->Listen([&](const Files&) { ++times_; });
  first.reset();
  FirstInstance next;
  EXPECT_FALSE(next.HandOver({"/a.arr"}));
  next.Listen([&](const Files&) { ++times_; });
  EXPECT_TRUE(HandOver({"/b.arr"}));
  EXPECT_EQ(times_, 1);
}

TEST_F(Instances, AFirstThatDoesNotAnswerKeepsNobodyFromWorking) {
  const FirstInstance first;  // it holds the directory, and doesn't listen
  QElapsedTimer since;
  since.start();
  EXPECT_FALSE(FirstInstance().HandOver({"/a.arr"}));
  EXPECT_LT(since.elapsed(), 10000);
}

}  // namespace
}  // namespace zentaline
