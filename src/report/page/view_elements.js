// Elements of the page that the view is built of.
'use strict';
const viewElements = (() => {
const keysHelp = [
  ['Arrow keys', 'turn'],
  ['Shift and arrow keys', 'move'],
  ['+ and -', 'larger, smaller'],
  ['f', 'fit into the picture'],
  ['x, y, z', 'look along an axis; with Shift from its other end'],
  ['i', 'look from a corner'],
  ['e', 'lines of the mesh on and off'],
  ['Escape', 'pick nothing'],
  ['Mouse or one finger', 'turn; a click picks an element'],
  ['Shift or the right button; two fingers', 'move'],
  ['Wheel; two fingers', 'larger, smaller (once the picture has been clicked)'],
];

// An element of the page; texts among the children stay texts.
function make(name, attributes = {}, ...children) {
  const node = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (key.startsWith('on')) node.addEventListener(key.slice(2), value);
    else if (value === true) node.setAttribute(key, '');
    else if (value !== false && value !== undefined) node.setAttribute(key, value);
  }
  node.append(...children);
  return node;
}

function labelled(text, control) {
  return make('label', {class: 'view-label'}, make('span', {}, text), control);
}

function choice(options, changed) {
  const select = make('select', {onchange: () => changed(select.value)});
  for (const [value, text] of options) select.append(make('option', {value}, text));
  return select;
}

// A button that is pressed or not; `changed` is told.
function toggle(text, label, pressed, changed) {
  const button = make('button', {type: 'button', 'aria-label': label, 'aria-pressed': String(pressed)}, text);
  button.addEventListener('click', () => {
    const on = button.getAttribute('aria-pressed') !== 'true';
    button.setAttribute('aria-pressed', String(on));
    changed(on);
  });
  return button;
}

// A length with as many digits as one reads.
function lengthText(value) {
  return String(Number(value.toPrecision(5)));
}

function countText(count, one, many) {
  return `${count.toLocaleString('en')} ${count === 1 ? one : many}`;
}

// What keys and mouse do, to be opened.
function keysAndMouse() {
  const keys = keysHelp.flatMap(([key, what]) => [make('dt', {}, key), make('dd', {}, what)]);
  return make('details', {class: 'view-help'}, make('summary', {}, 'Keys and mouse'),
    make('dl', {id: 'view-keys'}, ...keys));
}

// Three small arrows that show how the axes lie.
class Triad {
  constructor() {
    this.svg = this.make('svg', {class: 'view-triad', viewBox: '-40 -40 80 80', 'aria-hidden': 'true'});
    this.arms = ['x', 'y', 'z'].map(axis => {
      const line = this.make('line', {x1: 0, y1: 0, class: `view-axis-${axis}`});
      const text = this.make('text', {class: `view-axis-${axis}`});
      text.textContent = axis.toUpperCase();
      this.svg.append(line, text);
      return {line, text};
    });
  }

  make(name, attributes) {
    const node = document.createElementNS('http://www.w3.org/2000/svg', name);
    for (const [key, value] of Object.entries(attributes)) node.setAttribute(key, value);
    return node;
  }

  turn(quaternion) {
    const back = quaternion.clone().inverse();
    this.arms.forEach(({line, text}, axis) => {
      const tip = new THREE.Vector3().setComponent(axis, 1).applyQuaternion(back);
      line.setAttribute('x2', (24 * tip.x).toFixed(1));
      line.setAttribute('y2', (-24 * tip.y).toFixed(1));
      text.setAttribute('x', (33 * tip.x).toFixed(1));
      text.setAttribute('y', (-33 * tip.y).toFixed(1));
    });
  }
}

return {make, labelled, choice, toggle, keysAndMouse, lengthText, countText, Triad};
})();
