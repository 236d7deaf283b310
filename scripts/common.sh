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

# The fuzz targets of the sanitize preset, a line each.
fuzz_targets() {
  find build/sanitize/fuzz -maxdepth 1 -name 'fuzz_*' -type f -perm -u=x | sort
}

# Runs one fuzz target for so many seconds. It begins with what is committed for it in fuzz/corpus,
# and keeps what it finds interesting in build/corpus. Targets that differ after a "_" share the
# committed files. usage: run_fuzzer SECONDS TARGET
run_fuzzer() {
  local name=${2##*/fuzz_} log=$2.log
  local shared=${name%%_*} arguments=("build/corpus/$name")
  mkdir -p "build/corpus/$name"
  [ ! -d "fuzz/corpus/$shared" ] || arguments+=("fuzz/corpus/$shared")
  [ ! -f "fuzz/$shared.dict" ] || arguments+=(-dict="fuzz/$shared.dict")
  "$2" -max_total_time="$1" -max_len=512 -timeout=10 -artifact_prefix="$2-" "${arguments[@]}" \
    >"$log" 2>&1 ||
    fail "$2 found a fault: $(tail -n 40 "$log")"
  echo "$name: $(tail -n 1 "$log")"
}

# Runs all fuzz targets for so many seconds each, one on each processor. usage: run_fuzzers SECONDS
run_fuzzers() {
  export -f run_fuzzer fail
  fuzz_targets | xargs -P "$(nproc)" -n 1 bash -c 'run_fuzzer "$@"' "$0" "$1" ||
    fail "fuzzing ended with the above"
}
