#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

#include "splash/colors.h"

/// Pictures of a window on the screen, and checks of them that do not depend on the fonts.
namespace quillon::tests {

using platform::ui::Color;

inline std::string outputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen((command + " 2>&1").c_str(), "r"),
                                                   ::pclose);
  std::string output;
  for (int byte = 0; (byte = std::fgetc(pipe.get())) != EOF;) output += static_cast<char>(byte);
  return output;
}

/// The number after a name in a tool's output. 0 if it is missing.
inline int numberAfter(const std::string& name, const std::string& text) {
  const auto place = text.find(name);
  return place == std::string::npos ? 0 : std::atoi(text.c_str() + place + name.size());
}

/// The picture of a window's content on the screen. Each point is `scale` pixels wide and high.
class Picture {
 public:
  explicit Picture(const std::string& window, int pixelsOfPoint = 1) : scale(pixelsOfPoint) {
    const std::string place = outputOf("xwininfo -id " + window);
    width = numberAfter("Width:", place);
    height = numberAfter("Height:", place);
    std::ostringstream area;
    area << width << 'x' << height << '+' << numberAfter("upper-left X:", place) << '+'
         << numberAfter("upper-left Y:", place);
    bytes_ = outputOf("/usr/bin/import -window root -crop " + area.str() + " -depth 8 rgb:-");
  }

  /// False if the window no longer exists.
  [[nodiscard]] bool isValid() const {
    return width > 0 && static_cast<int>(bytes_.size()) == 3 * width * height;
  }
  [[nodiscard]] Color at(int x, int y) const {
    const auto place =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    const auto* pixel = reinterpret_cast<const unsigned char*>(&bytes_[3 * place]);
    return {pixel[0], pixel[1], pixel[2]};
  }

  int scale;
  int width = 0;
  int height = 0;

 private:
  std::string bytes_;
};

/// The share of `ink` in a pixel over the background. Nothing if the pixel is not a mixture of the
/// two.
inline std::optional<double> coverage(Color pixel, Color ink) {
  constexpr Color paper = colors::background;
  constexpr std::array<std::uint8_t Color::*, 3> components{&Color::red, &Color::green,
                                                            &Color::blue};
  double mixed = 0;
  double all = 0;
  for (const auto component : components) {
    const double range = ink.*component - paper.*component;
    mixed += (pixel.*component - paper.*component) * range;
    all += range * range;
  }
  const double share = mixed / all;
  for (const auto component : components) {
    const double expected = std::lerp(double(paper.*component), double(ink.*component), share);
    if (std::abs(expected - pixel.*component) > 3) return std::nullopt;
  }
  return share;
}

/// In points from the upper left corner.
struct Area {
  int x, y, width, height;
};

/// The columns, in pixels, where an area shows ink of that colour. The area may contain only that
/// ink and the background, and some of the ink must be strong.
struct Ink {
  int first = -1, last = -1;
  double strongest = 0;
  bool isPure = true;
};

inline Ink inkIn(const Picture& picture, Area area, Color color) {
  const int scale = picture.scale;
  Ink ink;
  for (int x = area.x * scale; x < (area.x + area.width) * scale; ++x) {
    for (int y = area.y * scale; y < (area.y + area.height) * scale; ++y) {
      const auto share = coverage(picture.at(x, y), color);
      ink.isPure = ink.isPure && share.has_value();
      if (share.value_or(0) < 0.05) continue;
      if (ink.first < 0) ink.first = x;
      ink.last = x;
      ink.strongest = std::max(ink.strongest, *share);
    }
  }
  return ink;
}

inline bool shows(const Picture& picture, Area area, Color color) {
  const Ink ink = inkIn(picture, area, color);
  return ink.isPure && ink.strongest > 0.5;
}

inline bool isEmpty(const Picture& picture, Area area) {
  const Ink ink = inkIn(picture, area, colors::brightText);
  return ink.isPure && ink.first < 0;
}

}  // namespace quillon::tests
