#include "platform/system/system.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>

#include "platform/system/child_leash.h"
#include "platform/system/environment.h"

namespace quillon::platform {

std::uint64_t physicalMemory() {
  const long pages = ::sysconf(_SC_PHYS_PAGES);
  const long pageBytes = ::sysconf(_SC_PAGESIZE);
  if (pages <= 0 || pageBytes <= 0) return 0;
  return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageBytes);
}

Path homeFolder() {
  const auto home = startEnvironment().value("HOME");
  if (home && !home->empty()) return *home;
  passwd entry{};
  passwd* found = nullptr;
  std::array<char, 16384> strings{};
  ::getpwuid_r(::getuid(), &entry, strings.data(), strings.size(), &found);
  return found == nullptr || entry.pw_dir == nullptr ? "/" : entry.pw_dir;
}

Path perUserFolder() {
  return homeFolder() / "Library/Application Support/Quillon";
}

std::string errorText(int errorNumber) {
  return std::strerror(errorNumber);
}

void writeToStandardError(std::string_view text) {
  (void)std::signal(SIGPIPE, SIG_IGN);
  (void)std::signal(SIGXFSZ, SIG_IGN);
  if (::write(STDERR_FILENO, text.data(), text.size()) < 0) return;
}

void endProcess(int status) {
  while (!killLeashedChild()) ::pause();
  ::_exit(status);
}

}  // namespace quillon::platform
