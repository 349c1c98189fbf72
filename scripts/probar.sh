#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test (logic and widget tests, offscreen), then
# the checking stage: the logic tests under the sanitizers and a short run of the fuzz targets.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/instalar.sh
bash scripts/compilar.sh
(cd build && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)")
bash scripts/sanitizar.sh
