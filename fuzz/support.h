#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "support/World.h"

/// What the fuzzers share: a way to fail, and a simulator with the program in it, in memory.
namespace fuzz {

using Bytes = std::span<const std::byte>;

/// Ends the fuzzing with the input at hand unless it holds.
void Require(bool holds);

/// All that differs between the two lies in one stretch, of at most so many bytes in each.
void RequireOneEdit(std::string_view before, std::string_view after, std::size_t max_before,
                    std::size_t max_after);

/// The simulator, in a file system in memory where the machine has one.
const World& Simulator();
/// The folder that the simulator's folder is in.
const std::filesystem::path& Outside();

/// Writes a file, making its folders.
void Put(const std::filesystem::path& file, Bytes bytes);

inline std::string_view Text(Bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Up to the length that the input's first two bytes give; both go off the input.
Bytes TakePart(Bytes& input);
/// The first byte, 0 for an empty input; it goes off the input.
std::uint8_t TakeByte(Bytes& input);

}  // namespace fuzz
