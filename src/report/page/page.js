// The report's page: its parts, in the order in which they stand in it.
'use strict';
(() => {
  const {byId, dataOf, ledger, details, findings, blockByNumber} = pageData;
  const {addText, el, hint, mono, deckText, numberCell, count, counted, blockLink, headCells, codeLines} = pageElements;
  const {buildVerdict, buildLosses} = pageLosses;
  const {buildNumbers} = pageNumbers;
  const {buildCurves} = pageCurves;
  const {table, showPage, buildBlocks, followHash} = pageBlocks;

  // ---- the model ----------------------------------------------------------------------------------------------------

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

  // ---- to edit by hand ----------------------------------------------------------------------------------------------

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

  // ---- files and settings -------------------------------------------------------------------------------------------

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

  // ---- light and dark, print ----------------------------------------------------------------------------------------

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

  // ---- all of it ----------------------------------------------------------------------------------------------------

  // A part that fails leaves the others alone.
  for (const build of [buildTheme, buildVerdict, buildLosses, buildNumbers, buildCurves, buildBlocks, buildByHand,
    buildAbout, buildPrint, followHash]) {
    try {
      build();
    } catch (error) {
      console.error(error);
    }
  }
  window.addEventListener('hashchange', followHash);
  document.addEventListener('click', (event) => {  // also when the address is that of this block already
    const link = event.target.closest && event.target.closest('a[href^="#block-"]');
    if (link && link.getAttribute('href') === location.hash) followHash();
  });
  document.documentElement.dataset.built = String(Math.round(performance.now()));
  // The texts first: the view may take its time.
  requestAnimationFrame(() => setTimeout(buildView, 0));
})();
