// The table of all quantities.

const grid = byId("grid");
const gridHead = element("div", { role: "row", "aria-rowindex": 1, class: "head" });
const gridLayer = element("div", { class: "layer", role: "presentation" });
const gridSpace = element("div", { class: "space", role: "rowgroup" }, gridLayer);
grid.append(element("div", { role: "rowgroup", class: "heads" }, gridHead), gridSpace);
grid.setAttribute("aria-colcount", columns.length + 1);
grid.style.setProperty("--columns", `2rem ${columns.map((column) => column.width).join(" ")}`);

const gridRows = new VirtualRows({
  scroller: grid, space: gridSpace, layer: gridLayer, rowHeight: 24, headHeight: 28, draw: drawRows,
});

function drawHead() {
  const sortOf = (key) => (state.sort !== key ? "none" : state.isDescending ? "descending" : "ascending");
  replace(gridHead,
    element("div", { role: "columnheader" }, element("span", { class: "unseen" }, "Picked")),
    columns.map((column) => element("div", { role: "columnheader", "aria-sort": sortOf(column.key) },
      element("button", { type: "button", "data-key": column.key, title: `Sort by ${column.title.toLowerCase()}` },
        column.title, element("span", { "aria-hidden": "true", class: "arrow" })))));
}

function rowElement(place) {
  const row = shownRows[place];
  const isSelected = row === state.selected;
  return element("div", { role: "row", id: `row-${place}`, "aria-rowindex": place + 2, "aria-selected": String(isSelected),
    "data-place": place },
    element("div", { role: "gridcell" },
      element("input", { type: "checkbox", tabindex: -1, "aria-label": `Pick ${names[row]}` })),
    columns.map((column) => {
      const text = column.text(row);
      return element("div", { role: "gridcell", class: column.isNumber ? "number" : null, title: text }, text);
    }));
}

function drawRows(first, last) {
  const rows = [];
  for (let place = first; place < last; ++place) {
    const node = rowElement(place);
    node.querySelector("input").checked = state.picked.has(shownRows[place]);
    rows.push(node);
  }
  replace(gridLayer, rows);
  const place = selectedPlace();
  if (place >= first && place < last) grid.setAttribute("aria-activedescendant", `row-${place}`);
  else grid.removeAttribute("aria-activedescendant");
}

let lastPlace = -1;
/// Where the selected quantity stands among the rows that are shown; -1 if it doesn't.
function selectedPlace() {
  if (state.selected < 0) return -1;
  if (shownRows[lastPlace] !== state.selected) lastPlace = shownRows.indexOf(state.selected);
  return lastPlace;
}

function showRows() {
  gridRows.setCount(shownRows.length);
  grid.setAttribute("aria-rowcount", shownRows.length + 1);
  byId("count").textContent = shownRows.length === quantityCount ? countedQuantities(quantityCount)
    : `${formatCount(shownRows.length)} of ${formatCount(quantityCount)} quantities`;
  gridRows.update();
}

function togglePick(row) {
  if (!state.picked.delete(row)) state.picked.add(row);
  picksChanged();
}

grid.addEventListener("click", (event) => {
  const head = event.target.closest("button[data-key]");
  if (head) {
    const key = head.dataset.key;
    // Upwards, downwards, and back to the order of the description.
    if (state.sort !== key) Object.assign(state, { sort: key, isDescending: false });
    else if (!state.isDescending) state.isDescending = true;
    else Object.assign(state, { sort: "", isDescending: false });
    refreshRows();
    gridRows.show(Math.max(selectedPlace(), 0));
    gridRows.update();
    gridHead.querySelector(`[data-key="${key}"]`).focus();
    return;
  }
  const node = event.target.closest("[data-place]");
  if (!node) return;
  const row = shownRows[Number(node.dataset.place)];
  if (event.target.matches("input")) togglePick(row);
  select(row);
  grid.focus({ preventScroll: true });
});

grid.addEventListener("keydown", (event) => {
  if (event.target !== grid || event.ctrlKey || event.altKey || event.metaKey) return;
  const last = shownRows.length - 1;
  const place = selectedPlace();
  const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: gridRows.pageRows, PageUp: -gridRows.pageRows,
    Home: -Infinity, End: Infinity };
  if (event.key in steps && last >= 0) {
    select(shownRows[Math.min(Math.max(place + steps[event.key], 0), last)]);
  } else if (event.key === " " && place >= 0) {
    togglePick(state.selected);
  } else if (event.key === "Enter" && place >= 0) {
    byId("detail").focus();
  } else {
    return;
  }
  event.preventDefault();
});

// Paper has no scroll bar.
const mostPrintedRows = 3000;
addEventListener("beforeprint", () => {
  if (state.view !== "quantities") return;
  const count = Math.min(shownRows.length, mostPrintedRows);
  drawRows(0, count);
  if (count < shownRows.length)
    gridLayer.append(element("p", {}, `and ${formatCount(shownRows.length - count)} more`));
});
addEventListener("afterprint", () => gridRows.update());
