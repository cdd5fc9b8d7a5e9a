# Read by the scripts that run a command beside servers of their own. However such a script ends,
# its servers, the command and its folder go before it.

folder=$(mktemp -d "${TMPDIR:-/tmp}/quillon-servers.XXXXXX")

# Ends a job with all its processes: asks first, insists after five seconds.
end_job() { # PID
  local target=$1 _
  # The command leads a group of its own, a server is a single process.
  if kill -0 -- "-$1"; then target=-$1; fi
  kill -TERM -- "$target" || return 0
  # One that is stopped hears nothing until it goes on.
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
  # The last one first: no server misses another one.
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

# Runs the command as a job, so that a signal ends it at once; in a group of its own it gets every
# signal as this script got it, and goes with all that it started. A terminal belongs to another
# group: what reads from it there would stop for good.
run_beside() { # COMMAND [ARGUMENT...]
  [ ! -t 0 ] || exec </dev/null
  set -m
  "$@" &
  set +m
  wait $!
}
