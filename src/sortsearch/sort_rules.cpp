#include "sortsearch/sort_rules.h"

#include "platform/open_files.h"
#include "records/app_state.h"

namespace quillbox {
namespace {

constexpr SortKey kMusicKeys[] = {
    {musicField("Artist"), "By &Artist"},
    {musicField("Album"), "By A&lbum Title"},
    {musicField("RecordCo"), "By &Recording Company"},
    {musicField("MediaType"), "By &Media Type"},
    {musicField("Genre"), "&Genre"},
};

// "MediaType" has no access key and no blank here.
constexpr SortKey kVideoKeys[] = {
    {videoField("Label"), "&Label Text"},
    {videoField("Publisher"), "&Publisher"},
    {videoField("MediaType"), "MediaType"},
    {videoField("Commercial"), "&Commercial"},
};

constexpr SortKey kSoftwareKeys[] = {
    {softwareField("DiskLabel"), "&Disk Label"},
    {softwareField("Publisher"), "&Publisher"},
    {softwareField("MediaType"), "&Media Type"},
    {softwareField("Commercial"), "&Commercial"},
};

constexpr SortKey kComicKeys[] = {
    {comicField("BookTitle"), "&Book Title", "Sorting by Book Title"},
    {comicField("ComicTitle"), "&Comic Title", "Sorting by Comic Title"},
    {comicField("Artists"), "&Artists", "Sorting by Artists"},
};

constexpr SortKey kBookKeys[] = {
    {bookField("Author"), "&Author", "Sorting by Author"},
    {bookField("Publisher"), "&Publisher", "Sorting by Publisher"},
    {bookField("MediaType"), "&Media Type", "Sorting by Media Type"},
    {bookField("Genre"), "&Genre", "Sorting by Genre"},
};
constexpr std::size_t kBookPublisher = 1;

constexpr SortKey kMediaFileKeys[] = {{mediaFileField("FileName"), {}}};

constexpr SortRules kRules[] = {
    {.editor = EditorForm::music,
     .keys = kMusicKeys,
     .fileNumber = file_number::fresh,
     .resetsListPos = false},
    {.editor = EditorForm::video, .keys = kVideoKeys, .fileNumber = file_number::fresh},
    {.editor = EditorForm::software, .keys = kSoftwareKeys, .fileNumber = file_number::collection},
    {.editor = EditorForm::comics,
     .keys = kComicKeys,
     .fileNumber = file_number::collection,
     .showsProgress = true},
    {.editor = EditorForm::books,
     .keys = kBookKeys,
     .fileNumber = file_number::collection,
     .showsProgress = true,
     .endsProgramAfter = kBookPublisher},
    {.editor = EditorForm::wave,
     .keys = kMediaFileKeys,
     .fileNumber = file_number::collection,
     .leavesFileOpen = true},
};

}  // namespace

const SortRules& sortRulesOf(const CollectionKind& kind) { return rowOf<kRules>(kind.editor); }

}  // namespace quillbox
