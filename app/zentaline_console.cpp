// zentaline-console: the whole program without a screen, driven by a script.
#include "app/console_main.h"

int main(int count, char** arguments) {
  return zentaline::RunConsole(count, arguments, zentaline::PlainConsole());
}
