#pragma once

#include <functional>
#include <string>

#include "forms/program.h"

namespace quillbox::IO {

/// Asks for a collection until one that exists is chosen; empty when the user cancels. `missing` is
/// told of each that does not.
std::string chooseCollection(Program& program,
                             const std::function<void(const std::string& path)>& missing);

/// Asks for the name of an output file; empty when the user cancels. Asks again while a folder on
/// the way to the current collection (never to the chosen file) cannot be listed or is empty.
void SaveAs(Program& program, std::string& chosen);

/// Offers to delete what stands under a new collection's name. A bare name is taken to lie in the
/// program's own folder. "No" leaves the file.
void DelFile(Program& program, const std::string& name);

}  // namespace quillbox::IO
