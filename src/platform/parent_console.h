#pragma once

namespace quillbox {

/// Windows only, whose programs with windows have no console: what is written to standard output
/// from here on appears in the console that this program was started from. Without one, or where
/// standard output leads somewhere already (a file, a pipe), nothing changes.
void writeToParentConsole();

}  // namespace quillbox
