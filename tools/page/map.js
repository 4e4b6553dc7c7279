// The view of the address space.

const bytesPerRow = 32;
const byteRowHeight = 22;
const kinds = [
  { name: "unsigned", color: "--unsigned", has: (type) => type.startsWith("uint") },
  { name: "signed", color: "--signed", has: (type) => type.startsWith("int") },
  { name: "real", color: "--real", has: (type) => type.startsWith("real") },
  { name: "unknown", color: "--unknown", has: () => true },
];
const kindNumbers = types.texts.map((type) => kinds.findIndex((kind) => kind.has(type)));
const kindOf = (row) => kindNumbers[types.numbers[row]] ?? 3;

const byteScroller = byId("bytes");
const canvas = byId("bytes-canvas");
let currentRegion = null;
let isMemoryDrawn = false;

const byteRows = new VirtualRows({
  scroller: byteScroller, space: byId("bytes-space"), layer: canvas, rowHeight: byteRowHeight, draw: drawBytes,
});

function regionTitle(region) {
  const extension = region.extension ? `${formatHex(region.extension)}: ` : "";
  return `${extension}${formatHex(region.from, 8)} … ${formatHex(region.end - 1, 8)}`;
}

/// How full each part of a region is, as a row of bars.
function regionBar(region) {
  const count = 60;
  const size = (region.end - region.from) / count;
  const fills = Array.from({ length: count }, () => [0, 0, 0, 0]);
  let covered = region.from;
  for (let place = region.first; place <= region.last; ++place) {
    const row = placedRows[place];
    const [from, end] = [Math.max(addresses.at(row), covered), endOf(row)];
    covered = Math.max(covered, end);
    for (let part = Math.floor((from - region.from) / size); part < count && region.from + part * size < end; ++part)
      fills[part][kindOf(row)] += Math.max(Math.min(end, region.from + (part + 1) * size) - Math.max(from, region.from + part * size), 0) / size;
  }
  return picture("svg", { viewBox: `0 0 ${count} 10`, preserveAspectRatio: "none", class: "region", "aria-hidden": "true" },
    fills.map((parts, x) => {
      let y = 10;
      return parts.map((fill, kind) => {
        if (fill <= 0) return null;
        y -= fill * 10;
        return picture("rect", { x, y, width: 1, height: fill * 10, class: `kind${kind}` });
      });
    }));
}

/// There may be as many regions as address extensions.
const mostListedRegions = 1000;

function drawRegions() {
  const { regions, overlaps, count } = memoryOf();
  const used = regions.reduce((sum, region) => sum + region.used, 0);
  byId("memory-summary").textContent = regions.length === 0 ? "No quantity has an address."
    : `${countedQuantities(placedRows.length)} take ${formatSize(used)} in ${counted(regions.length, "region")}; ` +
      `${count === 0 ? "no overlaps except bit fields" : counted(count, "overlap")}.`;
  replace(byId("legend"), kinds.map((kind, n) =>
    element("span", { class: "key" }, picture("svg", { viewBox: "0 0 10 10", "aria-hidden": "true" },
      picture("rect", { width: 10, height: 10, class: `kind${n}` })), kind.name)));
  const items = [];
  regions.slice(0, mostListedRegions).forEach((region, n) => {
    const before = regions[n - 1];
    if (before && before.extension === region.extension)
      items.push(element("li", { class: "gap" }, `${formatSize(region.from - before.end)} without a quantity`));
    items.push(element("li", {}, element("button", { type: "button", class: "region", "data-region": n,
      onclick: () => showRegion(region) },
      element("span", { class: "mono" }, regionTitle(region)), regionBar(region),
      element("small", {}, `${formatSize(region.end - region.from)}, ${countedQuantities(region.last - region.first + 1)}, ` +
        `${Math.round(100 * region.used / (region.end - region.from))} % used`))));
  });
  if (regions.length > mostListedRegions)
    items.push(element("li", { class: "gap" }, `and ${counted(regions.length - mostListedRegions, "region")} more`));
  replace(byId("regions"), items);
  drawOverlaps(overlaps, count);
  isMemoryDrawn = true;
  showRegion(regions.find((region) => state.selected >= 0 && holds(region, state.selected)) ?? regions[0] ?? null);
}

function drawOverlaps(overlaps, count) {
  const link = (row) => element("button", { type: "button", class: "link", onclick: () => { select(row); showInMemory(row); } }, names[row]);
  replace(byId("overlaps"), count === 0 ? [] : [
    tableOf("Overlaps that aren't bit fields", ["Address", "Quantity", "lies on", "Shared"], overlaps.map(([other, row]) =>
      [addresses.hex(row, 8), link(row), link(other), formatSize(Math.min(endOf(row), endOf(other)) - addresses.at(row))])),
    element("p", {}, count > overlaps.length ? `and ${formatCount(count - overlaps.length)} more` : "")]);
}

const holds = (region, row) => region.extension === extensionOf(row) && addresses.at(row) >= region.from && addresses.at(row) < region.end;

function showRegion(region) {
  currentRegion = region;
  for (const button of document.querySelectorAll("button.region"))
    button.setAttribute("aria-current", String(memoryOf().regions[button.dataset.region] === region));
  byteScroller.hidden = region === null;
  if (!region) return;
  byteRows.setCount(Math.ceil((region.end - startOf(region)) / bytesPerRow));
  byteScroller.scrollTop = 0;
  if (state.selected >= 0 && holds(region, state.selected)) showByte(addresses.at(state.selected));
  byteRows.update();
}

const startOf = (region) => Math.floor(region.from / bytesPerRow) * bytesPerRow;
const showByte = (address) => byteRows.show(Math.floor((address - startOf(currentRegion)) / bytesPerRow));

