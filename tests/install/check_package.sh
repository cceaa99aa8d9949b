#!/usr/bin/env bash
# check_package.sh BUILD SOURCE SHLIBDEPS: builds the Debian packages of BUILD, unpacks them into scratch roots and tries
# what is there: the program on every example, the man pages, the completions, the documentation.
set -euo pipefail
build=$1 source=$2 shlibdeps=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "FAILED: $*" >&2; exit 1; }

(cd "$work" && cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/package" >"$work/cpack.log" 2>&1) ||
    { cat "$work/cpack.log" >&2; fail "cpack"; }
deb=$(echo "$work"/package/morvex_*.deb)
[ "$(dpkg-deb -f "$deb" Package)" = morvex ] || fail "the package has another name"
[[ $(dpkg-deb -f "$deb" Version) == 2.601* ]] || fail "the package has another version"
if [ "$shlibdeps" = yes ]; then
    [[ $(dpkg-deb -f "$deb" Depends) == *libc6* ]] || fail "the package does not depend on the C library"
fi

root=$work/root
dpkg-deb -x "$deb" "$root"
[ "$(ls "$root")" = usr ] || fail "files outside /usr: $(ls "$root")"
doc=$root/usr/share/doc/morvex
morvex=$root/usr/bin/morvex

[ "$("$morvex" --version)" = "morvex 2.601" ] || fail "--version"
for file in README.md docs/guide.md docs/scripting.md; do
    cmp "$source/$file" "$doc/$file"
done
cmp "$source/packaging/copyright" "$doc/copyright"
gzip -dc "$doc/changelog.gz" | cmp - "$source/CHANGELOG.md"
gzip -dc "$doc/changelog.Debian.gz" | grep -q "^morvex ($(dpkg-deb -f "$deb" Version))" || fail "the version in changelog.Debian"

tried=0
for example in "$doc"/examples/*/; do
    name=$(basename "$example")
    expected=$source/tests/examples/$name/expected
    cp -r "$example" "$work/$name"
    (cd "$work/$name" && SOURCE_DATE_EPOCH=1709640000 "$morvex" >stdout </dev/null)
    deck=$(sed -n 's/^ *sourcefile *: *\([^ ]*\).*/\1/p' "$work/$name/input.morvex")
    (cd "$work/$name" && "$root/usr/bin/morvex-look" "$deck" >"$work/looked") || [ $? -eq 1 ] || fail "morvex-look"
    grep -q "^Unused fields\|^Replaced values" "$work/looked" || fail "morvex-look found nothing in $name"
    for file in "$expected"/*; do
        cmp "$file" "$work/$name/$(basename "$file")" || fail "$name"
    done
    tried=$((tried + 1))
done
[ "$tried" -eq "$(ls "$source/tests/examples" | grep -c -)" ] || fail "$tried examples in the package"

for page in morvex.1 morvex-look.1; do
    gzip -dc "$root/usr/share/man/man1/$page.gz" | cmp - "$source/docs/$page"
done

# The completion, as bash loads it.
complete_word() {
    bash -c 'set -eu
        . "$1/usr/share/bash-completion/completions/morvex"
        complete -p morvex >/dev/null
        COMP_WORDS=(morvex "$2") COMP_CWORD=1
        _morvex morvex "$2" morvex
        echo "${COMPREPLY[@]-}"' bash "$root" "$1"
}
[ "$(complete_word --)" = "--help --version" ] || fail "completion of --: $(complete_word --)"
[ "$(complete_word --v)" = "--version" ] || fail "completion of --v: $(complete_word --v)"
[ "$(complete_word model)" = "" ] || fail "completion of model: $(complete_word model)"

# The second program, where it was built: a package of its own, with nothing that the first has.
if [ -x "$build/morvex-deck" ]; then
    second=$(echo "$work"/package/morvex-deck_*.deb)
    [ "$(dpkg-deb -f "$second" Package)" = morvex-deck ] || fail "the second package has another name"
    if [ "$shlibdeps" = yes ]; then
        [[ $(dpkg-deb -f "$second" Depends) == *libmuparser*libnettle* ]] || fail "morvex-deck lacks a library"
        [[ $(dpkg-deb -f "$deb" Depends) != *libmuparser* ]] || fail "morvex depends on muParser"
    fi
    other=$work/other
    dpkg-deb -x "$second" "$other"
    common=$(comm -12 <(cd "$root" && find . -type f | sort) <(cd "$other" && find . -type f | sort))
    [ -z "$common" ] || fail "in both packages: $common"
    [ "$("$other/usr/bin/morvex-deck" --version)" = "morvex-deck 2.601" ] || fail "morvex-deck --version"
    gzip -dc "$other/usr/share/man/man1/morvex-deck.1.gz" | cmp - "$source/docs/morvex-deck.1"
    completed=$(bash -c 'set -eu
        . "$1/usr/share/bash-completion/completions/morvex-deck"
        COMP_WORDS=(morvex-deck ch) COMP_CWORD=1
        _morvex_deck
        echo "${COMPREPLY[@]-}"' bash "$other")
    [ "$completed" = check ] || fail "completion of ch: $completed"
    "$other/usr/bin/morvex-deck" check "$doc/examples/taylor-bar/taylor.k" >"$work/checked" || fail "morvex-deck check"
    tail -1 "$work/checked" | grep -q "^0 errors, " || fail "morvex-deck check: $(tail -1 "$work/checked")"
    [ -f "$other/usr/share/doc/morvex-deck/convert.md" ] || fail "the page about convert is missing"
    "$other/usr/bin/morvex-deck" convert "$doc/examples/taylor-bar/taylor.k" -d "$work/converted" >/dev/null || [ $? = 1 ] || fail "convert"
    grep -q "three.js" "$work/converted/report.html" || fail "the report has no view"
fi
echo "$(basename "$deb"): $tried examples, man page and completion are in order"
