# What the scripts of this folder share: the real program in a folder of its own on a screen of its own, and what somebody in
# front of it sees and does. Not run by itself: a script reads it in with
#
#   . "$(dirname "$0")/desktop.sh"
#
# and its own arguments are those of start_desktop: BUILD PICTURES [LANGUAGE]. BUILD is a build folder, PICTURES a folder that
# is made if need be, LANGUAGE english (if none is given), cestina or russian. With QT_SCALE_FACTOR=2 in the environment the
# screen has as many times the pixels.

script=$(basename "$0")
folder=$(dirname "$(realpath "$0")")
ratio=${QT_SCALE_FACTOR:-1}
patience=60 # seconds until a condition counts as failed; with sanitizers on a busy machine things take long
program='' desktop='' screen='' home=''
export LC_ALL=C.UTF-8

tidy_up() {
  code=$?
  trap - EXIT
  for process in $program $desktop $screen; do kill "$process" 2>/dev/null || true; done
  [ -z "$home" ] || rm -rf "$home"
  exit $code
}

fail() {
  echo "$script: $*" >&2
  import -window root "$pictures/failed.png" 2>/dev/null && echo "The screen as it was: $pictures/failed.png" >&2
  cat "$home/said" >&2 2>/dev/null || true
  exit 1
}

ended() { [ -n "$program" ] && ! kill -0 "$program" 2>/dev/null; }

# until_true WHAT COMMAND...: waits until the command succeeds.
until_true() {
  what=$1
  shift
  last=$(($(date +%s) + patience))
  until "$@"; do
    [ "$(date +%s)" -lt $last ] || fail "waited in vain for $what"
    ! ended || fail "the program has ended instead of $what"
    sleep 0.1
  done
}

# text NUMBER: a text of the screens, as it stands in the language's source.
text() { sed -n "s/^$1 \"\(.*\)\"\$/\1/p" "$folder/../../data/jazyk/$language.txt"; }

# in_letters TEXT: a text of a Czech set as it is shown, in the letters of the language that is spoken.
in_letters() {
  if [ "$language" = russian ]; then
    printf '%s' "$1" | iconv -t CP1250 | iconv -f CP1251
  else
    printf '%s' "$1"
  fi
}

