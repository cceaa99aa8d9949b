// Where the mesh is looked at from, and how mouse, fingers and keys move that.
'use strict';
const viewCamera = (() => {

const viewDirections = {
  x: {from: [1, 0, 0], up: [0, 0, 1]},
  '-x': {from: [-1, 0, 0], up: [0, 0, 1]},
  y: {from: [0, 1, 0], up: [0, 0, 1]},
  '-y': {from: [0, -1, 0], up: [0, 0, 1]},
  z: {from: [0, 0, 1], up: [0, 1, 0]},
  '-z': {from: [0, 0, -1], up: [0, 1, 0]},
  iso: {from: [1, -1, 0.8], up: [0, 0, 1]},
};

// A camera without perspective: lengths and right angles look as they are.
class ViewCamera {
  constructor(bounds, positions) {
    const low = new THREE.Vector3().fromArray(bounds.low);
    const high = new THREE.Vector3().fromArray(bounds.high);
    this.centre = low.clone().add(high).multiplyScalar(0.5);
    this.radius = low.distanceTo(high) / 2 || 1;
    this.positions = positions;
    this.target = this.centre.clone();
    this.half = this.radius;  // of the height that is seen
    this.camera = new THREE.OrthographicCamera(-1, 1, 1, -1, 0, 1);
    this.width = 1;
    this.height = 1;
    this.look('iso');
  }

  resize(width, height) {
    this.width = width;
    this.height = height;
    this.update();
  }

  update() {
    const camera = this.camera;
    const away = this.radius * 1.05 + this.target.distanceTo(this.centre);
    camera.position.set(0, 0, away).applyQuaternion(camera.quaternion).add(this.target);
    camera.near = 0;
    camera.far = 2 * away;
    camera.top = this.half;
    camera.bottom = -this.half;
    camera.right = this.half * this.width / this.height;
    camera.left = -camera.right;
    camera.updateProjectionMatrix();
    camera.updateMatrixWorld();
  }

  // Length of the model that one pixel of the page shows.
  pixel() {
    return 2 * this.half / this.height;
  }

  look(name) {
    const {from, up} = viewDirections[name];
    const turn = new THREE.Matrix4().lookAt(new THREE.Vector3(...from), new THREE.Vector3(), new THREE.Vector3(...up));
    this.camera.quaternion.setFromRotationMatrix(turn);
    this.fit();
  }

  // All of the mesh, as large as it goes.
  fit() {
    const right = new THREE.Vector3(1, 0, 0).applyQuaternion(this.camera.quaternion);
    const up = new THREE.Vector3(0, 1, 0).applyQuaternion(this.camera.quaternion);
    const [left, rightmost] = this.extent(right);
    const [bottom, top] = this.extent(up);
    this.target.copy(this.centre).addScaledVector(right, (left + rightmost) / 2).addScaledVector(up, (bottom + top) / 2);
    const half = Math.max(top - bottom, (rightmost - left) * this.height / this.width) / 2;
    this.half = half * 1.15 || this.radius;
    this.update();
  }

  // How far the mesh reaches in a direction, from its centre.
  extent(direction) {
    const {positions, centre} = this;
    const {x, y, z} = direction;
    let low = Infinity;
    let high = -Infinity;
    for (let i = 0; i < positions.length; i += 3) {
      const far = positions[i] * x + positions[i + 1] * y + positions[i + 2] * z;
      if (far < low) low = far;
      if (far > high) high = far;
    }
    const middle = centre.dot(direction);
    return low <= high ? [low - middle, high - middle] : [0, 0];
  }

  // Angles in radians, about the picture's own axes.
  rotate(aroundUp, aroundRight) {
    const turn = new THREE.Quaternion().setFromEuler(new THREE.Euler(-aroundRight, -aroundUp, 0));
    this.camera.quaternion.multiply(turn).normalize();
    this.update();
  }

  // In pixels, as the mesh is to move.
  pan(x, y) {
    const by = new THREE.Vector3(-x, y, 0).multiplyScalar(this.pixel()).applyQuaternion(this.camera.quaternion);
    this.target.add(by);
    this.update();
  }

  // Larger by the factor; what is at that pixel stays there.
  zoom(factor, x = this.width / 2, y = this.height / 2) {
    const half = Math.min(Math.max(this.half / factor, this.radius * 1e-4), this.radius * 20);
    const shift = 1 - this.half / half;
    const aside = [x - this.width / 2, y - this.height / 2];
    this.half = half;
    this.pan(aside[0] * shift, aside[1] * shift);
  }

  // The ray behind a pixel: origin, then direction, of length one.
  rayAt(x, y) {
    const origin = new THREE.Vector3(2 * x / this.width - 1, 1 - 2 * y / this.height, -1).unproject(this.camera);
    const direction = new THREE.Vector3(0, 0, -1).applyQuaternion(this.camera.quaternion);
    return [origin.x, origin.y, origin.z, direction.x, direction.y, direction.z];
  }
}

const pressStill = 4;      // pixels that a press may wander and still be a click
const turnPerPixel = 0.008;
const turnPerKey = Math.PI / 18;

// Mouse, pen and fingers on the canvas. `moved` is called after each movement, `clicked` with the pixel of a click.
class PointerControls {
  constructor(canvas, view, moved, clicked) {
    Object.assign(this, {canvas, view, moved, clicked, pointers: new Map(), wandered: 0});
    canvas.addEventListener('pointerdown', event => this.down(event));
    canvas.addEventListener('pointermove', event => this.move(event));
    canvas.addEventListener('pointerup', event => this.up(event));
    canvas.addEventListener('pointercancel', event => this.pointers.delete(event.pointerId));
    canvas.addEventListener('contextmenu', event => event.preventDefault());
    canvas.addEventListener('wheel', event => this.wheel(event), {passive: false});
  }

  down(event) {
    this.canvas.setPointerCapture(event.pointerId);
    this.canvas.focus({preventScroll: true});
    event.preventDefault();
    this.wandered = this.pointers.size ? Infinity : 0;
    this.pointers.set(event.pointerId, [event.clientX, event.clientY]);
  }

  move(event) {
    const before = this.pointers.get(event.pointerId);
    if (!before) return;
    const x = event.clientX - before[0];
    const y = event.clientY - before[1];
    this.wandered += Math.abs(x) + Math.abs(y);
    if (this.pointers.size === 2) this.pinch(event, before, x, y);
    else if (event.shiftKey || event.buttons & 6) this.view.pan(x, y);
    else this.view.rotate(x * turnPerPixel, y * turnPerPixel);
    this.pointers.set(event.pointerId, [event.clientX, event.clientY]);
    this.moved();
  }

  // Two fingers: each moves the picture by half, and their distance zooms.
  pinch(event, before, x, y) {
    const other = [...this.pointers].find(([id]) => id !== event.pointerId)[1];
    const was = Math.hypot(before[0] - other[0], before[1] - other[1]);
    const is = Math.hypot(event.clientX - other[0], event.clientY - other[1]);
    const box = this.canvas.getBoundingClientRect();
    this.view.pan(x / 2, y / 2);
    if (was > 0 && is > 0)
      this.view.zoom(is / was, (event.clientX + other[0]) / 2 - box.left, (event.clientY + other[1]) / 2 - box.top);
  }

  up(event) {
    const known = this.pointers.delete(event.pointerId);
    if (!known || this.wandered > pressStill || event.button !== 0) return;
    const box = this.canvas.getBoundingClientRect();
    this.clicked(event.clientX - box.left, event.clientY - box.top);
  }

  // The wheel belongs to the page until the picture has been chosen.
  wheel(event) {
    if (document.activeElement !== this.canvas && !event.ctrlKey) return;
    event.preventDefault();
    const box = this.canvas.getBoundingClientRect();
    const lines = event.deltaMode === 1 ? event.deltaY * 30 : event.deltaY;
    this.view.zoom(Math.exp(-lines * 0.0015), event.clientX - box.left, event.clientY - box.top);
    this.moved();
  }
}

const cameraKeys = {
  ArrowLeft: view => view.rotate(-turnPerKey, 0),
  ArrowRight: view => view.rotate(turnPerKey, 0),
  ArrowUp: view => view.rotate(0, -turnPerKey),
  ArrowDown: view => view.rotate(0, turnPerKey),
  'shift ArrowLeft': view => view.pan(-40, 0),
  'shift ArrowRight': view => view.pan(40, 0),
  'shift ArrowUp': view => view.pan(0, -40),
  'shift ArrowDown': view => view.pan(0, 40),
  '+': view => view.zoom(1.25),
  '=': view => view.zoom(1.25),
  '-': view => view.zoom(0.8),
  f: view => view.fit(),
  i: view => view.look('iso'),
  x: view => view.look('x'),
  y: view => view.look('y'),
  z: view => view.look('z'),
  X: view => view.look('-x'),
  Y: view => view.look('-y'),
  Z: view => view.look('-z'),
};

// Moves the camera by a key of the keyboard; false when the key means nothing here.
function moveByKey(view, event) {
  if (event.ctrlKey || event.altKey || event.metaKey) return false;
  const arrow = event.key.startsWith('Arrow');
  const action = cameraKeys[arrow && event.shiftKey ? `shift ${event.key}` : event.key];
  if (action) action(view);
  return Boolean(action);
}

return {ViewCamera, PointerControls, moveByKey};
})();
