#include "ui/script/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

#include "base/utf8.h"

namespace zentaline::ui {

namespace {

bool IsWord(const ScriptWord& word, std::string_view text) {
  return !word.quoted && word.text == text;
}

// One beyond the range of its type is taken as the range's end.
template <class Number>
std::optional<Number> WholeNumber(std::string_view text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (end != text.data() + text.size() || error == std::errc::invalid_argument) return std::nullopt;
  if (error == std::errc()) return number;
  return text.starts_with('-') ? std::numeric_limits<Number>::min() : std::numeric_limits<Number>::max();
}

}  // namespace

std::optional<int> ScriptNumber(std::string_view text) {
  return WholeNumber<int>(text);
}

std::optional<std::int64_t> ScriptDuration(std::string_view text) {
  const auto milliseconds = WholeNumber<std::int64_t>(text);
  return milliseconds && *milliseconds >= 0 ? milliseconds : std::nullopt;
}

std::optional<std::vector<int>> ScriptNumbers(ScriptWords words) {
  std::vector<int> numbers;
  for (const ScriptWord& word : words) {
    const std::optional<int> number = ScriptNumber(word.text);
    if (!number) return std::nullopt;
    numbers.push_back(*number);
  }
  return numbers;
}

std::optional<std::vector<int>> ScriptRows(ScriptWords words) {
  if (words.size() == 1 && IsWord(words[0], "none")) return std::vector<int>();
  return ScriptNumbers(words);
}

std::optional<Key> ScriptKey(const std::string& word) {
  static constexpr std::array<std::pair<std::string_view, Key::Name>, 13> kNames = {{{"Delete", Key::kDelete},
                                                                                     {"Space", Key::kSpace},
                                                                                     {" ", Key::kSpace},
                                                                                     {"Enter", Key::kEnter},
                                                                                     {"Escape", Key::kEscape},
                                                                                     {"Up", Key::kUp},
                                                                                     {"Down", Key::kDown},
                                                                                     {"PageUp", Key::kPageUp},
                                                                                     {"PageDown", Key::kPageDown},
                                                                                     {"Home", Key::kHome},
                                                                                     {"End", Key::kEnd},
                                                                                     {"Left", Key::kLeft},
                                                                                     {"Right", Key::kRight}}};
  const auto* const named =
      std::find_if(kNames.begin(), kNames.end(), [&word](const auto& name) { return name.first == word; });
  if (named != kNames.end()) return Key{named->second, {}};
  if (word.empty() || Utf8CharacterAt(word, 0).length != word.size()) return std::nullopt;
  return Key{Key::kCharacter, word};
}

std::optional<MouseEvent> ScriptMouse(ScriptWords words) {
  if (words.empty() || words.size() > 4) return std::nullopt;
  MouseEvent event;
  if (words[0].text == "down") {
    event.what = MouseEvent::kDown;
  } else if (words[0].text == "move") {
    event.what = MouseEvent::kMove;
  } else if (words[0].text == "up") {
    event.what = MouseEvent::kUp;
  } else {
    return std::nullopt;
  }
  words = words.subspan(1);
  if (!words.empty() && words.back().text == "right") {
    event.right = true;
    words = words.first(words.size() - 1);
  }
  if (words.empty()) return event;
  const auto place = ScriptNumbers(words);
  if (!place || place->size() != 2) return std::nullopt;
  event.x = (*place)[0];
  event.y = (*place)[1];
  return event;
}

std::optional<BoxAnswer> ScriptAnswer(std::string_view word) {
  if (word == "yes") return BoxAnswer::kYes;
  if (word == "no") return BoxAnswer::kNo;
  if (word == "cancel") return BoxAnswer::kCancel;
  if (word == "ok") return BoxAnswer::kOk;
  return std::nullopt;
}

std::optional<ScriptFile> ScriptFileAnswer(ScriptWords words) {
  if (words.empty()) return std::nullopt;
  ScriptFile file;
  file.cancelled = IsWord(words[0], "cancel");
  if (file.cancelled) return words.size() == 1 ? std::optional(file) : std::nullopt;
  file.path = words[0].text;
  constexpr std::string_view kFilter = "filter=";
  constexpr std::string_view kReadOnly = "readonly=";
  for (const ScriptWord& word : words.subspan(1)) {
    const std::string_view text = word.text;
    if (text.starts_with(kFilter) && !file.filter) {
      file.filter = ScriptNumber(text.substr(kFilter.size()));
      if (!file.filter) return std::nullopt;
    } else if ((text == "readonly=0" || text == "readonly=1") && !file.read_only) {
      file.read_only = text.substr(kReadOnly.size()) == "1";
    } else {
      return std::nullopt;
    }
  }
  return file;
}

}  // namespace zentaline::ui
