#include "Simulator.h"

#include <array>
#include <string>

#include "Files.h"
#include "Options.h"
#include "Scenes.h"

namespace demo {

namespace fs = std::filesystem;

namespace {

constexpr int kTextureSide = 128;
const QColor kOwnSun(255, 236, 190);
const QColor kReplacementSun(255, 250, 240);

/// The three folders that every install copies, whatever is selected.
struct FixedFolder {
  const char* folder;
  const Group& look;
  std::array<const char*, 4> files;
};

const std::array<FixedFolder, 3> kFixed{{
    {"Cld", kCatalogue[kCirrus], {"cld_01", "cld_02", "cld_03", "cld_04"}},
    {"cumulus", kCatalogue[kSolid], {"cumulus02", "cumulus03", "cumulus04", "cumulus05"}},
    {"stratus", kCatalogue[kStratus], {"stratus01", "stratus02", "stratus03", "stratus04"}},
}};

constexpr std::array<const char*, 3> kSunFiles{"Corona1.bmp", "sun.bmp", "sun6.bmp"};

void WriteSet(const fs::path& folder, const Group& group, int option) {
  for (std::size_t i = 0; i < group.files.size() && group.files[i] != nullptr; ++i) {
    WriteBmp(folder / (std::string(group.files[i]) + ".bmp"),
             PaintTexture(group, option, static_cast<int>(i), kTextureSide));
  }
}

void WriteFixed(const fs::path& folder, const FixedFolder& fixed, int option) {
  for (std::size_t i = 0; i < fixed.files.size(); ++i) {
    WriteBmp(folder / (std::string(fixed.files[i]) + ".bmp"),
             PaintTexture(fixed.look, option, static_cast<int>(i) + 8, kTextureSide));
  }
}

void WriteSuns(const fs::path& folder, const QColor& glow) {
  int side = kTextureSide;
  for (const char* name : kSunFiles) {
    WriteBmp(folder / name, PaintSun(side, glow));
    side /= 2;
  }
}

std::string ContrailEffect(const char* title, const char* life) {
  std::string text = "; ";
  text += title;
  text +=
      "\n[Library Effect]\nLifetime=5\nVersion=2.00\nRadius=-1\nPriority=0\n\n"
      "[Properties]\nLocation=3\n\n"
      "[Emitter.0]\nLifetime=0.00, 0.00\nDelay=0.00, 0.00\nBounce=0.00\nRate=20.00, 20.00\n"
      "X Emitter Velocity=0.00, 0.00\nZ Emitter Velocity=0.00, 0.00\nDrag=0.00, 0.00\n\n"
      "[Particle.0]\n; seconds, shortest and longest\nLifetime=";
  text += life;
  text +=
      "\nType=19\nX Scale=0.50, 0.60\nY Scale=0.50, 0.60\nZ Scale=0.00, 0.00\n"
      "X Scale Rate=0.30, 0.40\nY Scale Rate=0.30, 0.40\nDrag=0.00, 0.00\n"
      "Color Rate=0.00, 0.00\nFade In=0.00, 0.00\nFade Out=0.00, 0.00\n\n"
      "[ParticleAttributes.0]\nBlend Mode=2\nTexture=fx_1.bmp\nBounce=0.00\n"
      "Color Start=255, 255, 255, 40\nColor End=255, 255, 255, 0\nExtrude Length=20.00\n";
  return text;
}

constexpr const char* kHelpText =
    "BT /F1 20 Tf 60 780 Td (Nimbrel Help) Tj /F1 11 Tf 0 -34 Td "
    "(Pick a set for each group on the Cloud, Sky and Water pages.) Tj 0 -18 Td "
    "(Save and Install on the Main page puts the choice into the simulator.) Tj 0 -18 Td "
    "(The Randomizer picks for you; Favorites keeps collections by name.) Tj ET";

/// One page, written by hand so that it is the same each time.
void WriteHelp(const fs::path& file) {
  const std::string stream = kHelpText;
  const std::array<std::string, 5> objects{
      "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
      "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R "
      "/Resources << /Font << /F1 5 0 R >> >> >>",
      "<< /Length " + std::to_string(stream.size()) + " >>\nstream\n" + stream + "\nendstream",
      "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"};
  std::string text = "%PDF-1.4\n";
  std::string table = "xref\n0 6\n0000000000 65535 f \n";
  for (std::size_t i = 0; i < objects.size(); ++i) {
    std::string place = std::to_string(text.size());
    place.insert(0, 10 - place.size(), '0');
    table += place + " 00000 n \n";
    text += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
  }
  const std::string start = std::to_string(text.size());
  text += table + "trailer\n<< /Size 6 /Root 1 0 R >>\nstartxref\n" + start + "\n%%EOF\n";
  WriteBytes(file, std::as_bytes(std::span(text)));
}

void WriteCumulusInputs(const fs::path& data, const Group& group, int option) {
  const std::string path = (data / group.set).string() + std::to_string(option);
  for (const auto& [suffix, side] : {std::pair{"", 512}, std::pair{"_Fast", 256}}) {
    const CumulusInput input = PaintCumulusInput(group, option, side);
    WriteBmp(path + suffix + ".bmp", input.color);
    WriteBmp(path + "_a" + suffix + ".bmp", input.alpha);
  }
}

void WriteGroup(const fs::path& folder, const Group& group) {
  for (int option = 0; option < kOptions; ++option) {
    const std::string n = std::to_string(option);
    WriteBmp(folder / "Media/Screen Shots" / (std::string(group.preview) + "_" + n + ".bmp"),
             PaintScene(group, option, 400, 300));
    if (*group.target == '\0') {
      WriteCumulusInputs(folder / "Data", group, option);
    } else {
      WriteSet((folder / "Data" / group.set).string() + n, group, option);
    }
  }
}

}  // namespace

void WriteSimulator(const fs::path& root) {
  const fs::path texture = root / "Texture";
  for (const Group& group : kCatalogue) {
    if (*group.target != '\0') {
      WriteSet(root / group.target, group, kOriginal);
    }
  }
  for (const FixedFolder& fixed : kFixed) {
    WriteFixed(texture, fixed, kOriginal);
  }
  WriteSuns(texture, kOwnSun);
  WriteBmp(texture / "cumulus01.bmp", PaintTexture(kCatalogue[kSolid], kOriginal, 0, 256));
  for (const char* untouched : {"runway.bmp", "grass.bmp", "roof.bmp"}) {
    WriteBmp(texture / untouched, PaintTexture(kCatalogue[kBase], kOriginal, 9, kTextureSide));
  }
  WriteDosText(root / "Effects/fx_contrail_s.fx", ContrailEffect("Contrail, short", "1.50,1.50"));
  WriteDosText(root / "Effects/fx_contrail_L.fx", ContrailEffect("Contrail, long", "30.50,30.50"));
}

void WriteProgramData(const fs::path& folder) {
  WriteInformationFile(folder / "NB_Information.cfg");
  WriteHelp(folder / "Nimbrel Help.pdf");
  for (const Group& group : kCatalogue) {
    WriteGroup(folder, group);
  }
  for (int hour = 0; hour < 14; ++hour) {
    WriteBmp(folder / "Media/Screen Shots" / ("sky_mini_" + std::to_string(hour) + ".bmp"),
             PaintSkyMini(hour));
  }
  for (const FixedFolder& fixed : kFixed) {
    WriteFixed(folder / "Data/Clouds" / fixed.folder, fixed, 0);
  }
  WriteSuns(folder / "Data/Sun", kReplacementSun);
  WriteBmp(folder / "Data/Sun/sun_halo.bmp", PaintSun(kTextureSide, kReplacementSun));
  WriteSuns(folder / "Backups/TEX", kOwnSun);
  fs::create_directories(folder / "Favorites");
}

}  // namespace demo
