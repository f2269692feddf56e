#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/files.h"
#include "settings/Catalogue.h"
#include "settings/mod_WriteConfiguration.h"
#include "shell/MainSwitches.h"
#include "support/SimulatorTree.h"
#include "support/recorders.h"

using namespace nimbrel;

namespace {

int renames = 0;
int CountRenames(const char* step, const char*) {
  renames += std::strcmp(step, "rename") == 0 ? 1 : 0;
  return 0;
}

/// The catalogue as a user may have edited it: comments, odd spacing, a key above HighestIndex.
std::string EditedText() {
  std::string text = InformationText(1);
  text = With(text, "dayTitle.0", "; my favourite\r\ndayTitle.0");
  text = With(text, "dayInhibitRandomizer.1=0", "DAYinhibitrandomizer.1 =  0");
  text = With(text, "dayTitle.1", "dayInhibitRandomizer.2=0\r\nothers = kept \r\ndayTitle.1");
  return text + "\r\n[Notes]\r\nwispyInhibitRandomizer.0=5\r\nno newline at the end \xFF";
}

TEST(WriteBack, ChangesTheFlagsAndNoOtherByte) {
  const SimulatorTree tree;
  tree.Load(EditedText());
  Catalogue.Tables[kCloud].Cell(2, 0)->InhibitRandomizer = 1;
  Catalogue.Tables[kWater].Cell(0, 1)->InhibitRandomizer = 1;
  Catalogue.sunInhibitRandomizer = 1;
  Switches().chk_DXT.SetValue(0);
  Switches().chk_Fast.SetValue(1);

  renames = 0;
  platform::SetFailureHook(CountRenames);
  WriteMainFlags();
  EXPECT_EQ(1, renames);
  WriteInhibitFlags();
  EXPECT_EQ(2, renames) << "one replacement for each operation";

  std::string expected = EditedText();
  expected = With(expected, "useDXT=1\r\nuseLowRes=0", "useDXT=0\r\nuseLowRes=1");
  expected = With(expected, "wispyInhibitRandomizer.0=0", "wispyInhibitRandomizer.0=1");
  expected = With(expected, "baseInhibitRandomizer.1=0", "baseInhibitRandomizer.1=1");
  expected = With(expected, "sunInhibitRandomizer=0", "sunInhibitRandomizer=1");
  EXPECT_EQ(expected, ReadText(tree.Program("NB_Information.cfg")));
}

TEST(WriteBack, MainFlagsMakeAMissingFileAnew) {
  const SimulatorTree tree;
  tree.Load(InformationText(1));
  std::filesystem::remove(tree.Program("NB_Information.cfg"));
  WriteMainFlags();
  ASSERT_EQ(1U, Recorded.messages.size());
  EXPECT_EQ("Nimbrel Fatal Error", Recorded.messages[0].title);
  EXPECT_EQ(0, Recorded.endings);
  EXPECT_EQ("[Main]\r\nuseDXT=1\r\nuseLowRes=0\r\n", ReadText(tree.Program("NB_Information.cfg")));
  WriteInhibitFlags();
  EXPECT_EQ(0, Recorded.endings);
}

TEST(WriteBack, InhibitFlagsEndTheProgramOnceWithoutTheFile) {
  const SimulatorTree tree;
  tree.Load(InformationText(1));
  std::filesystem::remove(tree.Program("NB_Information.cfg"));
  Recorded.on_ending = WriteInhibitFlags;  // as shutdown does, in a folder that takes no file
  EXPECT_THROW(WriteInhibitFlags(), ProgramEnded);
  EXPECT_EQ(1, Recorded.endings);
  EXPECT_EQ(1U, Recorded.messages.size());
}

}  // namespace
