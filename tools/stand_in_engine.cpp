// Stands in for the engine: tells on standard output how it was started and ends. Each fact is a
// letter and a text, ended by a NUL:
//   A an argument, argument zero first     E an environment entry
//   S "leader" when it leads its session
// and, where there is /proc, also:
//   F an open descriptor and its target    L the text of /proc/self/status
#include <unistd.h>

#include <cstdio>
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
    // The listing itself takes a descriptor.
    if (!gone && target.native().find("/proc/") != 0) {
      tell('F', entry.path().filename().native() + " " + target.native());
    }
  }
}

}  // namespace

int main(int count, char* arguments[], char* environment[]) {
  for (int i = 0; i < count; ++i) tell('A', arguments[i]);
  for (char** entry = environment; *entry != nullptr; ++entry) tell('E', *entry);
  tellDescriptors();
  std::ifstream status("/proc/self/status");
  tell('L', {std::istreambuf_iterator<char>(status), {}});
  if (::getsid(0) == ::getpid()) tell('S', "leader");
  return std::fflush(stdout);
}
