#!/usr/bin/env bash
# The documentation folder of a build tree: the four documents the Help menu opens are there,
# every local link and picture of every page leads somewhere, and every page of the user manual
# is listed in its table of contents.
set -euo pipefail
docs=${1:?build tree}/Documentation
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }

for help in "KORVAL Users Manual/Table of Contents.html" "KORVAL Users Manual/AutoReverse.html" \
            "KDX Users Manual/kdx_user_manl.pdf" "KDX Users Manual/kdx_user_manl.html" \
            "Cable Connections/Cable Connections.pdf"; do
    [ -s "$docs/$help" ] || fail "the Help menu's $help is missing"
done
for pdf in "$docs"/*/*.pdf; do
    [ "$(head -c 5 "$pdf")" = "%PDF-" ] || fail "$pdf is no PDF"
done

pages=0
while IFS= read -r -d '' page; do
    pages=$((pages + 1))
    folder=$(dirname "$page")
    # Every href and src that is not a web address; a picture must be a file with something in
    # it, where a link may be a bare fragment of its own page.
    while IFS=' ' read -r kind target; do
        file=${target%%#*}
        fragment=${target#"$file"}
        fragment=${fragment#\#}
        file=${file//%20/ }
        path="$folder/$file"
        [ -n "$file" ] || path=$page
        if [ "$kind" = src ] && ! { [ -f "$folder/$file" ] && [ -s "$folder/$file" ]; }; then
            fail "${page#"$docs"/} shows the picture \"$target\", which is not there"
        elif [ ! -e "$path" ]; then
            fail "${page#"$docs"/} links to $target, which does not exist"
        elif [ -n "$fragment" ] && ! grep -q "id=\"$fragment\"" "$path"; then
            fail "${page#"$docs"/} links to $target, which has no such place"
        fi
    done < <(grep -oE '(href|src)="[^"]*"' "$page" | sed -E 's/^(href|src)="(.*)"$/\1 \2/' |
             grep -vE '^[a-z]+ (https?:|mailto:)' || true)
done < <(find "$docs" -name '*.html' -print0)
[ "$pages" -gt 0 ] || fail "no pages under $docs"

contents="$docs/KORVAL Users Manual/Table of Contents.html"
for page in "$docs/KORVAL Users Manual"/*.html; do
    name=$(basename "$page")
    [ "$name" = "Table of Contents.html" ] && continue
    grep -qF "href=\"${name// /%20}\"" "$contents" || fail "$name is not in the table of contents"
done

echo "$pages pages checked"
[ "$failures" -eq 0 ]
