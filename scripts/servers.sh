# Sourced by the scripts that run a command with servers of their own. When such a script ends, also
# after an error, it first ends its servers and the command and removes its folder.

folder=$(mktemp -d "${TMPDIR:-/tmp}/quillon-servers.XXXXXX")

# Ends a job with all its processes: sends SIGTERM, and SIGKILL after five seconds.
end_job() { # PID
  local target=$1 _
  # The command leads its own process group. A server is a single process.
  if kill -0 -- "-$1"; then target=-$1; fi
  kill -TERM -- "$target" || return 0
  # A stopped process handles no SIGTERM until it continues.
  kill -CONT -- "$target" || return 0
  for _ in {1..250}; do
    kill -0 -- "$target" || return 0
    sleep 0.02
  done
  kill -KILL -- "$target" || true
}

end_everything() {
  local status=$? job jobs=
  trap '' INT TERM HUP
  # In reverse order, so that no server loses one that it uses.
  for job in $(jobs -p); do jobs="$job $jobs"; done
  for job in $jobs; do end_job "$job"; done 2>/dev/null
  rm -rf "$folder"
  exit "$status"
}
trap end_everything EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

give_up() { # WHY
  cat "$folder"/*.log >&2 || true
  echo "$(basename "$0"): $1" >&2
  exit 1
}

# Runs the command as a job, so that a signal ends it at once. In its own process group it gets
# every signal that this script gets, and ends together with its children. The terminal belongs to
# another group: a process that reads from it would stop indefinitely.
run_beside() { # COMMAND [ARGUMENT...]
  [ ! -t 0 ] || exec </dev/null
  set -m
  "$@" &
  set +m
  wait $!
}
