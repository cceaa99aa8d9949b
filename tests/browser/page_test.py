"""The page of conversions that were made by hand (sample_pages.cpp)."""
import browser
from browser import Keys, PageTest

pages = None


def setUpModule():
    global pages
    pages = browser.sample_pages(browser.temporary_folder(None))


class Sample(PageTest):
    def setUp(self):
        super().setUp()
        self.page = pages / "sample.html"
        self.open(self.page)

    def keywords(self):
        return self.js("return [...document.querySelectorAll('#block-table tr.row th')].map(cell => cell.firstChild.textContent)")

    def filter(self, text):
        field = self.find("#filter")
        field.clear()
        field.send_keys(text)
        self.wait("return document.querySelector('#filter').value === arguments[0]", text)
        self.js("return new Promise(done => setTimeout(done, 50))")

    # ---- what it says ----------------------------------------------------------------------------------------------

    def test_opens_without_a_word_or_a_request(self):
        self.assertEqual(self.driver.title, "bar.k: converted with losses")
        self.assert_quiet(self.page)

    def test_verdict_comes_first(self):
        self.assertEqual(self.text("h1"), "bar.k: converted with losses")
        self.assertIn("Converted with losses", self.text("#verdict"))
        self.assertLess(self.find("#verdict").location["y"], 300)

    def test_losses_stand_by_weight(self):
        heads = [element.text for element in self.all("#losses h3")]
        self.assertEqual(heads, ["Blocks that were not converted (2)", "Values that are not in the output (1)"])
        first = self.find("#losses .groups li").text
        self.assertIn("*DAMPING_GLOBAL", first)
        self.assertIn("bar.k:13", first)
        value = self.all("#losses > div > .groups")[1].text
        self.assertIn("src 40.0, srp 5.0", value)
        self.assertIn("2 values", value)
        self.assertIn("bar.k:20", value)
        self.assertIn("bar.card:10", value)

    def test_what_agrees_on_both_sides_is_told_in_words(self):
        rows = [[cell.text for cell in row.find_elements("css selector", "th, td")] for row in self.all("#counts tbody tr")]
        self.assertIn(["Nodes", "2", "2", "= same"], rows)
        self.assertIn(["Smallest edge", "0.125", "0.125", "= same"], rows)

    def test_by_hand_has_the_decks_value_and_the_written_line(self):
        text = self.find("#by-hand").text
        self.assertIn("endtim 8.0E-05", text)
        self.assertIn("Termination time               :  5.000e-03", text)

    def test_without_a_mesh_the_page_works_and_says_so(self):
        self.wait("return document.querySelector('#view-hint').textContent !== ''")
        self.assertIn("not available", self.text("#view-hint"))

    # ---- curves ----------------------------------------------------------------------------------------------------

    def test_a_curve_can_be_read_with_the_arrow_keys(self):
        self.js("document.querySelector('.plot svg').focus()")
        self.keys(Keys.ARROW_RIGHT)
        self.assertEqual(self.text(".plot .readout"), "Point 2 of 3: 1.5, 20")
        self.keys(Keys.END)
        self.assertEqual(self.text(".plot .readout"), "Point 3 of 3: 4.5, 20")

    def test_a_curve_stands_in_a_table_too(self):
        self.find(".plot details summary").click()
        self.wait("return document.querySelectorAll('.plot tbody tr').length === 3")
        self.assertIn("0.5", self.text(".plot tbody tr"))

    def test_axes_have_round_ticks(self):
        labels = self.js("return [...document.querySelectorAll('.plot svg text')].map(text => text.textContent)")
        self.assertEqual(labels, ["0", "1", "2", "3", "4", "5", "0", "5", "10", "15", "20"])

    # ---- the table of blocks ---------------------------------------------------------------------------------------

    def test_filter_finds(self):
        self.filter("kinematic")
        self.assertEqual(self.keywords(), ["*MAT_PLASTIC_KINEMATIC"])
        self.assertEqual(self.text("#block-status"), "Rows 1 to 1 of 1 block, filtered from 10")
        self.filter("MD202")
        self.assertEqual(self.keywords(), ["*WHATEVER"])
        self.filter("bar.k:13")
        self.assertEqual(self.keywords(), ["*DAMPING_GLOBAL"])
        self.filter("nothing like this")
        self.assertEqual(self.keywords(), [])
        self.assertIn("No block", self.text("#block-status"))

    def test_outcomes_and_findings_are_filters(self):
        self.js("const select = document.querySelector('#outcome'); select.value = '3'; select.dispatchEvent(new Event('change'))")
        self.assertEqual(self.keywords(), ["*WHATEVER"])
        self.js("document.querySelector('#outcome').value = ''; const select = document.querySelector('#severity');"
                "select.value = '1'; select.dispatchEvent(new Event('change'))")
        self.assertEqual(self.keywords(), ["*DAMPING_GLOBAL", "*MAT_PLASTIC_KINEMATIC", "*WHATEVER"])

    def test_columns_sort(self):
        keyword = self.find("th[data-key=keyword] button")
        keyword.click()
        self.assertEqual(self.keywords(), sorted(self.keywords()))
        self.assertEqual(self.find("th[data-key=keyword]").get_attribute("aria-sort"), "ascending")
        keyword.click()
        self.assertEqual(self.keywords(), sorted(self.keywords(), reverse=True))
        self.assertEqual(self.find("th[data-key=keyword]").get_attribute("aria-sort"), "descending")
        self.assertEqual(self.find("th[data-key=place]").get_attribute("aria-sort"), "none")

    def test_a_row_opens_to_its_cards_and_lines(self):
        self.find("#block-6 button").click()
        detail = self.find("#detail-6").text
        self.assertIn("        11      7.89     2.0E12      0.3    4.0E09", self.text("#detail-6"))
        self.assertIn("bar.card, line 10", detail)
        self.assertIn(" Material Definition:         11          3", self.text("#detail-6"))
        self.assertIn("src 40.0, srp 5.0", detail)

    def test_a_loss_leads_to_its_block(self):
        self.find("#losses a[href='#block-7']").click()
        self.wait("return document.querySelector('#detail-7') !== null")
        self.assertEqual(self.focused().get_attribute("aria-label"), "*WHATEVER at bar.k line 21")

    # ---- the keyboard alone ----------------------------------------------------------------------------------------

    def test_the_first_tab_skips_to_the_report(self):
        self.keys(Keys.TAB)
        self.assertEqual(self.focused().text, "Skip to the report")
        self.keys(Keys.ENTER)
        self.assertEqual(self.focused().get_attribute("id"), "content")

    def test_rows_open_with_the_keyboard(self):
        button = self.tab_to("element.closest('#block-4') !== null")
        self.assertEqual(button.get_attribute("aria-expanded"), "false")
        self.keys(Keys.ENTER)
        self.assertEqual(self.focused().get_attribute("aria-expanded"), "true")
        self.assertIn("*DAMPING_GLOBAL", self.text("#detail-4"))
        self.keys(Keys.SPACE)
        self.assertEqual(self.focused().get_attribute("aria-expanded"), "false")
        self.assertEqual(self.all("#detail-4"), [])

    def test_the_filter_is_reached_and_used_with_the_keyboard(self):
        self.tab_to("element.id === 'filter'")
        self.keys("whatever")
        self.wait("return document.querySelectorAll('#block-table tr.row').length === 1")
        self.tab_to("element.closest('th[data-key=findings]') !== null")
        self.keys(Keys.ENTER)
        self.assertEqual(self.find("th[data-key=findings]").get_attribute("aria-sort"), "ascending")

    def test_what_has_the_focus_is_seen(self):
        for selector in ["#theme", "#filter", "#block-4 button", ".contents a", ".plot svg"]:
            self.js("document.querySelector(arguments[0]).focus({focusVisible: true})", selector)
            style = self.js("const style = getComputedStyle(document.activeElement); return [style.outlineStyle, style.outlineWidth]")
            self.assertEqual(style, ["solid", "3px"], selector)

    # ---- light and dark, print, narrow -----------------------------------------------------------------------------

    def background(self):
        return self.js("return getComputedStyle(document.body).backgroundColor")

    def test_follows_the_systems_theme_and_the_button(self):
        light = self.background()
        self.media("dark")
        dark = self.background()
        self.assertNotEqual(light, dark)
        self.find("#theme").click()
        self.assertEqual(self.background(), light)
        self.assertEqual(self.text("#theme"), "Dark theme")
        self.find("#theme").click()
        self.assertEqual(self.background(), dark)
        self.js("localStorage.clear()")

    def contrast_faults(self):
        """Texts whose contrast is below 4.5 to 1 (3 to 1 for large ones)."""
        return self.js("""
            const parse = (colour) => (colour.match(/[\\d.]+/g) || []).map(Number);
            const light = ([r, g, b]) => [r, g, b].map(v => v / 255).map(v => v <= .03928 ? v / 12.92 : ((v + .055) / 1.055) ** 2.4)
                .reduce((sum, v, i) => sum + v * [.2126, .7152, .0722][i], 0);
            const behind = (element) => {
                for (let at = element; at; at = at.parentElement) {
                    const colour = parse(getComputedStyle(at).backgroundColor);
                    if (colour.length === 3 || colour[3] === 1) return colour;
                }
                return [255, 255, 255];
            };
            const faults = [];
            for (const element of document.querySelectorAll('body *')) {
                if (![...element.childNodes].some(node => node.nodeType === 3 && node.data.trim())) continue;
                if (!element.checkVisibility() || element.closest('svg, script, :disabled')) continue;
                const style = getComputedStyle(element);
                const [a, b] = [light(parse(style.color)), light(behind(element))].sort((x, y) => y - x);
                const large = parseFloat(style.fontSize) >= 24 || (parseFloat(style.fontSize) >= 18.66 && style.fontWeight >= 700);
                if ((a + .05) / (b + .05) < (large ? 3 : 4.5)) faults.push(element.tagName + ' ' + element.className + ': ' + element.textContent.slice(0, 40));
            }
            return faults""")

    def test_contrast_suffices_in_both_themes(self):
        for number in range(10):
            self.js("document.querySelector('#block-' + arguments[0] + ' button').click()", number)
        for scheme in ["light", "dark"]:
            self.media(scheme)
            self.assertEqual(self.contrast_faults(), [], scheme)

    def test_print_has_no_controls(self):
        self.media(kind="print")
        shown = self.js("return [...document.querySelectorAll('button, input, select, nav, .skip')]"
                        ".filter(element => element.checkVisibility() && !element.closest('thead')).map(element => element.outerHTML)")
        self.assertEqual(shown, [])
        self.assertTrue(self.js("return document.querySelector('#block-table').checkVisibility()"))
        self.assertGreater(self.find("#block-4 .c-place").size["width"], 100)
        self.screenshot("sample-print", whole=True)

    def test_a_print_unfolds_what_is_folded(self):
        self.js("dispatchEvent(new Event('beforeprint'))")
        self.assertEqual(self.all("main details:not([open])"), [])
        self.js("dispatchEvent(new Event('afterprint'))")
        self.assertNotEqual(self.all("main details:not([open])"), [])

    def test_no_part_is_wider_than_a_narrow_window(self):
        for number in range(10):
            self.js("document.querySelector('#block-' + arguments[0] + ' button').click()", number)
        for width in [1280, 1000, 640, 400]:
            self.size(width)
            self.assertLessEqual(self.js("return document.documentElement.scrollWidth"), width)


