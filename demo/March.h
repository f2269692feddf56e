#pragma once

namespace demo {

/// Walks along a ray from `start` until `above` is no longer positive, and narrows down that
/// distance. `step` gives the length of the next step from a distance. Returns `last` if `above`
/// stays positive.
template <typename Above, typename Step>
float March(float start, float last, Above above, Step step) {
  float before = start;
  float at = start;
  while (at < last) {
    if (above(at) > 0.0F) {
      before = at;
      at += step(at);
      continue;
    }
    for (int round = 0; round < 6; ++round) {
      const float middle = 0.5F * (before + at);
      (above(middle) > 0.0F ? before : at) = middle;
    }
    return at;
  }
  return last;
}

}  // namespace demo
