// Reading and saving .arr files, and the way of a record back into its window.
#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/windows.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/file_set.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/api.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

EditWords KeptWords(std::string_view record) {
  const Bytes name = Slice(record, arr_edit::kRecord, kArrNameLength);
  return {"Kept", {}, Utf8FromBytes(TrimRight(name.substr(0, name.find('\0'))))};
}

// The window that a record came from; null when it isn't there any longer.
ChildWindow* SourceOf(const Application& app, const Bytes& record) {
  const int kind = ByteAt(record, arr_edit::kKind);
  if (kind == kKindArrA || kind == kKindArrB) return ArrBankWindow(app, kind);
  const int number = ByteAt(record, arr_edit::kWindowNumber);
  if (kind != kKindArr || number < 1 || number > kInstrumentWindow) return nullptr;
  return app.arr_windows[static_cast<std::size_t>(number)];
}

}  // namespace

int ReadArrFile(Application& app, const std::string& path) {
  Bytes file;
  const FileReadResult result = ReadDataFile(app, path, kArrFileLength, file);
  if (result == kFileFailed || result == kFileAbsent) return result;
  const bool good = result == kFileRead && CheckArrFile(file) == kArrGood;
  if (file.size() == kArrFileLength) app.arrangement.ArrFileImage = Slice(file, 1, kArrFileLength);
  if (good) return kArrGood;
  ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, ShownPath(FileBaseName(path)));
  return kArrWrong;
}

// The empty template stands for no .sty at all, unless a window shows it.
void PutArrFiles(const Application& app, Bytes& image, FileSet& set) {
  const std::string base(WindowPath(image));
  const int state = ByteAt(image, kStyStatePosition);
  // What a new file's window holds is written each time.
  const bool writes = ByteAt(image, kStyChangedPosition) == 1 || ByteAt(image, kKindPosition) == kKindNewArr;
  if (state == 2 && writes) set.WriteBeside(base + ".sty", StyFileBytes(image));
  set.Write(base + ".arr", ArrFileBytes(image));
  if (state == 1 && StylesWindow(app, kKindSty, base) == nullptr) set.SetAside(base + ".sty");
}

void ArrFilesSaved(Bytes& image, bool whole) {
  if (whole) PutByte(image, kStyChangedPosition, 0);
  // What was saved without all that goes with it is asked for again.
  PutByte(image, kChangedPosition, whole ? 0 : 1);
}

int StoreEditRecord(Application& app) {
  const Bytes& record = app.arrangement.ArrEditRecord;
  ChildWindow* window = SourceOf(app, record);
  if (window == nullptr) return kArrNoWindow;
  const ArrStoreResult result = app.edits.Change(ImageOf(*window), KeptWords(record),
                                                 [&](Bytes& image) { return StoreEditRecordBytes(image, record); });
  if (result == kArrReadOnly) {
    ShowMessage(app, kMessageReadOnlyFile, ShownPath(window->BaseName()), {});
  } else if (result == kArrStored) {
    if (app.arrangement.ArrNameChanged) ShowRecordName(*window, ByteAt(record, arr_edit::kIndex));
    window->Activated();
    // What was done one by one is one action on the file now.
    app.edits.ForgetRecord(kArrRecordUnderEdit);
  }
  return result;
}

}  // namespace zentaline
