#!/usr/bin/env python3
"""Holds the three forms of `tavo check` against each other, and against the schemas of JSON and SARIF.

usage: reports.py PROGRAM SCHEMA FOLDER...      the folders hold descriptions

With SARIF_SCHEMA in the environment, a file with the schema of SARIF 2.1.0, the logs must also be valid
by that one.
"""

import json
import os
import re
import subprocess
import sys
from pathlib import Path
from urllib.parse import unquote

import jsonschema

# What the standard demands of the properties that are used here: type, and whether it must be there.
REGION = {"startLine": (int, True), "startColumn": (int, False)}
LOCATION = {"physicalLocation": ({"artifactLocation": ({"uri": (str, True)}, True),
                                  "region": (REGION, False)}, True)}
MESSAGE = {"text": (str, True)}
LEVEL = ("none", "note", "warning", "error")
RESULT = {"ruleId": (str, True), "ruleIndex": (int, True), "level": (LEVEL, True),
          "message": (MESSAGE, True), "locations": ([LOCATION], True)}
DRIVER = {"name": (str, True), "version": (str, True), "rules": ([{"id": (str, True)}], True)}
NOTIFICATION = {"level": (LEVEL, True), "message": (MESSAGE, True)}
INVOCATION = {"executionSuccessful": (bool, True), "exitCode": (int, True),
              "toolExecutionNotifications": ([NOTIFICATION], True)}
RUN = {"tool": ({"driver": (DRIVER, True)}, True), "invocations": ([INVOCATION], True),
       "columnKind": (("utf16CodeUnits", "unicodeCodePoints"), True), "results": ([RESULT], True)}
LOG = {"$schema": (str, True), "version": (("2.1.0",), True), "runs": ([RUN], True)}


def check_shape(value, shape):
    if isinstance(shape, dict):
        assert set(value) <= set(shape), value
        for name, (inner, is_required) in shape.items():
            assert name in value or not is_required, (name, value)
            if name in value:
                check_shape(value[name], inner)
    elif isinstance(shape, list):
        for element in value:
            check_shape(element, shape[0])
    elif isinstance(shape, tuple):
        assert value in shape, value
    else:
        assert type(value) is shape and (shape is not int or value >= 0), value


def run(program, form, files):
    result = subprocess.run([program, "check", "--format", form, *files], stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE)
    return result.returncode, result.stdout.decode(), result.stderr.decode()


def main(program, schema_file, *folders):
    files = sorted(str(path) for folder in folders for path in Path(folder).glob("*.a2l"))
    files.append("no where.a2l")
    code, report, said = run(program, "json", files)
    assert said == "" and code == 3, said
    schema = json.loads(Path(schema_file).read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    document = json.loads(report)
    jsonschema.Draft202012Validator(schema).validate(document)
    messages = [m for file in document["files"] for m in file["messages"]]
    members = {name for value in [document, *document["files"], *messages] for name in value}
    listed = {name for part in [schema, *schema["$defs"].values()] for name in part.get("properties", {})}
    assert members == listed, members ^ listed
    assert [file["file"] for file in document["files"]] == files
    for name in ("error", "warning"):
        count = sum(m["severity"] == name for m in messages)
        assert count == document[name + "s"] == sum(f[name + "s"] for f in document["files"])

    # The same as compilers say it.
    gcc_code, _, said = run(program, "gcc", files)
    lines = re.findall(r"^(\S.*?: (?:error|warning|note): .*)$", said, re.MULTILINE)
    expected = [":".join(str(m[name]) for name in ("file", "line", "column") if name in m)
                for m in messages]
    expected = [f"{place or 'tavo'}: {m['severity']}: {m['text']}" for place, m in zip(expected, messages)]
    escaped = [re.sub(r"[\x00-\x08\x0b-\x1f\x7f-\x9f]", lambda c: f"\\x{ord(c[0]):02x}", e)
               .replace("\t", " ").replace("\n", "\\n") for e in expected]
    assert gcc_code == code and lines == escaped, set(lines) ^ set(escaped)

    code, report, said = run(program, "sarif", files)
    assert said == "" and code == 3, said
    log = json.loads(report)
    check_shape(log, LOG)
    if "SARIF_SCHEMA" in os.environ:
        sarif = json.loads(Path(os.environ["SARIF_SCHEMA"]).read_text())
        jsonschema.validators.validator_for(sarif)(sarif).validate(log)
    (one,) = log["runs"]
    rules = [rule["id"] for rule in one["tool"]["driver"]["rules"]]
    assert len(set(rules)) == len(rules)
    about_files = [m for m in messages if "file" in m]
    assert len(one["results"]) == len(about_files) > 0
    for result, message in zip(one["results"], about_files):
        place = result["locations"][0]["physicalLocation"]
        uri = place["artifactLocation"]["uri"]
        assert unquote(uri.removeprefix("file://")) == message["file"] and " " not in uri
        region = place.get("region", {})
        assert region.get("startLine") == message.get("line")
        assert region.get("startColumn") == message.get("column")
        assert rules[result["ruleIndex"]] == result["ruleId"] and result["level"] == message["severity"]
        assert result["message"]["text"].startswith(message["text"])
    (invocation,) = one["invocations"]
    assert not invocation["executionSuccessful"] and len(invocation["toolExecutionNotifications"]) == 1


main(*sys.argv[1:])