class Unusable(PageTest):
    def test_what_differs_is_told_and_marked(self):
        self.open(pages / "unusable.html")
        self.assertEqual(self.driver.title, "bar.k: not usable")
        self.assertIn("Not usable", self.text("#verdict strong"))
        self.assertIn("nodes: 2 in the deck, 1 in the written files", self.text("#verdict"))
        marked = [row.text for row in self.all("tr.differs")]
        self.assertEqual(len(marked), 4, marked)  # nodes, number of sets, the part, the set
        self.assertIn("≠ differs", marked[0])
        self.assertIn("written: 2.5", marked[2])
        self.assertIn("not written", marked[3])
        self.assertEqual(self.text("#tally-numbers"), "≠")


class Hostile(PageTest):
    def test_texts_of_a_deck_stay_texts(self):
        page = pages / "hostile" / "hostile.html"
        self.open(page)
        self.assertTrue(self.driver.title.startswith("</script><script>document.title='owned'</script><!--"))
        self.assertTrue(self.driver.title.endswith(": converted with losses"))
        for number in range(10):
            self.js("document.querySelector('#block-' + arguments[0] + ' button').click()", number)
        self.js("document.querySelectorAll('details').forEach(element => { element.open = true; })")
        self.assertEqual(self.all("img"), [])
        self.assertNotIn("owned", self.driver.title.replace("document.title='owned'", ""))
        self.assert_quiet(page)

    def test_what_nobody_would_see_is_a_mark(self):
        self.open(pages / "hostile" / "hostile.html")
        marks = self.js("return [...document.querySelectorAll('#parts .mark')].map(mark => mark.textContent)")
        self.assertEqual(marks, ["U+202E", "U+2066", "U+001B", "U+2028"])
        self.assertFalse(self.js("return /[\\u202a-\\u202e\\u2066-\\u2069\\u001b]/.test(document.body.innerText + document.title)"))

    def test_long_names_make_no_page_wider(self):
        self.open(pages / "hostile" / "hostile.html")
        for width in [1280, 400]:
            self.size(width)
            self.assertLessEqual(self.js("return document.documentElement.scrollWidth"), width)


