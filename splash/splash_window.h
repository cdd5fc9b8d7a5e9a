#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/text/json.h"
#include "platform/ui/window.h"

namespace quillon {

/// One step of the launch as the splash window shows it. It is pending until `done`; `failed`
/// counts whatever `done` says.
struct SplashStep {
  std::string label;
  std::string status;
  bool done = false;
  bool failed = false;
};

/// The four steps of every launch, all pending.
[[nodiscard]] std::vector<SplashStep> initialSplashSteps();

/// The progress window: a row per step and, below, what the overlay switches on. Main thread only.
class SplashWindow {
 public:
  /// The labels of one step.
  struct Row {
    platform::ui::Label& glyph;
    platform::ui::Label& label;
    platform::ui::Label& status;
  };

  /// Builds the window without showing it. `overlayObject` may be null; it is not kept. The rows
  /// start as pending whatever the steps say.
  SplashWindow(std::vector<SplashStep> initialSteps, const platform::JsonObject* overlayObject);

  /// Brings the window and the application to the front.
  void showSplash();

  /// Changes one step and redraws the rows; nothing at all for an index beyond the steps.
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
