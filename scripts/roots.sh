# Sourced after packages.sh by the commands that try the tree on bare systems: makes roots of a Debian
# suite and runs commands in them.
#
# Every command runs in mounts and process numbers of its own (unshare), which the system takes back
# when it ends, however it ends. So no mount is ever seen from outside, and nothing is deleted through
# one.

root_packages=(debootstrap util-linux)

# need_roots: root and the tools are there afterwards, or the command ends.
need_roots() {
  [ "$(id -u)" -eq 0 ] || fail "bare roots are made by root only: start this with sudo"
  ensure_packages "${root_packages[@]}"
  unshare --mount true || fail "this system does not let root make mounts of its own (unshare --mount)"
}

# root_sources SUITE: the lines of apt's sources: this machine's, with the suite's name in place of its
# own. Nothing when this machine has none of Debian's.
root_sources() {
  local uri codename component own suite=$1
  own=$(. /etc/os-release && [ "$ID" = debian ] && printf '%s' "${VERSION_CODENAME:-}") || return 0
  apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' | sort -u |
    while read -r uri codename component; do
      case $suite:$codename in
        *:"$own") printf 'deb %s %s %s\n' "$uri" "$suite" "$component" ;;
        sid:* | unstable:*) ;; # it has neither updates nor security
        *:"$own-updates" | *:"$own-security")
          printf 'deb %s %s%s %s\n' "$uri" "$suite" "${codename#"$own"}" "$component" ;;
      esac
    done
}

# make_root SUITE FOLDER: a bare root of the suite in a folder that does not exist yet, with fresh package
# lists. Takes nothing of this machine's apt or dpkg configuration but the sources.
make_root() {
  local suite=$1 root=$2 sources
  sources=$(root_sources "$suite")
  unshare --mount debootstrap --variant=minbase "$suite" "$root" >"$root.log" 2>&1 ||
    { tail -n 5 "$root.log" >&2; fail "no root could be made of $suite"; }
  rm -f "$root.log"
  [ -z "$sources" ] || printf '%s\n' "$sources" >"$root/etc/apt/sources.list"
  enter_root "$root" apt-get update -qq >"$root/update.log" 2>&1 || refresh_expired "$root"
  rm -f "$root/update.log"
}

# A mirror that stands still keeps lists whose time is over; nothing else is wrong with them.
refresh_expired() {
  grep -q -e expired -e 'not valid anymore' "$1/update.log" ||
    { cat "$1/update.log" >&2; fail "the package lists of $1 could not be fetched"; }
  printf 'The lists of this mirror have expired; using them all the same.\n'
  printf 'Acquire::Check-Valid-Until "false";\n' >"$1/etc/apt/apt.conf.d/10expired"
  enter_root "$1" apt-get update -qq || fail "the package lists of $1 could not be fetched"
}

# enter_root FOLDER COMMAND...: runs the command in the root as its root user, with an environment of its
# own. What it leaves running ends with it. Returns its status.
enter_root() {
  local root=$1
  shift
  # The first process of the numbers must be one that only waits: a shell that stays.
  unshare --mount --pid --fork --kill-child --ipc env -i \
    PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root USER=root LOGNAME=root \
    LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive TERM="${TERM:-dumb}" \
    sh -c 'root=$1
      shift
      mount -t proc proc "$root/proc" &&
      mount -t devpts -o newinstance,ptmxmode=666 devpts "$root/dev/pts" &&
      mount -t tmpfs -o mode=1777 shm "$root/dev/shm" || exit 125
      chroot "$root" "$@"
      exit $?' sh "$root" "$@"
}

# enter_root_as USER FOLDER COMMAND...: the same as an ordinary user of the root, in that user's home.
enter_root_as() {
  local user=$1 root=$2
  shift 2
  enter_root "$root" runuser -u "$user" -- env -u DEBIAN_FRONTEND HOME="/home/$user" \
    USER="$user" LOGNAME="$user" PATH=/usr/local/bin:/usr/bin:/bin:/usr/local/games:/usr/games \
    sh -c 'cd "$HOME" && exec "$@"' sh "$@"
}

# add_user FOLDER USER: an ordinary user with an empty home.
add_user() {
  enter_root "$1" useradd --create-home --skel /dev/null --shell /bin/bash "$2"
}

# install_in_root FOLDER PACKAGE...: quietly, and without what is only recommended.
install_in_root() {
  local root=$1
  shift
  enter_root "$root" apt-get install -y -qq --no-install-recommends "$@" >"$root/install.log" 2>&1 ||
    { tail -n 20 "$root/install.log" >&2; fail "these packages could not be installed: $*"; }
  rm -f "$root/install.log"
}

# remove_root FOLDER: deletes it, and never what somebody mounted there.
remove_root() {
  rm -rf --one-file-system "$1"
}
