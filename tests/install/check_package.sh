#!/usr/bin/env bash
# check_package.sh BUILD SOURCE SHLIBDEPS: builds the Debian package of BUILD, unpacks it into a scratch root and tries
# what is there: the program on every example, the man page, the completion, the documentation.
set -euo pipefail
build=$1 source=$2 shlibdeps=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "FAILED: $*" >&2; exit 1; }

(cd "$work" && cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/package" >"$work/cpack.log" 2>&1) ||
    { cat "$work/cpack.log" >&2; fail "cpack"; }
deb=$(echo "$work"/package/*.deb)
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
echo "$(basename "$deb"): $tried examples, man page and completion are in order"
