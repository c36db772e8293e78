#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace scenario {

/// What the steps of a scenario act on: made anew for each case.
class World {
 public:
  World() = default;
  World(const World&) = delete;
  World& operator=(const World&) = delete;
  virtual ~World() = default;

  /// Carries out one step; words[0] is what to do. Throws std::exception when it cannot: the case ends there, as
  /// failed.
  virtual void Do(const std::vector<std::string>& words) = 0;
  /// What there is to see now, in one line. Blanks around and repeated ones do not matter.
  virtual std::string State() = 0;
};

/// Runs the cases of a text, tests/scenarios/NAME.txt, each in a world of its own:
///
///   == WHAT THE CASE SHOWS                     a new case; the QUIRKS page names it so
///   step; another step                         # a remark: why
///   step with "words of several" | THE STATE   the state behind the bar has to be that of the world now
///
/// A line without a bar is done and not looked at. A failure tells the line. With ZORBIK_RENEW=1 in the environment the
/// states are written anew into the file instead, for somebody to read the difference.
void Run(const std::string& name, const std::function<std::unique_ptr<World>()>& make);

}  // namespace scenario
