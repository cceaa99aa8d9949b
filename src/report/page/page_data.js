// What the page holds: the ledger and the details, taken apart as page_data.cpp puts them together.
'use strict';
const pageData = (() => {
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

  return {byId, dataOf, ledger, details, severities, outcomes, findings, blocks, blockByNumber, blockOfFinding,
    placeOf};
})();
