// The picked quantities: the list of them, and what it costs to measure them.

/// A frame of CAN has 8 bytes, of which the first says which part of a sample it is.
const frameBytes = 7;
/// Bits of such a frame with all that may be stuffed in, by the size of its identifier.
const frameBits = { 11: 135, 29: 160 };
const busBits = 500000;

/// The channel that samples a quantity: the first of its events, else the one that is chosen for all others.
function channelOf(row) {
  const own = eventsOf(row)[0];
  if (own !== undefined) return own;
  const chosen = byId("default-source").value;
  return chosen === "" ? null : Number(chosen);
}

/// For each channel, how much is to be transferred with each of its samples.
function loadsOf(rows) {
  const loads = new Map();
  for (const row of rows) {
    const channel = channelOf(row);
    const load = loads.get(channel) ?? { channel, quantities: 0, bytes: 0 };
    ++load.quantities;
    load.bytes += sizeOf(row);
    loads.set(channel, load);
  }
  const identifier = data.interfaces.find((item) => item.slave_id !== undefined)?.slave_id ?? 0;
  const bits = frameBits[identifier >= 2 ** 31 ? 29 : 11];
  for (const load of loads.values()) {
    const period = sourceByChannel.get(load.channel)?.period_ns;
    load.frames = Math.ceil(load.bytes / frameBytes);
    load.rate = period > 0 ? load.frames * 1e9 / period : NaN;
    load.share = load.rate * bits / busBits;
  }
  return [...loads.values()].sort((a, b) => (a.channel ?? Infinity) - (b.channel ?? Infinity));
}

const percent = (share) => (Number.isNaN(share) ? "" : `${formatNumber(Number((100 * share).toPrecision(3)))} %`);

function loadTable(loads) {
  const sum = (key) => loads.reduce((total, load) => total + (load[key] || 0), 0);
  const rate = (frames) => (Number.isNaN(frames) ? "not periodic" : formatCount(Math.round(frames)));
  const rows = loads.slice(0, mostListed).map((load) => [load.channel === null ? "without an event" : eventName(load.channel),
    formatCount(load.quantities), formatCount(load.bytes), formatCount(load.frames),
    load.channel === null ? "" : rate(load.rate), percent(load.share)]);
  rows.push(["All", formatCount(sum("quantities")), formatCount(sum("bytes")), formatCount(sum("frames")), rate(sum("rate")), percent(sum("share"))]);
  const table = tableOf("Load on CAN with frames of 8 bytes", ["Event", "Quantities", "Bytes per sample", "Frames per sample",
    "Frames per second", "Share of 500 kbit/s"], rows);
  table.classList.add("numbers");
  if (sum("share") > 1) table.classList.add("over");
  return table;
}

/// A field with hundreds of thousands of lines would be slow.
const mostListed = 5000;

/// The picked rows in the order of the description.
const pickedRows = () => Uint32Array.from(state.picked).sort();

/// What `convert --select` reads: a name a line, and comments after a semicolon.
function listText(rows, listed = rows) {
  const lines = [`; ${data.file}: ${countedQuantities(rows.length)}`];
  for (const row of listed) lines.push(names[row]);
  if (listed.length < rows.length) lines.push(`; and ${formatCount(rows.length - listed.length)} more, copied and saved with these`);
  return `${lines.join("\n")}\n`;
}

function drawPicks() {
  const rows = pickedRows();
  const left = rows.filter((row) => obstacles.at(row) !== null || virtualMarks.has(row)).length;
  byId("picked-summary").textContent = rows.length === 0 ? "Nothing is picked yet: tick quantities in the table."
    : countedQuantities(rows.length) + (left ? `, of which a configuration can't have ${formatCount(left)}` : "") +
      (rows.length > mostLinkedPicks ? `; a link to this page holds the first ${formatCount(mostLinkedPicks)}` : "");
  replace(byId("load"), rows.length ? loadTable(loadsOf(rows)) : null);
  const listed = rows.slice(0, mostListed);
  byId("list").value = rows.length ? listText(rows, listed) : "";
  for (const id of ["copy", "save", "unpick"]) byId(id).disabled = rows.length === 0;
}

function picksChanged() {
  byId("picked-count").textContent = formatCount(state.picked.size);
  if (state.view === "picked") drawPicks();
  gridRows.update();
  drawDetail();
  saveState();
}

function saveList() {
  const address = URL.createObjectURL(new Blob([listText(pickedRows())], { type: "text/plain" }));
  element("a", { href: address, download: `${data.file.replace(/\.[^.]*$/, "")}.lab` }).click();
  setTimeout(() => URL.revokeObjectURL(address), 10000);
}

async function copyList() {
  const done = (text) => { byId("picked-summary").textContent = text; };
  try {
    await navigator.clipboard.writeText(listText(pickedRows()));
  } catch {
    if (pickedRows().length <= mostListed) byId("list").select();
    if (!document.execCommand("copy")) return done("The browser doesn't let a page copy: the list is selected, copy it by hand.");
  }
  return done(`Copied: ${countedQuantities(state.picked.size)}`);
}

byId("copy").addEventListener("click", copyList);
byId("save").addEventListener("click", saveList);
byId("unpick").addEventListener("click", () => { state.picked.clear(); picksChanged(); });
byId("default-source").addEventListener("change", drawPicks);
byId("pick-shown").addEventListener("click", () => {
  for (const row of shownRows) state.picked.add(row);
  picksChanged();
});
