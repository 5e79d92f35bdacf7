#include "arrangement/editor_texts.h"

#include "arrangement/arr_format.h"
#include "record/arrangement_fields.h"

namespace zentaline {

namespace {

constexpr int kUserStylesInADecade = 8;
constexpr int kFirstUserStyle = 11;
constexpr int kFirstUserStyleAbove = 13;

}  // namespace

std::string_view PartName(int part) {
  return part >= 0 && part < kArrPartCount ? kPartNames[static_cast<std::size_t>(part)] : std::string_view();
}

std::string EffectText(int effect, int type) {
  std::string text = "Effect ";
  text.append(std::to_string(effect + 1)).append(" (").append(type == 0 ? "Off" : std::to_string(type)).append(")");
  return text;
}

std::string StyleText(int number, int location) {
  if (location == kUserStyleLocation) {
    const int first = number < kUserStylesInADecade ? kFirstUserStyle : kFirstUserStyleAbove;
    return "Style (U" + std::to_string(number + first) + ")";
  }
  return "Style (" + StyleLabel(number) + ")";
}

}  // namespace zentaline
