// Reading and saving .arr files, and the way of a record back into its window.
#include "arrangement/api.h"
#include "arrangement/arr_format.h"
#include "arrangement/windows.h"
#include "core/application.h"
#include "core/boxes.h"
#include "core/child_window.h"
#include "core/file_reading.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/api.h"
#include "style/api.h"

namespace zentaline {

namespace {

// The styles of a saved file: the empty template stands for no .sty at all, unless a window shows it.
bool SaveStylePart(Application& app, Bytes& image) {
  const int state = ByteAt(image, kStyStatePosition);
  const bool shown = StylesWindow(app, kKindSty, std::string(WindowPath(image))) != nullptr;
  if (state == 1 && !shown && !StyFileDelete(app, image)) return false;
  // What a new file's window holds is written each time.
  const bool writes = ByteAt(image, kStyChangedPosition) == 1 || ByteAt(image, kKindPosition) == kKindNewArr;
  if (state == 2 && writes && !StyFileWrite(app, image)) return false;
  PutByte(image, kStyChangedPosition, 0);
  return true;
}

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

bool SaveArrFile(Application& app, Bytes& image) {
  if (!WriteDataFile(app, std::string(WindowPath(image)) + ".arr", ArrFileBytes(image))) return false;
  const bool whole = SaveStylePart(app, image);
  // What was saved without its styles is asked for again.
  PutByte(image, kChangedPosition, whole ? 0 : 1);
  return whole;
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
