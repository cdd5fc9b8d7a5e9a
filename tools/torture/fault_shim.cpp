// Loaded in front of the C library: makes one call of the launcher fail, and lets no time pass in
// its pauses.
//
//   FAULT       "FUNCTION NUMBER ERROR": that call of the function fails with that errno value
//   FAULT_MARK  a file that is created when it does
//
// The launcher's children are left alone. Out of reach is what the C library calls inside itself,
// and with it the dynamic loader.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

// On 64-bit systems integers and pointers, up to six of them, travel in registers: one signature
// passes on a call of any function below.
using Word = long;

char plannedFunction[32] = "";
int plannedNumber = 0;
int plannedError = 0;
const char* mark = "";
std::atomic<int> calls = 0;

__attribute__((constructor)) void readPlan() {
  const char* plan = std::getenv("FAULT");
  if (const char* name = std::getenv("FAULT_MARK")) mark = name;
  if (plan != nullptr) {
    std::sscanf(plan, "%31s %d %d", plannedFunction, &plannedNumber, &plannedError);
  }
  // Takes them out of the environment that the children get; the strings stay.
  for (const char* name : {"FAULT", "FAULT_MARK", "LD_PRELOAD"}) ::unsetenv(name);
}

bool isPlanned(std::string_view name) {
  if (name != plannedFunction || ++calls != plannedNumber) return false;
  const long file = ::syscall(SYS_openat, AT_FDCWD, mark, O_CREAT | O_WRONLY, 0600);
  ::syscall(SYS_close, file);
  return true;
}

template <class... Arguments>
Word passOn(const char* name, Arguments... arguments) {
  return reinterpret_cast<Word (*)(Arguments...)>(::dlsym(RTLD_NEXT, name))(arguments...);
}

/// Fails by errno with this result, or passes the call on.
template <class... Arguments>
Word failOr(Word failure, const char* name, Arguments... arguments) {
  if (!isPlanned(name)) return passOn(name, arguments...);
  errno = plannedError;
  return failure;
}

/// Fails by returning the error, or passes the call on.
template <class... Arguments>
Word errorOr(const char* name, Arguments... arguments) {
  return isPlanned(name) ? plannedError : passOn(name, arguments...);
}

}  // namespace

// The names on the left are of no account; the library exports those on the right.
Word faultyOpen(Word path, Word flags, Word mode) asm("open");
Word faultyOpenat(Word folder, Word path, Word flags, Word mode) asm("openat");
Word faultyRead(Word file, Word bytes, Word count) asm("read");
Word faultyWrite(Word file, Word bytes, Word count) asm("write");
Word faultyClose(Word file) asm("close");
Word faultyStat(Word path, Word status) asm("stat");
Word faultyFstat(Word file, Word status) asm("fstat");
Word faultyFstatat(Word folder, Word path, Word status, Word flags) asm("fstatat");
Word faultyAccess(Word path, Word mode) asm("access");
Word faultyReadlink(Word path, Word text, Word count) asm("readlink");
Word faultyRename(Word from, Word to) asm("rename");
Word faultyUnlink(Word path) asm("unlink");
Word faultyUnlinkat(Word folder, Word path, Word flags) asm("unlinkat");
Word faultyMkdir(Word path, Word mode) asm("mkdir");
Word faultyFdopendir(Word folder) asm("fdopendir");
Word faultyReaddir(Word stream) asm("readdir");
Word faultyPipe2(Word ends, Word flags) asm("pipe2");
Word faultyPoll(Word entries, Word count, Word timeout) asm("poll");
Word faultyWaitpid(Word id, Word status, Word options) asm("waitpid");
Word faultySpawn(Word id, Word path, Word actions, Word attributes, Word arguments,
                 Word environment) asm("posix_spawn");
Word faultyThread(Word id, Word attributes, Word start, Word argument) asm("pthread_create");
Word instantSleep(Word duration, Word rest) asm("nanosleep");

Word faultyOpen(Word path, Word flags, Word mode) {
  return failOr(-1, "open", path, flags, mode);
}
Word faultyOpenat(Word folder, Word path, Word flags, Word mode) {
  return failOr(-1, "openat", folder, path, flags, mode);
}
Word faultyRead(Word file, Word bytes, Word count) {
  return failOr(-1, "read", file, bytes, count);
}
Word faultyWrite(Word file, Word bytes, Word count) {
  return failOr(-1, "write", file, bytes, count);
}
Word faultyClose(Word file) {
  // A failing close has closed all the same.
  if (isPlanned("close")) {
    passOn("close", file);
    errno = plannedError;
    return -1;
  }
  return passOn("close", file);
}
Word faultyStat(Word path, Word status) {
  return failOr(-1, "stat", path, status);
}
Word faultyFstat(Word file, Word status) {
  return failOr(-1, "fstat", file, status);
}
Word faultyFstatat(Word folder, Word path, Word status, Word flags) {
  return failOr(-1, "fstatat", folder, path, status, flags);
}
Word faultyAccess(Word path, Word mode) {
  return failOr(-1, "access", path, mode);
}
Word faultyReadlink(Word path, Word text, Word count) {
  return failOr(-1, "readlink", path, text, count);
}
Word faultyRename(Word from, Word to) {
  return failOr(-1, "rename", from, to);
}
Word faultyUnlink(Word path) {
  return failOr(-1, "unlink", path);
}
Word faultyUnlinkat(Word folder, Word path, Word flags) {
  return failOr(-1, "unlinkat", folder, path, flags);
}
Word faultyMkdir(Word path, Word mode) {
  return failOr(-1, "mkdir", path, mode);
}
Word faultyFdopendir(Word folder) {
  return failOr(0, "fdopendir", folder);
}
Word faultyReaddir(Word stream) {
  return failOr(0, "readdir", stream);
}
Word faultyPipe2(Word ends, Word flags) {
  return failOr(-1, "pipe2", ends, flags);
}
Word faultyPoll(Word entries, Word count, Word timeout) {
  return failOr(-1, "poll", entries, count, timeout);
}
Word faultyWaitpid(Word id, Word status, Word options) {
  return failOr(-1, "waitpid", id, status, options);
}
Word faultySpawn(Word id, Word path, Word actions, Word attributes, Word arguments,
                 Word environment) {
  return errorOr("posix_spawn", id, path, actions, attributes, arguments, environment);
}
Word faultyThread(Word id, Word attributes, Word start, Word argument) {
  return errorOr("pthread_create", id, attributes, start, argument);
}
Word instantSleep(Word /*duration*/, Word /*rest*/) {
  return 0;
}
