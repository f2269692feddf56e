#include <exception>
#include <filesystem>
#include <iostream>

#include "Simulator.h"

/// Lays out a small simulator folder with the program's folder two levels below it. Replaces files
/// of the same names and leaves all others alone.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: nimbrel-demo FOLDER\n";
    return 2;
  }
  try {
    const auto simulator = std::filesystem::path(argv[1]) / "Flight Simulator 9";
    const auto program = simulator / "Modules" / "Nimbrel";
    const demo::Library library = demo::PaintLibrary();
    demo::WriteSimulator(simulator, library);
    demo::WriteProgramData(program, library);
    std::filesystem::copy(NIMBREL_MEDIA, program / "Media",
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
    std::filesystem::copy_file(NIMBREL_HELP, program / "Nimbrel Help.pdf",
                               std::filesystem::copy_options::overwrite_existing);
  } catch (const std::exception& error) {
    std::cerr << "nimbrel-demo: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
