#include "base/panel_numbers.h"

#include <algorithm>

namespace zentaline {

int PanelNumber(int n) {
  n = std::max(n, 0);
  return 10 * (n / 8 + 1) + n % 8 + 1;
}

std::string PanelNumberText(int n) {
  return std::to_string(PanelNumber(n));
}

int PanelPlace(int number) {
  const int tens = number / 10;
  const int units = number % 10;
  if (number < 11 || tens > 8 || units < 1 || units > 8) return -1;
  return 8 * (tens - 1) + units - 1;
}

}  // namespace zentaline
