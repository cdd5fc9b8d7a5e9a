#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/text/json.h"
#include "platform/ui/window.h"

namespace quillon {

/// One step of the launch in the splash window: failed if `failed`, otherwise done if `done`,
/// otherwise pending.
struct SplashStep {
  std::string label;
  std::string status;
  bool done = false;
  bool failed = false;
};

/// The four steps of every launch, all pending.
[[nodiscard]] std::vector<SplashStep> initialSplashSteps();

/// The progress window: a row for each step and, below, the overlay's active settings. Main thread
/// only.
class SplashWindow {
 public:
  /// The labels of one step.
  struct Row {
    platform::ui::Label& glyph;
    platform::ui::Label& label;
    platform::ui::Label& status;
  };

  /// Creates the window without showing it. `overlayObject` can be null; it is not kept. Every row
  /// is shown as pending until the first update.
  SplashWindow(std::vector<SplashStep> initialSteps, const platform::JsonObject* overlayObject);

  /// Brings the window and the application to the front.
  void showSplash();

  /// Changes one step and redraws the rows. Does nothing if there is no step with this index.
  void updateStep(std::size_t index, const std::function<void(SplashStep&)>& change);

  /// Redraws the rows from the steps.
  void refreshRows();

  platform::ui::Window window;
  platform::ui::Label* titleField = nullptr;
  platform::ui::Label* subtitleField = nullptr;
  std::vector<Row> rows;
  std::vector<SplashStep> steps;

 private:
  void addTexts(double extraHeight);
  void addRow(const SplashStep& step, double y);
};

}  // namespace quillon
