#include "ui/letters.h"

#include <algorithm>
#include <cctype>

namespace zentaline::ui {

namespace {

constexpr std::size_t kLongestMark = 2;

bool IsLetter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

char Small(char c) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

// The first letters of words before all others.
char FreeLetter(std::string_view caption, const std::set<char>& taken) {
  for (const bool begins_word : {true, false}) {
    for (std::size_t i = 0; i < caption.size(); ++i) {
      const bool begins = i == 0 || !IsLetter(caption[i - 1]);
      if (!IsLetter(caption[i]) || (begins_word && !begins)) continue;
      if (!taken.contains(Small(caption[i]))) return Small(caption[i]);
    }
  }
  return 0;
}

const Captioned* CaptionedOf(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kButton:
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton:
      return static_cast<const Captioned*>(&control);
    default:
      return nullptr;
  }
}

bool IsCommand(const Captioned& control) {
  if (control.kind() != ControlKind::kButton || control.literal) return false;
  const std::string& caption = control.caption();
  return static_cast<std::size_t>(std::count_if(caption.begin(), caption.end(), IsLetter)) > kLongestMark;
}

// First what the captions name, then what is left; who finds none of its letters free has none.
template <class Each>
Letters Assigned(const std::vector<Each*>& controls, std::set<char> taken) {
  Letters letters;
  for (const Each* control : controls) {
    const char named = control->literal ? '\0' : NamedLetter(control->caption());
    if (named != 0 && taken.insert(named).second) letters[control] = named;
  }
  for (const Each* control : controls) {
    if (letters.contains(control)) continue;
    const char free = FreeLetter(control->caption(), taken);
    if (free == 0) continue;
    taken.insert(free);
    letters[control] = free;
  }
  return letters;
}

}  // namespace

Letters LettersOfControls(const Form& form, const std::set<char>& taken) {
  std::vector<const Captioned*> commands;
  std::vector<const Captioned*> others;
  std::set<char> used = taken;
  for (const Control* control : form.controls()) {
    if (control->kind() == ControlKind::kTabs) {
      for (const std::string& caption : static_cast<const Tabs*>(control)->captions) used.insert(NamedLetter(caption));
    }
    if (control->kind() == ControlKind::kLabel && !static_cast<const Label*>(control)->literal) {
      used.insert(NamedLetter(static_cast<const Label*>(control)->caption()));
    }
    const Captioned* captioned = CaptionedOf(*control);
    if (captioned == nullptr || captioned->literal) continue;
    (IsCommand(*captioned) ? commands : others).push_back(captioned);
  }
  Letters letters;
  for (const Captioned* other : others) {
    const char named = NamedLetter(other->caption());
    if (named == 0 || used.contains(named)) continue;
    letters[other] = named;
  }
  for (const auto& [control, letter] : letters) used.insert(letter);
  letters.merge(Assigned(commands, used));
  return letters;
}

Letters LettersOfEntries(const std::vector<MenuEntry*>& entries) {
  std::vector<const MenuEntry*> named;
  for (const MenuEntry* entry : entries) {
    // Of arrays each is data, with a number or a name of its own.
    if (entry->index() < 0) named.push_back(entry);
  }
  return Assigned(named, {});
}

std::set<char> LettersOfBar(const Form& main) {
  std::set<char> letters;
  for (const auto& [entry, letter] : LettersOfEntries(main.menu_bar())) letters.insert(letter);
  return letters;
}

char NamedLetter(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (IsLetter(caption[i + 1])) return Small(caption[i + 1]);
    ++i;
  }
  return 0;
}

bool HasLetter(std::string_view caption, char letter) {
  return std::any_of(caption.begin(), caption.end(), [letter](char c) { return Small(c) == letter; });
}

std::string WithLetter(std::string_view caption, char letter, bool literal) {
  std::string shown;
  bool placed = letter == 0;
  // Where the caption names the letter by itself that is its place, else its first one, of a word if there is one.
  std::size_t place = std::string_view::npos;
  if (!literal && letter != 0 && NamedLetter(caption) == letter) {
    for (place = 0; caption[place] != '&' || Small(caption[place + 1]) != letter; ++place) {
      if (caption[place] == '&') ++place;
    }
    ++place;
  }
  for (std::size_t i = 0; !placed && place == std::string_view::npos && i < caption.size(); ++i) {
    if (Small(caption[i]) == letter && (i == 0 || !IsLetter(caption[i - 1]))) place = i;
  }
  for (std::size_t i = 0; i < caption.size(); ++i) {
    const bool here = !placed && (place == std::string_view::npos ? Small(caption[i]) == letter : i == place);
    if (here) {
      shown += '&';
      placed = true;
    }
    if (caption[i] != '&') {
      shown += caption[i];
      continue;
    }
    // A doubled sign is one to be shown; a sign before a letter goes; one before anything else is none.
    const char behind = i + 1 < caption.size() ? caption[i + 1] : '\0';
    if (literal || (behind != '&' && !IsLetter(behind))) {
      shown += "&&";
    } else if (behind == '&') {
      shown += "&&";
      ++i;
    }
  }
  return shown;
}

}  // namespace zentaline::ui
