#include "platform/IniDocument.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace platform {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsQuote(char c) { return c == '"' || c == '\''; }

/// Moves both ends of a range of `bytes` inwards past blanks, the front first: nothing but blanks
/// becomes an empty range at its end.
void TrimBlanks(std::string_view bytes, std::size_t& start, std::size_t& end) {
  while (start < end && IsBlank(bytes[start])) {
    ++start;
  }
  while (end > start && IsBlank(bytes[end - 1])) {
    --end;
  }
}

std::string_view Trimmed(std::string_view text) {
  std::size_t start = 0;
  std::size_t end = text.size();
  TrimBlanks(text, start, end);
  return text.substr(start, end - start);
}

bool IsQuoted(std::string_view value) {
  return value.size() >= 2 && IsQuote(value.front()) && value.back() == value.front();
}

std::string_view WithoutQuotes(std::string_view value) {
  return IsQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

/// A value as the file has to hold it, so that it reads back the same.
std::string AsWritten(std::string_view value) {
  const bool in_quotes = Trimmed(value).size() != value.size() || IsQuoted(value);
  return in_quotes ? '"' + std::string(value) + '"' : std::string(value);
}

std::string FoldedName(std::string_view bytes) { return FoldName(FromAnsi(bytes)); }

/// True if a name fits into the file's code page and into one line, without any of `reserved`.
bool IsWritableName(std::string_view name, std::string_view reserved) {
  return FoldedName(ToAnsi(name)) == FoldName(name) && name.find('\0') == std::string_view::npos &&
         name.find_first_of("\r\n") == std::string_view::npos &&
         name.find_first_of(reserved) == std::string_view::npos;
}

}  // namespace

IniDocument::IniDocument(std::string bytes) : bytes_(std::move(bytes)) {
  start_ = bytes_.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  if (const std::size_t first = bytes_.find('\n'); first != kNowhere) {
    line_end_ = first > 0 && bytes_[first - 1] == '\r' ? "\r\n" : "\n";
  }
  Section* current = nullptr;
  for (std::size_t start = start_; start < bytes_.size();) {
    const std::size_t end = std::min(bytes_.find('\n', start), bytes_.size());
    ParseLine(start, end, current);
    start = end + 1;
  }
}

void IniDocument::ParseLine(std::size_t start, std::size_t end, Section*& current) {
  const std::size_t next = std::min(end + 1, bytes_.size());
  while (end > start && bytes_[end - 1] == '\r') {
    --end;
  }
  TrimBlanks(bytes_, start, end);
  if (start == end) {
    return;
  }
  if (bytes_[start] == '[') {
    current = ParseHeader(start, end);
  } else if (current != nullptr && bytes_[start] != ';') {
    ParseKey(start, end, *current);
  }
  if (current != nullptr) {
    current->end = next;
  }
}

/// Null for a second section of the same name, whose keys are ignored.
IniDocument::Section* IniDocument::ParseHeader(std::size_t start, std::size_t end) {
  const std::string_view line = std::string_view(bytes_).substr(start + 1, end - start - 1);
  const std::string_view name = Trimmed(line.substr(0, line.find(']')));
  const auto [section, fresh] = sections_.try_emplace(FoldedName(name));
  return fresh ? &section->second : nullptr;
}

void IniDocument::ParseKey(std::size_t start, std::size_t end, Section& section) const {
  const std::string_view line = std::string_view(bytes_).substr(start, end - start);
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) {
    return;
  }
  std::size_t value = start + sign + 1;
  TrimBlanks(bytes_, value, end);
  section.values.try_emplace(FoldedName(Trimmed(line.substr(0, sign))),
                             Value{value, end - value, std::nullopt});
}

std::optional<std::string_view> IniDocument::Find(std::string_view section,
                                                  std::string_view key) const {
  const auto place = sections_.find(FoldName(Trimmed(section)));
  if (place == sections_.end()) {
    return std::nullopt;
  }
  const auto value = place->second.values.find(FoldName(Trimmed(key)));
  if (value == place->second.values.end()) {
    return std::nullopt;
  }
  const Value& found = value->second;
  return WithoutQuotes(found.written ? std::string_view(*found.written)
                                     : std::string_view(bytes_).substr(found.offset, found.length));
}

bool IniDocument::CanHold(std::string_view section, std::string_view key, std::string_view value) {
  key = Trimmed(key);
  return !key.empty() && key.front() != '[' && key.front() != ';' && IsWritableName(key, "=") &&
         IsWritableName(section, "]") && value.find('\0') == std::string_view::npos &&
         value.find_first_of("\r\n") == std::string_view::npos;
}

void IniDocument::Set(std::string_view section, std::string_view key, std::string_view value) {
  section = Trimmed(section);
  key = Trimmed(key);
  if (const auto now = Find(section, key); now == value) {
    return;
  }
  const auto [place, new_section] = sections_.try_emplace(FoldName(section));
  if (new_section) {
    place->second.title = ToAnsi(section);
    new_sections_.push_back(place->first);
  }
  const auto [entry, new_key] = place->second.values.try_emplace(FoldName(key));
  if (new_key) {
    place->second.new_keys.emplace_back(ToAnsi(key), entry->first);
  }
  entry->second.written = AsWritten(value);
}

std::string IniDocument::NewLines(const Section& section) const {
  std::string text;
  for (const auto& [written, folded] : section.new_keys) {
    text += written + '=' + *section.values.at(folded).written + line_end_;
  }
  return text;
}

std::vector<IniDocument::Edit> IniDocument::Edits() const {
  std::vector<Edit> edits;
  for (const auto& [section_name, section] : sections_) {
    for (const auto& [key_name, value] : section.values) {
      if (value.offset != kNowhere && value.written) {
        edits.push_back({value.offset, value.length, *value.written, false});
      }
    }
    if (section.end != kNowhere && !section.new_keys.empty()) {
      edits.push_back({section.end, 0, NewLines(section), true});
    }
  }
  // An empty value at the end of the file comes before the lines that are added there.
  std::sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) {
    return std::pair(a.offset, a.lines) < std::pair(b.offset, b.lines);
  });
  for (const std::string& name : new_sections_) {
    const Section& section = sections_.at(name);
    edits.push_back(
        {bytes_.size(), 0, '[' + section.title + ']' + line_end_ + NewLines(section), true});
  }
  return edits;
}

std::string IniDocument::Render() const {
  std::string text;
  std::size_t done = 0;
  for (const Edit& edit : Edits()) {
    text.append(bytes_, done, edit.offset - done);
    if (edit.lines && text.size() > start_ && text.back() != '\n') {
      text += line_end_;
    }
    text += edit.text;
    done = edit.offset + edit.length;
  }
  return text.append(bytes_, done);
}

}  // namespace platform
