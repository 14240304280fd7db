#pragma once

#include <string>

#include "forms/program.h"
#include "records/kinds.h"

namespace quillbox::IO {

/// Asks for a collection until one that exists is chosen, or the user cancels. Makes it the current
/// path (empty after a cancel), and its kind the current kind. Returns that kind; nullptr when
/// there is nothing to open: cancelled, or an extension that is no kind's.
const CollectionKind* chooseCollection(Program& program);

/// Asks for the name of an output file; empty when the user cancels. Asks again while a folder on
/// the way to the current collection (never to the chosen file) cannot be listed or is empty.
void SaveAs(Program& program, std::string& chosen);

/// Offers to delete what stands under a new collection's name. A bare name is taken to lie in the
/// program's own folder. "No" leaves the file.
void DelFile(Program& program, const std::string& name);

}  // namespace quillbox::IO
