#!/usr/bin/env bash
# Runs each fuzz target of a fuzz build for a while. The corpus of each
# grows in the build folder from run to run, starting from seeds made from
# the tests; a crash, leak or hang stops that target, leaves its input in
# <build>/crashes and makes the run fail.
# usage: fuzz/run.sh <fuzz build folder> <seconds per target>
# FUZZ_SEED fixes libFuzzer's random seed.
set -euo pipefail
build=$(cd "$1" && pwd)
seconds=$2
source_dir=$(cd "$(dirname "$0")/.." && pwd)
corpus=$build/corpus
"$source_dir/fuzz/seeds.sh" "$build" "$corpus/seeds"
mkdir -p "$build/crashes"
failed=()
for program in "$build"/fuzz/orvane_fuzz_*; do
    name=${program##*/orvane_fuzz_}
    mkdir -p "$corpus/$name"
    options=(-max_total_time="$seconds" -timeout=10 -max_len=8192 -print_final_stats=1
             -artifact_prefix="$build/crashes/$name-")
    case $name in
    Mel) options+=(-dict="$source_dir/fuzz/mel.dict" -only_ascii=1) ;;
    MayaAscii) options+=(-dict="$source_dir/fuzz/mel.dict") ;;
    # A leak check after each input would take most of this target's time;
    # a leak still fails the run, at exit.
    DataFiles) options+=(-detect_leaks=0) ;;
    esac
    [ -n "${FUZZ_SEED:-}" ] && options+=(-seed="$FUZZ_SEED")
    echo "== $name: ${seconds}s"
    ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS=suppressions="$source_dir/fuzz/lsan.supp" \
        UBSAN_OPTIONS=print_stacktrace=1 QT_QPA_PLATFORM=offscreen \
        "$program" "${options[@]}" "$corpus/$name" "$corpus/seeds/$name" 2>"$build/fuzz-$name.log" ||
        { failed+=("$name"); tail -n 60 "$build/fuzz-$name.log"; }
    grep -E '^stat::(number_of_executed_units|new_units_added|peak_rss_mb)' "$build/fuzz-$name.log" || true
done
if [ ${#failed[@]} -ne 0 ]; then
    echo "fuzzing found faults in: ${failed[*]} (inputs in $build/crashes)" >&2
    exit 1
fi
