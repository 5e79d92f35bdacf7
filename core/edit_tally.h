// How far what is shown of a file, or of a record, is away from what was last saved or taken up.
#pragma once

namespace zentaline {

// Of one mark that says that something is changed. Each action that changes bytes of its part counts while it stands,
// so that the count is the one of the last save again when everything since has been taken back.
struct EditTally {
  static constexpr int kNever = -1;

  int standing = 0;    // how many actions of this part have been done and not been taken back
  int saved = 0;       // the same at the last save, opening or taking-up; kNever when nothing leads back there
  int mark = 0;        // what the mark was there
  bool known = false;  // whether `mark` is

  int Value() const { return standing == saved ? mark : 1; }
  void Save(int value) { *this = {standing, standing, value, true}; }
};

}  // namespace zentaline
