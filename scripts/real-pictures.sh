#!/bin/bash
# Fetches pictures from other programs' packages and test suites, renders them as the program would, and puts them on
# contact sheets. None of it belongs in the repository.
#   scripts/real-pictures.sh FOLDER [EXTENSION...]     build the target quorvale-render-pictures first
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
folder=$(realpath -m "${1:?a folder to work in}")
shift
extensions=("$@")
[ $# -gt 0 ] || extensions=(wmf emf jpg jpeg bmp gif)

# By name. Sources carry test files; documents in them hold more pictures.
binaries=()
sources=()
for extension in "${extensions[@]}"; do
  case $extension in
    *mf) sources+=(libemf libapache-poi-java abiword calligra inkscape goffice) ;;
    *)
      sources+=(pillow libjpeg-turbo giflib exiv2)
      binaries+=(gdk-pixbuf-tests golang-1.19-src wx3.2-examples)
      ;;
  esac
done

mkdir -p "$folder"/{lists/partial,cache/archives/partial,fetched,unpacked,files,rendered}
keyring=/usr/share/keyrings/debian-archive-keyring.gpg
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
echo "deb-src [signed-by=$keyring] http://deb.debian.org/debian $release main" > "$folder/sources.list"
apt=(-o Dir::Etc::sourcelist="$folder/sources.list" -o Dir::Etc::sourceparts=- -o Dir::State::lists="$folder/lists"
     -o Dir::Cache="$folder/cache" -o APT::Sandbox::User=root)

pattern=$(IFS='|'; echo "${extensions[*]}")
if [ ! -e "$folder/fetched/.done" ]; then
  apt-get "${apt[@]}" update > /dev/null
  cd "$folder/fetched"
  for package in $(printf '%s\n' "${binaries[@]}" | sort -u); do apt-get download "$package" || true; done
  # Part of a source may have gone from the mirror; what came will do.
  for package in $(printf '%s\n' "${sources[@]}" | sort -u); do apt-get "${apt[@]}" source --download-only "$package" || true; done
  touch .done
fi
cd "$folder/unpacked"
for archive in "$folder"/fetched/*.deb; do [ -e "$archive" ] && dpkg-deb -x "$archive" .; done
for archive in "$folder"/fetched/*.orig.tar.*; do
  case $archive in *.asc) continue ;; esac
  tar xf "$archive" --wildcards --ignore-case "${extensions[@]/#/*.}" '*.pptx' '*.docx' '*.xlsx' '*.odt' '*.odp' \
    2>/dev/null || true
done
# Documents are archives.
find . -type f -regextype egrep -iregex '.*\.(pptx|docx|xlsx|odt|odp)' -print0 |
  while IFS= read -r -d '' document; do
    unzip -qqo "$document" "${extensions[@]/#/*.}" -d "$document.parts" 2>/dev/null || true
  done
# Each content once.
find . -type f -regextype egrep -iregex ".*\.($pattern)" -print0 | xargs -0 -r sha1sum | sort -u -k1,1 |
  while read -r sum path; do cp "$path" "$folder/files/${sum:0:8}-$(basename "$path")"; done

cd "$folder"
find files -type f | sort | xargs -r "$here/build/quorvale-render-pictures" rendered | tee report.txt
find rendered -name '*.png' | sort | split -l 80 - part.
for part in part.*; do
  xargs -a "$part" sh -c 'montage-im6.q16 -label "%f" "$@" -tile 10x -geometry 160x120+3+3 -background "#ccc" "$0"' \
    "sheet-${part#part.}.png"
done
rm part.*
