#include "tests/monkey/contents.h"

#include <fstream>
#include <iterator>
#include <string>

#include "arrangement/arr_format.h"
#include "core/journal.h"
#include "core/window_image.h"
#include "global/gbl_format.h"
#include "program/prg_format.h"
#include "style/sty_format.h"
#include "tests/monkey/shared.h"

namespace zentaline::monkey {

namespace {

bool ArrUnderEdit(Application& app, ChildWindow& window) {
  return app.arrangement.EditorChanged && FileWindowOfRecord(app, JournalThing::kArrRecord) == &window;
}

bool PrgUnderEdit(Application& app, ChildWindow& window) {
  return app.program.ProgramChanged && FileWindowOfRecord(app, JournalThing::kPrgRecord) == &window;
}

}  // namespace

int FileKindOfWindow(int kind) {
  switch (kind) {
    case kKindArr:
    case kKindNewArr:
      return kKindArr;
    case kKindPrg:
    case kKindNewPrg:
      return kKindPrg;
    case kKindSty:
    case kKindNewSty:
      return kKindSty;
    case kKindGbl:
      return kKindGbl;
    default:
      return 0;
  }
}

std::uint64_t ContentOf(Application& app, ChildWindow& window, bool kept) {
  Bytes image = window.window_image();
  if (kept && ArrUnderEdit(app, window)) StoreEditRecordBytes(image, app.arrangement.ArrEditRecord);
  if (kept && PrgUnderEdit(app, window)) PutEditRecord(image, app.program.EditRecord);
  // A bank's channel is no change that could be taken back.
  const int kind = FileKindOfWindow(window.Kind());
  if (kind == kKindPrg) PutByte(image, kPrgImageChannelPosition, 0);
  if (kind == kKindArr) PutByte(image, kArrImageProgramPosition + kPrgFileChannelPosition - 1, 0);
  switch (kind) {
    case kKindArr: {
      const std::uint64_t hash = HashOf(StylePart(image), HashOf(ArrFileBytes(image)));
      if (ByteAt(image, kPrgChangedPosition) != 1) return hash;
      return HashOf(Slice(image, kArrImageProgramPosition, kPrgFileLength), hash);
    }
    case kKindPrg:
      return HashOf(PrgFileBytes(image));
    case kKindSty:
      return HashOf(StylePart(image));
    case kKindGbl:
      return HashOf(GlobalFileBytes(image));
    default:
      return 0;
  }
}

bool HasChanges(Application& app, ChildWindow& window) {
  for (const std::size_t mark : {kChangedPosition, kPrgChangedPosition, kStyChangedPosition}) {
    if (ByteAt(window.window_image(), mark) == 1) return true;
  }
  return ArrUnderEdit(app, window) || PrgUnderEdit(app, window);
}

bool StandsOnDisk(const ChildWindow& window) {
  if (!window.HasOwnPath()) return false;
  const Bytes& image = window.window_image();
  const int kind = FileKindOfWindow(window.Kind());
  const auto holds = [&](const char* extension, const Bytes& content) {
    std::ifstream file(std::string(WindowPath(image)) + extension, std::ios::binary);
    return file && content == Bytes(std::istreambuf_iterator<char>(file), {});
  };
  if (kind == kKindSty) return holds(".sty", Bytes(StylePart(image)));
  return kind == kKindArr && ByteAt(image, kPrgChangedPosition) != 1 && ByteAt(image, kStyStatePosition) == 2 &&
         holds(".arr", ArrFileBytes(image)) && holds(".sty", Bytes(StylePart(image)));
}

}  // namespace zentaline::monkey
