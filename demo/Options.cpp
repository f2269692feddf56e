#include "Options.h"

#include <span>
#include <string>

#include "Files.h"

namespace demo {

namespace {
constexpr const char* kTexture = "Texture";
constexpr const char* kWaterTexture = "Scenery/World/Texture";
}  // namespace

// clang-format off
const std::array<Group, kGroups> kCatalogue{{
  {kSolid, "solid", "Solid", "cumulus01_solid", "Cumulus/solid_", "", {},
   {{{"Fair Weather", "Small bright heaps with firm edges, as they stand over warm fields in the early afternoon."},
     {"Towering", "Tall heaps with deep blue-grey bases. They make turbulence look as rough as it feels."},
     {"Soft Cotton", "Round heaps without hard edges, in a warm white. Easy on the eyes and on the frame rate."},
     {"Côte d'Azur", "Light heaps of a dry summer coast, with a touch of sea haze in their lower halves."},
     {"Thunder Front", "Heavy, dark heaps with ragged tops. Best seen from a safe distance."}}}},
  {kStratus, "stratus", "Stratus", "cumulus01_stratus", "Cumulus/stratus_", "", {},
   {{{"Morning Sheet", "A thin, even sheet that lets the sun shine through as a pale disc."},
     {"Grey Ceiling", "A closed grey ceiling with little structure, for a wet day in autumn."},
     {"Broken Layers", "Long broken bands with clear gaps between them, lit from the side."},
     {"Rolling Fog", "Low rolls with soft tops that lie in the valleys until noon."},
     {"High Veil", "A milky veil with faint stripes along the wind."}}}},
  {kWispy, "wispy", "Wispy", "cumulus01_wispy", "Cumulus/wispy_", "", {},
   {{{"Feathered", "Fine feathers round the heaps. The edges dissolve slowly into the sky."},
     {"Torn", "Torn shreds on the lee side, for windy days."},
     {"Crisp", "Hardly any wisps: the heaps end where they end."},
     {"Smoky", "Wide smoky edges that blend neighbouring heaps together."},
     {"Silver Lining", "Thin wisps with bright rims that catch a low sun."}}}},
  {kCirrus, "cirrus", "Cirrus", "cirrus", "Cirrus/Set.", kTexture, {"cirrus_1", "cirrus_2", "cirrus_3"},
   {{{"Mares' Tails", "Long hooked streaks high above everything else."},
     {"Ice Crystals", "A field of small bright ripples."},
     {"Jet Stream", "Straight bands that follow the upper wind from horizon to horizon."},
     {"Faint Haze", "Almost nothing: a slight brightening of the upper sky."},
     {"Evening Fans", "Fans of streaks that run together at the horizon."}}}},
  {kSunrise, "sunrise", "Sunrise", "sky_sunrise", "Sky/Sunrise.", kTexture,
   {"sky_dawn_n", "sky_dawn_e", "sky_dawn_s", "sky_dawn_w", "sky_dawn_top"},
   {{{"Peach", "A peach-coloured band under a clear, cool blue."},
     {"Alpine Rose", "Rose light on a thin haze, as in the high mountains."},
     {"Golden Hour", "Strong gold that fades into pale green."},
     {"Cold Steel", "A steel-blue winter morning with a narrow bright line."},
     {"Harbour Mist", "Muted colours behind a layer of mist over the water."}}}},
  {kDay, "day", "Day", "sky_day", "Sky/Day.", kTexture,
   {"sky_day_n", "sky_day_e", "sky_day_s", "sky_day_w", "sky_day_top"},
   {{{"Deep Blue", "The dark, clean blue of dry air after a cold front."},
     {"Summer Haze", "A pale sky that turns white towards the horizon."},
     {"Northern Light", "A cool, thin blue with a hint of green near the ground."},
     {"Desert", "A dusty sky with a sand-coloured rim."},
     {"Tropics", "A saturated blue with humid, bright lower layers."}}}},
  {kSunset, "sunset", "Sunset", "sky_sunset", "Sky/Sunset.", kTexture,
   {"sky_dusk_n", "sky_dusk_e", "sky_dusk_s", "sky_dusk_w", "sky_dusk_top"},
   {{{"Ember", "A red glow that keeps its colour long after the sun has gone."},
     {"Violet Hour", "Violet and pink over a dark, clear land."},
     {"Copper", "A copper band with a wide, warm halo."},
     {"Storm's End", "Yellow light under a heavy upper edge."},
     {"Quiet Blue", "A plain blue dusk without any red."}}}},
  {kNight, "night", "Night", "sky_night", "Sky/Night.", kTexture,
   {"sky_night_n", "sky_night_e", "sky_night_s", "sky_night_w", "sky_night_top"},
   {{{"Moonless", "As dark as it gets, with a trace of blue overhead."},
     {"Moonlit", "A silver-blue sky that still shows the horizon."},
     {"City Glow", "A warm glow at the horizon, as over a large town."},
     {"Polar", "A faint green shimmer above the horizon."},
     {"Midnight Blue", "An even, deep blue without any structure."}}}},
  {kBase, "base", "Base", "water_base", "Water/Base.", kWaterTexture,
   {"water_ocean", "water_coast", "water_lake", "water_river", "water_tropic", "water_polar"},
   {{{"Atlantic", "A dark green-blue with little contrast."},
     {"Lagoon", "Bright turquoise shallows that deepen quickly."},
     {"Mountain Lake", "A clear, cold blue-green."},
     {"Baltic", "Grey-blue water under a pale sky."},
     {"Great River", "Brownish water that carries its banks along."}}}},
  {kEnvironment, "environment", "Environment", "water_environment", "Water/Environment.", kWaterTexture,
   {"reflect_day", "reflect_dusk", "reflect_night"},
   {{{"Mirror", "Strong reflections, as on a windless evening."},
     {"Satin", "Soft reflections with broad highlights."},
     {"Glitter", "Many small sparks along the path of the sun."},
     {"Matte", "Hardly any reflection; the colour of the water dominates."},
     {"Moon Path", "A narrow, bright path, made for night flights."}}}},
  {kWaves, "waves", "Waves", "water_waves", "Water/Waves.", "Effects/Texture", {"wave_1", "wave_2"},
   {{{"Calm", "A smooth surface with a faint swell."},
     {"Breeze", "Short ripples that run with the wind."},
     {"Choppy", "Clear waves with narrow crests."},
     {"Swell", "Long, slow waves from a distant storm."},
     {"Gale", "High waves with streaks of foam."}}}},
}};
// clang-format on

namespace {

struct Section {
  const char* name;
  const char* fixed_keys;
  std::size_t first_group;
  std::size_t groups;
};

constexpr std::array<Section, 3> kSections{{
    {"CloudTextures", "Destination=Texture\\cumulus01.bmp\nDestinationCirrus=Texture\n", 0, 4},
    {"SkyTextures", "Destination=Texture\nsunInhibitRandomizer=0\ncontrailsInhibitRandomizer=0\n",
     4, 4},
    {"WaterTextures",
     "DestinationWater=Scenery\\World\\Texture\nDestinationWaves=Effects\\Texture\n", 8, 3},
}};

std::string Backslashes(std::string path) {
  for (char& c : path) {
    c = c == '/' ? '\\' : c;
  }
  return path;
}

std::string GroupRows(const Group& group) {
  std::string text;
  for (std::size_t i = 0; i < group.options.size(); ++i) {
    const std::string n = std::to_string(i);
    const auto row = [&](const char* field, const std::string& value) {
      text.append(group.prefix).append(field).append(".").append(n);
      text.append("=").append(value).append("\n");
    };
    row("Preview", std::string("Media\\Screen Shots\\") + group.preview + "_" + n);
    row("Textures", "Data\\" + Backslashes(group.set) + n);
    row("Title", group.options[i].title);
    row("Description", group.options[i].description);
    row("InhibitRandomizer", "0");
  }
  return text;
}

}  // namespace

void WriteInformationFile(const std::filesystem::path& file) {
  std::string text =
      "; Nimbrel information file: what can be chosen and where the simulator wants it.\n"
      "; The num keys hold the highest number of a group; the first is 0.\n"
      "[Main]\nuseDXT=1\nuseLowRes=0\n";
  for (const Section& section : kSections) {
    const auto groups = std::span(kCatalogue).subspan(section.first_group, section.groups);
    text += std::string("\n[") + section.name + "]\n";
    for (const Group& group : groups) {
      text += std::string("num") + group.num_key + "=" + std::to_string(kOptions - 1) + "\n";
    }
    text += section.fixed_keys;
    for (const Group& group : groups) {
      text += "\n; " + std::string(group.prefix) + "\n" + GroupRows(group);
    }
  }
  WriteDosText(file, text);
}

}  // namespace demo
