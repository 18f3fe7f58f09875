// Every template of the examples, read and written in the module: the texts are those of every other
// platform, and so are the messages of those that are refused.
import assert from 'node:assert/strict';
import test from 'node:test';

import { Session, Status, filesIn, read } from './module.mjs';

const templatesIn = (folder) => filesIn(folder).filter((name) => name.endsWith('.sil'));
const accepted = templatesIn('examples');
const rejected = templatesIn('examples/rejected');

// Messages of each refused file, oldest first. The INDEX names the newest first and then the older ones, or
// none.
function readIndex() {
  const unescaped = (field) => field.replace(/\\(.)/g, (_, letter) => (letter === 'n' ? '\n' : letter));
  const index = new Map();
  for (const line of read('examples/rejected/INDEX').trim().split('\n')) {
    if (line.startsWith('#')) continue;
    const [file, newest, ...older] = line.split('\t').map(unescaped);
    index.set(file, newest === undefined ? [] : [...older, newest]);
  }
  return index;
}

test('there are examples of both kinds', () => {
  assert(accepted.length > 20);
  assert(rejected.length > 40);
});

for (const file of accepted) {
  test(`${file} is written as everywhere, and stays so`, () => {
    const expected = read(`tests/examples/expected/${file}`);
    const session = new Session();
    const handle = session.decode(read(`examples/${file}`));
    assert.notEqual(handle, 0);
    assert.equal(session.encode(handle), expected);
    const again = new Session();
    assert.equal(again.encode(again.decode(expected)), expected);
  });
}

const index = readIndex();
for (const file of rejected) {
  test(`${file} is refused with its messages`, () => {
    const session = new Session();
    assert.equal(session.decode(read(`examples/rejected/${file}`)), 0);
    const expected = index.get(file);
    assert.equal(session.status(), expected.length === 0 ? Status.ok : Status.syntaxError);
    assert.deepEqual(session.messages(), expected);
  });
}
