#!/usr/bin/env bash
# Makes the seed corpus of each fuzz target from the tests: the scene files
# of tests/data, the MEL the tests run, and the data files the plug-in
# writes on the tests' rig.
# usage: fuzz/seeds.sh <fuzz build folder> <output folder>
set -euo pipefail
build=$(cd "$1" && pwd)
out=$2
source_dir=$(cd "$(dirname "$0")/.." && pwd)
rm -rf "$out"
mkdir -p "$out/MayaAscii" "$out/Mel" "$out/DataFiles"
out=$(cd "$out" && pwd)

cp "$source_dir"/tests/data/*.ma "$out/MayaAscii/"

# One seed a test: the MEL strings its file runs before its first test (the
# fixtures' set-up), then its own, in order.
find "$source_dir/tests" -name '*.cpp' | sort | perl -e '
    use strict;
    use warnings;
    my $out = shift;
    my %escape = (n => "\n", t => "\t");
    while (my $file = <STDIN>) {
        chomp $file;
        open my $in, "<", $file or next;
        (my $stem = $file) =~ s{.*/tests/}{};
        $stem =~ s{\.cpp$}{};
        $stem =~ s{/}{_}g;
        my (@setup, @own);
        my ($inTest, $count) = (0, 0);
        my $flush = sub {
            if ($inTest && @own) {
                open my $seed, ">", sprintf("%s/%s_%03d", $out, $stem, ++$count) or die;
                print $seed join(";\n", @setup, @own), ";\n";
            }
            @own = ();
        };
        while (my $line = <$in>) {
            if ($line =~ /^\s*TEST(?:_F|_P)?\(/) {
                $flush->();
                $inTest = 1;
            }
            while ($line =~ /(?:mel|executeCommand)\((?:R"\((.*?)\)"|"((?:[^"\\]|\\.)*)")[,)]/g) {
                my $text = defined $1 ? $1 : $2 =~ s/\\(.)/$escape{$1} \/\/ $1/ger;
                push @{$inTest ? \@own : \@setup}, $text;
            }
        }
        $flush->();
    }' "$out/Mel"

# The data files the plug-in writes, as the data file target makes them
# for its own start (one run on an empty input).
empty=$(mktemp)
trap 'rm -f "$empty"' EXIT
ORVANE_FUZZ_SEEDS="$out/DataFiles" LSAN_OPTIONS=suppressions="$source_dir/fuzz/lsan.supp" QT_QPA_PLATFORM=offscreen \
    "$build/fuzz/orvane_fuzz_DataFiles" "$empty" >/dev/null 2>&1 ||
    { echo "seeds: the plug-in could not write its data files" >&2; exit 1; }
echo "seeds: $(ls "$out/MayaAscii" | wc -l) scenes, $(ls "$out/Mel" | wc -l) scripts, $(ls "$out/DataFiles" | wc -l) data files"
