#include <dirent.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>
#include <pthread.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <condition_variable>
#include <cstdarg>
#include <mutex>
#include <set>
#include <thread>

#include "launch_fixture.h"
#include "platform/files/files.h"
#include "platform/probe/mount_points.h"
#include "profile/profile_cleaning.h"

namespace {

/// Replaced in the whole test program. The functions behave like the system's until a test changes
/// that.
unsigned processors = 0;
int processorQuestions = 0;
bool threadsCanStart = true;
bool hasOpenat2 = true;
std::function<void(std::string_view)> beforeUnlink;
/// Names that begin like this cannot be removed.
constexpr std::string_view fixed = "fixed";
/// Simulates a file system that moves the names up when one is removed, so that the next one is not
/// read.
bool skipsAfterRemoval = false;
std::atomic<bool> hasRemoved = false;
/// The bytes that `new` may still allocate. Helper threads for which it fails are counted.
std::atomic<long> freeBytes = LONG_MAX / 2;
std::atomic<bool> helpersStarve = false;
std::atomic<int> starved = 0;

template <class Function>
Function* original(Function* /*replacement*/, const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's begin with "__".
extern "C" int sched_getaffinity(pid_t id, std::size_t size, cpu_set_t* set) noexcept {
  ++processorQuestions;
  if (processors == 0) return original(sched_getaffinity, "sched_getaffinity")(id, size, set);
  for (unsigned i = 0; i < processors; ++i) CPU_SET(i, set);
  return 0;
}

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*routine)(void*), void* argument) noexcept {
  if (!threadsCanStart) return EAGAIN;
  return original(pthread_create, "pthread_create")(thread, attributes, routine, argument);
}

extern "C" int unlinkat(int folder, const char* name, int flags) noexcept {
  if (beforeUnlink) beforeUnlink(name);
  if (std::string_view(name).starts_with(fixed)) return errno = EACCES, -1;
  hasRemoved = true;
  return original(unlinkat, "unlinkat")(folder, name, flags);
}

extern "C" dirent* readdir(DIR* stream) {
  if (hasRemoved.exchange(false) && skipsAfterRemoval) original(readdir, "readdir")(stream);
  return original(readdir, "readdir")(stream);
}

// NOLINTNEXTLINE(cert-dcl50-cpp): the system's is like that.
extern "C" long syscall(long number, ...) noexcept {
  if (number == SYS_openat2 && !hasOpenat2) return errno = ENOSYS, -1;
  std::array<long, 6> words{};
  va_list list;
  va_start(list, number);
  for (long& word : words) word = va_arg(list, long);
  va_end(list);
  const auto [a, b, c, d, e, f] = words;
  return original(syscall, "syscall")(number, a, b, c, d, e, f);
}

