// A quantity in full.

/// Which byte of the number stands at which place, 0 for the least significant one.
function byteOrderOf(row) {
  const size = valueSize(row);
  const places = Array.from({ length: size }, (_, n) => n);
  switch (byteOrders.at(row)) {
    case "Motorola": return places.reverse();
    case "MSB_FIRST_MSW_LAST": return places.map((n) => n ^ 1);
    case "MSB_LAST_MSW_FIRST": return places.map((n) => (size - 1 - n) ^ 1);
    default: return places;
  }
}

/// The bytes of a value in the order of their addresses, each with the bits that it holds.
function bytesPicture(row) {
  const size = valueSize(row);
  if (size < 2 || size > 8 || byteOrders.at(row) === null) return null;
  return element("div", { class: "cells", role: "img",
    "aria-label": `Bytes by address: ${byteOrderOf(row).map((n) => `bits ${8 * n + 7} to ${8 * n}`).join(", ")}` },
    byteOrderOf(row).map((n, place) => element("span", { class: n === size - 1 ? "cell first" : "cell" },
      element("small", {}, `+${place}`), `${8 * n + 7}…${8 * n}`)));
}

/// The bits of the mask, the most significant one first.
function bitsPicture(row) {
  if (!masks.has(row)) return null;
  const count = Math.max(8 * valueSize(row), 8);
  const mask = BigInt.asUintN(64, masks.pattern(row));
  const bits = Array.from({ length: count }, (_, n) => count - 1 - n);
  const isSet = (bit) => (mask >> BigInt(bit) & 1n) === 1n;
  return element("div", { class: "bits", role: "img",
    "aria-label": `Bits that count: ${bits.filter(isSet).join(", ") || "none"} of ${count}` },
    bits.map((bit) => element("span", { class: isSet(bit) ? "bit set" : "bit" }, String(bit))));
}

const mostListedRows = 500;

/// The rows of a table, in the words of the description.
function rowsList(table, unit) {
  const count = Math.min((table.raw ?? table.from).length, mostListedRows);
  const value = (n) => (table.text ? table.text[n] : `${formatNumber(table.physical[n] ?? NaN)} ${unit ?? ""}`);
  const raw = (n) => (table.raw ? formatNumber(table.raw[n] ?? NaN)
    : table.from[n] === table.to[n] ? formatNumber(table.from[n] ?? NaN)
    : `${formatNumber(table.from[n] ?? NaN)} … ${formatNumber(table.to[n] ?? NaN)}`);
  const rows = Array.from({ length: count }, (_, n) => [raw(n), value(n)]);
  if (table.default !== undefined && table.default !== null)
    rows.push(["else", typeof table.default === "number" ? `${formatNumber(table.default)} ${unit ?? ""}` : table.default]);
  const total = (table.raw ?? table.from).length;
  return element("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": "Table of the conversion" },
    tableOf("", ["raw", "physical"], rows),
    total > count ? element("p", {}, `and ${formatCount(total - count)} more rows`) : null);
}

function conversionPart(row) {
  const conversion = conversionOf(row);
  const unit = units.at(row);
  const table = conversion && tableOfConversion(conversion);
  const curve = curveOf(row);
  const part = element("section", {}, element("h3", {}, "Conversion"),
    formulasOf(row).map((formula) => element("p", { class: "formula" }, formula)),
    conversion ? definitions([["Name", conversion.name], ["Kind", conversion.kind], ["Table", conversion.table]]) : null,
    conversion && conversion.kind === undefined ? element("p", {}, "Nothing more is known of it.") : null,
    curve ? plotOf(curve, unit) : null,
    table ? rowsList(table, unit) : null);
  return part;
}

function eventsPart(row) {
  const channels = eventsOf(row);
  if (channels.length === 0) return null;
  return element("section", {}, element("h3", {}, "Events"), element("ul", {}, channels.slice(0, mostListedRows).map((channel) => {
    const source = sourceByChannel.get(channel);
    const period = source?.period_ns === undefined ? "" : `, each ${formatPeriod(source.period_ns)}`;
    return element("li", {}, `${eventName(channel)} (channel ${channel}${period})`);
  })));
}

function addressText(row) {
  if (!addresses.has(row)) return null;
  const size = sizeOf(row);
  const first = addresses.hex(row, 8);
  if (size < 2 || isPointer(row) || addresses.exact.has(row)) return first;
  return `${first} … ${formatHex(addresses.at(row) + size - 1, 8)}`;
}

function limitsText(row) {
  const unit = units.at(row);
  if (!lowerLimits.has(row) && !upperLimits.has(row)) return null;
  return `${formatNumber(lowerLimits.at(row))} … ${formatNumber(upperLimits.at(row))} ${unit ?? ""}`.trim();
}

function symbolText(row) {
  const symbol = symbols.at(row);
  const offset = symbolOffsets.at(row);
  return symbol === null || !offset ? symbol : `${symbol} ${offset < 0 ? "−" : "+"} ${Math.abs(offset)}`;
}

function placePart(row) {
  return element("section", {}, element("h3", {}, "In the ECU"),
    definitions([
      ["Address", addressText(row)],
      ["Extension", extensions.hex(row)],
      ["Type", typeText(row)],
      ["Size", sizeOf(row) ? formatSize(sizeOf(row)) : null],
      ["Layout", layouts.at(row)],
      ["Symbol", symbolText(row)],
      ["Byte order", byteOrders.at(row)],
    ]),
    bytesPicture(row),
    masks.has(row) ? definitions([["Bit mask", masks.hex(row)]]) : null,
    bitsPicture(row));
}

function drawDetail() {
  const row = state.selected;
  const pane = byId("detail");
  if (row < 0) {
    replace(pane, element("p", { class: "hint" }, "Choose a quantity to see it in full."));
    return;
  }
  const isPicked = state.picked.has(row);
  replace(pane,
    element("h2", {}, names[row]),
    descriptions.at(row) ? element("p", {}, descriptions.at(row)) : null,
    element("p", { class: "bar" },
      element("button", { type: "button", "aria-pressed": String(isPicked), onclick: () => togglePick(row) },
        isPicked ? "Picked" : "Pick"),
      addresses.has(row) ? element("button", { type: "button", onclick: () => showInMemory(row) }, "Show its address") : null),
    definitions([
      ["Shown as", displayNames.at(row)],
      ["Limits", limitsText(row)],
      ["Unit", units.at(row)],
      ["Left out", obstacles.at(row) ? `A configuration can't have it: ${obstacles.at(row)}` : null],
      ["Virtual", virtualMarks.has(row) ? "The tool computes it: it isn't measured" : null],
    ]),
    conversionPart(row), placePart(row), eventsPart(row));
}
