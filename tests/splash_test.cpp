#include "splash/splash_window.h"

#include <gtest/gtest.h>

#include "splash/colors.h"
#include "splash/overrides_summary.h"

namespace quillon {
namespace {

namespace ui = platform::ui;
using platform::JsonObject;

JsonObject object(const std::string& text) {
  return platform::parseJsonObject(text).value_or(JsonObject());
}

/// The label at a place; fails the test when there is none.
const ui::Label& labelAt(const ui::Window& window, double x, double y) {
  for (const ui::Label& label : window.labels()) {
    if (label.frame.x == x && label.frame.y == y) return label;
  }
  ADD_FAILURE() << "no label at " << x << ", " << y;
  return window.labels().front();
}

TEST(SplashWindow, StandsAsDrawnWithoutASummary) {
  const SplashWindow splash(initialSplashSteps(), nullptr);
  const ui::Window& window = splash.window;
  EXPECT_EQ("Preparing Nimbra…", window.title);
  EXPECT_EQ((ui::Size{460, 240}), window.contentSize);
  EXPECT_EQ((ui::Color{30, 33, 41}), window.background);
  EXPECT_EQ(ui::Window::Level::floating, window.level);
  EXPECT_TRUE(window.centered);
  EXPECT_EQ(14U, window.labels().size());
  EXPECT_EQ("Preparing Nimbra", splash.titleField->text);
  EXPECT_EQ((ui::Rect{16, 200, 428, 24}), splash.titleField->frame);
  EXPECT_EQ((ui::Font{ui::Font::Family::system, 16, ui::Font::Weight::semibold}),
            splash.titleField->font);
  EXPECT_EQ((ui::Rect{16, 178, 428, 20}), splash.subtitleField->frame);
  for (std::size_t i = 0; i < initialSplashSteps().size(); ++i) {
    const double y = 148 - 24 * static_cast<double>(i);
    const auto& [glyph, label, status] = splash.rows[i];
    EXPECT_EQ((ui::Rect{14, y, 24, 20}), glyph.frame);
    EXPECT_EQ("\u23F3", glyph.text);
    EXPECT_EQ((ui::Color{245, 158, 11}), glyph.color);
    EXPECT_EQ((ui::Rect{40, y, 220, 20}), label.frame);
    EXPECT_EQ(initialSplashSteps()[i].label, label.text);
    EXPECT_EQ((ui::Rect{260, y, 184, 20}), status.frame);
    EXPECT_EQ(ui::Alignment::right, status.alignment);
    EXPECT_EQ(ui::LineBreakMode::truncateMiddle, status.lineBreakMode);
  }
}

TEST(SplashWindow, RowsFollowTheSteps) {
  struct Row {
    bool done;
    bool failed;
    const char* glyph;
    ui::Color glyphColor;
    ui::Color statusColor;
  };
  const std::vector<Row> rows{{false, false, "\u23F3", colors::amber, colors::dimText},
                              {true, false, "\u2713", colors::green, colors::dimText},
                              {true, true, "\u00D7", colors::red, colors::red},
                              {false, true, "\u00D7", colors::red, colors::red}};
  SplashWindow splash(initialSplashSteps(), nullptr);
  for (const Row& row : rows) {
    splash.updateStep(1, [&](SplashStep& step) {
      step.status = "BLOCKED: X";
      step.done = row.done;
      step.failed = row.failed;
    });
    EXPECT_EQ(row.glyph, splash.rows[1].glyph.text);
    EXPECT_EQ(row.glyphColor, splash.rows[1].glyph.color);
    EXPECT_EQ("BLOCKED: X", splash.rows[1].status.text);
    EXPECT_EQ(row.statusColor, splash.rows[1].status.color);
    EXPECT_EQ(colors::brightText, splash.rows[1].label.color);
    EXPECT_EQ("\u23F3", splash.rows[0].glyph.text);
  }
  splash.updateStep(4, [](SplashStep&) { ADD_FAILURE() << "there is no fifth step"; });
}

TEST(SplashWindow, GrowsByWhatItsSummaryNeeds) {
  struct Row {
    const char* overlay;
    double extra;
  };
  const std::vector<Row> rows{
      {R"({"a":false,"_b":1})", 0},
      {R"({"a":1})", 0},
      {R"({"a":1,"b":1})", 14},
      {R"({"chrome-command-line":{"_x":1,"y":"on"}})", 14},
      {R"({"a":1,"b":1,"c":1,"chrome-command-line":{"x":1,"y":2}})", 98},
  };
  for (const Row& row : rows) {
    const JsonObject overlay = object(row.overlay);
    const SplashWindow splash(initialSplashSteps(), &overlay);
    EXPECT_EQ(240 + row.extra, splash.window.contentSize.height) << row.overlay;
    EXPECT_EQ(200 + row.extra, splash.titleField->frame.y);
    EXPECT_EQ(76 + row.extra, splash.rows[3].glyph.frame.y);
  }
}

TEST(OverridesSummary, ListsWhatIsSwitchedOn) {
  using Keys = std::vector<std::string>;
  const JsonObject overlay = object(R"({"webrtc-no-leak":1,"auto-geo":true,"auto-lang":"false",
      "_comment":"x","proxy-server":"socks5://h","off":" Off\t","no":"No","zero":0.0,"blank":" ",
      "null":null,"list":[],"object":{},"yes":"yes","line":"\noff",
      "chrome-command-line":{"--lang":"de","--x":null,"--flag":true,"_y":1}})");
  const OverridesSummary summary = summarizeOverlay(&overlay);
  EXPECT_EQ((Keys{"auto-geo", "line", "list", "object", "proxy-server", "webrtc-no-leak", "yes"}),
            summary.activeKeys);
  EXPECT_EQ((Keys{"--flag", "--lang", "_y"}), summary.switchKeys);
  ASSERT_NE(nullptr, summary.switchObject);
  const JsonObject flat = object(R"({"chrome-command-line":[1],"a":1})");
  EXPECT_EQ((Keys{"a"}), summarizeOverlay(&flat).activeKeys);
  EXPECT_EQ(nullptr, summarizeOverlay(&flat).switchObject);
  EXPECT_TRUE(summarizeOverlay(nullptr).activeKeys.empty());
  const std::vector<std::pair<const char*, const char*>> texts{
      {"auto-geo", "true"}, {"webrtc-no-leak", "1"}, {"null", ""},   {"list", "[]"},
      {"no", "No"},         {"zero", "0"},           {"missing", ""}};
  for (const auto& [key, text] : texts) EXPECT_EQ(text, overlayValueText(overlay.find(key))) << key;
}

TEST(OverridesSummary, LinesCutAndPadByCharacters) {
  EXPECT_EQ("a    1", summaryLine("a", "1", 3));
  EXPECT_EQ("bbb  1", summaryLine("bbb", "1", 3));
  EXPECT_EQ(std::string(27, 'k') + "…  v", summaryLine(std::string(40, 'k'), "v", 28));
  EXPECT_EQ(
      "e\u0301 "
      "  v",
      summaryLine("e\u0301", "v", 2));
  EXPECT_EQ("  v", summaryLine("", "v", 0));
  EXPECT_EQ("k  " + std::string(36, 'v'), summaryLine("k", std::string(36, 'v'), 1));
  EXPECT_EQ("k  " + std::string(33, 'v') + "…", summaryLine("k", std::string(37, 'v'), 1));
}

TEST(OverridesSummary, IsLaidOutFromTheBottomUpwards) {
  const JsonObject overlay =
      object(R"({"b":{"x":[1, 2]},"a":1,"chrome-command-line":{"--y":"2","--x":"1"}})");
  const SplashWindow splash(initialSplashSteps(), &overlay);
  const std::vector<std::pair<double, const char*>> lines{
      {16, "--y  2"},           {34, "--x  1"}, {52, "Raw Chromium switches (2)"},
      {82, "b  {\"x\":[1,2]}"}, {100, "a  1"},  {118, "Active overrides (2)"},
  };
  for (const auto& [y, text] : lines) {
    const ui::Label& label = labelAt(splash.window, 16, y);
    EXPECT_EQ(text, label.text);
    EXPECT_EQ((ui::Rect{16, y, 428, 18}), label.frame);
  }
  EXPECT_EQ((ui::Font{ui::Font::Family::monospacedSystem, 11}),
            labelAt(splash.window, 16, 16).font);
  EXPECT_EQ((ui::Color{190, 200, 215}), labelAt(splash.window, 16, 16).color);
  EXPECT_EQ((ui::Font{ui::Font::Family::system, 11, ui::Font::Weight::bold}),
            labelAt(splash.window, 16, 118).font);
  EXPECT_EQ(colors::dimText, labelAt(splash.window, 16, 118).color);
}

}  // namespace
}  // namespace quillon
