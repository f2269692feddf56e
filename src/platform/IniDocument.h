#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

/// The text of an initialization file: read into an index once, changed value by value, put
/// together again with every other byte as it was. Names are UTF-8, values bytes of the file's code
/// page.
class IniDocument {
 public:
  explicit IniDocument(std::string bytes = {});

  /// The value with blanks and one pair of quotes off; none when section or key is absent. The view
  /// lives until the next change.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

  /// Whether the names and the value can be written so that they read back the same, in one line.
  static bool CanHold(std::string_view section, std::string_view key, std::string_view value);

  /// Gives a key a value, adding what is absent. Only what CanHold.
  void Set(std::string_view section, std::string_view key, std::string_view value);

  /// The bytes it was made of.
  const std::string& Original() const { return bytes_; }
  /// The bytes with all changes in them.
  std::string Render() const;

 private:
  static constexpr std::size_t kNowhere = std::string::npos;

  struct Value {
    std::size_t offset = kNowhere;  ///< of the value in the file, quotes with it; kNowhere if new
    std::size_t length = 0;
    std::optional<std::string> written;  ///< what stands there from now on, quotes with it
  };
  struct Section {
    std::size_t end = kNowhere;  ///< behind its last line that is not blank; kNowhere if new
    std::string title;           ///< of a new section, as written
    std::unordered_map<std::string, Value> values;              ///< by folded key
    std::vector<std::pair<std::string, std::string>> new_keys;  ///< as written, and folded
  };
  /// One stretch of the file to be replaced; `lines` are whole lines, which begin on their own.
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
  std::size_t start_ = 0;  ///< behind a byte order mark
  std::string line_end_ = "\r\n";
  std::unordered_map<std::string, Section> sections_;  ///< by folded name
  std::vector<std::string> new_sections_;              ///< folded, in the order they came
};

}  // namespace platform
