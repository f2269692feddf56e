#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

/// The text of an initialization file, indexed once and changed value by value; all other bytes
/// stay as they are. Names are UTF-8, values are bytes of the file's code page.
class IniDocument {
 public:
  explicit IniDocument(std::string bytes = {});

  /// The value without the blanks and the one pair of quotes around it; none if section or key is
  /// absent. The view is valid until the next change.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

  /// True if the names and the value can be written so that they read back the same, in one line.
  static bool CanHold(std::string_view section, std::string_view key, std::string_view value);

  /// Gives a key a value; adds key and section if absent. CanHold must be true for them.
  void Set(std::string_view section, std::string_view key, std::string_view value);

  /// The bytes that the document was made from.
  const std::string& Original() const { return bytes_; }
  /// The bytes with all changes.
  std::string Render() const;

 private:
  static constexpr std::size_t kNowhere = std::string::npos;

  struct Value {
    std::size_t offset = kNowhere;  ///< of the value in the file, with its quotes; kNowhere if new
    std::size_t length = 0;
    std::optional<std::string> written;  ///< the new value, with its quotes
  };
  struct Section {
    std::size_t end = kNowhere;  ///< after its last line that is not blank; kNowhere if new
    std::string title;           ///< of a new section, as written
    std::unordered_map<std::string, Value> values;              ///< by folded key
    std::vector<std::pair<std::string, std::string>> new_keys;  ///< as written, and folded
  };
  /// A replacement of one range of the file. `lines`: the text is whole lines, and a line end goes
  /// before it if the file has none there.
  struct Edit {
    std::size_t offset;
    std::size_t length;
    std::string text;
    bool lines;
  };

  void ParseLine(std::size_t start, std::size_t end, Section*& current);
  Section* ParseHeader(std::size_t start, std::size_t end);
  void ParseKey(std::size_t start, std::size_t end, Section& section) const;
  std::string NewLines(const Section& section) const;
  std::vector<Edit> Edits() const;

  std::string bytes_;
  std::size_t start_ = 0;  ///< after a byte order mark
  std::string line_end_ = "\r\n";
  std::unordered_map<std::string, Section> sections_;  ///< by folded name
  std::vector<std::string> new_sections_;              ///< folded, in the order of their addition
};

}  // namespace platform
