// Numbers in the module: integers and reals to their ends, reals beside JavaScript's own on many decimals,
// and values that are refused.
import assert from 'node:assert/strict';
import test from 'node:test';

import { Session, Status } from './module.mjs';

const session = new Session();

test('integers are read and written to their ends', () => {
  const cases = [
    ['0', 0, '0'],
    ['+7', 7, '7'],
    ['-1', 0xffffffff, '-1'],
    ['2147483647', 0x7fffffff, '2147483647'],
    ['2147483648', 0x7fffffff, '2147483647'],
    ['-2147483648', 0x80000000, '-2147483648'],
    ['-99999999999999999999', 0x80000000, '-2147483648'],
  ];
  for (const [text, number, written] of cases)
    assert.deepEqual(session.value('integer', text), { number, written }, text);
});

test('reals are read and written to their ends', () => {
  const cases = [
    ['2.5', 0x40200000, '2.500000'],
    ['5.', 0x40a00000, '5.000000'],
    ['.5', 0x3f000000, '0.500000'],
    ['0.1', 0x3dcccccd, '0.100000'],
    ['16777217', 0x4b800000, '16777216.000000'],
    ['0.0078125', 0x3c000000, '0.007812'],
    ['0.0234375', 0x3cc00000, '0.023438'],
    ['1.00000017881393432617187499', 0x3f800002, '1.000000'],
    ['340282346638528859811704183484516925440', 0x7f7fffff, '340282346638528859811704183484516925440.000000'],
    ['340282356779733661637539395458142568448', 0x7f800000, 'inf'],
    ['9'.repeat(400), 0x7f800000, 'inf'],
    [`0.${'0'.repeat(44)}1`, 1, '0.000000'],
    [`0.${'0'.repeat(400)}1`, 0, '0.000000'],
  ];
  for (const [text, number, written] of cases)
    assert.deepEqual(session.value('real', text), { number, written }, text);
});

// Digits without a seed from outside, so that every run has the same ones.
function* decimals(count) {
  let state = 1;
  const below = (end) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 0x100000000) * end);
  };
  const digits = (most) => Array.from({ length: below(most) }, () => below(10)).join('');
  for (let i = 0; i < count; ++i) yield `${below(10)}${digits(25)}.${digits(30)}`;
}

test('reals are what JavaScript reads', () => {
  const bitsOf = (number) => new Uint32Array(Float32Array.of(number).buffer)[0];
  for (const text of decimals(50_000)) {
    assert.equal(session.value('real', text).number, bitsOf(Number(text)), text);
  }
});

test('values that are refused say why', () => {
  const cases = [
    ['integer', 'many'],
    ['real', '1e3'],
    ['boolean', 'yes'],
    ['timestamp', '2030'],
  ];
  for (const [type, text] of cases) {
    const other = new Session();
    assert.equal(other.value(type, text), null);
    assert.equal(other.status(), Status.syntaxError);
    assert.deepEqual(other.messages(), [
      `SYNTAX ERROR: trying to evaluate the following value string as -- ${type} --:\n\n${text} ...`,
    ]);
  }
});
