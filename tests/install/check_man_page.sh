#!/usr/bin/env bash
# check_man_page.sh PAGE PROGRAM: the page renders without a complaint, as do those of morvex-look and morvex-deck, and tells
# of every setting and option there is.
set -euo pipefail
page=$1 program=$2
fail() { echo "FAILED: $*" >&2; exit 1; }

complaints=$(mandoc -Tlint "$page" "${page%.1}-look.1" "${page%.1}-deck.1" 2>&1) || fail "mandoc: $complaints"
[ -z "$complaints" ] || fail "mandoc: $complaints"
text=$(groff -man -ww -Tutf8 -P-cbou "$page" 2>"${TMPDIR:-/tmp}/groff.$$") || fail "groff"
complaints=$(cat "${TMPDIR:-/tmp}/groff.$$"; rm -f "${TMPDIR:-/tmp}/groff.$$")
[ -z "$complaints" ] || fail "groff: $complaints"

# The settings, as the program itself writes them, and the options, as its help lists them.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
(cd "$work" && "$program" >/dev/null) && fail "a default control file should end with status 1"
settings=$(sed -n 's/^ \([a-z]*\) *:.*/\1/p' "$work/input.morvex")
[ "$(wc -w <<<"$settings")" -eq 14 ] || fail "settings of the control file: $settings"
for setting in $settings; do
    default=$(sed -n "s/^ $setting *: *\([^ ]*\).*/\1/p" "$work/input.morvex")
    grep -q "^ *$setting ($default)" <<<"$text" || fail "$setting with its default $default is not in the page"
done
for option in $("$program" --help | grep -o -- '--[a-z]*'); do
    grep -q -- "^ *-[a-zA-Z], $option" <<<"$text" || fail "$option is not in the page"
done
for section in NAME SYNOPSIS DESCRIPTION "CONTROL FILE" ENVIRONMENT FILES "EXIT STATUS" EXAMPLES; do
    grep -q "^$section" <<<"$text" || fail "the page has no section $section"
done
grep -q SOURCE_DATE_EPOCH <<<"$text" || fail "SOURCE_DATE_EPOCH is not in the page"

# The options of the second program, where it was built.
if [ -x "$program-deck" ]; then
    text=$(groff -man -ww -Tutf8 -P-cbou "${page%.1}-deck.1")
    for command in check prepare convert explain; do
        help=$("$program-deck" "$command" --help) || continue
        for option in $(grep -o -- '^  -[-a-z,]*' <<<"$help" | tr -d ' ' | tr ',' '\n' | grep -v '^-h$'); do
            grep -q -- "^ *$option" <<<"$text" || fail "$option of $command is not in the page of morvex-deck"
        done
    done
fi
