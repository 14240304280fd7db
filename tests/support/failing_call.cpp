#include "support/failing_call.h"

#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <thread>

namespace quillbox::test {
namespace {

thread_local std::size_t mostBytes = SIZE_MAX;
thread_local int foldersFlushed = 0;

/// For the rest of the calling thread's life.
bool endCallWith(long call, int error) {
  const auto number = static_cast<std::uint32_t>(call);
  const auto answer = SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(error);
  sock_filter steps[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, answer),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  sock_fprog program = {static_cast<unsigned short>(std::size(steps)), steps};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

}  // namespace

void whereCallEndsWith(long call, int error, const std::function<void()>& work) {
  std::thread([&] {
    if (endCallWith(call, error))
      work();
    else
      ADD_FAILURE() << "cannot make a system call fail";
  }).join();
}

void whereCallsTakeAtMost(std::size_t bytes, const std::function<void()>& work) {
  mostBytes = bytes;
  work();
  mostBytes = SIZE_MAX;
}

int foldersFlushedBy(const std::function<void()>& work) {
  foldersFlushed = 0;
  work();
  return foldersFlushed;
}

}  // namespace quillbox::test

// In place of the C library's.

extern "C" ssize_t pread(int descriptor, void* into, std::size_t bytes, off_t offset) {
  return ::syscall(SYS_pread64, descriptor, into, std::min(bytes, quillbox::test::mostBytes),
                   offset);
}

extern "C" ssize_t pwrite(int descriptor, const void* from, std::size_t bytes, off_t offset) {
  return ::syscall(SYS_pwrite64, descriptor, from, std::min(bytes, quillbox::test::mostBytes),
                   offset);
}

extern "C" int fsync(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode))
    ++quillbox::test::foldersFlushed;
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}
