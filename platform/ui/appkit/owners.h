#pragma once

#import <Foundation/Foundation.h>

#include <memory>

/// Owners of what the toolkit allocates: references are counted by hand.
namespace quillon::platform::ui {

struct ReleaseObject {
  template <class T>
  void operator()(T* object) const {
    [object release];
  }
};

/// Owns one reference to an object: what "alloc" gave, or what was retained.
template <class T>
using Owned = std::unique_ptr<T, ReleaseObject>;

/// Releases at its end what calls have left to a pool since its beginning. The event loop has pools
/// of its own; what is called from elsewhere makes one.
class AutoreleasePool {
 public:
  AutoreleasePool() : pool_([[NSAutoreleasePool alloc] init]) {}
  AutoreleasePool(const AutoreleasePool&) = delete;
  AutoreleasePool& operator=(const AutoreleasePool&) = delete;
  ~AutoreleasePool() { [pool_ drain]; }

 private:
  NSAutoreleasePool* pool_;
};

}  // namespace quillon::platform::ui
