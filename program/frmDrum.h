// The window of the drum kits, there once for the drum part and once for the percussion part.
#pragma once

#include "program/bank_window.h"

namespace zentaline {

class frmDrum : public BankWindow {
 public:
  // Kind 9 or 10.
  frmDrum(Application& app, int kind);
};

}  // namespace zentaline
