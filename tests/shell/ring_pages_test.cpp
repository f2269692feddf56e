#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <optional>
#include <string>
#include <vector>

#include "ShellWorld.h"
#include "settings/Configuration.h"
#include "shell/State.h"
#include "shell/dispatch.h"
#include "shell/painting/Pictures.h"
#include "shell/painting/mod_Load_Previews.h"
#include "shell/rings/RingActions.h"
#include "shell/rings/RingPage.h"
#include "shell/rings/RingPlan.h"
#include "shell/rings/RingSpec.h"
#include "support/BmpFile.h"
#include "support/Surface.h"

namespace nimbrel {
namespace {

constexpr std::uint32_t kBackground = 0xC9D5E7;  ///< kPlainColor, without a background picture
constexpr int kMissingMini = 5;
constexpr auto kClockwise = TurnDirection::kClockwise;
constexpr auto kCounter = TurnDirection::kCounterclockwise;

std::uint32_t MiniColor(int mini) { return 0x100804U * static_cast<std::uint32_t>(mini + 1); }

/// Of the small sky pictures one is broken, and all others are white in their left half.
struct Rings : testing::Test {
  Rings() {
    for (int mini = 0; mini < 14; ++mini) {
      const auto half = [mini](int x, int) { return x < 15 ? 0xFFFFFFU : MiniColor(mini); };
      WriteText(world.Program("Media/Screen Shots/Sky_Mini_" + std::to_string(mini) + ".BMP"),
                mini == kMissingMini ? "no picture" : ColorBmp(31, 31, half).Bytes());
    }
    ui.catalogue = ReadCatalogue(ui.folders);
    LoadPictures();
    ui.CurrentSelection.values = {0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1};
  }
  static void LoadPictures() {
    ui.pictures = std::make_shared<Pictures>(ui.catalogue, ui.folders);
    LoadSkyMinis();
  }
  ShellWorld world;
};

std::int16_t& Front(Family family) { return ui.*kRingSpecs[family].front; }

std::uint32_t SelectedColor(Group group) { return OptionColor(group, ui.CurrentSelection[group]); }

Surface Shot(const toolkit::Form& form) {
  Surface shot(596, 450);
  shot.hdc->bitmap->bits = form.hDC()->bitmap->bits;
  return shot;
}

const std::vector<std::uint8_t>& BitsOf(const Surface& surface) {
  return surface.hdc->bitmap->bits;
}

/// What a ring page puts on the screen from now on, each picture once.
class Sights : public QObject {
 public:
  explicit Sights(Family family) : form_(RingPageOf(family).form) {
    form_.Show();
    form_.Refresh();
    Window(form_.Name())->installEventFilter(this);
  }
  std::vector<Surface> frames;

 private:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint &&
        (frames.empty() || BitsOf(frames.back()) != form_.hDC()->bitmap->bits)) {
      frames.push_back(Shot(form_));
    }
    return false;
  }
  toolkit::Form& form_;
};

struct Shown {
  OrbitSlot place;
  std::uint32_t color;
};

/// The colour at a point by the pictures there, in drawing order; nothing in a border, a shadow or
/// a rounded corner.
std::optional<std::uint32_t> ColorOf(const std::vector<Shown>& pictures, int x, int y) {
  std::optional<std::uint32_t> color = kBackground;
  for (const auto& [place, own] : pictures) {
    const int dx = std::min(x - place.left, place.left + place.width - x);
    const int dy = std::min(y - place.top, place.top + place.height - y);
    if (dx >= 2 && dy >= 2 && (dx > 20 || dy > 20)) {
      color = own;
    } else if (dx > -6 && dy > -6) {
      color = std::nullopt;
    }
  }
  return color;
}

void ExpectPictures(const std::vector<Shown>& pictures, const Surface& sight) {
  for (int at = 0; at < 596 * 450; at += 7) {
    const auto color = ColorOf(pictures, at % 596, at / 596);
    const std::uint32_t seen = sight.At(at % 596, at / 596);
    ASSERT_EQ(color.value_or(seen), seen) << at % 596 << ' ' << at / 596;
  }
}

