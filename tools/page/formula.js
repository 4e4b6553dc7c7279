// Conversions: as people write them, and as points to be drawn.

/// "a · x² + b · x + c", without the terms that are zero.
function polynomial(coefficients, variable) {
  const degree = coefficients.length - 1;
  const terms = coefficients.map((coefficient, n) => {
    const power = degree - n;
    const factor = power === 0 ? "" : variable + (power === 2 ? "²" : "");
    const size = Math.abs(coefficient);
    const text = factor && size === 1 ? factor : formatNumber(size) + (factor && ` · ${factor}`);
    return { coefficient, text };
  }).filter(({ coefficient }) => coefficient);
  return terms.map(({ coefficient, text }, n) =>
    (n === 0 ? (coefficient < 0 ? "−" : "") : coefficient < 0 ? " − " : " + ") + text).join("") || "0";
}

const inBrackets = (text) => (/ [+−·] /.test(text) ? `(${text})` : text);

/// The six of COEFFS, raw = (a x² + b x + c) / (d x² + e x + f), solved for x where it is short.
function rationalText(label, name, [a, b, c, d, e, f]) {
  if (a === 0 && d === 0 && e === 0 && b !== 0 && f !== 0)
    return `${label} = ${polynomial([f / b, -c / b], "raw")}`;
  if (a === 0 && d === 0 && (b !== 0 || e !== 0)) {
    if (b === 0 && f === 0) return `${label} = ${formatNumber(c / e)} / raw`;
    return `${label} = ${inBrackets(polynomial([-f, c], "raw"))} / ${inBrackets(polynomial([e, -b], "raw"))}`;
  }
  const divisor = polynomial([d, e, f], name);
  const dividend = polynomial([a, b, c], name);
  return `raw = ${divisor === "1" ? dividend : `${inBrackets(dividend)} / ${inBrackets(divisor)}`}`;
}

/// The formula of a quantity, a line for each set of coefficients; none for a table.
function formulasOf(row) {
  const conversion = conversionOf(row);
  const unit = units.at(row);
  const name = names[row];
  const label = unit && unit !== "-" ? `${name} [${unit}]` : name;
  if (!conversion) return [`${label} = raw`];
  if (conversion.rows !== undefined) return [];
  if (conversion.linear_coefficients && conversion.kind !== "RAT_FUNC")
    return [`${label} = ${polynomial(conversion.linear_coefficients, "raw")}`];
  if (conversion.coefficients && conversion.kind !== "FORM") {
    const lines = [];
    for (let n = 0; n < conversion.coefficients.length; n += 6)
      lines.push(rationalText(label, name, conversion.coefficients.slice(n, n + 6)));
    return lines;
  }
  if (conversion.formula !== undefined) {
    const lines = [`${label} = ${conversion.formula}`];
    if (conversion.inverse_formula) lines.push(`raw = ${conversion.inverse_formula}`);
    return lines;
  }
  if (conversion.linear_coefficients) return [`${label} = ${polynomial(conversion.linear_coefficients, "raw")}`];
  if (conversion.factor === undefined || conversion.table !== undefined) return [];
  return [`${label} = ${polynomial([conversion.factor, conversion.offset], "raw")}`];
}

const operators = {
  "+": { rank: 1, of: (x, y) => x + y }, "-": { rank: 1, of: (x, y) => x - y },
  "*": { rank: 2, of: (x, y) => x * y }, "/": { rank: 2, of: (x, y) => x / y },
  "^": { rank: 4, of: (x, y) => x ** y },
};
const functions = {
  negate: (x) => -x, sqrt: Math.sqrt, abs: Math.abs, exp: Math.exp, log: Math.log, ln: Math.log,
  log10: Math.log10, sin: Math.sin, cos: Math.cos, tan: Math.tan, arcsin: Math.asin, arccos: Math.acos,
  arctan: Math.atan, asin: Math.asin, acos: Math.acos, atan: Math.atan, sinh: Math.sinh, cosh: Math.cosh,
  tanh: Math.tanh,
};

