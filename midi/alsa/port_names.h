// Names of the sequencer's ports as a musician knows them. UTF-8, at most kProductNameLength characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zentaline {

// Client and port, but not the client's name twice: most ports carry it in front of their own. Of a name that is too
// long the port's end is kept, since it tells one port of a client from another.
std::string PortName(std::string_view client, std::string_view port);

// A name that came before gets " (2)", " (3)" at its end.
void MakeDistinct(std::vector<std::string>& names);

}  // namespace zentaline
