// Load curves.
'use strict';
const pageCurves = (() => {
  const {byId, details, outcomes, blockByNumber} = pageData;
  const {el, addChildren, svg, hint, numberCell, trimmed, count, counted, real, blockLink, scrolled, headCells,
    growing} = pageElements;

  // Round values from `low` to `high`, about five of them.
  function ticks(low, high) {
    if (low === high) {
      const around = Math.abs(low) || 1;
      return ticks(low - around / 2, high + around / 2);
    }
    const raw = (high - low) / 4;
    const power = Math.pow(10, Math.floor(Math.log10(raw)));
    const step = [1, 2, 2.5, 5, 10].map((factor) => factor * power).find((size) => size >= raw * 0.999);
    const list = [];
    for (let i = Math.floor(low / step + 1e-9); i <= Math.ceil(high / step - 1e-9); ++i) list.push(i * step);
    return list;
  }

  function tickText(value, step) {
    if (Math.abs(value) < step * 1e-6) return '0';
    const size = Math.abs(value);
    if (size >= 1e5 || size < 1e-3) return value.toExponential(2).replace(/\.?0+e/, 'e').replace('e+', 'e');
    return String(Number(value.toPrecision(6)));
  }

  const plotSize = {width: 360, height: 220, left: 58, right: 12, top: 10, bottom: 30};

  function axes(curve) {
    const extent = (values) => values.reduce(([low, high], value) => [Math.min(low, value), Math.max(high, value)],
        [Infinity, -Infinity]);
    const xTicks = ticks(...extent(curve.x));
    const yTicks = ticks(...extent(curve.y));
    const {width, height, left, right, top, bottom} = plotSize;
    const scale = (list, from, to) => (value) => from +
        (value - list[0]) / (list[list.length - 1] - list[0]) * (to - from);
    return {xTicks, yTicks, x: scale(xTicks, left, width - right), y: scale(yTicks, height - bottom, top)};
  }

  function drawGrid(picture, {xTicks, yTicks, x, y}) {
    const {width, height, left, right, top, bottom} = plotSize;
    const line = (x1, y1, x2, y2, zero) => picture.append(svg('line', {x1, y1, x2, y2, class: zero ? 'zero' : 'grid'}));
    const xStep = xTicks[1] - xTicks[0];
    const yStep = yTicks[1] - yTicks[0];
    const every = xTicks.length > 6 ? 2 : 1;
    const anchor = (i) => (i === xTicks.length - 1 ? 'end' : 'middle');
    xTicks.forEach((value, i) => {
      line(x(value), top, x(value), height - bottom, Math.abs(value) < xStep * 1e-6);
      if (i % every === 0)
        picture.append(svg('text', {x: x(value), y: height - bottom + 16, 'text-anchor': anchor(i)},
            tickText(value, xStep)));
    });
    yTicks.forEach((value) => {
      line(left, y(value), width - right, y(value), Math.abs(value) < yStep * 1e-6);
      picture.append(svg('text', {x: left - 6, y: y(value) + 4, 'text-anchor': 'end'}, tickText(value, yStep)));
    });
  }

  // A cursor that goes from point to point: with the pointer, and with the arrow keys.
  function addCursor(picture, curve, {x, y}, readout) {
    const {top, height, bottom} = plotSize;
    const line = svg('line', {y1: top, y2: height - bottom, class: 'cursor', visibility: 'hidden'});
    const point = svg('circle', {r: 4, class: 'cursor-point', visibility: 'hidden'});
    picture.append(line, point);
    let at = -1;
    const show = (index) => {
      at = Math.max(0, Math.min(curve.x.length - 1, index));
      line.setAttribute('x1', x(curve.x[at]));
      line.setAttribute('x2', x(curve.x[at]));
      point.setAttribute('cx', x(curve.x[at]));
      point.setAttribute('cy', y(curve.y[at]));
      for (const part of [line, point]) part.setAttribute('visibility', 'visible');
      readout.textContent = 'Point ' + count(at + 1) + ' of ' + count(curve.x.length) + ': ' + real(curve.x[at]) +
          ', ' + real(curve.y[at]);
    };
    picture.addEventListener('pointermove', (event) => {
      const box = picture.getBoundingClientRect();
      const place = (event.clientX - box.left) / box.width * plotSize.width;
      let best = 0;
      curve.x.forEach((value, i) => { if (Math.abs(x(value) - place) < Math.abs(x(curve.x[best]) - place)) best = i; });
      show(best);
    });
    picture.addEventListener('focus', () => { if (at < 0) show(0); });
    picture.addEventListener('keydown', (event) => {
      const step = {ArrowRight: 1, ArrowLeft: -1, PageDown: 10, PageUp: -10, Home: -Infinity, End: Infinity}[event.key];
      if (step === undefined) return;
      event.preventDefault();
      show(at + step);
    });
  }

  function pointsTable(curve) {
    const body = el('tbody');
    const more = growing(curve.x.map((_, i) => i), (i) => el('tr', {}, numberCell(i + 1),
      numberCell(real(curve.x[i])), numberCell(real(curve.y[i]))), body);
    return [scrolled(el('table', {}, el('thead', {}, el('tr', {},
        headCells([['Point', 1], ['Abscissa', 1], ['Ordinate', 1]]))), body),
      'Points of the curve'), more];
  }

  function plot(curve) {
    const block = blockByNumber.get(curve.block);
    const own = trimmed(curve.title);
    const title = 'Curve ' + curve.id + (own && ': ' + own);
    const figure = el('figure', {class: 'plot'}, el('figcaption', {}, title, block && [' ', blockLink(block),
      block.outcome !== 0 && ' (' + outcomes[block.outcome].word + ')']));
    if (curve.x.length === 0) {
      figure.append(hint(curve.points === 0 ? 'It has no points.' : 'Its points did not fit into this page.'));
      return figure;
    }
    const scales = axes(curve);
    const readout = el('p', {class: 'readout', 'aria-live': 'polite'}, counted(curve.points, 'point', 'points'));
    const picture = svg('svg', {viewBox: '0 0 ' + plotSize.width + ' ' + plotSize.height, role: 'img', tabindex: 0,
      'aria-label': title + ', ' + counted(curve.points, 'point', 'points') +
          '; the arrow keys go from point to point'});
    drawGrid(picture, scales);
    picture.append(svg('polyline', {class: 'curve', points: curve.x.map((value, i) => scales.x(value).toFixed(2) +
        ',' + scales.y(curve.y[i]).toFixed(2)).join(' ')}));
    if (curve.x.length <= 40)
      curve.x.forEach((value, i) => picture.append(svg('circle',
          {class: 'point', r: 2.5, cx: scales.x(value), cy: scales.y(curve.y[i])})));
    addCursor(picture, curve, scales, readout);
    figure.append(picture, readout);
    if (curve.x.length < curve.points)
      figure.append(hint('Only the first ' + count(curve.x.length) + ' of ' + count(curve.points) +
          ' points fit into this page.'));
    const table = el('details', {class: 'no-print'}, el('summary', {}, 'Points as a table'));
    table.addEventListener('toggle', () => addChildren(table, pointsTable(curve)), {once: true});
    figure.append(table);
    return figure;
  }

  function buildCurves() {
    const body = byId('curves-body');
    byId('tally-curves').textContent = count(details.curves.length);
    if (details.curves.length === 0) {
      body.append(el('p', {}, 'The deck defines no load curves.'));
      return;
    }
    body.append(hint('Shifted and scaled, as the main deck has them.'));
    const list = el('div', {class: 'plots'});
    const first = 12;
    details.curves.slice(0, first).forEach((curve) => list.append(plot(curve)));
    body.append(list);
    if (details.curves.length > first) {
      const more = el('button', {type: 'button', onclick: () => {
        more.remove();
        details.curves.slice(first).forEach((curve) => list.append(plot(curve)));
      }}, 'Show ' + count(details.curves.length - first) + ' more curves');
      body.append(more);
    }
  }

  return {buildCurves};
})();
