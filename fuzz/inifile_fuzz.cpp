#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/IniDocument.h"
#include "platform/text.h"

namespace {

using platform::IniDocument;

void Require(bool condition) {
  if (!condition) {
    abort();
  }
}

/// Up to the first '\0', which goes too.
std::string_view TakeText(std::string_view& input) {
  const std::string_view text = input.substr(0, input.find('\0'));
  input.remove_prefix(std::min(text.size() + 1, input.size()));
  return text;
}

/// All that differs between the two lies in one stretch, of at most so many bytes in each.
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

void WriteAndReread(const std::string& bytes, std::string_view section, std::string_view key,
                    std::string_view value) {
  constexpr std::size_t kQuotes = 2;
  constexpr std::size_t kLineSigns = 9;  // brackets, equals sign, three line ends
  IniDocument document(bytes);
  Require(document.Render() == bytes);
  const auto found = document.Find(section, key);
  const std::size_t most_before = found ? found->size() + kQuotes : 0;
  const std::size_t added = found ? 0 : section.size() + key.size() + kLineSigns;
  document.Set(section, key, value);
  Require(document.Find(section, key) == value);
  const std::string after = document.Render();
  RequireOneEdit(bytes, after, most_before, value.size() + kQuotes + added);
  Require(IniDocument(after).Find(section, key) == value);
}

}  // namespace

/// Input: section, key and value, each ended by a null byte, then the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string section = platform::FromAnsi(TakeText(input));
  const std::string key = platform::FromAnsi(TakeText(input));
  const std::string value(TakeText(input));
  if (IniDocument::CanHold(section, key, value)) {
    WriteAndReread(std::string(input), section, key, value);
  }
  return 0;
}
