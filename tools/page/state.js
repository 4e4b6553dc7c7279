// What the page shows: it is in the fragment of the address, so that a link opens the same view.

const textKeys = ["query", "type", "unit", "conversion", "event", "from", "to"];
const views = ["quantities", "memory", "interfaces", "picked", "differences"];
const mostLinkedPicks = 1000;

const state = {
  view: "quantities", sort: "", isDescending: false, selected: -1, picked: new Set(),
  query: "", type: "", unit: "", conversion: "", event: "", from: "", to: "",
};

function fragmentOfState() {
  const parameters = new URLSearchParams();
  if (state.view !== "quantities") parameters.set("view", state.view);
  for (const key of textKeys) if (state[key] !== "") parameters.set(key, state[key]);
  if (state.sort) parameters.set("sort", (state.isDescending ? "-" : "") + state.sort);
  if (state.selected >= 0) parameters.set("show", names[state.selected]);
  let count = 0;
  for (const row of state.picked) {
    if (++count > mostLinkedPicks) break;
    parameters.append("pick", names[row]);
  }
  return parameters.toString();
}

function readFragment() {
  const parameters = new URLSearchParams(location.hash.slice(1));
  const view = parameters.get("view");
  state.view = views.includes(view) && !byId(`tab-${view}`).hidden ? view : "quantities";
  for (const key of textKeys) state[key] = parameters.get(key) ?? "";
  const sort = parameters.get("sort") ?? "";
  state.isDescending = sort.startsWith("-");
  const key = sort.replace(/^-/, "");
  state.sort = columns.some((column) => column.key === key) ? key : "";
  state.selected = rowOfName(parameters.get("show"));
  const picks = parameters.getAll("pick");
  // A link holds so many names at most: what else is picked stays picked.
  if (picks.length < mostLinkedPicks) state.picked.clear();
  for (const name of picks) {
    const row = rowOfName(name);
    if (row >= 0) state.picked.add(row);
  }
}

/// Browsers allow only so many changes of the address in a while.
const saveState = delayed(150, () => {
  const fragment = fragmentOfState();
  if (fragment !== location.hash.slice(1)) history.replaceState(null, "", `#${fragment}`);
});
