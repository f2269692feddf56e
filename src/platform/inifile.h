#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/FileStatus.h"
#include "platform/IniDocument.h"

namespace platform {

class FileSystem;

/// An initialization file, opened once for any number of keys: sections in square brackets and
/// key=value lines. Sections and keys match without case, and the first of a name counts. Blanks
/// around a value and one pair of quotes around it are removed; lines that begin with ';' are
/// comments; CRLF and LF are both read and each file keeps its own. Text is UTF-8 here and
/// Windows-1252 in the file. A file over 16 MiB is refused with kTooLarge.
class IniFile {
 public:
  /// Reads the file now. A file that can't be read has no keys, and is not written.
  IniFile(FileSystem& files, std::string path);

  /// kOk, kNoSource for a file that does not exist, or why it could not be read.
  FileStatus status() const { return status_; }
  const IniDocument& document() const { return document_; }
  IniDocument& document() { return document_; }

  /// Writes the changes in one safe, flushed replacement; every other byte stays. Creates a file
  /// that does not exist. Nothing is written if nothing changed.
  FileStatus Save();

 private:
  FileSystem& files_;
  std::string path_;
  FileStatus status_ = FileStatus::kOk;
  IniDocument document_;
};

/// The published initialization-file services, on an opened file.

/// The decimal value of a key: blanks, a sign and digits, up to the first other character; 0 if
/// there are none. `fallback` if section or key is absent. Wraps at 32 bits.
std::int32_t GetPrivateProfileIntA(std::string_view section, std::string_view key,
                                   std::int32_t fallback, const IniFile& file);

/// The value of a key, cut to `size` - 1 bytes of the file's code page, or `fallback` without
/// trailing blanks if the key is absent.
std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                     std::string_view fallback, std::size_t size,
                                     const IniFile& file);

/// Replaces the value in place, or adds the key at the end of its section, or the section at the
/// end of the file; IniFile::Save stores it. A value that begins or ends with blanks or has quotes
/// of its own is put in quotes, so that it reads back the same. kOther, and no change, for what
/// would not read back: a line break or a null character anywhere, "=" in a key, "]" in a section.
FileStatus WritePrivateProfileStringA(std::string_view section, std::string_view key,
                                      std::string_view value, IniFile& file);

}  // namespace platform
