// The module that is tested, and a session in it: texts go in and out as bytes of the module's memory.
import { readFileSync, readdirSync } from 'node:fs';

const [moduleFile, sources] = process.argv.slice(2);

export const bytes = readFileSync(moduleFile);
export const compiled = new WebAssembly.Module(bytes);

// A folder and a file of the sources, the latter byte for byte.
export const filesIn = (folder) => readdirSync(`${sources}/${folder}`);
export const read = (path) => readFileSync(`${sources}/${path}`, 'latin1');

// What the library calls its statuses.
export const Status = { ok: 0, warning: -3, callError: -4, syntaxError: -5, memoryError: -6 };

// One instance, with a heap of its own, and one session in it.
export class Session {
  constructor() {
    this.calls = new WebAssembly.Instance(compiled, {}).exports;
    this.space = this.withText('test', (label) => this.calls.jt_open_parsing_utility(label));
  }

  get memory() {
    return Buffer.from(this.calls.memory.buffer);
  }

  // The terminated text at an address; null for null.
  textAt(address) {
    const memory = this.memory;
    return address === 0 ? null : memory.latin1Slice(address, memory.indexOf(0, address));
  }

  // What `use` makes of the address of a copy of the text, which is gone afterwards.
  withText(text, use) {
    const address = this.calls.malloc(text.length + 1);
    if (address === 0) throw new Error('the test itself has no memory left');
    this.memory.write(`${text}\0`, address, 'latin1');
    try {
      return use(address);
    } finally {
      this.calls.free(address);
    }
  }

  // A text that the library handed over, released; null for null.
  taken(address) {
    const text = this.textAt(address);
    this.calls.jt_destroy_value_string(this.space, address);
    return text;
  }

  decode(text) {
    return this.withText(text, (address) => this.calls.jt_decode_template(this.space, address));
  }

  encode(handle) {
    return this.taken(this.calls.jt_encode_template(this.space, handle));
  }

  status() {
    return this.calls.jt_last_api_error(this.space);
  }

  // The recorded messages, oldest first; the status stays.
  messages() {
    const messages = [];
    this.calls.get_last_error(this.space);
    for (let at; (at = this.calls.get_previous_error(this.space)) !== 0; ) messages.unshift(this.textAt(at));
    this.calls.get_last_error(this.space);
    return messages;
  }

  // What a text means to a type that all services have: the value's one word of 32 bits, and the text that is
  // made of the value; null when it is refused.
  value(type, text) {
    return this.withText(type, (name) => {
      const value = this.withText(text, (at) => this.calls.jt_decode_value(this.space, name, at, 0));
      if (value === 0) return null;
      const [number] = new Uint32Array(this.calls.memory.buffer, value, 1);
      const written = this.taken(this.calls.jt_encode_value(this.space, name, value, 0));
      this.calls.jt_destroy_value(this.space, name, value, 0);
      return { number, written };
    });
  }
}
