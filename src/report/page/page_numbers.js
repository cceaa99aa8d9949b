// What the model counts on both sides.
'use strict';
const pageNumbers = (() => {
  const {byId, ledger} = pageData;
  const {el, addChildren, hint, numberCell, trimmed, count, real, scrolled, headCells, growing} = pageElements;
  const {differences} = pageLosses;

  // Beyond what the written digits can hold: seven of a coordinate, four of a thickness or a density.
  const sizesDiffer = (a, b) => Math.abs(a - b) > 1e-5 * Math.max(Math.abs(a), Math.abs(b));
  const massesDiffer = (a, b) => Math.abs(a - b) > 2e-3 * Math.max(Math.abs(a), Math.abs(b));
  const countsDiffer = (a, b) => a !== b;

  // A value of both sides in one cell: once where they agree, or where the settings did not ask for the other side.
  function both(a, b, show, differ, asked) {
    if (!asked) return {cell: numberCell(show(a)), differs: false};
    const differs = b === undefined || differ(a, b);
    const written = b === undefined ? 'not written' : 'written: ' + show(b);
    return {cell: numberCell(show(a), differs && el('span', {class: 'written'}, written)), differs};
  }

  function vectorText(vector) {
    return '(' + vector.map(real).join(', ') + ')';
  }

  function numbersTable() {
    const into = ledger.in;
    const out = ledger.out;
    const body = el('tbody');
    let differing = 0;
    const row = (name, asked, a, b, show, differ) => {
      const differs = asked && differ(a, b);
      if (differs) ++differing;
      body.append(el('tr', {class: differs ? 'differs' : null}, el('th', {scope: 'row'}, name),
        numberCell(show(a)), numberCell(asked ? show(b) : '–'),
        el('td', {class: differs ? 'differs-word' : 'same-word'}, differs ? '≠ differs' : asked ? '= same' :
            'not asked for')));
    };
    const {geometry, main_deck: mainDeck, sets} = ledger.asked;
    for (const name of ['nodes', 'solids', 'shells', 'particles'])
      row(name[0].toUpperCase() + name.slice(1), geometry, into[name], out[name], count, countsDiffer);
    row('Parts', mainDeck, into.all_parts, out.all_parts, count, countsDiffer);
    row('Sets', sets, into.all_sets, out.all_sets, count, countsDiffer);
    const boxesDiffer = (a, b) => (a && b ? a.some((value, i) => sizesDiffer(value, b[i])) : a !== b);
    for (const [name, corner] of [['Lowest corner of the box', 0], ['Highest corner of the box', 1]])
      row(name, geometry, into.box && into.box[corner], out.box && out.box[corner],
          (at) => (at ? vectorText(at) : 'none'), boxesDiffer);
    row('Smallest edge', geometry, into.smallest_edge, out.smallest_edge, real, sizesDiffer);
    const table = el('table', {id: 'counts', class: 'small'}, el('caption', {}, 'Model'),
      el('thead', {}, el('tr', {}, el('td', {}), el('th', {scope: 'col', class: 'number'}, 'In the deck'),
        el('th', {scope: 'col', class: 'number'}, 'Written'), el('th', {scope: 'col'}, 'Compared'))), body);
    return {table, differing};
  }

  function partsTable() {
    const {geometry, main_deck: mainDeck} = ledger.asked;
    const out = new Map(ledger.out.parts.map((part) => [part.id, part]));
    let differing = 0;
    const row = (part) => {
      const other = out.get(part.id) || {centre: []};
      const cells = [
        ...['solids', 'shells', 'particles'].map((name) => both(part[name], other[name], count, countsDiffer,
            geometry)),
        both(part.volume, other.volume, real, massesDiffer, geometry && mainDeck),
        part.has_density || part.mass !== 0 ? both(part.mass, other.mass, real, massesDiffer, geometry && mainDeck) :
            {cell: numberCell('–')},
      ];
      if (cells.some((cell) => cell.differs)) ++differing;
      return el('tr', {class: cells.some((cell) => cell.differs) ? 'differs' : null},
        el('th', {scope: 'row', class: 'number'}, part.id), el('td', {class: 'text'}, trimmed(part.title)),
        numberCell(part.section), numberCell(part.material), cells.map((cell) => cell.cell),
        numberCell(vectorText(part.centre)));
    };
    const body = el('tbody');
    const more = growing(ledger.in.parts, row, body);
    const table = el('table', {id: 'parts'}, el('caption', {}, 'Parts'),
        el('thead', {}, el('tr', {}, headCells([['Part', 1], ['Title', 0],
      ['Section', 1], ['Material', 1], ['Solids', 1], ['Shells', 1], ['Particles', 1], ['Volume', 1], ['Mass', 1],
          ['Centre of mass', 1]]))), body);
    const hint = ledger.in.parts.length < ledger.in.all_parts && hint('The first ' +
      count(ledger.in.parts.length) + ' of ' + count(ledger.in.all_parts) + ' parts. ledger.json has all.');
    return {elements: [scrolled(table, 'Parts'), more, hint], differing};
  }

  function setsTable() {
    const key = (set) => set.kind + ' ' + set.id;
    const out = new Map(ledger.out.sets.map((set) => [key(set), set]));
    const body = el('tbody');
    const more = growing(ledger.in.sets, (set) => {
      const other = out.get(key(set)) || {};
      const members = both(set.members, other.members, count, countsDiffer, ledger.asked.sets);
      return el('tr', {class: members.differs ? 'differs' : null}, el('td', {}, set.kind),
          el('th', {scope: 'row', class: 'number'}, set.id),
        el('td', {class: 'text'}, trimmed(set.title)), members.cell);
    }, body);
    const table = el('table', {id: 'sets', class: 'small'}, el('caption', {}, 'Sets'),
      el('thead', {}, el('tr', {}, headCells([['Of', 0], ['Set', 1], ['Title', 0], ['Members', 1]]))), body);
    const hint = ledger.in.sets.length < ledger.in.all_sets && hint('The first ' +
      count(ledger.in.sets.length) + ' of ' + count(ledger.in.all_sets) + ' sets. ledger.json has all.');
    return [scrolled(table, 'Sets'), more, hint];
  }

  function worstTable() {
    if (ledger.in.worst[0].shape > 0.9995)
      return [hint('No element is worse in shape than a cube or a square.')];
    const table = el('table', {id: 'worst', class: 'small'}, el('caption', {}, 'Elements of the worst shape'),
      el('thead', {}, el('tr', {}, headCells([['Element', 1], ['Part', 1], ['Shape', 1], ['', 0]]))),
      el('tbody', {}, ledger.in.worst.map((element) => el('tr', {},
          el('th', {scope: 'row', class: 'number'}, element.id),
        numberCell(element.part), numberCell(Number(element.shape.toFixed(3))),
        el('td', {}, element.shape <= 0 ? 'flat or turned inside out' : '')))));
    return [scrolled(table, 'Elements of the worst shape'),
      hint('Shape is 1 for a cube or a square, and 0 or less for an element that is flat or turned inside out.')];
  }

  function buildNumbers() {
    const body = byId('numbers-body');
    const {table, differing} = numbersTable();
    body.append(...differences());
    body.append(scrolled(table, 'Model'));
    if (ledger.in.smallest_edge > 0)
      body.append(hint('The smallest edge belongs to element ' + ledger.in.smallest_edge_element + '.'));
    let all = differing;
    if (ledger.in.parts.length > 0) {
      const parts = partsTable();
      all += parts.differing;
      addChildren(body, parts.elements);
    }
    if (ledger.in.sets.length > 0) addChildren(body, setsTable());
    if (ledger.in.worst.length > 0) addChildren(body, worstTable());
    byId('tally-numbers').textContent = all > 0 || ledger.differences.length > 0 ? '≠' : '=';
  }

  return {buildNumbers};
})();
