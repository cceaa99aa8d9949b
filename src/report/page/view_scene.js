// What is drawn: faces by part, particles, and what is marked in them.
'use strict';
const viewScene = (() => {
const {faceBuffers, faceCentres, faceWidth} = viewMesh;

const partColours = [
  '#4e8fce', '#e68a2e', '#5bab5b', '#c9534f', '#9673c0', '#a3785f', '#d683bf', '#b5b13c', '#35b3bd', '#8f98a3',
];
const outcomeColours = {
  converted: '#4e8fce',
  skipped: '#e6a02e',
  'passed over': '#b5b13c',
  'not known': '#c9534f',
  'after the end': '#9673c0',
  '': '#8f98a3',
};

// A colour for each number: ten that are chosen, then more by turning the hue by the golden angle.
function colourAt(place) {
  if (place < partColours.length) return new THREE.Color(partColours[place]);
  const lightness = [0.6, 0.46, 0.7][place % 3];
  return new THREE.Color().setHSL((0.12 + place * 0.381966) % 1, 0.5, lightness);
}

const faceVertexShader = `
attribute vec4 mark;
varying vec3 vMark;
varying vec3 vAt;
varying vec3 vEye;
#ifdef GROWS
attribute vec3 centre;
uniform float growth;
#endif
void main() {
  vMark = mark.xyz;
  vAt = position;
#ifdef GROWS
  vAt = centre + growth * (position - centre);
#endif
  vec4 eye = modelViewMatrix * vec4(vAt, 1.0);
  vEye = eye.xyz;
  gl_Position = projectionMatrix * eye;
}`;

// The mesh's lines are where a mark is 0 or 1; they fade where faces become smaller than a few pixels.
const faceFragmentShader = `
uniform vec3 colour;
uniform vec3 lineColour;
uniform float lines;
uniform float inside;
uniform vec4 plane;
varying vec3 vMark;
varying vec3 vAt;
varying vec3 vEye;
void main() {
  vec3 normal = normalize(cross(dFdx(vEye), dFdy(vEye)));
  vec3 step = max(fwidth(vMark), 1e-5);
  if (dot(vAt, plane.xyz) > plane.w) discard;
  float light = 0.5 + 0.5 * abs(dot(normal, vec3(0.276, 0.386, 0.880)));
  vec3 shown = colour * light;
  if (inside > 0.5 && !gl_FrontFacing) shown = mix(shown, vec3(dot(shown, vec3(0.33))), 0.45) * 0.7;
  vec3 away = min(vMark, 1.0 - vMark) / step;
  float line = 1.0 - smoothstep(0.3, 1.1, min(away.x, min(away.y, away.z)));
  float fade = 1.0 - smoothstep(0.12, 0.45, max(step.x, step.y));
  gl_FragColor = vec4(mix(shown, lineColour, 0.85 * line * fade * lines), 1.0);
}`;

const pointVertexShader = `
uniform float size;
varying vec3 vAt;
void main() {
  vAt = position;
  gl_Position = projectionMatrix * modelViewMatrix * vec4(position, 1.0);
  gl_PointSize = size;
}`;

const pointFragmentShader = `
uniform vec3 colour;
uniform vec4 plane;
varying vec3 vAt;
void main() {
  vec2 aside = 2.0 * gl_PointCoord - 1.0;
  float square = dot(aside, aside);
  if (square > 1.0 || dot(vAt, plane.xyz) > plane.w) discard;
  gl_FragColor = vec4(colour * (0.55 + 0.45 * sqrt(1.0 - square)), 1.0);
}`;

// All that three.js holds of a mesh. Faces of all parts share their points; a part is a range of them.
class MeshScene {
  constructor(header, arrays) {
    this.parts = header.parts;
    this.solids = header.solids;
    this.arrays = arrays;
    this.scene = new THREE.Scene();
    this.shared = {
      plane: {value: new THREE.Vector4(0, 0, 0, 0)},
      lineColour: {value: new THREE.Color(0x1a1a1a)},
      lines: {value: 1},
      growth: {value: 1},
      particleSize: {value: 4},
      markSize: {value: 8},
    };
    this.drawn = this.parts.map(() => []);
    const left = arrays.faces.length / 4;
    this.fullGrowth = left < header.all_faces ? Math.min(1.3 * Math.sqrt(header.all_faces / left), 6) : 1;
    this.addFaces();
    this.addParticles();
    this.picked = new THREE.Group();
    this.marked = new THREE.Group();
    this.scene.add(this.marked, this.picked);
  }

  faceMaterial(colour, inside, grows = false) {
    const {plane, lineColour, lines, growth} = this.shared;
    return new THREE.ShaderMaterial({
      vertexShader: faceVertexShader,
      fragmentShader: faceFragmentShader,
      defines: grows ? {GROWS: ''} : {},
      uniforms: {colour: {value: colour}, inside: {value: inside}, plane, lineColour, lines, growth},
      side: THREE.DoubleSide,
      extensions: {derivatives: true},
    });
  }

  pointMaterial(colour, size) {
    return new THREE.ShaderMaterial({
      vertexShader: pointVertexShader,
      fragmentShader: pointFragmentShader,
      uniforms: {colour: {value: colour}, size, plane: this.shared.plane},
    });
  }

  add(place, object) {
    object.frustumCulled = false;
    this.drawn[place].push(object);
    this.scene.add(object);
  }

  addFaces() {
    const {positions, faces, face_elements: elements} = this.arrays;
    const {points, marks, triangles} = faceBuffers(positions, faces);
    const shared = {
      position: new THREE.BufferAttribute(points, 3),
      mark: new THREE.BufferAttribute(marks, 4, true),
      index: new THREE.BufferAttribute(triangles, 1),
    };
    const grows = this.fullGrowth > 1;
    if (grows) shared.centre = new THREE.BufferAttribute(faceCentres(points), 3);
    this.faceWidth = faceWidth(points);
    this.parts.forEach((part, place) => {
      if (!part.faces) return;
      const solid = elements[part.first_face] < this.solids;
      const geometry = faceGeometry(shared);
      geometry.setDrawRange(part.first_face * 6, part.faces * 6);
      const material = this.faceMaterial(colourAt(place), solid ? 1 : 0, grows);
      if (!solid) bringForward(material, 1);  // a shell may lie on solids
      this.add(place, new THREE.Mesh(geometry, material));
    });
  }

  addParticles() {
    const {positions, particles} = this.arrays;
    if (!particles.length) return;
    const position = new THREE.BufferAttribute(pointBuffer(positions, particles), 3);
    this.parts.forEach((part, place) => {
      if (!part.particles) return;
      const geometry = new THREE.BufferGeometry();
      geometry.setAttribute('position', position);
      geometry.setDrawRange(part.first_particle, part.particles);
      this.add(place, new THREE.Points(geometry, this.pointMaterial(colourAt(place), this.shared.particleSize)));
    });
  }

  // Where faces were left out, the others are drawn larger to stand for them, as long as they are small: a length of the
  // model of `pixel` is one pixel of the picture.
  setScale(pixel) {
    const near = Math.min(Math.max((this.faceWidth / pixel - 4) / 8, 0), 1);
    this.shared.growth.value = this.fullGrowth + (1 - this.fullGrowth) * near;
  }

  show(place, on) {
    for (const object of this.drawn[place]) object.visible = on;
  }

  setColour(place, colour) {
    for (const object of this.drawn[place]) object.material.uniforms.colour.value = colour;
  }

  // Draws these faces and points over the mesh, in place of what the group held.
  mark(group, faces, nodes, colour) {
    for (const old of group.children.splice(0)) {
      old.geometry.dispose();
      old.material.dispose();
    }
    if (faces.length) group.add(this.markedFaces(faces, colour));
    if (nodes.length) group.add(this.markedNodes(nodes, colour));
  }

  markedFaces(faces, colour) {
    const {points, marks, triangles} = faceBuffers(this.arrays.positions, faces);
    const geometry = faceGeometry({
      position: new THREE.BufferAttribute(points, 3),
      mark: new THREE.BufferAttribute(marks, 4, true),
      index: new THREE.BufferAttribute(triangles, 1),
    });
    const material = this.faceMaterial(colour, 0);
    bringForward(material, 2);
    return uncull(new THREE.Mesh(geometry, material));
  }

  markedNodes(nodes, colour) {
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute('position', new THREE.BufferAttribute(pointBuffer(this.arrays.positions, nodes), 3));
    const material = this.pointMaterial(colour, this.shared.markSize);
    Object.assign(material, {depthTest: false});
    return uncull(new THREE.Points(geometry, material));
  }
}

// Before what lies in the same plane, and the more so the higher the step is.
function bringForward(material, step) {
  Object.assign(material, {polygonOffset: true, polygonOffsetFactor: -step, polygonOffsetUnits: -2 * step});
}

function uncull(object) {
  object.frustumCulled = false;
  object.renderOrder = 1;
  return object;
}

function faceGeometry({position, mark, centre, index}) {
  const geometry = new THREE.BufferGeometry();
  geometry.setAttribute('position', position);
  geometry.setAttribute('mark', mark);
  if (centre) geometry.setAttribute('centre', centre);
  geometry.setIndex(index);
  return geometry;
}

function pointBuffer(positions, nodes) {
  const points = new Float32Array(nodes.length * 3);
  for (let i = 0; i < nodes.length; i++)
    for (let axis = 0; axis < 3; axis++) points[i * 3 + axis] = positions[nodes[i] * 3 + axis];
  return points;
}

return {MeshScene, colourAt, outcomeColours, pointBuffer};
})();
