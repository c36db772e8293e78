#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/fault.h"

/// Expects that the action throws a Fault that concerns the file and says the reason.
template <class Action>
void ExpectFault(Action action, const std::string& file, const std::string& reason) {
  try {
    action();
    ADD_FAILURE() << "no fault; expected: " << reason;
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.file(), file);
    EXPECT_THAT(fault.what(), testing::HasSubstr(reason));
  }
}
