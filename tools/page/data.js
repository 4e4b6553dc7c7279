// What the description says, from the block of data in this page. Its columns have one item for each
// quantity; [n] says that the item before comes n times more.

const data = JSON.parse(byId("data").textContent);
byId("data").remove();

const quantityCount = data.count;

/// Calls `visit` with each row and its item.
function expand(column, visit) {
  let row = 0;
  let last = null;
  for (const item of column) {
    if (Array.isArray(item)) {
      for (let n = item[0]; n > 0; --n) visit(row++, last);
    } else {
      last = item;
      visit(row++, item);
    }
  }
}

/// Texts: a new one, the number of an earlier one, null for none, or true for the name.
class TextColumn {
  constructor(column) {
    this.texts = [];
    this.numbers = new Int32Array(quantityCount).fill(-1);
    expand(column, (row, item) => {
      if (typeof item === "string") this.numbers[row] = this.texts.push(item) - 1;
      else if (item !== null) this.numbers[row] = item === true ? -2 : item;
    });
  }

  /// Null for none.
  at(row) {
    const number = this.numbers[row];
    return number >= 0 ? this.texts[number] : number === -2 ? names[row] : null;
  }
}

/// Numbers; NaN for none. Those that a double doesn't hold exactly come as texts.
class NumberColumn {
  constructor(column, isByDifference = false) {
    this.numbers = new Float64Array(quantityCount).fill(NaN);
    this.exact = new Map();
    let sum = 0;
    expand(column, (row, item) => {
      if (typeof item === "number") {
        sum = isByDifference ? sum + item : item;
        this.numbers[row] = sum;
      } else if (item === "inf" || item === "-inf") {
        this.numbers[row] = item === "inf" ? Infinity : -Infinity;
      } else if (typeof item === "string" && /^-?\d+$/.test(item)) {
        this.exact.set(row, BigInt(item));
        this.numbers[row] = Number(item);
      }
    });
  }

  at(row) { return this.numbers[row]; }
  has(row) { return !Number.isNaN(this.numbers[row]); }
  /// The number for hexadecimal digits and bits.
  pattern(row) { return this.exact.get(row) ?? BigInt(this.numbers[row]); }
  hex(row, digits = 0) { return this.has(row) ? formatHex(this.exact.get(row) ?? this.numbers[row], digits) : ""; }
}

/// Each name as the number of characters that it shares with the one before, and its rest.
function namesOf(column) {
  const found = new Array(quantityCount);
  let last = "";
  for (let row = 0; row < quantityCount; ++row) {
    last = last.slice(0, column[2 * row]) + column[2 * row + 1];
    found[row] = last;
  }
  return found;
}

const names = namesOf(data.name);
const descriptions = new TextColumn(data.description);
const types = new TextColumn(data.type);
const byteOrders = new TextColumn(data.byte_order);
const units = new TextColumn(data.unit);
const conversionNumbers = new NumberColumn(data.conversion);
const addresses = new NumberColumn(data.address, true);
const extensions = new NumberColumn(data.address_extension);
const masks = new NumberColumn(data.bit_mask);
const lowerLimits = new NumberColumn(data.min);
const upperLimits = new NumberColumn(data.max);
const dimensions = new TextColumn(data.dimensions);
const layouts = new TextColumn(data.layout);
const events = new TextColumn(data.events);
const symbols = new TextColumn(data.symbol);
const symbolOffsets = new NumberColumn(data.symbol_offset);
const displayNames = new TextColumn(data.display_name);
const virtualMarks = new NumberColumn(data.virtual);
const obstacles = new TextColumn(data.left_out);

const typeSizes = { uint8: 1, int8: 1, uint16: 2, int16: 2, real16: 2, uint32: 4, int32: 4, real32: 4,
  uint64: 8, int64: 8, real64: 8 };
const valueSize = (row) => typeSizes[types.at(row)] ?? 0;
/// More of them than bytes in an address space are a fault of the description.
const mostElements = 2 ** 48;
const elementCounts = dimensions.texts.map((text) => 
  Math.min(text.split("x").reduce((product, n) => product * Number(n), 1), mostElements));
const elementCount = (row) => elementCounts[dimensions.numbers[row]] ?? 1;
/// Bytes of all elements.
const sizeOf = (row) => valueSize(row) * elementCount(row);
const isPointer = (row) => obstacles.at(row) === "pointer";

/// Null for none.
const conversionOf = (row) => data.conversions[conversionNumbers.at(row)] ?? null;
const tableOfConversion = (conversion) => data.tables[conversion.rows] ?? null;
const conversionName = (row) => conversionOf(row)?.name ?? "";

const eventLists = events.texts.map((text) => text.split(" ").map(Number));
/// The channels of the events that a quantity is bound to.
const eventsOf = (row) => eventLists[events.numbers[row]] ?? [];
const sourceByChannel = new Map();
for (const source of data.sources)
  if (!sourceByChannel.has(source.channel)) sourceByChannel.set(source.channel, source);
const eventName = (channel) => sourceByChannel.get(channel)?.name ?? `channel ${channel}`;
const mostNamedEvents = 20;
const eventNames = eventLists.map((list) =>
  list.slice(0, mostNamedEvents).map(eventName).join(", ") + (list.length > mostNamedEvents ? " …" : ""));
const eventText = (row) => eventNames[events.numbers[row]] ?? "";

/// The first row of each name.
let rowsByName = null;
function rowOfName(name) {
  if (name === null) return -1;
  if (!rowsByName) {
    rowsByName = new Map();
    for (let row = quantityCount - 1; row >= 0; --row) rowsByName.set(names[row], row);
  }
  return rowsByName.get(name) ?? -1;
}
