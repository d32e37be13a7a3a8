#!/usr/bin/env bash
# Looks after a room by script, from a class list to a store put back, and reads what was kept.
# Usage: admin.sh PROGRAM_FOLDER
set -euo pipefail
here=$(mktemp -d)
trap 'rm -rf "$here"' EXIT
store=$here/data.mdb
cp "$1/data.mdb" "$store"
cp -r "$1/Content" "$here/Content"
sqlite3 "$store" "DELETE FROM Pupils; DELETE FROM Hall_of_Fame"
program=$1/marrowfen-admin
fail() { echo "FAILED: $*" >&2; exit 1; }
admin() { "$program" --store "$store" "$@" 2>"$here/errors" </dev/null; }
# refused STATUS REASON WORDS...: ends so, says why, and changes nothing.
refused() {
    local wanted=$1 reason=$2 before status=0
    shift 2
    before=$(sha256sum "$store")
    admin "$@" >/dev/null || status=$?
    [ $status -eq "$wanted" ] || fail "$*: status $status, not $wanted"
    grep -qF -- "$reason" "$here/errors" || fail "$*: said '$(cat "$here/errors")'"
    [ "$(sha256sum "$store")" = "$before" ] || fail "$*: something was changed"
}
expect() { [ "$1" = "$2" ] || fail "found '$1', not '$2'"; }
kept() { sqlite3 "$store" "SELECT (SELECT count(*) FROM Pupils), (SELECT count(*) FROM Hall_of_Fame)"; }

printf 'Class;Name\n2b;Zoë\n2b;=Ann\n2b;\n2b;zoë\n' >"$here/list.csv"
refused 1 "Line 4: there is no name here" pupils import "$here/list.csv"
admin pupils import --skip-faults "$here/list.csv"
admin pupils list --json >"$here/list.json"
expect "$(sqlite3 :memory: "SELECT group_concat(value ->> 'name') FROM json_each(readfile('$here/list.json'))")" "=Ann,Zoë"
sqlite3 "$store" "INSERT INTO Hall_of_Fame (Pupil_id, GameID, TimeLimit, Points, TimeTaken, TheDate)
    SELECT Pupil_ID, 1, 60, 50, '0:30', date FROM Pupils, (SELECT '2025-01-31' AS date UNION SELECT '2026-01-31')"
expect "$(admin pupils export - | tail -n 2 | cut -d, -f1-3 | tr '\n' '|')" "'=Ann,2,2026-01-31|Zoë,2,2026-01-31|"
expect "$(admin results export - --pupil ZOË --to 2025-12-31 | tail -n 1 | cut -d, -f1,3,4,7)" "Zoë,Red,50,2025-01-31"

copy=$(admin backup)
refused 1 "say --yes" results clear --to 2025-12-31
refused 1 "say which results, or --all" results clear --yes
refused 2 "2025-02-30 is no day" results clear --to 2025-02-30 --yes
admin results clear --to 2025-12-31 --yes
refused 1 "there is no pupil Ben" pupils remove --yes Zoë Ben
admin pupils remove --yes --with-results Zoë
expect "$(kept)" "1|1"

admin words export rhymes1 "$here/words.tsv"
admin words check rhymes1 "$here/words.tsv"
sed 's/\tat$/\tot/' "$here/words.tsv" >"$here/wrong.tsv"
refused 1 "wrong.tsv has" words import rhymes1 "$here/wrong.tsv"
refused 2 "set" words import nonsense "$here/words.tsv"

expect "$(admin restore --dry-run)" "$(printf '1 pupil would come back: Zoë.\n3 results would come back.')"
expect "$(kept)" "1|1"
admin restore >/dev/null
expect "$(kept)" "2|4"
expect "$(admin check)" "$store is whole and holds 2 pupils and 4 results."
refused 1 "neither a copy" restore "$here/no.mdb"

head -c 60000 /dev/zero | dd of="$store" bs=4096 seek=2 conv=notrunc status=none
! admin check >/dev/null || fail "a damaged store was called whole"
refused 1 "can't be opened" pupils list
admin salvage "$here/saved.mdb" >/dev/null
sleep 1  # what is set aside is named after the second
admin restore "$copy" >/dev/null
expect "$(admin copies | cut -f2 | sort | uniq -c | tr -s ' \n' ' ')" " 1 by hand 2 set aside "
expect "$(kept)" "2|4"
refused 2 "--help" pupils
echo "passed: admin"
