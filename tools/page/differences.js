// What differs from an older description, if the page was made of two.

const changes = ["added", "gone", "renamed", "moved", "changed"];
/// Each one: change, kind, name, former name, interface, and arrays [property, before, after].
const differences = data.differences ?? [];
const shownChanges = new Set(changes);
let shownDifferences = differences;

const differencesView = byId("view-differences");
const differenceQuery = element("input", { type: "search", autocomplete: "off", spellcheck: "false", placeholder: "name, property or value" });
const differenceStatus = element("p", { role: "status" });
const differenceLayer = element("tbody", {});
const mostShownDifferences = 500;
let differencePage = 0;

function differenceText([change, kind, name, former, , ...values]) {
  return [change, kind, name, former, ...values.flat()].join("\n").toLowerCase();
}

let differenceTexts = null;

function updateDifferences() {
  const words = differenceQuery.value.toLowerCase().split(/\s+/).filter(Boolean);
  if (words.length > 0) differenceTexts ??= differences.map(differenceText);
  shownDifferences = differences.filter((difference, n) =>
    shownChanges.has(difference[0]) && words.every((word) => differenceTexts[n].includes(word)));
  differencePage = 0;
  drawDifferences();
}

function differenceRow([change, kind, name, former, owner, ...values]) {
  const row = kind === "measurement" && change !== "gone" ? rowOfName(name) : -1;
  const title = former ? `${former} → ${name}` : owner ? `${owner} ${name}` : name;
  return element("tr", {},
    element("td", { class: `change ${change}` }, change), element("td", {}, kind),
    element("td", {}, row < 0 ? title : element("button", { type: "button", class: "link", onclick: () => showQuantity(row) }, title)),
    element("td", {}, values.map(([property, before, after]) =>
      element("div", {}, `${property} `, element("del", {}, before), " → ", element("ins", {}, after)))));
}

function drawDifferences() {
  const first = differencePage * mostShownDifferences;
  const last = Math.min(first + mostShownDifferences, shownDifferences.length);
  replace(differenceLayer, shownDifferences.slice(first, last).map(differenceRow));
  replace(differenceStatus, shownDifferences.length === 0 ? "No differences"
    : `${formatCount(first + 1)} to ${formatCount(last)} of ${counted(shownDifferences.length, "difference")}`);
  differencesView.querySelector("[data-step='-1']").disabled = first === 0;
  differencesView.querySelector("[data-step='1']").disabled = last === shownDifferences.length;
}

function showQuantity(row) {
  setView("quantities");
  select(row);
  grid.focus({ preventScroll: true });
}

function changeFilter(change) {
  const count = differences.reduce((sum, difference) => sum + (difference[0] === change), 0);
  const box = element("input", { type: "checkbox", "data-change": change, disabled: count === 0 });
  box.checked = true;
  box.addEventListener("change", () => {
    if (box.checked) shownChanges.add(change);
    else shownChanges.delete(change);
    updateDifferences();
  });
  return element("label", {}, box, ` ${change} (${formatCount(count)})`);
}

function pageButton(step, text) {
  const turn = () => {
    differencePage += step;
    drawDifferences();
    differencesView.scrollTop = 0;
  };
  return element("button", { type: "button", "data-step": step, onclick: turn }, text);
}

function fillDifferences() {
  if (!data.differences) return;
  byId("tab-differences").hidden = false;
  byId("difference-count").textContent = formatCount(differences.length);
  differenceQuery.addEventListener("input", updateDifferences);
  replace(differencesView,
    element("p", {}, `What ${data.file} has otherwise than ${data.former_file}:`),
    element("div", { class: "bar" }, element("label", {}, "Search ", differenceQuery), changes.map(changeFilter)),
    element("div", { class: "bar" }, differenceStatus, pageButton(-1, "Back"), pageButton(1, "Next")),
    element("table", { class: "differences" },
      element("caption", { class: "unseen" }, "Differences"),
      element("thead", {}, element("tr", {}, ["Change", "Kind", "Name", "Before → after"].map((head) => element("th", { scope: "col" }, head)))),
      differenceLayer));
  updateDifferences();
}
