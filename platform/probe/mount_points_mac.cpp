#include "platform/probe/mount_points.h"

#include <sys/mount.h>

#include <cstdlib>
#include <string>

namespace quillon::platform {

std::vector<Path> mountPoints() {
  struct statfs* mounts = nullptr;
  const int count = ::getmntinfo_r_np(&mounts, MNT_NOWAIT);
  std::vector<Path> points;
  for (int i = 0; i < count; ++i) points.emplace_back(std::string(mounts[i].f_mntonname));
  if (count > 0) std::free(mounts);
  return points;
}

}  // namespace quillon::platform