title() { xdotool getactivewindow getwindowname 2>/dev/null || true; }
has_title() { [ "$(title)" = "$1" ]; }
lacks_title() { ! has_title "$1"; }
# stage NUMBER-NAME TITLE [WHAT]: waits until a window with this title is the active one and what is seen (the whole screen,
# if nothing is given) is at rest, and keeps a picture of the screen.
stage() {
  until_true "the window \"$2\"" has_title "$2"
  if [ $# -gt 2 ]; then
    until_true 'the view to come to rest' at_rest "$3"
  else
    until_true 'the screen to come to rest' screen_at_rest
  fi
  import -window root "$pictures/$1.png"
  echo "$1: $2"
}

press() { xdotool key --delay 0 "$@"; }
write() { xdotool type --delay 20 "$1"; }
# point X Y: moves the pointer to a place of the active window, in logical pixels from the corner of its inside.
point() { xdotool mousemove --sync --window "$(xdotool getactivewindow)" $(($1 * ratio)) $(($2 * ratio)); }
# click X Y [TIMES]
click() {
  point "$1" "$2"
  xdotool click --repeat "${3:-1}" --delay 60 1
}

# What can be seen of the cave, without the clock above it and the exit at its right edge, which glitters when it is open: a
# number that changes when anything else moves.
cave() {
  eval "$(xdotool getactivewindow getwindowgeometry --shell | sed 's/^/window_/')"
  # shellcheck disable=SC2154 # set by the line above
  import -window root -depth 8 \
    -crop "$((window_WIDTH * 94 / 100))x$((window_HEIGHT * 6 / 10))+$window_X+$((window_Y + window_HEIGHT / 5))" rgb:- | cksum
}
screen_content() { import -window root -depth 8 rgb:- | cksum; }
differs() { [ "$("$1")" != "$2" ]; }
# at_rest WHAT: true when the command WHAT tells the same three times.
at_rest() {
  seen=$($1)
  for _ in 1 2; do
    sleep 0.1
    [ "$($1)" = "$seen" ] || return 1
  done
}
# True when most of five looks at the screen saw what the last one saw: a caret may blink meanwhile.
screen_at_rest() {
  seen=''
  for _ in 1 2 3 4 5; do
    now=$(screen_content)
    seen="$seen$now
"
    sleep 0.1
  done
  [ "$(printf '%s' "$seen" | grep -cxF "$now")" -ge 3 ]
}

# start_desktop BUILD PICTURES [LANGUAGE]: a screen, a window manager, and the program's files in $home/game.
start_desktop() {
  [ $# -ge 2 ] || {
    echo "usage: $script BUILD PICTURES [LANGUAGE]" >&2
    exit 2
  }
  for tool in Xvfb openbox xdotool import; do
    command -v $tool >/dev/null || {
      echo "$script: $tool is missing; scripts/packages test installs it" >&2
      exit 2
    }
  done
  mkdir -p "$2"
  rm -f "$2"/*.png
  build=$(realpath "$1")
  pictures=$(realpath "$2")
  language=${3:-english}
  home=$(mktemp -d)
  trap tidy_up EXIT
  trap 'exit 1' INT TERM

  mkfifo "$home/display"
  # Without -noreset the screen starts anew whenever the last program leaves it, and takes the window manager that is just
  # about to come with it.
  Xvfb -displayfd 3 -screen 0 "$((1024 * ratio))x$((768 * ratio))x24" -nolisten tcp -noreset \
    3>"$home/display" 2>/dev/null &
  screen=$!
  read -r number <"$home/display"
  mkdir -m 700 "$home/run"
  export DISPLAY=":$number" HOME="$home" XDG_RUNTIME_DIR="$home/run" XDG_CONFIG_HOME="$home/config" \
    XDG_DATA_HOME="$home/data" SDL_AUDIODRIVER=dummy
  openbox >/dev/null 2>&1 &
  desktop=$!
  managed() { xdotool get_num_desktops >/dev/null 2>&1; }
  until_true 'the window manager' managed

  mkdir "$home/game"
  cp -r "$build/data/zorbik" "$build"/data/*.zbl "$build/data/pictures" "$build/data/Zvuk" "$home/game"
  mkdir "$home/game/Komnaty"
  cp "$build/data/Komnaty/Komnaty.zb" "$home/game/Komnaty"
  xdotool mousemove 0 0 # out of the pictures
}

# start_program [ARGUMENT...]: for a new user, and answers its first questions up to the start screen, titled $game.
start_program() {
  "$home/game/zorbik" "$@" >"$home/said" 2>&1 &
  program=$!
  case $language in # in the order of the list
    cestina) game=Zorbík choice='' ;;
    russian) game=ЗОРБИ choice='Down Down' ;;
    *) game=Borzeek choice=Down ;;
  esac
  stage 01-language 'Language / Jazyk :'
  # shellcheck disable=SC2086 # keys
  [ -z "$choice" ] || press $choice
  press Return
  stage 02-name "$(text 072)"
  write Eva
  press Return
  stage 03-welcome "$(text 114)"
  press Return
  stage 04-start "$game"
  [ -d "$home/game/Hráči/Eva" ] || fail 'the player has no folder'
}

# end_program: by the start screen's button, from the start screen.
end_program() {
  until_true 'the start screen' has_title "$game"
  click 557 18
  leaving=$program program=''
  left() { ! kill -0 "$leaving" 2>/dev/null; }
  until_true 'the end of the program' left
  wait "$leaving" || fail "the program has ended with $?"
  [ ! -s "$home/said" ] || fail 'the program has said something'
}
