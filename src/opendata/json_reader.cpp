#include "opendata/json_reader.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <vector>

#include "opendata/data_error.h"

namespace quillbox {
namespace {

/// The bytes of a source, one at a time.
class SourceBytes {
 public:
  explicit SourceBytes(ByteSource& source) : source_(source), buffer_(kChunk) {}

  bool atEnd() {
    if (at_ < filled_) return false;
    at_ = 0;
    filled_ = source_.read(buffer_);
    return filled_ == 0;
  }
  char current() const { return buffer_[at_]; }
  void step() { ++at_; }

 private:
  static constexpr std::size_t kChunk = 65'536;
  ByteSource& source_;
  std::vector<char> buffer_;
  std::size_t at_ = 0;
  std::size_t filled_ = 0;
};

/// The parser's input.
class SourceIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = char;

  SourceIterator() = default;
  explicit SourceIterator(SourceBytes& bytes) : bytes_(&bytes) {}

  char operator*() const { return bytes_->current(); }
  SourceIterator& operator++() {
    bytes_->step();
    return *this;
  }
  void operator++(int) { bytes_->step(); }
  bool operator==(const SourceIterator& other) const { return isAtEnd() == other.isAtEnd(); }
  bool operator!=(const SourceIterator& other) const { return !(*this == other); }

 private:
  bool isAtEnd() const { return bytes_ == nullptr || bytes_->atEnd(); }
  SourceBytes* bytes_ = nullptr;
};

/// The parser's position in the document.
enum class Level { outside, collection, items, item, list };

class Handler : public nlohmann::json_sax<nlohmann::json> {
 public:
  Handler(const CollectionKind& kind, const Values& values, RowSink& sink)
      : kind_(kind), values_(values), sink_(sink) {}

  bool null() override { return value(""); }
  bool boolean(bool value_) override {
    if (level_ == Level::item && key_ == "deleted") {
      row_.isDeleted = value_;
      return true;
    }
    return value(value_ ? "1" : "0");
  }
  bool number_integer(number_integer_t number) override { return value(std::to_string(number)); }
  bool number_unsigned(number_unsigned_t number) override { return value(std::to_string(number)); }
  bool number_float(number_float_t /*number*/, const string_t& text) override {
    return value(text);
  }
  bool string(string_t& text) override { return value(text); }
  bool binary(binary_t& /*bytes*/) override { fail("no bytes belong here"); }

  bool start_object(std::size_t /*elements*/) override {
    if (level_ == Level::outside && !isDone_) {
      level_ = Level::collection;
    } else if (level_ == Level::items) {
      level_ = Level::item;
      beginItem();
    } else {
      fail("no object belongs here");
    }
    return true;
  }
  bool key(string_t& name) override {
    key_ = name;
    const auto isOneOf = [&](std::initializer_list<std::string_view> names) {
      return std::ranges::find(names, std::string_view(name)) != names.end();
    };
    if (level_ == Level::collection &&
        !isOneOf({"$schema", "kind", "version", "fileType", "items"}))
      fail("unknown name \"" + name + "\"");
    if (level_ == Level::item) {
      if (std::ranges::find(names_, name) != names_.end()) fail("\"" + name + "\" is there twice");
      names_.push_back(name);
      if (name != kItemName && name != "deleted" && columnsNamed(name).empty())
        fail("unknown name \"" + name + "\"");
    }
    return true;
  }
  bool end_object() override {
    if (level_ == Level::item) {
      handOver();
      level_ = Level::items;
    } else {
      if (!hasItems_) fail("there are no items");
      level_ = Level::outside;
      isDone_ = true;
    }
    return true;
  }
  bool start_array(std::size_t /*elements*/) override {
    if (level_ == Level::collection && key_ == "items") {
      level_ = Level::items;
      hasItems_ = true;
    } else if (level_ == Level::item && columnsNamed(key_).size() > 1) {
      level_ = Level::list;
      entry_ = 0;
    } else {
      fail("no list belongs here");
    }
    return true;
  }
  bool end_array() override {
    if (level_ == Level::list) {
      // Entries past the end of the list are empty.
      while (entry_ < columnsNamed(key_).size()) addEntry("");
      level_ = Level::item;
    } else {
      level_ = Level::collection;
    }
    return true;
  }
  bool parse_error(std::size_t /*at*/, const std::string& /*token*/,
                   const nlohmann::detail::exception& error) override {
    const std::string what = error.what();  // "[json.exception.parse_error.101] parse error at ..."
    throw DataError(what.substr(std::min(what.find("] ") + 2, what.size())));
  }

 private:
  static constexpr std::string_view kItemName = "item";

  [[noreturn]] void fail(const std::string& why) const {
    throw DataError(level_ == Level::item || level_ == Level::list ? row_.place + ": " + why : why);
  }

  std::span<const DataColumn> columnsNamed(std::string_view name) const {
    const auto& columns = values_.columns();
    const auto isNamed = [&](const DataColumn& column) { return column.field->name == name; };
    const auto first = std::ranges::find_if(columns, isNamed);
    return {first, std::find_if_not(first, columns.end(), isNamed)};
  }

  void beginItem() {
    row_.place = "items[" + std::to_string(items_++) + "]";
    row_.isDeleted.reset();
    names_.clear();
    number_.clear();
    texts_.clear();
    columns_.clear();
  }

  bool value(std::string_view text) {
    switch (level_) {
      case Level::collection:
        if (key_ == "kind" && text != kindName(kind_))
          fail("the data is of the kind \"" + std::string(text) + "\", the collection of \"" +
               std::string(kindName(kind_)) + "\"");
        if (key_ == "items") fail("the items are no list");
        return true;
      case Level::item:
        if (key_ == "deleted") fail("\"deleted\" is true or false");
        if (key_ == kItemName) {
          number_ = text;
          return true;
        }
        if (columnsNamed(key_).size() > 1) fail("\"" + key_ + "\" is a list");
        add(columnsNamed(key_).front(), text);
        return true;
      case Level::list:
        if (entry_ >= columnsNamed(key_).size())
          fail("\"" + key_ + "\" has more than " + std::to_string(entry_) + " entries");
        addEntry(text);
        return true;
      default:
        fail("not a collection");
    }
  }

  void addEntry(std::string_view text) { add(columnsNamed(key_)[entry_++], text); }

  void add(const DataColumn& column, std::string_view text) {
    columns_.push_back(&column);
    texts_.emplace_back(text);
  }

  void handOver() {
    row_.number.reset();
    if (!number_.empty()) row_.number = number_;
    row_.cells.clear();
    for (std::size_t i = 0; i < columns_.size(); ++i)
      row_.cells.push_back({columns_[i], texts_[i]});
    sink_.row(row_);
  }

  const CollectionKind& kind_;
  const Values& values_;
  RowSink& sink_;
  Level level_ = Level::outside;
  bool isDone_ = false;
  bool hasItems_ = false;
  int items_ = 0;
  std::string key_;
  std::size_t entry_ = 0;
  std::vector<std::string> names_;
  std::string number_;
  std::vector<const DataColumn*> columns_;
  std::vector<std::string> texts_;
  Row row_;
};

}  // namespace

void readJson(ByteSource& source, const CollectionKind& kind, const Values& values, RowSink& sink) {
  SourceBytes bytes(source);
  Handler handler(kind, values, sink);
  nlohmann::json::sax_parse(SourceIterator(bytes), SourceIterator(), &handler);
}

}  // namespace quillbox
