#include "desk/write_plan.h"

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/write_help.h"
#include "files/look_up.h"
#include "platform/virtual_store.h"

namespace oravin {

namespace {

/// Allowance for file system overhead and temporary files.
constexpr std::uint64_t spareRoom = std::uint64_t{1} << 20;

void Refuse(Host& host, const std::string& path, const std::string& reason) {
  Show(host, RefusalToWrite(host.files, path, reason, platform::VirtualStore()), Icon::exclamation);
}

void RefuseRoom(Host& host, const std::string& folder, std::uint64_t needed, std::uint64_t free) {
  Show(host,
       "The disk of " + folder + " is too full: " + Grouped(needed) + " bytes are needed there and " + Grouped(free) +
           " are free.\nMake room and try again. Nothing has been changed.",
       Icon::exclamation);
}

bool RoomFor(Host& host, const WritePlan& plan) {
  // Folders whose disks have exactly the same free space are assumed to be on one disk, which must have room for all of
  // them.
  std::map<std::uint64_t, std::uint64_t> neededByFree;
  for (const auto& [folder, bytes] : plan.room) {
    const auto free = FreeSpace(host.files, folder);
    if (!free) continue;
    const std::uint64_t needed = neededByFree[*free] += bytes;
    if (needed + spareRoom <= *free) continue;
    RefuseRoom(host, folder, needed + spareRoom, *free);
    return false;
  }
  return true;
}

}  // namespace

void NeedRoom(WritePlan& plan, const std::string& folder, std::uint64_t bytes) { plan.room[folder] += bytes; }

bool ReadyToWrite(Host& host, const WritePlan& plan) {
  for (const std::string& folder : plan.folders) {
    const std::string reason = WhyNoNewFiles(host.files, folder);
    if (reason.empty()) continue;
    Refuse(host, folder, reason);
    return false;
  }
  for (const std::string& file : plan.files) {
    const LookUp found = LookFor(host.files, file);
    if (found.presence == Presence::absent) continue;
    const std::string reason = found.presence == Presence::failed ? found.reason : WhyNotWritable(host.files, file);
    if (reason.empty()) continue;
    Refuse(host, file, reason);
    return false;
  }
  return RoomFor(host, plan);
}

}  // namespace oravin
