// For tools/mutants.py: which blocks of the libraries each test runs. With QUILLBOX_REACHED naming
// a file, each test is a line of it: name, seconds, offsets of the blocks in the program. The first
// line, "*", is of what runs before any test. Blocks that other threads run may be missed.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

extern "C" char __executable_start;  // of the linker

namespace {

constexpr std::size_t largest_program = std::size_t{256} << 20;  // bytes
bool seen[largest_program];
std::vector<std::uint32_t>* reached = nullptr;

class Recorder : public testing::EmptyTestEventListener {
 public:
  explicit Recorder(const char* file) : out_(file) { reached = new std::vector<std::uint32_t>; }

  void OnTestProgramStart(const testing::UnitTest&) override { write("*", 0); }
  void OnTestEnd(const testing::TestInfo& test) override {
    const std::string name = std::string(test.test_suite_name()) + "." + test.name();
    write(name, static_cast<double>(test.result()->elapsed_time()) / 1000);
  }

 private:
  void write(const std::string& name, double seconds) {
    out_ << name << ' ' << seconds;
    for (const std::uint32_t offset : *reached) {
      out_ << ' ' << std::hex << offset << std::dec;
      seen[offset] = false;
    }
    out_ << std::endl;
    reached->clear();
  }

  std::ofstream out_;
};

// Takes part before main() begins, which is GoogleTest's own in one of the programs.
const bool recording = [] {
  const char* file = std::getenv("QUILLBOX_REACHED");
  if (file) testing::UnitTest::GetInstance()->listeners().Append(new Recorder(file));
  return file != nullptr;
}();

}  // namespace

// The compiler calls it at the start of every block.
extern "C" void __sanitizer_cov_trace_pc() {
  if (!reached) return;
  const auto offset = static_cast<std::uint32_t>(
      static_cast<const char*>(__builtin_return_address(0)) - &__executable_start - 1);
  if (seen[offset]) return;
  seen[offset] = true;
  reached->push_back(offset);
}
