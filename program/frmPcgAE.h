// The window of one of the factory banks A to E.
#pragma once

#include "program/bank_window.h"

namespace zentaline {

class frmPcgAE : public BankWindow {
 public:
  // Kind 4 to 8.
  frmPcgAE(Application& app, int kind);
};

}  // namespace zentaline
