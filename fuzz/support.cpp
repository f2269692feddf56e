#include "support.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>

namespace fs = std::filesystem;

namespace {

/// Made at the start and removed at the end; one that a crash leaves behind is in memory.
class MemoryFolder {
 public:
  MemoryFolder() {
    const fs::path memory("/dev/shm");
    std::string name =
        (fs::exists(memory) ? memory : fs::temp_directory_path()) / "nimbrel-fuzz-XXXXXX";
    fuzz::Require(mkdtemp(name.data()) != nullptr);
    path_ = fs::canonical(name);
    world_.emplace(path_);
  }
  MemoryFolder(const MemoryFolder&) = delete;
  MemoryFolder& operator=(const MemoryFolder&) = delete;
  ~MemoryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }

  const fs::path& path() const { return path_; }
  const World& world() const { return *world_; }

 private:
  fs::path path_;
  std::optional<World> world_;
};

const MemoryFolder& TheFolder() {
  static const MemoryFolder folder;
  return folder;
}

}  // namespace

/// Inputs are small and many: less to remember of each allocation.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's own name for it
extern "C" const char* __asan_default_options() {
  return "malloc_context_size=8:quarantine_size_mb=16";
}

namespace fuzz {

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void RequireOneEdit(std::string_view before, std::string_view after, std::size_t max_before,
                    std::size_t max_after) {
  const auto front = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  before.remove_prefix(static_cast<std::size_t>(front.first - before.begin()));
  after.remove_prefix(static_cast<std::size_t>(front.second - after.begin()));
  while (!before.empty() && !after.empty() && before.back() == after.back()) {
    before.remove_suffix(1);
    after.remove_suffix(1);
  }
  Require(before.size() <= max_before && after.size() <= max_after);
}

const World& Simulator() { return TheFolder().world(); }

const fs::path& Outside() { return TheFolder().path(); }

void Put(const fs::path& file, Bytes bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
  Require(out.flush().good());
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
