#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// What a picture's transparent pixels become in its file.
enum class Ground : std::uint8_t {
  kNone,    ///< not allowed: the picture must be opaque
  kBlack,   ///< a window: outside its element "outline", with a hard edge
  kWhite,   ///< the key colour of its loading, with a hard edge; a row of pictures, numbered from 0
  kPointer  ///< a cursor file, with its alpha
};

struct Picture {
  const char* name;
  int width;
  int height;  ///< of one frame
  Ground ground = Ground::kNone;
  const char* region = nullptr;  ///< the region file made from its outline
};

constexpr std::array kPictures = {
    Picture{"MainInterface", 798, 603, Ground::kBlack, "MainRegion.dat"},
    Picture{"Msg_BG", 400, 300, Ground::kBlack, "MsgRegion.dat"},
    Picture{"AddFavorite_BG", 500, 348, Ground::kBlack, "AddRegion.dat"},
    Picture{"Splash_BG", 400, 300, Ground::kBlack},
    Picture{"SubLighter_BG", 596, 450},
    Picture{"Sub_BG", 596, 450},
    Picture{"SubRing_BG", 596, 450},
    Picture{"About_BG", 596, 450},
    Picture{"Preview_BG", 272, 210},
    Picture{"icon_Home", 44, 44},
    Picture{"icon_3d", 44, 44},
    Picture{"icon_Sky", 44, 44},
    Picture{"icon_Water", 44, 44},
    Picture{"icon_Favorites", 44, 44},
    Picture{"icon_About", 44, 44},
    Picture{"icon_Randomizer", 44, 44},
    Picture{"icon_Information", 100, 100},
    Picture{"icon_Exclamation", 100, 100},
    Picture{"icon_Error", 100, 100},
    Picture{"icon_Question", 100, 100},
    Picture{"icon_Progress", 100, 100},
    Picture{"Screen Shots/sky_mini_", 31, 31, Ground::kWhite},  // and a number
    Picture{"HMOVE", 32, 32, Ground::kPointer},
};

struct Strips {
  int width;
  int height;
  std::vector<std::string_view> names;
};

const std::array<Strips, 4> kStrips = {{
    {28, 28, {"btn_Exit", "btn_Minimize"}},
    {142,
     44,
     {"btn_Home", "btn_3d", "btn_Sky", "btn_Water", "btn_Randomizer", "btn_Favorites", "btn_Help",
      "btn_About"}},
    {44,
     44,
     {"btn_3d_Clockwise", "btn_CounterClockwise", "btn_Sky_Clockwise", "btn_Sky_CounterClockwise",
      "btn_Left", "btn_Right", "btn_CheckAll", "btn_CheckAll_0", "btn_CheckAll_1", "btn_Cancel",
      "btn_Delete", "btn_Open"}},
    {128, 43, {"btn_Save", "btn_AddFavorites", "btn_History", "btn_Random"}},
}};

/// Every picture that the program loads.
inline std::set<std::string> Names() {
  constexpr int kHours = 14;
  std::set<std::string> names;
  for (const Picture& picture : kPictures) {
    const bool is_row = picture.ground == Ground::kWhite;
    for (int i = 0; i < (is_row ? kHours : 1); ++i) {
      names.insert(picture.name + (is_row ? std::to_string(i) : std::string()));
    }
  }
  for (const Strips& strips : kStrips) {
    names.insert(strips.names.begin(), strips.names.end());
  }
  return names;
}
