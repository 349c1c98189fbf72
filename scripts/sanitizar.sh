#!/usr/bin/env bash
# The checking stage: the logic tests (GoogleTest programs, not the widget tests) built with
# AddressSanitizer and UndefinedBehaviorSanitizer in build-san/, then every fuzz target of fuzz/
# run for a while (F931_SEGUNDOS_FUZZ, 30 by default). Any finding fails the script.
#
#   F931_DIR_SAN        build folder (build-san)
#   F931_SEGUNDOS_FUZZ  seconds of each fuzz target (30; 0 skips the fuzzing)
set -euo pipefail
cd "$(dirname "$0")/.."
carpeta=${F931_DIR_SAN:-build-san}
segundos=${F931_SEGUNDOS_FUZZ:-30}
hilos=$(nproc)

# -O1 and line tables only: the stack traces keep file and line, the build stays quick.
cmake -S . -B "$carpeta" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
      -DCMAKE_CXX_COMPILER=clang++ -DF931_SANITIZAR=ON -DF931_FUZZ=ON \
      -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -gline-tables-only" >/dev/null
cmake --build "$carpeta" -j "$hilos" --target pruebas_logicas objetivos_fuzz
echo "== build-san built in ${SECONDS}s"

# Qt comes uninstrumented from the system. Its containers carry no sanitizer annotations, so
# detect_container_overflow stays on: it can only speak of annotated containers, and mixing
# instrumented and uninstrumented code gives no false reports here. Leak detection stays on too.
export ASAN_OPTIONS="detect_stack_use_after_return=1:strict_string_checks=1:check_initialization_order=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"

echo "== logic tests with ASan and UBSan ($carpeta)"
inicio=$SECONDS
# Widget tests, scenarios and the installation check need the widgets, which this build leaves out.
(cd "$carpeta" && QT_QPA_PLATFORM=offscreen ctest -E '^(vista_|escenario_|paquete_)' --no-tests=error --output-on-failure -j "$hilos")
echo "== logic tests ran in $((SECONDS - inicio))s"

[ "$segundos" -gt 0 ] || exit 0
hallazgos="$carpeta/fuzz-hallazgos"
mkdir -p "$hallazgos"
fallidos=()
inicio=$SECONDS
for corpus in fuzz/corpus/*/; do
  nombre=$(basename "$corpus")
  echo "== fuzz_$nombre for ${segundos}s"
  # New inputs go to the build folder; the seeds in the repository stay as they are.
  mkdir -p "$carpeta/fuzz-corpus/$nombre"
  opciones=(-max_total_time="$segundos" -timeout=25 -max_len=4096 -print_final_stats=1
            -artifact_prefix="$hallazgos/$nombre-")
  [ -f "fuzz/$nombre.dict" ] && opciones+=(-dict="fuzz/$nombre.dict")
  if ! "$carpeta/fuzz/fuzz_$nombre" "${opciones[@]}" "$carpeta/fuzz-corpus/$nombre" "$corpus" \
       >"$hallazgos/$nombre.log" 2>&1; then
    tail -n 60 "$hallazgos/$nombre.log"
    fallidos+=("$nombre")
  else
    grep -E "^stat::(number_of_executed_units|new_units_added)" "$hallazgos/$nombre.log" | tr '\n' ' '
    echo
  fi
done
echo "== fuzzing took $((SECONDS - inicio))s; the whole stage ${SECONDS}s"
if [ ${#fallidos[@]} -gt 0 ]; then
  echo "fuzz findings in: ${fallidos[*]} (inputs in $hallazgos/)" >&2
  exit 1
fi
