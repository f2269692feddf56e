#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// A new empty folder, gone with its whole content at the end.
class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  const std::filesystem::path& path() const { return path_; }
  std::string string() const { return path_.string(); }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

/// Writes a file, making its folders.
void WriteText(const std::filesystem::path& file, std::string_view bytes);
/// The file's bytes. Throws if the file is missing.
std::string ReadText(const std::filesystem::path& file);

/// While one lives, the file system treats the process as an ordinary user, so that permissions
/// hold also when the tests run as root.
class OrdinaryUser {
 public:
  /// `folder` and all in it become that user's.
  explicit OrdinaryUser(const std::filesystem::path& folder);
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser();

 private:
  bool was_root_;
};
