#!/bin/sh
# run.sh PROGRAM SEEDS RESULTS SECONDS: runs a fuzz target on a copy of its seeds; an input that breaks it is kept in
# RESULTS and fails the test. SECONDS 0 only runs the seeds.
set -eu
program=$1 seeds=$2 results=$3 seconds=$4
corpus=$(mktemp -d "${TMPDIR:-/tmp}/corpus.XXXXXX")
trap 'rm -rf "$corpus"' EXIT
[ -n "$(ls "$seeds")" ] || { echo "no seeds in $seeds" >&2; exit 1; }
cp "$seeds"/* "$corpus"
if [ "$seconds" -eq 0 ]; then limit=-runs=0; else limit=-max_total_time=$seconds; fi
"$program" "$limit" -rss_limit_mb=2048 -timeout=10 -print_final_stats=1 "-artifact_prefix=$results/" "$corpus"
