// How the process keeps memory.
#pragma once

namespace zentaline {

// What is freed stays with the process, up to 64 MiB. Bytes of whole files come and go with each window, each paste and
// each action; by default they are given back to the system each time, and taken from it anew page by page, which takes
// several times as long as copying them.
void KeepFreedMemory();

}  // namespace zentaline
