#include <filesystem>
#include <string>

#include "install/CopyFailures.h"
#include "install/mod_SunContrails.h"
#include "platform/IniDocument.h"
#include "settings/Functions_Configuration.h"
#include "support.h"

using fuzz::Require;

namespace {

constexpr const char* kOn = "180.0,180.0";
constexpr const char* kOff = "1.50,1.50";

[[maybe_unused]] const bool kSettled = fuzz::LetFilesSettle();

std::filesystem::path File() { return fuzz::Simulator("Effects/fx_contrail_s.fx"); }

std::string Lifetime() { return nimbrel::ReadIniString("Particle.0", "Lifetime", File().string()); }

}  // namespace

/// Any bytes as an effect file, behind one that says whether the contrails go on: one value
/// changes, or is added with its section, and nothing else does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kQuotes = 2;
  constexpr std::size_t kMostAdded = sizeof "\r\n[Particle.0]\r\nLifetime=\"180.0,180.0\"\r\n";
  auto input = std::as_bytes(std::span(data, size));
  const bool on = fuzz::TakeByte(input) % 2 == 1;
  fuzz::Put(File(), input);
  nimbrel::CopyFailures.clear();
  const platform::IniDocument given{std::string(fuzz::Text(input))};
  const auto value = given.Find("Particle.0", "Lifetime");
  nimbrel::ApplyContrails(on);
  Require(nimbrel::CopyFailures.empty() && Lifetime() == (on ? kOn : kOff));
  const std::string written = fuzz::Get(File());
  fuzz::RequireOneEdit(fuzz::Text(input), written, value ? value->size() + kQuotes : 0, kMostAdded);
  nimbrel::ApplyContrails(on);
  Require(fuzz::Get(File()) == written);
  return 0;
}
