#!/usr/bin/env python3
"""Checks that what the documents show is what tavo does. CONVERTER is a host of the library. PROGRAM
reads the wide dialect; without it, what shows that dialect isn't checked.

usage: documents.py examples|commands|failures|links|words SOURCES CONVERTER [PROGRAM]

examples  Each `a2l` block converts to the `ini` block that follows it, and each description in
          examples/ to the configuration next to it, of which any other `ini` block is a part. The
          program reads a block marked `wide` and a description with a listing (`.json`) next to it,
          which the library refuses.
commands  Each `sh` block marked `run` runs in a folder with the examples, the build, and a home of its
          own, and writes the configurations that the examples have, in docs/many-files.md all of them;
          every other line of an `sh` block is a command of .ci/run.
failures  Each row of a table with a column "Message" has the message that it shows, in the page of the
          strict dialect from the library, in the others from the program; and each row of a table with
          a column "Wide writes" is what both dialects make of its text.
links     Each link to a page leads to one, in the sources and in the installed tree, which is where
          INSTALLED_PAGES in the environment says.
words     Each keyword that a parser knows is on the page of its dialect.

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
PROGRAM = sys.argv[4] if len(sys.argv) > 4 else None
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
    """What the library makes of a description: the configuration, or None, and the diagnostics."""
    (folder / "d.a2l").write_text(description)
    (folder / "d.ini").unlink(missing_ok=True)
    run = subprocess.run([CONVERTER, "d.a2l", "d.ini"], cwd=folder, text=True,
                         stdout=subprocess.PIPE)
    written = (folder / "d.ini").read_text() if run.returncode == 0 else None
    return written, "".join(re.findall(r"^-: (.*\n)", run.stdout, re.MULTILINE))


def convert_wide(description, folder):
    """The same of the program."""
    (folder / "d.a2l").write_text(description)
    (folder / "d.ini").unlink(missing_ok=True)
    run = subprocess.run([PROGRAM, "convert", "d.a2l"], cwd=folder, text=True,
                         stderr=subprocess.PIPE)
    written = (folder / "d.ini").read_text() if run.returncode == 0 else None
    return written, run.stderr


def check_blocks(document, folder):
    count = 0
    text = document.read_text()
    found = blocks(text)
    for (kind, description), (next_kind, expected) in zip(found, found[1:]):
        if kind not in ("a2l", "a2l wide") or next_kind != "ini" or (kind != "a2l" and not PROGRAM):
            continue
        count += 1
        is_wide = kind != "a2l"
        written, messages = (convert_wide if is_wide else convert)(description, folder)
        if written is None or (messages and not is_wide):
            fail(f"{document.name}: {messages}")
        elif REWRITE:
            head, tail = text.split(description, 1)
            tail = tail.replace(f"```ini\n{expected}```", f"```ini\n{written.rstrip()}\n```", 1)
            text = head + description + tail
            document.write_text(text)
        elif written.rstrip() != expected.rstrip():
            fail(f"{document.name}: the configuration is\n{written}")
    return count


def check_excerpts(document, configurations):
    """Fails for an `ini` block of its own that none of these configurations contains."""
    found = blocks(document.read_text())
    for (kind, _), (next_kind, excerpt) in zip(found, found[1:]):
        if next_kind == "ini" and not kind.startswith("a2l"):
            if not any(excerpt in configuration for configuration in configurations):
                fail(f"{document.name}: no example converts to\n{excerpt}")


def compare(path, content, description):
    if REWRITE:
        path.write_text(content)
    elif content != path.read_text():
        fail(f"{path.name} isn't what tavo makes of {description.name}")


def check_examples(sources, folder):
    count = sum(check_blocks(document, folder) for document in documents(sources))
    configurations = [path.read_text() for path in sources.glob("examples/*.ini")]
    for document in documents(sources):
        check_excerpts(document, configurations)
    for description in sorted(sources.glob("examples/*.a2l")):
        count += 1
        content = description.read_text()
        configuration = description.with_suffix(".ini")
        listing = description.with_suffix(".json")
        written, messages = convert(content, folder)
        if listing.exists():
            if written is not None:
                fail(f"the library reads {description.name}")
            if not PROGRAM:
                continue
            written, messages = convert_wide(content, folder)
            summary = messages.splitlines()[-1].replace("d.ini", configuration.name)
            if summary not in (sources / "README.md").read_text():
                fail(f"README.md doesn't show '{summary}'")
            run = subprocess.run([PROGRAM, "list", "--quiet", "--format", "json", "d.a2l"], cwd=folder,
                                 text=True, check=True, stdout=subprocess.PIPE)
            compare(listing, run.stdout, description)
            messages = "" if written is not None else messages
        if written is None or messages:
            fail(f"{description.name}: {messages}")
        else:
            compare(configuration, written, description)
    return count


def check_written(document, folder, examples):
    written = {path.name: path.read_bytes() for path in folder.rglob("*.ini")}
    expected = {path.name: path.read_bytes() for path in examples.glob("*.ini")}
    for name, content in written.items():
        if content != expected[name]:
            fail(f"{document.name}: {name} isn't that of the example")
    if document.stem == "many-files" and written.keys() != expected.keys():
        fail(f"{document.name}: it doesn't write all configurations")


def check_commands(sources, folder):
    count = 0
    known = set((sources / ".ci/run").read_text().split("\n"))
    for document in documents(sources):
        for kind, text in blocks(document.read_text()):
            if kind == "sh run":
                count += 1
                copy = folder / f"{document.stem}{count}"
                shutil.copytree(sources / "examples", copy / "examples")
                for written in copy.rglob("*.ini"):
                    written.unlink()
                (copy / "build").mkdir()
                (copy / "build/release").symlink_to(Path(CONVERTER).parent.parent)
                run = subprocess.run(["bash", "-euxo", "pipefail", "-c", text], cwd=copy, text=True,
                                     env={**os.environ, "HOME": str(copy)},
                                     stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                if run.returncode != 0:
                    fail(f"{document.name}: {run.stdout}")
                check_written(document, copy, sources / "examples")
            elif kind == "sh":
                for line in text.splitlines():
                    command = line.partition("#")[0].strip()
                    count += 1
                    if command and command not in known:
                        fail(f"{document.name}: nothing runs '{command}'")
    return count


IN_MODULE = "/begin PROJECT p \"\" /begin MODULE m \"\"\n{}\n/end MODULE /end PROJECT\n"
IN_MEASUREMENT = "/begin MEASUREMENT n \"\" UBYTE c 0 0 0 1 {} /end MEASUREMENT"
PLACES = {
    "file": "{}\n",
    "MODULE": IN_MODULE,
    "MEASUREMENT": IN_MODULE.format(IN_MEASUREMENT),
    "limits": IN_MODULE.format('/begin MEASUREMENT n "" ULONG NO_COMPU_METHOD 0 0 {} /end MEASUREMENT'),
    "MOD_PAR": IN_MODULE.format("/begin MOD_PAR \"\" {} /end MOD_PAR"),
    "COMPU_METHOD": IN_MODULE.format(
        "/begin COMPU_METHOD c \"\" RAT_FUNC \"%5.1\" \"s\" {} /end COMPU_METHOD"),
    "conversion": IN_MODULE.format(
        '/begin COMPU_METHOD c "" {} /end COMPU_METHOD ' + IN_MEASUREMENT.replace("{}", "")),
    "CHARACTERISTIC": IN_MODULE.format(
        "/begin CHARACTERISTIC c \"\" VALUE 0 r 0 c 0 1 {} /end CHARACTERISTIC"),
    "INSTANCE": IN_MODULE.format(
        '/begin TYPEDEF_MEASUREMENT t "" UBYTE NO_COMPU_METHOD 0 0 0 1 /end TYPEDEF_MEASUREMENT '
        '/begin INSTANCE i "" t 0 {} /end INSTANCE'),
    "IF_DATA XCP": IN_MODULE.format("/begin IF_DATA XCP {} /end IF_DATA"),
}


def rows(page, column):
    """The rows of all tables of a page that have such a column: place, text, and what follows."""
    is_wanted = False
    for line in page.read_text().splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if not line.startswith("|"):
            is_wanted = False
        elif column in cells and cells[0] == "Place":
            is_wanted = True
        elif is_wanted and not line.startswith("|--"):
            yield [cell.replace("`", "") for cell in cells[:4]]


def check_messages(page, folder):
    count = 0
    for place, text, message, *_ in rows(page, "Message"):
        count += 1
        description = PLACES[place].replace("{}", text)
        if page.name == "dialect-strict.md":
            written, messages = convert(description, folder)
            is_shown = written is None and f"): {message}\n" in messages
        else:
            written, messages = convert_wide(description, folder)
            kind = "error" if written is None else "warning"
            is_shown = re.search(rf"^\S+: {kind}: {re.escape(message)}$", messages, re.MULTILINE)
        if not is_shown:
            fail(f"{page.name}: {text} in {place}: {messages or 'no message'}")
    return count


def check_differences(page, folder):
    count = 0
    for place, text, *lines in rows(page, "Wide writes"):
        count += 1
        description = PLACES[place].replace("{}", text)
        written = [convert(description, folder)[0], convert_wide(description, folder)[0]]
        for result, expected, other in zip(written, lines, reversed(lines)):
            if expected == "refused":
                is_right = result is None
            elif result is None:
                is_right = False
            else:
                found = result.splitlines()
                is_right = expected in (*found, "") and (other == "" or other not in found)
            if not is_right:
                fail(f"{page.name}: {text} in {place}: '{expected}' isn't what is written:\n{result}")
    return count


def check_failures(sources, folder):
    count = check_messages(sources / "docs/dialect-strict.md", folder)
    if PROGRAM:
        count += check_differences(sources / "docs/dialect-wide.md", folder)
        for page in ("docs/dialect-wide.md", "docs/output-format.md"):
            count += check_messages(sources / page, folder)
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
    parsers = [*sources.glob("src/a2l/blocks/*.cpp"), sources / "src/a2l/file.cpp"]
    strict = {word for parser in parsers for word in re.findall(r"\bT_(\w+)", parser.read_text())}
    strict -= {"BEGIN", "END", "INCLUDE", "EOF", "ERROR", "NONE", "IDENTIFIER", "INTEGER", "DOUBLE",
               "STRING"}
    table = (sources / "src/asap2/options.def").read_text()
    wide = set(re.findall(r"^TAVO_\w+\(\w+, (\w+)", table, re.MULTILINE))
    for used, name in ((strict, "docs/dialect-strict.md"), (wide, "docs/dialect-wide.md")):
        known = set(re.findall(r"[\w/]+", (sources / name).read_text()))
        for word in sorted(used - known):
            fail(f"{name} lacks {word}")
    return min(len(strict), len(wide))


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
