# Sourced by the scripts: how they leave the checkout and the terminal.

# run_quietly LOG COMMAND...: what the command says goes to the file, and is shown when it fails.
run_quietly() {
  local log=$1 status=0
  shift
  "$@" >"$log" 2>&1 </dev/null || status=$?
  [ "$status" = 0 ] && return
  tail -n 40 "$log" >&2
  echo "'$*' failed with $status; all that it said is in $log." >&2
  return "$status"
}

# Stops with words when an earlier run, as root or with sudo, left files that this user cannot replace.
ensure_own_files() { # FOLDER...
  local folder stranger
  for folder in "$@"; do
    [ -e "$folder" ] || continue
    stranger=$(find "$folder" ! -type l ! -uid "$(id -u)" ! -writable -print -quit 2>/dev/null) || true
    [ -z "$stranger" ] && continue
    echo "$stranger belongs to $(stat -c %U "$stranger"), not to $(id -un): an earlier run was one as another user, or with sudo." >&2
    echo "Make it yours, then run this command again: sudo chown -R $(id -un) $folder" >&2
    return 1
  done
}

# Objects of earlier builds are reused where ccache happens to be there.
launcher_option() {
  command -v ccache >/dev/null && printf '%s' -DCMAKE_CXX_COMPILER_LAUNCHER=ccache || true
}

# With precompiled headers, too.
export CCACHE_SLOPPINESS=pch_defines,time_macros

# configure PRESET [OPTION...]: makes the build folder of that preset ready.
configure() {
  local preset=$1
  shift
  ensure_own_files build
  mkdir -p build
  # shellcheck disable=SC2046 # an option or nothing
  run_quietly build/configure.log cmake --preset "$preset" "$@" $(launcher_option)
}
