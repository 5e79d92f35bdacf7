// Who is told of what becomes of the list of changes, as something that keeps it on the disk. It is told while the
// user's event still runs, or right at its end, and changes nothing itself.
#pragma once

namespace zentaline {

class ChildWindow;
struct EditAction;
struct EditTarget;

class EditListener {
 public:
  // A window has an image of its own; told at the end of the event in which it opened, before any Noted of that event.
  virtual void Opened(ChildWindow& window) = 0;
  // The action is new, or has grown by the moves of a hand that goes on; told at the end of each event that changed it,
  // and before a save or another action comes behind it. Its number tells them apart. One that says nothing
  // (ChangesBytes) may follow a growth that did, when the hand has come back to where it began.
  virtual void Noted(const EditAction& action) = 0;
  // Bytes and marks are back, or forth, already. Saves that are crossed are told too.
  virtual void TakenBack(const EditAction& action) = 0;
  virtual void BroughtForth(const EditAction& action) = 0;
  // The action can neither be taken back nor brought forth any more; what it did stands as it does. Maybe it was never
  // told of.
  virtual void Left(const EditAction& action) = 0;
  // The files of a window have been written, all of them if `whole`; its image is as it was written. A new path is told
  // by the image.
  virtual void Saved(ChildWindow& window, bool whole) = 0;
  // The window is about to go, and its actions with it.
  virtual void Closed(ChildWindow& window) = 0;
  // Another record is under edit, which stands in its target now; its actions so far have left the list.
  virtual void Taken(const EditTarget& record) = 0;

 protected:
  ~EditListener() = default;
};

}  // namespace zentaline
