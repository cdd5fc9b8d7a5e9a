#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <utility>

/// Windows and labels as plain objects: they hold the state that the user is to see, and a backend
/// mirrors it onto the screen when told to. Lengths are points. Main thread only.
namespace quillon::platform::ui {

/// sRGB, opaque, 8 bits a component.
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

/// The origin is the lower left corner; y grows upwards from the bottom edge of the content area.
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

/// One line of text. What does not fit its frame is not drawn.
struct Label {
  /// UTF-8, never read as markup.
  std::string text;
  /// Texts with the same meaning. A backend whose fonts lack a character of `text` shows the first
  /// one that they have. Must live as long as the label.
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
  /// Placed in the middle of the screen when it is first shown.
  bool centered = false;
  /// Told when the user closes the window; not owned, may be null.
  WindowDelegate* delegate = nullptr;

  /// Adds a label on top of the others. The reference stays valid as long as the window.
  Label& addLabel(Label label) { return labels_.emplace_back(std::move(label)); }
  [[nodiscard]] const std::deque<Label>& labels() const { return labels_; }

  /// Shows the window in front of the others with the keyboard focus.
  void makeKeyAndOrderFront();
  /// Shows what has changed in text and colour of the labels; without effect while hidden.
  void display() const;
  /// Takes the window off the screen; its state stays.
  void orderOut() const;

 private:
  std::deque<Label> labels_;
};

}  // namespace quillon::platform::ui
