// Elements and numbers. Whatever a description says gets into the page as text, never as markup.

const byId = (id) => document.getElementById(id);

function fill(node, attributes, children) {
  for (const [name, value] of Object.entries(attributes)) {
    if (name.startsWith("on")) node.addEventListener(name.slice(2), value);
    else if (value === true) node.setAttribute(name, "");
    else if (value !== false && value !== null && value !== undefined) node.setAttribute(name, value);
  }
  return put(node, children);
}

/// Appends children one by one: a call has room for so many arguments only.
function put(node, children) {
  for (const child of children.flat(Infinity))
    if (child !== null && child !== undefined) node.append(child);
  return node;
}

/// Puts children in the place of those that are there.
function replace(node, ...children) {
  node.replaceChildren();
  return put(node, children);
}

const element = (tag, attributes = {}, ...children) =>
  fill(document.createElement(tag), attributes, children);

const picture = (tag, attributes = {}, ...children) =>
  fill(document.createElementNS("http://www.w3.org/2000/svg", tag), attributes, children);

/// A table of texts or nodes, with a caption.
function tableOf(caption, heads, rows) {
  return element("table", {},
    element("caption", {}, caption),
    element("thead", {}, element("tr", {}, heads.map((head) => element("th", { scope: "col" }, head)))),
    element("tbody", {}, rows.map((row) => element("tr", {}, row.map((cell) => element("td", {}, cell ?? ""))))));
}

/// Terms with what they mean; pairs without a meaning are left out.
function definitions(pairs) {
  return element("dl", {}, pairs.filter(([, meaning]) => meaning !== null && meaning !== undefined && meaning !== "")
    .map(([term, meaning]) => [element("dt", {}, term), element("dd", {}, meaning)]));
}

/// At most twelve digits, which is what people compare.
function formatNumber(number) {
  if (Number.isNaN(number)) return "";
  if (!Number.isFinite(number)) return number > 0 ? "∞" : "−∞";
  const text = Number.isSafeInteger(number) ? String(number) : String(Number(number.toPrecision(12)));
  return text.replace("e+", "e").replaceAll("-", "−");
}

const formatCount = (number) => number.toLocaleString("en");
const counted = (number, noun, plural = `${noun}s`) => `${formatCount(number)} ${number === 1 ? noun : plural}`;
const countedQuantities = (number) => counted(number, "quantity", "quantities");

function formatHex(number, digits = 0) {
  if (number < 0) return `−${formatHex(-number)}`;
  return `0x${number.toString(16).toUpperCase().padStart(digits, "0")}`;
}

function formatPeriod(nanoseconds) {
  for (const [unit, size] of [["s", 1e9], ["ms", 1e6], ["µs", 1e3]])
    if (nanoseconds >= size) return `${formatNumber(nanoseconds / size)} ${unit}`;
  return `${formatNumber(nanoseconds)} ns`;
}

function formatSize(bytes) {
  for (const [unit, size] of [["GiB", 2 ** 30], ["MiB", 2 ** 20], ["KiB", 2 ** 10]])
    if (bytes >= size) return `${formatNumber(Number((bytes / size).toPrecision(3)))} ${unit}`;
  return counted(bytes, "byte");
}

/// A function that runs a while after the last of its calls.
function delayed(milliseconds, work) {
  let timer = 0;
  return () => {
    clearTimeout(timer);
    timer = setTimeout(work, milliseconds);
  };
}
