#pragma once

#include <functional>
#include <string>

#include "forms/program.h"

namespace quillbox::IO {

/// Asks for a collection until an existing one is chosen; empty when the user cancels. `missing` is
/// called with each path that does not exist.
std::string chooseCollection(Program& program,
                             const std::function<void(const std::string& path)>& missing);

/// Asks for the name of an output file; empty when the user cancels. Asks again while a folder on
/// the path of the current collection (never of the chosen file) cannot be listed or is empty.
void SaveAs(Program& program, std::string& chosen);

/// Offers to delete the file with a new collection's name. A bare name is looked for in the
/// program's own folder. "No" leaves the file.
void DelFile(Program& program, const std::string& name);

}  // namespace quillbox::IO