void* operator new(std::size_t size) {
  if (helpersStarve && ::gettid() != ::getpid()) {
    ++starved;
    throw std::bad_alloc();
  }
  void* const memory = std::malloc(size);
  const auto bytes = static_cast<long>(::malloc_usable_size(memory));
  if (freeBytes.fetch_sub(bytes) >= bytes) return memory;
  freeBytes += bytes;
  std::free(memory);
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  freeBytes += static_cast<long>(::malloc_usable_size(memory));
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  operator delete(memory);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace quillon::platform {
namespace {

namespace fs = std::filesystem;
using tests::TemporaryFolder;

/// A tree to remove, as a user whom permissions restrict.
class TreeRemoval : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(0, user_ == 0 ? ::seteuid(65534) : 0); }
  void TearDown() override {
    beforeUnlink = nullptr;
    EXPECT_EQ(0, ::seteuid(user_));
  }

  /// 1,700 files with links to "outside", a deep branch and two locked folders.
  static void plant(const TemporaryFolder& folder) {
    folder.write("outside/kept", "x");
    tests::Path deep = "tree/deep";
    for (int level = 0; level < 300; ++level) deep /= "d";
    folder.write(deep / "file", "x");
    for (int i = 0; i < 1700; ++i) {
      const tests::Path leaf =
          tests::Path("tree") / std::to_string(i % 10) / std::to_string(i % 100);
      folder.write(leaf / std::to_string(i), "x");
      if (i < 100) fs::create_symlink(folder.path() / "outside", folder.path() / leaf / "link");
    }
    folder.write("tree/3/unreadable/file", "x");
    folder.write("tree/5/unsearchable/sub/file", "x");
    fs::permissions(folder.path() / "tree/3/unreadable", fs::perms::none);
    fs::permissions(folder.path() / "tree/5/unsearchable", fs::perms::owner_read);
  }

  /// The number of threads that unlink. If there is one thread only, it is delayed near the end
  /// until another has started.
  std::size_t unlinkersOf(const Path& tree, bool awaitsSecond) {
    std::set<std::thread::id> unlinkers;
    beforeUnlink = [&, count = 0](std::string_view) mutable {
      std::unique_lock lock(mutex_);
      if (unlinkers.insert(std::this_thread::get_id()).second) changed_.notify_all();
      if (++count < 1600 || !awaitsSecond) return;
      changed_.wait_for(lock, std::chrono::seconds(20), [&] { return unlinkers.size() > 1; });
    };
    EXPECT_FALSE(removeItem(tree));
    beforeUnlink = nullptr;
    return unlinkers.size();
  }

 private:
  const uid_t user_ = ::geteuid();
  std::mutex mutex_;
  std::condition_variable changed_;
};

TEST_F(TreeRemoval, LeavesOnlyWhatIsLocked) {
  rlimit before{};
  ASSERT_EQ(0, ::getrlimit(RLIMIT_NOFILE, &before));
  for (const auto& [count, descriptors, canStart] :
       {std::tuple(1U, 16U, true), {2U, 16U, true}, {100U, 256U, true}, {8U, 16U, false}}) {
    const TemporaryFolder folder;
    plant(folder);
    const rlimit few{descriptors, before.rlim_max};
    ASSERT_EQ(0, ::setrlimit(RLIMIT_NOFILE, &few));
    processors = count;
    threadsCanStart = hasOpenat2 = canStart;
    const bool takesHelpers = count > 1 && canStart;
    const std::size_t unlinkers = unlinkersOf(folder.path() / "tree", takesHelpers);
    threadsCanStart = hasOpenat2 = true;
    ASSERT_EQ(0, ::setrlimit(RLIMIT_NOFILE, &before));
    EXPECT_EQ(takesHelpers, unlinkers > 1);
    EXPECT_GE(8U, unlinkers);
    EXPECT_TRUE(folder.has("outside/kept"));
    for (const char* locked : {"3/unreadable", "5/unsearchable"}) {
      fs::permissions(folder.path() / "tree" / locked, fs::perms::owner_all);
    }
    EXPECT_TRUE(folder.has("tree/3/unreadable/file") && folder.has("tree/5/unsearchable/sub/file"));
    const fs::recursive_directory_iterator left(folder.path() / "tree");
    EXPECT_EQ(7, std::distance(fs::begin(left), fs::end(left)));

    processorQuestions = 0;
    fs::permissions(folder.path(), fs::perms::owner_write | fs::perms::owner_exec);
    EXPECT_TRUE(removeItem(folder.path() / "tree")) << "its folder need not be readable";
    EXPECT_TRUE(removeItem(folder.path() / "tree")) << "nothing there counts as removed";
    EXPECT_EQ(0, processorQuestions) << "little to remove";
  }
  processors = 0;
}

TEST_F(TreeRemoval, TakesLittleMemoryAndLittleMoreThanOneLook) {
  const TemporaryFolder folder;
  for (int i = 0; i < 1200; ++i) {
    const std::string name = std::to_string(i) + std::string(200, 'x');
    folder.write("tree/" + name, "x");
    fs::create_directory(folder.path() / "tree" / ('d' + name));
    folder.write("tree/" + std::string(fixed) + name, "x");
  }
  const auto tree = Folder::open(folder.path());
  const std::array<std::string, 1> items{"tree"};
  int tries = 0;
  beforeUnlink = [&](std::string_view name) {
    if (name.starts_with(fixed)) ++tries;
  };
  skipsAfterRemoval = true;
  processors = 1;
  constexpr long kibibytes = 450;
  freeBytes = kibibytes << 10;
  tree->removeItems(items);
  freeBytes = LONG_MAX / 2;
  skipsAfterRemoval = false;
  processors = 0;
  EXPECT_EQ(1200, std::distance(fs::directory_iterator(folder.path() / "tree"), {}));
  EXPECT_GE(3 * 1200, tries);
}

TEST_F(TreeRemoval, SurvivesWantOfMemory) {
  processors = 100;
  const std::array<std::string, 1> items{"tree"};
  for (long bytes = 0; bytes <= 8000; bytes += 800) {
    const TemporaryFolder folder;
    plant(folder);
    const auto parent = Folder::open(folder.path());
    freeBytes = bytes;
    parent->removeItems(items);
    freeBytes = LONG_MAX / 2;
  }
  const TemporaryFolder folder;
  plant(folder);
  beforeUnlink = [count = 0](std::string_view) mutable {
    if (++count < 1600) return;
    for (int i = 0; i < 20000 && starved == 0; ++i) ::usleep(1000);
  };
  helpersStarve = true;
  EXPECT_FALSE(removeItem(folder.path() / "tree"));
  helpersStarve = false;
  processors = 0;
  EXPECT_LT(0, starved);
  EXPECT_EQ(2, std::distance(fs::directory_iterator(folder.path() / "tree"), {}));
}

TEST(ProfileRemoval, EntersNoOtherMount) {
  if (::unshare(CLONE_NEWNS) != 0) GTEST_SKIP() << "a mount takes root";
  ASSERT_EQ(0, ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr));
  using enum ProfileItem::Base;
  const ProfileItems items{{defaultProfile, "IndexedDB"},
                           {defaultProfile, "Network/Cookies"},
                           {defaultProfile, "Cookies"},
                           {root, "ShaderCache"}};
  for (const bool isKnown : {true, false}) {
    const TemporaryFolder folder;
    // Without openat2, other mounts are recognised by their devices.
    fs::create_directory(folder.path() / "outside");
    if (!isKnown) ::mount("none", (folder.path() / "outside").c_str(), "tmpfs", 0, nullptr);
    folder.write("outside/Cookies", "x");
    std::vector<Path> mounts;
    for (const char* name : {"IndexedDB/a b\\", "Network", "Cookies"}) {
      const tests::Path place = folder.path() / "Default" / name;
      const bool isFile = place.filename() == "Cookies";
      isFile ? folder.write(place, "x") : (void)fs::create_directories(place);
      const tests::Path source = folder.path() / (isFile ? "outside/Cookies" : "outside");
      ASSERT_EQ(0, ::mount(source.c_str(), place.c_str(), nullptr, MS_BIND, nullptr));
      mounts.emplace_back(place.native());
    }
    folder.write("Default/IndexedDB/gone/file", "x");
    folder.write("ShaderCache/file", "x");
    EXPECT_EQ(mounts, findSkippedMounts(mountPoints(), folder.path(), items));
    hasOpenat2 = isKnown;
    removeFromProfile(folder.path(), items);
    hasOpenat2 = true;
    EXPECT_TRUE(folder.has("outside/Cookies") && folder.has("Default/Cookies"));
    EXPECT_FALSE(folder.has("Default/IndexedDB/gone") || folder.has("ShaderCache"));
    for (const Path& mount : mounts) EXPECT_EQ(0, ::umount2(mount.cText(), MNT_DETACH));
    ::umount2((folder.path() / "outside").c_str(), MNT_DETACH);
  }
}

