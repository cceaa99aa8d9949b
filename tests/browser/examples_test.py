"""The reports of the examples, as morvex-deck convert writes them: each says what its ledger says."""
import json

import browser
from browser import PageTest

folders = {}


def setUpModule():
    folder = browser.temporary_folder(None)
    for name in browser.EXAMPLES:
        folders[name] = browser.convert_example(name, folder)


VERDICTS = {"converted whole": "Converted whole", "converted with losses": "Converted with losses", "not usable": "Not usable"}


class Examples(PageTest):
    def test_each_report_says_what_its_ledger_says(self):
        checks = [self.quiet, self.screenshots, self.verdict_and_totals, self.rows, self.numbers, self.losses, self.lines,
                  self.narrow]
        for name, folder in folders.items():
            ledger = json.loads((folder / "ledger.json").read_text())
            self.open(folder / "report.html", view=True)
            for check in checks:
                with self.subTest(name, check=check.__name__):
                    check(name, folder, ledger)
            self.media()

    def cells(self, table):
        return self.js("return [...document.querySelectorAll(arguments[0] + ' tbody tr')]"
                       ".map(row => [...row.children].map(cell => cell.textContent))", table)

    def quiet(self, _, folder, ledger):
        self.assertEqual(self.driver.title, f"{ledger['deck']}: {ledger['verdict']}")
        self.assert_quiet(folder / "report.html")

    def verdict_and_totals(self, _, __, ledger):
        self.assertEqual(self.text("#verdict strong"), VERDICTS[ledger["verdict"]])
        shown = self.js("return Object.fromEntries([...document.querySelectorAll('.totals > div')]"
                        ".map(total => [total.querySelector('dt').textContent, total.querySelector('dd').textContent]))")
        totals = ledger["totals"]
        self.assertEqual(int(shown["keyword blocks"]), totals["blocks"])
        for name in ["converted", "skipped", "passed over", "not known", "after the end"]:
            self.assertEqual(int(shown.get(name, 0)), totals[name], name)
        for name in ["error", "warning", "note"]:
            self.assertEqual(int(shown.get(name + "s", shown.get(name, 0))), totals[name + "s"], name)

    def rows(self, _, __, ledger):
        rows = self.js("""return [...document.querySelectorAll('#block-table tr.row')].map(row =>
            [row.children[1].textContent, row.children[2].firstChild.textContent, row.children[3].lastChild.lastChild.textContent,
             Number(row.children[4].textContent)])""")
        blocks = [[f"{block['file']}:{block['line']}", block["keyword"], block["outcome"],
                   block["last_line"] - block["line"] + 1] for block in ledger["blocks"]]
        self.assertEqual(rows, blocks)

    def numbers(self, _, __, ledger):
        counts = {row[0]: row[1:3] for row in self.cells("#counts")}
        for name in ["nodes", "solids", "shells", "particles"]:
            self.assertEqual([int(text.replace(",", "")) for text in counts[name.capitalize()]],
                             [ledger["in"][name], ledger["out"][name]])
        parts = [[int(row[0]), row[1], int(row[2]), int(row[3])] for row in self.cells("#parts")]
        self.assertEqual(parts, [[part["id"], part["title"].strip(" "), part["section"], part["material"]]
                                 for part in ledger["in"]["parts"]])
        masses = [float(row[8]) for row in self.cells("#parts")]
        for shown, part in zip(masses, ledger["in"]["parts"]):
            self.assertAlmostEqual(shown, part["mass"], delta=1e-6 * abs(part["mass"]))
        self.assertEqual(self.all("tr.differs"), [])

    def losses(self, _, __, ledger):
        text = self.text("#losses")
        for block in ledger["blocks"]:
            for field in block["unused"]:
                self.assertIn(f"{field['field']} {field['value']}", text)
            for field in block["replaced"]:
                self.assertIn(f"{field['field']} {field['value']}: {field['by']}", text)

    def lines(self, _, folder, ledger):
        deck = (folder / ledger["deck"]).read_text().splitlines()
        for number, block in enumerate(ledger["blocks"]):
            self.js("document.querySelector('#block-' + arguments[0] + ' button').click()", number)
            shown = self.js("""return [...document.querySelectorAll('#detail-' + arguments[0] + ' .excerpt')].map(excerpt =>
                [excerpt.querySelector('h4').textContent, [...excerpt.querySelectorAll('.code-lines > div:not(.ruler):not(.gap)')]
                    .map(line => [Number(line.children[0].textContent), line.children[1].textContent])])""", number)
            for head, lines in shown:
                is_cards = head.startswith("Cards")
                text = deck if is_cards else (folder / head.split(": ")[1].split(",")[0]).read_text().splitlines()
                self.assertGreater(len(lines), 0)
                for line, said in lines:
                    self.assertEqual(said, text[line - 1])
            self.assertEqual(len(shown), 1 + len(block["output"]))

    def narrow(self, *_):
        for width in [1280, 400]:  # all rows are open now
            self.size(width)
            self.assertLessEqual(self.js("return document.documentElement.scrollWidth"), width)
        self.size(1280)

    def screenshots(self, name, *_):
        for scheme in ["light", "dark"]:
            self.media(scheme)
            for width in [1280, 400]:
                self.size(width)
                self.assertTrue(self.screenshot(f"{name}-{width}-{scheme}", whole=True).exists())
        self.media()
        if name == "explosive-cylinder":
            self.size(1000)
            self.assertTrue(self.screenshot("report", "#model", scale=0.6).exists())  # docs/report.png
        self.size(1280)


if __name__ == "__main__":
    browser.main()
