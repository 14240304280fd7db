#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdio>

#include "platform/parent_console.h"

namespace quillbox {

void writeToParentConsole() {
  if (::GetFileType(::GetStdHandle(STD_OUTPUT_HANDLE)) != FILE_TYPE_UNKNOWN) return;
  if (::AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  // The console does not wait for such a program: its next prompt stands there already.
  if (std::freopen("CONOUT$", "w", stdout) != nullptr) std::putchar('\n');
}

}  // namespace quillbox
