#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {
constexpr uid_t kNobody = 65534;
}

TempFolder::TempFolder() {
  std::string name = (fs::temp_directory_path() / "nimbrel-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw fs::filesystem_error("no temporary folder", name,
                               std::make_error_code(std::errc::io_error));
  }
  path_ = fs::canonical(name);
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
  EXPECT_TRUE(in.is_open()) << file;
  return {std::istreambuf_iterator<char>(in.rdbuf()), {}};
}

OrdinaryUser::OrdinaryUser(const fs::path& folder) : was_root_(geteuid() == 0) {
  if (!was_root_) {
    return;
  }
  EXPECT_EQ(0, lchown(folder.c_str(), kNobody, kNobody));
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    EXPECT_EQ(0, lchown(entry.path().c_str(), kNobody, kNobody));
  }
  EXPECT_EQ(0, seteuid(kNobody));
}

OrdinaryUser::~OrdinaryUser() {
  if (was_root_) {
    EXPECT_EQ(0, seteuid(0));
  }
}
