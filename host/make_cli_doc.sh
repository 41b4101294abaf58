#!/usr/bin/env bash
# Writes docs/cli.md to standard output from the help of every command. Argument: the built pn10.
set -euo pipefail
pn10=$1
printf '# pn10 on the command line\n\nMade by host/make_cli_doc.sh from the help of the program; a test compares the two.\n\n```\n'
"$pn10" --help
printf '```\n'
for command in $("$pn10" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p'); do
  printf '\n## pn10 %s\n\n```\n' "$command"
  "$pn10" "$command" --help
  printf '```\n'
done
