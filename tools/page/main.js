// The views, the filters and the keyboard.

function select(row) {
  state.selected = row;
  const place = selectedPlace();
  if (place >= 0) gridRows.show(place);
  gridRows.update();
  drawDetail();
  memorySelectionChanged();
  saveState();
}

function setView(view) {
  state.view = view;
  for (const name of views) {
    const tab = byId(`tab-${name}`);
    tab.setAttribute("aria-selected", String(name === view));
    tab.tabIndex = name === view ? 0 : -1;
    byId(`view-${name}`).hidden = name !== view;
  }
  byId("detail").hidden = !["quantities", "memory"].includes(view);
  document.body.dataset.view = view;
  if (view === "quantities") gridRows.update();
  if (view === "memory" && !isMemoryDrawn) drawRegions();
  if (view === "memory") memorySelectionChanged();
  if (view === "picked") drawPicks();
  saveState();
}

function refreshRows() {
  updateShownRows();
  drawHead();
  showRows();
  saveState();
}

function filterChanged(event) {
  state[event.target.id] = event.target.value;
  byId("grid").scrollTop = 0;
  refreshRows();
}

/// Everything by the state.
function drawAll() {
  for (const key of textKeys) byId(key).value = state[key];
  refreshRows();
  picksChanged();
  setView(state.view);
  if (state.selected >= 0) select(state.selected);
}

function fillChoices() {
  const option = (value, text = value) => element("option", { value }, text);
  const mostChoices = 2000;
  replace(byId("type"), option("", "all"), [...types.texts].sort().map((type) => option(type)));
  replace(byId("units"), [...units.texts].sort().slice(0, mostChoices).map((unit) => option(unit)));
  replace(byId("conversions"), data.conversions.slice(0, mostChoices).map(({ name }) => option(name)));
  const channels = [...new Set([...sourceByChannel.keys(), ...eventLists.flat()])].slice(0, mostChoices);
  const text = (channel) => {
    const period = sourceByChannel.get(channel)?.period_ns;
    return eventName(channel) + (period === undefined ? "" : `, ${formatPeriod(period)}`);
  };
  replace(byId("event"), option("", "all"), channels.map((channel) => option(String(channel), text(channel))), option("none", "none"));
  replace(byId("default-source"), option("", "nothing"),
    [...sourceByChannel.keys()].slice(0, mostChoices).map((channel) => option(String(channel), text(channel))));
}

function fillHeads() {
  document.title = `${data.file} · tavo`;
  byId("file").textContent = data.file;
  byId("summary").textContent = [counted(data.interfaces.length, "interface"), counted(data.sources.length, "source"),
    countedQuantities(quantityCount)].join(", ");
  byId("made").textContent = `Made by ${data.program}.`;
}

for (const key of textKeys) byId(key).addEventListener("input", filterChanged);
byId("filters").addEventListener("submit", (event) => event.preventDefault());
byId("clear").addEventListener("click", () => {
  for (const key of textKeys) state[key] = byId(key).value = "";
  refreshRows();
});
byId("query").addEventListener("keydown", (event) => {
  if (event.key !== "ArrowDown" && event.key !== "Enter") return;
  event.preventDefault();
  grid.focus();
  if (selectedPlace() < 0 && shownRows.length > 0) select(shownRows[0]);
});

byId("tabs").addEventListener("click", (event) => {
  const tab = event.target.closest("[role=tab]");
  if (tab) setView(tab.id.slice("tab-".length));
});
byId("tabs").addEventListener("keydown", (event) => {
  const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
  if (!step) return;
  const open = views.filter((view) => !byId(`tab-${view}`).hidden);
  const view = open[(open.indexOf(state.view) + step + open.length) % open.length];
  setView(view);
  byId(`tab-${view}`).focus();
});

addEventListener("keydown", (event) => {
  if (event.key === "/" && !event.target.closest?.("input, select, textarea")) {
    event.preventDefault();
    setView("quantities");
    byId("query").focus();
    byId("query").select();
  } else if (event.key === "Escape" && byId("detail").contains(document.activeElement)) {
    (state.view === "memory" ? byteScroller : grid).focus();
  }
});
addEventListener("hashchange", () => {
  if (location.hash.slice(1) === fragmentOfState()) return;
  readFragment();
  drawAll();
});

fillHeads();
fillChoices();
drawInterfaces();
fillDifferences();
readFragment();
drawAll();
for (const texts of [lowerNames, lowerDescriptions]) setTimeout(() => texts.prepare());
