# Unpacks a zip archive into a folder. Arguments: the archive, the folder, which may be missing, and the unzip that the
# program brings for systems without one. The status is 0 only if
# all of it was unpacked and nothing in it is more than files, folders, and links that stay in the folder.
set -eu
export LC_ALL=C.UTF-8
unset UNZIP UNZIPOPT ZIPINFO ZIPINFOOPT
folder=$2
unzip=/usr/bin/unzip
[ -x "$unzip" ] || unzip=$3
# By number, since unzip would take a name with brackets for a pattern.
exec 3<"$1"
archive=/proc/self/fd/3

# The archive's list has a line for each entry, with unprintable characters escaped, between two lines and one about the
# archive itself: type and permissions, version, system, size, kind (in capitals if it is encrypted), method, date, time
# and name. Prints the size of the largest file.
check_list() {
  /usr/bin/awk '
    function refuse(why) { print why ": " name > "/dev/stderr"; refused = 1; exit 1 }
    NR > 3 {
      name = line
      for (field = 0; field < 8; ++field) sub(/^ *[^ ]+/, "", name)
      sub(/^ /, "", name)
      split(line, fields)
      if (fields[1] !~ /^[-dl?]/) refuse("Not a file, folder or link")
      if (fields[1] ~ /[sS]/) refuse("Gives the rights of its owner")
      if (fields[5] ~ /^[TB]/) refuse("Encrypted")
      gsub(/\\/, "/", name)
      if (name == "" || name ~ /^\// || name ~ /^[A-Za-z]:/ || name ~ /(^|\/)\.\.(\/|$)/) refuse("Leaves the folder")
      while (sub(/(^|\/)\.\//, "/", name)) continue
      gsub(/\/+/, "/", name)
      gsub(/^\/|\/$/, "", name)
      if (name in seen) refuse("Stands twice")
      seen[name] = 1
      total += fields[4]
      if (fields[4] > largest) largest = fields[4]
      if (total > 4000000000 || NR > 100000) refuse("More than can be an update, at")
    }
    { line = $0 }
    END {
      if (refused) exit 1
      if (NR < 4) exit 1
      printf "%d", largest
    }'
}

list=$("$unzip" -Z -s "$archive")
largest=$(printf '%s\n' "$list" | check_list)
# An entry that is larger than the list says ends the work.
ulimit -f $((largest / 512 + 1))
"$unzip" -q -o -^ "$archive" -d "$folder" </dev/null >&2

root=$(/usr/bin/realpath "$folder")
/usr/bin/find "$root" -type l -exec /bin/sh -c '
  root=$1
  shift
  for link; do
    case $(/usr/bin/realpath -m "$link") in
      "$root" | "$root"/*) ;;
      *) exit 1 ;;
    esac
  done' unpack "$root" {} +
