#!/usr/bin/env bash
# The preview window under Wine on a virtual X display:
#   scripts/run-window-tests.sh BUILD_DIR
# BUILD_DIR is a Windows build holding tests/quickview-demo.exe (a three-page report shown
# modally) and tests/quickview-driver.exe (works that window from outside). The demo runs
# in the build's private Wine prefix on a fresh Xvfb display; the driver searches, presses
# F3, clicks a line, types in the margin entry, resizes below the minimum and closes with
# Escape, and the script checks what the window reports and what the demo received.
# Screenshots go to BUILD_DIR/screenshots (quick-view.png, quick-view-search.png,
# quick-view-min.png). Then the demo runs without a display (the report must go to the
# report sink at once) and once more under the driver's dismiss-all. Last, a VBScript host
# (tests/preview/quick_view_events.vbs through the registered CorvidAPI.dll) shows a report
# modally while the driver clicks a line and presses Escape.
# Prints PASS/FAIL per check and "N passed, M failed"; exits non-zero on any failure.
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine-loader.sh"

build_dir=$(cd "${1:?usage: $0 BUILD_DIR}" && pwd)
root=$(cd "$(dirname "$0")/.." && pwd)
demo="$build_dir/tests/quickview-demo.exe"
driver="$build_dir/tests/quickview-driver.exe"
shots="$build_dir/screenshots"
work="$build_dir/window-tests"

. "$(dirname "${BASH_SOURCE[0]}")/check-tally.sh"
finish() {
    tally_exit
}

for program in "$demo" "$driver"; do
    if [ ! -f "$program" ]; then
        fail "$(basename "$program") is built"
        finish
    fi
done

end_wine_session "$build_dir/wineprefix"
rm -rf "$work" "$shots"
mkdir -p "$work" "$shots"
windows_work="Z:${work//\//\\}"

