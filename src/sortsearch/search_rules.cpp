#include "sortsearch/search_rules.h"

#include "records/app_state.h"

namespace quillbox {
namespace {

constexpr const Field* kMusicDates[] = {musicField("AquireDate"), musicField("DateLoaned"),
                                        musicField("DueDate")};
constexpr const Field* kComicDates[] = {comicField("AquireDate")};

constexpr SearchRules kRules[] = {
    {.editor = EditorForm::music, .dates = kMusicDates},
    {.editor = EditorForm::video},
    {.editor = EditorForm::software},
    {.editor = EditorForm::comics, .dates = kComicDates},
    {.editor = EditorForm::books,
     .texts = TextMatch::full,
     .showsProgress = false,
     .setsListPos = false,
     .notFound = "Not Found"},
    {.editor = EditorForm::wave, .texts = TextMatch::ignoresCase},
};

}  // namespace

const SearchRules& searchRulesOf(const CollectionKind& kind) { return rowOf<kRules>(kind.editor); }

}  // namespace quillbox
