#!/bin/bash -p
# Replaces a program by a new version once it has ended, and starts the new one.
#
# If it is killed at any moment, a program that starts is left. A file is replaced by one rename(2), after the old one
# was given a second name, by a hard link or else a copy. A folder cannot be renamed over another one, so both are
# exchanged atomically by renameat2(2), which Perl calls. Only where that fails are two renames used, between which the
# path does not exist; the next update restores what was left in that state.
{
set +o posix
exec </dev/null >/dev/null 2>&1
trap '' HUP INT
shopt -s dotglob nullglob

# Only the program gets the user's environment. Names with a subscript are omitted, since Bash would evaluate it.
mapfile -d '' -t </proc/self/environ
set -- "${MAPFILE[@]}"
for entry; do
  [[ ${entry%%=*} == *[![:alnum:]_]* ]] || unset -v "${entry%%=*}"
done
export PATH=/usr/bin:/bin LC_ALL=C

APP_NAME=@@APP_NAME@@
APP_PARENT=@@APP_PARENT@@
APP_VERSION=@@APP_VERSION@@
NEW_APP_NAME=@@NEW_APP_NAME@@
NEW_APP_PARENT=@@NEW_APP_PARENT@@
TEMP_FOLDER_PATH=@@TEMP_FOLDER@@
PID_FILE=@@PID_FILE_PATH@@
NEW_APP_OTHER_UB=@@NEW_APP_OTHER_UB@@
NEW_APP_OTHER_NAME=()
@@NEW_APP_OTHER_ARRAY@@
# The environment of the old program; that of this script lacks some variables.
mapfile -d '' -t user_environment <"$TEMP_FOLDER_PATH/environment" || user_environment=("$@")
rm -f -- "$TEMP_FOLDER_PATH/environment"
APP_PATH=$APP_PARENT/$APP_NAME
NEW_APP_PATH=$APP_PARENT/$NEW_APP_NAME

# Companions are replaced before the executable: the old one also starts with new companions.
items=("${NEW_APP_OTHER_NAME[@]:0:NEW_APP_OTHER_UB + 1}" "$NEW_APP_NAME")
# The path of the old item that each item has replaced; empty if there was none.
aside=()
# Holds new items before, and old ones after they are replaced: in the same folder, so on the same file system.
stage=
log_is_stuck=0

# The system log may be missing or slow.
log_cmd() {
  [[ -S /dev/log ]] && ((!log_is_stuck)) || return
  timeout 2 logger -t 'Kaju Update Script' -- "$*"
  (($? != 124)) || log_is_stuck=1
}

# Runs a command that the update depends on; its error message is logged.
attempt() {
  local complaint
  complaint=$("$@" 2>&1) && return
  log_cmd "Failed: ${complaint:-$*}"
  return 1
}

exists() { [[ -e $1 || -L $1 ]]; }
is_folder() { [[ -d $1 && ! -L $1 ]]; }

# shellcheck disable=SC2317  # called by attempt
# Creates hard links to a file or tree, or copies it if the file system has no hard links or is another one.
clone() { # from, to
  cp -al -T -- "$1" "$2" 2>/dev/null && return
  rm -rf -- "$2"
  cp -a -T -- "$1" "$2"
}

# Exchanges two paths; fails if Perl, the kernel or the file system does not support it.
exchange() {
  # shellcheck disable=SC2016  # Perl's own variables
  perl -MConfig -e '
    my %renameat2 = (x86_64 => 316, aarch64 => 276, riscv64 => 276);
    my $number = $renameat2{$Config{archname} =~ s/-.*//r} or exit 1;
    exit(syscall($number, -100, $ARGV[0], -100, $ARGV[1], 2) != 0);' -- "$1" "$2"
}

# Starts a program as the user would: with the user's environment, and without this script's open files and ignored
# signals. Not by env, which takes a path with "=" for a variable.
start() { # program, arguments
  local fd environment=(env --default-signal -i -- "${user_environment[@]}")
  log_cmd "Starting $*"
  (
    for fd in /proc/self/fd/*; do
      fd=${fd##*/}
      ((fd > 2)) && exec {fd}>&-
    done
    # shellcheck disable=SC2016  # Perl's own variables
    if [[ $1 == *=* ]] && ! type -P perl; then
      environment+=(/usr/bin/setsid)
    elif [[ $1 == *=* ]]; then
      environment=(perl -e '
        @SIG{qw(HUP INT)} = ("DEFAULT") x 2;
        %ENV = ();
        for (splice @ARGV, 0, shift) { $ENV{$1} = $2 if /^(.+?)=(.*)$/s }
        exec { $ARGV[0] } @ARGV' "${#user_environment[@]}" "${user_environment[@]}")
    fi
    setsid --fork "${environment[@]}" "$@" || setsid --fork "$@"
  )
}

put_in() { # index of the item
  local at=$APP_PARENT/${items[$1]} new=$stage/new/${items[$1]} old=$stage/old/${items[$1]}
  log_cmd "Moving new ${items[$1]} to folder $APP_PARENT"
  if ! exists "$at"; then
    attempt mv -T -- "$new" "$at" && aside[$1]=
  elif ! is_folder "$at" && ! is_folder "$new"; then
    attempt clone "$at" "$old" && attempt mv -f -T -- "$new" "$at" && aside[$1]=$old
  elif exchange "$new" "$at"; then
    aside[$1]=$new
  else
    attempt mv -T -- "$at" "$old" && aside[$1]=$old && attempt mv -T -- "$new" "$at"
  fi
}

put_back() { # index of the item
  local at=$APP_PARENT/${items[$1]} old=${aside[$1]}
  if [[ -z $old ]]; then
    attempt rm -rf -- "$at"
  elif ! exists "$at" || { ! is_folder "$at" && ! is_folder "$old"; }; then
    attempt mv -f -T -- "$old" "$at"
  else
    exchange "$old" "$at" || { attempt mv -T -- "$at" "$stage/failed-$1" && attempt mv -T -- "$old" "$at"; }
  fi
}

# Ends a failed update: restores everything and starts the old program.
give_up() { # reason
  local i lost=0
  log_cmd "$1"
  log_cmd 'Attempting to restore old application and launch it'
  for ((i = ${#items[@]} - 1; i >= 0; i--)); do
    [[ ! -v aside[i] ]] || put_back "$i" || lost=1
  done
  ((lost)) || rm -rf -- "$stage"
  # Tells the old program what to delete.
  ln -sfn -- "$NEW_APP_PARENT" "$TEMP_FOLDER_PATH/failed"
  start "$APP_PATH" --kaju-fail
  exit 1
}

wait_for_app() {
  local counter=10
  while [[ -f $PID_FILE ]]; do
    log_cmd "Checking to see if $PID_FILE exists, $counter"
    sleep 1
    if ((--counter == 0)); then
      log_cmd 'ERROR: Could not update app, it never quit'
      exit 1
    fi
  done
}

# Only one update of a folder at a time. The lock ends with the last process that holds it, so a killed one leaves only
# its stage, which is deleted here. Where folders cannot be locked, stages are not touched.
lock_folder() {
  local lock status old
  exec {lock}<"$APP_PARENT/"
  flock -w 60 -E 75 "$lock"
  status=$?
  ((status != 75)) || give_up 'ERROR: Another update of this folder does not end'
  ((status == 0)) || return
  for old in "$APP_PARENT"/.kaju_updater.*/old/*; do
    exists "$APP_PARENT/${old##*/}" || mv -T -- "$old" "$APP_PARENT/${old##*/}"
  done
  rm -rf -- "$APP_PARENT"/.kaju_updater.*
}

# Whatever can fail for lack of space or permissions is done before the first item is replaced.
stage_items() {
  local item
  stage=$APP_PARENT/.kaju_updater.$$.$RANDOM
  attempt mkdir -m 700 -- "$stage" "$stage/new" "$stage/old" || return
  for item in "${items[@]}"; do
    attempt clone "$NEW_APP_PARENT/$item" "$stage/new/$item" || return
  done
  item=$stage/new/$NEW_APP_NAME
  [[ -f $item ]] && { [[ -x $item ]] || attempt chmod a+x -- "$item"; } && attempt sync -f -- "$stage"
}

# A new executable with another name has not replaced the old one. On some file systems the two names are the same file.
remove_old_executable() {
  local item
  for item in "${items[@]}"; do
    [[ $item != "$APP_NAME" ]] || return 0
  done
  [[ $APP_PATH -ef $NEW_APP_PATH ]] || rm -f -- "$APP_PATH"
}

remove_temporary_folders() {
  local unpacked=${NEW_APP_PARENT%/*}
  rm -rf -- "$NEW_APP_PARENT"
  if [[ ${unpacked##*/} == decompressed ]]; then
    rm -rf -- "$unpacked"
    rmdir -- "${unpacked%/*}"
  fi
  rm -rf -- "$TEMP_FOLDER_PATH"
}

log_cmd "STARTING UPDATE OF $APP_NAME"
wait_for_app
lock_folder
log_cmd "Copying new application from $NEW_APP_PARENT"
stage_items || give_up "Could not copy new application to $APP_PARENT"
for ((i = 0; i < ${#items[@]}; i++)); do
  put_in "$i" || give_up 'Could not move in new application'
done
log_cmd "Removing old application $APP_NAME"
remove_old_executable
rm -rf -- "$stage"
start "$NEW_APP_PATH" --kaju-success "$APP_VERSION"
log_cmd 'Removing temp folder'
remove_temporary_folders
exit 0
}
