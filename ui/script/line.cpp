#include "ui/script/line.h"

#include "base/utf8.h"

namespace zentaline::ui {

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

class LineParser {
 public:
  explicit LineParser(std::string_view line) : line_(line) {}

  ScriptLine Parse() {
    while (result_.error.empty()) {
      while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
      if (at_ == line_.size() || line_[at_] == '#') break;
      if (line_[at_] == '"') {
        QuotedWord();
      } else {
        PlainWord();
      }
    }
    return std::move(result_);
  }

 private:
  void PlainWord() {
    const std::size_t start = at_;
    while (at_ < line_.size() && !IsBlank(line_[at_])) {
      if (line_[at_] == '"') return Wrong("a double quote inside a word");
      ++at_;
    }
    result_.words.push_back({std::string(line_.substr(start, at_ - start)), false});
  }

  void QuotedWord() {
    std::string text;
    for (++at_; at_ < line_.size() && line_[at_] != '"'; ++at_) {
      if (line_[at_] != '\\') {
        text += line_[at_];
      } else if (!Escape(text)) {
        return Wrong("an unknown escape in a text");
      }
    }
    if (at_ == line_.size()) return Wrong("a text without its closing quote");
    ++at_;
    if (at_ < line_.size() && !IsBlank(line_[at_])) return Wrong("no blank behind a text");
    result_.words.push_back({std::move(text), true});
  }

  // Leaves at_ on the last character of the escape.
  bool Escape(std::string& text) {
    if (++at_ >= line_.size()) return false;
    switch (line_[at_]) {
      case '"':
      case '\\':
        text += line_[at_];
        return true;
      case 'n':
        text += '\n';
        return true;
      case 'x': {
        if (line_.size() - at_ < 3) return false;
        const int high = HexDigit(line_[at_ + 1]);
        const int low = HexDigit(line_[at_ + 2]);
        if (high < 0 || low < 0) return false;
        text += static_cast<char>(high * 16 + low);
        at_ += 2;
        return true;
      }
      default:
        return false;
    }
  }

  void Wrong(std::string error) {
    result_.words.clear();
    result_.error = std::move(error);
  }

  std::string_view line_;
  std::size_t at_ = 0;
  ScriptLine result_;
};

ScriptLine BadLine(std::string error) {
  ScriptLine bad;
  bad.error = std::move(error);
  return bad;
}

}  // namespace

ScriptLine ParseScriptLine(std::string_view line) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  if (line.size() > kLongestScriptLine) return BadLine("too long a line");
  if (line.find('\0') != std::string_view::npos) return BadLine("a zero byte in the line");
  if (!IsUtf8(line)) return BadLine("the line is no UTF-8");
  return LineParser(line).Parse();
}

}  // namespace zentaline::ui
