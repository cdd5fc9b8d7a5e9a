// Linked into each program and module of the build "coverage". gcov writes its counts at exit(3);
// these functions write them at _exit(2) and raise(3), too. Only a process that SIGKILL ends, or a
// signal from outside that it does not handle, loses its counts.

#include <stdlib.h>

void __gcov_dump(void);
void __gcov_reset(void);
int __real_raise(int number);

static void flush(void) {
  __gcov_dump();
  // Else a second call would write nothing.
  __gcov_reset();
}

__attribute__((constructor)) static void registerFlush(void) {
  (void)at_quick_exit(flush);
}

// Calls the flush() of this program and of each loaded module.
_Noreturn void __wrap__exit(int status) {
  quick_exit(status);
}

int __wrap_raise(int number) {
  flush();
  return __real_raise(number);
}
