// Random edits of an export, compared with a plain model of their effect on the file.
//
// An ordinary run makes a few; QUILLBOX_EDITS in the environment sets the number.

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "opendata/csv_text.h"
#include "support/collection_path.h"
#include "support/memory_files.h"
#include "support/opendata_support.h"
#include "text/windows1252.h"

namespace quillbox::test {
namespace {

int edits() {
  constexpr int inAnOrdinaryRun = 2000;
  const char* asked = std::getenv("QUILLBOX_EDITS");
  return asked == nullptr ? inAnOrdinaryRun : std::atoi(asked);
}

/// A value typed into a cell, and the bytes that it must become.
struct Edit {
  std::string cell;
  std::string bytes;
};

std::string littleEndian(std::uint64_t bits, std::size_t bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes; ++i) text += static_cast<char>(bits >> (8 * i) & 0xFFU);
  return text;
}

class ImportModel : public testing::TestWithParam<int> {
 protected:
  const CollectionKind& kind() const { return *kindOfCode(GetParam()); }
  int any(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

  std::string anyText(std::size_t width) {
    constexpr std::string_view characters = "aZ \xE9\x80,;\"'=+\t\n\r<&";
    std::string text;
    for (int left = any(0, 12); left > 0; --left)
      text += characters[static_cast<std::size_t>(any(0, static_cast<int>(characters.size()) - 1))];
    text.resize(std::min(text.size(), width));
    while (text.ends_with(' ')) text.pop_back();
    return text;
  }

  Edit anyEdit(const Field& field) {
    switch (field.type) {
      case FieldType::text: {
        const std::string text = anyText(field.width);
        return {toUtf8(text), text + std::string(field.width - text.size(), ' ')};
      }
      case FieldType::flag: {
        const int flag = any(0, 1);
        return {flag == 1 ? "yes" : "0", littleEndian(static_cast<std::uint64_t>(flag), 2)};
      }
      case FieldType::whole: {
        const int number = any(-32768, 32767);
        return {std::to_string(number), littleEndian(static_cast<std::uint64_t>(number), 2)};
      }
      case FieldType::choice: {
        const int place = any(-1, static_cast<int>(field.choices.size()) - 1);
        const std::string word =
            place < 0 ? "" : std::string(field.choices[static_cast<std::size_t>(place)]);
        return {word, littleEndian(static_cast<std::uint64_t>(place), 2)};
      }
      case FieldType::money: {
        const int amount = any(-99'999'999, 99'999'999);
        const std::string digits = std::to_string(std::abs(amount) % 10'000 + 10'000).substr(1);
        return {(amount < 0 ? "-" : "") + std::to_string(std::abs(amount) / 10'000) + "." + digits,
                littleEndian(static_cast<std::uint64_t>(std::int64_t{amount}), 8)};
      }
      case FieldType::date: {
        // The first of a month of 1996, as days since 30 December 1899.
        constexpr int first = 35065;
        constexpr int days[] = {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335};
        const int month = any(0, 11);
        std::string name = std::to_string(month + 101).substr(1);
        return {"1996-" + name + "-01", realBytes(first + days[month])};
      }
      case FieldType::size: {
        const int size = any(0, 1'000'000);
        return {std::to_string(size), realBytes(size)};
      }
    }
    return {};
  }

  static std::string realBytes(double number) {
    return littleEndian(std::bit_cast<std::uint64_t>(number), 8);
  }

  std::mt19937 random_{20261122};
};

TEST_P(ImportModel, RandomEditsDoWhatTheySayAndNothingElse) {
  const std::string path = "/mine." + extensionIn(kind());
  const std::size_t length = kind().recordLength;
  MemoryFiles files;
  std::vector<std::string> items;  // the model: their bytes, and which are deleted
  for (int i = 0; i < 12; ++i) {
    std::string item = plainItem(kind(), anyText(20));
    for (std::size_t at = 0; at < item.size(); at += 37) item[at] = static_cast<char>(any(0, 255));
    items.push_back(item);
  }
  files.put(path, plainCollection(kind(), items, "1.71    "));

  for (int done = 0; done < edits();) {
    const CollectionFile collection = readCollectionFile(files, path);
    const Values values(collection);
    const auto& columns = values.columns();
    // Rows of some items with some of their columns, some of them changed, and new rows.
    std::vector<std::size_t> chosen;
    for (std::size_t i = 0; i < columns.size(); ++i)
      if (any(0, 2) == 0 || i == 0) chosen.push_back(i);
    std::string csv = "Item";
    for (const std::size_t i : chosen) csv += "," + columns[i].name;
    csv += "\r\n";
    std::vector<std::string> after = items;
    std::vector<std::string> added;
    std::vector<bool> changed(items.size());
    for (std::size_t number = 0; number < items.size(); ++number) {
      if (any(0, 3) == 0) continue;
      csv += std::to_string(number + 1);
      for (const std::size_t i : chosen) {
        const Field& field = *columns[i].field;
        const std::size_t at = field.offset + columns[i].entry * field.width;
        Edit edit{values.text(columns[i], std::as_bytes(std::span(items[number]))), {}};
        if (any(0, 9) == 0) {
          const Edit other = anyEdit(field);
          ++done;
          if (other.cell != edit.cell) {
            // The same value in another form is no change.
            std::string record = items[number];
            record.replace(at, other.bytes.size(), other.bytes);
            if (values.text(columns[i], std::as_bytes(std::span(record))) != edit.cell) {
              after[number] = after[number].replace(at, other.bytes.size(), other.bytes);
              changed[number] = true;
            }
            edit = other;
          }
        }
        csv += ',';
        appendCsvField(csv, edit.cell);
      }
      csv += "\r\n";
    }
    for (int fresh = any(0, 2); fresh > 0 && items.size() < 60; --fresh) {
      std::string record(reinterpret_cast<const char*>(values.emptyRecord().data()), length);
      for (const std::size_t i : chosen) {
        const Edit edit = anyEdit(*columns[i].field);
        const std::size_t at =
            columns[i].field->offset + columns[i].entry * columns[i].field->width;
        record.replace(at, edit.bytes.size(), edit.bytes);
        csv += ',';
        appendCsvField(csv, edit.cell);
        ++done;
      }
      csv += "\r\n";
      added.push_back(record);
    }
    std::size_t place = 0;
    for (const std::string& record : added) {
      const auto isFree = [&](std::size_t at) {
        return !changed[at] && isFreePlace(kind(), std::as_bytes(std::span(items[at])));
      };
      while (place < changed.size() && !isFree(place)) ++place;
      if (place < changed.size())
        after[place++] = record;
      else
        after.push_back(record);
    }
    items = after;
    const std::string header = plainHeader(kind(), static_cast<int>(items.size()));

    ToldChanges watcher;
    const ImportResult result = importCsv(files, path, csv, {}, watcher);
    ASSERT_EQ(result.wrong, 0) << watcher.told.front() << "\n" << csv;
    ASSERT_EQ(result.added, static_cast<int>(added.size()));
    ASSERT_EQ(result.changed, std::ranges::count(changed, true)) << csv;
    std::string expected = header + std::string(length - header.size(), '=');
    for (const std::string& item : items) expected += item;
    ASSERT_TRUE(files.bytes(path) == expected) << csv;
    // Deleted now and then, so that places become free.
    if (any(0, 2) == 0) {
      const auto number = static_cast<std::size_t>(any(0, static_cast<int>(items.size()) - 1));
      const std::size_t width = kind().fields.front().width;
      std::string marker(kind().rules.deletion.marker);
      marker.resize(width, ' ');
      items[number].replace(0, width, marker);
      expected.replace((number + 1) * length, width, marker);
      files.put(path, expected);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ImportModel, testing::Range(1, 10));

}  // namespace
}  // namespace quillbox::test
