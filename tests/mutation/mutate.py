#!/usr/bin/env python3
"""Changes the program in small ways, one at a time, and checks whether the tests notice.

    tests/mutation/mutate.py [--count 400] [--seed 1] [--only FOLDER ...] [--fresh]
    tests/mutation/mutate.py --again             tries the survivors again, after tests were added
    tests/mutation/mutate.py --report            prints what the run has found so far

A mutant is one changed place: a swapped operator, a dropped statement or a shifted constant. The sample is
random but the same for the same seed and source; a change elsewhere hardly changes it. Mutants are built and
tested in a separate clone in build/mutation, never in the working tree. A run that was stopped continues
where it stopped. A change that does not compile is not a mutant, and another one is drawn.
"""
import argparse
import hashlib
import json
import os
import re
import resource
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutation"
TREE = WORK / "tree"
BUILD = TREE / "build" / "mutation"
RESULTS = WORK / "results.jsonl"
# Files are in memory, because a test spends most of its time waiting for the disk.
ENVIRONMENT = {**os.environ, "TMPDIR": "/dev/shm"} if os.access("/dev/shm", os.W_OK) else os.environ
FOLDERS = ["data", "import", "export", "views", "engine"]

# The nearest tests come first: a mutant is dead at the first failure. Other tests would find a few more, and
# take long.
TESTS = {
    "engine": ["engine", "crash", "data", "scenarios"],
    "data": ["data", "check", "app", "scenarios", "cli"],
    "import": ["import", "app", "scenarios"],
    "export": ["export", "app", "scenarios", "cli"],
    "views": ["views", "app", "scenarios"],
}
# These tests wait for a lock or read 100 MB. They would double the time.
SLOW = ["EndlessLineTest.*", "*Test.AFileThatAnotherProgramHolds*", "DurabilityTest.*AnotherProgramWrites*",
        "CrashTest.AGroupThatCannotBeSettled*"]
# The other tests of these programs take long, and are about the disk.
ONLY = {"crash": "LostGroupTest*"}
TURNED = {
    " == ": " != ", " != ": " == ", " < ": " <= ", " > ": " >= ", " <= ": " < ", " >= ": " > ",
    " && ": " || ", " || ": " && ", " + ": " - ", " - ": " + ", " += ": " -= ", " * ": " / ", "++": "--",
}
NO_STATEMENT = re.compile(
    r"\s*(return|throw|break|continue|case|default|using|const|constexpr|static|auto|else|if|for|while|"
    r"std::\S+ \w+|[A-Z]\w*(::\w+)*[&*]? \w+|bool|int|template|friend|namespace|public|private|class|"
    r"struct|enum|explicit|virtual|\}|#|//)\b")
STATEMENT = re.compile(r"\s+[A-Za-z_][\w.>\[\]()-]*(::\w+)*(\(.*\)|\s*[-+|]?=\s.*|\+\+);$|\s+(\+\+|--)\w.*;$")
NUMBER = re.compile(r"(?<![\w.\"'])(\d+)(?![\w.\"'xX])")
TRUTH = re.compile(r"\b(true|false)\b")


def masked(line):
    """Replaces string literals and // comments by blanks, so that the length stays the same."""
    out, quote, skip = [], "", False
    for at, character in enumerate(line):
        if quote:
            out.append(" ")
            if skip:
                skip = False
            elif character == "\\":
                skip = True
            elif character == quote:
                quote = ""
        elif character in "\"'" and not (character == "'" and at and line[at - 1].isdigit()):
            quote = character
            out.append(" ")
        elif line.startswith("//", at):
            out.append(" " * (len(line) - at))
            break
        else:
            out.append(character)
    return "".join(out)


def places(path):
    """Returns (line number, column, length, new text, kind) for each change that the file allows."""
    found = []
    raw = False
    for number, line in enumerate(path.read_text().split("\n"), 1):
        if 'R"' in line:
            raw = True
        if raw:
            raw = ')"' not in line
            continue
        code = masked(line)
        if code.lstrip().startswith(("#", "template", "static_assert", "using ")):
            continue
        for old, new in TURNED.items():
            for match in re.finditer(re.escape(old), code):
                joins_texts = "+" in old and '"' in line
                if "operator" not in code and not joins_texts:
                    found.append((number, match.start(), len(old), new, "operator"))
        if STATEMENT.fullmatch(line.rstrip()) and not NO_STATEMENT.match(code):
            indent = len(line) - len(line.lstrip())
            found.append((number, indent, len(line) - indent, ";", "statement"))
        for match in NUMBER.finditer(code):
            found.append((number, match.start(), len(match[1]), str(int(match[1]) + 1), "constant"))
        for match in TRUTH.finditer(code):
            found.append((number, match.start(), len(match[1]), {"true": "false", "false": "true"}[match[1]],
                          "constant"))
    return found


def all_mutants(folders):
    mutants = []
    for folder in folders:
        for path in sorted((TREE / folder).rglob("*.cpp")):
            lines = path.read_text().split("\n")
            for number, column, length, new, kind in places(path):
                mutants.append({"file": str(path.relative_to(TREE)), "line": number, "column": column,
                                "length": length, "new": new, "kind": kind, "old": lines[number - 1]})
    return mutants


def changed(text, mutant):
    lines = text.split("\n")
    line = lines[mutant["line"] - 1]
    end = mutant["column"] + mutant["length"]
    lines[mutant["line"] - 1] = line[:mutant["column"]] + mutant["new"] + line[end:]
    return "\n".join(lines)


