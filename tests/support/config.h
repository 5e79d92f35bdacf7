// Zentaline.ini as it lies on the disk, put together by hand: 50 records of 250 bytes, positions count from 1, numbers
// of 16 bits have their high byte first.
#pragma once

#include <string>
#include <string_view>

namespace zentaline::test {

class ConfigFile {
 public:
  std::string bytes = std::string(12500, '\0');

  // A file that starts silently: English, no device, nothing open.
  static ConfigFile English() {
    ConfigFile file;
    file.Text(1, 1, "Zentaline");
    file.Byte(1, 19, 99);
    file.Byte(1, 25, 2);
    file.Byte(1, 27, 1);
    file.Byte(1, 48, 99);
    return file;
  }

  static std::size_t Place(int record, int position) {
    return 250 * static_cast<std::size_t>(record - 1) + static_cast<std::size_t>(position - 1);
  }
  void Byte(int record, int position, int value) { bytes[Place(record, position)] = static_cast<char>(value); }
  void Word(int record, int position, int value) {
    Byte(record, position, value >> 8);
    Byte(record, position + 1, value & 255);
  }
  void Text(int record, int position, std::string_view text) {
    bytes.replace(Place(record, position), text.size(), text);
  }
  void Blanks(int record, int position, int count) {
    bytes.replace(Place(record, position), static_cast<std::size_t>(count), static_cast<std::size_t>(count), ' ');
  }
  int At(int record, int position) const { return static_cast<unsigned char>(bytes[Place(record, position)]); }
  std::string Record(int record) const { return bytes.substr(Place(record, 1), 250); }

  // An open-file entry: the path padded with blanks, then the places.
  void Entry(int record, std::string_view path, int state, int left, int top, int width, int height,
             int window_state = 0, int second = 0, int pgg = 0) {
    Blanks(record, 1, 238);
    Text(record, 1, path);
    Word(record, 239, width);
    Byte(record, 241, state);
    Byte(record, 242, second);
    Word(record, 243, left + 16000);
    Word(record, 245, top + 16000);
    Byte(record, 247, window_state);
    Byte(record, 248, pgg);
    Word(record, 249, height);
  }

  // A record of the list of recent files.
  void Recent(int i, std::string_view path, int type, bool read_only) {
    Blanks(40 + i, 1, 250);
    Text(40 + i, 1, path);
    Byte(40 + i, 242, type);
    Byte(40 + i, 247, read_only ? 1 : 0);
  }
};

}  // namespace zentaline::test
