#pragma once

#include <array>
#include <string>

#include "platform/picture.h"
#include "view/picture_files.h"

/// The numbered pictures of the running cave, rendered at tile size. Those of a tint are rendered anew when it changes.
class TilePictures {
 public:
  /// folder: where the files are. size: logical pixels of a tile. ratio: device pixels of a logical one.
  TilePictures(std::string folder, int size, int ratio) : folder_(std::move(folder)), size_(size), ratio_(ratio) {}

  /// Renders what is missing or has another tint, 0..14. Throws Fault when a file is missing or is no picture.
  void LoadTint(int tint);

  /// A picture ready to be copied: objects already stand on the floor of the cave, overlays are transparent.
  const platform::Picture& operator[](int number) const { return pictures_[static_cast<std::size_t>(number)]; }

  int size() const { return size_; }
  int ratio() const { return ratio_; }

 private:
  platform::Picture Load(const picture::File& file, const platform::Substitutions& tint) const;

  std::string folder_;
  int size_;
  int ratio_;
  int tint_ = -1;
  std::array<platform::Picture, picture::kCount> pictures_;
};

/// A numbered picture without the floor of the cave under it, in a size of its own. Throws Fault as above.
platform::Picture LoadNumbered(const std::string& folder, int number, int size, int ratio);

/// A numbered picture in a tint, 0..14, and in a size of its own. Throws Fault as above.
platform::Picture LoadTinted(const std::string& folder, int number, int tint, int size, int ratio);

/// A picture without a number, in a size of its own. Throws Fault as above.
platform::Picture LoadExtra(const std::string& folder, const picture::Extra& extra, int width, int height, int ratio);
