#!/usr/bin/env python3
"""papers_test.py TEST: runs what docs/guide.md and docs/scripting.md tell the reader to type, as it stands there, and tries
morvex-look, the program that the guide searches decks with. The environment names the programs and the source."""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import textwrap
import unittest

SOURCE = pathlib.Path(os.environ["MORVEX_SOURCE"])
MORVEX = pathlib.Path(os.environ["MORVEX_PROGRAM"])
LOOK = SOURCE / "packaging" / "morvex-look"
EXAMPLES_INSTALLED = "/usr/share/doc/morvex/examples"


def blocks(page):
    """The indented blocks of a page, each as one text."""
    found = re.findall(r"(?:^ {4,}.*\n|^\n(?= {4}))+", (SOURCE / "docs" / page).read_text(), re.MULTILINE)
    return [textwrap.dedent(block.strip("\n")) + "\n" for block in found if block.strip()]


def block(page, beginning):
    """The one block of a page that begins so."""
    found = [each for each in blocks(page) if each.startswith(beginning)]
    assert len(found) == 1, f"{len(found)} blocks of {page} begin with {beginning!r}"
    return found[0]


def card(*fields, width=10):
    return "".join(str(field).rjust(width) for field in fields) + "\n"


# A deck in which morvex-look finds nothing, nor in its conversion.
CLEAN = ("*KEYWORD\n"
         "$ a comment with & and a comma, and 8.9-3\n"
         "*DEFINE_CURVE_TITLE\nload, 2024-11 & more\n" + card(1, 0, 0.0, 2.0) +
         card("0.0", "-1.5", width=20) + card("1.0E-3", "12345678.9", width=20) +
         "*SECTION_SOLID\n" + card(1, 1) +
         "*MAT_ELASTIC\n" + card(5, "7.85E-9", "-123456.7", "-0.300000") +
         "*PART\nbar, 1-2\n" + card(1, 1, 5) +
         "*NODE\n" + "".join(f"{n:8}{1.0 * n:16.6f}{-2.5:16.6f}{-123456.123456789:16.8f}\n" for n in range(1, 9)) +
         "*ELEMENT_SOLID\n" + card(1, 1, 1, 2, 3, 4, 5, 6, 7, 8, width=8) +
         "*END\n"
         "*MAT_ELASTIC \n1,2,3\n")


