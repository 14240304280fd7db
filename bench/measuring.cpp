#include "measuring.h"

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

namespace quillbox::bench {

double milliseconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
      .count();
}

double peakMib(const std::function<void()>& work) {
  constexpr double kibPerMib = 1024;
  ::malloc_trim(0);  // memory that is kept for later would not be seen to be taken again
  const pid_t child = ::fork();
  if (child == 0) {
    work();
    ::_exit(0);
  }
  int status = 0;
  struct rusage usage {};
  ::wait4(child, &status, 0, &usage);
  return static_cast<double>(usage.ru_maxrss) / kibPerMib;
}

}  // namespace quillbox::bench
