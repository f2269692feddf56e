#include <filesystem>
#include <string>

#include "install/Report.h"
#include "install/SunContrails.h"
#include "install/mod_CopyFiles.h"
#include "platform/FileSystem.h"
#include "platform/IniDocument.h"
#include "settings/Catalogue.h"
#include "support.h"
#include "support/QuietProgress.h"

using fuzz::Require;

/// Any bytes as an effect file, after one that says whether the contrails go on: one value
/// changes, or is added with its section, and nothing else does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kQuotes = 2;
  constexpr std::size_t kMaxAdded = sizeof "\r\n[Particle.0]\r\nLifetime=\"180.0,180.0\"\r\n";
  auto input = std::as_bytes(std::span(data, size));
  const bool on = fuzz::TakeByte(input) % 2 == 1;
  const std::filesystem::path file = fuzz::Simulator().Simulator("Effects/fx_contrail_s.fx");
  fuzz::Put(file, input);
  const platform::IniDocument given{std::string(fuzz::Text(input))};
  const auto value = given.Find("Particle.0", "Lifetime");
  const auto apply = [on] {
    const nimbrel::Folders folders = fuzz::Simulator().folders();
    const nimbrel::Catalogue catalogue;
    platform::FileSystem files(nimbrel::kTemporaryPrefix);
    const nimbrel::CopyRoutes routes(catalogue, folders, files);
    nimbrel::Report report;
    QuietProgress progress;
    nimbrel::ApplyContrails({routes, files, folders, report, progress}, on);
    Require(report.Whole());
  };
  apply();
  const std::string written = ReadText(file);
  const platform::IniDocument after(written);
  Require(after.Find("Particle.0", "Lifetime") == (on ? "180.0,180.0" : "1.50,1.50"));
  fuzz::RequireOneEdit(fuzz::Text(input), written, value ? value->size() + kQuotes : 0, kMaxAdded);
  apply();
  Require(ReadText(file) == written);
  return 0;
}
