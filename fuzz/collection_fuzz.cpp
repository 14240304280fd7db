// Any bytes as a collection of any kind, through everything that works without a form.

#include <algorithm>
#include <optional>

#include "editors/media_loader.h"
#include "fuzz/collection_input.h"
#include "fuzz/fuzzed_desktop.h"
#include "fuzz/sorting.h"
#include "printing/export.h"
#include "printing/listing.h"
#include "printing/print_engine.h"
#include "records/entered.h"
#include "records/music_file.h"
#include "records/navigation.h"
#include "sortsearch/search_engine.h"
#include "support/memory_files.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox::fuzz {
namespace {

constexpr std::string_view kDateForm = "M/d/yy";
constexpr int kStepsPastTheEnd = 3;
constexpr int kMostLaps = 2;
constexpr int kMostShown = 12;  // items; the others are only read

/// A user's work on the collection: each part may end in a run-time error, which is shown, and the
/// next part follows.
class Visit {
 public:
  explicit Visit(const CollectionInput& input) : kind_(input.kind) {
    state_.currentPath = "/things." + std::string(kind_.extension);
    state_.kindCode = kind_.code;
    files_.put(state_.currentPath, input.bytes);
  }

  void run() {
    if (!open()) return;
    ignoringErrors([this] { stepForward(); });
    ignoringErrors([this] { stepBack(); });
    ignoringErrors([this] { stepOffTheEnd(); });
    search();
    print();
    ignoringErrors([this] { exportCollection(state_.files, state_, kind_, "/export.txt"); });
    sortAndRequireEveryItem(state_, files_, kind_);
    ignoringErrors([this] { storeNewItem(); });
    ignoringErrors([this] { deleteFirstItem(); });
    if (kind_.editor == EditorForm::wave) ignoringErrors([this] { load(); });
  }

 private:
  bool open() {
    if (kind_.editor != EditorForm::music) {
      state_.Count = store_.readCount();
      return true;
    }
    const MusicFileState found = openMusicFile(state_.files, state_);
    if (found == MusicFileState::upgradable) upgrade();
    return found != MusicFileState::refused;
  }

  void upgrade() {
    const std::string before = files_.bytes(state_.currentPath);
    upgradeMusicFile(state_.files, state_);
    require(files_.bytes("/things.BAK") == before, "the old file stays");
    const auto old = wholeItems(before, kMusicRecordType4Length, state_.Count - 1);
    const auto items = wholeItems(files_.bytes(state_.currentPath), kind_.recordLength,
                                  static_cast<int>(old.size()));
    require(items.size() == old.size(), "every item but the last is carried over");
    for (std::size_t i = 0; i < old.size(); ++i)
      require(isCarriedOver(old[i], items[i]), "an item is carried over");
    require(openMusicFile(state_.files, state_) == MusicFileState::current,
            "upgrading is done once");
  }

  static bool isCarriedOver(std::string old, std::string item) {
    for (const Field* changed : {musicField("MediaType"), musicField("Genre")})
      for (std::string* either : {&old, &item}) either->replace(changed->offset, 2, 2, '?');
    return item.starts_with(old);
  }

  void stepForward() {
    std::optional<std::int16_t> position = 1;
    store_.ReadRecord(*position, record_);
    show();
    while (position && *position < state_.Count + kStepsPastTheEnd) {
      const std::int16_t before = *position;
      position = nextItem(store_, before, record_);
      require(position && *position > before, "Next goes forward");
      if (*position <= kMostShown) show();
    }
  }

  void stepBack() {
    int laps = 0;
    std::int16_t position = state_.Count;
    for (int step = 0; step <= state_.Count; ++step) {
      const auto item =
          previousItem(store_, position, state_.Count, record_, [&] { return ++laps < kMostLaps; });
      if (!item) return;
      require(*item >= 1 && *item <= state_.Count, "Previous stays in the collection");
      if (kind_.rules.stepping == Stepping::skipsDeleted)
        require(!store_.isDeleted(record_), "Previous skips deleted items");
      position = *item;
    }
  }

  void stepOffTheEnd() {
    const auto last = nextItem(store_, INT16_MAX - 1, record_);
    require(last == INT16_MAX, "there may be an item at the last position");
    nextItem(store_, INT16_MAX, record_);
    require(false, "there is none behind it");
  }

  void show() {
    for (const Field& field : kind_.fields)
      for (std::size_t entry = 0; entry < field.count; ++entry) show(field, entry);
    require(!recordLabel(kind_, state_.CurRec, state_.Count).empty(), "a label is never empty");
  }

  void show(const Field& field, std::size_t entry) const {
    const std::string text = shown(field, entry);
    const std::string utf8 = toUtf8(text);
    require(isUtf8(utf8) && fromUtf8(utf8) == text, "what is shown comes back");
    if (field.type == FieldType::money)
      require(leadingAmount(text) == moneyOf(field, record_), "an amount is read as shown");
    if (field.type == FieldType::date && !text.empty())
      require(dateText(dateOf(text, kDateForm), kDateForm) == text, "a date is read as shown");
  }

