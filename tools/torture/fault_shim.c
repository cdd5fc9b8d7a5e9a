// Preloaded before the C library. Makes one call of the launcher fail and skips its pauses.
//
//   FAULT, FAULT_NUMBER, FAULT_ERROR  that call of the function fails with that errno value
//   FAULT_MARK                        a file that is created when it does
//
// Only calls from the bundle are counted, not those of a toolkit. The launcher's children are not
// affected. Calls inside the C library and in the dynamic loader cannot be intercepted. Do not
// include a header that declares one of the functions below.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdlib.h>
#include <string.h>
#include <sys/syscall.h>

// On 64-bit systems up to six integers and pointers are passed in registers, so one signature can
// forward a call of any function below.
typedef long Word;
typedef Word (*Function)(Word, Word, Word, Word, Word, Word);
Word syscall(Word a, Word b, Word c, Word d, Word e, Word f);

/// The return value of a failing call. A failing close closes the descriptor anyway.
enum Failure { minus, null, number, closed };

static const char* plannedFunction = "";
static const char* mark = "";
static int plannedNumber, plannedError, calls;

__attribute__((constructor)) static void readPlan(void) {
  if (getenv("FAULT") != NULL) {
    plannedFunction = getenv("FAULT");
    plannedNumber = atoi(getenv("FAULT_NUMBER"));
    plannedError = atoi(getenv("FAULT_ERROR"));
    mark = getenv("FAULT_MARK");
  }
  // Removed from the environment that the children get. The strings stay valid.
  const char* const names[] = {"FAULT", "FAULT_NUMBER", "FAULT_ERROR", "FAULT_MARK", "LD_PRELOAD"};
  for (int i = 0; i < 5; ++i) unsetenv(names[i]);
}

static int isOurs(const void* caller) {
  Dl_info place;
  return dladdr(caller, &place) != 0 && strstr(place.dli_fname, "/Contents/") != NULL;
}

static int isPlanned(const char* name, const void* caller) {
  if (strcmp(name, plannedFunction) != 0 || !isOurs(caller)) return 0;
  if (__atomic_add_fetch(&calls, 1, __ATOMIC_SEQ_CST) != plannedNumber) return 0;
  const int create = 0101;
  syscall(SYS_close, syscall(SYS_openat, -100, (Word)mark, create, 0600, 0), 0, 0, 0, 0);
  return 1;
}

/// Inlined, so that the return address is that of the intercepted function.
__attribute__((always_inline)) static inline Word call(const char* name, enum Failure failure,
                                                       Word a, Word b, Word c, Word d, Word e,
                                                       Word f) {
  const int fails = isPlanned(name, __builtin_return_address(0));
  Function next;
  *(void**)&next = dlsym(RTLD_NEXT, name);
  if (!fails) return next(a, b, c, d, e, f);
  if (failure == number) return plannedError;
  if (failure == closed) next(a, b, c, d, e, f);
  errno = plannedError;
  return failure == null ? 0 : -1;
}

// clang-format off
Word open(Word a, Word b, Word c) { return call("open", minus, a, b, c, 0, 0, 0); }
Word openat(Word a, Word b, Word c, Word d) { return call("openat", minus, a, b, c, d, 0, 0); }
Word syscall(Word a, Word b, Word c, Word d, Word e, Word f) { return call("syscall", minus, a, b, c, d, e, f); }
Word read(Word a, Word b, Word c) { return call("read", minus, a, b, c, 0, 0, 0); }
Word write(Word a, Word b, Word c) { return call("write", minus, a, b, c, 0, 0, 0); }
Word close(Word a) { return call("close", closed, a, 0, 0, 0, 0, 0); }
Word stat(Word a, Word b) { return call("stat", minus, a, b, 0, 0, 0, 0); }
Word fstat(Word a, Word b) { return call("fstat", minus, a, b, 0, 0, 0, 0); }
Word lstat(Word a, Word b) { return call("lstat", minus, a, b, 0, 0, 0, 0); }
Word fchmodat(Word a, Word b, Word c, Word d) { return call("fchmodat", minus, a, b, c, d, 0, 0); }
Word fchmod(Word a, Word b) { return call("fchmod", minus, a, b, 0, 0, 0, 0); }
Word access(Word a, Word b) { return call("access", minus, a, b, 0, 0, 0, 0); }
Word readlink(Word a, Word b, Word c) { return call("readlink", minus, a, b, c, 0, 0, 0); }
Word rename(Word a, Word b) { return call("rename", minus, a, b, 0, 0, 0, 0); }
Word unlink(Word a) { return call("unlink", minus, a, 0, 0, 0, 0, 0); }
Word unlinkat(Word a, Word b, Word c) { return call("unlinkat", minus, a, b, c, 0, 0, 0); }
Word mkdirat(Word a, Word b, Word c) { return call("mkdirat", minus, a, b, c, 0, 0, 0); }
Word fdopendir(Word a) { return call("fdopendir", null, a, 0, 0, 0, 0, 0); }
Word readdir(Word a) { return call("readdir", null, a, 0, 0, 0, 0, 0); }
Word pipe2(Word a, Word b) { return call("pipe2", minus, a, b, 0, 0, 0, 0); }
Word poll(Word a, Word b, Word c) { return call("poll", minus, a, b, c, 0, 0, 0); }
Word waitpid(Word a, Word b, Word c) { return call("waitpid", minus, a, b, c, 0, 0, 0); }
Word waitid(Word a, Word b, Word c, Word d) { return call("waitid", minus, a, b, c, d, 0, 0); }
Word posix_spawn(Word a, Word b, Word c, Word d, Word e, Word f) { return call("posix_spawn", number, a, b, c, d, e, f); }
Word pthread_create(Word a, Word b, Word c, Word d) { return call("pthread_create", number, a, b, c, d, 0, 0); }
// Skips the launcher's pauses, but not those of a toolkit.
Word nanosleep(Word a, Word b) { return isOurs(__builtin_return_address(0)) ? 0 : call("nanosleep", minus, a, b, 0, 0, 0, 0); }
