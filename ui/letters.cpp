#include "ui/letters.h"

#include <algorithm>
#include <cctype>
#include <utility>
#include <vector>

namespace zentaline::ui {

namespace {

constexpr std::size_t kLongestMark = 2;

bool IsLetter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

char Small(char c) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

// Those of a caption, the first letters of words before all others.
std::string LettersIn(std::string_view caption) {
  std::string letters;
  for (const bool begins_word : {true, false}) {
    for (std::size_t i = 0; i < caption.size(); ++i) {
      const bool begins = i == 0 || !IsLetter(caption[i - 1]);
      if (IsLetter(caption[i]) && begins == begins_word) letters += Small(caption[i]);
    }
  }
  return letters;
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

// Who has which letter, as long as others can still have one too.
template <class Each>
class Assignment {
 public:
  explicit Assignment(std::set<char> taken) : taken_(std::move(taken)) {}

  // A letter that nobody else gets, when it is free.
  bool Keep(const Each& control, char letter) {
    if (!taken_.insert(letter).second) return false;
    kept_[&control] = letter;
    return true;
  }
  // One of its letters; who has it already takes another one, if he can. False when nobody can.
  bool Give(const Each& control) {
    std::set<char> tried;
    return Give(control, tried);
  }
  // One that its caption doesn't hold: a number, or what else is left.
  void GiveOther(const Each& control) {
    static constexpr std::string_view kOthers = "123456789abcdefghijklmnopqrstuvwxyz0";
    const auto* const free = std::find_if(kOthers.begin(), kOthers.end(), [this](char letter) {
      return !taken_.contains(letter) && !given_.contains(letter);
    });
    if (free != kOthers.end()) given_[*free] = &control;
  }
  Letters Result() const {
    Letters letters(kept_.begin(), kept_.end());
    for (const auto& [letter, control] : given_) letters[control] = letter;
    return letters;
  }

 private:
  bool Give(const Each& control, std::set<char>& tried) {
    const std::string letters = LettersIn(control.caption());
    for (const bool owned : {false, true}) {
      for (const char letter : letters) {
        const auto owner = given_.find(letter);
        if (taken_.contains(letter) || (owner != given_.end()) != owned) continue;
        if (owned && (!tried.insert(letter).second || !Give(*owner->second, tried))) continue;
        given_[letter] = &control;
        return true;
      }
    }
    return false;
  }

  std::set<char> taken_;
  Letters kept_;
  std::map<char, const Each*> given_;
};

// First what the captions name, then what is left of their letters, then numbers: of eight Resets not each finds one.
template <class Each>
Letters Assigned(const std::vector<Each*>& controls, std::set<char> taken) {
  Assignment<Each> assignment(std::move(taken));
  std::vector<Each*> others;
  for (Each* control : controls) {
    const char named = control->literal ? '\0' : NamedLetter(control->caption());
    if (named == 0 || !assignment.Keep(*control, named)) others.push_back(control);
  }
  std::erase_if(others, [&assignment](const Each* control) { return assignment.Give(*control); });
  for (Each* control : others) assignment.GiveOther(*control);
  return assignment.Result();
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
  if (!placed && !literal) shown += std::string(" (&") + letter + ')';
  return shown;
}

}  // namespace zentaline::ui
