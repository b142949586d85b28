#!/usr/bin/env bash
# The search from outside: a tree of awkward names, searched by the driver in its three modes.
set -u
run=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failed=0

# expect WHAT WANTED GOT
expect() {
    [ "$2" = "$3" ] && return
    printf 'FAILED: %s\n  wanted: %s\n  got:    %s\n' "$1" "$2" "$3"
    failed=1
}

# rows OPTIONS...: the rows without the tree's path, one a line, NUL and newline made visible
rows() {
    "$run" --rows "$tree.rows" "$@" >"$tree.line" 2>/dev/null
    tr '\n\0' '$\n' <"$tree.rows" | sed "s|$tree/||"
    rm -f "$tree.rows" "$tree.line"
}

mkdir -p "$tree/in/one" "$tree/in/.two" "$tree/link-target"
long=$(printf 'n%.0s' {1..255})
printf same >"$tree/in/-rf"
printf same >"$tree/in/one/new
line"
printf same >"$tree/in/.two/$(printf '\377')"
printf diff >"$tree/in/one/-rf"
printf longer >"$tree/in/$long"
printf longer >"$tree/in/one/$long"
ln -s ../in "$tree/link-target/loop"
ln -s loop "$tree/in/loop"
mkfifo "$tree/in/one/fifo"

expect 'rows by content, hidden ones too' 5 "$(rows --hidden "$tree/in" | wc -l)"
expect 'rows by name' 4 "$(rows --name "$tree/in" | wc -l)"
expect 'overlapping folders and a link to one' 5 "$(rows --hidden "$tree/in" "$tree/in/one" "$tree/link-target/loop" | wc -l)"
expect 'exact bytes of a name' 1 "$(rows --hidden "$tree/in" | LC_ALL=C grep -c "two/$(printf '\377')$")"

line=$("$run" --content --hidden "$tree/in")
expect 'the line' 'files=6 rows=5 groups=2 reads=6 read_bytes=28' "${line%% scan=*}"
expect 'status of a folder that is gone' 2 "$("$run" "$tree/gone" "$tree/in" >/dev/null 2>&1; echo $?)"
# A folder mounted in two places holds each file once. Only where mounting is allowed.
if unshare -m true 2>/dev/null; then
    mkdir "$tree/mounted"
    expect 'a second mount' 0 "$(unshare -m bash -c 'mount --bind "$2/in/one" "$2/mounted" &&
        "$1" --hidden "$2/in/one" "$2/mounted"' - "$run" "$tree" | sed 's/.*rows=\([0-9]*\).*/\1/')"
fi
for arguments in '' '--unknown /' '--rows'; do
    # shellcheck disable=SC2086
    expect "status of '$arguments'" 64 "$("$run" $arguments >/dev/null 2>&1; echo $?)"
done
exit $failed
