// A desktop with the toy main window and one toy child.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <memory>

#include "tests/desktop/toy.h"
#include "ui/qt/convert.h"
#include "ui/qt/toolkit.h"
#include "ui/qt/view.h"

namespace zentaline::ui::qt {

class Desk : public ::testing::Test {
 protected:
  Desk() {
    main = &static_cast<ToyMain&>(toolkit.Open(std::make_unique<ToyMain>(toolkit, log)));
    child = &OpenChild("1");
    Settle();
    log.clear();
  }

  ToyChild& OpenChild(const std::string& number) {
    return static_cast<ToyChild&>(toolkit.Open(std::make_unique<ToyChild>(toolkit, log, number)));
  }
  // Lets everything happen that is due.
  static void Settle() {
    for (int i = 0; i < 20; ++i) QApplication::processEvents();
  }
  template <class T>
  static T* Widget(const Control& control) {
    return static_cast<T*>(static_cast<View*>(control.view)->widget());
  }
  QWidget* Frame(const Form& form) { return toolkit.windows().Of(form)->frame(); }

  Log log;
  QtToolkit toolkit;
  ToyMain* main = nullptr;
  ToyChild* child = nullptr;
};

}  // namespace zentaline::ui::qt
