#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/IniDocument.h"
#include "platform/text.h"
#include "support.h"

namespace {

using platform::IniDocument;

/// Up to the first null character, which goes off the input too.
std::string_view TakeText(std::string_view& input) {
  const std::string_view text = input.substr(0, input.find('\0'));
  input.remove_prefix(std::min(text.size() + 1, input.size()));
  return text;
}

void WriteAndReread(const std::string& bytes, std::string_view section, std::string_view key,
                    std::string_view value) {
  constexpr std::size_t kQuotes = 2;
  constexpr std::size_t kLineSigns = 9;  // brackets, equals sign, three line ends
  IniDocument document(bytes);
  fuzz::Require(document.Render() == bytes);
  const auto found = document.Find(section, key);
  const std::size_t max_before = found ? found->size() + kQuotes : 0;
  const std::size_t added = found ? 0 : section.size() + key.size() + kLineSigns;
  document.Set(section, key, value);
  fuzz::Require(document.Find(section, key) == value);
  const std::string after = document.Render();
  fuzz::RequireOneEdit(bytes, after, max_before, value.size() + kQuotes + added);
  fuzz::Require(IniDocument(after).Find(section, key) == value);
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
