#!/bin/sh
# handlers_found.sh FOLDER: tells which converted keywords of FOLDER/docs/keywords.md stand in no comment of the source
# file that defines their handler: a search for a keyword ends at its code. A row of several keywords with one beginning
# may have them spelled in full.
set -eu
cd "$1"

rows=$(sed -n 's/^| `\(\*[^`]*\)` | [^|]* | `\([a-z0-9_]*\)`: .*/\1 \2/p' docs/keywords.md)
[ -n "$rows" ] || { echo "no row of docs/keywords.md names a handler"; exit 1; }
keywords=$(echo "$rows" | cut -d ' ' -f 1)
definitions=$(grep -r --include='*.cpp' '^void [a-z0-9_]*(.*)$' src)

status=0
while read -r keyword handler; do
    file=$(echo "$definitions" | sed -n "s/:void $handler(.*//p")
    if [ ! -f "$file" ]; then
        echo "$handler: defined in no source file, or in several"
        status=1
        continue
    fi
    named=$(grep '^// ' "$file" | grep -o '[*][A-Z][A-Z0-9_-]*') || true
    if ! echo "$named" | grep -Fqx -e "$keyword" &&
        ! echo "$named" | grep -F -e "${keyword}_" | grep -Fqxv -e "$keywords"; then
        echo "$keyword: no comment of $file names it, though $handler is there"
        status=1
    fi
done <<ROWS
$rows
ROWS
exit $status
