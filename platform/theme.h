#pragma once

#include <string>
#include <vector>

#include "platform/colour.h"

namespace platform {

/// The one visual language of all windows: what a control looks like that was given no colour or font of its own.
/// The defaults are a warm cave by lamplight: earth, cream text, amber light.
struct Theme {
  Colour background = Rgb(0x2E2119);   // forms
  Colour panel = Rgb(0x3D2C20);        // frames with a border, picture boxes, menus, tool tips
  Colour field = Rgb(0x1C140F);        // where a value stands or is typed: check marks, lists, text boxes, grooves
  Colour button = Rgb(0x6E4A2C);       // buttons and the grips of scroll bars
  Colour outline = Rgb(0x140D08);      // the dark line around everything raised or sunk
  Colour text = Rgb(0xF6E9CF);         // cream
  Colour muted_text = Rgb(0x9D8A72);   // disabled controls
  Colour accent = Rgb(0xF2A93B);       // amber: check marks, focus, selection
  Colour accent_text = Rgb(0x23170D);  // text upon the accent
  Colour link = Rgb(0xFFC56B);         // links
  /// Font families, the first installed one is used.
  std::vector<std::string> font_families = {"Andika", "DejaVu Sans"};
  /// Height of the ordinary font in logical pixels.
  int font_size = 14;
};

}  // namespace platform
