#include "support.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/forms.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"

namespace fs = std::filesystem;

namespace {

/// Made at the start and gone at the end; one that a crash leaves behind lies in memory.
class Tree {
 public:
  Tree() {
    const fs::path memory("/dev/shm");
    std::string name =
        (fs::exists(memory) ? memory : fs::temp_directory_path()) / "nimbrel-fuzz-XXXXXX";
    fuzz::Require(mkdtemp(name.data()) != nullptr);
    root_ = fs::canonical(name);
    fs::create_directories(Program());
    platform::SetApplicationFolder(Program().string());
    nimbrel::SimulatorRoot = Program().string() + "\\..\\..\\";
  }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  ~Tree() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  const fs::path& Root() const { return root_; }
  fs::path Program() const { return root_ / "Modules" / "Nimbrel"; }

 private:
  fs::path root_;
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

/// The toolkit stands throughout: switches are check boxes, pictures and pointers its own.
// NOLINTNEXTLINE(readability-non-const-parameter): the fuzzer's own declaration
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  // Never destroyed: the fuzzer ends by exit, when what the toolkit's windows stand on is gone.
  static const auto* const application = new platform::Application(*argc, *argv);
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

fs::path Simulator(std::string_view file) { return TheTree().Root() / file; }

void Put(const fs::path& file, Bytes bytes) {
  static fs::path known_folder;
  if (file.parent_path() != known_folder) {
    known_folder = file.parent_path();
    fs::create_directories(known_folder);
  }
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(Text(bytes).data(), static_cast<std::streamsize>(bytes.size()));
  Require(out.good());
}

std::string Get(const fs::path& file) {
  const std::ifstream in(file, std::ios::binary);
  Require(in.is_open());
  return {std::istreambuf_iterator<char>(in.rdbuf()), {}};
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
