#pragma once

#include <condition_variable>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/core/descriptor.h"

namespace quillon::platform {

/// Folders to be removed with everything in them: their names in an open folder.
struct RemovalShare {
  UniqueFd parent;
  std::vector<std::string> folders;
};

/// Those who remove a tree together: the calling thread and helpers, as many as there are
/// processors, at most eight. A helper starts when somebody who has already removed much has
/// something to share. One that cannot be started is done without.
class RemovalCrew {
 public:
  /// Removes a share and what of it nobody else takes over. Throws nothing. Any thread.
  void remove(RemovalShare share);

  /// Calls `work`. If it throws, because memory or threads run out, some of the work is left.
  template <class Work>
  void attempt(Work work) {
    try {
      work();
    } catch (const std::exception&) {
      giveUpShare();
    }
  }

  /// Whether somebody would take a share now, from one who has removed so many entries. Any thread.
  bool wantsShare(std::size_t removedCount);

  /// Never blocks on the work. Throws if memory runs out. Any thread.
  void offer(RemovalShare share);

  /// A walk could not go on and leaves the rest of its share. Any thread.
  void giveUpShare();

  /// Takes part until all shares are done and ends the helpers; from then on no share is wanted.
  /// True when some of the work may be left: a share was given up, or walks were in each other's
  /// way. Must be called before the crew is destroyed.
  bool disband();

 private:
  bool mayGrow();
  void startHelper();
  void work();

  /// Guards everything below; the helpers themselves are the calling thread's at the end.
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::thread> helpers_;
  std::vector<RemovalShare> offers_;
  std::size_t size_ = 0;  ///< how many may take part, the calling thread counted; 0: not yet known
  std::size_t idleCount_ = 0;
  bool mayBeLeft_ = false;
  bool isDone_ = false;
};

}  // namespace quillon::platform
