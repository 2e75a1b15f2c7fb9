#!/usr/bin/env bash
# Recalculates a design and draws all its plots: scripts/draw_pictures.sh DESIGN.dat
#
# Into build/pictures/<design>/ go the recalculated design, each plot in its default data form,
# one sheet with all of them, and the statistics of the two-way power plot.
set -euo pipefail

design=$(realpath "$1")
cd "$(dirname "$0")/.."
batch=build/release/program/halvorne-batch
name=$(basename "$design" .dat)
folder=build/pictures/$name
recalculated=$folder/$name.dat
plots=(11 12 13 14 15 16 17 21 22 23 24 25 26 27 31 32 33 34 41 42 51 52 53)

mkdir -p "$folder"
"$batch" recalc "$design" -o "$recalculated" --force
printf '%s\n' "${plots[@]}" | xargs -P "$(nproc)" -I{} \
  "$batch" plot "$recalculated" --plot {} -o "$folder/plot_{}.png"
"$batch" contact "$recalculated" -o "$folder/contact_sheet.png"
"$batch" stats "$recalculated" --plot 31 -o "$folder/statistics_plot_31.txt"

echo
cat "$folder/statistics_plot_31.txt"
echo
echo "The recalculated design, its ${#plots[@]} plots and the contact sheet are in"
echo "$PWD/$folder"
