# shellcheck shell=bash
# What the other scripts have in common; they source it.

# Shows nothing while a command succeeds, and the end of its output if it fails. Usage: quietly COMMAND...
quietly() {
    local output status=0 command=$*
    output=$("$@" 2>&1) || status=$?
    if [ $status -ne 0 ]; then
        printf '%s\n' "$output" | tail -n 60 >&2
        echo "This failed, with status $status: ${command%%$'\n'*}" >&2
    fi
    return $status
}

# Copies the sources as they are here, without what was built from them. Usage: copy_sources FOLDER
copy_sources() {
    rm -rf "$1"
    mkdir -p "$1"
    tar --create --exclude=./.git --exclude='./build*' . | tar --extract --directory="$1"
}

# Installs Debian packages that are missing. On other systems it only says what is needed.
# Usage: need_packages NAME...
need_packages() {
    local missing=() name
    if ! command -v dpkg-query >/dev/null; then
        echo "This system has no Debian packages. Needed here: $*" >&2
        return 0
    fi
    for name in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "Install as root: apt-get install ${missing[*]}" >&2; return 1; }
        as_root=(sudo)
    fi
    echo "Installing as root, with what they need: ${missing[*]}" >&2
    local apt_get=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=120)
    # The packages may well be in those indexes that can be read.
    quietly "${apt_get[@]}" update || echo "Not every package index could be read. Trying with the others." >&2
    quietly "${apt_get[@]}" install -y --no-install-recommends "${missing[@]}"
}
