#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "install/CopyFailures.h"
#include "install/mod_SunContrails.h"
#include "support/SimulatorTree.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

TEST(Sun, ComesAndGoesByItsThreeBackups) {
  const SimulatorTree tree;
  CopyFailures.clear();
  WriteText(tree.Simulator("TEXTURE/SUN.BMP"), "first");
  WriteText(tree.Program("Backups/TEX/sun.bmp"), "own sun");
  WriteText(tree.Program("Backups/TEX/Corona1.bmp"), "own corona");
  WriteText(tree.Program("Data/Sun/sun.bmp"), "new sun");
  WriteText(tree.Program("Data/Sun/sun6.bmp"), "new sun6");
  WriteText(tree.Program("Data/Sun/flare.bmp"), "flare");
  ApplySun(true);
  EXPECT_EQ("new sun", ReadText(tree.Simulator("TEXTURE/SUN.BMP")));
  EXPECT_EQ("flare", ReadText(tree.Simulator("TEXTURE/flare.bmp")));
  ApplySun(false);
  ApplySun(false);
  EXPECT_EQ("own sun", ReadText(tree.Simulator("TEXTURE/SUN.BMP")));
  EXPECT_EQ("own corona", ReadText(tree.Simulator("TEXTURE/Corona1.bmp")));
  EXPECT_EQ("new sun6", ReadText(tree.Simulator("TEXTURE/sun6.bmp"))) << "it has no backup";
  EXPECT_EQ("flare", ReadText(tree.Simulator("TEXTURE/flare.bmp")));
  EXPECT_FALSE(fs::exists(tree.Simulator("TEXTURE/sun.bmp")));
  EXPECT_TRUE(CopyFailures.empty());
}

TEST(Contrails, ChangeOneValueOfEachEffect) {
  const SimulatorTree tree;
  CopyFailures.clear();
  const std::string effect =
      "[Library Effect]\nLifetime=5\n\n[PARTICLE.0]\nLifetime = 2.0, 2.0\nType=19\n"
      "[Particle.1]\nLifetime=9\n";
  WriteText(tree.Simulator("effects/FX_Contrail_S.fx"), effect);
  ApplyContrails(true);
  EXPECT_EQ(With(effect, "2.0, 2.0", "180.0,180.0"),
            ReadText(tree.Simulator("effects/FX_Contrail_S.fx")));
  const fs::path made = tree.Simulator("effects/fx_contrail_L.fx");
  EXPECT_EQ("[Particle.0]\r\nLifetime=180.0,180.0\r\n", ReadText(made));
  ApplyContrails(false);
  EXPECT_EQ(With(effect, "2.0, 2.0", "1.50,1.50"),
            ReadText(tree.Simulator("effects/FX_Contrail_S.fx")));
  EXPECT_EQ("[Particle.0]\r\nLifetime=30.50,30.50\r\n", ReadText(made));
  EXPECT_TRUE(CopyFailures.empty());
}

TEST(Contrails, LeaveWhatTheyMayNotWrite) {
  const SimulatorTree tree;
  CopyFailures.clear();
  ApplyContrails(true);
  EXPECT_FALSE(fs::exists(tree.Simulator("Effects")));
  EXPECT_TRUE(CopyFailures.empty()) << "a missing folder is silent";

  const TempFolder elsewhere;
  WriteText(elsewhere / "target.fx", "[Particle.0]\nLifetime=1\n");
  WriteText(tree.Simulator("Effects/fx_contrail_s.fx"), "[Particle.0]\nLifetime=1\n");
  ASSERT_EQ(0, chmod(tree.Simulator("Effects/fx_contrail_s.fx").c_str(), 0444));
  fs::create_symlink(elsewhere / "target.fx", tree.Simulator("Effects/fx_contrail_L.fx"));
  ApplyContrails(true);
  EXPECT_EQ("[Particle.0]\nLifetime=1\n", ReadText(tree.Simulator("Effects/fx_contrail_s.fx")));
  EXPECT_EQ("[Particle.0]\nLifetime=1\n", ReadText(elsewhere / "target.fx"));
  ASSERT_EQ(2U, CopyFailures.size());
  EXPECT_EQ(platform::FileStatus::kReadOnly, CopyFailures[0].status);
  EXPECT_EQ(platform::FileStatus::kOutside, CopyFailures[1].status);
}

}  // namespace
