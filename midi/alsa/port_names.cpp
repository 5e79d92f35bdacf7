#include "midi/alsa/port_names.h"

#include <algorithm>
#include <map>

#include "base/bytes.h"
#include "midi/device_service.h"

namespace zentaline {

namespace {

constexpr std::size_t kLastCharacters = 11;  // of a port's name that alone is too long
constexpr std::size_t kClientAtLeast = 4;    // fewer characters of a client's name tell nothing

std::size_t Length(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string_view LastCharacters(std::string_view text, std::size_t count) {
  const std::size_t length = Length(text);
  return text.substr(FirstCharacters(text, length > count ? length - count : 0).size());
}

}  // namespace

std::string PortName(std::string_view client, std::string_view port) {
  client = Trim(client);
  port = Trim(port);
  if (port.empty()) return std::string(FirstCharacters(client, kProductNameLength));
  const std::size_t length = Length(port);
  if (length > kProductNameLength) {
    const std::size_t first = kProductNameLength - kLastCharacters - 1;
    return std::string(FirstCharacters(port, first)) + "\u2026" + std::string(LastCharacters(port, kLastCharacters));
  }
  const std::size_t room = kProductNameLength - length;
  if (client.empty() || port.starts_with(client) || room < kClientAtLeast + 1) return std::string(port);
  return std::string(TrimRight(FirstCharacters(client, room - 1))) + " " + std::string(port);
}

void MakeDistinct(std::vector<std::string>& names) {
  std::map<std::string, int> seen;
  for (std::string& name : names) {
    const int count = ++seen[name];
    if (count == 1) continue;
    const std::string suffix = " (" + std::to_string(count) + ")";
    name = std::string(FirstCharacters(name, kProductNameLength - suffix.size())) + suffix;
  }
}

}  // namespace zentaline
