// The file system of the module: files in memory, until the instance ends. It has what the C library asks for on
// behalf of the module: no links, no permissions, and the root as current folder. The functions are those of
// Platform/Foundation/Browser/FileFunctions.js. Those with names of system calls return a negative number of an
// error; those that begin with "fd" are of WASI and return a positive one.

import { eachPiece } from "./pieces.js";

interface Folder {
  readonly id: number;
  readonly entries: Map<string, Node>;
}

interface File {
  readonly id: number;
  bytes: Uint8Array;
  size: number;
  changed: number; // seconds
}

type Node = Folder | File;

interface Stream {
  readonly node: Node;
  readonly appends: boolean;
  position: number;
}

const badDescriptor = 8;
const exists = 20;
const invalid = 28;
const isAFolder = 31;
const missing = 44;
const noFolder = 54;
const notEmpty = 55;

const access = { write: 3, create: 0o100, exclusive: 0o200, truncate: 0o1000, append: 0o2000, folder: 0o200000 };
const entryBytes = 280;
const isFolder = (node: Node): node is Folder => "entries" in node;
const decoder = new TextDecoder();
const encoder = new TextEncoder();

/** `memory` is always that of the module at the time of the call. */
export class Files {
  readonly #root: Folder = { id: 1, entries: new Map() };
  readonly #streams = new Map<number, Stream>();
  readonly #printed: (line: string) => void;
  #lastId = 1;
  #text = "";

  /** `printed` receives the lines that the module prints. */
  constructor(printed: (line: string) => void) {
    this.#printed = printed;
  }

