// Replaces the engine in tests: reports on standard output how it was started, and exits. Each fact
// is a letter and a text, ended by a NUL:
//   A an argument, argument zero first     E an environment entry
//   S "leader" if it leads its session
// If there is /proc, also:
//   F an open descriptor                   L the text of /proc/self/status
// With $ENGINE_LOG it writes a byte to that file instead.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

void tell(char kind, const std::string& text) {
  std::fputc(kind, stdout);
  std::fwrite(text.c_str(), 1, text.size() + 1, stdout);
}

void tellDescriptors() {
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", none)) {
    std::error_code gone;
    const auto target = std::filesystem::read_symlink(entry.path(), gone);
    // The listing itself uses a descriptor.
    if (!gone && target.native().find("/proc/") != 0) {
      tell('F', entry.path().filename());
    }
  }
}

}  // namespace

int main(int count, char* arguments[], char* environment[]) {
  if (const char* log = std::getenv("ENGINE_LOG")) {
    return std::ofstream(log, std::ios::app).put('E').flush() ? 0 : 1;
  }
  for (int i = 0; i < count; ++i) tell('A', arguments[i]);
  for (char** entry = environment; *entry != nullptr; ++entry) tell('E', *entry);
  tellDescriptors();
  std::ifstream status("/proc/self/status");
  tell('L', {std::istreambuf_iterator<char>(status), {}});
  if (::getsid(0) == ::getpid()) tell('S', "leader");
  return std::fflush(stdout);
}
