#pragma once

#include <cstddef>
#include <functional>

namespace quillbox::test {

/// Runs `work` on a machine where a system call (SYS_...) is not made and returns that error, or 0
/// when the error is 0. It covers what FailingFiles cannot: results of the calls themselves on file
/// systems that the tests do not run on. `work` must not throw; it has a thread of its own, and no
/// other is affected.
void whereCallEndsWith(long call, int error, const std::function<void()>& work);

/// Runs `work` where reading and writing at a place of a file take at most so many bytes a call, as
/// they may on any file system.
void whereCallsTakeAtMost(std::size_t bytes, const std::function<void()>& work);

/// How many folders `work` flushes to the disk.
int foldersFlushedBy(const std::function<void()>& work);

}  // namespace quillbox::test