TEST_F(TreeRemoval, StaysInsideWhileFoldersMove) {
  for (const bool isKnown : {true, false}) {
    hasOpenat2 = isKnown;
    const TemporaryFolder folder;
    for (const char* name : {"x", "y"}) {
      folder.write(tests::Path("tree") / name / "sub" / name, "x");
      folder.write(tests::Path("outside") / name / "sub/kept", "x");
    }
    folder.write("other/first", "x");
    folder.write("other/sub/file", "x");
    beforeUnlink = [&, moved = false](std::string_view name) mutable {
      if (name == "first") {
        fs::rename(folder.path() / "other/sub", folder.path() / "moved");
        fs::create_symlink("../outside/x/sub", folder.path() / "other/sub");
      } else if (name.size() == 1 && !std::exchange(moved, true)) {
        fs::rename(folder.path() / "tree" / name, folder.path() / "outside/moved");
      }
    };
    EXPECT_TRUE(removeItem(folder.path() / "tree")) << "what is still there goes all the same";
    EXPECT_FALSE(removeItem(folder.path() / "other"));
    EXPECT_TRUE(folder.has("outside/x/sub/kept") && folder.has("outside/y/sub/kept"));
  }
  hasOpenat2 = true;
}

}  // namespace
}  // namespace quillon::platform
