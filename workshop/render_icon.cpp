// A picture of an icon in one size.

#include <string>

#include "platform/application.h"
#include "platform/picture.h"
#include "platform/testing.h"
#include "tools/command_line.h"

int main(int argc, char** argv) {
  CLI::App app("Renders an icon.", "render_icon");
  std::string svg;
  int size = 0;
  std::string png;
  app.add_option("FILE.svg", svg)->required();
  app.add_option("SIZE", size, "pixels of a side")->required()->check(CLI::Range(1, 4096));
  app.add_option("OUT.png", png)->required();
  return RunCommand(app, argc, argv, [&] {
    platform::user::UseOffscreen();
    platform::Application application(argc, argv, "render_icon");
    platform::Picture::LoadSvg(svg, size, size, 1).SavePng(png);
    return 0;
  });
}
