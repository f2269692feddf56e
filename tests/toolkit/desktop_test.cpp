#include "toolkit/desktop.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/TempFolder.h"

namespace toolkit {
namespace {

std::vector<std::string> heard;

TEST(Sounds, AreNamedByTheirAlias) {
  SetSoundListener([](std::string_view alias) { heard.emplace_back(alias); });
  heard.clear();
  EXPECT_TRUE(PlaySoundA("SystemAsterisk", SND_ALIAS | SND_ASYNC));
  EXPECT_TRUE(PlaySoundA("SystemQuestion", SND_ALIAS | SND_ASYNC));
  EXPECT_FALSE(PlaySoundA("systemquestion", SND_ALIAS | SND_ASYNC));
  EXPECT_FALSE(PlaySoundA("SystemHand", SND_ALIAS | SND_ASYNC));
  EXPECT_FALSE(PlaySoundA("SystemQuestion", SND_ALIAS)) << "would have to wait for it";
  EXPECT_EQ((std::vector<std::string>{"SystemAsterisk", "SystemQuestion"}), heard);
  SetSoundListener(nullptr);
}

TEST(Documents, ThatAreMissingAreNotOpened) {
  const TempFolder folder;
  EXPECT_FALSE(ShellExecuteA(folder.string() + "\\None.pdf"));
  EXPECT_FALSE(ShellExecuteA(folder.string()));
  heard.clear();
  SetOpenListener([](std::string_view file) { heard.emplace_back(file); });
  WriteText(folder / "Help.pdf", "%PDF");
  EXPECT_TRUE(ShellExecuteA(folder.string() + "\\HELP.PDF"));
  EXPECT_EQ(std::vector{folder.string() + "\\HELP.PDF"}, heard);
  SetOpenListener(nullptr);
}

}  // namespace
}  // namespace toolkit
