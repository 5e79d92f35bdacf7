// The journal: whatever bytes it holds, what stands before the first bad one is read, and can be written again.
#include "core/journal_format.h"
#include "fuzz/fuzz_input.h"

using namespace zentaline;
using zentaline::fuzz::Require;

namespace {

Bytes Head(std::string_view content, bool right) {
  // A check sum that is right lets the fuzzer get behind it.
  Bytes record(8, '\0');
  const FileMark mark = MarkOf(Bytes(content));
  for (std::size_t i = 0; i < 4; ++i) {
    record[i] = static_cast<char>(content.size() >> (8 * i) & 0xFF);
    record[4 + i] = static_cast<char>(mark.check >> (8 * i) & 0xFF);
  }
  if (!right) record[4] = static_cast<char>(record[4] ^ 1);
  return record.append(content);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  Bytes file = JournalHead();
  JournalWindow window;
  window.window = 1;
  window.image = Bytes(600, 'i');
  file += JournalBytes(window);
  const int records = input.Byte() % 16;
  for (int i = 0; i < records; ++i) {
    const bool right = input.Byte() != 0;
    file += Head(input.Take(static_cast<std::size_t>(input.Byte())), right);
  }
  file += input.Rest();

  const std::optional<JournalContent> content = ReadJournal(file);
  Require(content.has_value() && content->read <= file.size());
  const std::optional<JournalContent> again = ReadJournal(std::string_view(file).substr(0, content->read));
  Require(again.has_value() && again->read == content->read);
  Require(again->windows.size() == content->windows.size());

  const Bytes rewritten = RewriteJournal(*content);
  const std::optional<JournalContent> net = ReadJournal(rewritten);
  Require(net.has_value() && net->read == rewritten.size());
  Require(net->windows.size() == content->windows.size());
  for (const auto& [id, left] : content->windows) Require(net->windows.at(id).image == left.image);
  for (const auto& [thing, left] : content->records) Require(net->records.at(thing).bytes == left.bytes);
  ReadJournal(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
