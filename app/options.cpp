#include "app/options.h"

namespace zentaline {

void ReadOptions(const std::vector<std::string>& arguments, const OwnOptions& own, SharedOptions& options) {
  bool only_operands = false;
  for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
    const std::string& argument = arguments[i];
    if (only_operands || argument == "-" || !argument.starts_with('-')) {
      options.error = own.operand(argument);
    } else if (argument == "--") {
      only_operands = true;
    } else if (argument == "--help" || argument == "-h") {
      options.help = true;
    } else if (argument == "--dir" || argument == "--midi") {
      const std::string value = i + 1 < arguments.size() ? arguments[++i] : std::string();
      if (value.empty()) {
        options.error = argument + " needs a value";
      } else if (argument == "--dir") {
        options.directory = value;
      } else {
        options.error = own.midi(value);
      }
    } else if (!own.flag(argument)) {
      options.error = "there is no option " + argument;
    }
  }
}

}  // namespace zentaline