  std::string shown(const Field& field, std::size_t entry = 0) const {
    switch (field.type) {
      case FieldType::text:
        return std::string(withoutTrailingBlanks(upToNul(textOf(field, record_, entry))));
      case FieldType::money:
        require(
            signedAmount(moneyOf(field, record_)).ends_with(plainAmount(moneyOf(field, record_))),
            "a sign or a blank before an amount");
        return plainAmount(moneyOf(field, record_));
      case FieldType::date:
        return dateText(realOf(field, record_), kDateForm);
      case FieldType::size:
        return realText(realOf(field, record_));
      case FieldType::flag:
      case FieldType::choice:
      case FieldType::whole:
        return std::to_string(wholeOf(field, record_));
    }
    return {};
  }

  void search() {
    ignoringErrors([this] { searchFirstItem(); });
    ignoringErrors([this] {
      const Entered entered[] = {{&kind_.fields.front(), "no item is called that"}};
      const auto item = find(Query(kind_, entered, std::string(kDateForm)));
      if (item) require(*item >= 1 && *item <= state_.Count, "what is found is in the collection");
    });
  }

  void searchFirstItem() {
    if (state_.Count < 1) return;
    store_.ReadRecord(1, record_);
    std::vector<Entered> entered;
    bool isFoundAgain = true;
    for (const Field& field : kind_.fields) {
      const std::string text = shown(field);
      const bool isNumber = field.type == FieldType::flag || field.type == FieldType::choice;
      std::int16_t whole = isNumber ? wholeOf(field, record_) : std::int16_t{0};
      if (field.type == FieldType::flag) whole = whole != 0 ? 1 : 0;
      entered.push_back({&field, text, whole});
      isFoundAgain = isFoundAgain && isFoundByText(field, text);
    }
    const Query query(kind_, entered, std::string(kDateForm));
    if (isFoundAgain) require(query.matches(record_), "an item is what was read off it");
    const auto item = find(query);
    if (isFoundAgain) require(item == 1, "the first item is found first");
  }

  /// The text on a form ends at a zero byte, and a date must begin like one.
  bool isFoundByText(const Field& field, const std::string& text) const {
    if (field.type != FieldType::text || text.empty()) return true;
    const auto& dates = searchRulesOf(kind_).dates;
    const bool isDate = std::ranges::find(dates, &field) != dates.end();
    return textOf(field, record_).find('\0') == std::string_view::npos &&
           (!isDate || (text.front() >= '1' && text.front() <= '9'));
  }

  std::optional<int> find(const Query& query) {
    const auto found = findItem(state_.files, state_, kind_, query, board_);
    state_.files.closeAll();
    return found ? std::optional<int>(found->item) : std::nullopt;
  }

  void print() {
    const auto choice = [](const Field& field, int index) {
      const bool isThere = index >= 0 && index < static_cast<int>(field.choices.size());
      return std::string(isThere ? field.choices[static_cast<std::size_t>(index)] : "");
    };
    const Listing listing(kind_, {choice, std::string(kDateForm)});
    for (const bool toFile : {true, false}) {
      desktop_.toFile = toFile;
      std::int16_t mode = print_mode::printer;
      engine_.OpenPrinter(mode);
      const std::int16_t pages =
          composePages(state_.files, state_, kind_, listing, mode, engine_, board_);
      require(pages >= (state_.Count > 0 ? 1 : 0), "items are on pages");
      ignoringErrors([&] { engine_.PrintOut(mode, pages, *listing.fileHeading(kind_.mediaCode)); });
      require(desktop_.paper.sheets == 0, "a document is handed over or dropped");
    }
  }

  void storeNewItem() {
    const std::int16_t count = state_.Count;
    std::ranges::fill(record_, std::byte{'n'});
    std::optional<std::int16_t> slot;
    state_.Count = store_.writeNewItem(slot, record_).count;
    require(state_.Count == count + 1 || (kind_.rules.reusesDeletedSlots && state_.Count == count),
            "one item more, or one deleted less");
    bool isThere = false;
    std::vector<std::byte> read(kind_.recordLength);
    for (int item = state_.Count; item >= 1 && !isThere; --item) {
      store_.ReadRecord(item, read);
      isThere = read == record_;
    }
    require(isThere, "a new item is in the collection");
  }

  void deleteFirstItem() {
    store_.ReadRecord(1, record_);
    setText(kind_.fields.front(), record_, kind_.rules.deletion.marker);
    require(store_.writeDeleted(1, record_), "a deleted item is deleted");
    store_.ReadRecord(1, record_);
    require(store_.isDeleted(record_), "and stays so");
  }

  void load() {
    const std::vector<std::string> names = {"one.wav", "two.wav", "one.wav"};
    const LoadedFiles first = loadFiles(state_.files, state_, kind_, "/folder", names, board_);
    require(first.count <= state_.Count + 2, "a name is loaded once");
    state_.Count = first.count;
    const std::string loaded = files_.bytes(state_.currentPath);
    loadFiles(state_.files, state_, kind_, "/folder", names, board_);
    require(files_.bytes(state_.currentPath) == loaded, "what is there is not loaded again");
  }

  const CollectionKind& kind_;
  MemoryFiles files_;
  AppState state_{files_};
  CollectionStore store_{state_.files, state_, kind_};
  std::vector<std::byte> record_ = std::vector<std::byte>(kind_.recordLength);
  FuzzedDesktop desktop_;
  NoBoard board_;
  PrintEngine engine_{state_, desktop_, board_};
};

}  // namespace
}  // namespace quillbox::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillbox::fuzz::Visit(quillbox::fuzz::collectionOf({data, size})).run();
  return 0;
}
