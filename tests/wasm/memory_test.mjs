// The module's memory: much of it, its end, which is an error like any other, and that what was taken is
// given back.
import assert from 'node:assert/strict';
import test from 'node:test';

import { Session, Status } from './module.mjs';

const templateOf = (count) => {
  const attributes = Array.from({ length: count }, (_, i) => `integer N${i} = ${i};`);
  return `[ kmt_svc_scan Scan ] {\n${attributes.join('\n')}\n}\nend\n`;
};

test('a large template is read and written', () => {
  const session = new Session();
  const text = session.encode(session.decode(templateOf(50_000)));
  assert.equal(text.match(/integer/g).length, 50_000);
  assert.match(text, /integer N49999 = 49999;/);
});

test('the end of memory is an error, after which all goes on', () => {
  const session = new Session();
  const long = 'x'.repeat(1000);
  const strings = Array.from({ length: 40_000 }, (_, i) => `string S${i} = "${long}";`);
  assert.equal(session.decode(`[ kmt_svc_scan Scan ] { ${strings.join(' ')} } end`), 0);
  assert.equal(session.status(), Status.memoryError);
  assert.equal(session.messages()[0], 'MEMORY ERROR: allocation error ...');
  assert.notEqual(session.decode(templateOf(50_000)), 0);
});

test('a session that decodes and destroys does not grow', () => {
  const session = new Session();
  const text = templateOf(1000);
  const round = () => session.calls.jt_destroy_template(session.space, session.decode(text));
  round();
  const size = session.calls.memory.buffer.byteLength;
  for (let i = 0; i < 200; ++i) assert.equal(round(), 1);
  assert.equal(session.calls.memory.buffer.byteLength, size);
  assert.equal(session.calls.jt_close_parsing_utility(session.space), 1);
});
