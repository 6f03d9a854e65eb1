# Installs Debian packages that are missing; sourced by the other scripts. On other systems it only says what is
# needed.

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
    echo "Installing: ${missing[*]}" >&2
    # The packages may well be in those indexes that can be read.
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq -o DPkg::Lock::Timeout=120 >&2 ||
        echo "Not every package index could be read. Trying with the others." >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq -o DPkg::Lock::Timeout=120 --no-install-recommends "${missing[@]}" >&2
}