class Long(PageTest):
    def test_fifty_thousand_blocks_stay_fluent(self):
        self.open(pages / "long" / "long.html")
        self.assertLess(int(self.js("return document.documentElement.dataset.built")), 3000)
        self.assertEqual(self.text("#block-status"), "Rows 1 to 100 of 50,010 blocks")
        self.find("#last-page").click()
        self.assertEqual(self.text("#block-status"), "Rows 50,001 to 50,010 of 50,010 blocks")
        spent = self.js("""
            const begin = performance.now();
            document.querySelector('th[data-key=keyword] button').click();
            document.body.offsetHeight;
            return performance.now() - begin""")
        self.assertLess(spent, 1500)
        self.find("#filter").send_keys("damping")
        self.wait("return document.querySelector('#block-status').textContent === 'Rows 1 to 1 of 1 block, filtered from 50,010'")

    def test_a_page_that_left_something_out_says_so(self):
        self.open(pages / "huge" / "huge.html")
        self.assertIn("of 300,010 blocks fit into this page", self.text("#trimmed"))
        self.assertIn("keyword blocks", self.text("#verdict"))
        self.assertIn("300,010", self.text("#verdict"))
        self.assertLess((pages / "huge" / "huge.html").stat().st_size, 25_000_000)


if __name__ == "__main__":
    browser.main()
