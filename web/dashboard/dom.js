// Small helpers to build elements without HTML strings (no markup injection from data).

export function el(tag, attributes = {}, ...children) {
  const node = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) {
    if (value === undefined || value === null || value === false) continue;
    if (name === "class") node.className = value;
    else if (name === "text") node.textContent = value;
    else if (name.startsWith("data-")) node.dataset[camel(name.slice(5))] = value;
    else node.setAttribute(name, value === true ? "" : value);
  }
  for (const child of children.flat()) {
    if (child === null || child === undefined || child === false) continue;
    node.append(child instanceof Node ? child : String(child));
  }
  return node;
}

function camel(name) {
  return name.replace(/-(\w)/g, (whole, letter) => letter.toUpperCase());
}

export function replaceChildren(node, ...children) {
  node.replaceChildren(...children.flat().filter((child) => child !== null && child !== undefined));
}

// A definition list of [label, value, name] rows; name becomes data-figure for tests.
export function figureList(rows, className = "figures") {
  return el(
    "dl",
    { class: className },
    rows.map(([label, value, name]) =>
      el("div", { class: "figure" }, el("dt", { text: label }), el("dd", { "data-figure": name, text: value })),
    ),
  );
}

// Runs fn at most once at a time; calls that arrive meanwhile run it once more after.
export function coalesced(fn) {
  let running = null;
  let again = false;
  const run = async () => {
    if (running) {
      again = true;
      return running;
    }
    running = (async () => {
      do {
        again = false;
        await fn();
      } while (again);
    })();
    try {
      await running;
    } finally {
      running = null;
    }
  };
  return run;
}
