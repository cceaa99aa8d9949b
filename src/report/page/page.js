// The report's page: reads the data that stand in it and builds its parts. Texts of decks become text nodes, and
// nothing else.
(() => {
  'use strict';

  // ---- data --------------------------------------------------------------------------------------------------------

  const byId = (id) => document.getElementById(id);
  const dataOf = (id) => JSON.parse(byId(id).textContent);

  const ledger = dataOf('ledger');
  const details = dataOf('details');

  const severities = ['note', 'warning', 'error'];
  const outcomes = [
    {word: 'converted', sign: '✓', meaning: 'what was made of it is in the output'},
    {word: 'skipped', sign: '✕', meaning: 'known, and not converted'},
    {word: 'passed over', sign: '↷',
      meaning: 'never reached: its section is off, or it stands where nothing is read'},
    {word: 'not known', sign: '?', meaning: 'of no kind that the converter knows'},
    {word: 'after the end', sign: '–', meaning: 'stands behind *END'},
  ];

  const findings = new Map();
  for (const row of ledger.findings) {
    const [number, severity, code, file, line, column, keyword, field, text, readAs, message, others] = row;
    findings.set(number, {number, severity, code, file, line, column, keyword, field, text, readAs, message, others});
  }

  // A block's row, taken apart as page_data.cpp puts it together.
  function blockOf(row) {
    const names = ledger.names;
    return {
      number: row[0],
      file: names.files[row[1]],
      line: row[2],
      lastLine: row[3],
      keyword: names.keywords[row[4]],
      procedure: names.procedures[row[5]],
      outcome: row[6],
      output: row[7].map(([file, first, last]) => ({file: names.files[file], first, last})),
      unused: row[8],
      replaced: row[9],
      findings: row[10].map((number) => findings.get(number)).filter((found) => found),
      preparedLine: row[11],
      preparedLastLine: row[12],
      allUnused: row[13],
      allReplaced: row[14],
      allFindings: row[15],
      lost: row[16],
    };
  }
  const blocks = ledger.blocks.map(blockOf);
  const blockByNumber = new Map(blocks.map((block) => [block.number, block]));
  const blockOfFinding = new Map();
  for (const block of blocks) for (const found of block.findings) blockOfFinding.set(found.number, block);

  // ---- elements ----------------------------------------------------------------------------------------------------

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

  // ---- verdict -----------------------------------------------------------------------------------------------------

  const verdicts = [
    {style: 'whole', sign: '✓', words: 'Converted whole', text: 'Nothing of the model was lost or replaced.'},
    {style: 'losses', sign: '!', words: 'Converted with losses',
      text: 'The solver deck is there; what it lacks stands below. Look at each before you run it.'},
    {style: 'unusable', sign: '✕', words: 'Not usable',
      text: 'The solver deck is not the model of this deck. Do not run it.'},
  ];

  function buildVerdict() {
    const body = byId('verdict-body');
    const verdict = verdicts[ledger.verdict];
    body.append(el('div', {class: 'verdict ' + verdict.style},
      el('span', {class: 'sign', 'aria-hidden': 'true'}, verdict.sign), el('strong', {}, verdict.words),
          el('p', {}, verdict.text)));
    const totals = el('dl', {class: 'totals'});
    const total = (name, value) => totals.append(el('div', {}, el('dt', {}, name), el('dd', {}, count(value))));
    total(ledger.all_blocks === 1 ? 'keyword block' : 'keyword blocks', ledger.all_blocks);
    outcomes.forEach((outcome, i) => {
      if (i === 0 || ledger.by_outcome[i] > 0) total(outcome.word, ledger.by_outcome[i]);
    });
    for (const severity of [2, 1, 0])
      total(severities[severity] + (ledger.by_severity[severity] === 1 ? '' : 's'), ledger.by_severity[severity]);
    body.append(totals);
    body.append(...differences());
    const errors = ledger.findings.filter((row) => row[1] === 2).map((row) => findings.get(row[0]));
    if (errors.length > 0) {
      body.append(el('h3', {}, counted(errors.length, 'error', 'errors')));
      const list = el('ul', {class: 'groups', id: 'errors'});
      folded(list, 12, errors, (found) => el('li', {}, badge(2), ' ', findingPlace(found), ' ',
        deckText(found.message), ' ', el('span', {class: 'mono many'}, found.code)));
      body.append(list);
    }
  }

  // Where a finding is in its author's files. Those of the converted deck have places in it, which preparing may have
  // moved within their block.
  function placeOf(found, block) {
    const prepared = ledger.prepared && found.number < ledger.findings_of_converted;
    if (!prepared || !block)
      return found.file + (found.line > 0 ? ':' + found.line : '') + (found.column > 0 ? ':' + found.column : '');
    const sameLines = block.lastLine - block.line === block.preparedLastLine - block.preparedLine;
    const inside = found.line >= block.preparedLine && found.line <= block.preparedLastLine;
    return block.file + ':' + (sameLines && inside ? block.line + found.line - block.preparedLine : block.line);
  }

  // What differs between the deck and the written files.
  function differences() {
    if (ledger.all_differences === 0) return [];
    const list = el('ul', {class: 'groups'});
    folded(list, 8, ledger.differences, (sentence) => el('li', {}, badge(2), ' ', deckText(sentence)));
    const rest = ledger.all_differences - ledger.differences.length;
    return [el('h3', {}, counted(ledger.all_differences, 'difference', 'differences') +
        ' between the deck and what was written'), list,
      ...(rest > 0 ? [hint('and ' + count(rest) + ' more. ledger.json has all.')] : [])];
  }

  function findingPlace(found) {
    const block = blockOfFinding.get(found.number);
    const text = placeOf(found, block);
    return block ? el('a', {href: '#block-' + block.number, class: 'mono'}, text) : mono(text);
  }

  // ---- what was lost or replaced -----------------------------------------------------------------------------------

  const lossKinds = [
    {title: 'Errors', text: 'The model changed without this being asked for.'},
    {title: 'Blocks that were not converted', text: 'Nothing of them is in the output.'},
    {title: 'Replaced values', text: 'The output has another value than the deck.'},
    {title: 'Values that are not in the output',
        text: 'They were read, were not zero, and have no place in the solver deck.'},
    {title: 'Other warnings', text: ''},
    {title: 'Notes', text: 'Harmless, good to know.'},
  ];
  const notes = lossKinds.length - 1;

  function kindOfFinding(found, block) {
    if (found.severity === 2) return 0;
    if (found.severity === 0) return notes;
    if (/^MD20[1-4]$/.test(found.code) || (block && block.outcome !== 0)) return 1;
    if (found.code === 'MD302') return 2;
    if (found.code === 'MD301' || found.code === 'MD206') return 3;
    return 4;
  }

  // Losses that look alike are one group:
  // {kind, severity, keyword, field, code, title, places: [{block, found, said}], size}.
  function collectLosses() {
    const groups = new Map();
    const add = (kind, severity, keyword, field, code, title, place, size) => {
      const key = [kind, severity, keyword, field, code, title].join('\n');
      if (!groups.has(key)) groups.set(key, {kind, severity, keyword, field, code, title, places: [], size: 0});
      const group = groups.get(key);
      group.places.push(place);
      group.size += size;
    };
    for (const found of findings.values()) {
      const block = blockOfFinding.get(found.number);
      if (block && found.code === 'MD301' && block.allUnused > 0) continue;
      if (block && found.code === 'MD302' && block.allReplaced > 0) continue;
      const kind = kindOfFinding(found, block);
      const size = kind === 1 && block ? block.lastLine - block.line + 1 : 1 + found.others;
      add(kind, found.severity, found.keyword, found.field, found.code, titleOf(found.code),
          {block, found, said: found.message}, size);
    }
    for (const block of blocks) addOfBlock(block, add);
    const list = [...groups.values()];
    list.sort((a, b) => a.kind - b.kind || b.severity - a.severity || b.size - a.size);
    return list;
  }

  const titleOf = (code) => (ledger.codes || {})[code] || '';

  // What the block itself knows better than its findings, of which the first stands for all of its kind: its values.
  // And what no finding tells.
  function addOfBlock(block, add) {
    const told = (code) => block.findings.find((found) => found.code === code);
    const list = (values, all) => values.join(', ') + (values.length < all ?
        ' and ' + count(all - values.length) + ' more' : '');
    if (block.outcome !== 0 && block.allFindings === 0)
      add(block.lost ? 1 : notes, block.lost ? 1 : 0, block.keyword, '', '', outcomes[block.outcome].word,
        {block, said: outcomes[block.outcome].meaning}, block.lastLine - block.line + 1);
    if (block.allReplaced > 0)
      add(2, 1, block.keyword, '', 'MD302', '', {block, found: told('MD302'),
        said: list(block.replaced.map(([field, value, by]) => field + ' ' + value + ': ' + by), block.allReplaced)},
            block.allReplaced);
    if (block.allUnused > 0)
      add(3, 1, block.keyword, '', 'MD301', '', {block, found: told('MD301'),
        said: list(block.unused.map(([field, value]) => field + ' ' + value), block.allUnused)}, block.allUnused);
  }

  // How often, in the words of its kind.
  function sizeText(group) {
    if (group.kind === 2 || group.kind === 3) return counted(group.size, 'value', 'values');
    const times = group.places.reduce((sum, place) => sum + 1 + (place.found ? place.found.others : 0), 0);
    return times > 1 ? count(times) + ' times' : '';
  }

  function lossItem(group) {
    const places = el('ul', {class: 'places'});
    const values = group.kind === 2 || group.kind === 3;
    folded(places, 4, group.places, (place) => el('li', {},
      place.found ? findingPlace(place.found) : blockLink(place.block), ' ',
      el('span', {class: 'text said'}, place.said),
      !values && place.found && place.found.others > 0 && ' (and ' + count(place.found.others) + ' more in this block)',
      place.block && [' ', outputPlaces(place.block)]));
    return el('li', {},
      el('div', {class: 'group-head'}, badge(group.severity),
        el('span', {class: 'code'}, (group.keyword || 'the deck') + (group.field ? ' · ' + group.field : '')),
        group.title && el('span', {}, group.title), sizeText(group) && el('span', {class: 'many'}, sizeText(group)),
        group.code && el('span', {class: 'mono many'}, group.code)),
      places);
  }

  function buildLosses() {
    const body = byId('losses-body');
    const groups = collectLosses();
    const real = groups.filter((group) => group.kind !== notes);
    byId('tally-losses').textContent = count(real.length);
    if (real.length === 0) body.append(el('p', {}, 'Nothing was lost, and no value was replaced.'));
    if (ledger.findings.length < ledger.all_findings)
      body.append(hint('Only ' + count(ledger.findings.length) + ' of ' + count(ledger.all_findings) +
        ' findings fit into this page. ledger.json has all.'));
    lossKinds.forEach((kind, number) => {
      const some = groups.filter((group) => group.kind === number);
      if (some.length === 0) return;
      const list = el('ul', {class: 'groups'});
      folded(list, 60, some, lossItem);
      const text = kind.text && hint(kind.text);
      if (number === notes)
        body.append(el('details', {}, el('summary', {}, kind.title + ' (' + count(some.length) + ')'), text, list));
      else
        body.append(el('h3', {}, kind.title + ' (' + count(some.length) + ')'), text || '', list);
    });
  }

  // ---- the model ---------------------------------------------------------------------------------------------------

  const arrayTypes = {f32: Float32Array, u32: Uint32Array, i32: Int32Array, u16: Uint16Array, u8: Uint8Array};

  function bytesOf(base64) {
    if (Uint8Array.fromBase64) return Uint8Array.fromBase64(base64);
    const text = atob(base64);
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
    return bytes;
  }

  function readMesh() {
    const header = dataOf('mesh');
    const arrays = {};
    for (const [name, {type, element}] of Object.entries(header.arrays))
      arrays[name] = new arrayTypes[type](bytesOf(byId(element).textContent).buffer);
    return {header, arrays};
  }

  function buildView() {
    const container = byId('view');
    try {
      if (!byId('mesh')) throw new Error('there is no mesh in this page');
      const mesh = readMesh();
      if (!mesh.header.all_faces && !mesh.header.all_particles) throw new Error('there are no elements to draw');
      createView(container, mesh);
    } catch (error) {
      container.replaceChildren();
      byId('view-hint').textContent = '';
      addText(byId('view-hint'), 'The view of the model is not available: ' + error.message +
          '. All else in this page works without it.');
    }
  }

  // ---- numbers -----------------------------------------------------------------------------------------------------

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

  // ---- load curves -------------------------------------------------------------------------------------------------

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

  // ---- cards and lines ---------------------------------------------------------------------------------------------

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

  function cardsOf(block) {
    const runs = details.cards[block.number];
    const where = ledger.converted + (block.preparedLine > 0 ?
        ', lines ' + linesText(block.preparedLine, block.preparedLastLine) : '');
    const title = ledger.prepared ? 'Cards, as they were prepared: ' : 'Cards: ';
    if (block.preparedLine === 0)
      return hint('It is not in the deck that was converted.');
    if (!runs)
      return hint(title + where + '. They did not fit into this page.');
    return el('div', {class: 'excerpt'}, el('h4', {}, title + where), codeLines(runs, block.preparedLastLine, true));
  }

  function linesOf(block) {
    if (block.output.length === 0) return [hint('No lines of the output were made from it.')];
    const runs = details.lines[block.number] || [];
    return block.output.map((lines) => {
      const own = runs.filter(([file, first]) => file === lines.file && first >= lines.first && first <= lines.last);
      const head = lines.file + ', ' + (lines.first === lines.last ? 'line ' : 'lines ') +
          linesText(lines.first, lines.last);
      if (own.length === 0) return hint('Lines made from it: ' + head + '. They did not fit into this page.');
      return el('div', {class: 'excerpt'}, el('h4', {}, 'Lines made from it: ' + head),
          codeLines(own, lines.last, false));
    });
  }

  // ---- all blocks --------------------------------------------------------------------------------------------------

  const severityOf = (block) => Math.max(-1, ...block.findings.map((found) => found.severity));

  const columns = [
    {key: 'place', name: 'Place', compare: (a, b) => a.number - b.number},
    {key: 'keyword', name: 'Keyword', compare: (a, b) => compareTexts(a.keyword, b.keyword)},
    {key: 'outcome', name: 'Outcome', compare: (a, b) => a.outcome - b.outcome},
    {key: 'cards', name: 'Lines', compare: (a, b) => (a.lastLine - a.line) - (b.lastLine - b.line)},
    {key: 'findings', name: 'Findings', compare: (a, b) => severityOf(a) - severityOf(b) ||
        a.allFindings - b.allFindings},
  ];

  function compareTexts(a, b) {
    return a < b ? -1 : a > b ? 1 : 0;
  }

  // What the filter searches. Made when it is first asked for.
  function searchText(block) {
    if (block.search === undefined)
      block.search = [block.file + ':' + block.line, block.keyword, outcomes[block.outcome].word, block.procedure,
        ...block.output.map((lines) => lines.file), ...block.findings.map((found) => found.code + ' ' + found.message),
        ...block.unused.map(([field]) => field), ...block.replaced.map(([field]) => field)].join('\n').toLowerCase();
    return block.search;
  }

  const table = {rows: blocks, page: 0, pageSize: 100, sort: columns[0], descending: false, open: new Set(),
      body: null};

  function findingsCell(block) {
    if (block.allFindings === 0) return '';
    const worst = severityOf(block);
    return [badge(Math.max(0, worst)), block.allFindings > 1 && ' ' + count(block.allFindings)];
  }

  function outcomeText(outcome) {
    return el('span', {class: 'outcome o' + outcome}, el('span', {class: 'sign', 'aria-hidden': 'true'},
        outcomes[outcome].sign), outcomes[outcome].word);
  }

  function detailRow(block) {
    const facts = el('dl', {class: 'facts'});
    const fact = (name, ...value) => facts.append(el('dt', {}, name), el('dd', {}, ...value));
    fact('In the deck', mono(block.file + ':' + linesText(block.line, block.lastLine)));
    fact('Outcome', outcomes[block.outcome].word + ': ' + outcomes[block.outcome].meaning);
    if (block.procedure) fact('Procedure', mono(block.procedure));
    const values = (list, all) => [list.join(', '), list.length < all && ' and ' + count(all - list.length) + ' more'];
    if (block.allReplaced > 0)
      fact('Replaced', values(block.replaced.map(([field, value, by]) => field + ' ' + value + ' (' + by + ')'),
          block.allReplaced));
    if (block.allUnused > 0)
      fact('Not in the output', values(block.unused.map(([field, value]) => field + ' ' + value), block.allUnused));
    const list = block.findings.length > 0 && el('ul', {class: 'groups'},
        block.findings.map((found) => el('li', {}, badge(found.severity), ' ',
      mono(placeOf(found, block)), ' ', deckText(found.message), ' ',
      el('span', {class: 'mono many'}, found.code), found.others > 0 && ' (and ' + count(found.others) +
          ' more in this block)')));
    return el('tr', {class: 'detail', id: 'detail-' + block.number},
      el('td', {colspan: columns.length + 1}, facts, list, cardsOf(block), linesOf(block)));
  }

  function toggle(block, row) {
    const button = row.querySelector('button');
    if (table.open.has(block.number)) {
      table.open.delete(block.number);
      row.nextElementSibling.remove();
    } else {
      table.open.add(block.number);
      row.after(detailRow(block));
    }
    const open = table.open.has(block.number);
    row.classList.toggle('open', open);
    button.setAttribute('aria-expanded', String(open));
    button.textContent = open ? '−' : '+';
  }

  function blockRow(block) {
    const open = table.open.has(block.number);
    const button = el('button', {type: 'button', class: 'opener', 'aria-expanded': String(open),
      'aria-label': block.keyword + ' at ' + block.file + ' line ' + block.line}, open ? '−' : '+');
    const row = el('tr', {class: open ? 'row open' : 'row', id: 'block-' + block.number},
      el('td', {class: 'c-open'}, button), el('td', {class: 'c-place mono'}, block.file + ':' + block.line),
      el('th', {class: 'mono', scope: 'row'}, block.keyword, el('span', {class: 'narrow-place'},
          block.file + ':' + block.line,
        severityOf(block) >= 0 && ' · ' + severities[severityOf(block)])),
            el('td', {class: 'c-outcome'}, outcomeText(block.outcome)),
      el('td', {class: 'c-cards number'}, count(block.lastLine - block.line + 1)),
          el('td', {class: 'c-findings'}, findingsCell(block)));
    row.addEventListener('click', (event) => {
      if (String(window.getSelection()) !== '' && event.target !== button) return;
      toggle(block, row);
    });
    return open ? [row, detailRow(block)] : [row];
  }

  function showPage() {
    const pages = Math.max(1, Math.ceil(table.rows.length / table.pageSize));
    table.page = Math.max(0, Math.min(table.page, pages - 1));
    const from = table.page * table.pageSize;
    const rows = table.rows.slice(from, from + table.pageSize);
    table.body.replaceChildren(...rows.flatMap(blockRow));
    byId('pager').hidden = pages === 1;
    byId('page-number').textContent = 'Page ' + count(table.page + 1) + ' of ' + count(pages);
    for (const [id, off] of [['first-page', table.page === 0], ['previous-page', table.page === 0],
      ['next-page', table.page === pages - 1], ['last-page', table.page === pages - 1]]) byId(id).disabled = off;
    const shown = rows.length === 0 ? 'No block' : 'Rows ' + count(from + 1) + ' to ' + count(from + rows.length);
    byId('block-status').textContent = shown + ' of ' + counted(table.rows.length, 'block', 'blocks') +
      (table.rows.length < blocks.length ? ', filtered from ' + count(blocks.length) : '');
  }

  function applyFilter() {
    const words = byId('filter').value.toLowerCase().split(/\s+/).filter((word) => word);
    const outcome = byId('outcome').value;
    const severity = byId('severity').value;
    table.rows = blocks.filter((block) => (outcome === '' || block.outcome === Number(outcome)) &&
      (severity === '' || severityOf(block) >= Number(severity)) &&
          words.every((word) => searchText(block).includes(word)));
    const sign = table.descending ? -1 : 1;
    table.rows.sort((a, b) => sign * table.sort.compare(a, b) || a.number - b.number);
    table.page = 0;
    showPage();
  }

  function sortBy(column) {
    table.descending = table.sort === column && !table.descending;
    table.sort = column;
    for (const head of document.querySelectorAll('#block-table thead th')) {
      const active = head.dataset.key === column.key;
      head.setAttribute('aria-sort', active ? (table.descending ? 'descending' : 'ascending') : 'none');
      head.querySelector('.direction').textContent = active ? (table.descending ? ' ▼' : ' ▲') : '';
    }
    applyFilter();
  }

  function filterControls() {
    const option = (value, text) => el('option', {value}, text);
    const labelled = (text, control) => el('label', {}, text, control);
    const filter = el('input', {type: 'search', id: 'filter', placeholder: 'keyword, file:line, code, field',
        autocomplete: 'off', spellcheck: 'false'});
    let pending = 0;
    filter.addEventListener('input', () => {
      clearTimeout(pending);
      pending = setTimeout(applyFilter, blocks.length > 5000 ? 150 : 0);
    });
    const outcome = el('select', {id: 'outcome'}, option('', 'any'),
      outcomes.map((one, i) => option(i, one.word + ' (' + count(ledger.by_outcome[i]) + ')')));
    const severity = el('select', {id: 'severity'}, option('', 'any'), option(2, 'errors'),
        option(1, 'errors and warnings'), option(0, 'any finding'));
    for (const select of [outcome, severity]) select.addEventListener('change', applyFilter);
    const reset = el('button', {type: 'button', onclick: resetFilter}, 'Reset');
    return el('div', {class: 'controls'}, labelled('Filter', filter), labelled('Outcome', outcome),
        labelled('With findings', severity), reset);
  }

  function resetFilter() {
    byId('filter').value = '';
    byId('outcome').value = '';
    byId('severity').value = '';
    applyFilter();
  }

  function pager() {
    const button = (id, text, target) => el('button', {type: 'button', id, onclick: () => {
      table.page = target();
      showPage();
      byId('block-table').scrollIntoView();
    }}, text);
    return el('div', {class: 'pager', id: 'pager'}, button('first-page', 'First', () => 0),
        button('previous-page', 'Previous', () => table.page - 1),
      el('span', {id: 'page-number'}), button('next-page', 'Next', () => table.page + 1),
          button('last-page', 'Last', () => Infinity));
  }

  function buildBlocks() {
    const body = byId('blocks-body');
    byId('tally-blocks').textContent = count(ledger.all_blocks);
    if (blocks.length < ledger.all_blocks)
      body.append(el('p', {class: 'hint', id: 'trimmed'}, 'Only ' + count(blocks.length) + ' of ' +
          count(ledger.all_blocks) +
        ' blocks fit into this page, first of all those that lost something. ledger.json has all.'));
    table.body = el('tbody');
    const head = (column) => el('th', {scope: 'col', class: 'c-' + column.key +
        (column.key === 'cards' ? ' number' : ''), 'data-key': column.key, 'aria-sort': column === table.sort ?
        'ascending' : 'none'},
      el('button', {type: 'button', onclick: () => sortBy(column)}, column.name,
          el('span', {class: 'direction', 'aria-hidden': 'true'}, column === table.sort ? ' ▲' : '')));
    body.append(filterControls(), el('p', {class: 'status', id: 'block-status', role: 'status'}),
      el('table', {id: 'block-table'}, el('colgroup', {}, Array.from({length: columns.length + 1}, () => el('col'))),
          el('thead', {}, el('tr', {}, el('td', {class: 'c-open'}), columns.map(head))), table.body), pager());
    showPage();
  }

  // Opens the block's row and goes there.
  function showBlock(number) {
    const block = blockByNumber.get(number);
    if (!block) return;
    if (!table.rows.includes(block)) resetFilter();
    table.page = Math.floor(table.rows.indexOf(block) / table.pageSize);
    showPage();
    const row = byId('block-' + number);
    if (!table.open.has(number)) toggle(block, row);
    row.scrollIntoView();
    row.querySelector('button').focus({preventScroll: true});
  }

  function followHash() {
    const found = /^#block-(\d+)$/.exec(location.hash);
    if (found) showBlock(Number(found[1]));
  }

  // ---- to edit by hand ---------------------------------------------------------------------------------------------

  function handItem(thing) {
    const facts = el('dl', {class: 'facts'});
    const fact = (name, ...value) => facts.append(el('dt', {}, name), el('dd', {}, ...value));
    const deckValues = thing.findings.map((number) => findings.get(number)).filter((found) => found);
    if (thing.blocks.length > 0)
      fact('In the deck', thing.blocks.map((number, i) => {
        const block = blockByNumber.get(number);
        return block && [i > 0 && ', ', blockLink(block), ' ', mono(block.keyword)];
      }), thing.all_blocks > thing.blocks.length && ' and ' + count(thing.all_blocks - thing.blocks.length) + ' more');
    if (deckValues.length > 0) fact('The deck’s value', deckValues.map((found, i) => [i > 0 && '; ',
        deckText(found.message)]));
    const item = el('li', {}, el('p', {}, thing.text), facts.children.length > 0 && facts);
    if (thing.written.length > 0) {
      const runs = [];
      for (const [line, text] of thing.written) {
        const run = runs[runs.length - 1];
        if (run && run[1] + run[2].length === line) run[2].push(text);
        else runs.push([ledger.main_deck, line, [text]]);
      }
      const box = codeLines(runs.flatMap((run) => [run]), 0, false);
      box.querySelectorAll('.gap').forEach((gap) => gap.remove());
      item.append(el('div', {class: 'excerpt'}, el('h4', {}, 'In ' + ledger.main_deck), box,
        thing.written_left_out > 0 && hint('and ' + counted(thing.written_left_out, 'more line', 'more lines') +
            ' like these')));
    }
    return item;
  }

  function buildByHand() {
    const body = byId('by-hand-body');
    byId('tally-by-hand').textContent = count(details.by_hand.length);
    if (details.by_hand.length === 0) {
      body.append(el('p', {}, ledger.main_deck ? 'Nothing.' : 'There is no main deck.'));
      return;
    }
    body.append(hint('Settings that the converter fixes, and what it cannot know, with this deck’s values. ' +
      'A line that begins with “!” is a comment: to switch it on, put a blank in place of the “!”.'));
    let topic = null;
    let list = null;
    for (const thing of details.by_hand) {
      if (thing.topic !== topic) {
        topic = thing.topic;
        list = el('ul', {class: 'todo'});
        body.append(el('h3', {}, topic), list);
      }
      list.append(handItem(thing));
    }
  }

  // ---- files and settings ------------------------------------------------------------------------------------------

  function buildAbout() {
    const body = byId('about-body');
    body.append(el('div', {class: 'scroll', tabindex: '0', role: 'region', 'aria-label': 'Files'},
        el('table', {id: 'files'},
      el('thead', {}, el('tr', {}, headCells([['File', 0], ['What it is', 0], ['Bytes', 1], ['SHA-256', 0]]))),
      el('tbody', {}, ledger.files.map((file) => el('tr', {}, el('th', {scope: 'row', class: 'mono'}, file.name),
          el('td', {}, file.role),
        numberCell(count(file.size)), el('td', {class: 'mono hash'}, file.sha256)))))));
    if (ledger.files.length < ledger.all_files)
      body.append(hint('The first ' + count(ledger.files.length) + ' of ' + count(ledger.all_files) +
          ' files. ledger.json has all.'));
    body.append(el('h3', {}, 'Settings'), el('ul', {class: 'settings mono'},
        ledger.settings.map(([name, value]) => el('li', {}, name + ' ' + value))));
    if (details.unreadable.length > 0)
      body.append(hint('Cards or lines are missing here, because these files could not be read: ' +
          details.unreadable.join(', ') + '.'));
  }

  // ---- light and dark, print ---------------------------------------------------------------------------------------

  function buildTheme() {
    const button = byId('theme');
    const root = document.documentElement;
    const system = window.matchMedia('(prefers-color-scheme: dark)');
    const stored = () => { try { return localStorage.getItem('morvex-report-theme'); } catch { return null; } };
    const dark = () => (root.dataset.theme ? root.dataset.theme === 'dark' : system.matches);
    const label = () => { button.textContent = dark() ? 'Light theme' : 'Dark theme'; };
    const wanted = stored();
    if (wanted === 'dark' || wanted === 'light') root.dataset.theme = wanted;
    button.addEventListener('click', () => {
      root.dataset.theme = dark() ? 'light' : 'dark';
      try { localStorage.setItem('morvex-report-theme', root.dataset.theme); } catch { /* not kept */ }
      label();
    });
    system.addEventListener('change', label);
    label();
    button.hidden = false;
  }

  // A print has more rows than a screen's page, and nothing folded.
  function buildPrint() {
    const most = 2000;
    let before = null;
    window.addEventListener('beforeprint', () => {
      before = {page: table.page, closed: [...document.querySelectorAll('main details:not([open])')]};
      before.closed.forEach((element) => { element.open = true; });
      table.pageSize = most;
      table.page = 0;
      showPage();
    });
    window.addEventListener('afterprint', () => {
      if (!before) return;
      before.closed.forEach((element) => { element.open = false; });
      table.pageSize = 100;
      table.page = before.page;
      showPage();
      before = null;
    });
  }

  // ---- all of it ---------------------------------------------------------------------------------------------------

  buildTheme();
  buildVerdict();
  buildLosses();
  buildNumbers();
  buildCurves();
  buildBlocks();
  buildByHand();
  buildAbout();
  buildPrint();
  followHash();
  window.addEventListener('hashchange', followHash);
  document.addEventListener('click', (event) => {  // also when the address is that of this block already
    const link = event.target.closest && event.target.closest('a[href^="#block-"]');
    if (link && link.getAttribute('href') === location.hash) followHash();
  });
  document.documentElement.dataset.built = String(Math.round(performance.now()));
  // The texts first: the view may take its time.
  requestAnimationFrame(() => setTimeout(buildView, 0));
})();
