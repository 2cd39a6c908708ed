#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# manoptions.sh VOREL_CLI PAGE: the manual page describes every command of `vorel-cli --help`
# (a "vorel-cli NAME" sub-section) and, for each command, exactly the options its --help lists
# (the sub-sections "Options of NAME and ...").
set -euo pipefail
cli=$1
page=$(LC_ALL=C MANWIDTH=200 man -l "$2")

helpCommands() { "$cli" --help 2>&1 | sed -n 's/^  \([a-z][a-z-]*\) .*/\1/p' | sort; }
pageCommands() { awk '/^   vorel-cli [a-z-]+$/ { print $2 }' <<<"$page" | sort; }
helpOptions() { "$cli" "$1" --help | sed -n 's/^  \(--[a-z][a-z-]*\).*/\1/p' | sort; }
pageOptions() {
  awk -v command="$1" '
    /^[^ ]/ { listing = 0 }
    /^   [^ ]/ { listing = $1 == "Options" && $2 == "of" && index(" " $0 " ", " " command " ") > 0 }
    listing && /^       --[a-z]/ { print $1 }' <<<"$page" | sort
}

status=0
diff -u --label "vorel-cli --help" --label "manual page" <(helpCommands) <(pageCommands) || status=1
for command in $(helpCommands); do
  diff -u --label "vorel-cli $command --help" --label "manual page" \
    <(helpOptions "$command") <(pageOptions "$command") || status=1
done
exit $status
