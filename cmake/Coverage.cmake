# Counts the executed lines and branches, for scripts/coverage. Threads count without losing a count.

enable_language(C)
# Not counted itself: added before the options.
add_library(flush_at_exit OBJECT tools/coverage/flush_at_exit.c)

add_compile_options(--coverage -fprofile-update=atomic)
add_link_options(--coverage -Wl,--wrap=_exit -Wl,--wrap=raise)
link_libraries($<TARGET_OBJECTS:flush_at_exit>)
