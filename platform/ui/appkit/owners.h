#pragma once

#import <Foundation/Foundation.h>

#include <memory>

/// Owners of objects that the toolkit allocates. The module is compiled without automatic reference
/// counting.
namespace quillon::platform::ui {

struct ReleaseObject {
  template <class T>
  void operator()(T* object) const {
    [object release];
  }
};

/// Owns one reference to an object that was allocated or retained.
template <class T>
using Owned = std::unique_ptr<T, ReleaseObject>;

/// Its destructor releases the objects that were autoreleased during its lifetime. The event loop
/// has its own pools. Functions that are not called by the event loop make one.
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
