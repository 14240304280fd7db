#ifndef _WIN32  // system calls that fail as they do on file systems the tests do not have
#include "opendata/restore.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>
#include <string>

#include "opendata/collection_file.h"
#include "support/collection_path.h"
#include "support/failing_call.h"
#include "support/failure.h"

namespace quillbox::test {
namespace {

TEST(Restore, WhatAnImportHasKeptIsInNoWayWhereNamesCannotBeExchanged) {
  const TestFolder folder;
  const CollectionKind& kind = *kindOfCode(2);
  const std::string path = folder.path("mine." + extensionIn(kind));
  const std::string backup = plainCollection(kind, {plainItem(kind, "a")});
  writeFile(path, "half a collection");
  writeFile(path + "~", "earlier");
  writeFile(folder.path("mine.bak"), backup);
  DiskFileSystem files;
  Restored restored;
  Failure failure;
  whereCallEndsWith(SYS_renameat2, EINVAL, [&] {
    failure = failureOf([&] { restored = restoreCollection(files, path, {}); });
  });
  EXPECT_EQ(failure, Failure{});
  EXPECT_EQ(readFile(path), backup);
  EXPECT_EQ(readFile(path + "~"), "earlier");
  EXPECT_EQ(readFile(restored.keptAs), "half a collection");
}

}  // namespace
}  // namespace quillbox::test
#endif
