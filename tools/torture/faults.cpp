// Makes each call of a launch fail once, with each error.

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>

#include "torture.h"
#include "trial.h"

namespace quillon::torture {
namespace {

constexpr std::array<const char*, 21> functions{
    "open",      "openat",  "read",     "write",  "close",   "stat",        "fstat",
    "fstatat",   "access",  "readlink", "rename", "unlink",  "unlinkat",    "mkdir",
    "fdopendir", "readdir", "pipe2",    "poll",   "waitpid", "posix_spawn", "pthread_create",
};
constexpr std::array<int, 6> errors{ENOSPC, EACCES, EINTR, EMFILE, EIO, ENOMEM};

/// How many launches ended with which exit status.
using Endings = std::map<int, int>;

/// False when the launch made no such call.
bool injectFault(const std::string& overlay, const char* function, int number, int error,
                 Tally& tally, Endings& endings) {
  const Trial trial(overlay);
  const Path mark = trial.folder() / "mark";
  const std::string fault =
      std::string(function) + " " + std::to_string(number) + " " + std::to_string(error);
  const int status = waitForAll(
      trial.start({"LD_PRELOAD=" FAULT_SHIM, "FAULT=" + fault, "FAULT_MARK=" + mark.native()}));
  if (!std::filesystem::exists(mark)) return false;
  ++endings[exitStatus(status)];
  tally.add(fault + " (" + std::strerror(error) + ")",
            {outcomeComplaint(status, trial.engineStarts()), trial.reportComplaint(),
             trial.leftoverComplaint(), trial.outsideComplaint()});
  return true;
}

}  // namespace

int runFaults(const std::optional<std::string>& proxy) {
  const std::string overlay = overlayFor(proxy);
  Tally tally(proxy ? "faults, windowed" : "faults, passthrough");
  Endings endings;
  for (const char* function : functions) {
    for (const int error : errors) {
      int number = 1;
      while (injectFault(overlay, function, number, error, tally, endings)) ++number;
    }
  }
  for (const auto& [status, launches] : endings) {
    std::printf("exit status %d: %d launches\n", status, launches);
  }
  return tally.finish();
}

}  // namespace quillon::torture
