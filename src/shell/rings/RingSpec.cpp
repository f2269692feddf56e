#include "shell/rings/RingSpec.h"

#include <array>

#include "shell/State.h"

namespace nimbrel {
namespace {

const TextureOption& OptionOf(const RingPicture& picture) {
  return ui.catalogue.At(picture.group, picture.option);
}

std::string PrefixedTitle(std::span<const std::string_view> prefixes, const RingPicture& picture) {
  const auto group = static_cast<std::size_t>(IndexInFamily(picture.group));
  return std::string(prefixes[group]) + OptionOf(picture).Title;
}

std::string Description(const RingSpec& /*spec*/, const RingPictures& pictures, int /*which*/) {
  return OptionOf(pictures.front()).Description;
}

std::string FrontTitle(const RingSpec& spec, const RingPictures& pictures, int /*which*/) {
  return PrefixedTitle(spec.front_prefix, pictures.front());
}

/// The title of the picture `follower` places after the front one.
std::string FollowerTitle(const RingSpec& spec, const RingPictures& pictures, int follower) {
  return PrefixedTitle(spec.other_prefix, pictures[static_cast<std::size_t>(follower)]);
}

/// What the group in front is called; no title.
std::string FrontName(const RingSpec& spec, const RingPictures& pictures, int /*which*/) {
  const int group = IndexInFamily(pictures.front().group);
  return std::string(spec.front_prefix[static_cast<std::size_t>(group)]);
}

/// The title of the group of index `group`, wherever it is on the ring.
std::string GroupTitle(const RingSpec& /*spec*/, const RingPictures& pictures, int group) {
  const int groups = static_cast<int>(pictures.size());
  const int follower = (group - IndexInFamily(pictures.front().group) + groups) % groups;
  return OptionOf(pictures[static_cast<std::size_t>(follower)]).Title;
}

constexpr std::array<std::string_view, 4> kCloudFront{
    "Solid Cumulus: ", "Stratus: ", "Wispy Edges: ", "Cirrus: "};
constexpr std::array<std::string_view, 4> kCloudOther{
    "Solid: ", "Stratus: ", "Wispy: ", "Cirrus: "};
constexpr std::array<std::string_view, 4> kSkyFront{"Sunrise Options", "Day Options",
                                                    "Sunset Options", "Night Options"};
constexpr std::array<std::string_view, 3> kWaterPrefix{"Base Color: ", "Reflectivity: ", "Waves: "};

using enum LabelStyle;

constexpr RingLabel kViewing{"Label7", {10, 366, 134, 16}, kPlain, "Currently Viewing:"};
constexpr RingLabel kBase{"lbl_Base", {10, 383, 576, 22}, kHeading, "", FrontTitle};
constexpr RingLabel kRight{"lbl_Right", {419, 10, 177, 30}, kTitle, "", FollowerTitle, 1};
constexpr LabelPlace kLeftPlace{10, 10, 177, 30};
constexpr RingLabel kDescription{"lbl_Description", {10, 405, 576, 42}, kValue, "", Description};

constexpr std::array kCloudLabels{
    kViewing,
    kBase,
    RingLabel{"lbl_Left", kLeftPlace, kTitle, "", FollowerTitle, 3},
    kRight,
    RingLabel{"lbl_Center", {188, 78, 220, 19}, kCentredTitle, "", FollowerTitle, 2},
    kDescription,
};
constexpr std::array kWaterLabels{
    kViewing, kBase,        RingLabel{"lbl_Left", kLeftPlace, kTitle, "", FollowerTitle, 2},
    kRight,   kDescription,
};
constexpr std::array kSkyLabels{
    RingLabel{"Label7", {10, 6, 141, 16}, kPlain, "Currently Viewing:"},
    RingLabel{"lbl_Setting", {10, 24, 160, 22}, kHeading, "", FrontName},
    RingLabel{"Label2", {10, 284, 141, 16}, kPlain, "Selected Settings:"},
    RingLabel{"Label3", {10, 301, 51, 16}, kPlain, "Sunrise:"},
    RingLabel{"lbl_Title(0)", {63, 301, 176, 16}, kValue, "", GroupTitle, 0},
    RingLabel{"Label4", {10, 317, 51, 16}, kPlain, "Day:"},
    RingLabel{"lbl_Title(1)", {63, 317, 280, 16}, kValue, "", GroupTitle, 1},
    RingLabel{"Label5", {10, 333, 51, 16}, kPlain, "Sunset:"},
    RingLabel{"lbl_Title(2)", {63, 333, 176, 16}, kValue, "", GroupTitle, 2},
    RingLabel{"Label6", {10, 349, 51, 16}, kPlain, "Night:"},
    RingLabel{"lbl_Title(3)", {63, 349, 176, 16}, kValue, "", GroupTitle, 3},
    RingLabel{"Label1", {10, 389, 161, 16}, kPlain, "Current Item Description:"},
    kDescription,
};

constexpr ButtonSetup LeftButton(const char* tip) { return {256, 338, "left", "btn_Left", tip}; }
constexpr ButtonSetup RightButton(const char* tip) { return {300, 338, "right", "btn_Right", tip}; }

}  // namespace

RingPictures PicturesFrom(Group front) {
  RingPictures pictures;
  const Family family = FamilyOf(front);
  for (std::size_t follower = 0; follower < GroupsOf(family).size(); ++follower) {
    const Group group = GroupAt(family, IndexInFamily(front) + static_cast<int>(follower));
    pictures.push_back({group, ui.CurrentSelection[group]});
  }
  return pictures;
}

constinit const PerFamily<RingSpec> kRingSpecs{{{
    {
        "frm_3d",
        "SubRing_BG.bmp",
        &State::CloudFrontGroup,
        kCloudLabels,
        kCloudFront,
        kCloudOther,
        {{{{541, 297, "counterclockwise", "btn_CounterClockwise",
            "Click to rotate the cloud options in a counter-clockwise direction."},
           {11, 297, "clockwise", "btn_3d_Clockwise",
            "Click to rotate the cloud options in a clockwise direction."}}}},
        LeftButton("Click change the selected cloud option."),
        RightButton("Click to change the selected cloud option."),
    },
    {
        "frm_Sky",
        "Sub_BG.bmp",
        &State::SkyFrontGroup,
        kSkyLabels,
        kSkyFront,
        {},
        {{{{472, 138, "counter", "btn_Sky_CounterClockwise",
            "Click to rotate the sky texture options in a counter-clockwise direction."},
           {85, 138, "clock", "btn_Sky_Clockwise",
            "Click to rotate the sky texture options in a clockwise direction."}}}},
        LeftButton("Click change the selected sky texture option."),
        RightButton("Click change the selected sky texture option."),
    },
    {
        "frm_Water",
        "SubRing_BG.bmp",
        &State::WaterFrontGroup,
        kWaterLabels,
        kWaterPrefix,
        kWaterPrefix,
        {{{{541, 297, "counterclockwise", "btn_CounterClockwise",
            "Click to rotate the water texture options in a counter-clockwise direction."},
           {11, 297, "clockwise", "btn_3d_Clockwise",
            "Click to rotate the water texture options in a clockwise direction."}}}},
        LeftButton("Click change the selected water texture option."),
        RightButton("Click change the selected water texture option."),
    },
}}};

}  // namespace nimbrel
