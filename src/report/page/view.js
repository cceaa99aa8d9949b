// The view of the model: a picture that mouse, fingers and keys turn, and the tools beside it.
'use strict';
const createView = (() => {
const {meshArrays, boundsOf, nearestFace, nearestParticle} = viewMesh;
const {ViewCamera, PointerControls, moveByKey} = viewCamera;
const {MeshScene, colourAt, outcomeColours, pointBuffer} = viewScene;
const {make, labelled, choice, toggle, keysAndMouse, lengthText, countText, Triad} = viewElements;

const viewButtons = [
  ['Fit', 'Fit the model into the picture', null],
  ['+X', 'Look from +X', 'x'], ['−X', 'Look from −X', '-x'],
  ['+Y', 'Look from +Y', 'y'], ['−Y', 'Look from −Y', '-y'],
  ['+Z', 'Look from +Z', 'z'], ['−Z', 'Look from −Z', '-z'],
  ['Iso', 'Look from a corner', 'iso'],
];
const clipSteps = 1000;
const smoothFaces = 30000;

// True when the processor draws, in place of a graphics card.
function drawsInSoftware() {
  const graphics = document.createElement('canvas').getContext('webgl', {failIfMajorPerformanceCaveat: true});
  if (!graphics) return true;
  const about = graphics.getExtension('WEBGL_debug_renderer_info');
  const name = String(graphics.getParameter(about ? about.UNMASKED_RENDERER_WEBGL : graphics.RENDERER));
  const end = graphics.getExtension('WEBGL_lose_context');
  if (end) end.loseContext();
  return /swiftshader|llvmpipe|software|basic render/i.test(name);
}

// Smooth edges take most of the time of a picture where there is no graphics card: there they are for small models.
function graphicsOf(canvas, faces) {
  const antialias = faces < smoothFaces || !drawsInSoftware();
  const graphics = canvas.getContext('webgl', {alpha: false, antialias, powerPreference: 'high-performance'});
  if (!graphics) throw new Error('this browser has no WebGL');
  return graphics;
}

class View {
  constructor(container, mesh) {
    this.container = container;
    this.header = mesh.header;
    this.arrays = meshArrays(mesh.header, mesh.arrays);
    this.parts = mesh.header.parts;
    this.shown = this.parts.map(() => true);
    this.bounds = boundsOf(this.arrays.positions);
    this.colouring = 'part';
    this.canvas = make('canvas', {tabindex: '0', class: 'view-canvas', role: 'application',
      'aria-label': 'Picture of the model', 'aria-describedby': 'view-keys'});
    const graphics = graphicsOf(this.canvas, this.arrays.faces.length / 4);
    this.renderer = new THREE.WebGLRenderer({canvas: this.canvas, context: graphics});
    this.world = new MeshScene(this.header, this.arrays);
    this.camera = new ViewCamera(this.bounds, this.arrays.positions);
    this.clip = {axis: '', place: clipSteps / 2, flipped: false};
    this.build();
    this.listen();
    this.takeTheme();
    this.colour('part');
    this.resize();
  }

  // The page's elements.

  build() {
    this.triad = new Triad();
    this.said = make('output', {class: 'view-said', 'aria-live': 'polite'});
    this.lost = make('p', {class: 'view-lost', hidden: true},
      'The graphics were lost. The picture comes back when the browser gives them back.');
    this.stage = make('div', {class: 'view-stage'}, this.canvas, this.triad.svg,
      make('p', {class: 'view-size'}, this.sizeText()), this.lost);
    this.container.classList.add('view');
    this.container.append(this.toolbar(), make('div', {class: 'view-body'}, this.stage, this.side()), this.said,
      keysAndMouse());
    this.said.textContent = this.wholeText();
  }

  sizeText() {
    const {low, high} = this.bounds;
    const sides = [0, 1, 2].map(axis => lengthText(high[axis] - low[axis]));
    return `${sides.join(' × ')}`;
  }

  // What is shown, and that it is not all when it is not.
  wholeText() {
    const {all_faces: allFaces, all_particles: allParticles} = this.header;
    const kept = this.arrays.faces.length / 4 + this.arrays.particles.length;
    const all = allFaces + allParticles;
    const texts = [];
    if (allFaces) texts.push(countText(allFaces, 'face', 'faces'));
    if (allParticles) texts.push(countText(allParticles, 'particle', 'particles'));
    const seen = texts.length ? `Surface of ${texts.join(' and ')}.` : 'There is nothing to show.';
    if (kept >= all) return seen;
    return `${seen} Thinned: ${kept.toLocaleString('en')} of them, spread evenly, stand for all.`;
  }

  toolbar() {
    const views = viewButtons.map(([text, label, name]) => make('button', {type: 'button', 'aria-label': label,
      onclick: () => this.moved(() => name ? this.camera.look(name) : this.camera.fit())}, text));
    return make('div', {class: 'view-tools', role: 'toolbar', 'aria-label': 'Tools of the picture'},
      make('span', {class: 'view-group', role: 'group', 'aria-label': 'Where to look from'}, ...views),
      this.lookTools(), this.clipTools(), this.findTools());
  }

  lookTools() {
    this.lines = toggle('Mesh lines', 'Lines of the mesh', true, on => {
      this.world.shared.lines.value = on ? 1 : 0;
      this.draw();
    });
    const colours = choice([['part', 'part'], ['material', 'material'], ['outcome', 'outcome']],
      value => this.colour(value));
    return make('span', {class: 'view-group'}, this.lines, labelled('Colour by', colours));
  }

  clipTools() {
    const axis = choice([['', 'off'], ['x', 'X'], ['y', 'Y'], ['z', 'Z']], value => this.setClip({axis: value}));
    this.clipPlace = make('input', {type: 'range', min: 0, max: clipSteps, value: this.clip.place, disabled: true,
      'aria-label': 'Place of the cut', oninput: () => this.setClip({place: Number(this.clipPlace.value)})});
    this.clipFlip = toggle('Other side', 'Show the other side of the cut', false,
      on => this.setClip({flipped: on}));
    this.clipFlip.disabled = true;
    return make('span', {class: 'view-group'}, labelled('Cut', axis), this.clipPlace, this.clipFlip);
  }

  findTools() {
    const number = make('input', {type: 'text', inputmode: 'numeric', size: 9, autocomplete: 'off'});
    const form = make('form', {class: 'view-group', onsubmit: event => {
      event.preventDefault();
      this.find(number.value);
    }}, labelled('Element', number), make('button', {type: 'submit'}, 'Find'));
    return make('span', {class: 'view-group'}, form, this.header.sets.length ? labelled('Mark', this.setChoice()) : '');
  }

  // Sets, and behind them what lays conditions upon sets, nodes or parts.
  setChoice() {
    const select = choice([['', 'none']], value => this.markSet(value));
    const group = (label, wanted) => {
      const options = this.header.sets.map((set, place) => [set, place]).filter(([set]) => wanted(set))
        .map(([set, place]) => make('option', {value: place}, this.setText(set)));
      if (options.length) select.append(make('optgroup', {label}, ...options));
    };
    group('Sets', set => !set.laid);
    group('Conditions, loads and contacts', set => set.laid);
    return select;
  }

  setText(set) {
    const what = set.id ? `${set.kind} set ${set.id}` : `${set.kind}s`;
    const named = set.title ? `${what} ${set.title}` : what;
    return set.laid ? `${set.laid}: ${named}` : named;
  }

  side() {
    const buttons = make('span', {class: 'view-group'},
      make('button', {type: 'button', 'aria-label': 'Show all parts', onclick: () => this.showAll(true)}, 'All'),
      make('button', {type: 'button', 'aria-label': 'Show no part', onclick: () => this.showAll(false)}, 'None'));
    this.rows = this.parts.map((part, place) => this.partRow(part, place));
    const list = make('ul', {class: 'view-parts'}, ...this.rows.map(row => row.line));
    this.legend = make('ul', {class: 'view-legend', 'aria-label': 'Colours', hidden: true});
    return make('div', {class: 'view-side'},
      make('div', {class: 'view-parts-head'}, make('strong', {}, countText(this.parts.length, 'part', 'parts')), buttons),
      this.legend, list);
  }

  partRow(part, place) {
    const name = part.title ? `${part.id} ${part.title}` : String(part.id);
    const box = make('input', {type: 'checkbox', checked: true, onchange: () => this.showPart(place, box.checked)});
    const swatch = make('span', {class: 'view-swatch', 'aria-hidden': 'true'});
    const only = make('button', {type: 'button', 'aria-label': `Show only part ${name}`,
      onclick: () => this.showOnly(place)}, 'only');
    const label = make('label', {title: name}, box, swatch, make('span', {class: 'view-name'}, name));
    return {box, swatch, line: make('li', {}, label, only)};
  }

  // What is shown.

  showPart(place, on) {
    this.shown[place] = on;
    this.rows[place].box.checked = on;
    this.world.show(place, on);
    this.draw();
  }

  showAll(on) {
    this.parts.forEach((_, place) => this.showPart(place, on));
  }

  showOnly(place) {
    this.parts.forEach((_, other) => this.showPart(other, other === place));
  }

  colour(by) {
    this.colouring = by;
    const kinds = new Map();
    this.parts.forEach((part, place) => {
      const key = by === 'part' ? place : part[by] || (by === 'outcome' ? '' : 0);
      if (!kinds.has(key)) kinds.set(key, kinds.size);
      const colour = by === 'outcome' ? new THREE.Color(outcomeColours[key] || outcomeColours[''])
        : colourAt(kinds.get(key));
      this.world.setColour(place, colour);
      this.rows[place].swatch.style.backgroundColor = colour.getStyle();
    });
    this.showLegend(by, kinds);
    this.draw();
  }

  showLegend(by, kinds) {
    this.legend.hidden = by === 'part';
    this.legend.replaceChildren();
    if (by === 'part') return;
    for (const [key, place] of kinds) {
      const swatch = make('span', {class: 'view-swatch', 'aria-hidden': 'true'});
      swatch.style.backgroundColor = by === 'outcome' ? outcomeColours[key] || outcomeColours['']
        : colourAt(place).getStyle();
      const text = by === 'material' ? (key ? `material ${key}` : 'no material') : key || 'not known';
      this.legend.append(make('li', {}, swatch, text));
    }
  }

  setClip(change) {
    Object.assign(this.clip, change);
    const {axis, place, flipped} = this.clip;
    this.clipPlace.disabled = this.clipFlip.disabled = !axis;
    const plane = this.world.shared.plane.value.set(0, 0, 0, 0);
    if (axis) {
      const which = 'xyz'.indexOf(axis);
      const low = this.bounds.low[which];
      const at = low + (this.bounds.high[which] - low) * place / clipSteps;
      plane.setComponent(which, flipped ? -1 : 1);
      plane.w = flipped ? -at : at;
    }
    this.draw();
  }

  // Elements and sets.

  pickAt(x, y) {
    const ray = this.camera.rayAt(x, y);
    const plane = this.world.shared.plane.value.toArray();
    const growth = this.world.shared.growth.value;
    const best = {distance: Infinity, face: -1, particle: -1};
    const radius = Math.max(this.particlePixels() / 2, 3) * this.camera.pixel();
    this.parts.forEach((part, place) => {
      if (!this.shown[place]) return;
      nearestFace(this.arrays, part, ray, growth, plane, best);
      nearestParticle(this.arrays, part, ray, radius, plane, best);
    });
    if (best.face >= 0) this.pickElement(this.arrays.face_elements[best.face]);
    else if (best.particle >= 0) this.pickParticle(best.particle);
    else this.pickNothing();
  }

  pickNothing() {
    this.world.mark(this.world.picked, [], [], null);
    this.said.textContent = this.wholeText();
    this.draw();
  }

  // By its place among the elements that are seen.
  pickElement(place) {
    const {faces, face_elements: elements} = this.arrays;
    const marked = [];
    let node = -1;
    let part = null;
    for (let face = 0; face < elements.length; face++) {
      if (elements[face] !== place) continue;
      part = part || this.parts.find(each => face >= each.first_face && face < each.first_face + each.faces);
      node = face;
      for (let corner = 0; corner < 4; corner++) marked.push(faces[face * 4 + corner]);
    }
    this.world.mark(this.world.picked, marked, [], this.pickColour);
    this.tellPick(this.kindOf(place), this.arrays.element_numbers[place], part, this.nodesOf(place, node));
  }

  kindOf(place) {
    return place < this.header.solids ? 'Solid' : 'Shell';
  }

  // The numbers of an element's nodes as its card has them. A shell's are those of its face.
  nodesOf(place, face) {
    const {element_corners: corners, faces, node_numbers: numbers} = this.arrays;
    if (place < this.header.solids) return [...corners.subarray(place * 8, place * 8 + 8)];
    return [...faces.subarray(face * 4, face * 4 + 4)].map(node => numbers[node]);
  }

  pickParticle(place) {
    const node = this.arrays.particles[place];
    const part = this.parts.find(each => place >= each.first_particle && place < each.first_particle + each.particles);
    this.world.mark(this.world.picked, [], [node], this.pickColour);
    this.tellPick('Particle', this.arrays.particle_numbers[place], part, [this.arrays.node_numbers[node]]);
  }

  tellPick(kind, element, part, nodes) {
    const title = part.title ? ` (${part.title})` : '';
    const noun = nodes.length === 1 ? 'node' : 'nodes';
    this.said.textContent = `${kind} ${element} of part ${part.id}${title}, ${noun} ${nodes.join(' ')}`;
    this.container.dispatchEvent(new CustomEvent('pick', {detail: {element, part: part.id, nodes}}));
    this.draw();
  }

  find(text) {
    const number = Number(text);
    const element = text.trim() === '' ? -1 : this.arrays.element_numbers.indexOf(number);
    if (element >= 0) return this.pickElement(element);
    const particle = text.trim() === '' ? -1 : this.arrays.particle_numbers.indexOf(number);
    if (particle >= 0) return this.pickParticle(particle);
    this.pickNothing();
    this.said.textContent = `No element ${text.trim()} is on the surface.`;
  }

  markSet(value) {
    const set = value === '' ? null : this.header.sets[Number(value)];
    const {faces, nodes} = set ? this.membersOf(set) : {faces: [], nodes: []};
    this.world.mark(this.world.marked, faces, nodes, this.markColour);
    this.said.textContent = set ? this.markedText(set) : this.wholeText();
    this.draw();
  }

  markedText(set) {
    const seen = set.kind === 'segment' ? set.count / 4 : set.count;
    return `${this.setText(set)}: ${countText(set.all, 'member', 'members')}, ${seen.toLocaleString('en')} to be seen`;
  }

  // What of a set is drawn: nodes as points, all else as faces.
  membersOf(set) {
    const members = this.arrays.members.subarray(set.first, set.first + set.count);
    if (set.kind === 'node') return {faces: [], nodes: members};
    if (set.kind === 'segment') return {faces: members, nodes: []};
    const {face_elements: elements, faces} = this.arrays;
    const wanted = new Set(members);
    const marked = [];
    const nodes = [];
    const take = face => marked.push(...faces.subarray(face * 4, face * 4 + 4));
    if (set.kind === 'part') {
      for (const place of wanted) {
        const part = this.parts[place];
        for (let face = part.first_face; face < part.first_face + part.faces; face++) take(face);
        for (let i = part.first_particle; i < part.first_particle + part.particles; i++)
          nodes.push(this.arrays.particles[i]);
      }
    } else {
      for (let face = 0; face < elements.length; face++) if (wanted.has(elements[face])) take(face);
    }
    return {faces: marked, nodes};
  }

  // Drawing.

  listen() {
    new PointerControls(this.canvas, this.camera, () => this.draw(), (x, y) => this.pickAt(x, y));
    this.canvas.addEventListener('keydown', event => this.key(event));
    this.canvas.addEventListener('webglcontextlost', event => this.contextLost(event));
    this.canvas.addEventListener('webglcontextrestored', () => this.contextRestored());
    new ResizeObserver(() => this.resize()).observe(this.stage);
    new MutationObserver(() => this.takeTheme()).observe(document.documentElement,
      {attributes: true, attributeFilter: ['data-theme', 'class']});
    matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => this.takeTheme());
    addEventListener('beforeprint', () => this.drawNow());
  }

  key(event) {
    if (moveByKey(this.camera, event)) this.draw();
    else if (event.key === 'Escape') this.pickNothing();
    else if (event.key === 'e' && !event.ctrlKey && !event.altKey && !event.metaKey) this.lines.click();
    else return;
    event.preventDefault();
  }

  contextLost(event) {
    event.preventDefault();
    this.lost.hidden = false;
  }

  contextRestored() {
    this.lost.hidden = true;
    this.takeTheme();  // the graphics begin anew, with a background of their own
  }

  takeTheme() {
    const style = getComputedStyle(this.container);
    const named = (name, or) => new THREE.Color(style.getPropertyValue(name).trim() || or);
    this.renderer.setClearColor(named('--view-background', '#ffffff'));
    this.world.shared.lineColour.value = named('--view-lines', '#1a1a1a');
    this.pickColour = named('--view-picked', '#ffe100');
    this.markColour = named('--view-marked', '#ff2fa0');
    this.draw();
  }

  moved(change) {
    change();
    this.draw();
  }

  resize() {
    const width = Math.max(this.stage.clientWidth, 1);
    const height = Math.max(this.stage.clientHeight, 1);
    this.renderer.setPixelRatio(Math.min(devicePixelRatio || 1, 2));
    this.renderer.setSize(width, height, false);
    this.camera.resize(width, height);
    if (!this.fitted) this.camera.fit();
    this.fitted = true;
    this.drawNow();
  }

  draw() {
    if (this.waiting) return;
    this.waiting = true;
    requestAnimationFrame(() => this.drawNow());
  }

  drawNow() {
    this.waiting = false;
    const ratio = this.renderer.getPixelRatio();
    this.world.shared.particleSize.value = this.particlePixels() * ratio;
    this.world.shared.markSize.value = 7 * ratio;
    this.world.setScale(this.camera.pixel());
    this.renderer.render(this.world.scene, this.camera.camera);
    this.triad.turn(this.camera.camera.quaternion);
    this.noteFirst();
  }

  // Particles are as large as their distances, were they spread evenly, within what can be seen.
  particlePixels() {
    const count = this.arrays.particles.length;
    if (!count) return 0;
    if (!this.spacing) this.spacing = this.particleSpacing(count);
    return Math.min(Math.max(this.spacing / this.camera.pixel(), 2), 40);
  }

  particleSpacing(count) {
    const {low, high} = boundsOf(pointBuffer(this.arrays.positions, this.arrays.particles));
    const sides = [0, 1, 2].map(axis => high[axis] - low[axis]).filter(side => side > 0);
    const volume = sides.reduce((product, side) => product * side, 1);
    return sides.length ? Math.pow(volume / count, 1 / sides.length) : this.camera.radius / 10;
  }

  // Waits until the picture really is drawn: a time that leaves out the graphics' work would be no time.
  noteFirst() {
    const about = document.documentElement.dataset;
    if (about.firstPicture) return;
    const graphics = this.renderer.getContext();
    graphics.readPixels(0, 0, 1, 1, graphics.RGBA, graphics.UNSIGNED_BYTE, new Uint8Array(4));
    about.firstPicture = String(Math.round(performance.now()));
  }
}

// Builds the view inside the container. `mesh` is {header, arrays}: arrays by the names of header.arrays, decoded; those
// that are packed as bytes. The container hears "pick" with {element, part, nodes}. Throws without WebGL.
return (container, mesh) => new View(container, mesh);
})();
