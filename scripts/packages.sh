# Sourced by the commands at the top of the tree: installs the Debian packages that are missing.
# Does nothing, and needs no network, when all of them are there.

build_packages=(g++ cmake ninja-build pkg-config libsdl1.2-dev libsdl-image1.2-dev
  libsdl-mixer1.2-dev libsdl-gfx1.2-dev libx11-dev)
test_packages=(libgtest-dev clang-format clang-tidy python3 python3-numpy python3-pil python3-xlib
  python3-aiosmtpd xvfb openbox xdotool libsdl2-2.0-0)

fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# ensure_packages NAME...: every one of them is installed afterwards, or the command ends.
ensure_packages() {
  local missing=() package root=()
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
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || fail "these packages are missing, and neither root nor sudo is at hand: ${missing[*]}"
    root=(sudo)
  fi
  "${root[@]}" apt-get update -qq || printf 'The package lists could not be refreshed; trying with what is there.\n' >&2
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null || fail "these packages could not be installed: ${missing[*]}"
}
