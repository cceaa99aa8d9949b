#!/usr/bin/env python3
"""archives_test.py TEST: the archives and sums that tools/release writes, and what it refuses. The environment names the
source."""
import gzip
import importlib.machinery
import importlib.util
import os
import pathlib
import re
import shutil
import subprocess
import tarfile
import tempfile
import time
import unittest
import zipfile

SOURCE = pathlib.Path(os.environ["MORVEX_SOURCE"])
TIME = 1709640001  # 2024-03-05 12:00:01 UTC: an odd second, which a .zip cannot hold


def load_release():
    loader = importlib.machinery.SourceFileLoader("release", str(SOURCE / "tools/release"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("release", loader))
    loader.exec_module(module)
    return module


release = load_release()


class Tests(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.scratch = pathlib.Path(scratch.name)

    def folder(self, below, names, umask):
        """A folder "set" with these files, made in this order."""
        folder = self.scratch / below / "set"
        before = os.umask(umask)
        for name in names:
            file = folder / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_bytes(b"text of " + name.encode() + b"\r\n" * 100)
            if name.startswith("bin/"):
                file.chmod(file.stat().st_mode | 0o100)
        os.umask(before)
        return folder

    def archives(self, write):
        """An archive of the same files twice, in different surroundings."""
        names = ["a.txt", "bin/program", "B.txt", "ä.txt", "deep/er/file", "a/b", "a-b"]
        for below, order, umask, zone in (("x", names, 0o022, "UTC"), ("longer/y", names[::-1], 0o077, "XYZ-14")):
            os.environ["TZ"] = zone
            time.tzset()
            folder = self.folder(below, order, umask)
            os.utime(folder / "a.txt", (len(below), len(below) * 1000))
            archive = folder.parent / "archive"
            write(archive, folder, TIME)
            yield archive

    def test_a_tar_depends_on_its_files_alone(self):
        first, second = self.archives(release.write_tar)
        self.assertEqual(first.read_bytes(), second.read_bytes())
        self.assertEqual(first.read_bytes()[:10], b"\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\xff")  # no name, no time
        with tarfile.open(first) as tar:
            entries = tar.getmembers()
            self.assertEqual(tar.extractfile("set/B.txt").read(), b"text of B.txt" + b"\r\n" * 100)
        self.assertEqual([entry.name for entry in entries], [
            "set/B.txt", "set/a-b", "set/a.txt", "set/a/b", "set/bin/program", "set/deep/er/file", "set/ä.txt"])
        self.assertEqual({(entry.uid, entry.gid, entry.uname, entry.gname, entry.mtime) for entry in entries},
                         {(0, 0, "root", "root", TIME)})
        self.assertEqual([entry.mode for entry in entries], [0o644] * 4 + [0o755] + [0o644] * 2)

    def test_a_zip_depends_on_its_files_alone(self):
        first, second = self.archives(release.write_zip)
        self.assertEqual(first.read_bytes(), second.read_bytes())
        with zipfile.ZipFile(first) as packed:
            entries = packed.infolist()
            self.assertEqual(packed.read("set/B.txt"), b"text of B.txt" + b"\r\n" * 100)
        self.assertEqual([entry.filename for entry in entries], [
            "set/B.txt", "set/a-b", "set/a.txt", "set/a/b", "set/bin/program", "set/deep/er/file", "set/ä.txt"])
        self.assertEqual({entry.date_time for entry in entries}, {(2024, 3, 5, 12, 0, 0)})
        self.assertEqual([entry.external_attr >> 16 & 0o777 for entry in entries], [0o644] * 4 + [0o755] + [0o644] * 2)

    def test_long_names_are_packed_whole(self):
        name = "expected/" + "x" * 130 + "  |"
        folder = self.folder("long", [name], 0o022)
        release.write_tar(self.scratch / "long.tar.gz", folder, TIME)
        with tarfile.open(self.scratch / "long.tar.gz") as tar:
            self.assertEqual(tar.getnames(), ["set/" + name])

    def test_sha256sum_checks_the_sums(self):
        folder = self.folder("sums", ["one", "two"], 0o022)
        release.write_sums(folder)
        checked = subprocess.run(["sha256sum", "--check", "--strict", "SHA256SUMS"], cwd=folder, stdout=subprocess.PIPE,
                                 check=True)
        self.assertEqual(checked.stdout, b"one: OK\ntwo: OK\n")
        (folder / "two").write_bytes(b"changed")
        checked = subprocess.run(["sha256sum", "--check", "SHA256SUMS"], cwd=folder, stdout=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL, check=False)
        self.assertEqual((checked.returncode, checked.stdout), (1, b"one: OK\ntwo: FAILED\n"))

    def checkout(self):
        """A checkout of a project that has nothing but tools/release."""
        project = self.scratch / "project"
        (project / "tools").mkdir(parents=True)
        shutil.copy(SOURCE / "tools/release", project / "tools")
        git = ["git", "-C", project, "-c", "user.name=x", "-c", "user.email=x@example.org"]
        subprocess.run([*git, "init", "--quiet"], check=True)
        subprocess.run([*git, "add", "."], check=True)
        subprocess.run([*git, "commit", "--quiet", "--message=x"], check=True)
        return project

    def refused(self, project, complaint, *arguments):
        result = subprocess.run([project / "tools/release", *arguments], stderr=subprocess.PIPE, text=True, check=False)
        self.assertEqual(result.returncode, 1)
        self.assertIn(complaint, result.stderr)

    def test_a_changed_file_is_refused(self):
        project = self.checkout()
        with open(project / "tools/release", "a") as file:
            file.write("# changed\n")
        self.refused(project, "changes that are not committed")

    def test_an_unknown_file_is_refused(self):
        project = self.checkout()
        (project / "new.cpp").touch()
        self.refused(project, "files that git does not know")
        self.refused(project, "files that git does not know", "--twice")

    def test_a_folder_that_is_there_is_refused_and_kept(self):
        project = self.checkout()
        kept = self.folder("mine", ["kept"], 0o022)
        self.refused(project, "is there already", kept)
        self.assertTrue((kept / "kept").exists())

    def test_the_page_names_the_files_of_this_version(self):
        version = re.search(r"morvex_version = ([0-9.]+);", (SOURCE / "src/reader/run.h").read_text())[1]
        page = (SOURCE / "docs/release.md").read_text()
        named = re.findall(r"morvex(?:-deck)?[-_]([0-9]+\.[0-9]+)[-_]", page)
        self.assertGreater(len(named), 6)
        self.assertEqual(set(named), {version})

    def test_a_source_without_history_is_refused(self):
        (self.scratch / "tools").mkdir()
        shutil.copy(SOURCE / "tools/release", self.scratch / "tools")
        self.refused(self.scratch, "no checkout")


if __name__ == "__main__":
    unittest.main()
