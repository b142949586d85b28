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

# rows ARGUMENTS...: how many rows a search comes to
rows() { "$run" "$@" | sed 's/.*rows=\([0-9]*\).*/\1/'; }

odd=$(printf '\377')
long=$(printf 'n%.0s' {1..255})
mkdir -p "$tree/in/one" "$tree/in/.two" "$tree/link-target" "$tree/mounted"
for name in -rf $'one/new\nline' ".two/$odd"; do printf same >"$tree/in/$name"; done
for name in "$long" "one/$long"; do printf longer >"$tree/in/$name"; done
printf diff >"$tree/in/one/-rf"
ln -s ../in "$tree/link-target/loop"
ln -s loop "$tree/in/loop"
mkfifo "$tree/in/one/fifo"

line=$("$run" --content --hidden --rows "$tree/rows" "$tree/in")
expect 'the line' 'files=6 rows=5 groups=2 reads=6 read_bytes=28' "${line%% scan=*}"
expect 'exact bytes of names' 2 "$(LC_ALL=C grep -Pzc "/(\.two/$odd|one/new\nline)\$" "$tree/rows")"
mkdir "$tree/order"
for name in a10.txt .a.txt a2.txt 'a - Copy.txt' 'a (1).txt' a.txt; do printf same >"$tree/order/$name"; done
"$run" --hidden --rows "$tree/rows" "$tree/order" >/dev/null
expect 'the original first' 'a.txt a (1).txt a - Copy.txt a2.txt a10.txt .a.txt' \
    "$(tr '\0' '\n' <"$tree/rows" | sed 's|.*/||' | paste -sd ' ')"
"$run" --print "$tree/order" >/dev/full 2>&1 && expect 'a list cut short' failure success
# Names that would turn the direction of a line, end it, or command the terminal.
bidi=$(printf 'a\342\200\256b') c1=$(printf 'c\302\233d')
mkdir "$tree/shown"
for name in "$bidi" "$c1" $'e\nf'; do printf shown >"$tree/shown/$name"; done
expect 'names in the terminal' 'a\xE2\x80\xAEb c\xC2\x9Bd e\x0Af' \
    "$("$run" --print "$tree/shown" | sed -n "s|^$tree/shown/||p" | paste -sd ' ')"
expect 'rows by name' 4 "$(rows --name "$tree/in")"
expect 'overlapping folders and a link to one' 5 "$(rows --hidden "$tree/in" "$tree/in/one" "$tree/link-target/loop")"
expect 'status of a folder that is gone' 2 "$("$run" "$tree/gone" "$tree/in" >/dev/null 2>&1; echo $?)"
# A folder mounted in two places holds each file once. Only where mounting is allowed.
if unshare -m true 2>/dev/null; then
    expect 'a second mount' 0 "$(unshare -m bash -c 'mount --bind "$2/in/one" "$2/mounted" &&
        "$1" --hidden "$2/in/one" "$2/mounted"' - "$run" "$tree" | sed 's/.*rows=\([0-9]*\).*/\1/')"
fi
# Nobody else's threads count against the limit of a user who has none. A sanitizer's look for leaks starts one.
if [ "$(id -u)" = 0 ] && chmod 711 "$tree" && copy=$(mktemp -d) && chmod 711 "$copy" && cp "$run" "$copy/run"; then
    expect 'a system that starts no threads' 5 "$(ASAN_OPTIONS=detect_leaks=0 setpriv --reuid 54321 --clear-groups \
        prlimit --nproc=1 "$copy/run" --hidden "$tree/in" 2>&1 | sed 's/.*rows=\([0-9]*\).*/\1/')"
    rm -r "$copy"
fi
exit $failed