/// The selected quantity in the view of addresses.
function showInMemory(row) {
  setView("memory");
  const region = memoryOf().regions.find((candidate) => holds(candidate, row));
  if (region && region !== currentRegion) showRegion(region);
  else if (region) showByte(addresses.at(row));
  byteRows.update();
  byteScroller.focus({ preventScroll: true });
}

const labelWidth = 96;

/// The boxes of a quantity, one for each row of bytes that it lies in: [x, y, width], in bytes and rows.
function boxesOf(row, start, first, last) {
  const boxes = [];
  const from = addresses.at(row) - start;
  const end = endOf(row) - start;
  const lastLine = Math.min(last, Math.ceil(end / bytesPerRow));
  for (let line = Math.max(first, Math.floor(from / bytesPerRow)); line < lastLine; ++line) {
    const x = Math.max(from - line * bytesPerRow, 0);
    boxes.push([x, line - first, Math.min(end - line * bytesPerRow, bytesPerRow) - x]);
  }
  return boxes;
}

function drawBytes(first, last) {
  if (!currentRegion || state.view !== "memory") return;
  const style = getComputedStyle(document.documentElement);
  const color = (name) => style.getPropertyValue(name).trim();
  const density = devicePixelRatio || 1;
  const [width, height] = [byteScroller.clientWidth, (last - first) * byteRowHeight];
  canvas.width = Math.round(width * density);
  canvas.height = Math.round(height * density);
  canvas.style.width = `${width}px`;
  canvas.style.height = `${height}px`;
  const pen = canvas.getContext("2d");
  pen.scale(density, density);
  pen.font = "12px system-ui, sans-serif";
  pen.textBaseline = "middle";
  const start = startOf(currentRegion);
  const unit = (width - labelWidth - 8) / bytesPerRow;
  pen.fillStyle = color("--muted");
  for (let line = first; line < last; ++line)
    pen.fillText(formatHex(start + line * bytesPerRow, 8), 4, (line - first + 0.5) * byteRowHeight);
  let taken = 0; // up to where boxes were drawn; what is below that lies on another one
  for (const place of placesInView(start + first * bytesPerRow, start + last * bytesPerRow)) {
    const row = placedRows[place];
    const isOver = addresses.at(row) < taken && !masks.has(row);
    taken = Math.max(taken, endOf(row));
    boxesOf(row, start, first, last).forEach(([x, y, size], n) => {
      const box = [labelWidth + x * unit + 0.5, y * byteRowHeight + 1.5, size * unit - 1, byteRowHeight - 3];
      pen.fillStyle = color(kinds[kindOf(row)].color);
      pen.fillRect(...box);
      pen.strokeStyle = color(row === state.selected ? "--accent" : isOver ? "--bad" : "--paper");
      pen.lineWidth = row === state.selected || isOver ? 2 : 1;
      pen.strokeRect(...box);
      if (n > 0 || box[2] < 24) return;
      pen.save();
      pen.beginPath();
      pen.rect(...box);
      pen.clip();
      pen.fillStyle = color("--ink");
      pen.fillText(names[row].slice(0, 60), box[0] + 3, box[1] + box[3] / 2);
      pen.restore();
    });
  }
}

/// The places in `placedRows` of what reaches into a range of addresses.
function placesInView(from, end) {
  const { ends } = memoryOf();
  const found = [];
  const most = 20000; // A picture of more would be one of nothing.
  for (let place = firstPlace(currentRegion, (candidate) => ends[candidate] > from);
    place <= currentRegion.last && addresses.at(placedRows[place]) < end && found.length < most; ++place)
    if (endOf(placedRows[place]) > from) found.push(place);
  return found;
}

/// The quantity at a point of the picture: of several the last one, which is drawn on top; -1 for none.
function rowAtPoint(event) {
  const box = canvas.getBoundingClientRect();
  const unit = (box.width - labelWidth - 8) / bytesPerRow;
  const byte = Math.floor((event.clientX - box.left - labelWidth) / unit);
  if (!currentRegion || byte < 0 || byte >= bytesPerRow) return -1;
  const first = Math.floor(byteScroller.scrollTop * byteRows.ratio / byteRowHeight);
  const line = first + Math.floor((event.clientY - box.top) / byteRowHeight);
  const address = startOf(currentRegion) + line * bytesPerRow + byte;
  const place = placesInView(address, address + 1).at(-1);
  return place === undefined ? -1 : placedRows[place];
}

byteScroller.addEventListener("click", (event) => {
  const row = rowAtPoint(event);
  if (row >= 0) select(row);
});
byteScroller.addEventListener("mousemove", (event) => {
  const row = rowAtPoint(event);
  byteScroller.title = row < 0 ? "" : `${names[row]}, ${typeText(row)}, ${addresses.hex(row, 8)}`;
});
byteScroller.addEventListener("keydown", (event) => {
  const steps = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1, Home: -Infinity, End: Infinity };
  if (event.key === " " && state.selected >= 0) togglePick(state.selected);
  else if (event.key === "Enter" && state.selected >= 0) byId("detail").focus();
  else if (event.key in steps && currentRegion) {
    const place = holds(currentRegion, Math.max(state.selected, 0)) ? placedRows.indexOf(state.selected) : currentRegion.first - 1;
    const next = Math.min(Math.max(place + steps[event.key], currentRegion.first), currentRegion.last);
    select(placedRows[next]);
    showByte(addresses.at(placedRows[next]));
  } else return;
  event.preventDefault();
});

function memorySelectionChanged() {
  if (state.view !== "memory") return;
  const row = state.selected;
  byId("bytes-status").textContent = row < 0 ? "" : `${names[row]}: ${typeText(row)}${addresses.has(row) ? ` at ${addressText(row)}` : ""}`;
  byteRows.update();
}

matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => byteRows.update());
