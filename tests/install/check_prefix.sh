#!/usr/bin/env bash
# check_prefix.sh CMAKE BUILD: `cmake --install` into a folder of its own, and the program runs from there.
set -euo pipefail
cmake=$1 build=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
for file in bin/morvex bin/morvex-look share/man/man1/morvex.1.gz share/man/man1/morvex-look.1.gz share/bash-completion/completions/morvex share/doc/morvex/README.md \
    share/doc/morvex/examples/taylor-bar/taylor.k share/doc/morvex/docs/guide.md; do
    [ -f "$prefix/$file" ] || { echo "FAILED: no $file" >&2; exit 1; }
done
cd "$prefix/share/doc/morvex/examples/taylor-bar"
"$prefix/bin/morvex" >/dev/null </dev/null
[ -s taylor.card ]
