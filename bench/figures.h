#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace bench {

/// What the benchmarks have in common: timing, a folder to work in, and the form of their figures.

template <class Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double Median(std::vector<double> times);

/// One figure and what it is held against, both in milliseconds.
struct Figure {
  std::string name;
  double ours = 0;
  double beside = 0;
  std::string beside_what;
  double bound = 0;  ///< the highest ratio of the two that is good enough; 0: none is asked for
};

/// Prints the figure as one line of its own on stdout: name, ours, beside, ratio and bound, with
/// tabs between them. Everything else that a benchmark prints goes to stderr. True if the bound
/// holds.
bool Report(const Figure& figure);

/// Writes a file of so many bytes that no file system can squeeze, making its folders.
void WriteNoise(const std::filesystem::path& file, std::size_t bytes);

/// A new empty folder, gone with its content at the end. Ends the process if it can't be made.
class WorkFolder {
 public:
  /// Below `parent`, or among the system's temporary files when that is empty.
  explicit WorkFolder(const std::filesystem::path& parent = {});
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder();

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace bench
