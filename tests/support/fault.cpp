#include "support/fault.h"

#include <gtest/gtest.h>

#include <array>

#include "base/file_error.h"

namespace oravin::test {

namespace {

/// No run of the tests is anywhere near as long; without a bound a run whose faults never end would not either.
constexpr int mostOperations = 1000000;

}  // namespace

void Watch(Files& files, Fault& fault) {
  files.before = [&fault](const FileOperation& operation) {
    // Questions change nothing, and there are very many of them. What fails of a clean-up is passed over.
    if (IsQuestion(operation.kind) || operation.kind == FileOperation::Kind::cleanUp) return;
    if (++fault.count != fault.at) return;
    fault.happened = true;
    fault.what = InWords(operation);
    if (fault.kind == FaultKind::stop) throw ProcessStopped{};
    throw FileError("could not " + fault.what.substr(0, fault.what.find(' ')), ChangedPath(operation), faultReason);
  };
}

bool Stopped(const std::function<void()>& run) {
  try {
    run();
    return false;
  } catch (const ProcessStopped&) {
    return true;
  }
}

int AtEachOperation(FaultKind kind, const std::function<void(Fault&)>& attempt) {
  for (int at = 1; at <= mostOperations; ++at) {
    SCOPED_TRACE((kind == FaultKind::stop ? "stopped before operation " : "failing at operation ") +
                 std::to_string(at));
    Fault fault{kind, at, 0, false, {}};
    attempt(fault);
    if (!fault.happened) return fault.count;
    if (testing::Test::HasFatalFailure()) return fault.count;
  }
  ADD_FAILURE() << "the run never goes through";
  return mostOperations;
}

std::string InWords(const FileOperation& operation) {
  static constexpr std::array<const char*, 13> kinds = {"open",  "read",         "write",       "cut",      "flush",
                                                        "erase", "rename",       "make",        "clean up", "look",
                                                        "list",  "ask to write", "ask for room"};
  return kinds.at(static_cast<std::size_t>(operation.kind)) + std::string(" ") + ChangedPath(operation);
}

}  // namespace oravin::test
