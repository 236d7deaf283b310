# Sourced by the scripts beside it.

cd "$(dirname "${BASH_SOURCE[0]}")/.."

fail() {
  echo "$0: $*" >&2
  exit 1
}

# Installs the Debian packages named that are not there yet.
need_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  command -v apt-get >/dev/null || fail "needs these Debian packages or their like: ${missing[*]}"

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      fail "as root, install: apt-get install --no-install-recommends ${missing[*]}"
    as_root=(sudo)
  fi
  echo "installing: ${missing[*]}"
  local install=(apt-get install -qq -y --no-install-recommends "${missing[@]}")
  "${as_root[@]}" apt-get update -qq || fail "apt-get update failed"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive "${install[@]}" >/dev/null ||
    fail "could not install: ${missing[*]}"
}

# Configures and builds a preset. usage: build_preset NAME [TARGET...]
build_preset() {
  local preset=$1
  shift
  cmake --preset "$preset" >/dev/null || fail "cannot configure the preset $preset"
  cmake --build "build/$preset" ${1:+--target "$@"} || fail "the build of $preset failed"
}
