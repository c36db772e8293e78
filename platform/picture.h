#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/colour.h"

namespace platform {

/// A rectangle in logical pixels.
struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  friend bool operator==(const Rect&, const Rect&) = default;
};

/// Pairs of texts: each occurrence of the first becomes the second.
using Substitutions = std::vector<std::pair<std::string, std::string>>;

/// A picture: width by height logical pixels, rendered at ratio device pixels each. A handle: copies are cheap and
/// share the pixels, which never change.
class Picture {
 public:
  /// The empty picture, 0 by 0.
  Picture() = default;

  /// An SVG file rendered at a logical size, after the substitutions in its text (colours of a tint). Throws Fault when
  /// the file cannot be read or is no SVG.
  static Picture LoadSvg(const std::string& file, int width, int height, int ratio, const Substitutions& tint = {});
  static Picture Solid(int width, int height, int ratio, Colour colour);

  bool empty() const { return !pixels_; }
  int width() const;
  int height() const;
  int ratio() const;
  /// No pixel lets shine through what lies below.
  bool opaque() const;

  /// This picture drawn over another one of the same size.
  Picture Over(const Picture& below) const;
  /// Smoothly scaled to another logical size.
  Picture Scaled(int width, int height) const;
  /// The part inside a rectangle, which is cut to the picture.
  Picture Part(const Rect& part) const;

  /// The colour at a logical position, without its transparency. Black outside.
  Colour At(int x, int y) const;
  /// How many different colours its device pixels have.
  int CountColours() const;
  /// Both are the same pixel by pixel.
  friend bool operator==(const Picture& a, const Picture& b);

  /// Throws Fault when the file cannot be written.
  void SavePng(const std::string& file) const;

 private:
  friend struct Native;
  struct Pixels;
  explicit Picture(std::shared_ptr<const Pixels> pixels);
  std::shared_ptr<const Pixels> pixels_;
};

/// A canvas that keeps what was painted on it: the cave is painted once, later only cells that change. Positions and
/// sizes are logical pixels; whatever lies outside is cut off. Opaque pictures of the surface's own ratio are copied
/// row by row, fast enough for hundreds of tiles a tick.
class Surface {
 public:
  Surface();
  ~Surface();
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  int width() const;
  int height() const;
  int ratio() const;

  /// Gives it a size and paints all of it in one colour.
  void Reset(int width, int height, int ratio, Colour colour = {});
  void Fill(const Rect& area, Colour colour);
  void Copy(const Picture& picture, int x, int y);
  /// Copies the part of the picture inside source (in the picture's logical pixels).
  void CopyPart(const Picture& picture, const Rect& source, int x, int y);
  void CopyScaled(const Picture& picture, const Rect& target);

  Colour At(int x, int y) const;
  /// What is on the surface now.
  Picture Snapshot() const;

  /// Told of every rectangle that was painted.
  std::function<void(const Rect&)> on_change;

 private:
  friend struct Native;
  struct Pixels;
  std::unique_ptr<Pixels> pixels_;
};

}  // namespace platform
