#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "base/language.h"
#include "platform/application.h"
#include "platform/form.h"
#include "platform/testing.h"

/// The start of every test program that shows forms: offscreen, on a screen of ZORBIK_SCREEN ("800x600") logical
/// pixels, in Czech.
int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  int width = 1280;
  int height = 800;
  if (const char* screen = std::getenv("ZORBIK_SCREEN")) std::sscanf(screen, "%dx%d", &width, &height);
  platform::user::UseOffscreen(width, height);
  platform::Application application(argc, argv, "Zorbik");
  NactiJazyk(ZORBIK_PROGRAM_DATA "/cestina.zbl");
  platform::Form other;  // with no window on the screen the program would end
  other.Show();
  return RUN_ALL_TESTS();
}
