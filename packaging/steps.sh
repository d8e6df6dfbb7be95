# Steps that ./run, ./check and .ci/run share. Sourced, not run.

say() { printf '\n== %s\n' "$*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

# Installs the Debian packages that are missing; asks for nothing when none is: install_packages [further list...]
install_packages() {
    local list missing=() package sudo=()
    list=$(cd "$top/packaging" && sed 's/#.*//' debian-packages.txt "$@")
    if ! command -v dpkg-query > /dev/null || ! command -v apt-get > /dev/null; then
        printf 'This is no Debian system, so nothing was installed. The build needs, by their Debian names:\n%s\n' \
            "$(printf '%s' "$list" | tr -s '\n' ' ')" >&2
        command -v cmake > /dev/null && command -v ninja > /dev/null || die 'cmake or ninja is missing; the build can'"'"'t start.'
        return 0
    fi
    for package in $list; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2> /dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo > /dev/null ||
            die "These packages are missing, and without sudo they can't be installed: ${missing[*]}
Ask an administrator to run: apt-get install ${missing[*]}"
        sudo=(sudo)
    fi
    say "Installing ${missing[*]}"
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q > /dev/null || true
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}" ||
        die "The packages could not be installed. Is the network there? Then run: apt-get install ${missing[*]}"
}

# Configures and builds a preset: build_preset NAME [target...]
build_preset() {
    local preset=$1
    shift
    say "Building ($preset)"
    (cd "$top" && cmake --preset "$preset" -Wno-dev > /dev/null && cmake --build --preset "$preset" ${1:+--target "$@"}) ||
        die "The build failed."
}
