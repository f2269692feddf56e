#include "figures.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <system_error>

namespace bench {

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

bool Report(const Figure& figure) {
  const double ratio = figure.ours / figure.beside;
  std::printf("%s\t%.2f ms\t%.2f ms %s\t%.2f\t", figure.name.c_str(), figure.ours, figure.beside,
              figure.beside_what.c_str(), ratio);
  if (figure.bound > 0) {
    std::printf("%.2f\n", figure.bound);
  } else {
    std::printf("-\n");
  }
  std::fflush(stdout);
  return figure.bound <= 0 || ratio <= figure.bound;
}

void WriteNoise(const std::filesystem::path& file, std::size_t bytes) {
  std::string noise(bytes, '\0');
  unsigned state = 1;
  for (char& byte : noise) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<char>(state >> 24U);
  }
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << noise;
}

WorkFolder::WorkFolder(const std::filesystem::path& parent) {
  std::string name =
      (parent.empty() ? std::filesystem::temp_directory_path() : parent) / "nimbrel-bench-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    std::perror(name.c_str());
    std::exit(EXIT_FAILURE);
  }
  path_ = std::filesystem::canonical(name);
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace bench
