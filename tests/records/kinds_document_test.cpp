#include <gtest/gtest.h>

#include <string>

#include "records/app_state.h"
#include "records/kinds.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

const char* nameOf(EditorForm form) {
  switch (form) {
    case EditorForm::music:
      return "music";
    case EditorForm::video:
      return "video";
    case EditorForm::software:
      return "software";
    case EditorForm::comics:
      return "comics";
    case EditorForm::books:
      return "books";
    case EditorForm::wave:
      return "wave";
  }
  return "";
}

std::string rowOf(const CollectionKind& kind) {
  const EditingRules& rules = kind.rules;
  std::string row = "|";
  const auto cell = [&row](const std::string& text) { row += " " + text + " |"; };
  cell(nameOf(kind.editor));
  cell(std::to_string(kind.code));
  cell(std::string(kind.extension));
  cell(std::to_string(kind.recordLength));
  cell(kind.position == &OpenCollection::ListPos ? "ListPos" : "CurRec");
  cell(rules.stepping == Stepping::plain ? "plain" : "skips deleted");
  cell(rules.reusesDeletedSlots ? "deleted place, end" : "end");
  cell(rules.itemWritesRewriteTheHeader ? "header too" : "item only");
  cell(std::string(rules.deletion.marker) +
       (rules.deletion.keepsTheRest ? ", rest kept" : ", zeros") +
       (rules.deletion.readsBack ? ", read back" : ""));
  cell(rules.goTo.badTextIsAnError ? "error 13" : "message");
  return row + "\n";
}

TEST(KindsDocument, TellsWhatTheTableOfKindsSays) {
  const std::string document = readFile(std::string(QUILLBOX_SOURCE_DIR) + "/docs/architecture.md");
  std::string rows;
  for (const CollectionKind& kind : collectionKinds()) rows += rowOf(kind);
  const auto begin = document.find("|---|---|---|---|---|---|---|---|---|---|\n");
  const auto end = document.find("<!-- /kinds -->");
  ASSERT_NE(begin, std::string::npos);
  ASSERT_NE(end, std::string::npos);
  EXPECT_EQ(document.substr(document.find('\n', begin) + 1, end - document.find('\n', begin) - 1),
            rows);
}

}  // namespace
}  // namespace quillbox::test
