# Sourced by the scripts: which Debian packages the project needs, and how they get onto the machine.

. "$(dirname "${BASH_SOURCE[0]}")/checkout.sh"

# What it takes to build the library and the tool, and to look at what they draw.
demo_packages="g++ cmake ninja-build pkg-config libharfbuzz-dev libfribidi-dev libfontconfig-dev libsimdjson-dev nettle-dev
  libcli11-dev librsvg2-bin fonts-liberation2 fonts-dejavu-core fonts-noto-core"

# What it takes to make Debian packages.
package_packages="dpkg-dev file"

# What the tests need beside that.
test_packages="$package_packages lintian libgtest-dev librapidcheck-dev libeigen3-dev libwildmagic-dev python3 python3-jsonschema locales
  abigail-tools clang-16 doxygen zsh fish groff-base
  chromium poppler-utils libpng-dev"

# What fuzzing needs beside both.
fuzz_packages="clang libclang-rt-14-dev"

# What the slow checks need beside what the tests need.
check_packages="valgrind gcovr"

missing_packages() {
  local package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || printf '%s ' "$package"
  done
}

# ensure_packages NAME...: installs what is missing, as root or with sudo; touches no network when nothing is.
# QVA_NO_INSTALL=1 forbids installing.
ensure_packages() {
  local missing
  missing=$(missing_packages "$@")
  missing=${missing% }
  [ -z "$missing" ] && return 0
  echo "These Debian packages are missing: $missing"
  # shellcheck disable=SC2086 # a list of names
  may_install && install_packages $missing && return 0
  echo "Install them, then run this command again. As root:" >&2
  echo "  apt-get update && apt-get install --no-install-recommends $missing" >&2
  return 1
}

# Sets `as_root` to what the commands of root begin with; false when there is no way.
may_install() {
  as_root=
  [ "${QVA_NO_INSTALL:-0}" != 1 ] && command -v apt-get >/dev/null || return 1
  [ "$(id -u)" = 0 ] && return 0
  as_root=sudo
  command -v sudo >/dev/null || return 1
  sudo -n true 2>/dev/null && return 0
  echo "Installing them takes root: sudo may ask for your password now, to run 'apt-get update' and 'apt-get install' with"
  echo "these packages. To install them yourself, press Ctrl-C."
}

install_packages() ( # NAME...
  log=build/packages.log
  ensure_own_files build && mkdir -p build || exit 1
  umask 022 # what packages make on the system is for everybody
  echo "Fetching the lists of packages"
  run_quietly $log $as_root apt-get update || exit 1
  cost=$(LC_ALL=C apt-get install --assume-no -o Debug::NoLocking=1 --no-install-recommends "$@" 2>/dev/null |
    sed -n 's/^Need to get \(.*\) of archives\.$/\1 to fetch/p; s/^After this operation, \(.*\) of additional.*/\1 on the disk/p' |
    paste -sd'|' | sed 's/|/, /') || true
  echo "Installing them and what they need${cost:+: $cost}"
  run_quietly $log $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"
)
