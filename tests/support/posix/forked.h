#pragma once

#include <cstdint>
#include <functional>

namespace oravin::test {

/// Runs something in a process of its own, which is a copy of this one, and waits for it.
/// @return what `run` returned, 0 to 255; -1 when the process ended in another way
int InAnotherProcess(const std::function<int()>& run);

/// Another process that is doing something for as long as this record lives.
struct OtherProcess {
  /// @param begin run in the other process; this one goes on once it has returned
  explicit OtherProcess(const std::function<void()>& begin);
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;
  ~OtherProcess();

  std::intptr_t id = -1;
};

}  // namespace oravin::test
