# shellcheck shell=bash
# What ./run, ./test and .ci/run have in common: installing what is missing, configuring, building,
# each in one line on stderr. The log of a step stands in build/ and is shown when the step fails.
# Works without /proc, so no process substitution here. Sourced, not run.

: "${root:?the folder of the repository}" "${self:?the name of the script}"

readonly failed=3
jobs=${PRODUCT_TREE_JOBS:-$(nproc)}

say() {
    printf '%s: %s\n' "$self" "$*" >&2
}

die() {
    say "$@"
    exit "$failed"
}

# Runs a command with its output in build/NAME.log. When it fails, shows what the log says from the
# first failure on, else its end, and stops.
quietly() {
    local name=$1 log=$root/build/$1.log
    shift
    "$@" >"$log" 2>&1 </dev/null && return
    if grep -q '^FAILED' "$log"; then
        sed -n '/^FAILED/,$p' "$log" | head -n 80 >&2
    else
        tail -n 60 "$log" >&2
    fi
    die "$name failed; the whole log is $log"
}

# Takes a lock of build/ for the rest of the script or until let_go: two at once would break each
# other's build.
hold() {
    exec 9>"$root/build/$1.lock"
    flock -n 9 || { say "waiting for another build of $1"; flock 9; }
}

let_go() {
    exec 9>&-
}

required_packages() {
    sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$root/packages.txt"
}

missing_packages() {
    local installed package
    # dpkg-query fails when it does not know one of them, and still lists the others.
    # shellcheck disable=SC2016
    installed=$(required_packages |
        xargs dpkg-query -W -f '${db:Status-Abbrev}${Package}\n' 2>/dev/null || true)
    for package in $(required_packages); do
        grep -qxF "ii $package" <<<"$installed" || echo "$package"
    done
}

as_root() {
    if [[ $EUID -eq 0 ]]; then
        env DEBIAN_FRONTEND=noninteractive "$@"
    else
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    fi
}

install_packages() {
    local missing=()
    installed_something=false
    if ! command -v dpkg-query >/dev/null; then
        say "not a Debian system: the packages of packages.txt are taken to be there"
        return
    fi
    read -r -d '' -a missing <<<"$(missing_packages)" || true
    ((${#missing[@]} > 0)) || return 0
    if [[ $EUID -ne 0 ]] && ! command -v sudo >/dev/null; then
        die "missing packages and no sudo to install them: ${missing[*]}"
    fi
    hold packages
    say "installing ${missing[*]}"
    quietly packages as_root apt-get update
    quietly packages as_root apt-get -y --no-install-recommends -o DPkg::Lock::Timeout=600 \
        install "${missing[@]}"
    let_go
    installed_something=true
}

# configure PRESET [DIRECTORY [OPTION...]]
configure() {
    local preset=$1 directory=$root/build/${2:-$1}
    shift; shift || true
    if [[ -f $directory/CMakeCache.txt ]] &&
        ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$directory/CMakeCache.txt"; then
        rm -rf "$directory" # The tree has been moved or copied.
    fi
    [[ -f $directory/build.ninja && $installed_something == false ]] && return
    say "configuring ${directory##*/}"
    quietly "${directory##*/}-configure" cmake -S "$root" --preset "$preset" -B "$directory" "$@"
}

# build DIRECTORY [TARGET...]
build() {
    local name=$1 directory=$root/build/$1
    shift
    if ninja -C "$directory" -n "$@" 2>/dev/null | grep -q 'no work to do'; then
        return
    fi
    say "building $name"
    quietly "$name-build" ninja -C "$directory" -j "$jobs" "$@"
}

mkdir -p "$root/build"
# What is compiled alike with and without Qt is compiled once: which build folder it is made in is not
# looked at.
export CCACHE_NOHASHDIR=1
# ccache needs a home; not every account of a build machine has one.
[[ -w ${HOME:-/nonexistent} ]] || export CCACHE_DIR=${CCACHE_DIR:-$root/build/ccache}
