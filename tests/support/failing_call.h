#pragma once

#include <functional>

namespace quillbox::test {

/// Does `work` on a machine where a system call (SYS_...) is not made and ends with that error, or
/// with 0 when the error is 0. It is for what FailingFiles stands in front of: what the calls
/// themselves may answer on file systems that the tests do not run on. `work` must not throw; its
/// thread is its own, and no other is touched.
void whereCallEndsWith(long call, int error, const std::function<void()>& work);

}  // namespace quillbox::test