/// Each picture moves by one slot in each frame, drawn in the order of the ring at rest. Only when
/// the cloud ring turns to the group before is the new front picture drawn last half-way.
std::vector<Shown> TurningPictures(Family family, int before, TurnDirection direction, int frame) {
  std::vector<int> offsets{1, 2, 3, 0};
  if (family == Family::kWater) {
    offsets = {1, 2, 0};
  } else if (direction == kCounter && frame >= 3) {
    offsets = {1, 2, 0, 3};
  }
  const auto& orbit = kRingPlans[family].orbit;
  std::vector<Shown> pictures;
  for (const int offset : offsets) {
    const int moved = static_cast<int>(orbit.size()) + (direction == kCounter ? frame : -frame);
    const auto slot = static_cast<std::size_t>(5 * offset + moved) % orbit.size();
    pictures.push_back({orbit[slot], SelectedColor(GroupAt(family, before + offset))});
  }
  return pictures;
}

TEST_F(Rings, PicturesMoveBySlotsAndATurnEndsAsTheRingAtRest) {
  const Selection selection = ui.CurrentSelection;
  for (const auto& [family, groups] : {std::pair{Family::kCloud, 4}, {Family::kWater, 3}}) {
    for (int turn = 0; turn < 2 * groups; ++turn) {
      SCOPED_TRACE(std::to_string(groups) + " groups, turn " + std::to_string(turn));
      const auto direction = turn < groups ? kClockwise : kCounter;
      const int before = Front(family);
      Sights sights(family);
      TurnRing(family, direction);
      EXPECT_EQ((before + (direction == kClockwise ? 1 : groups - 1)) % groups, Front(family));
      ASSERT_EQ(6U, sights.frames.size());
      for (int frame = 0; frame < 5; ++frame) {
        ExpectPictures(TurningPictures(family, before, direction, frame),
                       sights.frames[static_cast<std::size_t>(frame)]);
      }
      ExpectPictures(TurningPictures(family, Front(family), kClockwise, 0), sights.frames[5]);
      DrawAtRest(family);
      EXPECT_EQ(6U, sights.frames.size()) << "the ring at rest looks no different";
    }
  }
  EXPECT_EQ(selection, ui.CurrentSelection);
}

TEST_F(Rings, TheSkyRimTurnsAroundTheNewPicture) {
  constexpr std::array kStarts{2, 6, 10, 13};
  for (int turn = 0; turn < 8; ++turn) {
    const bool counter = turn < 4;
    const auto before = static_cast<std::size_t>(ui.SkyFrontGroup);
    Sights sights(Family::kSky);
    TurnRing(Family::kSky, counter ? kCounter : kClockwise);
    const auto after = static_cast<std::size_t>(ui.SkyFrontGroup);
    EXPECT_EQ((before + (counter ? 1 : 3)) % 4, after) << "the other way than the other rings";
    int start = kStarts[before];
    for (const Surface& sight : sights.frames) {
      SCOPED_TRACE(std::to_string(turn) + " rim from " + std::to_string(start));
      EXPECT_EQ(SelectedColor(GroupAt(Family::kSky, ui.SkyFrontGroup)), sight.At(298, 167));
      EXPECT_EQ(kBorderColor & 0xFFFFFFU, sight.At(298, 67));
      for (int slot = 0; slot < 14; ++slot) {
        const int mini = (start + slot) % 14;
        const OrbitSlot& place = SkyOrbit[static_cast<std::size_t>(slot)];
        const int y = place.top + 15;
        EXPECT_EQ(mini == kMissingMini ? kBackground : MiniColor(mini),
                  sight.At(place.left + 23, y));
        EXPECT_EQ(kBackground, sight.At(place.left + 8, y)) << "white is transparent";
        EXPECT_NE(kBackground, sight.At(place.left, y)) << "rim of slot " << slot;
      }
      start = (start + (counter ? 1 : 13)) % 14;
    }
    EXPECT_EQ((kStarts[after] + (counter ? 1 : 13)) % 14, start) << "ends as at rest";
  }
}

const toolkit::Label& LabelOf(Family family, std::string_view name) {
  const auto has_name = [name](const auto& label) { return label->Name() == name; };
  return **std::ranges::find_if(RingPageOf(family).labels, has_name);
}

