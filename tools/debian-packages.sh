# Sourced by the tools: installs the Debian packages that a step needs and that are missing.

# Compilers, Wine, what the programs link to or draw with, and the drivers of their databases. Shared by building the
# gallery and the tests.
ZOR_WINDOWS_PACKAGES=(cmake ninja-build clang lld g++-mingw-w64-x86-64-posix
    wine wine64 xvfb fonts-wine fonts-liberation libsqliteodbc odbc-postgresql)
ZOR_DEMO_PACKAGES=("${ZOR_WINDOWS_PACKAGES[@]}")
ZOR_TEST_PACKAGES=("${ZOR_WINDOWS_PACKAGES[@]}" g++ libclang-rt-14-dev clang-format clang-tidy git python3
    googletest libgtest-dev unixodbc-dev postgresql)

install_missing() {
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian system; assuming that these are installed: $*"
        return
    fi
    local package missing=()
    local installed
    # It fails when one of them was never installed, which is no failure here.
    installed=" $(dpkg-query -W -f '${db:Status-Abbrev}${Package} ' "$@" 2>/dev/null | sed 's/ii *//g' || true) "
    for package in "$@"; do
        [[ $installed == *" $package "* ]] || missing+=("$package")
    done
    if ((${#missing[@]} == 0)); then
        return
    fi
    if ((EUID != 0)); then
        echo "Missing packages; as root run: apt-get install ${missing[*]}" >&2
        return 1
    fi
    echo "Installing missing packages: ${missing[*]}"
    if [[ " ${missing[*]} " == *" postgresql "* ]]; then
        echo "Debian's postgresql also makes a server of its own on port 5432, which the tests leave alone"
    fi
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}
