# A part of scripts/setup.sh: the libraries of the Windows program, into .deps/windows, from where
# cmake/windows/libraries.cmake takes them: DuckDB's, the compiler's runtime, the sources of three small ones from Debian's
# source packages, and links to headers.

deps=$PWD/.deps/windows
tool=x86_64-w64-mingw32

# import_library DLL PREFIX LIBRARY: the import library of those exports whose names begin so.
import_library() {
  local dll=$1 definitions; definitions=$(mktemp)
  { echo EXPORTS; $tool-objdump -p "$dll" | awk -v begin="$2" '$1 ~ /^\[/ && index($NF, begin) == 1 { print "  " $NF }'; } >"$definitions"
  $tool-dlltool -d "$definitions" -D "$(basename "$dll")" -l "$3"
  rm "$definitions"
}

# debian_source PACKAGE FOLDER FILE...: files of a Debian source package, in a folder.
debian_source() {
  local package=$1 folder=$2 work sources; shift 2
  work=$(mktemp -d); sources=$work/parts
  mkdir -p "$sources" "$work/lists/partial"
  # The Debian sources of this machine, asked for source packages.
  sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources >"$sources/debian.sources" 2>/dev/null ||
    { rm "$sources/debian.sources"; sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$sources/debian.list"; }
  local options=(-qq -o Dir::Etc::SourceList=- -o "Dir::Etc::SourceParts=$sources" -o "Dir::State::Lists=$work/lists"
    -o APT::Sandbox::User=)
  echo "setup: fetching the source of $package"
  (cd "$work" && apt-get "${options[@]}" update && apt-get "${options[@]}" source --download-only "$package" &&
    mkdir source && tar -xf ./*.orig.tar.* -C source --strip-components 1)
  mkdir -p "$folder"
  (cd "$work/source" && cp "$@" "$folder")
  rm -rf "$work"
}

[ -f "$deps/source/pugixml/pugixml.cpp" ] ||
  debian_source pugixml "$deps/source/pugixml" src/pugixml.cpp src/pugixml.hpp src/pugiconfig.hpp
[ -f "$deps/source/minizip/unzip.c" ] || debian_source minizip "$deps/source/minizip" unzip.c unzip.h ioapi.c ioapi.h
[ -f "$deps/source/utf8proc/utf8proc.c" ] ||
  debian_source utf8proc "$deps/source/utf8proc" utf8proc.c utf8proc_data.c utf8proc.h

if [ ! -f "$deps/bin/duckdb.dll" ]; then
  fetch @duckdb/node-bindings-win32-x64@1.4.4-r.1 \
    f89f8c5181af6167d7d1b6a5593a03232dc205883b847234290510dfdf929e28a75e5305f3ea6e456e9e6f243e017adcaca930ba3e30cc9b84043d007611c6b7 \
    duckdb.dll "$deps/bin/duckdb.dll"
fi
mkdir -p "$deps/lib" "$deps/include"
[ -f "$deps/lib/libduckdb.dll.a" ] || import_library "$deps/bin/duckdb.dll" duckdb_ "$deps/lib/libduckdb.dll.a"

# Libraries of headers alone; the rest of the system's include folder is Linux's.
for header in boost eigen3 rapidjson fmt CLI toml++; do ln -sfn /usr/include/$header "$deps/include/$header"; done

# The program and the procedures share one C++ runtime, without its debugging symbols.
for dll in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
  [ -f "$deps/bin/$dll" ] && continue
  found=$($tool-g++-posix -print-file-name=$dll)
  [ -f "$found" ] || found=/usr/$tool/lib/$dll
  $tool-strip -o "$deps/bin/$dll" "$found"
done
