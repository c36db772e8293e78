// render_icon FILE.svg SIZE OUT.png: a picture of an icon in one size.

#include <cstdio>
#include <cstdlib>

#include "base/fault.h"
#include "platform/application.h"
#include "platform/picture.h"
#include "platform/testing.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: render_icon FILE.svg SIZE OUT.png\n", stderr);
    return 2;
  }
  platform::user::UseOffscreen();
  platform::Application application(argc, argv, "render_icon");
  try {
    const int size = std::atoi(argv[2]);
    platform::Picture::LoadSvg(argv[1], size, size, 1).SavePng(argv[3]);
  } catch (const Fault& fault) {
    std::fprintf(stderr, "render_icon: %s\n", fault.message().c_str());
    return 1;
  }
  return 0;
}
