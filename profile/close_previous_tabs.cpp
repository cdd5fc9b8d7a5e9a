#include <array>

#include "platform/files/files.h"
#include "profile/hygiene.h"

namespace quillon {
namespace {

constexpr std::array<const char*, 4> sessionFileNames{"Current Tabs", "Current Session",
                                                      "Last Tabs", "Last Session"};
constexpr const char* sessionFolder = "Sessions";

}  // namespace

void clearPreviousTabs(const std::string& userDataDir) {
  if (userDataDir.empty()) return;
  const auto folder = platform::Folder::open(platform::Path(userDataDir) / "Default",
                                             platform::Folder::LastLink::refuse);
  if (!folder) return;
  for (const char* name : sessionFileNames) folder->removeItem(name);
  folder->removeItem(sessionFolder);
}

}  // namespace quillon
