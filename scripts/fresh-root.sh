# Sourced by the scripts that need a fresh Debian. The root folder is unmounted and removed whenever
# such a script ends, also after an error.

root=$(mktemp -d "${TMPDIR:-/tmp}/quillon-root.XXXXXX")
mounted=()

remove_root() {
  local point
  for point in ${mounted[@]+"${mounted[@]}"}; do umount --lazy "$point"; done
  rm -rf --one-file-system "$root"
}
trap remove_root EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# Runs a command in the root folder, as root and with an empty environment.
inside() { # [VARIABLE=VALUE...] COMMAND [ARGUMENT...]
  chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin "$@"
}

# Prints a command's output only if the command fails. Then the script ends.
quietly() { # COMMAND [ARGUMENT...]
  "$@" >"$root/log" 2>&1 || { cat "$root/log" >&2; exit 1; }
}

mount_in_root() { # TYPE FOLDER
  mount -t "$1" "$1" "$root/$2"
  mounted+=("$root/$2")
}

# Installs the smallest system of a release into the root folder.
make_root() { # RELEASE
  chmod 755 "$root"
  quietly debootstrap --variant=minbase "$1" "$root"
  echo '127.0.0.1 localhost' >"$root/etc/hosts"
  mount_in_root proc proc
  mount_in_root tmpfs dev/shm
}
