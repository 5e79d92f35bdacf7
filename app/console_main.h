// The program on a console, from its command line to its exit status.
#pragma once

#include "app/console_host.h"

namespace zentaline {

int RunConsole(int count, char** arguments, const ConsoleParts& parts);

}  // namespace zentaline
