#pragma once

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/checked16.h"
#include "records/entered.h"
#include "sortsearch/search_engine.h"
#include "support/model_kinds.h"

namespace quillbox::test {

/// One input of a kind's form.
struct Input {
  std::string_view extension;
  std::string_view name;

  bool operator==(const Input&) const = default;
};
inline std::ostream& operator<<(std::ostream& out, const Input& input) {
  return out << input.extension << " " << input.name;
}

inline constexpr Input kVideoDate = {"VCS", "AquireDate"};

inline const CollectionKind& kindOf(std::string_view extension) {
  const CollectionKind* kind = kindOfExtension(extension);
  if (kind == nullptr) throw std::logic_error("no such kind");
  return *kind;
}

inline const Field& fieldOf(const Input& input) {
  const auto fields = kindOf(input.extension).fields;
  const auto field = std::ranges::find(fields, input.name, &Field::name);
  if (field == fields.end()) throw std::logic_error("no such field");
  return *field;
}

/// The inputs of all kinds for which this is true.
inline std::vector<Input> inputsThat(bool ModelInput::*holds) {
  std::vector<Input> inputs;
  for (const ModelKind& kind : kModelKinds)
    for (const ModelInput& input : kind.inputs)
      for (const Field& field : kind.row().fields)
        if (input.*holds && field.offset == input.offset)
          inputs.push_back({kind.extension, field.name});
  return inputs;
}

/// What the search forms ask for.
inline std::vector<Input> everyInput() { return inputsThat(&ModelInput::searched); }

/// Texts that are dates.
inline std::vector<Input> everyDate() { return inputsThat(&ModelInput::searchedAsDate); }

inline std::vector<Input> inputsOf(FieldType type) {
  std::vector<Input> inputs = everyInput();
  std::erase_if(inputs, [&](const Input& input) { return fieldOf(input).type != type; });
  return inputs;
}

/// The texts of the kinds that compare case.
inline std::vector<Input> exactTexts() {
  std::vector<Input> texts = inputsOf(FieldType::text);
  std::erase_if(texts, [](const Input& input) { return input.name == "FileName"; });
  return texts;
}

/// A record of a kind, initially blank.
class Item {
 public:
  explicit Item(std::string_view extension) : kind_(kindOf(extension)), bytes_(kind_.recordLength) {
    fillBlank(kind_.fields, bytes_);
  }

  std::span<const std::byte> bytes() const { return bytes_; }

  Item& text(const Input& input, std::string_view text) {
    setText(fieldOf(input), bytes_, text);
    return *this;
  }
  Item& whole(const Input& input, int value) {
    setWhole(fieldOf(input), bytes_, checked16(value));
    return *this;
  }
  Item& money(const Input& input, std::int64_t tenThousandths) {
    setMoney(fieldOf(input), bytes_, tenThousandths);
    return *this;
  }
  Item& real(const Input& input, double value) {
    setReal(fieldOf(input), bytes_, value);
    return *this;
  }

  /// Puts what wanted() searches for into one field.
  Item& put(const Field& field) {
    switch (field.type) {
      case FieldType::text:
        for (std::size_t entry = 0; entry < field.count; ++entry)
          setText(field, bytes_, "1/2/98", entry);
        break;
      case FieldType::money:
        setMoney(field, bytes_, 125'000);
        break;
      case FieldType::whole:
        setWhole(field, bytes_, 12);
        break;
      case FieldType::flag:
      case FieldType::choice:
        setWhole(field, bytes_, 1);
        break;
      case FieldType::date:
      case FieldType::size:
        setReal(field, bytes_, 46347);
        break;
    }
    return *this;
  }

  /// Puts it into every other field.
  Item& putAllBut(const Field& field) {
    for (const Field& other : kind_.fields)
      if (&other != &field) put(other);
    return *this;
  }

 private:
  const CollectionKind& kind_;
  std::vector<std::byte> bytes_;
};

/// An input with something in it.
inline Entered wanted(const Field& field) {
  switch (field.type) {
    case FieldType::money:
      return {&field, "12.5"};
    case FieldType::whole:
      return {&field, "12"};
    case FieldType::flag:
    case FieldType::choice:
      return {&field, "", 1};
    case FieldType::date:
      return {&field, "11/21/26"};
    case FieldType::text:
    case FieldType::size:
      break;
  }
  return {&field, "1/2/98"};
}

/// A search form: initially nothing is typed, chosen or ticked.
class SearchForm {
 public:
  explicit SearchForm(std::string_view extension) : kind_(kindOf(extension)) {
    for (const Input& input : everyInput()) {
      if (input.extension != extension) continue;
      const Field& field = fieldOf(input);
      const bool isList = field.type == FieldType::choice;
      entered_.push_back({&field, "", static_cast<std::int16_t>(isList ? -1 : 0)});
    }
  }

  SearchForm& enter(Entered entered) {
    const auto place = std::ranges::find(entered_, entered.field, &Entered::field);
    if (place == entered_.end()) throw std::logic_error("not on the form");
    *place = std::move(entered);
    return *this;
  }
  SearchForm& type(const Input& input, std::string_view text) {
    return enter({&fieldOf(input), std::string(text)});
  }
  SearchForm& choose(const Input& input, int place) {
    return enter({&fieldOf(input), "", checked16(place)});
  }
  SearchForm& tick(const Input& box) { return choose(box, 1); }

  Query query(const std::string& dateForm = "M/d/yy") const {
    return Query(kind_, entered_, dateForm);
  }
  bool finds(const Item& item) const { return query().matches(item.bytes()); }

 private:
  const CollectionKind& kind_;
  std::vector<Entered> entered_;
};

/// A form with only that text typed.
inline SearchForm typed(const Input& input, std::string_view text) {
  return SearchForm(input.extension).type(input, text);
}

}  // namespace quillbox::test
