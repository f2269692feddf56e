#include "Catalogue.h"

#include <string>

#include "Files.h"

namespace demo {

namespace {

constexpr Option kSolidOptions[] = {
    {"Fair Weather",
     "Bright heaps with firm heads and level bases, as they stand over warm fields in the early "
     "afternoon."},
    {"Towering",
     "Tall turrets that have only begun to grow, sunlit on one side and shaded on the other. They "
     "look as rough as they fly."},
    {"Soft Cotton",
     "Round, loose heaps without hard edges, in a warm white. Restful to look at and good for a "
     "hazy day."},
    {"Côte d'Azur",
     "Low, dry heaps of a southern coast: cream-coloured on the sunny side, blue as the sea in "
     "their shadows."},
    {"Thunder Front",
     "Heavy grey towers that hold back most of the light. Best seen from a safe distance."},
    {"Evening Gold",
     "Heaps with the low sun behind them: peach-coloured hearts and bright rims, made for the last "
     "flight of the day."},
    {"Trade Wind",
     "Flat, ragged heaps drawn out along the wind, as they drift over open water in the tropics."},
};
constexpr Option kStratusOptions[] = {
    {"Morning Sheet",
     "A thin, even sheet with blue showing through, which will have burnt off by noon."},
    {"Grey Ceiling",
     "A closed grey ceiling with little structure, for instrument practice on a wet day in "
     "autumn."},
    {"Broken Layers", "Long, flat banks with firm edges and gaps between them, lit from the side."},
    {"Rolling Fog", "Low, soft rolls that lie in the valleys and part slowly in the sun."},
    {"High Veil", "A milky veil without any edges, drawn thin along the wind."},
    {"Pebbled Deck",
     "Many small heads side by side. From above it makes a lively floor to fly over."},
};
constexpr Option kWispyOptions[] = {
    {"Feathered", "Fine feathers round the heaps, which dissolve slowly into the sky."},
    {"Torn by Wind",
     "Long shreds drawn off sideways, for days when the windsock stands straight out."},
    {"Crisp", "Small firm puffs in place of wisps: every cloud ends where it ends."},
    {"Smoky", "Wide, weak edges that blend neighbouring heaps into one another."},
    {"Warm Rims",
     "Thin pieces with the sun behind them, cream-coloured and bright at their edges."},
    {"Lace", "Finely broken edges with many small holes, as on heaps that are drying out."},
};
constexpr Option kCirrusOptions[] = {
    {"Mares' Tails",
     "Long hooked streaks of ice, high above everything else: the first sign of a front a day "
     "away."},
    {"Mackerel Sky", "A wide field of small bright ripples across the wind."},
    {"Jet Stream", "Straight bands that follow the upper wind from one horizon to the other."},
    {"Faint Haze",
     "Almost nothing: a slight brightening of the upper sky that takes its hardness away."},
    {"Evening Fans",
     "Dense, warm-coloured streaks that bend and run together at the horizon. Made to go with a "
     "strong sunset."},
    {"Broken Ice", "Patches of thick ripples with clear sky between them."},
};
constexpr Option kSunriseOptions[] = {
    {"Peach", "A peach-coloured band under a clear and still cool blue."},
    {"Alpine Rose",
     "Rose light in thin, clean air a few minutes before the sun comes over the ridge."},
    {"Golden Hour", "The sun just clear of the horizon: strong gold that fades into pale green."},
    {"Cold Steel", "A steel-blue winter morning without warm colours, well before sunrise."},
    {"Harbour Mist", "Muted colours behind a thick layer of mist, the sun a pale spot in it."},
    {"Red Sky Morning",
     "Deep red over violet, with dust in the air. A shepherd's warning, and a fine sight all the "
     "same."},
};
constexpr Option kDayOptions[] = {
    {"Deep Blue", "The dark, clean blue of dry air after a cold front."},
    {"Summer Haze",
     "A pale sky that turns white towards the horizon, as on a windless day in July."},
    {"Northern Light", "A thin, cool blue under a low sun, with a hint of green near the ground."},
    {"Desert", "A bright sky with dust in it, sand-coloured round its rim."},
    {"Tropics", "Saturated turquoise over humid, luminous lower layers, the sun almost overhead."},
    {"High Country",
     "The dark blue of thin air, as it is seen from mountain strips and from high levels."},
    {"After the Rain", "Washed air with a sharp sun: clear right down to the horizon."},
};
constexpr Option kSunsetOptions[] = {
    {"Ember", "A red glow that keeps its colour long after the sun has gone."},
    {"Violet Hour", "Violet and pink in clean mountain air, a quarter of an hour after sunset."},
    {"Copper", "A copper band with a wide, warm halo round the sun."},
    {"Storm's End", "Yellow light that breaks through below a green-grey sky."},
    {"Quiet Blue", "The plain blue hour, with only a narrow line of light in the west."},
    {"Saharan Dust",
     "Thick dust that turns the whole western sky orange long before the sun is down."},
    {"Pacific Glow", "Bright orange on the water under a violet sky: the sun touches the sea."},
};
constexpr Option kNightOptions[] = {
    {"Moonless", "As dark as it gets, with many stars and a trace of blue."},
    {"Moonlit", "A silver-blue sky with the moon in the south. The horizon stays in sight."},
    {"City Glow", "Few stars and an amber glow in the south-west, as over a large town."},
    {"Polar Light", "Green curtains with violet tops in the north, over a sky full of stars."},
    {"Midnight Blue", "An even, deep blue with the brightest stars only."},
    {"Milky Way",
     "The Milky Way with its dark lanes, rising in the south-west, as it is seen far from any "
     "lamp."},
};
constexpr Option kBaseOptions[] = {
    {"Atlantic", "A dark, cold green-blue, a little lighter along the coast."},
    {"Lagoon", "Bright turquoise inside the reef and deep blue outside it."},
    {"Mountain Lake", "The clear blue-green of meltwater, lighter over the banks."},
    {"Baltic", "Grey-blue water under a pale sky, with streaks along the wind."},
    {"Great River", "Brown water that carries its banks along, out into a green-grey sea."},
    {"Arctic", "Almost black water, pale blue where ice lies under the surface."},
};
constexpr Option kEnvironmentOptions[] = {
    {"Mirror",
     "The whole sky stands in the water, clouds and all, with a small, sharp image of the sun."},
    {"Satin", "Soft reflections and a broad, calm light below the sun."},
    {"Glitter", "Hundreds of hard sparks below the sun. Best with a breeze."},
    {"Matte", "Hardly any reflection: the colour of the water itself comes out."},
    {"Moon Path", "A narrow, silver path that leads to the moon; plain by day."},
    {"Golden Path", "Tuned for the evening: a wide blaze of gold up to the setting sun."},
};
constexpr Option kWavesOptions[] = {
    {"Calm", "A smooth surface that rises and falls a little with an old swell."},
    {"Breeze", "Short ripples that run with a light wind."},
    {"Choppy", "Steep little waves with narrow crests, half a metre high."},
    {"Swell", "Long, round waves from a storm far away, with almost no wind on them."},
    {"Whitecaps", "A fresh wind over open water: crests that begin to break."},
    {"Gale", "High, steep seas with foam on every crest. Keep away from the water."},
};

}  // namespace

const std::array<Group, kGroups> kCatalogue{{
    {"solid", "Solid", "cumulus01_solid", "Cumulus/solid_", kSolidOptions},
    {"stratus", "Stratus", "cumulus01_stratus", "Cumulus/stratus_", kStratusOptions},
    {"wispy", "Wispy", "cumulus01_wispy", "Cumulus/wispy_", kWispyOptions},
    {"cirrus", "Cirrus", "cirrus", "Cirrus/Set.", kCirrusOptions},
    {"sunrise", "Sunrise", "sky_sunrise", "Sky/Sunrise.", kSunriseOptions},
    {"day", "Day", "sky_day", "Sky/Day.", kDayOptions},
    {"sunset", "Sunset", "sky_sunset", "Sky/Sunset.", kSunsetOptions},
    {"night", "Night", "sky_night", "Sky/Night.", kNightOptions},
    {"base", "Base", "water_base", "Water/Base.", kBaseOptions},
    {"environment", "Environment", "water_environment", "Water/Environment.", kEnvironmentOptions},
    {"waves", "Waves", "water_waves", "Water/Waves.", kWavesOptions},
}};

namespace {

struct Section {
  const char* name;
  const char* fixed_keys;
  std::size_t first_group;
  std::size_t groups;
};

constexpr std::array<Section, 3> kSections{{
    {"CloudTextures", "Destination=Texture\\cumulus01.bmp\nDestinationCirrus=Texture\n", kSolid, 4},
    {"SkyTextures", "Destination=Texture\nsunInhibitRandomizer=0\ncontrailsInhibitRandomizer=0\n",
     kSunrise, 4},
    {"WaterTextures",
     "DestinationWater=Scenery\\World\\Texture\nDestinationWaves=Effects\\Texture\n", kBase, 3},
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
      text += std::string("num") + group.num_key + "=" + std::to_string(group.options.size() - 1) +
              "\n";
    }
    text += section.fixed_keys;
    for (const Group& group : groups) {
      text += "\n; " + std::string(group.prefix) + "\n" + GroupRows(group);
    }
  }
  WriteDosText(file, text);
}

}  // namespace demo
