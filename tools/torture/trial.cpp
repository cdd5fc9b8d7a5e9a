#include "trial.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "platform/files/files.h"
#include "platform/text/json.h"

namespace quillon::torture {
namespace {

namespace fs = std::filesystem;

constexpr const char* resultName = ".quillon-launcher-result.json";
constexpr const char* errorName = ".quillon-launcher-error.json";
constexpr const char* untouched = "nobody may touch this";

void write(const Path& file, const std::string& text) {
  fs::create_directories(file.parent_path());
  std::ofstream(file) << text;
}

Strings environmentOf(const Path& folder, const Strings& more) {
  Strings entries{"PATH=/usr/bin:/bin", "HOME=" + (folder / "home").native(),
                  "QUILLON_ENGINE_BIN=" COUNTED_ENGINE,
                  "ENGINE_LOG=" + (folder / "engine-log").native()};
  for (const char* name : {"CURL_HOME", "DISPLAY"}) {
    if (const char* value = std::getenv(name)) entries.push_back(std::string(name) + "=" + value);
  }
  entries.insert(entries.end(), more.begin(), more.end());
  return entries;
}

std::vector<char*> pointersTo(Strings& strings) {
  std::vector<char*> pointers;
  for (std::string& string : strings) pointers.push_back(string.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<Path> reportFolders(const Path& folder) {
  return {folder / "profile", folder / "home/Library/Application Support/Quillon"};
}

}  // namespace

void adoptOrphans() {
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
}

int waitForAll(pid_t child) {
  struct sigaction interrupt {};
  interrupt.sa_handler = [](int) {};
  ::sigaction(SIGALRM, &interrupt, nullptr);
  ::alarm(patienceSeconds);
  int childStatus = 0;
  for (;;) {
    int status = 0;
    const pid_t ended = ::waitpid(-1, &status, 0);
    if (ended == child) childStatus = status;
    if (ended == -1 && errno == EINTR) ::kill(child, SIGKILL);
    if (ended == -1 && errno == ECHILD) break;
  }
  ::alarm(0);
  return childStatus;
}

pid_t start(const Execution& execution, const std::function<void()>& enter) {
  Strings arguments = execution.arguments;
  Strings environment = execution.environment;
  const std::vector<char*> argumentVector = pointersTo(arguments);
  const std::vector<char*> entries = pointersTo(environment);
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
  enter();
  ::execve(NIMBRA_EXECUTABLE, argumentVector.data(), entries.data());
  ::_exit(127);
}

int exitStatus(int waitStatus) {
  return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : -1;
}

Trial::Trial(const std::string& overlay) {
  std::string pattern = (fs::temp_directory_path() / "quillon-torture.XXXXXX").native();
  folder_ = ::mkdtemp(pattern.data());
  write(folder_ / "outside/file", untouched);
  write(folder_ / "outside/folder/file", untouched);
  write(folder_ / "profile/command-line.json", overlay);
  write(folder_ / "profile/Default/History", untouched);
  fillProfile();
}

Trial::~Trial() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void Trial::fillProfile() const {
  const Path stored = folder_ / "profile/Default";
  write(stored / "Current Tabs", "tabs");
  write(stored / "Cookies", "cookies");
  write(stored / "Local Storage/leveldb/000003.log", "log");
  write(stored / "Sessions/Session_1", "session");
  std::error_code exists;
  fs::create_symlink("../../outside/file", stored / "Last Session", exists);
  fs::create_directory_symlink("../../outside", stored / "IndexedDB", exists);
  fs::create_directory_symlink("../../../outside", stored / "Local Storage/link", exists);
}

Execution Trial::execution(const Strings& environment) const {
  const Path profile = folder_ / "profile";
  return {{NIMBRA_EXECUTABLE, "--user-data-dir=" + profile.native()},
          environmentOf(folder_, environment),
          profile};
}

std::size_t Trial::engineStarts() const {
  std::error_code none;
  const auto bytes = fs::file_size(folder_ / "engine-log", none);
  return none ? 0 : bytes;
}

bool Trial::hasResult() const {
  return fs::exists(folder_ / "profile" / resultName);
}

void Trial::removeResult() const {
  fs::remove(folder_ / "profile" / resultName);
}

std::optional<std::string> Trial::reportComplaint() const {
  for (const Path& folder : reportFolders(folder_)) {
    for (const char* name : {resultName, errorName}) {
      const auto text = platform::readFile(folder / name);
      if (!text) continue;
      if (!text->ends_with('\n') || !platform::parseJsonObject(*text)) {
        return std::string(name) + " is not whole: " + *text;
      }
    }
  }
  return std::nullopt;
}

std::optional<std::string> Trial::leftoverComplaint() const {
  for (const Path& folder : reportFolders(folder_)) {
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(folder, none)) {
      const std::string name = entry.path().filename();
      if (name.starts_with(".quillon") && name != resultName && name != errorName) {
        return "left over: " + name;
      }
    }
  }
  return std::nullopt;
}

std::optional<std::string> Trial::outsideComplaint() const {
  for (const char* file : {"outside/file", "outside/folder/file", "profile/Default/History"}) {
    if (platform::readFile(folder_ / file) != untouched) return std::string(file) + " was touched";
  }
  return std::nullopt;
}

std::string overlayFor(const std::optional<std::string>& proxy) {
  std::string overlay = R"({"close-previous-tabs": true, "webgl-profile": "mac-intel-iris",
    "granular-storage-reset": {"all": true}, "cdp-tcp-port": "9222")";
  if (proxy) {
    overlay += R"(, "auto-geo": true, "auto-lang": true, "proxy-server": ")" + *proxy + "\"";
  }
  return overlay + "}";
}

std::optional<std::string> outcomeComplaint(int waitStatus, std::size_t engineStarts) {
  const std::string starts = std::to_string(engineStarts) + " engine starts";
  const int status = exitStatus(waitStatus);
  if (status != 0 && status != 1 && status != 42) return "exit status " + std::to_string(status);
  if (engineStarts == (status == 0 ? 1 : 0)) return std::nullopt;
  return starts + " with exit status " + std::to_string(status);
}

void Tally::add(const std::string& what,
                const std::vector<std::optional<std::string>>& complaints) {
  ++tried_;
  bool isWrong = false;
  for (const auto& complaint : complaints) {
    if (!complaint) continue;
    isWrong = true;
    std::printf("%s: %s: %s\n", name_.c_str(), what.c_str(), complaint->c_str());
  }
  wrong_ += isWrong ? 1 : 0;
}

int Tally::finish() const {
  std::printf("%s: %zu tried, %zu wrong\n", name_.c_str(), tried_, wrong_);
  return wrong_ == 0 ? 0 : 1;
}

}  // namespace quillon::torture
