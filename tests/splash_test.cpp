#include "splash/splash_window.h"

#include <gtest/gtest.h>

#include <sstream>

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

TEST(SplashWindow, GrowsByWhatDoesNotFitUnderTheRows) {
  for (const auto& [json, height] : std::vector<std::pair<const char*, double>>{
           {"{}", 240},
           {R"({"a":1})", 240},
           {R"({"a":1,"b":1})", 254},
           {R"({"chrome-command-line":{"a":1,"b":1}})", 254}}) {
    const JsonObject overlay = object(json);
    EXPECT_EQ(height, SplashWindow(initialSplashSteps(), &overlay).window.contentSize.height);
  }
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
  EXPECT_EQ("k…  v", summaryLine("kkk", "v", 1));
  EXPECT_EQ(std::string(27, 'k') + "…  v", summaryLine(std::string(40, 'k'), "v", 28));
  EXPECT_EQ("e\u0301   v", summaryLine("e\u0301", "v", 2));
  EXPECT_EQ("  v", summaryLine("", "v", 0));
  EXPECT_EQ("k  " + std::string(36, 'v'), summaryLine("k", std::string(36, 'v'), 1));
  EXPECT_EQ("k  " + std::string(33, 'v') + "…", summaryLine("k", std::string(37, 'v'), 1));
}

/// All values of a label, in one line.
std::string described(const ui::Label& label) {
  std::ostringstream line;
  line << label.text << " | "
       << (label.font.family == ui::Font::Family::system ? "" : "monospaced ") << label.font.size
       << ' ' << static_cast<int>(label.font.weight) << " | " << int{label.color.red} << ' '
       << int{label.color.green} << ' ' << int{label.color.blue} << " | " << label.frame.x << ' '
       << label.frame.y << ' ' << label.frame.width << ' ' << label.frame.height << " | "
       << static_cast<int>(label.alignment) << static_cast<int>(label.lineBreakMode);
  return line.str();
}

TEST(SplashWindow, IsLaidOutWithItsSummaryFromTheBottomUpwards) {
  const JsonObject overlay =
      object(R"({"b":{"x":[1, 2]},"a":1,"chrome-command-line":{"--y":"2","--x":"1"}})");
  const SplashWindow splash(initialSplashSteps(), &overlay);
  // The summary is 124 points high. 44 of them fit under the rows.
  Keys expected{"Preparing Nimbra | 16 1 | 231 236 243 | 16 280 428 24 | 00",
                "Auto-detecting persona settings… | 12 0 | 170 179 192 | 16 258 428 20 | 00"};
  const Keys steps{"Loading persona overlay", "Discovering proxy egress IP",
                   "Applying anti-detect overrides", "Launching Nimbra"};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const std::string y = Keys{"228", "204", "180", "156"}[i];
    expected.push_back("\u23F3 | 14 1 | 245 158 11 | 14 " + y + " 24 20 | 10");
    expected.push_back(steps[i] + " | 13 0 | 231 236 243 | 40 " + y + " 220 20 | 00");
    expected.push_back(" | 11 0 | 170 179 192 | 260 " + y + " 184 20 | 21");
  }
  const std::string row = " | monospaced 11 0 | 190 200 215 | 16 ";
  const std::string header = " | 11 2 | 170 179 192 | 16 ";
  for (const std::string& line :
       {"--y  2" + row + "16", "--x  1" + row + "34", "Raw Chromium switches (2)" + header + "52",
        "b  {\"x\":[1,2]}" + row + "82", "a  1" + row + "100",
        "Active overrides (2)" + header + "118"}) {
    expected.push_back(line + " 428 18 | 00");
  }
  Keys labels;
  for (const ui::Label& label : splash.window.labels()) labels.push_back(described(label));
  EXPECT_EQ(expected, labels);
  EXPECT_EQ("Preparing Nimbra…", splash.window.title);
  EXPECT_EQ((ui::Size{460, 320}), splash.window.contentSize);
  EXPECT_EQ((ui::Color{30, 33, 41}), splash.window.background);
  EXPECT_EQ(ui::Window::Level::floating, splash.window.level);
  EXPECT_TRUE(splash.window.centered);
}

}  // namespace
}  // namespace quillon
