#include <canberra.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <system_error>
#include <thread>

#include "toolkit/desktop.h"

namespace toolkit {
namespace {

struct AliasSound {
  std::string_view alias;
  const char* event_id;  ///< of the desktop's sound theme
};

constexpr std::array<AliasSound, 4> kSounds{{
    {"SystemNotification", "dialog-information"},
    {"SystemExclamation", "dialog-warning"},
    {"SystemAsterisk", "dialog-error"},
    {"SystemQuestion", "dialog-question"},
}};

/// Held by the thread that talks to the sound system.
std::atomic_flag playing = ATOMIC_FLAG_INIT;

/// Runs on a thread of its own: connecting to a missing sound server can take seconds. The context
/// is never freed, since that would cut the sound short.
void Play(const char* event_id) {
  static ca_context* context = nullptr;
  if (context != nullptr || ca_context_create(&context) == CA_SUCCESS) {
    ca_context_play(context, 0, CA_PROP_EVENT_ID, event_id, CA_PROP_APPLICATION_NAME, "Nimbrel",
                    nullptr);
  }
  playing.clear(std::memory_order_release);
}

/// Drops a sound while the one before is still on its way to the server.
void PlayAside(const char* event_id) {
  if (playing.test_and_set(std::memory_order_acquire)) {
    return;
  }
  try {
    std::thread(Play, event_id).detach();
  } catch (const std::system_error&) {
    playing.clear(std::memory_order_release);
  }
}

}  // namespace

bool PlaySoundA(std::string_view alias, std::uint32_t flags) {
  if (flags != (SND_ALIAS | SND_ASYNC)) {
    return false;
  }
  const auto* sound = std::find_if(kSounds.begin(), kSounds.end(),
                                   [alias](const AliasSound& each) { return each.alias == alias; });
  if (sound == kSounds.end()) {
    return false;
  }
  PlayAside(sound->event_id);
  return true;
}

}  // namespace toolkit
