#pragma once

#include <gtest/gtest.h>

namespace quillbox::test {

/// What some tests need and not every machine has: null, or why it is missing.
struct Machine {
  const char* permissions;    ///< files and folders forbidden to an ordinary user
  const char* readOnlyFiles;  ///< files that may be read but not written
  const char* links;          ///< symbolic links
  const char* folderIsGone;   ///< a current folder that is deleted while the program runs
  const char* pdfReader;      ///< a program that reads PDF documents
};

/// Null if a file marked as read-only cannot be written.
const char* whyNoReadOnlyFiles();

#ifdef _WIN32
inline const Machine kMachine = {"Permissions are lists there that the library cannot set.",
                                 whyNoReadOnlyFiles(),
                                 "Symbolic links take a right that an ordinary user has not.",
                                 "The system keeps the current folder from being deleted.",
                                 "What reads PDF documents here is no program for Windows."};
#else
inline constexpr Machine kMachine = {};
#endif

}  // namespace quillbox::test

/// Skips the rest of a test where the machine lacks what it needs.
#define QUILLBOX_NEEDS(what)      \
  if (kMachine.what == nullptr) { \
  } else /* NOLINT */             \
    GTEST_SKIP() << kMachine.what
