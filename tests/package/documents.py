#!/usr/bin/env python3
"""Checks that what the documents show is what the library does. CONVERTER is a host of it.

usage: documents.py examples|commands|failures|links|words SOURCES CONVERTER

examples  Each `a2l` block converts to the `ini` block that follows it, and each description in
          examples/ to the configuration beside it.
commands  Each `sh` block marked `run` runs in a folder with the examples, the build, and a home of its
          own; every other line of an `sh` block is a command of .ci/run.
failures  Each row of the table "What fails" in docs/dialect.md gives the message that it tells.
links     Each link to a page leads to one, in the sources and in the installed tree, which is where
          INSTALLED_PAGES in the environment says.
words     Each keyword that a parser knows stands in docs/dialect.md.

With TAVO_REWRITE_GOLDEN set in the environment, `examples` rewrites what it would compare.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

CONVERTER = sys.argv[3]
REWRITE = "TAVO_REWRITE_GOLDEN" in os.environ
failures = 0


def fail(text):
    global failures
    failures += 1
    print(text)


def documents(sources):
    return sorted(sources.glob("*.md")) + sorted(sources.glob("docs/*.md"))


def blocks(text):
    """The fenced blocks: their info strings and texts, in order."""
    return re.findall(r"^```(.*)\n((?:.*\n)*?)```$", text, re.MULTILINE)


def convert(description, folder):
    """The configuration, or None, and the diagnostics."""
    (folder / "d.a2l").write_text(description)
    (folder / "d.ini").unlink(missing_ok=True)
    run = subprocess.run([CONVERTER, "d.a2l", "d.ini"], cwd=folder, text=True,
                         stdout=subprocess.PIPE)
    written = (folder / "d.ini").read_text() if run.returncode == 0 else None
    return written, "".join(re.findall(r"^-: (.*\n)", run.stdout, re.MULTILINE))


def check_examples(sources, folder):
    count = 0
    for document in documents(sources):
        text = document.read_text()
        found = blocks(text)
        for (kind, description), (next_kind, expected) in zip(found, found[1:]):
            if (kind, next_kind) != ("a2l", "ini"):
                continue
            count += 1
            written, messages = convert(description, folder)
            if written is None or messages:
                fail(f"{document.name}: {messages}")
            elif REWRITE:
                head, tail = text.split(description, 1)
                tail = tail.replace(f"```ini\n{expected}```", f"```ini\n{written.rstrip()}\n```", 1)
                text = head + description + tail
                document.write_text(text)
            elif written.rstrip() != expected.rstrip():
                fail(f"{document.name}: the configuration is\n{written}")
    for description in sorted(sources.glob("examples/*.a2l")):
        count += 1
        written, messages = convert(description.read_text(), folder)
        configuration = description.with_suffix(".ini")
        if written is None or messages:
            fail(f"{description.name}: {messages}")
        elif REWRITE:
            configuration.write_text(written)
        elif written != configuration.read_text():
            fail(f"{configuration.name} isn't what {description.name} gives")
    return count


def check_commands(sources, folder):
    count = 0
    known = set((sources / ".ci/run").read_text().split("\n"))
    for document in documents(sources):
        for kind, text in blocks(document.read_text()):
            if kind == "sh run":
                count += 1
                copy = folder / f"{document.stem}{count}"
                shutil.copytree(sources / "examples", copy / "examples")
                (copy / "build").mkdir()
                (copy / "build/release").symlink_to(Path(CONVERTER).parent.parent)
                run = subprocess.run(["bash", "-euxo", "pipefail", "-c", text], cwd=copy, text=True,
                                     env={**os.environ, "HOME": str(copy)},
                                     stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                if run.returncode != 0:
                    fail(f"{document.name}: {run.stdout}")
            elif kind == "sh":
                for line in text.splitlines():
                    command = line.partition("#")[0].strip()
                    count += 1
                    if command and command not in known:
                        fail(f"{document.name}: nothing runs '{command}'")
    return count


IN_MODULE = "/begin PROJECT p \"\" /begin MODULE m \"\"\n{}\n/end MODULE /end PROJECT\n"
PLACES = {
    "file": "{}\n",
    "MODULE": IN_MODULE,
    "MEASUREMENT": IN_MODULE.format("/begin MEASUREMENT n \"\" UBYTE c 0 0 0 1 {} /end MEASUREMENT"),
    "MOD_PAR": IN_MODULE.format("/begin MOD_PAR \"\" {} /end MOD_PAR"),
    "COMPU_METHOD": IN_MODULE.format(
        "/begin COMPU_METHOD c \"\" RAT_FUNC \"%5.1\" \"s\" {} /end COMPU_METHOD"),
    "CHARACTERISTIC": IN_MODULE.format(
        "/begin CHARACTERISTIC c \"\" VALUE 0 r 0 c 0 1 {} /end CHARACTERISTIC"),
    "IF_DATA XCP": IN_MODULE.format("/begin IF_DATA XCP {} /end IF_DATA"),
}


def check_failures(sources, folder):
    count = 0
    dialect = (sources / "docs/dialect.md").read_text()
    section = dialect.split("## What fails\n")[1].split("\n## ")[0]
    for line in section.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if not line.startswith("| `") or len(cells) != 4:
            continue
        count += 1
        place, text, message = (cell.replace("`", "") for cell in cells[:3])
        written, messages = convert(PLACES[place].replace("{}", text), folder)
        if written is not None or f"): {message}\n" not in messages:
            fail(f"{text} in {place}: {messages or 'no failure'}")
    return count


def check_links(sources, folder):
    del folder
    count = 0
    for pages in (sources, Path(os.environ["INSTALLED_PAGES"])):
        for document in documents(pages):
            for target in re.findall(r"\]\(([^)#:]+)[^):]*\)", document.read_text()):
                count += 1
                if not (document.parent / target).exists():
                    fail(f"{document}: leads to {target}")
    return count


def check_words(sources, folder):
    del folder
    dialect = (sources / "docs/dialect.md").read_text()
    known = set(re.findall(r"[\w/]+", dialect))
    parsers = [*sources.glob("src/a2l/blocks/*.cpp"), sources / "src/a2l/file.cpp"]
    used = {word for parser in parsers for word in re.findall(r"\bT_(\w+)", parser.read_text())}
    tokens = {"BEGIN", "END", "INCLUDE", "EOF", "ERROR", "NONE", "IDENTIFIER", "INTEGER", "DOUBLE",
              "STRING"}
    for word in sorted(used - tokens - known):
        fail(f"docs/dialect.md lacks {word}")
    return len(used - tokens)


CHECKS = {
    "examples": check_examples,
    "commands": check_commands,
    "failures": check_failures,
    "links": check_links,
    "words": check_words,
}

if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as temporary:
        checked = CHECKS[sys.argv[1]](Path(sys.argv[2]), Path(temporary))
    if checked == 0:
        fail("nothing was checked")
    print(f"{checked} checked, {failures} failures")
    sys.exit(failures > 0)
