// The interfaces: how the ECU is reached, and when it samples.

function identifierText(identifier) {
  const isExtended = identifier >= 2 ** 31;
  return `${formatHex(isExtended ? identifier - 2 ** 31 : identifier)} (${isExtended ? 29 : 11} bits)`;
}

function rateText(bits) {
  return bits >= 1e6 ? `${formatNumber(bits / 1e6)} Mbit/s` : `${formatNumber(bits / 1e3)} kbit/s`;
}

/// What is written on the line of a transport: above it, below it to the ECU, and below it to the tool.
function transportTexts(transport) {
  const above = [transport.kind, transport.instance];
  if (transport.bit_rate) above.push(rateText(transport.bit_rate));
  if (transport.can_fd) above.push(`CAN FD${transport.data_bit_rate ? ` ${rateText(transport.data_bit_rate)}` : ""}`);
  const host = [transport.address, transport.host_name, transport.ipv6].filter(Boolean).join(", ");
  const to = transport.master_id !== undefined ? `→ ${identifierText(transport.master_id)}` : "";
  const from = transport.slave_id !== undefined ? `← ${identifierText(transport.slave_id)}` : "";
  const port = transport.port !== undefined ? `port ${transport.port}` : "";
  return { above: above.filter(Boolean).join(", "), below: [to, from, host, port].filter(Boolean).join("   ") };
}

function busPicture(item) {
  const transports = item.transports ??
    [{ kind: item.protocol === "CCP" ? "CAN" : "", master_id: item.master_id, slave_id: item.slave_id }];
  const [width, rowHeight, boxWidth] = [720, 58, 76];
  const height = transports.length * rowHeight + 12;
  const texts = transports.map(transportTexts);
  const box = (x, title, detail) => [
    picture("rect", { x, y: 4, width: boxWidth, height: height - 8, rx: 4, class: "node" }),
    picture("text", { x: x + boxWidth / 2, y: height / 2 + 4, class: "middle" }, title),
    detail ? picture("text", { x: x + boxWidth / 2, y: height / 2 + 19, class: "middle" }, detail) : null];
  const label = `The tool and the ECU, connected by ${texts.map((text) => `${text.above} ${text.below}`).join("; ")}`;
  return picture("svg", { viewBox: `0 0 ${width} ${height}`, class: "bus", role: "img", "aria-label": label },
    box(4, "Tool"), box(width - boxWidth - 4, "ECU", item.station_address !== undefined ? `no. ${item.station_address}` : ""),
    texts.map((text, n) => {
      const y = 6 + (n + 0.5) * rowHeight;
      return [picture("line", { x1: boxWidth + 4, x2: width - boxWidth - 4, y1: y, y2: y, class: "wire" }),
        picture("text", { x: width / 2, y: y - 7, class: "middle" }, text.above),
        picture("text", { x: width / 2, y: y + 17, class: "middle" }, text.below)];
    }));
}

/// The sources of an interface by their period, on a logarithmic axis.
function periodPicture(sources) {
  const timed = sources.filter((source) => source.period_ns > 0).sort((a, b) => a.period_ns - b.period_ns).slice(0, 40);
  if (timed.length === 0) return null;
  const [width, left, lineHeight] = [720, 20, 18];
  const from = Math.floor(Math.log10(timed[0].period_ns));
  const to = Math.max(Math.ceil(Math.log10(timed.at(-1).period_ns)), from + 1);
  const height = timed.length * lineHeight + 26;
  const x = (period) => left + (Math.log10(period) - from) / (to - from) * (width - 2 * left - 160);
  const powers = Array.from({ length: to - from + 1 }, (_, n) => 10 ** (from + n));
  return picture("svg", { viewBox: `0 0 ${width} ${height}`, class: "periods", role: "img",
    "aria-label": `Sources by period: ${timed.map((source) => `${source.name} ${formatPeriod(source.period_ns)}`).join(", ")}` },
    powers.map((power) => [
      picture("line", { x1: x(power), x2: x(power), y1: 4, y2: height - 18, class: "grid" }),
      picture("text", { x: x(power), y: height - 4, class: "middle" }, formatPeriod(power))]),
    timed.map((source, n) => [
      picture("circle", { cx: x(source.period_ns), cy: 14 + n * lineHeight, r: 4 }),
      picture("text", { x: x(source.period_ns) + 9, y: 18 + n * lineHeight }, source.name)]));
}

function boundCounts() {
  const counts = new Map();
  const lists = new Float64Array(eventLists.length);
  for (const number of events.numbers) if (number >= 0) ++lists[number];
  eventLists.forEach((list, n) => list.forEach((channel) => counts.set(channel, (counts.get(channel) ?? 0) + lists[n])));
  return counts;
}

function drawInterfaces() {
  const counts = boundCounts();
  let next = 0;
  const parts = data.interfaces.map((item) => {
    const sources = data.sources.slice(next, next += item.sources);
    return element("article", {}, element("h2", {}, item.name), busPicture(item), periodPicture(sources),
      tableOf(counted(sources.length, "source"), ["Name", "Description", "Channel", "Period", "Bound quantities"],
        sources.slice(0, mostListed).map((source) => [source.name, source.description ?? "", String(source.channel),
          source.period_ns !== undefined ? formatPeriod(source.period_ns) : source.rate ? `${source.rate} (unit of its own)` : "not periodic",
          formatCount(counts.get(source.channel) ?? 0)])));
  });
  replace(byId("view-interfaces"), parts.length ? parts : element("p", {}, "The description names no measuring interface."));
}
