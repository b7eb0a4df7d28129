// Ctrl+C while an action that can be stopped runs.

#include "platform/interrupt.h"

#include <gtest/gtest.h>

#include <csignal>

#include "support/posix/forked.h"

namespace oravin::test {
namespace {

TEST(Interrupts, TheFirstOneIsRememberedAndDoesNotEndTheProcess) {
  EXPECT_EQ(InAnotherProcess([] {
              platform::WatchInterrupts();
              if (platform::Interrupted()) return 1;
              std::raise(SIGINT);
              return platform::Interrupted() ? 0 : 2;
            }),
            0);
}

TEST(Interrupts, TheSecondOneEndsTheProcess) {
  EXPECT_EQ(InAnotherProcess([] {
              platform::WatchInterrupts();
              std::raise(SIGINT);
              std::raise(SIGINT);
              return 0;
            }),
            -1);
}

}  // namespace
}  // namespace oravin::test
