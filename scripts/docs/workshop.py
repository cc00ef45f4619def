"""Running what a page prints, in a folder of its own that looks like the source tree."""

import os
import pathlib
import shutil
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


class Workshop:
    """A scratch folder with a copy of examples/ and the program under both names that pages use."""

    def __init__(self, build):
        self._folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self._folder.name)
        results = shutil.ignore_patterns("*_results.*", "*.html")
        shutil.copytree(ROOT / "examples", self.path / "examples", ignore=results)
        (self.path / "build").mkdir()
        (self.path / "build/release").symlink_to(pathlib.Path(build).resolve())

    def shown_by(self, command, stdin=None):
        """The lines that the shell command prints on both streams."""
        environment = {**os.environ, "PATH": f"{self.path}/build/release/bin:{os.environ['PATH']}", "LC_ALL": "C.UTF-8"}
        run = subprocess.run(["bash", "-c", command], cwd=self.path, env=environment, input=stdin, encoding="utf-8",
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=300)
        return run.stdout.rstrip("\n").split("\n")

    def close(self):
        self._folder.cleanup()
