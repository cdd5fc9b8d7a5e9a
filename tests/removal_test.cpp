#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sched.h>
#include <sys/resource.h>
#include <unistd.h>

#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>

#include "launch_fixture.h"
#include "platform/files/files.h"

namespace {

/// Replaced in the whole test program; as the system has them until a test says otherwise.
unsigned processors = 0;
int processorQuestions = 0;
bool threadsCanStart = true;
std::function<void(std::string_view)> beforeUnlink;

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
  return original(unlinkat, "unlinkat")(folder, name, flags);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace quillon::platform {
namespace {

namespace fs = std::filesystem;
using tests::TemporaryFolder;

/// A tree to be removed, as a user whom locks stop.
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

  /// How many threads unlink. One alone is kept back near the end until another has come.
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
    threadsCanStart = canStart;
    const bool takesHelpers = count > 1 && canStart;
    const std::size_t unlinkers = unlinkersOf(folder.path() / "tree", takesHelpers);
    threadsCanStart = true;
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
    EXPECT_TRUE(removeItem(folder.path() / "tree"));
    EXPECT_TRUE(removeItem(folder.path() / "tree")) << "nothing there counts as removed";
    EXPECT_EQ(0, processorQuestions) << "little to remove";
  }
  processors = 0;
}

TEST_F(TreeRemoval, StaysInsideWhileFoldersMove) {
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

}  // namespace
}  // namespace quillon::platform
