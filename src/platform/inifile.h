#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace platform {

/// The three initialization-file services, as published, over any text file of sections in square
/// brackets and key=value lines. Sections and keys match without case and the first of a name
/// counts; blanks round a value and one pair of quotes round it are taken off; lines that begin
/// with ';' are comments; CRLF and LF are both read and each file keeps its own. Text is UTF-8 here
/// and Windows-1252 in the file. A file is read once and again only when it changed on disk (time
/// stamp, size or identity), and no call costs a pass over it; while the system will not read it,
/// what was read last stands. Files over 16 MiB count as absent, and are not written.

/// The decimal value of a key: blanks, a sign and digits, up to the first other character; 0 when
/// there is none. `fallback` when section, key or file is absent. Wraps at 32 bits, as published.
std::int32_t GetPrivateProfileIntA(std::string_view section, std::string_view key,
                                   std::int32_t fallback, std::string_view file);

/// The value of a key, or `fallback` with trailing blanks taken off when it is absent, cut to
/// `size` - 1 bytes of the file's code page.
std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                     std::string_view fallback, std::size_t size,
                                     std::string_view file);

/// Reads the file now if it has to be read. Whoever takes a lot of values asks first, since a file
/// that the system will not read has none.
FileStatus ReadProfile(std::string_view file);

/// Replaces the key's value in place, or adds the key at the end of its section, or the section at
/// the end of the file, or creates the file. Every other byte stays. One safe, flushed replacement
/// for each call, unless an IniBatch for that file is alive. kOk without a write when the value
/// already stands. A value that begins or ends with blanks or stands in quotes of its own is put in
/// quotes, so that it reads back the same. kOther, and nothing written, for what would not read
/// back: a line break or a null character anywhere, "=" in a key, "]" in a section.
FileStatus WritePrivateProfileStringA(std::string_view section, std::string_view key,
                                      std::string_view value, std::string_view file);

/// While one lives, writes to `file` are collected; Commit, or its end, makes them in one safe
/// replacement. Reads see them at once.
class IniBatch {
 public:
  explicit IniBatch(std::string_view file);
  IniBatch(const IniBatch&) = delete;
  IniBatch& operator=(const IniBatch&) = delete;
  ~IniBatch();

  FileStatus Commit();

 private:
  std::string file_;
  bool open_ = true;
};

}  // namespace platform
