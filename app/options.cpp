#include "app/options.h"

namespace zentaline {

void ReadOptions(const std::vector<std::string>& arguments, const OwnOptions& own, SharedOptions& options) {
  const auto take = [&](const std::string& option, const std::string& value) {
    if (value.empty()) {
      options.error = option + " needs a value";
    } else if (option == "--dir") {
      options.directory = value;
    } else {
      options.error = own.midi(value);
    }
  };
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
      take(argument, i + 1 < arguments.size() ? arguments[++i] : std::string());
    } else if (argument.starts_with("--dir=") || argument.starts_with("--midi=")) {
      const std::size_t sign = argument.find('=');
      take(argument.substr(0, sign), argument.substr(sign + 1));
    } else if (!own.flag(argument)) {
      options.error = "there is no option " + argument;
    }
  }
}

}  // namespace zentaline
