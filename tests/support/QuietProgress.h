#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "install/Progress.h"

/// A run's progress without a window: it keeps what was told.
class QuietProgress : public nimbrel::Progress {
 public:
  void Announce(std::string_view sentence, double percent) override {
    sentences.emplace_back(sentence);
    percents.push_back(percent);
  }
  void Advance(double percent) override { percents.push_back(percent); }
  void Breathe() override {
    ++breaths;
    if (on_breath) {
      on_breath();
    }
  }

  std::vector<std::string> sentences;
  std::vector<double> percents;  ///< of announcements and advances, in their order
  int breaths = 0;
  std::function<void()> on_breath;
};
