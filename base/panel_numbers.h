// The two-digit numbers that the instrument's panel shows for the places of a bank: 11 to 18, 21 to 28, up to 88.
#pragma once

#include <string>

namespace zentaline {

// The number of place `n`, which counts from 0: tens 1 + n / 8, units 1 + n % 8. Places above 63 go on in the next
// decade (64 gives 91, 72 gives 101); a negative place counts as 0.
int PanelNumber(int n);
std::string PanelNumberText(int n);

// The place, 0 to 63, of the number 11 to 88; -1 when a digit isn't 1 to 8.
int PanelPlace(int number);

}  // namespace zentaline
