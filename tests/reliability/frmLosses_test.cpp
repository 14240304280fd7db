// Defects that once lost an item: each as the user met it, with every file operation on the way
// failing once.

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/form_fixture.h"
#include "support/machine.h"

namespace quillbox::test {
namespace {

class Loss : public EditorTest, public testing::WithParamInterface<ModelKind> {
 protected:
  Loss() : EditorTest(GetParam()) {}

  std::string otherName() const { return std::string("other.") + kind().extension; }

  /// Works the program while the `nth` file operation fails, a write after half of its bytes. False
  /// when there are fewer.
  template <typename Work>
  bool failing(std::size_t nth, const Work& work) {
    files_.failNth(nth, {.error = ErrorNumber::diskFull, .isShort = true});
    letSpeak(work);
    files_.heal();
    return files_.hasFailed();
  }

  /// Accepts all messages meanwhile.
  template <typename Work>
  std::vector<std::string> letSpeak(const Work& work) {
    std::vector<std::string> said;
    desktop_.surprises = &said;
    work();
    desktop_.surprises = nullptr;
    desktop_.forgetExpected();
    return said;
  }

  void write() {
    press(kind().buttons.write);
    desktop_.expectNothingLeft();
  }

  void openFile(const std::string& name) {
    desktop_.expectOpen("Open Collection", kOpenFilter, name);
    choose("OpenFile");
  }

  void deleteItem() {
    const ModelTitles& titles = kind().titles;
    desktop_.expectQuestion(titles.question, "Do you really want to delete this?!", Answer::yes);
    if (titles.deleted != nullptr) desktop_.expectMessage(titles.deleted, "Deleted.");
    press(kind().buttons.remove);
    desktop_.expectNothingLeft();
  }

  /// An item as Delete leaves it.
  std::string deleted(const std::string& item) const {
    std::string bytes = kind().skipsDeleted() ? item : std::string(item.size(), '\0');
    std::string marker(kind().marker());
    marker.resize(kind().markerWidth(), ' ');
    return bytes.replace(0, marker.size(), marker);
  }

