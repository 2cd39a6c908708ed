#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# man.sh ROOT: the installed manual pages render at 80 columns without a warning.
set -euo pipefail
status=0
for name in vorel vorel-cli; do
  page=$1/usr/share/man/man1/$name.1.gz
  warnings=$(MANWIDTH=80 man --warnings -l "$page" 2>&1 >/dev/null)
  [[ -z $warnings ]] || { echo "$page:"; echo "$warnings"; status=1; }
done
exit $status
