# What the scripts beside it share; they source it after `set -euo pipefail`.
# Built once and kept outside the checkout, in a folder named by the checksum of all that went into it.
packaging=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
checkout=$(realpath "$packaging/../..")
cache=${VELUMARK_CACHE:-$HOME/.cache/velumark}
jobs=$(nproc)
# Chinese names in what is packed, times and modes that are the same everywhere.
export LC_ALL=C.UTF-8 TZ=UTC
umask 022

say() { printf '%s  %s\n' "$(date +%H:%M:%S)" "$*" >&2; }

# logged LOG COMMAND...: runs it, and shows the end of its log where it fails. A function must end itself by `|| return`
# where a step of it fails: bash does not stop at one inside an `if`.
logged() {
    local log=$1
    shift
    if ! "$@" >> "$log" 2>&1; then
        echo "failed: $*; the end of $log:" >&2
        grep -A 15 -E 'FAILED|error:|Error' "$log" | tail -n 40 >&2 || true
        tail -n 20 "$log" >&2
        return 1
    fi
}

# debian_version PACKAGE: SOURCE=VERSION of an installed package. What is linked on Linux is what is linked on Windows.
debian_version() { dpkg-query --show --showformat '${source:Package}=${source:Version}\n' "$1"; }

compiler_version() { dpkg-query --show --showformat '${Package}=${Version}\n' g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev; }

# debian_sources FOLDER SOURCE=VERSION...: fetches Debian's sources into the folder. apt checks them against Debian's
# signed index; the machine's own sources are asked, once, for source packages, and stay as they are.
debian_sources() {
    local folder=$1
    shift
    mkdir -p "$folder/apt/parts" "$folder/apt/lists/partial"
    local list
    for list in /etc/apt/sources.list.d/*.sources; do
        [[ ! -e $list ]] || sed -E 's/^Types:.*/Types: deb-src/' "$list" > "$folder/apt/parts/$(basename "$list")"
    done
    { cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null || true; } |
        sed -nE 's/^deb /deb-src /p' > "$folder/apt/parts/classic.list"
    cat > "$folder/apt/apt.conf" <<END
Dir::Etc::sourcelist "/dev/null";
Dir::Etc::sourceparts "$folder/apt/parts";
Dir::State::lists "$folder/apt/lists";
Acquire::Languages "none";
APT::Sandbox::User "$(id -un)";
END
    (
        cd "$folder" || return
        export APT_CONFIG=$folder/apt/apt.conf
        apt-get -q update && apt-get -q source --download-only "$@"
    ) </dev/null || {
        echo "no sources of $*: Debian may have newer ones than the packages here; apt-get upgrade first"
        return 1
    }
    rm -rf "$folder/apt"
}

# unpacked FOLDER SOURCE: the folder of the unpacked source package.
unpacked() {
    local folder=$1 source=$2
    [[ -d $folder/$source ]] || dpkg-source --no-check -x "$folder/${source}"_*.dsc "$folder/$source" >&2 || return
    printf '%s\n' "$folder/$source"
}

# program_options LIBRARIES: what CMake is told for the program itself. One file that needs nothing beside it; no paths
# of this machine and no clock in it, so that one commit gives one program.
program_options() {
    local map="-ffile-prefix-map=$checkout=velumark -ffile-prefix-map=$1=libraries"
    options=(-DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG $map"
        -DVM_PREFIX="$1" -DCMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES="$1/include"
        "-DCMAKE_EXE_LINKER_FLAGS=-static -s -L$1/lib -Wl,--no-insert-timestamp" -DVM_WARNINGS_ARE_ERRORS=ON)
}

# window_options LIBRARIES QT: the same for all of it, the windows included. A toolchain file of Qt's own loads ours.
window_options() {
    program_options "$1"
    options+=(-DCMAKE_TOOLCHAIN_FILE="$2/lib/cmake/Qt6/qt.toolchain.cmake" -DQT_HOST_PATH=/usr
        -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake")
}

# draw_icon FILE: the program's icon in the sizes that Windows shows.
draw_icon() {
    local size pictures=()
    mkdir -p "$(dirname "$1")"
    for size in 16 20 24 32 40 48 64 96 128 256; do
        rsvg-convert -w "$size" -h "$size" "$checkout/packaging/velumark.svg" -o "$(dirname "$1")/$size.png"
        pictures+=("$(dirname "$1")/$size.png")
    done
    icotool --create --output "$1" "${pictures[@]:0:9}" --raw "${pictures[9]}"
}

# fresh FOLDER LIBRARIES [QT]: a build folder made with other libraries or another Qt goes.
fresh() {
    grep -qsx "VM_PREFIX:[A-Z]*=$2" "$1/CMakeCache.txt" || rm -rf "$1"
    [[ -z ${3:-} ]] || grep -qsx "Qt6_DIR:[A-Z]*=$3/lib/cmake/Qt6" "$1/CMakeCache.txt" || rm -rf "$1"
}

# with_wine [--persistent]: what runs .exe files from here on, in a prefix of the checkout's own. Wine's services write
# into the standard error of the program that they start with; persistent, they start with none that is compared.
with_wine() {
    export WINEDEBUG=-all WINEPREFIX=$checkout/build/wine VM_WINE=/usr/lib/wine/wine64
    mkdir -p "$WINEPREFIX"
    [[ -z ${1:-} ]] || /usr/lib/wine/wineserver64 "$1"
    DISPLAY='' "$VM_WINE" wineboot --init > "$checkout/build/wine.log" 2>&1
    trap '/usr/lib/wine/wineserver64 --kill || true' EXIT
}

# with_windows: the same on a screen, in a prefix of its own: what began without a screen never shows a window. Wine draws
# one window of its own on it, in which programs get and give the focus as they do on Windows. A Chinese font stands for
# those that a Chinese Windows has.
with_windows() {
    local screen
    with_wine
    /usr/lib/wine/wineserver64 --kill || true
    WINEPREFIX=$checkout/build/wine-desktop
    mkdir -p "$WINEPREFIX"
    exec {screen}< <(exec Xvfb -displayfd 1 -screen 0 2100x1300x24 -noreset 2> /dev/null)
    DISPLAY_OF_WINE=$!
    read -r DISPLAY <&"$screen"
    export DISPLAY=:$DISPLAY 'WINEDLLOVERRIDES=mscoree,mshtml,winedbg.exe='
    trap '/usr/lib/wine/wineserver64 --kill || true; kill $DISPLAY_OF_WINE' EXIT
    "$VM_WINE" wineboot --init > "$checkout/build/wine.log" 2>&1
    {
        printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\n'
        printf '"%s"="Noto Sans CJK SC"\n' "MS Shell Dlg" "MS Shell Dlg 2" Tahoma "Segoe UI" "Microsoft YaHei UI" SimSun
        printf '\n[HKEY_CURRENT_USER\\Software\\Wine]\n"Version"="win10"\n'
        printf '\n[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\n"Desktop"="Default"\n'
        printf '\n[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]\n"Default"="2100x1300"\n'
    } > "$checkout/build/desktop.reg"
    "$VM_WINE" regedit "$checkout/build/desktop.reg"
    /usr/lib/wine/wineserver64 --wait
}
