#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <utility>

/// Windows and labels as plain objects. They hold the state that the user sees, and a backend
/// copies it to the screen on request. Lengths are in points. Main thread only.
namespace quillon::platform::ui {

/// sRGB, opaque, 8 bits for each component.
struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Color&) const = default;
};

struct Size {
  double width = 0;
  double height = 0;

  bool operator==(const Size&) const = default;
};

/// The origin is the lower left corner. y grows upwards from the bottom edge of the content area.
struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

struct Font {
  enum class Family { system, monospacedSystem };
  enum class Weight { regular, semibold, bold };

  Family family = Family::system;
  double size = 0;
  Weight weight = Weight::regular;
};

enum class Alignment { natural, center, right };
enum class LineBreakMode { clip, truncateMiddle };

/// One line of text. Text outside its frame is not drawn.
struct Label {
  /// UTF-8, never interpreted as markup.
  std::string text;
  /// Texts with the same meaning. If a backend's fonts lack a character of `text`, it shows the
  /// first substitute that the fonts support. Must live as long as the label.
  std::span<const char* const> substitutes;
  Font font;
  Color color;
  Rect frame;
  Alignment alignment = Alignment::natural;
  LineBreakMode lineBreakMode = LineBreakMode::clip;
};

class WindowDelegate {
 public:
  /// The user is closing the window.
  virtual void windowWillClose() = 0;

 protected:
  ~WindowDelegate() = default;
};

/// A window that the user can move and close, but neither resize nor minimise.
class Window {
 public:
  enum class Level { normal, floating };

  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  ~Window() = default;

  std::string title;
  Size contentSize;
  Color background;
  Level level = Level::normal;
  /// Whether the window is placed in the middle of the screen when it is first shown.
  bool centered = false;
  /// Notified when the user closes the window. Not owned. May be null.
  WindowDelegate* delegate = nullptr;

  /// Adds a label on top of the others. The reference is valid as long as the window.
  Label& addLabel(Label label) { return labels_.emplace_back(std::move(label)); }
  [[nodiscard]] const std::deque<Label>& labels() const { return labels_; }

  /// Shows the window in front of the others with the keyboard focus.
  void makeKeyAndOrderFront();
  /// Shows the changed texts and colours of the labels. Does nothing while the window is hidden.
  void display() const;
  /// Removes the window from the screen. Its state is kept.
  void orderOut() const;

 private:
  std::deque<Label> labels_;
};

}  // namespace quillon::platform::ui
