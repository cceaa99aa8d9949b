// The table of all blocks, whose rows open to cards and lines.
'use strict';
const pageBlocks = (() => {
  const {byId, ledger, details, severities, outcomes, blocks, blockByNumber, placeOf} = pageData;
  const {el, hint, mono, deckText, count, counted, linesText, badge, codeLines} = pageElements;

  // ---- cards and lines ----------------------------------------------------------------------------------------------

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

  // ---- the table ----------------------------------------------------------------------------------------------------

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

  return {table, showPage, buildBlocks, followHash};
})();
