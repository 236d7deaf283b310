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

  local install=(apt-get install -y --no-install-recommends "${missing[@]}") as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || fail "packages are missing; run this as root:
apt-get update && ${install[*]}"
    as_root=(sudo)
  fi
  echo "installing: ${missing[*]}" >&2
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

# Builds a target of its own configuration. Prints one line to stderr if there is something to
# build, and the output only if that fails. usage: build_quietly DIRECTORY TARGET [CMAKE_OPTION...]
build_quietly() {
  local directory=$1 target=$2 output
  shift 2
  output=$(cmake -S . -B "$directory" -G Ninja "$@" 2>&1) || fail "cannot configure: $output"
  local build=(cmake --build "$directory" --target "$target")
  "${build[@]}" -- -n | grep -q 'no work to do' ||
    echo "$0: building $target, which takes a while the first time" >&2
  output=$("${build[@]}" 2>&1) || fail "cannot build $target: $output"
}

# Runs each fuzz target of the sanitize preset for so many seconds. usage: run_fuzzers SECONDS
run_fuzzers() {
  local target log
  for target in build/sanitize/fuzz/fuzz_*; do
    [ -x "$target" ] && [ -f "$target" ] || continue
    mkdir -p "build/corpus/${target##*/}"
    log=$target.log
    "$target" -max_total_time="$1" -max_len=256 -artifact_prefix="$target-" \
      "build/corpus/${target##*/}" >"$log" 2>&1 || fail "$target found a fault: $(tail -n 40 "$log")"
    echo "${target##*/}: $(tail -n 1 "$log")"
  done
}
