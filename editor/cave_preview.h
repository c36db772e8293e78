#pragma once

#include <memory>
#include <string>

#include "platform/controls.h"
#include "view/tile_pictures.h"

/// A small picture of a whole cave as it looks when its play begins.
class CavePreview : public platform::Frame {
 public:
  using platform::Frame::Frame;

  /// folder: where the pictures lie. They are loaded for the first cave shown.
  void SetPictures(std::string folder) { folder_ = std::move(folder); }
  /// A text that is no cave shows nothing.
  void ShowCave(const std::string& caveText);

  platform::Image Image1{this};

 private:
  platform::Picture Draw(const std::string& caveText);

  std::string folder_;
  std::unique_ptr<TilePictures> pictures_;
};
