#!/usr/bin/env python3
"""pages_test.py TEST: what tools/pages makes of pages. The environment names the source."""
import html.parser
import os
import pathlib
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(os.environ["MORVEX_SOURCE"])


class Links(html.parser.HTMLParser):
    """The links and the anchors of a page, and what it loads."""

    def __init__(self, file):
        super().__init__()
        self.links, self.anchors, self.loaded, self.pictures, self.open = [], [], [], [], []
        self.feed(file.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        found = dict(attributes)
        if "id" in found:
            self.anchors.append(found["id"])
        if tag == "img":
            self.pictures.append(found["src"])
        elif "src" in found or tag in ("script", "style"):
            self.loaded.append(tag)
        if "href" in found:
            self.links.append(found["href"])


class Tests(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.source = pathlib.Path(scratch.name) / "source"
        self.written = pathlib.Path(scratch.name) / "written"

    def page(self, name, text):
        file = self.source / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def convert(self, source=None):
        return subprocess.run([SOURCE / "tools/pages", self.written, source or self.source], stderr=subprocess.PIPE,
                              text=True, check=False)

    def body(self, name):
        text = (self.written / name).read_text(encoding="utf-8")
        return text[text.index("<main>\n") + 7:text.index("</main>")]

    def refused(self, complaint):
        result = self.convert()
        self.assertEqual(result.returncode, 1)
        self.assertIn(complaint, result.stderr)
        self.assertFalse(self.written.exists())

    def test_pictures_go_along_and_a_missing_one_is_told(self):
        self.page("README.md", "# A page\n\n![what it shows](docs/shown.png)\n")
        self.refused("README.md: docs/shown.png, a picture that is not there")
        self.page("docs/shown.png", "the picture")
        self.assertEqual(self.convert().returncode, 0)
        self.assertEqual((self.written / "docs/shown.png").read_text(encoding="utf-8"), "the picture")

    def test_every_link_of_the_pages_leads_somewhere_on_the_disk(self):
        self.assertEqual(self.convert(SOURCE).returncode, 0)
        pages = {file: Links(file) for file in self.written.rglob("*.html")}
        for page in ("README", "CHANGELOG", "docs/guide", "docs/findings", "docs/morvex.1", "examples/README"):
            self.assertIn(self.written / (page + ".html"), pages)
        followed = 0
        for file, found in pages.items():
            self.assertEqual(found.loaded, [], file)
            for picture in found.pictures:
                self.assertTrue((file.parent / picture).is_file(), f"{file}: {picture}")
            for link in found.links:
                if "://" in link:
                    continue
                path, _, anchor = link.partition("#")
                target = pathlib.Path(os.path.normpath(file.parent / path)) if path else file
                self.assertTrue(target.is_file(), f"{file}: {link}")
                if anchor:
                    self.assertIn(anchor, pages[target].anchors, f"{file}: {link}")
                followed += 1
        self.assertGreater(followed, 100)

    def test_a_page_gets_its_title_its_place_and_the_common_style(self):
        self.page("README.md", "# Less < more & `so`\n")
        self.page("docs/guide.md", "# Guide\n\nText.\n")
        self.assertEqual(self.convert().returncode, 0)
        self.assertIn("<title>Less &lt; more &amp; so</title>", (self.written / "README.html").read_text())
        guide = (self.written / "docs/guide.html").read_text()
        self.assertIn('<link rel="stylesheet" href="../pages.css">', guide)
        self.assertIn('<a href="../README.html">', guide)
        self.assertEqual(self.body("docs/guide.html"), '<h1 id="guide">Guide</h1>\n<p>Text.</p>\n')
        self.assertEqual((self.written / "pages.css").read_bytes(), (SOURCE / "tools/pages.css").read_bytes())

    def test_tables_keep_their_alignment_and_their_bars(self):
        self.page("README.md", "# T\n\n| a | b |\n|---|--:|\n| `x\\|y` | 1 |\n")
        self.assertEqual(self.convert().returncode, 0)
        body = self.body("README.html")
        self.assertIn("<td><code>x|y</code></td>\n<td align=\"right\">1</td>", body)

    def test_headings_get_the_anchors_that_links_use(self):
        self.page("README.md", "# One: two, `three` & four\n## Größe\n## Größe\n## a - b_c\n\n"
                               "[a](#one-two-three--four) [b](#größe) [c](#größe-1) [d](#a---b_c)\n")
        result = self.convert()
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(Links(self.written / "README.html").anchors,
                         ["one-two-three--four", "größe", "größe-1", "a---b_c"])

    def test_links_lead_to_what_became_of_their_targets(self):
        self.page("README.md", "# R\n\n[a](docs/guide.md#part) [b](examples) [c](examples/) [d](docs/tool.1)"
                               " [e](https://example.org/x.md) [f](docs/guide.md)\n")
        self.page("docs/guide.md", "# G\n## Part\n[up](../README.md) [down](../examples/README.md#e)\n")
        self.page("docs/tool.1", ".TH TOOL 1 2026-11-22\n.SH NAME\ntool \\- a tool\n")
        self.page("examples/README.md", "# E\n")
        result = self.convert()
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(Links(self.written / "README.html").links[2:],
                         ["docs/guide.html#part", "examples/README.html", "examples/README.html", "docs/tool.1.html",
                          "https://example.org/x.md", "docs/guide.html"])
        self.assertEqual(Links(self.written / "docs/guide.html").links[2:],
                         ["../README.html", "../examples/README.html#e"])

    def test_a_link_to_nothing_is_refused(self):
        self.page("README.md", "# R\n\n[a](docs/missing.md)\n")
        self.refused("README.md: docs/missing.md leads to nothing")

    def test_an_anchor_that_is_not_there_is_refused(self):
        self.page("README.md", "# R\n\n[a](docs/guide.md#other)\n")
        self.page("docs/guide.md", "# G\n")
        self.refused("docs/guide.html#other")

    def test_html_inside_a_page_is_refused(self):
        self.page("README.md", "# R\n\nThe file <name> is read.\n")
        self.refused("README.md: HTML inside the page")

    def test_the_same_pages_give_the_same_bytes_in_any_locale(self):
        self.page("README.md", "# Größe – naïve\n\n| ä |\n|---|\n| ö |\n")
        written = []
        for locale in ("C", "C.UTF-8", "tr_TR.UTF-8"):
            result = subprocess.run([SOURCE / "tools/pages", self.written, self.source],
                                    env={**os.environ, "LC_ALL": locale}, check=True)
            self.assertEqual(result.returncode, 0)
            written.append((self.written / "README.html").read_bytes())
        self.assertEqual(len(set(written)), 1)
        self.assertIn("Größe – naïve".encode(), written[0])


if __name__ == "__main__":
    unittest.main()
