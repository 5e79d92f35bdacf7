// Small values that the models of controls and forms share.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zentaline::ui {

// A colour as a number: blue, green and red from the high byte, as in C0C0C0.
using Colour = std::uint32_t;
inline constexpr Colour kWindowColour = 0xC0C0C0;

struct Font {
  bool fixed_pitch = false;
  bool bold = false;
  int points = 0;  // 0 is the desktop's own size

  bool operator==(const Font&) const = default;
};

// Sizes and places are the toolkit's pixels.
struct Size {
  int width = 0;
  int height = 0;

  bool operator==(const Size&) const = default;
};

enum class WindowState : int { kNormal = 0, kMinimised = 1, kMaximised = 2 };

// The outer place of a form.
struct Placement {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  WindowState state = WindowState::kNormal;

  bool operator==(const Placement&) const = default;
};

// A key as the handlers see it.
struct Key {
  enum Name {
    kCharacter,
    kDelete,
    kSpace,
    kEnter,
    kEscape,
    kUp,
    kDown,
    kPageUp,
    kPageDown,
    kHome,
    kEnd,
    kLeft,
    kRight
  };
  Name name = kCharacter;
  std::string character;  // of kCharacter, UTF-8

  bool operator==(const Key&) const = default;
};

struct MouseEvent {
  enum What { kDown, kMove, kUp };
  What what = kDown;
  int x = 0;
  int y = 0;
  bool right = false;
};

// Message boxes: their style and the button that answered.
enum class BoxStyle : int { kOk = 48, kYesNoCancel = 51, kYesNo = 52 };
enum class BoxAnswer : int { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

struct FileFilter {
  std::string text;
  std::string patterns;  // parted by semicolons, as in *.prg;*.pgg

  bool operator==(const FileFilter&) const = default;
};

struct FileDialogRequest {
  bool save = false;
  std::string title;
  std::vector<FileFilter> filters;
  int filter = 1;  // counts from 1
  std::string directory;
  std::string name;
  std::string default_extension;  // without the dot; only in save dialogs
  bool read_only = false;
  bool shows_read_only = true;
  // Only in save dialogs: the names of the files that this answer, its path and filter, would replace or remove beside
  // the one that it names.
  std::function<std::vector<std::string>(const std::string& path, int filter)> also_touched = {};
};

struct FileDialogAnswer {
  bool cancelled = true;
  std::string path;  // the file system's bytes
  int filter = 1;
  bool read_only = false;
};

}  // namespace zentaline::ui
