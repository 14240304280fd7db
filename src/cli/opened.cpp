#include "cli/opened.h"

#include <langinfo.h>

#include <chrono>
#include <ctime>

#include "cli/commands.h"
#include "opendata/export_text.h"

namespace quillbox {

Opened::Opened(Console& console, const std::string& path)
    : console_(console),
      collection_(readCollectionFile(console.disk(), path)),
      mediaTypes_(ownMediaTypes(console, *collection_.kind)),
      values_(collection_, mediaTypes_) {}

RecordTexts Opened::texts(std::string dateForm) const {
  const auto word = [this](const Field& field, int index) -> std::string {
    for (const Field& other : collection_.fields) {
      if (other.name != field.name) continue;
      const auto& words = values_.wordsOf(other);
      const bool isThere = index >= 0 && static_cast<std::size_t>(index) < words.size();
      return isThere ? words[static_cast<std::size_t>(index)] : std::string();
    }
    return {};
  };
  return {word, std::move(dateForm)};
}

void Opened::readItems(
    const std::function<void(int item, std::span<const std::byte> record)>& use) const {
  ItemReader reader(console_.disk(), collection_);
  const Progress progress = console_.progressOf(collection_.path);
  const int items = collection_.isWhole() ? collection_.count : collection_.itemsThere();
  for (int item = 1; item <= items; ++item) {
    use(item, reader.readFull(item));
    if (progress) progress(item, items);
  }
}

std::string shortDateForm() {
  std::string form;
  for (const char* at = ::nl_langinfo(D_FMT); *at != '\0'; ++at) {
    if (*at != '%') {
      form += *at;
      continue;
    }
    switch (*++at) {
      case 'd':
        form += "dd";
        break;
      case 'e':
        form += "d";
        break;
      case 'm':
        form += "MM";
        break;
      case 'y':
        form += "yy";
        break;
      case 'Y':
        form += "yyyy";
        break;
      default:
        return kIsoDates;
    }
  }
  return form;
}

double today() {
  using namespace std::chrono;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  constexpr int firstYear = 1900;
  const year_month_day date = year{local.tm_year + firstYear} /
                              month{static_cast<unsigned>(local.tm_mon) + 1} /
                              day{static_cast<unsigned>(local.tm_mday)};
  constexpr sys_days dayZero = year{1899} / December / 30;
  return static_cast<double>((sys_days(date) - dayZero).count());
}

}  // namespace quillbox
