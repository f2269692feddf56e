#include "support.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <iterator>

#include "platform/Descriptor.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"
#include "toolkit/forms.h"

namespace fs = std::filesystem;

namespace {

/// The real-time clock stands so many seconds ahead of the files' stamps.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): set once, before all else
std::time_t seconds_ahead = 0;

/// Made at the start and gone at the end; one that a crash leaves behind lies in memory.
class Tree {
 public:
  Tree() {
    const fs::path memory("/dev/shm");
    std::string name =
        (fs::exists(memory) ? memory : fs::temp_directory_path()) / "nimbrel-fuzz-XXXXXX";
    fuzz::Require(mkdtemp(name.data()) != nullptr);
    world_ = fs::canonical(name);
    simulator_ = world_ / "simulator";
    program_ = simulator_ / "Modules" / "Nimbrel";
    fs::create_directories(program_);
    platform::SetApplicationFolder(program_.string());
    nimbrel::SimulatorRoot = program_.string() + "\\..\\..\\";
  }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  ~Tree() {
    std::error_code ignored;
    fs::remove_all(world_, ignored);
  }

  const fs::path& World() const { return world_; }
  const fs::path& Simulator() const { return simulator_; }
  const fs::path& Program() const { return program_; }

 private:
  fs::path world_;
  fs::path simulator_;
  fs::path program_;
};

const Tree& TheTree() {
  static const Tree tree;
  return tree;
}

}  // namespace

/// Inputs are small and many: less to remember of each allocation.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's own name for it
extern "C" const char* __asan_default_options() {
  return "malloc_context_size=8:quarantine_size_mb=16";
}

/// The system's, but for the head start. It stands in for the C library's own.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
  const auto result = static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  time->tv_sec += clock == CLOCK_REALTIME ? seconds_ahead : 0;
  return result;
}

/// The toolkit stands throughout: switches are check boxes, pictures and pointers its own.
// NOLINTNEXTLINE(readability-non-const-parameter): the fuzzer's own declaration
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  // Never destroyed: the fuzzer ends by exit, when what the toolkit's windows stand on is gone.
  static const auto* const application = new toolkit::Application(*argc, *argv);
  fuzz::Require(application != nullptr);
  TheTree();
  return 0;
}

namespace fuzz {

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void RequireOneEdit(std::string_view before, std::string_view after, std::size_t most_before,
                    std::size_t most_after) {
  const auto front = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  before.remove_prefix(static_cast<std::size_t>(front.first - before.begin()));
  after.remove_prefix(static_cast<std::size_t>(front.second - after.begin()));
  while (!before.empty() && !after.empty() && before.back() == after.back()) {
    before.remove_suffix(1);
    after.remove_suffix(1);
  }
  Require(before.size() <= most_before && after.size() <= most_after);
}

fs::path Program(std::string_view file) { return TheTree().Program() / file; }

fs::path Simulator(std::string_view file) { return TheTree().Simulator() / file; }

fs::path World(std::string_view file) { return TheTree().World() / file; }

bool LetFilesSettle() {
  constexpr std::time_t kHour = 3600;
  seconds_ahead = kHour;
  return true;
}

void Put(const fs::path& file, Bytes bytes) {
  static fs::path known_folder;
  static std::time_t moment = 0;
  if (file.parent_path() != known_folder) {
    known_folder = file.parent_path();
    fs::create_directories(known_folder);
  }
  const platform::Descriptor out(
      open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR));
  Require(out.IsOpen());
  Require(write(out.Number(), bytes.data(), bytes.size()) == std::ssize(bytes));
  // No two contents under one stamp.
  const timespec stamp{++moment, 1};
  const std::array<timespec, 2> stamps{stamp, stamp};
  Require(futimens(out.Number(), stamps.data()) == 0);
}

std::string Get(const fs::path& file) {
  const platform::Descriptor in(open(file.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat facts {};
  Require(in.IsOpen() && fstat(in.Number(), &facts) == 0);
  std::string text(static_cast<std::size_t>(facts.st_size), '\0');
  Require(read(in.Number(), text.data(), text.size()) == std::ssize(text));
  return text;
}

Bytes TakePart(Bytes& input) {
  const std::size_t low = TakeByte(input);
  const std::size_t length = std::min(low | std::size_t{TakeByte(input)} << 8U, input.size());
  const Bytes part = input.first(length);
  input = input.subspan(length);
  return part;
}

std::uint8_t TakeByte(Bytes& input) {
  if (input.empty()) {
    return 0;
  }
  const auto byte = std::to_integer<std::uint8_t>(input.front());
  input = input.subspan(1);
  return byte;
}

}  // namespace fuzz
