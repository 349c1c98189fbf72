#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test (logic and widget tests, offscreen).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/instalar.sh
bash scripts/compilar.sh
cd build
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)"
