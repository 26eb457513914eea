#!/usr/bin/env python3
"""Runs the examples of the manual's page and compares what they print with what the page says.

usage: manual_examples.py MOISTAIR-CLI PAGE

A <pre class="example"> holds commands behind "$ " and what each prints, on both outputs; a <pre class="file" title="NAME">
holds a file that the commands read. All run in one empty folder, in the order of the page.
"""

import difflib
import html
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r'<pre class="(example|file)"(?: title="([^"]*)")?>\n(.*?)</pre>', re.DOTALL)


def commands(text):
    """Pairs of a command and what it prints."""
    for part in re.split(r"^\$ ", text, flags=re.MULTILINE)[1:]:
        command, _, printed = part.partition("\n")
        yield command, printed


def failed(command, printed, folder, environment):
    done = subprocess.run(["bash", "-c", command], cwd=folder, env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=120)
    shown = done.stdout.decode()
    if shown == printed:
        return False
    print(f"$ {command}", *difflib.unified_diff(printed.splitlines(), shown.splitlines(), "page", "tool", lineterm=""),
          sep="\n")
    return True


def main():
    tool, page = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    blocks = BLOCK.findall(page.read_text(encoding="utf-8"))
    environment = {**os.environ, "PATH": f"{tool.parent}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8"}
    run = failures = 0
    with tempfile.TemporaryDirectory() as folder:
        for kind, name, text in blocks:
            text = html.unescape(text)
            if kind == "file":
                (pathlib.Path(folder) / name).write_text(text, encoding="utf-8")
                continue
            for command, printed in commands(text):
                run += 1
                failures += failed(command, printed, folder, environment)
    print(f"{run} examples, {failures} of them wrong")
    return 1 if failures or run == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
