# Sourced by the commands at the top of the tree: installs the Debian packages that are missing.
# Does nothing, and needs no network, when all of them are there.

build_packages=(g++ cmake ninja-build pkg-config libsdl1.2-dev libsdl-image1.2-dev
  libsdl-mixer1.2-dev libsdl-gfx1.2-dev libx11-dev zlib1g-dev)
test_packages=(libgtest-dev python3 python3-numpy python3-pil python3-xlib python3-aiosmtpd xvfb
  openbox x11-xkb-utils libsdl2-2.0-0 weston)
# The benchmarks, and what they measure against.
bench_packages=(libbenchmark-dev libbox2d-dev libpixman-1-dev libtinyxml2-dev libmuparser-dev
  liblua5.4-dev)
# The tree is laid out and linted as this version does it; others differ in taste, and newer systems
# don't have it.
linter_packages=(clang-format-14 clang-tidy-14)

fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

is_offered() {
  apt-cache show "$1" >/dev/null 2>&1
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# A system that has just started may be updating itself: wait for it.
install_packages() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    -o DPkg::Lock::Timeout=300 "$@" >/dev/null
}

# ensure_packages NAME...: every one of them is installed afterwards, or the command ends.
ensure_packages() {
  local missing=() package
  command -v dpkg-query >/dev/null || fail "this needs Debian or Ubuntu; elsewhere install the equivalents of: $*"
  for package in "$@"; do
    # The compatibility library provides the same headers; the two exclude each other.
    if [ "$package" = libsdl1.2-dev ] && is_installed libsdl1.2-compat-dev; then
      continue
    fi
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  printf 'Installing: %s\n' "${missing[*]}"
  [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
    fail "these packages are missing, and neither root nor sudo is at hand: ${missing[*]}"
  as_root apt-get update -qq || printf 'The package lists could not be refreshed; trying with what is there.\n' >&2
  install_packages "${missing[@]}" || fail "these packages could not be installed: ${missing[*]}"
}

# try_packages NAME...: installs those of them that the system offers; never fails.
try_packages() {
  local missing=() package
  for package in "$@"; do
    if ! is_installed "$package" && is_offered "$package"; then missing+=("$package"); fi
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  printf 'Installing: %s\n' "${missing[*]}"
  install_packages "${missing[@]}" || printf 'These packages could not be installed: %s\n' "${missing[*]}" >&2
}

# try_fuzz_packages: installs clang, and its fuzzer runtime, whose name has clang's version in it; never
# fails.
try_fuzz_packages() {
  try_packages clang
  try_packages "libclang-rt-$(clang -dumpversion 2>/dev/null | cut -d. -f1)-dev"
}
