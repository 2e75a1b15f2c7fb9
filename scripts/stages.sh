# To be sourced: `stage NAME COMMAND...` runs a command and notes what it took; the script that
# sourced this first prints all notes at its end, those of the scripts it called included.

if [ -z "${HALVORNE_STAGES:-}" ]; then
  HALVORNE_STAGES=$(mktemp)
  export HALVORNE_STAGES
  trap print_stages EXIT
fi

stage() {
  local name=$1 status=0 took
  shift
  echo "== $name"
  # The command keeps its output; only the shell's own line of times is caught.
  exec 3>&1 4>&2
  took=$({ TIMEFORMAT='%R %U %S'; time "$@" >&3 2>&4 3>&- 4>&-; } 2>&1) || status=$?
  exec 3>&- 4>&-
  echo "$took $name" >>"$HALVORNE_STAGES"
  return "$status"
}

print_stages() {
  awk '
    BEGIN { printf "\n%10s %12s  %s\n", "minutes", "processor", "stage" }
    { wall = $1 / 60; busy = ($2 + $3) / 60; sum_wall += wall; sum_busy += busy
      $1 = $2 = $3 = ""; printf "%10.1f %12.1f %s\n", wall, busy, $0 }
    END { printf "%10.1f %12.1f   all\n", sum_wall, sum_busy }' "$HALVORNE_STAGES"
  rm -f "$HALVORNE_STAGES"
}
