# Sourced by the scripts: which Debian packages the project needs, and how they get onto the machine.

# What it takes to build the library and the tool, and to look at what they draw.
demo_packages="g++ cmake ninja-build pkg-config libharfbuzz-dev libfribidi-dev libfontconfig-dev libsimdjson-dev libcli11-dev
  librsvg2-bin fonts-liberation2 fonts-dejavu-core fonts-noto-core"

# What it takes to make Debian packages.
package_packages="dpkg-dev file"

# What the tests need beside that.
test_packages="$package_packages lintian libgtest-dev librapidcheck-dev libeigen3-dev libwildmagic-dev libbenchmark-dev libglm-dev python3 locales
  abigail-tools clang-16 doxygen
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
  [ -z "$missing" ] && return 0
  if ! command -v apt-get >/dev/null || [ "${QVA_NO_INSTALL:-0}" = 1 ]; then
    echo "Missing Debian packages: $missing" >&2
    echo "Install them, then run this command again: apt-get install $missing" >&2
    return 1
  fi
  local as_root=
  if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo >/dev/null || ! sudo -v; then
      echo "Missing Debian packages: $missing" >&2
      echo "Installing them takes root: run 'apt-get install $missing' as root, then this command again." >&2
      return 1
    fi
    as_root=sudo
  fi
  echo "Installing Debian packages: $missing"
  $as_root apt-get update -qq
  # shellcheck disable=SC2086 # a list of names
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
}

# Objects of earlier builds are reused where ccache happens to be there.
launcher_option() {
  command -v ccache >/dev/null && printf '%s' -DCMAKE_CXX_COMPILER_LAUNCHER=ccache || true
}
