#include "starts.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "collections.h"
#include "median.h"

namespace quillbox::bench {
namespace {

constexpr double kKibPerMib = 1024;

/// What the editor shows, for the peer; in the working folder.
constexpr const char* kCounts = "controls.txt";

struct Process {
  double milliseconds = 0;
  double peakMib = 0;
};

using Command = std::vector<std::string>;

/// Runs the command in this process. Between fork and exec it makes only system calls.
[[noreturn]] void become(char* const* arguments, const char* workFolder, const char* errorFile) {
  constexpr unsigned secondsAtMost = 60;
  constexpr int cannotRun = 127;
  ::alarm(secondsAtMost);  // a window that is never painted must not block everything
  const int errors = ::open(errorFile, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (errors >= 0) ::dup2(errors, STDERR_FILENO);
  if (::chdir(workFolder) == 0) ::execv(arguments[0], arguments);
  ::_exit(cannotRun);
}

Process run(const Command& command, const std::filesystem::path& workFolder) {
  std::vector<char*> arguments;
  for (const std::string& argument : command)
    arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const std::filesystem::path errorFile = workFolder / "errors.txt";

  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = ::fork();
  if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (child == 0) become(arguments.data(), workFolder.c_str(), errorFile.c_str());
  int status = 0;
  struct rusage usage {};
  pid_t ended = 0;
  do ended = ::wait4(child, &status, 0, &usage);
  while (ended < 0 && errno == EINTR);
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begin;

  if (ended != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    throw std::runtime_error(command.front() + " did not run to its end.\n" +
                             contentsOf(errorFile));
  return {taken.count(), static_cast<double>(usage.ru_maxrss) / kKibPerMib};
}

class Runs {
 public:
  explicit Runs(Command command) : command_(std::move(command)) {}

  void run(const std::filesystem::path& workFolder, bool counted) {
    const Process process = bench::run(command_, workFolder);
    if (!counted) return;
    times_.push_back(process.milliseconds);
    peaks_.push_back(process.peakMib);
  }

  double time() const { return median(times_); }
  double memory() const { return median(peaks_); }

 private:
  Command command_;
  std::vector<double> times_;
  std::vector<double> peaks_;
};

/// The peak of a process counts from the fork, so this one must be smaller.
void checkOwnSize(double smallestPeak) {
  struct rusage usage {};
  ::getrusage(RUSAGE_SELF, &usage);
  if (static_cast<double>(usage.ru_maxrss) / kKibPerMib >= smallestPeak)
    throw std::runtime_error("The benchmark program itself is too large to measure memory.");
}

}  // namespace

StartFigures timeStarts(const std::filesystem::path& programs,
                        const std::filesystem::path& workFolder, const std::string& collection,
                        int runs) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 0);  // a display may be asked for
  const std::string quillbox = programs / "bench_start_quillbox";
  const std::string peerProgram = programs / "bench_start_peer";
  run({quillbox, "--count", kCounts, collection}, workFolder);
  std::array<Runs, 4> sides = {Runs({quillbox, collection}), Runs({peerProgram}),
                               Runs({quillbox, "--with-box", collection}),
                               Runs({peerProgram, "--form", kCounts})};
  for (int round = 0; round < kWarmUps + runs; ++round)
    for (Runs& side : sides) side.run(workFolder, round >= kWarmUps);

  const auto& [program, peer, withBox, plainForm] = sides;
  checkOwnSize(peer.memory());
  return {{program.time(), peer.time()},
          {program.memory(), peer.memory()},
          withBox.time(),
          withBox.memory(),
          plainForm.time()};
}

}  // namespace quillbox::bench
