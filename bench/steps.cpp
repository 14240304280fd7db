#include "steps.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <vector>

#include "collections.h"
#include "median.h"
#include "platform/disk_file_system.h"
#include "platform/run_time_error.h"
#include "records/collection_store.h"
#include "records/music_record.h"
#include "records/navigation.h"

namespace quillbox::bench {
namespace {

/// Items that Next reads on its way from the first item to the last, deleted or not.
constexpr int kReads = kItems - 1;

constexpr const char* kStep = "step";
constexpr const char* kStepPeer = "step, peer";
constexpr const char* kSkip = "skip";
constexpr const char* kSkipPeer = "skip, peer";

/// Presses Next from the first item until the last one is shown; returns how often.
int walk(CollectionStore& store, MusicRecord& record) {
  int steps = 0;
  for (std::int16_t position = 1; position < kItems; ++steps) {
    const auto next = nextItem(store, position, bytesOf(record));
    if (!next) break;
    position = *next;
  }
  return steps;
}

void runQuillbox(benchmark::State& run, const std::string& path, int expectedSteps) {
  DiskFileSystem fileSystem;
  AppState state(fileSystem);
  state.currentPath = path;
  CollectionStore store(state.files, state, music());
  try {
    for (auto _ : run)
      if (walk(store, state.music) != expectedSteps) run.SkipWithError("another number of steps");
  } catch (const RunTimeError& error) {
    run.SkipWithError(error.what());
  }
}

bool readBare(const char* path, off_t offset, std::span<std::byte> into) {
  const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  const auto got = ::pread(descriptor, into.data(), into.size(), offset);
  return ::close(descriptor) == 0 && got == static_cast<ssize_t>(into.size());
}

void runPeer(benchmark::State& run, const std::string& path) {
  constexpr off_t length = sizeof(MusicRecord);
  std::array<std::byte, sizeof(MusicRecord)> record;
  for (auto _ : run) {
    // From item 2 on; the header is before item 1.
    for (off_t item = 2; item <= kItems; ++item)
      if (!readBare(path.c_str(), item * length, record)) run.SkipWithError("a record is missing");
    benchmark::DoNotOptimize(record.data());
  }
}

/// Stores the duration of every repetition and prints nothing.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred)
        throw std::runtime_error(run.run_name.function_name + ": " + run.error_message);
      if (run.run_type != Run::RT_Iteration) continue;
      constexpr double perSecond = 1e9;
      taken_[run.run_name.function_name].push_back(run.real_accumulated_time * perSecond /
                                                   static_cast<double>(run.iterations));
    }
  }

  Pair medians(const char* quillbox, const char* peer) const {
    return {median(taken_.at(quillbox)), median(taken_.at(peer))};
  }

 private:
  std::map<std::string, std::vector<double>> taken_;  // nanoseconds, by case
};

}  // namespace

StepTimes timeSteps(const std::string& fullCollection, const std::string& deletedCollection) {
  // In random order, so that other work on the machine affects both sides equally.
  std::string name = "bench";
  std::string interleaved = "--benchmark_enable_random_interleaving=true";
  std::array<char*, 3> arguments = {name.data(), interleaved.data(), nullptr};
  int count = 2;
  benchmark::Initialize(&count, arguments.data());

  const auto add = [](const char* called, auto&& body) {
    benchmark::RegisterBenchmark(called, body)
        ->Iterations(1)
        ->Repetitions(kStepRepetitions)
        ->UseRealTime();
  };
  add(kStep, [&](benchmark::State& run) { runQuillbox(run, fullCollection, kReads); });
  add(kStepPeer, [&](benchmark::State& run) { runPeer(run, fullCollection); });
  add(kSkip, [&](benchmark::State& run) { runQuillbox(run, deletedCollection, 1); });
  add(kSkipPeer, [&](benchmark::State& run) { runPeer(run, deletedCollection); });

  Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
  benchmark::Shutdown();

  StepTimes times{collector.medians(kStep, kStepPeer), collector.medians(kSkip, kSkipPeer)};
  times.step.quillbox /= kReads;
  times.step.peer /= kReads;
  return times;
}

}  // namespace quillbox::bench
