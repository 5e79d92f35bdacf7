// The lines that go in and out of a console program.
#pragma once

#include <functional>
#include <string>

namespace zentaline::ui {

// Lines to a file descriptor, each at once, so that another program can answer it.
class LineWriter {
 public:
  explicit LineWriter(int descriptor) : descriptor_(descriptor) {}
  void Write(const std::string& line);

 private:
  int descriptor_;
};

// Lines from a file descriptor.
class LineReader {
 public:
  // Before a wait for input: gives the milliseconds after which it wants to be called again, -1 for never. It may read
  // lines itself.
  using Idle = std::function<int()>;
  // What else can end the wait: when the descriptor can be read, and before every line, `look` is called, which gives
  // false when nothing more is to be read.
  struct Other {
    int descriptor = -1;
    std::function<bool()> look = {};
  };

  // `longest` in bytes: of a longer line one byte more than that is given, without waiting for its end, which may never
  // come; the rest of it is dropped.
  LineReader(int descriptor, std::size_t longest) : descriptor_(descriptor), longest_(longest) {}

  // The next line without its line end; false at the end. A last line needs no line end. Without `idle` nothing else
  // happens meanwhile.
  bool Read(std::string& line, const Idle& idle, const Other& other);
  bool Read(std::string& line, const Idle& idle) { return Read(line, idle, Other()); }

 private:
  bool TakeLine(std::string& line);
  void TakenTo(std::size_t place);
  void Fill();

  int descriptor_;
  std::size_t longest_;
  std::string buffer_;
  std::size_t taken_ = 0;    // of the buffer
  std::size_t scanned_ = 0;  // of the buffer: no line end lies before it
  bool dropping_ = false;    // what comes up to the next line end
  bool at_end_ = false;
};

}  // namespace zentaline::ui