  open(memory: Uint8Array, path: number, flags: number): number {
    const [folder, name, found] = this.#find(memory, path);
    let node = found;
    if (!node) {
      if (!folder || !name || !(flags & access.create)) return -missing;
      node = { id: ++this.#lastId, bytes: new Uint8Array(), size: 0, changed: Date.now() / 1000 };
      folder.entries.set(name, node);
    } else if (flags & access.create && flags & access.exclusive) return -exists;
    if (isFolder(node)) {
      if (flags & access.write) return -isAFolder;
    } else {
      if (flags & access.folder) return -noFolder;
      if (flags & access.truncate) node.size = 0;
    }
    let number = 3;
    while (this.#streams.has(number)) ++number;
    this.#streams.set(number, { node, appends: (flags & access.append) !== 0, position: 0 });
    return number;
  }

  status(memory: Uint8Array, path: number, target: number): number {
    const node = this.#find(memory, path)[2];
    return node ? this.#describe(memory, node, target) : -missing;
  }

  streamStatus(memory: Uint8Array, number: number, target: number): number {
    const stream = this.#streams.get(number);
    return stream ? this.#describe(memory, stream.node, target) : -badDescriptor;
  }

  makeFolder(memory: Uint8Array, path: number): number {
    const [folder, name, node] = this.#find(memory, path);
    if (node) return -exists;
    if (!folder || !name) return -missing;
    folder.entries.set(name, { id: ++this.#lastId, entries: new Map() });
    return 0;
  }

  remove(memory: Uint8Array, path: number, ofFolder: boolean): number {
    const [folder, name, node] = this.#find(memory, path);
    if (!node) return -missing;
    if (!folder) return -invalid;
    if (isFolder(node) !== ofFolder) return ofFolder ? -noFolder : -isAFolder;
    if (isFolder(node) && node.entries.size > 0) return -notEmpty;
    folder.entries.delete(name);
    return 0;
  }

  rename(memory: Uint8Array, from: number, to: number): number {
    const [folder, name, node] = this.#find(memory, from);
    const [newFolder, newName, replaced] = this.#find(memory, to);
    if (!node || !folder || !newFolder || !newName) return -missing;
    if (replaced && (isFolder(replaced) || isFolder(node))) return isFolder(replaced) ? -isAFolder : -noFolder;
    folder.entries.delete(name);
    newFolder.entries.set(newName, node);
    return 0;
  }

  /** Writes as many entries of a folder as there is room for, and returns their bytes. */
  entries(memory: Uint8Array, number: number, target: number, room: number): number {
    const stream = this.#streams.get(number);
    if (!stream || !isFolder(stream.node)) return -badDescriptor;
    const all: [string, Node][] = [[".", stream.node], ["..", stream.node], ...stream.node.entries];
    const view = new DataView(memory.buffer);
    let end = target;
    for (; stream.position < all.length && end + entryBytes <= target + room; end += entryBytes) {
      const [name, node] = all[stream.position++]!;
      view.setBigUint64(end, BigInt(node.id), true);
      view.setBigUint64(end + 8, BigInt(stream.position), true);
      view.setUint16(end + 16, entryBytes, true);
      memory[end + 18] = isFolder(node) ? 4 : 8;
      const { written } = encoder.encodeInto(name, memory.subarray(end + 19, end + entryBytes - 1));
      memory[end + 19 + written] = 0;
    }
    return end - target;
  }

  fdClose(number: number): number {
    return this.#streams.delete(number) ? 0 : badDescriptor;
  }

  /** Moves the position: from the begin, the current position or the end. */
  fdSeek(memory: Uint8Array, number: number, offset: number, origin: number, target: number): number {
    const stream = this.#streams.get(number);
    if (!stream) return badDescriptor;
    const end = isFolder(stream.node) ? 0 : stream.node.size;
    const position = offset + [0, stream.position, end][origin]!;
    if (!(position >= 0)) return invalid;
    stream.position = position;
    new DataView(memory.buffer).setBigUint64(target, BigInt(position), true);
    return 0;
  }

  fdRead(memory: Uint8Array, number: number, pieces: number, count: number, target: number): number {
    const stream = this.#streams.get(number);
    if (!stream) return badDescriptor;
    const { node } = stream;
    if (isFolder(node)) return isAFolder;
    return eachPiece(memory, pieces, count, target, (piece) => {
      const bytes = node.bytes.subarray(stream.position, Math.min(node.size, stream.position + piece.length));
      piece.set(bytes);
      stream.position += bytes.length;
      return bytes.length;
    });
  }

  fdWrite(memory: Uint8Array, number: number, pieces: number, count: number, target: number): number {
    const stream = this.#streams.get(number);
    if (!stream && number !== 1 && number !== 2) return badDescriptor;
    return eachPiece(memory, pieces, count, target, (piece) => {
      if (stream) this.#write(stream, piece);
      else this.#print(decoder.decode(piece));
      return piece.length;
    });
  }

  #write(stream: Stream, piece: Uint8Array): void {
    const file = stream.node as File; // folders cannot be opened for writing
    if (stream.appends) stream.position = file.size;
    const end = stream.position + piece.length;
    if (end > file.bytes.length) {
      const larger = new Uint8Array(Math.max(end, 2 * file.size));
      larger.set(file.bytes.subarray(0, file.size));
      file.bytes = larger;
    }
    file.bytes.fill(0, file.size, stream.position).set(piece, stream.position);
    file.size = Math.max(file.size, end);
    file.changed = Date.now() / 1000;
    stream.position = end;
  }

  #print(text: string): void {
    const lines = (this.#text + text).split("\n");
    this.#text = lines.pop()!;
    lines.forEach(this.#printed);
  }

  // Returns the folder, the name in it, and what has the name. The folder is null if there is none.
  #find(memory: Uint8Array, path: number): [Folder | null, string, Node | undefined] {
    const names: string[] = [];
    for (const name of decoder.decode(memory.subarray(path, memory.indexOf(0, path))).split("/")) {
      if (name === "..") names.pop();
      else if (name && name !== ".") names.push(name);
    }
    let folder: Folder | null = null;
    let node: Node | undefined = this.#root;
    for (const name of names) {
      folder = node && isFolder(node) ? node : null;
      node = folder?.entries.get(name);
    }
    return [folder, names.at(-1) ?? "", node];
  }

  #describe(memory: Uint8Array, node: Node, target: number): number {
    const view = new DataView(memory.buffer, target, 88);
    memory.fill(0, target, target + 88);
    const put = (offset: number, value: number) => view.setUint32(offset, value, true);
    put(8, node.id);
    put(12, isFolder(node) ? 0o40777 : 0o100666);
    put(16, 1); // links
    put(48, 4096); // bytes of a block
    put(80, node.id);
    if (isFolder(node)) return 0;
    put(40, node.size);
    put(52, Math.ceil(node.size / 4096));
    for (const time of [56, 64, 72]) put(time, node.changed);
    return 0;
  }
}
