# Sourced by scripts/test: one more renderer for the page tests, whose tests skip themselves without it.

# Fetches it where npm is there. What could not be fetched once is not asked for again.
fetch_resvg() {
  local folder=build/node
  command -v npm >/dev/null && [ "${QVA_NO_INSTALL:-0}" != 1 ] || return 0
  [ ! -e $folder/unavailable ] && [ ! -e $folder/node_modules ] || return 0
  echo "Fetching the renderer resvg with npm, for a minute at most"
  mkdir -p $folder
  run_quietly build/npm.log timeout 60 npm install --prefix $folder --cache $folder/cache --fetch-retries=0 \
    --fetch-timeout=15000 --no-audit --no-fund --no-update-notifier @resvg/resvg-js@2.6.2 && return
  rm -rf $folder/node_modules
  touch $folder/unavailable
  echo "No resvg: its tests skip themselves. To try again, remove $folder."
}