# Wine's processes of this run (the demo, the driver) are ours; everything else is left be.
demo_pid=""
xvfb_pid=""
cleanup() {
    [ -n "$demo_pid" ] && kill "$demo_pid" 2>/dev/null
    [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
    wait 2>/dev/null
}
trap cleanup EXIT

# A display of our own: Xvfb picks a free number and writes it once it is ready.
exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
xvfb_pid=$!
exec 3>&-
for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
if [ ! -s "$work/display" ]; then
    fail "Xvfb starts"
    finish
fi
export DISPLAY=":$(head -1 "$work/display")"

last_line() { tail -1 "$1" | tr -d '\r'; }
wine_run() { "$root/scripts/wine-env.sh" "$build_dir" "$@"; }
# The driver prints through the Windows console: lines end in CR LF.
drive() { timeout 30 "$root/scripts/wine-env.sh" "$build_dir" "$wine" "$driver" "$@" | tr -d '\r'; }
screenshot() { xwd -root -display "$DISPLAY" | /usr/bin/convert xwd:- "png:$shots/$1"; }
# fact NAME: the value of the dump line "NAME ..." (the rest of the line)
fact() { grep -m1 "^$1 " "$work/dump" | cut -d' ' -f2-; }
dump() { drive dump >"$work/dump" 2>&1; }
# The report's first byte offset of TEXT at or after FROM (the window's caret offset: the
# demo writes the report with one LF per line, as the rich edit counts a line break once).
offset_of() { LC_ALL=C grep -bo -- "$1" "$work/report.txt" | cut -d: -f1 | awk -v from="$2" '$1 >= from { print; exit }'; }
# Checks on a screenshot: not blank, and dark text pixels inside the rich edit.
colours() { /usr/bin/convert "$1" -format %k info:; }
dark_pixels_in_text() {  # FILE: dark pixels in the rich edit's rectangle of the last dump
    local rect
    rect=$(grep -m1 '^control RichEdit' "$work/dump" | sed 's/.* screen //')
    set -- "$1" $rect
    /usr/bin/convert "$1" -crop "${4}x${5}+${2}+${3}" -colorspace Gray -threshold 40% \
        -format '%[fx:round(w*h*(1-mean))]' info:
}

start_demo() {  # starts the demo in the background, its output in $work/demo.out
    timeout 100 "$root/scripts/wine-env.sh" "$build_dir" "$wine" "$demo" "$windows_work" \
        >"$work/demo.out" 2>&1 &
    demo_pid=$!
}
wait_demo() {  # waits up to SECONDS for the demo to end; its status in $demo_status
    local i
    demo_status=timeout
    for i in $(seq $(($1 * 10))); do
        if ! kill -0 "$demo_pid" 2>/dev/null; then
            wait "$demo_pid"
            demo_status=$?
            demo_pid=""
            return 0
        fi
        sleep 0.1
    done
    return 1
}

# Make the prefix before timing anything.
wine_run true

# --- The report in its window ---
start_demo
dump
check "the window shows up with the report's caret at 1" test "$(fact selection)" = "1 0"
check "the screen font starts at 10 points" test "$(fact screen_font)" = "10"
screenshot quick-view.png
check "screenshot quick-view.png is not blank ($(colours "$shots/quick-view.png") colours)" \
    test "$(colours "$shots/quick-view.png")" -gt 8
text_dark=$(dark_pixels_in_text "$shots/quick-view.png")
check "the rich edit shows dark text ($text_dark pixels)" test "${text_dark:-0}" -gt 2000

# --- Search and F3 ---
drive find "item 02" >"$work/find.out"
dump
first=$(offset_of "Item 02" 2)
check "a search selects the first match after the caret, ignoring case (at $first)" \
    test "$(fact selection)" = "$first 7"
screenshot quick-view-search.png
changed=$(/usr/bin/convert "$shots/quick-view.png" "$shots/quick-view-search.png" \
    -compose difference -composite -threshold 10% -format '%[fx:round(w*h*mean)]' info:)
check "the search screenshot shows the selection ($changed pixels changed)" test "${changed:-0}" -gt 200
drive key f3 >"$work/f3.out"
dump
second=$(offset_of "Item 02" $((first + 1)))
check "F3 selects the next match (at $second)" test "$(fact selection)" = "$second 7"
drive find "no such text" >"$work/find-missing.out"
check "a search without a match warns" \
    grep -q "^message: ADVERTENCIA: No se localizó el texto deseado" "$work/find-missing.out"

# --- A click reports its line ---
drive click 5 10 >/dev/null
expected_line=$(sed -n 5p "$work/report.txt")
clicked=$(tail -1 "$work/clicks.txt" 2>/dev/null)
check "a click on line 5, column 10 reports that line and column" test "$clicked" = "10|$expected_line"
dump
check "after a click nothing stays selected" test "$(fact selection | cut -d' ' -f2)" = "0"
check "a line the report adds while shown appears in the window" \
    test "$(fact last_line)" = "Clic en la columna 10 "

# --- Margin entry ---
drive margin "1-2" >"$work/margin-bad.out"
check "a bad margin is refused with the message" grep -q \
    "^message: PrinterFiscalCorvid (commAPI): Por favor, introduzca un númeto valido" \
    "$work/margin-bad.out"
dump
check "the refused margin keeps its whole number part" test "$(fact margin)" = "1"
drive margin "12.5" >"$work/margin-good.out"
dump
check "12.5 is accepted as 12 without a message" \
    test "$(fact margin)|$(cat "$work/margin-good.out")" = "12|message: none"

# --- Screen font ---
drive button "+" >/dev/null
drive button "+" >/dev/null
drive button "-" >/dev/null
dump
check "the font images step the screen font" test "$(fact screen_font)" = "11"

# --- Minimum size ---
drive resize 6000 2000 >/dev/null
dump
check "resized below the minimum, the window is 11895 x 3500 twips" \
    test "$(fact window_twips)" = "11895 3500"
close_right=$(grep -m1 '"Cerrar"' "$work/dump" | awk '{ print $4 + $6 }')
check "at the minimum the close button is inside the window ($close_right twips)" \
    test "${close_right:-99999}" -le 11895
screenshot quick-view-min.png
check "screenshot quick-view-min.png is not blank" test "$(colours "$shots/quick-view-min.png")" -gt 8

# --- Escape ---
drive key escape >/dev/null
wait_demo 10
check "Escape ends the modal show and the demo exits 0 (status $demo_status)" \
    test "$demo_status|$(last_line "$work/demo.out")" = "0|closed"

# --- No display: nothing waits ---
start=$(date +%s)
env -u DISPLAY timeout 60 "$root/scripts/wine-env.sh" "$build_dir" "$wine" "$demo" "$windows_work" \
    >"$work/headless.out" 2>&1
status=$?
took=$(($(date +%s) - start))
check "without a display the report goes to the sink and Show returns (${took}s)" \
    test "$status|$(grep -c '^sink: ' "$work/headless.out")|$(last_line "$work/headless.out")" = "0|1|closed"

# --- dismiss-all ---
rm -f "$work/dismissed.txt" "$work/dismissed.txt.stop"
drive dismiss-all "$windows_work\\dismissed.txt" 30 &
dismisser=$!
start_demo
wait_demo 20
touch "$work/dismissed.txt.stop"
wait "$dismisser"
check "dismiss-all copies the window's text and closes it" \
    test "$demo_status|$(grep -c 'Item 003  Artículo número 3 ' "$work/dismissed.txt")|$(last_line "$work/dismissed.txt")" \
    = "0|1|-- end of window --"

# --- A script host: a click reaches the ReportClicked handler and the notify target ---
dll_windows=$(wine_run "$wine" winepath.exe -w "$build_dir/src/registration/CorvidAPI.dll" | tr -d '\r')
if wine_run timeout 120 "$wine" regsvr32 /s "$dll_windows"; then
    cp "$root/tests/preview/quick_view_events.vbs" "$work/"
    (cd "$work" && timeout 60 "$root/scripts/wine-env.sh" "$build_dir" "$wine" cscript //nologo \
        quick_view_events.vbs >"$work/events.out" 2>&1) &
    script_pid=$!
    drive click 3 5 >/dev/null
    drive key escape >/dev/null
    wait "$script_pid"
    tr -d '\r' <"$work/events.out" | grep -E '^(PASS|FAIL|SKIP)' | sed 's/^/quick_view_events.vbs: /'
    check "the script's modal Show returned after Escape" grep -q '^Show returned' "$work/events.out"
    check "the script's notify target got the clicked line and column" \
        grep -q '^PASS the notify target got the clicked line and column' "$work/events.out"
    check "the script ends with no failed check" \
        test "$(grep -c '^FAIL' "$work/events.out")|$(tr -d '\r' <"$work/events.out" | grep -c '^DONE$')" = "0|1"

    # The previews a session shows at Cerrar, each closed by dismiss-all as it appears.
    rm -f "$work/previews.txt" "$work/previews.txt.stop"
    drive dismiss-all "$windows_work\\previews.txt" 60 &
    dismisser=$!
    cp "$root/tests/preview/session_previews.vbs" "$work/"
    (cd "$work" && timeout 60 "$root/scripts/wine-env.sh" "$build_dir" "$wine" cscript //nologo \
        session_previews.vbs | tr -d '\r' >"$work/previews.out" 2>&1)
    touch "$work/previews.txt.stop"
    wait "$dismisser"
    check "every Cerrar returned once its preview was closed" \
        test "$(grep -c 'returned\|released\|^DONE' "$work/previews.out")" = 4
    check "test mode shows what would have been sent, at Cerrar and again at the release" \
        test "$(grep -c '^@Vista previa $' "$work/previews.txt")|$(grep -c '^810Fin $' "$work/previews.txt")" = "2|2"
    check "with IsDebug and DebugInmediato Cerrar shows the trace view" \
        grep -q '^ExecuteNoCheck: -> w' "$work/previews.txt"
    wine_run timeout 120 "$wine" regsvr32 /s /u "$dll_windows"
else
    fail "regsvr32 registers CorvidAPI.dll for the script host"
fi

finish
