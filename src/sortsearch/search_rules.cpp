#include "sortsearch/search_rules.h"

#include "records/app_state.h"

namespace quillbox {
namespace {

constexpr const Field* kMusicDates[] = {musicField("AquireDate"), musicField("DateLoaned"),
                                        musicField("DueDate")};
constexpr const Field* kComicDates[] = {comicField("AquireDate")};

constexpr std::string_view kExact = "Whole fields, exact capitals.";
constexpr std::string_view kExactWithBoxes =
    "Whole fields, exact capitals; an unticked box means no.";

constexpr SearchRules kRules[] = {
    {.editor = EditorForm::music, .dates = kMusicDates, .hint = kExactWithBoxes},
    {.editor = EditorForm::video, .hint = kExactWithBoxes},
    {.editor = EditorForm::software, .hint = kExactWithBoxes},
    {.editor = EditorForm::comics, .dates = kComicDates, .hint = kExact},
    {.editor = EditorForm::books,
     .texts = TextMatch::full,
     .showsProgress = false,
     .setsListPos = false,
     .notFound = "Not Found",
     .hint = kExact},
    {.editor = EditorForm::wave,
     .texts = TextMatch::ignoresCase,
     .hint = "The whole name; capitals do not matter."},
};

}  // namespace

const SearchRules& searchRulesOf(const CollectionKind& kind) { return rowOf<kRules>(kind.editor); }

}  // namespace quillbox
