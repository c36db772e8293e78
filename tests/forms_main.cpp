#include <gtest/gtest.h>

#include "platform/application.h"
#include "platform/form.h"
#include "platform/testing.h"

/// The start of a test program that shows the game's forms, offscreen and on a screen of the usual size.
int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  platform::user::UseOffscreen(1024, 768);
  platform::Application application(argc, argv, "Zorbik");
  platform::Form other;  // with no window on the screen the program would end
  other.Show();
  return RUN_ALL_TESTS();
}