TEST_F(Rings, LabelsNameWhatIsShown) {
  for (const auto& [front, label, text] :
       {std::tuple{Group::kSolid, "lbl_Base", "Solid Cumulus: solid title 0"},
        {Group::kSolid, "lbl_Center", "Wispy: wispy title 2"},
        {Group::kWispy, "lbl_Base", "Wispy Edges: wispy title 2"},
        {Group::kWispy, "lbl_Right", "Cirrus: cirrus title 0"},
        {Group::kWispy, "lbl_Left", "Stratus: stratus title 1"},
        {Group::kCirrus, "lbl_Right", "Solid: solid title 0"},
        {Group::kCirrus, "lbl_Description", "cirrus text 0"},
        {Group::kEnvironment, "lbl_Base", "Reflectivity: environment title 0"},
        {Group::kEnvironment, "lbl_Right", "Waves: waves title 1"},
        {Group::kEnvironment, "lbl_Left", "Base Color: base title 2"},
        {Group::kNight, "lbl_Setting", "Night Options"},
        {Group::kNight, "lbl_Title(0)", "sunrise title 1"},
        {Group::kDay, "lbl_Title(3)", "night title 1"}}) {
    const Family family = FamilyOf(front);
    Front(family) = static_cast<std::int16_t>(IndexInFamily(front));
    DrawAtRest(family);
    EXPECT_EQ(text, LabelOf(family, label).Caption()) << label;
  }
}

TEST_F(Rings, StepsEndAtBothEndsAndTheArrowsFollow) {
  for (const auto& [group, direction] : {std::pair{Group::kStratus, kClockwise},
                                         {Group::kDay, kCounter},
                                         {Group::kEnvironment, kClockwise}}) {
    const Family family = FamilyOf(group);
    ui.CurrentSelection[group] = 0;
    RingPage& page = RingPageOf(family);
    const auto arrows = [&page] { return page.btn_Left.state() + "/" + page.btn_Right.state(); };
    EXPECT_EQ("enabled/enabled", arrows()) << "until the first step or turn";
    TurnRing(family, direction);
    EXPECT_EQ("disabled/enabled", arrows()) << "of the new front group";
    for (const auto& [step, option, states] : {std::tuple{-1, 0, "disabled/enabled"},
                                               {1, 1, "enabled/enabled"},
                                               {1, 2, "enabled/disabled"},
                                               {1, 2, "enabled/disabled"},
                                               {-1, 1, "enabled/enabled"}}) {
      Sights sights(family);
      StepOption(family, step);
      EXPECT_EQ(option, ui.CurrentSelection[group]);
      EXPECT_EQ(states, arrows());
      ASSERT_EQ(1U, sights.frames.size());
      EXPECT_EQ(OptionColor(group, option), sights.frames[0].At(298, 180));
    }
    ui.catalogue.options[group].resize(1);
    StepOption(family, -1);
    StepOption(family, 1);
    EXPECT_EQ("disabled/enabled", arrows()) << "a group of one option keeps its right arrow";
    EXPECT_EQ(0, ui.CurrentSelection[group]);
  }
}

/// A click that waits among the events.
void PostPress(const char* form, const char* button) {
  QMetaObject::invokeMethod(
      qApp, [=] { Press(form, button); }, Qt::QueuedConnection);
}

TEST_F(Rings, ClicksDuringATurnAreHandledAfterItAndNoneIsLost) {
  ui.CurrentSelection = {};
  ui.buttons.dispatch = RunClick;
  for (const auto& [form, next, back, group] :
       {std::tuple{"frm_3d", "btn_Clockwise", "btn_CounterClockwise", Group::kStratus},
        {"frm_Sky", "btn_CounterClockwise", "btn_Clockwise", Group::kDay},
        {"frm_Water", "btn_Clockwise", "btn_CounterClockwise", Group::kEnvironment}}) {
    SCOPED_TRACE(form);
    const Sights shown(FamilyOf(group));
    PostPress(form, "btn_Right");
    PostPress(form, "btn_Right");
    Press(form, next);
    EXPECT_EQ(Selection(), ui.CurrentSelection) << "not in the turn";
    QCoreApplication::processEvents();
    EXPECT_EQ(2, ui.CurrentSelection[group]) << "on the group that came to the front";
    Press(form, "btn_Left");
    EXPECT_EQ(1, std::exchange(ui.CurrentSelection[group], std::int16_t{0}));
    Press(form, back);
    EXPECT_EQ(0, Front(FamilyOf(group)));
  }
}

}  // namespace
}  // namespace nimbrel
