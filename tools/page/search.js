// Which quantities are shown, and in which order.

/// Texts in lower case, each made when it is asked for first.
class LowerTexts {
  constructor(texts) {
    this.texts = texts;
    this.lower = new Array(texts.length);
  }

  at(number) { return (this.lower[number] ??= this.texts[number].toLowerCase()); }

  /// Makes all of them while nothing else is to be done, so that the first key is answered at once.
  prepare(number = 0) {
    const end = Math.min(number + 10000, this.texts.length);
    for (; number < end; ++number) this.at(number);
    if (number < this.texts.length) setTimeout(() => this.prepare(number));
  }
}

const lowerNames = new LowerTexts(names);
const lowerDescriptions = new LowerTexts(descriptions.texts);
const lowerUnits = new LowerTexts(units.texts);

/// Says of the texts of a column whether a word is in them, and looks into each text once.
function hitsOf(column, lowerTexts, word) {
  const known = new Int8Array(column.texts.length);
  return (row) => {
    const number = column.numbers[row];
    if (number < 0) return false;
    if (known[number] === 0) known[number] = lowerTexts.at(number).includes(word) ? 1 : -1;
    return known[number] > 0;
  };
}

function wordTest(word) {
  const isInDescription = hitsOf(descriptions, lowerDescriptions, word);
  const isInUnit = hitsOf(units, lowerUnits, word);
  return (row) => lowerNames.at(row).includes(word) || isInDescription(row) || isInUnit(row);
}

/// Says for each text whether it is wanted: the one that is it exactly, else all that have it in them.
function wantedTexts(texts, wanted) {
  if (texts.includes(wanted)) return texts.map((text) => text === wanted);
  const lower = wanted.toLowerCase();
  return texts.map((text) => text.toLowerCase().includes(lower));
}

/// An address as people write it: hexadecimal, with or without 0x. NaN for what is none.
function addressOfText(text) {
  const digits = text.trim().replace(/^0x/i, "").replaceAll("_", "");
  return /^[0-9a-f]{1,16}$/i.test(digits) ? parseInt(digits, 16) : NaN;
}

/// The tests of the filters that are set, the cheapest first.
function filterTests() {
  const tests = [];
  const number = (text) => { const address = addressOfText(text); return Number.isNaN(address) ? null : address; };
  const from = number(state.from);
  const to = number(state.to);
  if (from !== null || to !== null)
    tests.push((row) => {
      const address = addresses.at(row);
      // Whatever lies in the range partly is in it.
      return address <= (to ?? Infinity) && address + Math.max(sizeOf(row), 1) > (from ?? -Infinity);
    });
  if (state.type) {
    const wanted = types.texts.indexOf(state.type);
    tests.push((row) => types.numbers[row] === wanted);
  }
  if (state.unit) {
    const wanted = wantedTexts(units.texts, state.unit);
    tests.push((row) => wanted[units.numbers[row]] === true);
  }
  if (state.conversion) {
    const wanted = wantedTexts(data.conversions.map((conversion) => conversion.name), state.conversion);
    tests.push((row) => wanted[conversionNumbers.at(row)] === true);
  }
  if (state.event === "none") {
    tests.push((row) => events.numbers[row] < 0);
  } else if (state.event) {
    const wanted = eventLists.map((list) => list.includes(Number(state.event)));
    tests.push((row) => wanted[events.numbers[row]] === true);
  }
  for (const word of state.query.toLowerCase().split(/\s+/).filter(Boolean))
    tests.push(wordTest(word));
  return tests;
}

/// Text whose order is that of people: without case, and 2 before 10.
const sortable = (text) => text.toLowerCase().replace(/\d+/g, (digits) => digits.padStart(12, "0"));

/// The place of each text among all of them.
function ranksOf(texts) {
  const keys = texts.map(sortable);
  const order = Uint32Array.from(keys, (_, n) => n);
  order.sort((a, b) => (keys[a] < keys[b] ? -1 : keys[a] > keys[b] ? 1 : a - b));
  const ranks = new Float64Array(texts.length);
  let rank = 0;
  order.forEach((number, place) => {
    if (place > 0 && keys[number] !== keys[order[place - 1]]) ++rank;
    ranks[number] = rank;
  });
  return ranks;
}

