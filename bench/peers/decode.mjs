// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
// decode.mjs MODULE FILE: parses the reports of a file, one a line, and writes each as a line of JSON.

import { readFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';

const [module, file] = process.argv.slice(2);
const { parseMetar } = await import(pathToFileURL(module).href);
let output = '';
let failed = 0;
for (const line of readFileSync(file, 'utf8').split('\n')) {
  if (line === '')
    continue;
  try {
    output += JSON.stringify(parseMetar(line)) + '\n';
  } catch {
    failed += 1;
  }
}
process.stdout.write(output);
process.stderr.write(`failed ${failed}\n`);
