# Bare Debian systems in folders, for what is to be tried where nothing is installed; to be sourced, as root.
# What runs in one sees its own processes only and ends with the command.
mirror=${MIRROR:-http://deb.debian.org/debian}

# make_bare_system ROOT RELEASE: unless it is there.
make_bare_system() {
  [[ -e $1/var/lib/dpkg/status && ! -e $1/debootstrap ]] ||
    debootstrap --variant=minbase "$2" "$1" "$mirror"
}

# in_bare_system ROOT COMMAND: a command line of its shell, as root. Folders given as BIND=HOST:INSIDE are seen inside.
in_bare_system() {
  unshare --mount --pid --fork --kill-child bash -s "$1" "$2" "${BIND:-}" <<'INSIDE'
set -e
root=$1 command=$2 bind=$3
mount -t proc proc "$root/proc"
mount --rbind /dev "$root/dev"
mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
cp /etc/resolv.conf "$root/etc/resolv.conf"
if [[ -n $bind ]]; then
  mkdir -p "$root/${bind#*:}"
  mount --bind "${bind%%:*}" "$root/${bind#*:}"
fi
exec chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 \
  DEBIAN_FRONTEND=noninteractive sh -c "$command" </dev/null
INSIDE
}

# bring_sources ROOT: what is committed, into /src; files that have not changed keep their times.
bring_sources() {
  mkdir -p "$1/src"
  [[ -e $1/src/.git ]] || git clone -q "$PWD" "$1/src"
  git -C "$1/src" fetch -q "$PWD" HEAD
  git -C "$1/src" checkout -q --force --detach FETCH_HEAD
}

# bare_packages ROOT LIST...: of tools/setup, and what the checks of a working tree need.
bare_packages() {
  local root=$1
  shift
  in_bare_system "$root" "/src/tools/setup/install_packages $*"
}

# bare_arm64_packages ROOT: a cross compiler, the libraries of the other machine, and its emulator.
bare_arm64_packages() {
  local libraries
  libraries=$(sed 's/#.*//' tools/setup/build.packages tools/setup/test.packages | grep -E '^(lib[^|]*|qt6-base)-dev *$' |
    sed 's/ *$/:arm64/' | xargs)
  in_bare_system "$1" "dpkg --add-architecture arm64 && apt-get update -q && apt-get install -q -y \
    --no-install-recommends g++-aarch64-linux-gnu qemu-user $libraries"
}