  /// Item by item, from 1.
  std::vector<std::string> items(std::string_view name) {
    const std::string bytes = file(name);
    std::vector<std::string> found;
    for (std::size_t at = kind().recordLength; at < bytes.size(); at += kind().recordLength)
      found.push_back(bytes.substr(at, kind().recordLength));
    return found;
  }
  void expectHolds(std::string_view name, std::initializer_list<std::string> firsts) {
    for (const std::string& first : firsts)
      EXPECT_EQ(std::ranges::count(items(name), item(first)), 1) << first;
  }
};

INSTANTIATE_TEST_SUITE_P(Editors, Loss, testing::ValuesIn(kModelEditors), nameOfKind);

TEST_P(Loss, AHitThatCannotBeReadTakesNoOtherItem) {
  for (std::size_t nth = 0;; ++nth) {
    SCOPED_TRACE(nth);
    open({item("A"), item("B"), item("C")});
    const std::string before = bytes();
    openSideForm(kind().search);
    type(kind().firstBox(), "C");
    const bool failed = failing(nth, [&] { press(kind().search.begin); });
    if (formName() == kind().search.formName) leaveSideForm(kind().search);
    write();
    EXPECT_EQ(bytes(), before);
    if (!failed || HasFailure()) return;
  }
}

TEST_P(Loss, ACollectionThatCannotBeOpenedIsNotWrittenTo) {
  for (std::size_t nth = 0;; ++nth) {
    SCOPED_TRACE(nth);
    const std::string other = collection({item("D"), item("E"), item("F")});
    writeFile(path(otherName()), other);
    open({item("A"), item("B")});
    const std::string before = bytes();
    const bool failed = failing(nth, [&] { openFile(path(otherName())); });
    write();
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(file(otherName()), other);
    if (!failed || HasFailure()) return;
  }
}

TEST_P(Loss, APathThatCannotBeLookedUpLeavesTheCollectionThatIsOpen) {
  QUILLBOX_NEEDS(permissions);
  QUILLBOX_NEEDS(links);
  const std::string extension = std::string(".") + kind().extension;
  std::filesystem::create_symlink("loop" + extension, path("loop" + extension));
  std::filesystem::create_directory(path("closed"));
  std::filesystem::permissions(path("closed"), std::filesystem::perms::none);
  for (const std::string& name :
       {std::string(300, 'x') + extension, "loop" + extension, "closed/other" + extension}) {
    SCOPED_TRACE(name);
    open({item("A"), item("B")});
    type(kind().otherBox(), "typed");
    const auto look = [&] {
      const OrdinaryUser user(folder_);
      openFile(path(name));
    };
    EXPECT_EQ(letSpeak(look).size(), 1U);
    EXPECT_EQ(formName(), kind().formName);
    write();
    EXPECT_EQ(bytes().find("typed"), kind().recordLength + kind().inputs[1].offset);
  }
  std::filesystem::permissions(path("closed"), std::filesystem::perms::all);
}

TEST_P(Loss, AListingThatCannotReadLeavesTheItemThatIsDeleted) {
  if (kind().buttons.remove == nullptr) return;  // books are not deleted
  for (std::size_t nth = 0;; ++nth) {
    SCOPED_TRACE(nth);
    open({item("A"), item("B"), item("C")});
    const bool failed = failing(nth, [&] {
      desktop_.expectPrint(std::nullopt);
      choose("PrintList");
    });
    deleteItem();
    EXPECT_EQ(items(name()), (std::vector{deleted(item("A")), item("B"), item("C")}));
    if (!failed || HasFailure()) return;
  }
}

/// For the editors that write a new item in the place of a deleted one.
class LostPlace : public Loss {
 protected:
  /// Fails to write a new item while the `nth` file operation fails.
  bool failsToWrite(std::size_t nth) {
    open({deleted(item("gone")), item("C"), item("A"), item("B")});
    typeNewItem();
    return failing(nth, [&] { press(kind().buttons.write); });
  }
  void typeNewItem() {
    press(kind().buttons.clear);
    type(kind().firstBox(), "new");
  }
};

INSTANTIATE_TEST_SUITE_P(Editors, LostPlace, testing::Values(kMusic, kWaves), nameOfKind);

TEST_P(LostPlace, IsForgottenByASort) {
  for (std::size_t nth = 0; failsToWrite(nth) && !HasFailure(); ++nth) {
    SCOPED_TRACE(nth);
    openSideForm(kind().sort);
    if (!kind().alwaysSorted) tick((std::string(kind().sort.boxes) + "_0").c_str());
    desktop_.expectMessage("Quillbox", "Sorting complete.");
    press(kind().sort.begin);
    write();
    expectHolds(name(), {"A", "B", "C"});
  }
}

TEST_P(LostPlace, IsForgottenWhenAnotherCollectionIsOpened) {
  const std::string other = collection({item("D"), item("E")});
  for (std::size_t nth = 0; failsToWrite(nth) && !HasFailure(); ++nth) {
    SCOPED_TRACE(nth);
    writeFile(path(otherName()), other);
    openFile(path(otherName()));
    typeNewItem();
    write();
    expectHolds(otherName(), {"D", "E"});
    EXPECT_EQ(file(otherName())[0], 3);
  }
}

TEST_P(LostPlace, IsForgottenWhenAnEmptyCollectionIsOpened) {
  for (std::size_t nth = 0; failsToWrite(nth) && !HasFailure(); ++nth) {
    SCOPED_TRACE(nth);
    writeFile(path(otherName()), collection({}));
    openFile(path(otherName()));
    typeNewItem();
    write();
    EXPECT_EQ(items(otherName()).size(), 1U);
    EXPECT_EQ(file(otherName())[0], 1);
  }
}

TEST_P(LostPlace, IsForgottenWhenARefusedFileIsOpened) {
  if (!kind().isMusic()) return;  // no others are refused
  std::string refused = collection({item("D"), item("E")});
  refused[2] = 1;
  for (std::size_t nth = 0; failsToWrite(nth) && !HasFailure(); ++nth) {
    SCOPED_TRACE(nth);
    writeFile(path(otherName()), refused);
    letSpeak([&] { openFile(path(otherName())); });
    typeNewItem();
    write();
    expectHolds(otherName(), {"D", "E"});
  }
}

/// For the editors that load folders.
class LoadedFolder : public Loss {};

INSTANTIATE_TEST_SUITE_P(Editors, LoadedFolder, testing::Values(kWaves), nameOfKind);

TEST_P(LoadedFolder, ThatCannotBeLoadedLeavesTheItemThatIsDeleted) {
  std::filesystem::create_directory(path("some"));
  writeFile(path("some/new.wav"), "");
  for (std::size_t nth = 0;; ++nth) {
    SCOPED_TRACE(nth);
    open({item("A"), item("B"), item("C")});
    const bool failed = failing(nth, [&] {
      desktop_.expectOpen(kind().loader.title, kind().loader.filter, path("some/new.wav"));
      choose("LoadMenu");
    });
    deleteItem();
    const auto found = items(name());
    ASSERT_GE(found.size(), 3U);
    EXPECT_EQ(found[0], deleted(item("A")));
    EXPECT_EQ(found[1], item("B"));
    EXPECT_EQ(found[2], item("C"));
    if (!failed || HasFailure()) return;
  }
}

class RelativePath : public FormTest {};

TEST_F(RelativePath, LeadsBehindALinkToWhereTheSystemLeads) {
  QUILLBOX_NEEDS(links);
  std::filesystem::create_directories(path("there/inner"));
  std::filesystem::create_directory_symlink(path("there/inner"), path("link"));
  writeFile(path("there/jazz.MCS"), musicFile({album("Miles Davis")}));
  start({"link/../jazz.MCS"});
  EXPECT_EQ(label(), "Record #: 1 Of 1");
  EXPECT_FALSE(std::filesystem::exists(path("jazz.MCS")));
}

}  // namespace
}  // namespace quillbox::test