function keysOfTexts(column, texts = column.texts) {
  const ranks = ranksOf(texts);
  return column.numbers.constructor === Int32Array
    ? Float64Array.from(column.numbers, (number) => (number < 0 ? NaN : ranks[number]))
    : column.numbers.map((number) => ranks[number] ?? NaN);
}

/// What a column is called and how wide it is, what stands in a row of it, and by what rows are sorted.
const columns = [
  { key: "name", title: "Name", width: "minmax(11rem, 3fr)", text: (row) => names[row], keys: () => ranksOf(names) },
  { key: "description", title: "Description", width: "minmax(7rem, 3fr)", text: (row) => descriptions.at(row) ?? "",
    keys: () => keysOfTexts(descriptions) },
  { key: "address", title: "Address", width: "6rem", isNumber: true, text: (row) => addresses.hex(row, 8),
    keys: () => addresses.numbers },
  { key: "type", title: "Type", width: "5rem", text: (row) => typeText(row), keys: () => keysOfTexts(types) },
  { key: "unit", title: "Unit", width: "4rem", text: (row) => units.at(row) ?? "", keys: () => keysOfTexts(units) },
  { key: "min", title: "Min", width: "minmax(4.5rem, 1fr)", isNumber: true, text: (row) => formatNumber(lowerLimits.at(row)),
    keys: () => lowerLimits.numbers },
  { key: "max", title: "Max", width: "minmax(4.5rem, 1fr)", isNumber: true, text: (row) => formatNumber(upperLimits.at(row)),
    keys: () => upperLimits.numbers },
  { key: "conversion", title: "Conversion", width: "minmax(6rem, 1fr)", text: conversionName,
    keys: () => keysOfTexts(conversionNumbers, data.conversions.map((conversion) => conversion.name)) },
  { key: "events", title: "Events", width: "minmax(4.5rem, 1fr)", text: eventText,
    keys: () => keysOfTexts(events, eventNames) },
];

function typeText(row) {
  const shape = dimensions.at(row);
  return shape === null ? types.at(row) : `${types.at(row)}[${shape}]`;
}

const sortedKeys = new Map();
/// All rows in the order that is asked for; rows without a value come last.
function orderedRows() {
  const order = Uint32Array.from({ length: quantityCount }, (_, row) => row);
  const column = columns.find(({ key }) => key === state.sort);
  if (!column) return order;
  if (!sortedKeys.has(column.key)) sortedKeys.set(column.key, column.keys());
  const keys = sortedKeys.get(column.key);
  const sign = state.isDescending ? -1 : 1;
  return order.sort((a, b) => {
    const x = keys[a];
    const y = keys[b];
    if (x !== x || y !== y) return (x !== x) - (y !== y) || a - b;
    return x === y ? a - b : sign * (x - y);
  });
}

/// The rows that are shown, in their order.
let shownRows = new Uint32Array(0);
let order = null;
let orderedBy = null;
/// What the rows were searched for last, and everything else that they depend on.
let searched = { query: "", by: null };

function updateShownRows() {
  const wantedOrder = `${state.isDescending}${state.sort}`;
  if (orderedBy !== wantedOrder) {
    order = orderedRows();
    orderedBy = wantedOrder;
  }
  const tests = filterTests();
  const by = JSON.stringify([wantedOrder, ...textKeys.filter((key) => key !== "query").map((key) => state[key])]);
  // Who types on finds no more rows than before.
  const candidates = searched.by === by && state.query.startsWith(searched.query) ? shownRows : order;
  searched = { query: state.query, by };
  if (tests.length === 0) {
    shownRows = order;
    return;
  }
  const found = new Uint32Array(candidates.length);
  let count = 0;
  next: for (const row of candidates) {
    for (const test of tests) if (!test(row)) continue next;
    found[count++] = row;
  }
  shownRows = found.subarray(0, count);
}
