#!/usr/bin/env bash
# Installs what is missing, builds, and starts the launcher stand-in, which opens the module.
# The first start creates the family folder (~/qualvia/) with the demo database and QL000.INI.
# Further arguments go to the launcher (for instance --carpeta DIR).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/instalar.sh
bash scripts/compilar.sh
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "iniciar.sh: hace falta una sesión gráfica (DISPLAY); sin pantalla use: xvfb-run -a bash scripts/iniciar.sh" >&2
  exit 1
fi
# The module finds the launcher among the X11 windows: under Wayland both run through XWayland.
if [ -n "${DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
  export QT_QPA_PLATFORM=xcb
fi
exec ./build/integrador_qvl --abrir-modulo "$@"
