# A user of a window of the virtual display, for scripts to source. They use the process id $player_id of the
# program, the folder $folder for pictures and the folder $work with the screen of Xvfb.
player_id=''
panel=''
dialog=''
panel_width=607

# wait_until SECONDS COMMAND...: until the command succeeds; fails when the time is over.
wait_until() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@" 2>/dev/null; do
    ((SECONDS < deadline)) || { echo "waited in vain for: $*" >&2; return 1; }
    sleep 0.05
  done
}

player_windows() { xdotool search --all --onlyvisible --pid "$player_id" --name '' || true; }

window_width() { xdotool getwindowgeometry --shell "$1" | sed -n 's/^WIDTH=//p'; }

find_panel() {
  local window
  for window in $(player_windows); do
    if [[ $(window_width "$window") == "$panel_width" ]]; then
      panel=$window
      return
    fi
  done
  return 1
}

# The dialog is the program's other visible window.
find_dialog() {
  local window
  for window in $(player_windows); do
    if [[ $window != "$panel" ]]; then
      dialog=$window
      return
    fi
  done
  return 1
}

dialog_is_gone() { ! find_dialog; }

# click_panel X Y: the left button at a point of the panel.
click_panel() {
  local X Y WIDTH HEIGHT WINDOW SCREEN
  eval "$(xdotool getwindowgeometry --shell "$panel")"
  xdotool mousemove $((X + $1)) $((Y + $2)) click 1
}

# press_key KEY: a key for the panel, which gets the focus (there is no window manager to give it).
press_key() {
  xdotool windowfocus --sync "$panel"
  xdotool key "$1"
}

# type_line WINDOW TEXT: the text and Return.
type_line() {
  xdotool windowfocus --sync "$1"
  xdotool type --delay 5 -- "$2"
  xdotool key Return
}

# picture NAME: the panel as it now is on the screen, without the pointer over it, as NAME.png.
picture() {
  local X Y WIDTH HEIGHT WINDOW SCREEN
  xdotool mousemove 1919 1079
  sleep 0.2
  eval "$(xdotool getwindowgeometry --shell "$panel")"
  "$here/screen_picture" "$work/Xvfb_screen0" "$folder/$1.png" "$X" "$Y" "$WIDTH" "$HEIGHT"
}
