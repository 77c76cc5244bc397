#!/usr/bin/env bash
# Builds the fuzz targets and calls each VELNA_FUZZ_RUNS times (200,000 if not told) with inputs that grow
# from its seeds in tests/fuzz/seeds/<target>/. A crash, a hang, a sanitizer report or memory beyond
# the bound fails, and the input that did it is kept in build/fuzz/findings/.
set -euo pipefail
cd "$(dirname "$0")/../.."

runs=${VELNA_FUZZ_RUNS:-200000}
seed=${GTEST_RANDOM_SEED:-$((RANDOM + 1))}
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j "$(nproc)"

findings=build/fuzz/findings
mkdir -p "$findings"

fuzz() {
    local target=$1 name log
    name=$(basename "$target")
    log=build/fuzz/$name.log
    # The inputs found on the way stay out of the sources: the first folder is written, the second only read.
    rm -rf "build/fuzz/corpus/$name"
    mkdir -p "build/fuzz/corpus/$name"
    local seeds=tests/fuzz/seeds/$name
    [ -d "$seeds" ] || { echo "$name: no seeds in $seeds" >&2; return 1; }
    if "$target" -runs="$runs" -seed="$seed" -timeout=20 -rss_limit_mb=2048 -max_len=65536 \
        -artifact_prefix="$findings/$name-" "build/fuzz/corpus/$name" "$seeds" >"$log" 2>&1; then
        echo "$name: $runs runs, seed $seed: $(grep -a '^Done' "$log" || tail -n 1 "$log")"
    else
        echo "$name: failed, seed $seed" >&2
        tail -n 60 "$log" >&2
        return 1
    fi
}
export -f fuzz
export runs seed findings

targets=$(find build/fuzz/tests/fuzz -maxdepth 1 -type f -executable | sort)
[ -n "$targets" ] || { echo "no fuzz target was built" >&2; exit 1; }
printf '%s\n' "$targets" | xargs -P "$(nproc)" -I{} bash -c 'fuzz {}'
