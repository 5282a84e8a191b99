# Unpacks a zip archive into a folder. Arguments: the archive, the folder, which may not exist, and the program's own
# unzip for systems without one. The exit status is 0 only if everything was unpacked and consists of files, folders, and
# links that stay in the folder. For Bash.
set -euo pipefail
set +o posix
export LC_ALL=C.UTF-8
unset UNZIP UNZIPOPT ZIPINFO ZIPINFOOPT
# No update needs more, per tool: five minutes of computing, 1 GB of memory.
ulimit -t 300 -v 1000000
folder=$2
unzip=/usr/bin/unzip
[[ -x $unzip ]] || unzip=$3
# As a descriptor, since unzip would take a name with brackets for a pattern.
exec 3<"$1"
archive=/proc/self/fd/3

# Checks the archive's listing: after two lines and before one about the archive itself, a line for each entry with
# unprintable characters escaped: type and permissions, version, system, size, kind (in capitals if it is encrypted),
# method, date, time and name. Prints the size of the largest file.
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
      gsub(/\/+/, "/", name)
      gsub(/\/(\.\/)+/, "/", name)
      sub(/^(\.\/)+/, "", name)
      sub(/\/\.?$/, "", name)
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

# Whether a link leads to a path in the folder, given the targets of all links. A missing name counts as a folder.
stays_inside() { # the link
  local left=$1 at='' part link steps=0
  while [[ -n $left ]]; do
    ((++steps <= 200)) || return
    part=${left%%/*}
    left=${left#"$part"} left=${left#/}
    case $part in
      '' | .) continue ;;
      ..)
        [[ -n $at ]] || return
        at=${at%"/${at##*/}"}
        continue
        ;;
    esac
    link=${links[$at/$part]-}
    [[ $link != /* ]] || return
    if [[ -n $link ]]; then left=$link/$left; else at+=/$part; fi
  done
}

largest=$("$unzip" -Z -s "$archive" | check_list)
# An entry that is larger than listed makes unzip fail.
ulimit -f $((largest / 1024 + 1))
"$unzip" -q -o -^ "$archive" -d "$folder" </dev/null >&2

# A folder without write permission could be neither moved to the program nor deleted.
root=$(/usr/bin/realpath "$folder")
/usr/bin/find "$root" -type d ! -perm -700 -exec /bin/chmod u+rwx {} \;

shopt -s lastpipe
/usr/bin/find "$root" -type l -printf '/%P\0%l\0' | mapfile -d '' -t found
declare -A links=()
for ((i = 0; i < ${#found[@]}; i += 2)); do links[${found[i]}]=${found[i + 1]}; done
for ((i = 0; i < ${#found[@]}; i += 2)); do
  stays_inside "${found[i]}" || { printf 'Leads outside: %s\n' "${found[i]}" >&2; exit 1; }
done
