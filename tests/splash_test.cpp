#include "splash/splash_window.h"

#include <gtest/gtest.h>

#include "splash/colors.h"
#include "splash/overrides_summary.h"

namespace quillon {
namespace {

namespace ui = platform::ui;
using platform::JsonObject;
using Keys = std::vector<std::string>;

JsonObject object(const std::string& text) {
  return platform::parseJsonObject(text).value_or(JsonObject());
}

TEST(SplashWindow, RowsFollowTheSteps) {
  struct Row {
    bool done;
    bool failed;
    const char* glyph;
    ui::Color glyphColor;
    ui::Color statusColor;
  };
  const std::vector<Row> rows{{false, false, "\u23F3", {245, 158, 11}, {170, 179, 192}},
                              {true, false, "\u2713", {74, 222, 128}, {170, 179, 192}},
                              {true, true, "\u00D7", {248, 113, 113}, {248, 113, 113}},
                              {false, true, "\u00D7", {248, 113, 113}, {248, 113, 113}}};
  SplashWindow splash(initialSplashSteps(), nullptr);
  for (const Row& row : rows) {
    splash.updateStep(1, [&](SplashStep& step) { step = {"l", "s", row.done, row.failed}; });
    EXPECT_EQ(row.glyph, splash.rows[1].glyph.text);
    EXPECT_EQ(row.glyphColor, splash.rows[1].glyph.color);
    EXPECT_EQ("s", splash.rows[1].status.text);
    EXPECT_EQ(row.statusColor, splash.rows[1].status.color);
    EXPECT_EQ("\u23F3", splash.rows[0].glyph.text);
  }
  splash.updateStep(4, [](SplashStep&) { ADD_FAILURE() << "there is no fifth step"; });
}

TEST(SplashWindow, SmallSummaryFitsUnderTheRows) {
  const JsonObject overlay = object(R"({"a":1})");
  EXPECT_EQ(240, SplashWindow(initialSplashSteps(), &overlay).window.contentSize.height);
}

TEST(OverridesSummary, ListsWhatIsSwitchedOn) {
  const JsonObject overlay = object(R"({"webrtc-no-leak":1,"auto-geo":true,"auto-lang":"false",
      "_comment":"x","off":" Off\t","no":"No","zero":0.0,"blank":" ","null":null,"list":[],
      "object":{},"yes":"yes","line":"\noff",
      "chrome-command-line":{"--lang":"de","--x":null,"--flag":true,"_y":1}})");
  const OverridesSummary summary = summarizeOverlay(&overlay);
  EXPECT_EQ((Keys{"auto-geo", "line", "list", "object", "webrtc-no-leak", "yes"}),
            summary.activeKeys);
  EXPECT_EQ((Keys{"--flag", "--lang", "_y"}), summary.switchKeys);
  const JsonObject flat = object(R"({"chrome-command-line":[1],"a":1})");
  EXPECT_EQ((Keys{"a"}), summarizeOverlay(&flat).activeKeys);
  EXPECT_EQ(nullptr, summarizeOverlay(&flat).switchObject);
  for (const auto& [key, text] : std::vector<std::pair<const char*, const char*>>{
           {"auto-geo", "true"}, {"null", ""}, {"list", "[]"}, {"no", "No"}, {"missing", ""}}) {
    EXPECT_EQ(text, overlayValueText(overlay.find(key))) << key;
  }
}

TEST(OverridesSummary, LinesCutAndPadByCharacters) {
  EXPECT_EQ("a    1", summaryLine("a", "1", 3));
  EXPECT_EQ(std::string(27, 'k') + "…  v", summaryLine(std::string(40, 'k'), "v", 28));
  EXPECT_EQ("e\u0301   v", summaryLine("e\u0301", "v", 2));
  EXPECT_EQ("  v", summaryLine("", "v", 0));
  EXPECT_EQ("k  " + std::string(36, 'v'), summaryLine("k", std::string(36, 'v'), 1));
  EXPECT_EQ("k  " + std::string(33, 'v') + "…", summaryLine("k", std::string(37, 'v'), 1));
}

TEST(OverridesSummary, IsLaidOutFromTheBottomUpwards) {
  const JsonObject overlay =
      object(R"({"b":{"x":[1, 2]},"a":1,"chrome-command-line":{"--y":"2","--x":"1"}})");
  const SplashWindow splash(initialSplashSteps(), &overlay);
  const std::vector<std::pair<double, const char*>> expected{
      {16, "--y  2"},           {34, "--x  1"}, {52, "Raw Chromium switches (2)"},
      {82, "b  {\"x\":[1,2]}"}, {100, "a  1"},  {118, "Active overrides (2)"}};
  EXPECT_EQ("Preparing Nimbra…", splash.window.title);
  EXPECT_EQ(ui::Window::Level::floating, splash.window.level);
  // 124 points for the summary, of which 44 fit under the rows.
  EXPECT_EQ(240 + 80, splash.window.contentSize.height);
  EXPECT_EQ(200 + 80, splash.titleField->frame.y);
  EXPECT_EQ(76 + 80, splash.rows[3].glyph.frame.y);
  const std::deque<ui::Label>& labels = splash.window.labels();
  ASSERT_EQ(14 + expected.size(), labels.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const ui::Label& label = labels[14 + i];
    EXPECT_EQ(expected[i].second, label.text);
    EXPECT_EQ((ui::Rect{16, expected[i].first, 428, 18}), label.frame);
    const bool isHeader = i == 2 || i == 5;
    EXPECT_EQ(isHeader ? ui::Font::Weight::bold : ui::Font::Weight::regular, label.font.weight);
    EXPECT_EQ(isHeader ? colors::dimText : (ui::Color{190, 200, 215}), label.color);
  }
}

}  // namespace
}  // namespace quillon