def small():
    """Limits the memory, because a mutant may allocate without end."""
    resource.setrlimit(resource.RLIMIT_AS, (3 << 30, 3 << 30))


def run(command, limit, **more):
    try:
        return subprocess.run(command, timeout=limit, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, errors="replace", **more)
    except subprocess.TimeoutExpired:
        return None


def build():
    needed = sorted({f"clb_test_{name}" for names in TESTS.values() for name in names})
    return subprocess.run(["cmake", "--build", str(BUILD), "--target", "clb", *needed], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)


def prepare():
    """Clones the committed source and builds it with one shared library for each folder, so that a mutant
    costs one object and one link."""
    head = subprocess.check_output(["git", "-C", str(ROOT), "rev-parse", "HEAD"], text=True).strip()
    if not TREE.exists():
        WORK.mkdir(parents=True, exist_ok=True)
        subprocess.run(["git", "clone", "-q", str(ROOT), str(TREE)], check=True)
    subprocess.run(["git", "-C", str(TREE), "fetch", "-q"], check=True)
    subprocess.run(["git", "-C", str(TREE), "checkout", "-q", "-f", head], check=True)
    subprocess.run(["cmake", "-S", str(TREE), "--preset", "mutation"], cwd=TREE, check=True,
                   stdout=subprocess.DEVNULL)
    first = build()
    if first.returncode != 0:
        sys.exit(first.stdout[-3000:])
    return head


def verdict(mutant):
    """Returns whether the mutant was killed by a test, survived, or is not a mutant."""
    path = TREE / mutant["file"]
    text = path.read_text()
    path.write_text(changed(text, mutant))
    try:
        if build().returncode != 0:
            return {"verdict": "invalid"}
        for name in TESTS[mutant["file"].split("/")[0]]:
            program = BUILD / "tests" / f"clb_test_{name}"
            tests = ONLY.get(name, "-" + ":".join(SLOW))
            done = run([str(program), "--gtest_fail_fast", "--gtest_brief=1", "--gtest_filter=" + tests], 150,
                       cwd=BUILD / "tests", env=ENVIRONMENT, preexec_fn=small)
            if done is None:
                return {"verdict": "killed", "by": f"{name}: no end"}
            if done.returncode != 0:
                failed = re.findall(r"\[  FAILED  \] (\S+)", done.stdout)
                return {"verdict": "killed", "by": f"{name}: {failed[0] if failed else 'crash'}"}
        return {"verdict": "survived"}
    finally:
        path.write_text(text)


def key(mutant):
    return f"{mutant['file']}:{mutant['column']}:{mutant['new']}:{mutant['old']}"


def first_of_equal(mutants):
    """Keeps only the first of the changes in equal lines of a file."""
    return list({key(mutant): mutant for mutant in reversed(mutants)}.values())


def place(mutant):
    return f"{mutant['file']}:{mutant['line']}:{mutant['column']} {mutant['new']}"


def results():
    if not RESULTS.exists():
        return []
    return [json.loads(line) for line in RESULTS.read_text().splitlines()]


def judged(mutant):
    now = changed((TREE / mutant["file"]).read_text(), mutant).split("\n")[mutant["line"] - 1]
    result = {**mutant, "now": now, **verdict(mutant)}
    print(f"{result['verdict']:8} {place(mutant)} {result.get('by', '')}", flush=True)
    return result


def try_survivors(mutants):
    """Drops survivors whose line no longer exists."""
    present = {key(mutant): mutant for mutant in first_of_equal(mutants)}
    kept = [result for result in results() if result["verdict"] != "survived" or key(result) in present]
    for at, result in enumerate(kept):
        if result["verdict"] == "survived":
            kept[at] = judged(present[key(result)])
            RESULTS.write_text("".join(json.dumps(one) + "\n" for one in kept))


def report():
    done = [result for result in results() if result["verdict"] != "invalid"]
    for folder in FOLDERS:
        of = [result for result in done if result["file"].startswith(folder + "/")]
        killed = sum(result["verdict"] == "killed" for result in of)
        print(f"{folder:8} {len(of):4} mutants, {killed:4} killed")
    killed = sum(result["verdict"] == "killed" for result in done)
    print(f"{'all':8} {len(done):4} mutants, {killed:4} killed, {100 * killed / max(1, len(done)):.1f} %")
    for result in done:
        if result["verdict"] == "survived":
            print(f"survived {result['file']}:{result['line']} {result['kind']}: "
                  f"{result['old'].strip()}  ->  {result['now'].strip()}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=400)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", nargs="*", default=FOLDERS, metavar="FOLDER")
    parser.add_argument("--fresh", action="store_true", help="forget an earlier run")
    parser.add_argument("--again", action="store_true")
    parser.add_argument("--report", action="store_true")
    options = parser.parse_args()
    if options.report:
        return report()
    if options.fresh:
        RESULTS.unlink(missing_ok=True)
    prepare()
    mutants = all_mutants(options.only)
    if options.again:
        try_survivors(mutants)
        return report()
    known = {key(result): result for result in results()}
    mutants = first_of_equal(mutants)
    mutants.sort(key=lambda mutant: (key(mutant) not in known,
                                     hashlib.sha256(f"{options.seed}:{key(mutant)}".encode()).digest()))
    valid = 0
    for mutant in mutants:
        if valid == options.count:
            break
        result = known.get(key(mutant))
        if not result:
            result = judged(mutant)
            with RESULTS.open("a") as out:
                out.write(json.dumps(result) + "\n")
        valid += result["verdict"] != "invalid"
    report()


if __name__ == "__main__":
    main()
