"""The schema of the JSON against a validator that knows nothing of sil: what `sil json` prints of every example fits
it, and what `sil from-json` refuses for its shape does not.

usage: schema_check.py SCHEMA EXAMPLES SIL [WORD...], the words being the command
"""

import json
import pathlib
import subprocess
import sys

import jsonschema

SERVICE = {"type": "kmt_svc_scan", "name": "S", "invocations": []}


def with_values(type_name, values):
    attribute = {"type": type_name, "name": "A", "values": values}
    return {"sil": 1, "services": [SERVICE | {"invocations": [{"attributes": [attribute]}]}]}


REFUSED = {
    "no version": {"services": [SERVICE]},
    "another version": {"sil": 2, "services": [SERVICE]},
    "unknown member": {"sil": 1, "services": [SERVICE], "servces": []},
    "service without a name": {"sil": 1, "services": [{"type": "kmt_svc_scan", "invocations": []}]},
    "comment without its mark": {"sil": 1, "comment": "text\n", "services": [SERVICE]},
    "unknown form": {
        "sil": 1,
        "header": {"form": "*", "version": "4.2.00", "identifier": "x", "attributes": []},
        "services": [],
    },
    "half a number": with_values("integer", [1.5]),
    "integer out of range": with_values("integer", [2147483648]),
    "negative real": with_values("real", [-1]),
    "number for a boolean": with_values("boolean", [1]),
    "number for a text": with_values("string", [1]),
    "bad base 64": with_values("string", [{"base64": "Zg="}]),
}

ACCEPTED = {
    "integers of any spelling": with_values("integer", [2, 2.0, 2e0]),
    "infinity": with_values("real", [{"text": "inf"}, 1e-45]),
    "bytes": with_values("string", [{"base64": "//4="}]),
}


def main():
    schema = json.loads(pathlib.Path(sys.argv[1]).read_text())
    sil = sys.argv[3:]
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    failures = []

    examples = sorted(pathlib.Path(sys.argv[2]).glob("*.sil"))
    for path in examples:
        run = subprocess.run([*sil, "json", path], capture_output=True, check=False)
        failures += [f"{path}: {error.message}" for error in validator.iter_errors(json.loads(run.stdout))]

    for cases, expected in ((REFUSED, False), (ACCEPTED, True)):
        for name, value in cases.items():
            run = subprocess.run([*sil, "from-json", "-"], input=json.dumps(value).encode(), capture_output=True, check=False)
            if validator.is_valid(value) != expected:
                failures.append(f"{name}: the schema says {not expected}")
            if (run.returncode == 0) != expected:
                failures.append(f"{name}: sil from-json says {not expected}: {run.stderr.decode()}")

    print("\n".join(failures) or f"{len(examples)} examples fit the schema")
    return 1 if failures or not examples else 0


sys.exit(main())
