#!/usr/bin/python3
"""Holds the schemas to what is read and what launches write. usage: with-peers schemas.py LAUNCHER ENGINE"""
import json, os, pathlib, re, subprocess, sys, tempfile
try:
    import jsonschema
except ImportError:
    sys.exit(77)  # The test is skipped.

root = pathlib.Path(__file__).parents[1]
schemas = {path.name.split(".")[0]: json.loads(path.read_text())
           for path in (root / "docs/schemas").glob("*.schema.json")}
page = (root / "docs/overlay.md").read_text()
sample = json.loads(re.search(r"```json\n(.*?)```", page, re.S)[1])
demo = re.search(r"<<JSON\n(.*?)\nJSON", (root / "scripts/demo-launch").read_text(), re.S)[1]
profiles = json.loads((root / "resources/quillon-webgl-profiles.json").read_text())
unseen = {name: value for name, value in os.environ.items() if "DISPLAY" not in name}
proxy = os.environ["QUILLON_PROXY"]

def reports(**overlay):
    with tempfile.TemporaryDirectory() as profile:
        pathlib.Path(profile, "command-line.json").write_text(json.dumps(overlay))
        subprocess.run([sys.argv[1], f"--user-data-dir={profile}"], stdout=subprocess.PIPE,
                       env=unseen | {"HOME": profile, "QUILLON_ENGINE_BIN": sys.argv[2]})
        found = [pathlib.Path(profile, f".quillon-launcher-{name}.json") for name in ("result", "error")]
        return [json.loads(report.read_text()) for report in found if report.exists()]

[passthrough], [ok] = reports(), reports(**{"auto-geo": True, "auto-lang": 1, "proxy-server": proxy})
blocked, unreachable = reports(**{"auto-geo": True, "proxy-server": "socks5://127.0.0.1:1"})
warned, unusable = reports(**{"auto-geo": 1, "on-proxy-fail": "fallback", "proxy-server": "http://x"})
results, errors = [passthrough, ok, blocked, warned], [unreachable, unusable]
assert [result["status"] for result in results] == ["passthrough", "ok", "blocked", "ok"], results
assert [error["error_code"] for error in errors] == ["PROXY_UNREACHABLE", "INTERNAL"], errors

good = {"overlay": [sample, json.loads(demo.replace("$proxy", proxy)), {}, {"proxy-server": "http://x"}],
        "webgl-profiles": [profiles], "launch-result": results, "launch-error": errors}
bad = {"overlay": [[], {"auto-geo": "yes"}, {"auto-geo": None}, {"on-proxy-fail": "Fallback"}, {"proxy-server": 1},
                   sample | {"proxy-server": "socks5h://x:1"}, {"granular-storage-reset": {"cookie": True}},
                   {"granular-storage-reset": {"cookies": "true"}}, {"cdp-tcp-port": 65536}, {"cdp-tcp-port": "0"},
                   {"geo-lat": 91}, {"lang": ""}, {"start-page": 1}, {"chrome-command-line": []}],
       "webgl-profiles": [{}, {"profiles": []}, {"profiles": {"x": "y"}}, {"profiles": {"x": {"--name": "y"}}}],
       "launch-result": [passthrough | {"elapsed_ms": 1}, ok | {"error_code": "PROXY_BLOCKED"}, ok | {"lat": 52.52},
                         ok | {"more": ""}, blocked | {"message": ""}, blocked | {"lang": "de-DE"},
                         ok | {"status": "block"}, {name: ok[name] for name in ok if name != "ip"}],
       "launch-error": [error | change for error in errors for change in (
           {"error_code": "PROXY_BLOCKED"}, {"error_code": "CURL_NOT_FOUND", "curl_exit_code": 7}, {"step": ""},
           {"curl_exit_code": None}, {"curl_exit_code": 28}, {"discovery_url": ""}, {"elapsed_ms": "1"}, {"more": 1})]}
for name, schema in schemas.items():
    jsonschema.Draft202012Validator.check_schema(schema)
    for value in good[name]:
        jsonschema.Draft202012Validator(schema).validate(value)
    assert not (missed := [value for value in bad[name] if jsonschema.Draft202012Validator(schema).is_valid(value)]), missed
properties = schemas["overlay"]["properties"]
first_column = " ".join(re.findall(r"^\| (`.*?) \|", page.split("| key |")[1].split("\n\n")[0], re.M))
kinds = {kind for code in root.glob("profile/*.cpp") for kind in re.findall(r'\{"(\w+)", \{', code.read_text())}
assert properties.keys() == set(re.findall("`(.*?)`", first_column)), "docs/overlay.md has other keys"
table = re.findall(r'\{"(.*?)", OverlayKeyType', (root / "overlay/overlay_keys.h").read_text())
assert properties.keys() == set(table), "the table has other keys"
assert properties["granular-storage-reset"]["properties"].keys() == kinds | {"all"}, "the launcher knows other kinds"
assert properties["webgl-profile"]["examples"] == list(profiles["profiles"]), "the catalogue has other profiles"