/// A function of X or X1 for a formula of numbers, operators and functions; null for any other one.
function compiledFormula(text) {
  const tokens = text.match(/\d+\.?\d*(?:e[+-]?\d+)?|\.\d+(?:e[+-]?\d+)?|[a-z]\w*|\S/gi) ?? [];
  const output = []; // in the order of evaluation: an operator after what it works on
  const waiting = [];
  const release = (rank) => {
    while (waiting.length && waiting.at(-1) !== "(" && (operators[waiting.at(-1)]?.rank ?? 3) >= rank)
      output.push(waiting.pop());
  };
  let isValueNext = true;
  for (const token of tokens.map((word) => word.toLowerCase())) {
    if (isValueNext && (/^[.\d]/.test(token) || /^x1?$/.test(token))) {
      output.push(/^x/.test(token) ? "x" : Number(token));
      isValueNext = false;
    } else if (isValueNext && (token === "-" || token === "+")) {
      if (token === "-") waiting.push("negate");
    } else if (isValueNext && (token === "(" || Object.hasOwn(functions, token))) {
      waiting.push(token);
    } else if (!isValueNext && token === ")") {
      release(0);
      if (waiting.pop() !== "(") return null;
      while (Object.hasOwn(functions, waiting.at(-1) ?? "") && waiting.at(-1) !== "negate") output.push(waiting.pop());
    } else if (!isValueNext && Object.hasOwn(operators, token)) {
      release(operators[token].rank + (token === "^" ? 1 : 0));
      waiting.push(token);
      isValueNext = true;
    } else {
      return null;
    }
  }
  release(0);
  if (isValueNext || waiting.length) return null;
  return (x) => {
    const values = [];
    for (const step of output) {
      if (typeof step === "number") values.push(step);
      else if (step === "x") values.push(x);
      else if (Object.hasOwn(functions, step)) values.push(functions[step](values.pop()));
      else { const y = values.pop(); values.push(operators[step].of(values.pop(), y)); }
    }
    return values[0];
  };
}

/// Numbers from one to the other, close together near zero too if the range is a long one.
function samples(from, to, count = 160) {
  const found = [];
  for (let n = 0; n <= count; ++n) found.push(n === count ? to : from + (to - from) * (n / count));
  if (from > 0 && to / from > 100)
    for (let n = 1; n < count; ++n) found.push(from * (to / from) ** (n / count));
  return found.sort((x, y) => x - y);
}

/// Points of a formula with physical values from the one to the other. Only a small part of the raw values
/// may have such ones, so it is searched for.
function pointsWithin(formula, [low, high], from, to) {
  let points = [];
  for (let round = 0; round < 3; ++round) {
    points = samples(low, high).map((raw) => [raw, formula(raw)]);
    const isWithin = ([, physical]) => physical >= from && physical <= to;
    const [first, last] = [points.findIndex(isWithin), points.findLastIndex(isWithin)];
    if (first < 0) return [];
    low = points[Math.max(first - 1, 0)][0];
    high = points[Math.min(last + 1, points.length - 1)][0];
    points = points.slice(first, last + 1);
  }
  return points;
}

/// What the plot of a quantity shows: points [raw, physical], and whether they are steps. Null if there
/// is nothing to draw.
function curveOf(row) {
  const conversion = conversionOf(row);
  const table = conversion && tableOfConversion(conversion);
  if (table) {
    if (!table.physical) return null;
    const points = table.raw.map((raw, n) => [raw, table.physical[n]])
      .filter((point) => point.every(Number.isFinite)).sort((p, q) => p[0] - q[0]);
    return points.length === 0 ? null : { points, isTable: true, isSteps: conversion.kind === "TAB_NOINTP" };
  }
  const [from, to] = [lowerLimits.at(row), upperLimits.at(row)];
  if (!(from < to) || !Number.isFinite(to - from)) return null;
  const finite = (points) => {
    const kept = points.filter((point) => point.every(Number.isFinite));
    return kept.length > 1 ? { points: kept } : null;
  };
  const line = (factor, offset) => finite([from, to].map((physical) => [(physical - offset) / factor, physical]));
  if (!conversion) return line(1, 0);
  if (conversion.formula !== undefined && !(conversion.coefficients && conversion.kind === "RAT_FUNC")) {
    const inverse = conversion.inverse_formula && compiledFormula(conversion.inverse_formula);
    if (inverse) return finite(samples(from, to).map((physical) => [inverse(physical), physical]));
    const direct = compiledFormula(conversion.formula);
    return direct && finite(pointsWithin(direct, rawRange(row), from, to));
  }
  const sets = conversion.coefficients;
  if (sets && conversion.kind !== "LINEAR") {
    const [a, b, c, d, e, f] = sets;
    if (sets.length !== 6) return null;
    if (a === 0 && d === 0 && e === 0) return line(f / b, -c / b);
    return finite(samples(from, to).map((x) => [(a * x * x + b * x + c) / (d * x * x + e * x + f), x]));
  }
  if (conversion.linear_coefficients) return line(...conversion.linear_coefficients);
  return conversion.factor === undefined || conversion.table !== undefined ? null : line(conversion.factor, conversion.offset);
}

/// The raw values that the type can have; those of a real number are of any size, so a part of them.
function rawRange(row) {
  const type = types.at(row);
  const bits = 8 * valueSize(row);
  if (type.startsWith("uint")) return [0, 2 ** bits - 1];
  return type.startsWith("int") ? [-(2 ** (bits - 1)), 2 ** (bits - 1) - 1] : [-1000, 1000];
}
