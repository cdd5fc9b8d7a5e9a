#include "launch_fixture.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace quillon::tests {
namespace {

std::vector<char*> pointersTo(const std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  for (const std::string& string : strings) pointers.push_back(const_cast<char*>(string.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

EngineFacts parseFacts(const std::string& output) {
  EngineFacts facts;
  std::istringstream stream(output);
  for (std::string fact; std::getline(stream, fact, '\0');)
    facts[fact[0]].push_back(fact.substr(1));
  return facts;
}

/// Reads until all processes have closed the other end: the launcher and its engine.
std::string readToEnd(int descriptor) {
  std::string text;
  std::array<char, 65536> chunk;
  for (ssize_t got = 0; (got = ::read(descriptor, chunk.data(), chunk.size())) > 0;) {
    text.append(chunk.data(), static_cast<std::size_t>(got));
  }
  ::close(descriptor);
  return text;
}

}  // namespace

std::vector<std::string> sortedFacts(const Outcome& outcome, char letter) {
  if (!outcome.engine.contains(letter)) return {"(no engine)"};
  std::vector<std::string> facts = outcome.engine.at(letter);
  std::sort(facts.begin(), facts.end());
  return facts;
}

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "quillon-test.XXXXXX").native();
  path_ = std::filesystem::canonical(::mkdtemp(pattern.data()));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TemporaryFolder::write(const Path& file, const std::string& content) const {
  std::filesystem::create_directories((path_ / file).parent_path());
  std::ofstream(path_ / file, std::ios::binary) << content;
}

bool TemporaryFolder::has(const Path& file) const {
  return std::filesystem::symlink_status(path_ / file).type() !=
         std::filesystem::file_type::not_found;
}

std::string contentOf(const Path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

Launch::Launch(const std::string& overlay)
    : executable(NIMBRA_EXECUTABLE), engine(STAND_IN_ENGINE) {
  profile.write("command-line.json", overlay);
  arguments = {"--user-data-dir=" + profile.path().native()};
  environment = {"HOME=" + home.path().native(), "CFFIXED_USER_HOME=" + home.path().native(),
                 "PATH=/usr/bin:/bin"};
  for (const char* name : {"CURL_HOME", "TSAN_OPTIONS"}) {
    const char* value = std::getenv(name);
    if (value != nullptr) environment.push_back(std::string(name) + "=" + value);
  }
}

pid_t Launch::start(int output) const {
  constexpr int mostDescriptors = 1024;
  std::vector<std::string> argumentVector{executable.native()};
  argumentVector.insert(argumentVector.end(), arguments.begin(), arguments.end());
  std::vector<std::string> entries = environment;
  entries.push_back("QUILLON_ENGINE_BIN=" + engine);
  const std::vector<char*> argumentPointers = pointersTo(argumentVector);
  const std::vector<char*> entryPointers = pointersTo(entries);
  const Path errorsFile = home.path() / "stderr";
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(::open(errorsFile.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0600), STDERR_FILENO);
  for (int other = STDERR_FILENO + 1; other < mostDescriptors; ++other) ::close(other);
  prepare();
  ::execve(executable.c_str(), argumentPointers.data(), entryPointers.data());
  ::_exit(127);
}

Outcome Launch::run() const {
  std::array<int, 2> output{};
  if (::pipe(output.data()) != 0) return {};
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = start(output[1]);
  ::close(output[1]);
  int status = 0;
  ::waitpid(child, &status, 0);
  const auto elapsed = std::chrono::steady_clock::now() - begin;
  Outcome outcome;
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  outcome.engine = parseFacts(readToEnd(output[0]));
  outcome.errors = contentOf(home.path() / "stderr");
  outcome.elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(elapsed);
  return outcome;
}

}  // namespace quillon::tests
