#!/usr/bin/env bash
# Builds the fuzz targets and calls each with inputs that grow from its seeds in tests/fuzz/seeds/<target>/: a
# reader of projects and airfoils VELNA_FUZZ_RUNS times (50,000 if not told), any other target a thousand times or
# for a minute. With VELNA_FUZZ_MINUTES each runs so long instead. A crash, a hang, a sanitizer report or memory
# beyond the bound fails, and the input that did it is kept in build/fuzz/findings/.
set -euo pipefail
cd "$(dirname "$0")/../.."

runs=${VELNA_FUZZ_RUNS:-50000}
minutes=${VELNA_FUZZ_MINUTES:-}
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
    local bounds=("-runs=$runs") cheap=()
    case $name in
    fuzz_project | fuzz_airfoil | fuzz_outline) ;;
    *) bounds=(-runs=1000 -max_total_time=60) ;;
    esac
    # These look for lost memory themselves: libFuzzer's own look would cost more than the runs.
    case $name in
    fuzz_pipeline | fuzz_editing) cheap=(-detect_leaks=0 -entropic=0) ;;
    esac
    [ -z "$minutes" ] || bounds=("-max_total_time=$((minutes * 60))")
    if "$target" "${bounds[@]}" "${cheap[@]}" -seed="$seed" -timeout=60 -rss_limit_mb=2048 -max_len=65536 \
        -artifact_prefix="$findings/$name-" "build/fuzz/corpus/$name" "$seeds" >"$log" 2>&1; then
        echo "$name, seed $seed: $(grep -a '^Done' "$log" || tail -n 1 "$log"), $(grep -ao 'cov: [0-9]* ft: [0-9]*' "$log" | tail -n 1)"
    else
        echo "$name: failed, seed $seed" >&2
        tail -n 60 "$log" >&2
        return 1
    fi
}
export -f fuzz
export runs minutes seed findings

targets=$(find build/fuzz/tests/fuzz -maxdepth 1 -type f -executable | sort)
[ -n "$targets" ] || { echo "no fuzz target was built" >&2; exit 1; }
printf '%s\n' "$targets" | xargs -P "$(nproc)" -I{} bash -c 'fuzz {}'
