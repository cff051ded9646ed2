# Completion of almanac for bash, written by the program itself.
_almanac() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command= k
  for ((k = 1; k < COMP_CWORD; ++k)); do
    case " today positions events next stations retrogrades ingresses aspects rise doctor check version " in
      *" ${COMP_WORDS[k]} "*) command=${COMP_WORDS[k]}; break ;;
    esac
  done
  local values=
  case $before in
    --library) COMPREPLY=($(compgen -f -- "$word")); return ;;
    --date) values='now today tomorrow yesterday' ;;
    --body) values='sun moon mercury venus earth mars jupiter saturn uranus neptune pluto all' ;;
    --zone) values='UTC local' ;;
    --time) values='utc tt' ;;
    --format) values='text csv json jsonl' ;;
    --width) return ;;
    --color) values='auto always never' ;;
    --from) values='now today tomorrow yesterday' ;;
    --to) values='now today tomorrow yesterday' ;;
    --year) return ;;
    --step) values='15min 1h 1d 1w 1mo 1y' ;;
    --field) values='longitude zodiac latitude motion direction declination declination-motion right-ascension distance elongation geometric-longitude geometric-latitude helio-longitude helio-latitude helio-distance phase-angle axis-angle illumination obliquity' ;;
    --kind) values='seasons phases eclipses solar-eclipses lunar-eclipses all march-equinox june-solstice september-equinox december-solstice new-moon first-quarter full-moon last-quarter solar-total solar-annular solar-annular-total solar-total-noncentral solar-annular-noncentral solar-partial lunar-total lunar-partial lunar-penumbral' ;;
    --after) values='now today tomorrow yesterday' ;;
    --count) return ;;
    --every) return ;;
    --with) values='sun moon mercury venus earth mars jupiter saturn uranus neptune pluto all' ;;
    --angle) values='conjunction semi-sextile semi-square sextile square trine sesqui-square quincunx opposition' ;;
    --lat) return ;;
    --lon) return ;;
    --place) return ;;
    --places) COMPREPLY=($(compgen -f -- "$word")); return ;;
  esac
  if [ -n "$values" ]; then
    # Several words stand with commas between them.
    local begun=
    case $word in *,*) begun=${word%,*}, ;; esac
    COMPREPLY=($(compgen -P "$begun" -W "$values" -- "${word##*,}"))
    return
  fi
  case $command in
    today) COMPREPLY=($(compgen -W '--help --date --body --zone --time --format --notes --width --color' -- "$word")) ;;
    positions) COMPREPLY=($(compgen -W '--help --date --from --to --year --step --body --field --geometric --helio --zone --time --format --notes --width --color' -- "$word")) ;;
    events) COMPREPLY=($(compgen -W '--help --from --to --year --kind --zone --time --format --notes --width --color' -- "$word")) ;;
    next) COMPREPLY=($(compgen -W '--help --after --count --zone --time --format --notes --width --color seasons phases eclipses solar-eclipses lunar-eclipses all march-equinox june-solstice september-equinox december-solstice new-moon first-quarter full-moon last-quarter solar-total solar-annular solar-annular-total solar-total-noncentral solar-annular-noncentral solar-partial lunar-total lunar-partial lunar-penumbral' -- "$word")) ;;
    stations) COMPREPLY=($(compgen -W '--help --from --to --year --body --geometric --zone --time --format --notes --width --color' -- "$word")) ;;
    retrogrades) COMPREPLY=($(compgen -W '--help --from --to --year --body --geometric --zone --time --format --notes --width --color' -- "$word")) ;;
    ingresses) COMPREPLY=($(compgen -W '--help --from --to --year --body --every --geometric --helio --zone --time --format --notes --width --color' -- "$word")) ;;
    aspects) COMPREPLY=($(compgen -W '--help --from --to --year --body --with --angle --geometric --helio --zone --time --format --notes --width --color' -- "$word")) ;;
    rise) COMPREPLY=($(compgen -W '--help --date --from --to --year --lat --lon --place --places --body --zone --time --format --notes --width --color' -- "$word")) ;;
    doctor) COMPREPLY=($(compgen -W '--help --install --yes --format --notes --width --color' -- "$word")) ;;
    check) COMPREPLY=($(compgen -f -W '--help' -- "$word")) ;;
    version) COMPREPLY=($(compgen -W '--help --format --notes --width --color' -- "$word")) ;;
    *) COMPREPLY=($(compgen -W 'today positions events next stations retrogrades ingresses aspects rise doctor check version --help --library --version' -- "$word")) ;;
  esac
}
complete -F _almanac almanac
