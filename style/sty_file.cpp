// Reading and writing style files.
#include "core/application.h"
#include "core/boxes.h"
#include "core/file_reading.h"
#include "core/file_set.h"
#include "core/window_image.h"
#include "data/message_codes.h"
#include "files/paths.h"
#include "style/api.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

constexpr std::string_view kTemplateEnd = "i40Sty";

// By its base name and ".sty", whatever the extension was; the template has none.
void ShowErrorReading(Application& app, const std::string& path) {
  const std::string named = path.ends_with(kTemplateEnd) ? path : WithoutExtension(path) + ".sty";
  ShowMessage(app, kMessageErrorReading, app.core.OperationTitle, ShownPath(FileBaseName(named)));
}

void SetCurrentStyles(StyleState& state, const std::string& base) {
  state.CurrentStyDir = FileDirectory(base);
  state.CurrentStyName = FileBaseName(base);
}

// Reads and checks; `take` makes of the bytes what is wanted.
template <typename Take>
int ReadStyles(Application& app, const std::string& path, Take take) {
  Bytes file;
  switch (ReadDataFile(app, path, kLargestDataFile, file)) {
    case kFileFailed:
      return kStyWrong;
    case kFileAbsent:
      return kStyAbsent;
    case kFileTooLarge:
      file.clear();
      break;
    case kFileRead:
      break;
  }
  const StyReadResult result = file.empty() ? kStyWrong : take(file);
  if (result == kStyWrong) ShowErrorReading(app, path);
  return result;
}

}  // namespace

int StyFileRead(Application& app, const std::string& path) {
  StyleState& state = app.style;
  const bool is_template = path.ends_with(kTemplateEnd);
  const int result = ReadStyles(app, path, [&](const Bytes& file) {
    return is_template ? StyReadTemplate(file, state.EmptyStyleImage) : StyReadImage(file, state.StyleImage);
  });
  if (result == kStyGood && !is_template) SetCurrentStyles(state, WithoutExtension(path));
  return result;
}

void TakeStyleFile(Application& app, const std::string& base, std::string_view styles) {
  app.style.StyleImage = styles;
  SetCurrentStyles(app.style, base);
}

void PutStyFiles(const Application&, Bytes& image, FileSet& set) {
  // The window goes on showing what the file leaves out.
  Bytes copy = image;
  set.Write(std::string(WindowPath(image)) + ".sty", StyFileBytes(copy));
}

void StyFilesSaved(Bytes& image, bool whole) {
  if (whole) PutByte(image, kStyChangedPosition, 0);
}

std::string StylePartOfI30(const std::string& path, int part) {
  return WithoutExtension(path) + "-" + std::to_string(part + 1);
}

int StyImportI30(Application& app, const std::string& path) {
  std::array<Bytes, 3> outputs;
  const int result = ReadStyles(app, path, [&](const Bytes& file) { return StySplitI30(file, outputs); });
  if (result != kStyGood) return result;
  for (int part = 0; part < static_cast<int>(outputs.size()); ++part) {
    const std::string name = StylePartOfI30(path, part) + ".sty";
    if (!WriteDataFile(app, name, outputs[static_cast<std::size_t>(part)])) return kStyWrong;
  }
  return kStyGood;
}

}  // namespace zentaline
