#!/usr/bin/env bash
# Installs the Debian packages the module needs, only those that are missing.
set -euo pipefail
# For the Debian package: dpkg-shlibdeps, and the check of its desktop entry.
paquetes_paquete=(dpkg-dev desktop-file-utils)
paquetes=(build-essential cmake ninja-build ccache qt6-base-dev libqt6sql6-sqlite libsqlite3-dev
          libgtest-dev libx11-dev fonts-liberation qt6-translations-l10n xvfb xauth xdotool imagemagick
          poppler-utils clang libclang-rt-dev llvm)
# clang, libclang-rt-dev (the sanitizer runtimes and libFuzzer, libclang_rt.fuzzer) and llvm
# (llvm-symbolizer, for readable stack traces) serve the checking stage, scripts/sanitizar.sh.
faltan=()
for p in "${paquetes[@]}" "${paquetes_paquete[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || faltan+=("$p")
done
if [ ${#faltan[@]} -gt 0 ]; then
  sudo_cmd=""
  [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
  $sudo_cmd apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq --no-install-recommends "${faltan[@]}"
fi
