// The program with the keyboard on the screen open, played by the mouse.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/style/style_desk.h"
#include "ui/picture.h"

namespace zentaline::test {

inline constexpr int kUpperPart = 700;  // of a key, well above its end

class Keyboard : public ::testing::Test {
 protected:
  Keyboard() {
    desk_.Press("mnuTastiera");
    desk_.Wire();
  }

  template <typename T>
  T& The(const std::string& name) {
    return *desk_.Find<T>("frmTastiera." + name);
  }
  ui::Picture& Key(int key) { return The<ui::Picture>("Key(" + std::to_string(key) + ")"); }
  void Down(int key, bool right = false) { Key(key).UserMouse({ui::MouseEvent::kDown, 60, kUpperPart, right}); }
  void Up(int key, bool right = false) { Key(key).UserMouse({ui::MouseEvent::kUp, 60, kUpperPart, right}); }
  void Over(int key, int y = kUpperPart) { Key(key).UserMouse({ui::MouseEvent::kMove, 60, y, false}); }
  void Click(int key) {
    Down(key);
    Up(key);
  }
  // By their marks: a key at rest has no area beyond its own.
  std::vector<int> Marked() {
    std::vector<int> marked;
    for (int key = 0; key < 61; ++key) {
      int areas = 0;
      for (const ui::Shape& shape : Key(key).drawing().shapes) {
        if (shape.kind == ui::Shape::Kind::kArea) ++areas;
      }
      if (areas == 2) marked.push_back(key);
    }
    return marked;
  }
  std::vector<int> Held() { return In(aids().HeldNotes); }
  static std::vector<int> In(const Bytes& notes) {
    std::vector<int> found;
    for (std::size_t i = 0; i < notes.size(); ++i) {
      if (notes[i] == 1) found.push_back(12 + static_cast<int>(i));
    }
    return found;
  }
  bool Box(const std::string& name, bool on) { return The<ui::CheckBox>(name).UserSet(on); }
  bool Bar(const std::string& name, int value) { return The<ui::ScrollBar>(name).UserSet(value); }
  const AidsState& aids() { return desk_.program.app.aids; }
  const std::array<int, 16>& Settings() { return desk_.program.app.core.settings.Keyboard; }
  std::string Text(const std::string& name) { return desk_.Text("frmTastiera." + name); }
  bool HoldChordEnabled() { return desk_.Enabled("frmTastiera.CommHoldChord"); }
  bool Press(const std::string& name) { return desk_.Press("frmTastiera." + name); }

  StyDesk desk_;
};

}  // namespace zentaline::test
