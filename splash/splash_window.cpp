#include "splash/splash_window.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

#include "platform/dispatch/dispatch.h"
#include "platform/ui/application.h"
#include "splash/colors.h"
#include "splash/overrides_summary.h"

namespace quillon {
namespace {

namespace ui = platform::ui;
using Weight = ui::Font::Weight;

constexpr double contentWidth = 460;
constexpr double contentHeight = 240;
/// A summary up to this height fits below the rows.
constexpr double summarySpace = 44;
constexpr double firstRowY = 148;
constexpr double rowDistance = 24;
constexpr double lineHeight = 20;

/// The appearance of a step's state. Not every font has the hourglass, and some lack the other
/// glyphs: the last substitute is in every font.
struct StepLook {
  const char* glyph = "";
  std::array<const char*, 3> substitutes;
  ui::Color glyphColor;
  ui::Color statusColor;
};

constexpr StepLook pendingLook{
    "\u23F3", {"\u25CB", "\u2026", "..."}, colors::amber, colors::dimText};
constexpr StepLook doneLook{"\u2713", {"\u2714", "\u221A", "+"}, colors::green, colors::dimText};
constexpr StepLook failedLook{"\u00D7", {"\u2715", "\u2A2F", "x"}, colors::red, colors::red};

const StepLook& lookOf(const SplashStep& step) {
  if (step.failed) return failedLook;
  return step.done ? doneLook : pendingLook;
}

ui::Font systemFont(double size, Weight weight) {
  return {ui::Font::Family::system, size, weight};
}

}  // namespace

std::vector<SplashStep> initialSplashSteps() {
  return {{.label = "Loading persona overlay"},
          {.label = "Discovering proxy egress IP"},
          {.label = "Applying anti-detect overrides"},
          {.label = "Launching Nimbra"}};
}

SplashWindow::SplashWindow(std::vector<SplashStep> initialSteps,
                           const platform::JsonObject* overlayObject)
    : steps(std::move(initialSteps)) {
  const OverridesSummary summary = summarizeOverlay(overlayObject);
  const double extraHeight = std::max(summaryHeight(summary) - summarySpace, 0.0);
  window.title = "Preparing Nimbra…";
  window.contentSize = {contentWidth, contentHeight + extraHeight};
  window.background = colors::background;
  window.level = ui::Window::Level::floating;
  window.centered = true;
  addTexts(extraHeight);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    addRow(steps[i], firstRowY + extraHeight - rowDistance * static_cast<double>(i));
  }
  layoutOverridesSummary(window, summary, overlayObject);
}

void SplashWindow::addTexts(double extraHeight) {
  titleField = &window.addLabel({.text = "Preparing Nimbra",
                                 .font = systemFont(16, Weight::semibold),
                                 .color = colors::brightText,
                                 .frame = {16, 200 + extraHeight, 428, 24}});
  subtitleField = &window.addLabel({.text = "Auto-detecting persona settings…",
                                    .font = systemFont(12, Weight::regular),
                                    .color = colors::dimText,
                                    .frame = {16, 178 + extraHeight, 428, lineHeight}});
}

void SplashWindow::addRow(const SplashStep& step, double y) {
  ui::Label& glyph = window.addLabel({.text = pendingLook.glyph,
                                      .substitutes = pendingLook.substitutes,
                                      .font = systemFont(14, Weight::semibold),
                                      .color = pendingLook.glyphColor,
                                      .frame = {14, y, 24, lineHeight},
                                      .alignment = ui::Alignment::center});
  ui::Label& label = window.addLabel({.text = step.label,
                                      .font = systemFont(13, Weight::regular),
                                      .color = colors::brightText,
                                      .frame = {40, y, 220, lineHeight}});
  ui::Label& status = window.addLabel({.text = "",
                                       .font = systemFont(11, Weight::regular),
                                       .color = colors::dimText,
                                       .frame = {260, y, 184, lineHeight},
                                       .alignment = ui::Alignment::right,
                                       .lineBreakMode = ui::LineBreakMode::truncateMiddle});
  rows.push_back({glyph, label, status});
}

void SplashWindow::showSplash() {
  assert(platform::isMainThread());
  window.makeKeyAndOrderFront();
  ui::Application::shared().activateIgnoringOtherApps();
}

void SplashWindow::updateStep(std::size_t index, const std::function<void(SplashStep&)>& change) {
  if (index >= steps.size()) return;
  change(steps[index]);
  refreshRows();
}

void SplashWindow::refreshRows() {
  assert(platform::isMainThread());
  for (std::size_t i = 0; i < std::min(steps.size(), rows.size()); ++i) {
    const SplashStep& step = steps[i];
    const StepLook& look = lookOf(step);
    rows[i].glyph.text = look.glyph;
    rows[i].glyph.substitutes = look.substitutes;
    rows[i].glyph.color = look.glyphColor;
    rows[i].label.text = step.label;
    rows[i].status.text = step.status;
    rows[i].status.color = look.statusColor;
  }
  window.display();
}

}  // namespace quillon
