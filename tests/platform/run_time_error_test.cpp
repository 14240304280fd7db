#include "platform/run_time_error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace quillbox {
namespace {

TEST(RunTimeError, EveryNumberHasItsStandardText) {
  const struct {
    ErrorNumber number;
    int shown;
    const char* text;
  } rows[] = {
      {ErrorNumber::overflow, 6, "Overflow"},
      {ErrorNumber::typeMismatch, 13, "Type mismatch"},
      {ErrorNumber::fileNotFound, 53, "File not found"},
      {ErrorNumber::fileAlreadyOpen, 55, "File already open"},
      {ErrorNumber::deviceIo, 57, "Device I/O error"},
      {ErrorNumber::fileAlreadyExists, 58, "File already exists"},
      {ErrorNumber::diskFull, 61, "Disk full"},
      {ErrorNumber::badRecordNumber, 63, "Bad record number"},
      {ErrorNumber::permissionDenied, 70, "Permission denied"},
      {ErrorNumber::pathFileAccess, 75, "Path/File access error"},
      {ErrorNumber::pathNotFound, 76, "Path not found"},
  };
  for (const auto& row : rows) {
    const RunTimeError error(row.number);
    EXPECT_EQ(static_cast<int>(error.number()), row.shown);
    EXPECT_EQ(error.message(),
              "Run-time error '" + std::to_string(row.shown) + "':\n\n" + row.text);
    EXPECT_EQ(error.file(), "") << row.text;
  }
}

TEST(RunTimeError, TheFileStandsBelowTheText) {
  const RunTimeError error(ErrorNumber::fileAlreadyExists, "/path");
  EXPECT_EQ(error.message(), "Run-time error '58':\n\nFile already exists\n/path");
  EXPECT_STREQ(error.what(), error.message().c_str());
  EXPECT_EQ(error.file(), "/path");
}

TEST(RunTimeError, WithoutAFileTheTextEndsTheMessage) {
  const RunTimeError error(ErrorNumber::fileAlreadyExists);
  EXPECT_EQ(error.message(), "Run-time error '58':\n\nFile already exists");
  EXPECT_STREQ(error.what(), error.message().c_str());
}

TEST(RunTimeError, ACopyKeepsNumberFileAndMessage) {
  RunTimeError copy(ErrorNumber::overflow);
  {
    const RunTimeError error(ErrorNumber::diskFull, "/data/jazz.MCS");
    copy = error;
  }
  EXPECT_EQ(copy.number(), ErrorNumber::diskFull);
  EXPECT_EQ(copy.file(), "/data/jazz.MCS");
  EXPECT_STREQ(copy.what(), "Run-time error '61':\n\nDisk full\n/data/jazz.MCS");
}

TEST(RunTimeError, ANoteIsAParagraphBelowTheMessage) {
  RunTimeError withFile(ErrorNumber::diskFull, "/data/jazz.MCS");
  withFile.addNote("The old collection is in /data/jazz.BAK.");
  EXPECT_EQ(withFile.message(),
            "Run-time error '61':\n\nDisk full\n/data/jazz.MCS\n\n"
            "The old collection is in /data/jazz.BAK.");
  EXPECT_STREQ(withFile.what(), withFile.message().c_str());
  EXPECT_EQ(withFile.number(), ErrorNumber::diskFull);
  EXPECT_EQ(withFile.file(), "/data/jazz.MCS");

  RunTimeError withoutFile(ErrorNumber::overflow);
  withoutFile.addNote("First.");
  withoutFile.addNote("Second.");
  EXPECT_EQ(withoutFile.message(), "Run-time error '6':\n\nOverflow\n\nFirst.\n\nSecond.");
  EXPECT_EQ(withoutFile.file(), "");
}

TEST(RunTimeError, ANoteStaysWithTheErrorOnItsWayUp) {
  const auto fail = [] {
    try {
      throw RunTimeError(ErrorNumber::deviceIo, "/data/jazz.MCS");
    } catch (RunTimeError& error) {
      error.addNote("Nothing was changed.");
      throw;
    }
  };
  try {
    fail();
    FAIL() << "no error";
  } catch (const RunTimeError& error) {
    EXPECT_STREQ(error.what(),
                 "Run-time error '57':\n\nDevice I/O error\n/data/jazz.MCS\n\n"
                 "Nothing was changed.");
  }
}

TEST(RunTimeError, EveryFailedSystemCallHasANumber) {
  const struct {
    int error;
    int number;
  } rows[] = {
      {ENOENT, 53}, {ENOTDIR, 76},      {EEXIST, 58}, {ENOTEMPTY, 58}, {EACCES, 70},
      {EPERM, 70},  {EROFS, 70},        {ENOSPC, 61}, {EFBIG, 61},     {EIO, 57},
      {EISDIR, 75}, {EMFILE, 75},       {EBADF, 75},  {ESPIPE, 75},    {ENXIO, 75},
      {EINVAL, 75}, {ENAMETOOLONG, 75}, {EXDEV, 75},  {EBUSY, 75},     {0, 75},
#ifndef _WIN32  // where the C library has no such numbers
      {EDQUOT, 61}, {ETXTBSY, 75},
#endif
  };
  for (const auto& row : rows) {
    const RunTimeError error = errorFromErrno(row.error, "/data/jazz.MCS");
    EXPECT_EQ(static_cast<int>(error.number()), row.number) << "errno " << row.error;
    EXPECT_EQ(error.file(), "/data/jazz.MCS") << "errno " << row.error;
  }
}

TEST(RunTimeError, TheEndOfTheProgramIsNoError) {
  // Code that catches errors must not catch this one by accident.
  EXPECT_THROW(endProgram(), ProgramEnd);
  EXPECT_FALSE((std::is_base_of_v<std::exception, ProgramEnd>));
}

}  // namespace
}  // namespace quillbox
