// An order of the functions of a WebAssembly module in which similar ones are near each other. gzip finds repeated
// bytes only within 32 KB, so that the module is smaller when it is compressed.

const shingleBytes = 6;
const mostUses = 60; // what more functions contain is in everything

const codeSection = 10;
const customSection = 0;
const functionNames = 1;

/** Reads an unsigned LEB128 number. Returns it and the position behind it. */
function number(bytes, position) {
  for (let value = 0, factor = 1; ; factor *= 128) {
    const byte = bytes[position++];
    value += (byte & 127) * factor;
    if (byte < 128) return [value, position];
  }
}

function encoded(value) {
  const bytes = [];
  for (; value > 127; value >>>= 7) bytes.push((value & 127) | 128);
  return [...bytes, value];
}

const lengthAnd = (bytes) => [...encoded(bytes.length), ...bytes];
const text = (value) => lengthAnd([...Buffer.from(value)]);

/** Returns the bodies of the functions of a module. */
function bodiesOf(module) {
  for (let at = 8; at < module.length; ) {
    const [size, start] = number(module, at + 1);
    if (module[at] === codeSection) {
      let [count, next] = number(module, start);
      const bodies = [];
      while (count-- > 0) {
        const [length, body] = number(module, next);
        next = body + length;
        bodies.push(module.subarray(body, next));
      }
      return bodies;
    }
    at = start + size;
  }
  throw new Error("the module has no code");
}

/** Returns the different sequences of a few bytes, each as a number. */
function shinglesOf(body) {
  const found = new Set();
  for (let at = 0; at + shingleBytes <= body.length; ++at) {
    let shingle = 0;
    for (let i = 0; i < shingleBytes; ++i) shingle = shingle * 256 + body[at + i];
    found.add(shingle);
  }
  return [...found];
}

/** Returns the functions, as indices: after each one comes the one that shares most with those before it. */
function orderOf(bodies, { windowBytes, header }) {
  const shingles = bodies.map(shinglesOf);
  const users = new Map(); // by shingle
  shingles.forEach((list, index) => {
    for (const each of list) users.has(each) ? users.get(each).push(index) : users.set(each, [index]);
  });
  const shared = shingles.map((list) =>
    list.map((each) => users.get(each)).filter(({ length }) => length > 1 && length <= mostUses),
  );
  const found = new Float64Array(bodies.length); // how many of a function's shingles are in the window
  const uses = new Map(); // of a shingle in the window
  const change = (index, step) => {
    for (const list of shared[index]) {
      const count = (uses.get(list) ?? 0) + step;
      uses.set(list, count);
      if (count === (step > 0 ? 1 : 0)) for (const user of list) found[user] += step;
    }
  };

  const rest = new Set(bodies.keys());
  const order = [];
  let [first, inWindow] = [0, 0];
  while (rest.size > 0) {
    let [best, most] = [-1, -1];
    for (const index of rest) {
      const share = found[index] / (bodies[index].length + header);
      if (share > most) [best, most] = [index, share];
    }
    rest.delete(best);
    order.push(best);
    change(best, 1);
    inWindow += bodies[best].length;
    for (; inWindow > windowBytes && first < order.length - 1; ++first) {
      change(order[first], -1);
      inWindow -= bodies[order[first]].length;
    }
  }
  return order;
}

/**
 * Returns a module whose functions have names that are in such an order. The module must have no names. `windowBytes`:
 * of the functions with which the next one is compared. `header`: bytes that are added to the length of each function,
 * which keeps short ones from coming first because all of their bytes are repeated.
 */
export function withOrderedNames(module, settings) {
  const imports = WebAssembly.Module.imports(new WebAssembly.Module(module)).filter(({ kind }) => kind === "function");
  const order = orderOf(bodiesOf(module), settings);
  const names = order.map((index, place) => [imports.length + index, `f${String(place).padStart(6, "0")}`]);
  names.sort(([left], [right]) => left - right);
  const entries = names.flatMap(([index, name]) => [...encoded(index), ...text(name)]);
  const section = [...text("name"), functionNames, ...lengthAnd([...encoded(names.length), ...entries])];
  return Buffer.concat([module, Buffer.from([customSection, ...lengthAnd(section)])]);
}
