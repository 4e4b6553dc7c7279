// The plot of a conversion.

/// Round numbers that divide a range into a few parts.
function ticksOf(from, to) {
  const greatest = (to - from) / 3;
  const power = 10 ** Math.floor(Math.log10(greatest));
  const step = [5, 2, 1].map((n) => n * power).find((size) => size <= greatest) ?? power;
  const ticks = [];
  // Of numbers that are close together but far from zero, none may be a multiple of the step.
  for (let n = Math.ceil(from / step); n * step <= to + step * 1e-9 && ticks.length < 20; ++n)
    ticks.push(Number((n * step).toPrecision(12)));
  return ticks;
}

/// An axis for numbers, from `start` to `end` of the picture: where a number stands, and its ticks.
function axisOf(numbers, isLogarithmic, start, end) {
  let [from, to] = [Math.min(...numbers), Math.max(...numbers)];
  if (from === to) [from, to] = [from - 1, to + 1];
  if (!isLogarithmic)
    return { ticks: ticksOf(from, to), at: (number) => start + (number - from) / (to - from) * (end - start) };
  const [low, high] = [Math.log10(from), Math.log10(to)];
  const step = Math.ceil((high - low) / 6);
  const ticks = [];
  for (let power = Math.ceil(low); power <= high; power += step) ticks.push(10 ** power);
  return { ticks, at: (number) => start + (Math.log10(number) - low) / (high - low) * (end - start) };
}

/// Whether a curve goes over powers of ten in both directions, and so shows its form by them only.
function isOverPowers(curve) {
  const isLong = (place) => {
    const numbers = curve.points.map((point) => point[place]);
    const from = Math.min(...numbers);
    return from > 0 && Math.max(...numbers) / from >= 1000;
  };
  return !curve.isTable && curve.points.length > 2 && isLong(0) && isLong(1);
}

/// Short texts for the ends of an axis.
function tickText(number) {
  const size = Math.abs(number);
  if (size !== 0 && (size >= 1e6 || size < 1e-3)) return number.toExponential(1).replace("e+", "e").replaceAll("-", "−");
  return formatNumber(number);
}

/// A plot has so many points at most; of more, some are left out evenly.
const mostPlotted = 2000;

function plotOf(curve, unit) {
  const step = Math.ceil(curve.points.length / mostPlotted);
  const points = curve.points.filter((point, n) => n % step === 0 || n === curve.points.length - 1);
  const [width, height, left, right, top, bottom] = [380, 220, 58, 14, 22, 36];
  const isLogarithmic = isOverPowers(curve);
  const raws = axisOf(points.map(([raw]) => raw), isLogarithmic, left, width - right);
  const physicals = axisOf(points.map(([, physical]) => physical), isLogarithmic, height - bottom, top);
  const [x, y] = [raws.at, physicals.at];
  const at = ([raw, physical]) => `${x(raw).toFixed(1)},${y(physical).toFixed(1)}`;
  const path = points.map((point, n) =>
    (curve.isSteps && n > 0 ? `${at([point[0], points[n - 1][1]])} ` : "") + at(point)).join(" ");
  const [first, last] = [curve.points[0], curve.points.at(-1)];
  const text = ([raw, physical]) => `raw ${formatNumber(raw)} is ${formatNumber(physical)}${unit ? ` ${unit}` : ""}`;
  const label = `Plot of the conversion: ${text(first)}, ${text(last)}`;
  return picture("svg", { viewBox: `0 0 ${width} ${height}`, class: "plot", role: "img", "aria-label": label,
    "data-points": JSON.stringify(curve.points.slice(0, mostPlotted)) },
    raws.ticks.map((raw) => [
      picture("line", { x1: x(raw), x2: x(raw), y1: top, y2: height - bottom, class: "grid" }),
      picture("text", { x: x(raw), y: height - bottom + 15, class: "middle" }, tickText(raw))]),
    physicals.ticks.map((physical) => [
      picture("line", { x1: left, x2: width - right, y1: y(physical), y2: y(physical), class: "grid" }),
      picture("text", { x: left - 5, y: y(physical) + 4, class: "end" }, tickText(physical))]),
    picture("text", { x: width - right, y: height - 5, class: "end" }, "raw"),
    picture("text", { x: 2, y: 11 }, unit ?? ""),
    picture("polyline", { points: path, class: "curve" }),
    curve.isTable && points.length <= 100
      ? points.map((point) => picture("circle", { cx: x(point[0]), cy: y(point[1]), r: 2.5 })) : []);
}
