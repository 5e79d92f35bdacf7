#include "data/message_codes.h"

#include <array>
#include <cstddef>

namespace zentaline {
namespace {

constexpr std::array<int, 39> kMessageTexts = {
    76,  1,   100, 82, 14,  79,  40,  41, 42,  43,   // 0 to 9
    16,  0,   49,  89, 77,  78,  93,  90, 27,  28,   // 10 to 19
    18,  19,  20,  21, 66,  104, 105, 15, 26,  109,  // 20 to 29
    110, 112, 116, 16, 117, 118, 119, 0,  154,       // 30 to 38
};

constexpr std::array<int, 10> kWaitTexts = {0, 10, 11, 12, 13, 124, 96, 99, 101, 89};

constexpr std::array<QuestionTexts, 5> kYesNoTexts = {{{0, 0}, {52, 127}, {94, 127}, {97, 0}, {126, 127}}};
constexpr std::array<QuestionTexts, 4> kYesNoCancelTexts = {{{0, 0}, {52, 53}, {94, 53}, {126, 53}}};

template <typename Table>
auto Entry(const Table& table, int code) {
  using Value = typename Table::value_type;
  return code >= 0 && static_cast<std::size_t>(code) < table.size() ? table[static_cast<std::size_t>(code)] : Value{};
}

}  // namespace

int MessageTextId(int code) {
  return Entry(kMessageTexts, code);
}

int WaitTextId(int code) {
  return Entry(kWaitTexts, code);
}

QuestionTexts YesNoTexts(int code) {
  return Entry(kYesNoTexts, code);
}

QuestionTexts YesNoCancelTexts(int code) {
  return Entry(kYesNoCancelTexts, code);
}

}  // namespace zentaline
