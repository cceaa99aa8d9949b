// Elements of the page. Texts of decks become text nodes, and nothing else.
'use strict';
const pageElements = (() => {
  const {severities, blockOfFinding, placeOf} = pageData;

  // What nobody sees, or what turns a line's direction around.
  const hidden = /[\u0000-\u001f\u007f-\u009f\u00ad\u061c\u180e\u200b-\u200f\u2028-\u202e\u2060-\u206f\ufeff]/g;

  const codePoint = (character) => 'U+' + character.charCodeAt(0).toString(16).toUpperCase().padStart(4, '0');

  // Adds a text; each hidden character is a small box with its name.
  function addText(parent, text) {
    let from = 0;
    for (const found of text.matchAll(hidden)) {
      if (found.index > from) parent.append(text.slice(from, found.index));
      const mark = document.createElement('span');
      mark.className = 'mark';
      mark.textContent = codePoint(found[0]);
      parent.append(mark);
      from = found.index + 1;
    }
    if (from < text.length) parent.append(text.slice(from));
  }

  const plainText = (text) => text.replace(hidden, (character) => '[' + codePoint(character) + ']');

  // An element with attributes and children: texts, elements, or lists of them; null and false are left out.
  function el(name, attributes, ...children) {
    const element = document.createElement(name);
    for (const [key, value] of Object.entries(attributes || {})) {
      if (value === null || value === undefined || value === false) continue;
      if (key === 'onclick') element.addEventListener('click', value);
      else element.setAttribute(key, value === true ? '' : plainText(String(value)));
    }
    addChildren(element, children);
    return element;
  }

  function addChildren(element, children) {
    for (const child of children.flat(Infinity)) {
      if (child === null || child === undefined || child === false) continue;
      if (typeof child === 'object') element.append(child);
      else addText(element, String(child));
    }
  }

  function svg(name, attributes, ...children) {
    const element = document.createElementNS('http://www.w3.org/2000/svg', name);
    for (const [key, value] of Object.entries(attributes || {})) element.setAttribute(key, plainText(String(value)));
    addChildren(element, children);
    return element;
  }

  const hint = (...children) => el('p', {class: 'hint'}, ...children);
  const mono = (...children) => el('span', {class: 'mono'}, ...children);
  const deckText = (text) => el('span', {class: 'text'}, text);
  const numberCell = (...children) => el('td', {class: 'number'}, ...children);
  const trimmed = (text) => text.replace(/^ +| +$/g, '');

  const count = (value) => value.toLocaleString('en-US');
  const counted = (value, one, many) => count(value) + ' ' + (value === 1 ? one : many);

  function real(value) {
    if (value === null || value === undefined) return 'not a number';
    if (value === 0) return '0';
    const size = Math.abs(value);
    return size >= 1e6 || size < 1e-4 ? value.toExponential(5).replace(/\.?0+e/, 'e') :
        String(Number(value.toPrecision(7)));
  }

  function linesText(first, last) {
    return first === last ? String(first) : first + '–' + last;
  }

  const badge = (severity) => el('span', {class: 'badge ' + severities[severity]}, severities[severity]);

  // A list of which the first few are shown, and a button for the others.
  function folded(list, shown, items, make) {
    const show = (from, to) => items.slice(from, to).forEach((item) => list.append(make(item)));
    show(0, shown);
    if (items.length <= shown) return list;
    const more = el('li', {class: 'no-print'});
    more.append(el('button', {
      type: 'button',
      onclick: () => {
        more.remove();
        const before = list.children.length;
        show(shown, items.length);
        const first = list.children[before];
        first.tabIndex = -1;
        first.focus();
      },
    }, 'Show ' + count(items.length - shown) + ' more'));
    list.append(more);
    return list;
  }

  // The place of a block in the deck, as a link to its row.
  function blockLink(block, line) {
    return el('a', {href: '#block-' + block.number, class: 'mono'}, block.file + ':' + (line || block.line));
  }

  function outputPlaces(block) {
    if (block.output.length === 0) return [el('span', {class: 'arrow'}, '→'), 'nothing in the output'];
    const shown = block.output.slice(0, 3);
    const rest = block.output.length - shown.length;
    return [
      el('span', {class: 'arrow', 'aria-label': 'became'}, '→'),
      shown.map((lines, i) => [i > 0 && ', ', mono(lines.file + ':' + linesText(lines.first, lines.last))]),
      rest > 0 && ' and ' + count(rest) + ' more',
    ];
  }

  function findingPlace(found) {
    const block = blockOfFinding.get(found.number);
    const text = placeOf(found, block);
    return block ? el('a', {href: '#block-' + block.number, class: 'mono'}, text) : mono(text);
  }

  function scrolled(table, label) {
    return el('div', {class: 'scroll', tabindex: '0', role: 'region', 'aria-label': label}, table);
  }

  function headCells(names) {
    return names.map(([name, number]) => el('th', {scope: 'col', class: number ? 'number' : null}, name));
  }

  // Rows in pages of some hundred, with a button for more, so that models of thousands of parts stay quick.
  function growing(items, make, body) {
    const step = 200;
    const holder = el('div', {class: 'pager no-print'});
    let shown = 0;
    const more = () => {
      items.slice(shown, shown + step).forEach((item) => body.append(make(item)));
      shown = Math.min(shown + step, items.length);
      holder.hidden = shown >= items.length;
      button.textContent = 'Show more (' + count(items.length - shown) + ' are left)';
    };
    const button = el('button', {type: 'button', onclick: more});
    holder.append(button);
    more();
    return holder;
  }

  const ruler = '----+----1----+----2----+----3----+----4----+----5----+----6----+----7----+----8';

  // Runs of lines with their numbers; `last` is the last line of what they are taken from.
  function codeLines(runs, last, withRuler) {
    const box = el('div', {class: 'code-lines mono', tabindex: '0', role: 'group', 'aria-label': 'Lines'});
    const line = (number, text, style) => box.append(el('div', {class: style}, el('span', {class: 'no'}, number),
        deckText(text)));
    if (withRuler) line('', ruler, 'ruler');
    let next = 0;
    for (const [, first, texts] of runs) {
      if (next > 0 && first > next) line('', '… ' + counted(first - next, 'line', 'lines') + ' …', 'gap');
      texts.forEach((text, i) => line(first + i, text));
      next = first + texts.length;
    }
    if (next > 0 && last >= next) line('', '… ' + counted(last - next + 1, 'line', 'lines') + ' …', 'gap');
    return box;
  }

  return {addText, el, addChildren, svg, hint, mono, deckText, numberCell, trimmed, count, counted, real, linesText,
    badge, folded, blockLink, outputPlaces, findingPlace, scrolled, headCells, growing, codeLines};
})();
