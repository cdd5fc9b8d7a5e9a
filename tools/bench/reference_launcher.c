// The minimum of a launcher: checks the engine, starts it in a new session and exits.
#define _GNU_SOURCE
#include <spawn.h>
#include <stdlib.h>
#include <unistd.h>

int main(int count, char* arguments[]) {
  const char* engine = getenv("QUILLON_ENGINE_BIN");
  posix_spawnattr_t attributes;
  pid_t ignored;
  (void)count;
  if (engine == NULL || access(engine, X_OK) != 0) return 1;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  return posix_spawn(&ignored, engine, NULL, &attributes, arguments, environ) == 0 ? 0 : 1;
}
