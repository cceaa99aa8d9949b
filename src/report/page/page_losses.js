// The verdict, and what was lost or replaced.
'use strict';
const pageLosses = (() => {
  const {byId, ledger, severities, outcomes, findings, blocks, blockOfFinding} = pageData;
  const {el, hint, deckText, count, counted, real, badge, folded, blockLink, outputPlaces, findingPlace} = pageElements;

  // ---- verdict ------------------------------------------------------------------------------------------------------

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

  // ---- what was lost or replaced ------------------------------------------------------------------------------------

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

  return {buildVerdict, buildLosses, differences};
})();
