#include "Files.h"

#include <fstream>
#include <stdexcept>
#include <string>

#include "platform/text.h"

namespace demo {

namespace fs = std::filesystem;

void WriteBytes(const fs::path& file, std::span<const std::byte> bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) {
    throw std::runtime_error("cannot write " + file.string());
  }
}

void WriteDosText(const fs::path& file, std::string_view utf8) {
  std::string text;
  for (const char c : platform::ToAnsi(utf8)) {
    text += c == '\n' ? std::string("\r\n") : std::string(1, c);
  }
  WriteBytes(file, std::as_bytes(std::span(text)));
}

}  // namespace demo
