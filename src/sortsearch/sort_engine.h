#pragma once

#include <cstdint>
#include <vector>

#include "platform/board.h"
#include "records/app_state.h"
#include "sortsearch/sort_rules.h"

namespace quillbox {

/// Rewrites the open collection in the order of the ticked keys: one flag for each key of the
/// kind's SortRules, in their order. Returns its new `Count`, without the blank items, which are
/// dropped.
///
/// During the work the collection has its backup's name. The new file is on the disk before the
/// backup is deleted, so one of the two is complete at any time. A failure leaves the collection
/// under its own name or only under the backup's; in the second case the error's message says so.
/// Run-time error 58 when the backup's name is taken, 63 when the file is shorter than its `Count`
/// by more than its last item, which is blank then, 6 when there are more than 32765 items.
///
/// Sorting books ends the program at once, with the collection under its backup's name.
std::int16_t sortCollection(OpenFiles& files, const OpenCollection& collection,
                            const CollectionKind& kind, const std::vector<bool>& ticked,
                            Board& board);

/// The same by other rules than the kind's: with rules that do not end the program, books can be
/// sorted too.
std::int16_t sortCollection(OpenFiles& files, const OpenCollection& collection,
                            const CollectionKind& kind, const SortRules& rules,
                            const std::vector<bool>& ticked, Board& board);

/// What follows the message to the user: the collection is left open, if the kind does that.
void finishSort(OpenFiles& files, const OpenCollection& collection, const CollectionKind& kind);

}  // namespace quillbox
