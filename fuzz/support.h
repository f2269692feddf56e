#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

/// What the fuzzers share: a way to fail, and a simulator with the program in it, in memory.
namespace fuzz {

using Bytes = std::span<const std::byte>;

/// Ends the fuzzing with the input at hand unless it holds.
void Require(bool holds);

/// All that differs between the two lies in one stretch, of at most so many bytes in each.
void RequireOneEdit(std::string_view before, std::string_view after, std::size_t most_before,
                    std::size_t most_after);

/// A file of the program's folder, which stands two levels below a simulator's in a file system in
/// memory and is the ApplicationFolder.
std::filesystem::path Program(std::string_view file);
std::filesystem::path Simulator(std::string_view file);
/// A file of the folder that the simulator's stands in.
std::filesystem::path World(std::string_view file);

/// To be called before the fuzzing begins: the clock goes ahead by an hour, so that the program
/// takes every file for one that has long been written and does not read it anew for each value.
/// Only for fuzzers that give no file two contents but by Put or by the program's own replacing.
bool LetFilesSettle();

/// Writes a file, making its folders.
void Put(const std::filesystem::path& file, Bytes bytes);
/// The whole file; one that is missing fails.
std::string Get(const std::filesystem::path& file);

inline std::string_view Text(Bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Up to the length that the input's first two bytes tell, which go too.
Bytes TakePart(Bytes& input);
/// The first byte, 0 when there is none.
std::uint8_t TakeByte(Bytes& input);

}  // namespace fuzz
