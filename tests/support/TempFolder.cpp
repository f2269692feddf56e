#include "support/TempFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr uid_t kNobody = 65534;

/// A step without which the test would say nothing.
void Require(bool done, const fs::path& path) {
  if (!done) {
    throw fs::filesystem_error("a test's file", path, {errno, std::generic_category()});
  }
}

}  // namespace

TempFolder::TempFolder() {
  std::string name = (fs::temp_directory_path() / "nimbrel-test-XXXXXX").string();
  Require(mkdtemp(name.data()) != nullptr, name);
  path_ = fs::canonical(name);
  // An OrdinaryUser of a part of it has to get there.
  fs::permissions(path_, fs::perms::group_exec | fs::perms::others_exec, fs::perm_options::add);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  for (fs::recursive_directory_iterator it(path_, ignored), end; it != end; it.increment(ignored)) {
    if (it->is_directory(ignored) && !it->is_symlink(ignored)) {
      fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
  }
  fs::remove_all(path_, ignored);
}

void WriteText(const fs::path& file, std::string_view bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadText(const fs::path& file) {
  const std::ifstream in(file, std::ios::binary);
  Require(in.is_open(), file);
  return {std::istreambuf_iterator<char>(in.rdbuf()), {}};
}

OrdinaryUser::OrdinaryUser(const fs::path& folder) : was_root_(geteuid() == 0) {
  if (!was_root_) {
    return;
  }
  Require(lchown(folder.c_str(), kNobody, kNobody) == 0, folder);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    Require(lchown(entry.path().c_str(), kNobody, kNobody) == 0, entry.path());
  }
  Require(seteuid(kNobody) == 0, folder);
}

OrdinaryUser::~OrdinaryUser() {
  if (was_root_ && seteuid(0) != 0) {
    std::abort();
  }
}
