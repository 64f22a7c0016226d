# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs clang-tidy over source files; tools/lint calls it.

    lint_files.py CLANG_TIDY COMPILE_COMMANDS [FILE...]

Most of clang-tidy's time goes into the headers of the libraries, which it reads for each file anew. So without a FILE
it reads some files of a folder as one, each told by its own name and lines; where they cannot stand in one, each is
read by itself. FILEs are read by themselves. Exit status 1 where there is a finding.
"""

import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

FILES_IN_A_UNIT = 16


def command_of(entry):
    """The arguments, without those that only GCC understands: clang then sees whether includes are enough."""
    return shlex.split(re.sub(r' -Winvalid-pch -include \S*cmake_pch.hxx', '', entry['command']))


def units_of(entries):
    """Lists of files that have the same folder and the same flags."""
    groups = {}
    for file, entry in sorted(entries.items()):
        flags = [a for a in command_of(entry) if a.startswith(('-D', '-std'))]
        groups.setdefault((os.path.dirname(file), *flags), []).append(file)
    for files in groups.values():
        for first in range(0, len(files), FILES_IN_A_UNIT):
            yield files[first:first + FILES_IN_A_UNIT]


def write_database(folder, entries, units):
    database = [{**entry, 'file': file, 'arguments': command_of(entry)} for file, entry in entries.items()]
    for number, files in enumerate(units):
        unit = os.path.join(folder, f'unit{number}.cpp')
        with open(unit, 'w', encoding='utf-8') as out:
            for file in files:
                with open(file, encoding='utf-8') as source:
                    out.write(f'#line 1 "{file}"\n{source.read()}\n')
        entry = entries[files[0]]
        arguments = [unit if a == files[0] else a for a in command_of(entry)]
        database.append({'directory': entry['directory'], 'file': unit, 'arguments': arguments})
    for entry in database:
        entry.pop('command', None)
    with open(os.path.join(folder, 'compile_commands.json'), 'w', encoding='utf-8') as out:
        json.dump(database, out)


def main():
    tidy, commands, *named = sys.argv[1:]
    source = os.path.join(os.getcwd(), 'src', '')
    with open(commands, encoding='utf-8') as file:
        entries = {e['file']: e for e in json.load(file) if e['file'].startswith(source)}
    units = [[os.path.realpath(n)] for n in named] or sorted(units_of(entries), key=len, reverse=True)
    for files in units:
        if files[0] not in entries:
            sys.exit(f'lint: {files[0]} is not built')

    with tempfile.TemporaryDirectory() as folder:
        write_database(folder, entries, units)

        def findings(file):
            run = subprocess.run(
                [tidy, '--quiet', '-p', folder, '--extra-arg=-Wno-unknown-warning-option',
                 '--extra-arg=-Wno-ignored-optimization-argument', file],
                capture_output=True, text=True, check=False)
            return run.returncode, run.stdout + re.sub(r'\d+ warnings? (and \d+ errors? )?generated.\n', '', run.stderr)

        def lint(number):
            if len(units[number]) > 1:
                status, text = findings(os.path.join(folder, f'unit{number}.cpp'))
                if 'clang-diagnostic-error' not in text:
                    return status, text
            alone = [findings(file) for file in units[number]]
            return max(status for status, _ in alone), ''.join(text for _, text in alone)

        worst = 0
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            for status, text in pool.map(lint, range(len(units))):
                worst = max(worst, status)
                if status:
                    print(text, flush=True)
    sys.exit(1 if worst else 0)


main()