class Papers(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="morvex-papers-"))
        self.addCleanup(shutil.rmtree, self.folder)
        programs = self.folder / "programs"
        programs.mkdir()
        (programs / "morvex").symlink_to(MORVEX)
        (programs / "morvex-look").symlink_to(LOOK)
        (programs / "morvex-deck").symlink_to(os.environ["MORVEX_DECK_PROGRAM"] or "/nowhere")
        self.program("editor", "sed -i -E 's/^( sourcefile *:).*/\\1 model.k/' \"$1\"")
        self.home = self.folder / "home"
        self.work = self.folder / "work"
        (self.home / "decks").mkdir(parents=True)
        self.work.mkdir()

    def program(self, name, script):
        path = self.folder / "programs" / name
        path.write_text("#!/usr/bin/env bash\nset -eu\n" + script + "\n")
        path.chmod(0o755)

    def run_commands(self, commands, folder=None):
        """As typed by a reader: a command that fails does not end the others."""
        commands = commands.replace(EXAMPLES_INSTALLED, str(SOURCE / "examples"))
        path = f"{self.folder / 'programs'}:{os.environ['PATH']}"
        environment = {**os.environ, "PATH": path, "HOME": str(self.home), "LC_ALL": "C.UTF-8"}
        environment.pop("SOURCE_DATE_EPOCH", None)
        return subprocess.run(["bash", "-c", commands], cwd=folder or self.work, env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def write(self, name, text):
        (self.work / name).write_bytes(text.encode())

    def read(self, name):
        return (self.work / name).read_text()

    def settings(self, **other):
        values = {"sourcefile": "model.k", "cardflag": 1, "setflag": 1, "geomflag": 1, "icflag": 1, "contflag": 1,
                  "lcflag": 1, "sphflag": 0, **other}
        self.write("input.morvex", "".join(f" {name} : {value}\n" for name, value in values.items()))

    def convert(self, deck, **settings):
        self.write("model.k", deck)
        self.settings(**settings)
        (self.work / "model.card").unlink(missing_ok=True)
        done = self.run_commands("morvex")
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def look(self, deck=None, options=""):
        """What morvex-look tells of the deck, by heading: the places under each."""
        if deck is not None:
            self.write("model.k", deck)
        done = self.run_commands(f"morvex-look {options} model.k")
        self.assertEqual(done.stderr, "")
        told, heading = {}, None
        for line in done.stdout.splitlines():
            if line.startswith("  "):
                told[heading].append(line[2:])
            elif not line.startswith("debug.morvex in this folder is not of"):
                heading = line
                told[heading] = []
        self.assertEqual(done.returncode, 1 if told else 0)
        return told

    # ---- the pages ---------------------------------------------------------------------------------------------------

    def test_each_command_of_the_pages_is_known_to_these_tests(self):
        commands = {
            "guide.md": ["cp -r /usr/share/doc", "mkdir mymodel", "morvex-deck check", "morvex-deck prepare",
                         "morvex-deck convert", "morvex-look model.k", "morvex-look model.k", "grep skipped debug.morvex", "sed -E '/^\\*/s"],
            "scripting.md": ["morvex >morvex.out", "rm -f model.card; morvex", "cat >input.morvex", "SOURCE_DATE_EPOCH=",
                             "#!/usr/bin/env bash\n# convert-one", "find decks -name '*.k' -print0",
                             "#!/usr/bin/env bash\n#SBATCH", "find decks -name '*.k' -o"],
        }
        samples = ("*", "1  ", " ", "0  ", "7  ", "model.k:")  # lines of decks and of what was written
        for page, known in commands.items():
            unknown = [each for each in blocks(page) if not each.startswith(samples)]
            for beginning in known:
                match = next((each for each in unknown if each.startswith(beginning)), None)
                self.assertIsNotNone(match, f"{page}: no block begins with {beginning}")
                unknown.remove(match)
            self.assertEqual(unknown, [], f"{page}: commands that no test runs")
            inline = set(re.findall(r"`((?:grep|sed|awk|comm|find|cat|cp|morvex-look) [^`]*)`",
                                    (SOURCE / "docs" / page).read_text()))
            self.assertLessEqual(inline, {"morvex-look model.k", "morvex-look -a model.k"}, page)

    def test_first_conversion_of_an_example(self):
        done = self.run_commands("set -e\n" + block("guide.md", "cp -r /usr/share/doc"))
        self.assertEqual(done.returncode, 0, done.stderr)
        for name in ("taylor.card", "taylor.geom", "taylor.sets", "debug.morvex", "keywords.k"):
            self.assertTrue((self.work / "taylor-bar" / name).stat().st_size > 0, name)

    def test_first_conversion_of_a_model_of_ones_own(self):
        (self.home / "decks" / "model.k").write_text(CLEAN)
        done = self.run_commands(block("guide.md", "mkdir mymodel"))
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("Please modify input.morvex", done.stdout)
        self.assertTrue((self.work / "mymodel" / "model.card").exists())

    def test_deck_check_tells_what_the_guide_says(self):
        command = block("guide.md", "morvex-deck check")
        self.write("model.k", "*KEYWORD\n*NODE\n" + card(1, width=8)[:-1] + "0.5".ljust(16) + card(0.0, 0.0, width=16) +
                   "*END\n")
        done = self.run_commands(command)
        self.assertEqual(done.returncode, 1)
        self.assertIn(block("guide.md", "model.k:3:9: error"), done.stdout)
        self.assertIn("MD101: ", self.run_commands("morvex-deck explain MD101").stdout)
        self.write("model.k", CLEAN)
        self.settings()
        done = self.run_commands(command)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual(sorted(path.name for path in self.work.iterdir()), ["input.morvex", "model.k"])

    def test_deck_convert_makes_the_folder_that_the_guide_names(self):
        command = block("guide.md", "morvex-deck convert")
        self.write("model.k", CLEAN)
        self.assertIn(self.run_commands(command).returncode, (0, 1))
        folder = self.work / "model-kestrune"
        self.assertIn("<title>model.k: ", (folder / "report.html").read_text())
        for name in ("input.morvex", "model.k", "model.card", "model.geom", "model.sets", "debug.morvex", "keywords.k",
                     "ledger.json"):
            self.assertTrue((folder / name).is_file(), name)

    def test_deck_prepare_mends_what_the_guide_says(self):
        command = block("guide.md", "morvex-deck prepare")
        node = card(1, width=8)[:-1] + "0.5".ljust(16) + card(0.0, 0.0, width=16)
        self.write("model.k", "*KEYWORD\n*NODE\n" + node + "2,1.5,0.,0.\n*END\n")
        done = self.run_commands(command)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn('"MD101"', self.read("changes.json"))
        self.assertIn('"MD103"', self.read("changes.json"))
        self.assertEqual(self.run_commands("morvex-deck check strict.k").returncode, 0)
        self.convert(self.read("strict.k"))
        self.assertIn("       1  5.0000000000000e-01", self.read("model.geom"))
        self.assertIn("       2  1.5000000000000e+00", self.read("model.geom"))
        self.write("model.k", "*INCLUDE\nmissing.k\n*END\n")
        (self.work / "strict.k").unlink()
        self.assertEqual(self.run_commands(command).returncode, 2)
        self.assertFalse((self.work / "strict.k").exists())

    def test_greps_of_the_log_find_what_they_say(self):
        commands = block("guide.md", "grep skipped debug.morvex").splitlines()
        self.assertEqual(len(commands), 3)
        expected = ["*MAT_PIECEWISE_LINEAR_PLASTICITY . . . skipped", "       ihq:         6 . . . Changing to 1",
                    "       sfa: 1.000e+00 . . . Applied to data points"]
        self.convert("*MAT_PIECEWISE_LINEAR_PLASTICITY\n" + card(1) + "*HOURGLASS\n" + card(1, 6) + CLEAN)
        for command, line in zip(commands, expected):
            self.assertIn(line, self.run_commands(command).stdout)
        self.convert("*SECTION_SOLID\n" + card(1, 1) + "*END\n")
        for command in commands:
            self.assertEqual(self.run_commands(command).stdout, "")

    def test_sed_mends_blanks_and_carriage_returns(self):
        command = block("guide.md", "sed -E '/^\\*/s")
        self.write("model.k", "*MAT_ELASTIC_TITLE  \r\nsteel  \r\n" + card(1).replace("\n", "\r\n") + "*END\t\r\n")
        self.assertEqual(self.run_commands(command).returncode, 0)
        self.assertEqual(self.read("clean.k"), "*MAT_ELASTIC_TITLE\nsteel  \n" + card(1) + "*END\n")
        self.write("model.k", CLEAN.replace("ELASTIC \n", "ELASTIC\n"))
        self.run_commands(command)
        self.assertEqual(self.read("clean.k"), self.read("model.k"))

    def test_script_tells_a_conversion_by_status_and_log(self):
        command = block("scripting.md", "morvex >morvex.out")
        self.write("model.k", CLEAN)
        self.settings()
        self.assertEqual(self.run_commands(command).returncode, 0)
        self.assertNotEqual(self.run_commands(command).returncode, 0)  # the main deck is there: not answered with yes
        (self.work / "model.card").unlink()
        (self.work / "model.k").unlink()
        (self.work / "debug.morvex").unlink()
        self.assertNotEqual(self.run_commands(command).returncode, 0)

    def test_script_writes_over_an_existing_main_deck(self):
        commands = block("scripting.md", "rm -f model.card; morvex").splitlines()
        self.assertEqual(len(commands), 2)
        self.write("model.k", CLEAN)
        self.settings()
        for command in commands:
            self.write("model.card", "old\n")
            done = self.run_commands(command)
            self.assertEqual(done.returncode, 0)
            self.assertNotEqual(self.read("model.card"), "old\n", command)

    def test_control_file_of_a_script(self):
        self.write("model.k", CLEAN)
        self.run_commands(block("scripting.md", "cat >input.morvex"))
        self.assertIn("The following output files", self.run_commands("morvex").stdout)
        self.assertTrue((self.work / "model.sets").exists())

    def test_date_of_the_deck(self):
        self.write("model.k", CLEAN)
        os.utime(self.work / "model.k", (86400 * 365, 86400 * 365))  # 1 January 1971
        self.settings()
        self.assertEqual(self.run_commands(block("scripting.md", "SOURCE_DATE_EPOCH=")).returncode, 0)
        self.assertTrue(self.read("model.card").splitlines()[2].endswith(": 1/1/1971"))

    def many_decks(self):
        decks = self.work / "decks"
        decks.mkdir()
        for name in ("a.k", "a.key", "b.k"):
            (decks / name).write_text(CLEAN.replace("bar, 1-2", name))
        (decks / "notes.txt").write_text("no deck\n")
        self.settings(sourcefile="anything.k")
        self.write("convert-one", block("scripting.md", "#!/usr/bin/env bash\n# convert-one"))
        (self.work / "convert-one").chmod(0o755)

    def assert_all_converted(self, output):
        self.assertEqual(sorted(output.splitlines()),
                         ["a.k: converted, 1 warnings", "a.key: converted, 1 warnings", "b.k: converted, 1 warnings"])
        for name in ("a.k", "a.key", "b.k"):
            self.assertIn(name, self.read(f"runs/{name}/{name[0]}.card"))
        self.assertFalse((self.work / "runs" / "notes.txt").exists())

    def test_many_decks_on_one_machine(self):
        self.many_decks()
        command = block("scripting.md", "find decks -name '*.k' -print0")
        for _ in range(2):  # a second time, too
            done = self.run_commands(command)
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assert_all_converted(done.stdout)

    def test_many_decks_with_one_that_fails(self):
        self.many_decks()
        (self.work / "runs" / "b.k" / "b.geom").mkdir(parents=True)  # where the geometry file would be
        done = self.run_commands(block("scripting.md", "find decks -name '*.k' -print0"))
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("b.k: FAILED, see ", done.stdout)
        self.assertIn("a.k: converted", done.stdout)

    def test_many_decks_on_a_cluster(self):
        self.many_decks()
        self.write("convert-array", block("scripting.md", "#!/usr/bin/env bash\n#SBATCH"))
        self.program("sbatch", '[[ $1 =~ ^--array=1-([0-9]+)%8$ ]]\n'
                               'for ((task = 1; task <= BASH_REMATCH[1]; ++task)); do SLURM_ARRAY_TASK_ID=$task bash "$2"; done')
        done = self.run_commands(block("scripting.md", "find decks -name '*.k' -o"))
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assert_all_converted(done.stdout)

    # ---- morvex-look: the deck ---------------------------------------------------------------------------------------

    def test_look_finds_nothing_in_a_clean_deck(self):
        self.assertEqual(self.look(CLEAN), {})
        for command in (block("guide.md", "mkdir mymodel").splitlines()[-1], "morvex-look model.k", "morvex-look -a model.k"):
            self.settings()
            (self.work / "model.card").unlink(missing_ok=True)
            done = self.run_commands(command)
            self.assertEqual(done.returncode, 0, done.stdout)

    def test_look_finds_exponents_without_e(self):
        heading = "Exponents without E, which are lost (1)"
        for field in ("8.90000-3", "2.9+7", "2.D0", "2d4", "-1.5-12", ".5+3", "2-3"):
            for deck in ("*MAT_ELASTIC\n" + card(1, field, -1.0), "*MAT_ELASTIC_TITLE\nsteel\n" + card(1, 1, 1, 1, field),
                         "*MAT_ELASTIC\n1," + field + ",2\n", "*MAT_ELASTIC\r\n" + card(1, field).replace("\n", "\r\n"),
                         "*NODE\n" + f"{1:8}{field:>16}{-1.0:16}\n", "*ELEMENT_SPH\n" + f"{1:8}{1:8}{field:>16}\n",
                         "*DEFINE_CURVE\n" + card(1) + card(field, 1.0, width=20),
                         "*ELEMENT_SHELL_THICKNESS\n" + card(1, 1, 1, 2, 3, 4, width=8) + card(field, field, width=16)):
                self.assertIn(heading, self.look(deck), deck)

    def test_look_takes_no_pair_of_fields_for_an_exponent(self):
        for deck in ("*MAT_ELASTIC\n" + card("12345678.9", "-123456.78", "-3.0000000", "+2"),
                     "*DEFINE_CURVE_TITLE\n1.5-3\n" + card(1, 0, "1.00000000", "-2.0000000") +
                     card("12345678901234567.9", "-1234567890123456.78", width=20),
                     "*NODE\n" + f"{1:8}{'-123456789.12345'}{'-123456789.12345'}{'-1':>16}{'-1':>8}\n",
                     "*ELEMENT_SHELL_BETA\n" + card(1, 1, 1, 2, 3, 4, width=8) + card("0.1234567890123", "-12345678901.345", width=16),
                     "*PART\n1.5-3\n" + card(1, 1, 1), "*TITLE\n2.9+7\n", "$ 2.9+7\n", "*MAT_ELASTIC\n" + card("1E-3", "1.e+4"),
                     "*END\n" + card("2.9+7")):
            self.assertEqual(self.look(deck), {}, deck)

    def test_look_finds_cards_with_commas(self):
        told = self.look("*NODE\n1,0.0,1.0,2.0\n*PART\na, b\n" + card(1))
        self.assertEqual(told, {"Cards with commas, which are read by columns (1)": ["2: 1,0.0,1.0,2.0"]})

    def test_look_finds_parameters_and_include_files(self):
        told = self.look("*parameter\n$ &no\nr e       2.1\n*MAT_ELASTIC_TITLE\na & b\n" + card(1, "&e") + "*INCLUDE\nmesh.k\n")
        self.assertEqual(told, {"Parameters and include files, which are not followed (3)":
                                ["1: *parameter", "6: " + card(1, "&e").rstrip(), "7: *INCLUDE"]})

    def test_look_finds_keyword_lines_that_are_too_long(self):
        cut = "Keyword lines of 50 columns or more, which are cut after 49 (1)"
        line = "*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE_MOR"
        self.assertEqual(len(line), 49)
        self.assertEqual(self.look(line + "\n"), {})
        self.assertEqual(self.look(line + "TAR_ID\n"), {cut: ["1: " + line + "TAR_ID"]})
        swallow = "Keyword lines of 49 columns or more, which swallow the next keyword (1)"
        for keyword in ("*NODE", "*ELEMENT_SHELL", "*SET_SOLID_LIST", "*SET_PART"):
            self.assertNotIn(swallow, self.look(keyword.ljust(48) + "\n"))
            self.assertIn(swallow, self.look(keyword.ljust(49) + "\n"))
            self.assertIn(swallow, self.look(keyword.ljust(48) + "\r\n"))

    def test_keyword_lines_of_49_columns_swallow_the_next_keyword(self):
        behind = "*MAT_ELASTIC\n" + card(5, 1.0) + "*END\n"
        for columns, ending, found in ((48, "\n", True), (49, "\n", False), (48, "\r\n", False), (60, "\n", False)):
            for keyword in ("*NODE", "*SET_NODE_LIST", "*ELEMENT_SOLID"):
                self.convert(keyword.ljust(columns) + ending + card(1) + behind)
                self.assertEqual("*MAT_ELASTIC" in self.read("debug.morvex"), found, (keyword, columns))

    def test_look_finds_blanks_and_carriage_returns_after_keywords(self):
        blanks = "Keyword lines with blanks at their end (1)"
        self.assertEqual(self.look("*MAT_ELASTIC\n*SECTION_SOLID \n"), {blanks: ["2: *SECTION_SOLID |"]})
        told = self.look("*MAT_ELASTIC\r\n*SECTION_SOLID \t\r\n")
        self.assertEqual(told[blanks], ["2: *SECTION_SOLID \t|"])
        self.assertEqual(told["Keyword lines that end with CR LF (1)"], ["all of 2 are read with the CR"])

    def test_look_finds_long_formats_options_of_parts_and_coordinate_keywords(self):
        self.assertEqual(list(self.look("*NODE %\n*MAT_ELASTIC+\n*MAT_RIGID LONG=Y\n")),
                         ["Long or other formats, which are read in the usual columns (3)"])
        self.assertEqual(list(self.look("*PART_INERTIA\n*PART_COMPOSITE\n")),
                         ["Parts with options, whose cards are read as further parts (1)"])
        self.assertEqual(list(self.look("*DEFINE_COORDINATE_NODES\n*DEFINE_COORDINATE_VECTOR\n")),
                         ["Coordinate systems that end the boundary conditions and loads (1)"])

    def test_look_shows_five_places_or_all(self):
        deck = "*MAT_ELASTIC\n" + "1,2\n" * 7
        heading = "Cards with commas, which are read by columns (7)"
        self.assertEqual(self.look(deck)[heading], [f"{line}: 1,2" for line in range(2, 7)] + ["and 2 more"])
        self.assertEqual(len(self.look(deck, "-a")[heading]), 7)

    def test_look_ends_with_status_2_when_it_cannot_search(self):
        for arguments in ("", "nowhere.k", ".", "-x", "-a", "model.k model.k"):
            done = self.run_commands("morvex-look " + arguments)
            self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
            self.assertNotEqual(done.stderr, "")
        self.assertIn("morvex-look [-a] DECK", self.run_commands("morvex-look --help").stdout)

    # ---- morvex-look: the conversion ---------------------------------------------------------------------------------

    def test_look_finds_what_was_skipped_replaced_and_unused(self):
        for ending in ("\n", "\r\n"):
            deck = ("*KEYWORD\n*CONTROL_ENERGY\n" + card(2) + "*CONTROL_ENERGY\n" + card(2) + "*CONTROL_TERMINATION\n" +
                    card(1.0, 7) + "*HOURGLASS\n" + card(1, 6) + "*DEFINE_CURVE\n" + card(1, 0, 3.0) +
                    card(0.0, 1.0, width=20) + "*END\n").replace("\n", ending)
            self.convert(deck)
            told = self.look()
            told.pop("Keyword lines that end with CR LF (1)", None)
            self.assertEqual(told, {"Skipped keywords (1)": ["*CONTROL_ENERGY"],
                                    "Unused fields that are not zero (1)": ["*CONTROL_TERMINATION:    endcyc:         7"],
                                    "Replaced values (1)": ["*HOURGLASS:       ihq:         6 . . . Changing to 1 in Kestrune input"]})

    def test_look_finds_keywords_that_the_log_does_not_mention(self):
        heading = "Keywords that the log does not mention (1)"
        deck = "*LOAD_NODE_SET{0}\n" + card(1, 3, 1, 1.0) + "*SECTION_SOLID{0}\n" + card(1, 1) + "*END{0}\n*PART\n"
        for ending in ("", " ", "\t ", "   a comment"):
            for line_end in ("\n", "\r\n"):
                text = deck.format(ending).replace("\n", line_end)
                self.convert(text, icflag=0)
                self.assertEqual(self.look().get(heading), ["1: *LOAD_NODE_SET"], text)
                self.convert(text, icflag=1)
                self.assertNotIn(heading, self.look(), text)

    def test_look_finds_numbers_0_and_solids_without_an_eighth_node(self):
        deck = ("*NODE\n1              0.5            1.0            2.0\n*ELEMENT_SOLID\n" + card(7, 3, width=8) +
                card(1, 2, 4, 5, 11, 12, 14, 15, width=8) + "*PART\nbar\n1\n*SET_NODE_LIST\n1\n" + card(1) +
                "*DEFINE_CURVE\n" + card(3) + card(0.0, 0.0, width=20) + "*END\n")
        self.convert(deck)
        told = self.look()
        self.assertEqual([place.split(":")[0] for place in told["Number 0 in what was written (3)"]],
                         ["model.card", "model.geom", "model.sets"])
        self.assertEqual(len(told["Solids without an eighth node (2)"]), 2)

    def test_look_searches_a_deck_alone_when_the_log_is_of_another(self):
        self.convert("*CONTROL_ENERGY\n*END\n")
        self.write("other.k", "*CONTROL_ENERGY\n*END\n")
        done = self.run_commands("morvex-look other.k")
        self.assertEqual((done.returncode, done.stdout),
                         (0, "debug.morvex in this folder is not of other.k: only the deck was searched.\n"))

    def test_look_searches_a_deck_alone_when_the_question_was_not_answered_with_yes(self):
        self.convert("*CONTROL_ENERGY\n*END\n")
        self.assertIn("Skipped keywords (1)", self.look())
        self.assertTrue(self.run_commands("morvex").stdout.endswith("exiting\n"))
        self.assertEqual(self.read("debug.morvex"), "Opening model.k file\n")
        done = self.run_commands("morvex-look model.k")
        self.assertEqual((done.returncode, done.stdout),
                         (0, "The last run did not convert model.k: only the deck was searched.\n"))

    # ---- what the guide says of the program --------------------------------------------------------------------------

    def test_exponents_without_e_are_lost(self):
        self.convert("*MAT_ELASTIC\n" + card(1, "8.90000-3", "2.9+7", "2.D0") + "*END\n")
        self.assertIn(" Material Definition:          1          1  8.900e+00", self.read("model.card"))
        self.assertIn("!        e\n 2.900e+00\n!       pr\n 2.000e+00\n", self.read("model.card"))

    def test_lengths_of_titles(self):
        line = " Title                       : "
        for deck, title in (("x" * 44 + "\n", "x" * 44 + "\n Sub"), ("x" * 45 + "\n", "x" * 45 + "\n\n Sub"),
                            ("x" * 46 + "\n", "x" * 46 + "\n Sub"), ("x" * 50 + "\n", "x" * 46 + "\n Sub"),
                            ("x" * 44 + "\r\n", "x" * 44 + "\r\n\n Sub"), ("LS-DYNA deck\n", "Kestrune Input Deck\n Sub")):
            self.convert("*TITLE\n" + deck + "*END\n")
            self.assertIn((line + title).encode(), (self.work / "model.card").read_bytes())

    def test_failure_definition_of_a_titled_material_with_carriage_returns(self):
        for title, number in (("steel", "         0"), ("mild steel of the bar", "mild steel")):
            self.convert("*MAT_ELASTIC_TITLE\r\n" + title + "\r\n" + card(5, 1.0).replace("\n", "\r\n") + "*END\r\n")
            self.assertIn(" Failure definition:" + number, self.read("model.card"))

    def test_particle_count_needs_the_geometry_file(self):
        deck = "*ELEMENT_SPH\n" + card(1, 1, width=8) + card(2, 1, width=8) + "*END\n"
        for geomflag, count in ((1, 2), (0, 0)):
            self.convert(deck, geomflag=geomflag, defflag=1, sphflag=1)
            self.assertIn(f" Initial number of SPH per processor  : {count:10}", self.read("model.card"))

    def test_standards_file_loses_a_label_and_its_empty_line(self):
        for deck, label in (("*END\n", " SPH deactivation:"), ("*CONTROL_SPH\n" + card(1, 7) + "*END\n", " SPH deactivation velocity:")):
            self.convert(deck, defflag=1, sphflag=1)
            self.assertIn("\n\n" + label, self.read("model.card"))
            self.convert(deck, defflag=1, sphflag=1, stndflag=1)
            self.assertNotIn(label, self.read("model.card"))
            self.assertRegex(self.read("model.card"), r"renormalization:.*\n Initial number of SPH")

    def test_what_a_standards_file_supplies(self):
        left_out = (" Status File Switch", " Element deletion flag", " Particle conversion activation", " Hourglass stabilization",
                    "Global memory size", " Status report frequency", "Element history  ", "Binary history file format",
                    " Contact scheme", " Global smoothing length limits", " SPH max number of nearest", " Plot file type",
                    "Surface partition")
        kept = (" SPH velocity gradient", " Repartition for contact", " Termination time", " SPH deactivation timestep")
        self.convert("*END\n", defflag=1, sphflag=1, plotflag=1)
        alone = self.read("model.card")
        self.convert("*END\n", defflag=1, sphflag=1, plotflag=1, stndflag=2)
        included = self.read("model.card")
        for line in left_out:
            self.assertIn(line, alone)
            self.assertNotIn(line, included)
        for line in kept:
            self.assertIn(line, included)
        self.assertEqual(alone.count("\n Dump ") - included.count("\n Dump "), 15)
        self.convert("*END\n", stndflag=1)
        self.assertNotIn("! Contact Section", self.read("model.card"))
        self.assertNotIn("! Global Contact", self.read("model.card"))

    def test_ties_are_rounded_to_even(self):
        for value, written in (("0.125", "0.12"), ("0.375", "0.38")):
            self.convert("*HOURGLASS\n" + card(3, 1, value) + "*END\n")
            self.assertIn(f" Hourglass formulation definition:          3       1    {written}", self.read("model.card"))

    def test_what_the_log_does_not_account_for(self):
        self.convert("*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID\n         1title\n" + card(1, 2) + card(1.0) + card(1.0) +
                     "*MAT_STEINBERG_TITLE\nsteel\n" + card(1) + card(1) + card(1) + card(1) + "*END\n", contflag=2)
        self.assertIn("Tied node definition", self.read("model.card"))
        self.assertNotIn("*CONTACT", self.read("debug.morvex"))
        self.assertNotIn("*MAT_STEINBERG", self.read("debug.morvex"))
        # a card is missing: the next keyword is taken for it
        self.convert("*CONTROL_TERMINATION\n*CONTROL_TIMESTEP\n" + card(1.0) + "*END\n")
        self.assertNotIn("*CONTROL_TIMESTEP", self.read("debug.morvex"))
        # cards of an option put the next part out of step
        self.convert("*PART_INERTIA\nbar\n" + card(1, 1, 1) + card(1) + card(1) + card(1) + "*PART\nplate\n" + card(2, 2, 2) +
                     "*END\n")
        self.assertNotIn("\n*PART .", self.read("debug.morvex"))
        # what is read and is not in the deck
        self.convert("*CONTROL_TERMINATION\n" + card(7.5) + "*CONTROL_HOURGLASS\n" + card(5, 0.3) +
                     "*BOUNDARY_SPC_SET_ID\n         1title\n" + card(3, 0, 1) + card(4, 0, 1) + "*END\n")
        for field in ("endtim", "ihq", "qh"):
            self.assertNotIn(field, self.read("debug.morvex"))
        self.assertEqual(self.read("debug.morvex").count("*BOUNDARY_SPC_SET_ID"), 1)
        self.assertNotIn(" Hourglass stabilization", self.read("model.card"))
        self.assertNotIn("7.500e+00", self.read("model.card"))


if __name__ == "__main__":
    unittest.main()
