// Collections written by another program, each with its contents as JSON: decoding must give the
// JSON, and encoding the JSON the same bytes.

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <cstring>
#include <filesystem>

#include "forms/qt_text.h"
#include "platform/checked16.h"
#include "platform/paths.h"
#include "records/header_record.h"
#include "records/kinds.h"
#include "records/music_record.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

constexpr double kMoneyScale = 10'000;

/// A text in JSON; {"nul": n} is a field of n zero bytes.
std::string bytesOfText(const QJsonValue& value, std::size_t width) {
  if (value.isObject())
    return std::string(static_cast<std::size_t>(value.toObject()["nul"].toInt()), '\0');
  std::string text = toRecordText(value.toString());
  text.resize(width, ' ');
  return text;
}

QJsonArray entriesOf(const Field& field, const QJsonValue& value) {
  return field.count > 1 ? value.toArray() : QJsonArray{value};
}

struct Fixture {
  explicit Fixture(const std::string& path)
      : bytes(readFile(path)),
        json(QJsonDocument::fromJson(QByteArray::fromStdString(readFile(path + ".json"))).object()),
        kind(*kindOfExtension(extensionOf(path))) {
    const bool old = header()["FileType"].toInt() == music_file_type::upgradable;
    recordLength = old ? kMusicRecordType4Length : kind.recordLength;
  }

  QJsonObject header() const { return json["header"].toObject(); }
  QJsonArray items() const { return json["items"].toArray(); }

  /// The fields of a record in this file.
  std::vector<Field> fields() const {
    std::vector<Field> held;
    for (const Field& field : kind.fields)
      if (field.offset < recordLength) held.push_back(field);
    return held;
  }

  std::string bytes;
  QJsonObject json;
  const CollectionKind& kind;
  std::size_t recordLength = 0;
};

class Fixtures : public testing::TestWithParam<std::string> {};

TEST_P(Fixtures, DecodeToTheirContents) {
  const Fixture fixture(GetParam());
  HeaderRecord header;
  std::memcpy(&header, fixture.bytes.data(), sizeof header);
  EXPECT_EQ(header.Count, fixture.header()["Count"].toInt());
  EXPECT_EQ(header.FileType, fixture.header()["FileType"].toInt());
  EXPECT_EQ(header.Version.view(), fixture.header()["Version"].toString().toStdString());
  ASSERT_EQ(fixture.bytes.size(),
            fixture.recordLength * static_cast<std::size_t>(fixture.items().size() + 1));

  std::size_t at = fixture.recordLength;
  for (const auto& itemValue : fixture.items()) {
    const QJsonObject item = itemValue.toObject();
    const auto record = std::as_bytes(std::span(fixture.bytes)).subspan(at, fixture.recordLength);
    ASSERT_EQ(static_cast<std::size_t>(item.size()), fixture.fields().size());
    for (const Field& field : fixture.fields()) {
      SCOPED_TRACE(std::string(field.name));
      const QJsonValue value = item[fromUtf8Text(field.name)];
      ASSERT_FALSE(value.isUndefined());
      switch (field.type) {
        case FieldType::text: {
          const QJsonArray entries = entriesOf(field, value);
          ASSERT_EQ(static_cast<std::size_t>(entries.size()), field.count);
          for (std::size_t entry = 0; entry < field.count; ++entry)
            EXPECT_EQ(textOf(field, record, entry),
                      bytesOfText(entries[static_cast<qsizetype>(entry)], field.width));
          break;
        }
        case FieldType::flag:
        case FieldType::choice:
        case FieldType::whole:
          EXPECT_EQ(wholeOf(field, record), value.toInt());
          break;
        case FieldType::money:
          EXPECT_EQ(moneyOf(field, record), std::llround(value.toDouble() * kMoneyScale));
          break;
        case FieldType::date:
        case FieldType::size:
          EXPECT_EQ(realOf(field, record), value.toDouble());
          break;
      }
    }
    at += fixture.recordLength;
  }
}

TEST_P(Fixtures, AreWhatTheirContentsEncodeTo) {
  const Fixture fixture(GetParam());
  std::string bytes(fixture.recordLength, '\0');
  HeaderRecord header;
  header.Count = checked16(fixture.header()["Count"].toInt());
  header.FileType = checked16(fixture.header()["FileType"].toInt());
  header.Version = fixture.header()["Version"].toString().toStdString();
  std::memcpy(bytes.data(), &header, sizeof header);

  for (const auto& itemValue : fixture.items()) {
    const QJsonObject item = itemValue.toObject();
    std::vector<std::byte> record(fixture.recordLength);
    for (const Field& field : fixture.fields()) {
      const QJsonValue value = item[fromUtf8Text(field.name)];
      switch (field.type) {
        case FieldType::text: {
          const QJsonArray entries = entriesOf(field, value);
          for (std::size_t entry = 0; entry < field.count; ++entry)
            setText(field, record, bytesOfText(entries[static_cast<qsizetype>(entry)], field.width),
                    entry);
          break;
        }
        case FieldType::flag:
        case FieldType::choice:
        case FieldType::whole:
          setWhole(field, record, checked16(value.toInt()));
          break;
        case FieldType::money:
          setMoney(field, record, std::llround(value.toDouble() * kMoneyScale));
          break;
        case FieldType::date:
        case FieldType::size:
          setReal(field, record, value.toDouble());
          break;
      }
    }
    bytes.append(reinterpret_cast<const char*>(record.data()), record.size());
  }
  EXPECT_EQ(bytes, fixture.bytes);
}

std::vector<std::string> fixturePaths() {
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(QUILLBOX_TEST_DATA))
    if (std::filesystem::exists(entry.path().string() + ".json"))
      paths.push_back(entry.path().string());
  return paths;
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
  std::string name(fileNameOf(info.param));
  for (char& c : name)
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Data, Fixtures, testing::ValuesIn(fixturePaths()), testName);

}  // namespace
}  // namespace quillbox::test
