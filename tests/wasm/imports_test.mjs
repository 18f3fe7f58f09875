// What the module needs, which is nothing, what it offers, and how large it counts in.
import assert from 'node:assert/strict';
import test from 'node:test';

import { Session, bytes, compiled, read } from './module.mjs';

// The numbers of a module's sections, each of which begins with its number and its length: 7 bits a byte, the
// lowest first, the highest bit where more follow.
function sectionsOf(module) {
  const sections = [];
  for (let at = 8; at < module.length; ) {
    sections.push(module[at++]);
    let length = 0;
    for (let shift = 0, more = true; more; shift += 7) {
      length += (module[at] & 0x7f) << shift;
      more = module[at++] > 0x7f;
    }
    at += length;
  }
  return sections;
}

const section = { type: 1, import: 2, export: 7, start: 8, code: 10 };

test('the module has no import section and nothing that runs when it is made', () => {
  const sections = sectionsOf(bytes);
  for (const name of ['type', 'export', 'code']) assert(sections.includes(section[name]), name);
  assert(!sections.includes(section.import));
  assert(!sections.includes(section.start));
  assert.deepEqual(WebAssembly.Module.imports(compiled), []);
});

test('an import section would be seen', () => {
  // (module (type (func)) (import "a" "b" (func (type 0))))
  const importing = Buffer.from('0061736d01000000' + '010401600000' + '020701016101620000', 'hex');
  assert.equal(WebAssembly.Module.imports(new WebAssembly.Module(importing)).length, 1);
  assert(sectionsOf(importing).includes(section.import));
});

test('the module exports every call and table of the library', () => {
  const exported = new Set(WebAssembly.Module.exports(compiled).map((entry) => entry.name));
  const listed = read('src/exported_symbols.txt').trim().split('\n');
  assert(listed.length > 100);
  assert.deepEqual(listed.filter((name) => !exported.has(name)), []);
});

test('addresses and long numbers have 32 bits', () => {
  const { calls } = new Session();
  assert.equal(calls.size_of_pointer(), 4);
  assert.equal(calls.size_of_long(), 4);
  assert.equal(calls.size_of_type(), 24);
});

test('a row of a type table is the address of its name and of five operations', () => {
  const session = new Session();
  const { calls } = session;
  const row = session.withText('integer', (name) => calls.get_type_from_services(session.space, 0, name));
  const words = new Uint32Array(calls.memory.buffer, row, 6);
  assert.equal(session.textAt(words[0]), 'integer');
  assert(words.every((word) => word !== 0));
});
