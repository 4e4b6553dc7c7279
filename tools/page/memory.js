// Where quantities lie: regions of the address space, gaps between them, and overlaps.

/// The rows that have an address, by extension and address; the larger one first.
const placedRows = Uint32Array.from({ length: quantityCount }, (_, row) => row)
  .filter((row) => addresses.has(row) && !virtualMarks.has(row));
const extensionOf = (row) => (extensions.has(row) ? extensions.at(row) : 0);
/// Bytes that are taken; a type that isn't known takes one at least.
const extentOf = (row) => (isPointer(row) ? 4 : Math.max(sizeOf(row), 1));
const endOf = (row) => addresses.at(row) + extentOf(row);

/// A region is a piece of the address space without a gap of `leastGap` bytes. It has `rows`, from `first`
/// to `last` in `placedRows`, and `used` bytes.
function regionsWith(leastGap) {
  const regions = [];
  let region = null;
  placedRows.forEach((row, place) => {
    const [from, end, extension] = [addresses.at(row), endOf(row), extensionOf(row)];
    if (!region || region.extension !== extension || from - region.end >= leastGap) {
      region = { extension, from, end: from, first: place, last: place, used: 0 };
      regions.push(region);
    }
    region.used += Math.max(end - Math.max(from, region.end), 0);
    region.end = Math.max(region.end, end);
    region.last = place;
  });
  return regions;
}

const mostRegions = 200;

function findRegions() {
  placedRows.sort((a, b) => extensionOf(a) - extensionOf(b) || addresses.at(a) - addresses.at(b) || endOf(b) - endOf(a) || a - b);
  let leastGap = 256;
  let regions = regionsWith(leastGap);
  while (regions.length > mostRegions && leastGap < 2 ** 50) regions = regionsWith(leastGap *= 2);
  return regions;
}

/// The bits that belong to a quantity of the byte at an offset from its address.
function bitsAt(row, offset) {
  if (!masks.has(row) || isPointer(row) || valueSize(row) === 0) return 0xFF;
  const place = offset % valueSize(row);
  return Number(BigInt.asUintN(64, masks.pattern(row)) >> BigInt(8 * byteOrderOf(row)[place]) & 0xFFn);
}

/// Whether two quantities share more than bytes of which each has bits of its own.
function isOverlap(a, b) {
  const from = Math.max(addresses.at(a), addresses.at(b));
  const end = Math.min(endOf(a), endOf(b));
  if (!masks.has(a) && !masks.has(b)) return from < end;
  // Masks repeat with each element, and 64 bytes are several elements of all types.
  for (let n = 0; n < Math.min(end - from, 64); ++n)
    if ((bitsAt(a, from - addresses.at(a) + n) & bitsAt(b, from - addresses.at(b) + n)) !== 0) return true;
  return false;
}

/// More quantities than bits in a word can't lie in one place without an overlap.
const mostOpen = 128;
const mostOverlaps = 1000;

/// Pairs of rows: each quantity that overlaps an earlier one, with the first of those.
function findOverlaps() {
  const overlaps = [];
  let open = [];
  let count = 0;
  for (const row of placedRows) {
    const from = addresses.at(row);
    open = open.filter((other) => endOf(other) > from && extensionOf(other) === extensionOf(row));
    const other = open.find((candidate) => isOverlap(candidate, row));
    if (other !== undefined && ++count <= mostOverlaps) overlaps.push([other, row]);
    if (open.length < mostOpen) open.push(row);
  }
  return { overlaps, count };
}

let memoryModel = null;
/// Made when it is asked for first.
function memoryOf() {
  if (!memoryModel) {
    const regions = findRegions();
    memoryModel = { regions, ...findOverlaps() };
    // The farthest end of all rows up to each one, by which those that reach into view are found.
    memoryModel.ends = new Float64Array(placedRows.length);
    for (const region of regions) {
      let end = 0;
      for (let place = region.first; place <= region.last; ++place)
        memoryModel.ends[place] = end = Math.max(end, endOf(placedRows[place]));
    }
  }
  return memoryModel;
}

/// The first place of a region, or the one after its last, for which `isReached` is true; it is for all
/// that follow, too.
function firstPlace(region, isReached) {
  let [low, high] = [region.first, region.last + 1];
  while (low < high) {
    const middle = Math.floor((low + high) / 2);
    if (isReached(middle)) high = middle;
    else low = middle + 1;
  }
  return low;
}
