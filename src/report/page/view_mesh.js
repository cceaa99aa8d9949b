// The mesh of the page: its numbers unpacked, laid out for drawing, and asked what a ray meets.
'use strict';
const viewMesh = (() => {

// Undoes the packing of whole numbers: each is the difference from the number `stride` places before it, its sign in the
// lowest bit, seven bits a byte, the lowest first; the highest bit of a byte says that another follows.
function unpack(bytes, stride, count) {
  const numbers = new Int32Array(count);
  let at = 0;
  for (let i = 0; i < count; i++) {
    let value = 0;
    let shift = 0;
    let byte;
    do {
      byte = bytes[at++];
      value |= (byte & 127) << shift;
      shift += 7;
    } while (byte > 127);
    numbers[i] = (i < stride ? 0 : numbers[i - stride]) + ((value >>> 1) ^ -(value & 1));
  }
  return numbers;
}

// The arrays under their names: typed arrays as they are, packed ones unpacked.
function meshArrays(header, given) {
  const arrays = {};
  for (const [name, about] of Object.entries(header.arrays))
    arrays[name] = about.packed ? unpack(given[name], about.packed, about.count) : given[name];
  return arrays;
}

const quadMarks = [0, 0, 128, 0, 255, 0, 128, 0, 255, 255, 128, 0, 0, 255, 128, 0];
const triangleMarks = [255, 0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 0, 255, 0];

// What the graphics card takes of faces (four places of nodes each; a triangle's last two are the same): four points for
// each face, two triangles, and marks that are 0 or 1 along the mesh's lines but not along the diagonal.
function faceBuffers(positions, faces) {
  const count = faces.length / 4;
  const points = new Float32Array(count * 12);
  const marks = new Uint8Array(count * 16);
  const triangles = new Uint32Array(count * 6);
  for (let face = 0; face < count; face++) {
    for (let corner = 0; corner < 4; corner++) {
      const from = faces[face * 4 + corner] * 3;
      const to = face * 12 + corner * 3;
      points[to] = positions[from];
      points[to + 1] = positions[from + 1];
      points[to + 2] = positions[from + 2];
    }
    marks.set(faces[face * 4 + 2] === faces[face * 4 + 3] ? triangleMarks : quadMarks, face * 16);
    const first = face * 4;
    const to = face * 6;
    triangles[to] = triangles[to + 3] = first;
    triangles[to + 1] = first + 1;
    triangles[to + 2] = triangles[to + 4] = first + 2;
    triangles[to + 5] = first + 3;
  }
  return {points, marks, triangles};
}

// For each point that faceBuffers() gives, the middle of its face.
function faceCentres(points) {
  const centres = new Float32Array(points.length);
  for (let face = 0; face < points.length; face += 12) {
    for (let axis = 0; axis < 3; axis++) {
      const at = face + axis;
      const sum = points[at] + points[at + 3] + points[at + 6] + points[at + 9];
      centres[at] = centres[at + 3] = centres[at + 6] = centres[at + 9] = sum / 4;
    }
  }
  return centres;
}

// How wide a face is, on average: half the sum of its diagonals, over at most a thousand of them.
function faceWidth(points) {
  const between = (a, b) => Math.hypot(points[a] - points[b], points[a + 1] - points[b + 1], points[a + 2] - points[b + 2]);
  const step = 12 * Math.max(Math.floor(points.length / 12000), 1);
  let sum = 0;
  let count = 0;
  for (let at = 0; at < points.length; at += step) {
    sum += (between(at, at + 6) + between(at + 3, at + 9)) / 2 / Math.SQRT2;
    count++;
  }
  return count ? sum / count : 0;
}

// The smallest box around the nodes.
function boundsOf(positions) {
  const low = [Infinity, Infinity, Infinity];
  const high = [-Infinity, -Infinity, -Infinity];
  for (let i = 0; i < positions.length; i++) {
    const axis = i % 3;
    if (positions[i] < low[axis]) low[axis] = positions[i];
    if (positions[i] > high[axis]) high[axis] = positions[i];
  }
  return positions.length ? {low, high} : {low: [0, 0, 0], high: [0, 0, 0]};
}

// How far along the ray (origin x, y, z, then direction) the triangle of nodes a, b, c is; Infinity when it is missed.
function distanceToTriangle(p, a, b, c, ray) {
  a *= 3;
  b *= 3;
  c *= 3;
  const ux = p[b] - p[a], uy = p[b + 1] - p[a + 1], uz = p[b + 2] - p[a + 2];
  const vx = p[c] - p[a], vy = p[c + 1] - p[a + 1], vz = p[c + 2] - p[a + 2];
  const dx = ray[3], dy = ray[4], dz = ray[5];
  const px = dy * vz - dz * vy, py = dz * vx - dx * vz, pz = dx * vy - dy * vx;
  const volume = ux * px + uy * py + uz * pz;
  if (volume === 0) return Infinity;
  const tx = ray[0] - p[a], ty = ray[1] - p[a + 1], tz = ray[2] - p[a + 2];
  const s = (tx * px + ty * py + tz * pz) / volume;
  if (s < 0 || s > 1) return Infinity;
  const qx = ty * uz - tz * uy, qy = tz * ux - tx * uz, qz = tx * uy - ty * ux;
  const t = (dx * qx + dy * qy + dz * qz) / volume;
  if (t < 0 || s + t > 1) return Infinity;
  return (vx * qx + vy * qy + vz * qz) / volume;
}

// True when the point at that distance along the ray lies on the side that the plane (normal, then offset) cuts off.
function isCutOff(ray, distance, plane) {
  const side = plane[0] * (ray[0] + distance * ray[3]) + plane[1] * (ray[1] + distance * ray[4]) +
               plane[2] * (ray[2] + distance * ray[5]);
  return side > plane[3];
}

// The ray as a face of nodes a, b, c, d sees it that is drawn larger by `growth` about its middle, were the face as it is
// and all else smaller. Distances along it are smaller, too. Put into `seen`.
function shrinkRay(p, a, b, c, d, ray, growth, seen) {
  for (let axis = 0; axis < 3; axis++) {
    const middle = (p[a * 3 + axis] + p[b * 3 + axis] + p[c * 3 + axis] + p[d * 3 + axis]) / 4;
    seen[axis] = middle + (ray[axis] - middle) / growth;
  }
}

// The nearest face of the part on the ray, nearer than `best.distance`: put into `best`. Faces are larger by `growth`.
function nearestFace(arrays, part, ray, growth, plane, best) {
  const {positions, faces} = arrays;
  const seen = [...ray];
  for (let face = part.first_face; face < part.first_face + part.faces; face++) {
    const a = faces[face * 4], b = faces[face * 4 + 1], c = faces[face * 4 + 2], d = faces[face * 4 + 3];
    if (growth !== 1) shrinkRay(positions, a, b, c, d, ray, growth, seen);
    let distance = distanceToTriangle(positions, a, b, c, seen);
    if (c !== d) distance = Math.min(distance, distanceToTriangle(positions, a, c, d, seen));
    distance *= growth;
    if (distance >= 0 && distance < best.distance && !isCutOff(ray, distance, plane)) {
      best.distance = distance;
      best.face = face;
      best.particle = -1;
    }
  }
}

// The nearest particle of the part within `radius` of the ray, nearer than `best.distance`: put into `best`.
function nearestParticle(arrays, part, ray, radius, plane, best) {
  const {positions, particles} = arrays;
  for (let i = part.first_particle; i < part.first_particle + part.particles; i++) {
    const at = particles[i] * 3;
    const x = positions[at] - ray[0], y = positions[at + 1] - ray[1], z = positions[at + 2] - ray[2];
    const distance = x * ray[3] + y * ray[4] + z * ray[5];
    if (distance < 0 || distance >= best.distance) continue;
    const aside = x * x + y * y + z * z - distance * distance;
    if (aside > radius * radius || isCutOff(ray, distance, plane)) continue;
    best.distance = distance;
    best.face = -1;
    best.particle = i;
  }
}

return {meshArrays, faceBuffers, faceCentres, faceWidth, boundsOf, nearestFace, nearestParticle};
})();
